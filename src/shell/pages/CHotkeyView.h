#pragma once

#include "shell/hotkeys/CHotkeyInput.h"
#include "shell/ui/CPageView.h"

#include <functional>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

// "Einstellungen Hotkeys": for one button at a time its short, double ("2*"), long and chord
// actions, chosen from the action list followed by the pages; the window key and the device key
// that stand for the button, each assigned by pressing it; the input device and why it cannot be
// read. Every change is written at once.
class CHotkeyView : public CPageView {
    Q_OBJECT
public:
    struct Services {
        std::function<QStringList()> pageNames;                // the page choice list and the user pages
        std::function<void(CHotkeyInput::Capture)> captureKey; // the next key of window or device
        std::function<void()> keysChanged;                     // key or device settings were written
        std::function<QString()> deviceState;                  // one line: read, or why not
    };
    explicit CHotkeyView(Services services, QWidget* parent = nullptr);
    void OnUpdate(uint16_t) override {}

protected:
    void showEvent(QShowEvent* event) override;

private:
    void Load();
    void FillActions();
    void WriteAction(QComboBox* box, const QString& valueName);
    void StartCapture();
    int Button() const;

    Services m_services;
    QComboBox* m_pButton;
    QComboBox* m_pShort;
    QComboBox* m_pDouble;
    QComboBox* m_pLong;
    QComboBox* m_pChordButton;
    QComboBox* m_pChord;
    QLabel* m_pKeys;
    QPushButton* m_pCapture;
    QLineEdit* m_pDevice;
    QLabel* m_pDeviceState;
    bool m_bLoading = false;
};
