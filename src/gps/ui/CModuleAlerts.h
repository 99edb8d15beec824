#pragma once

#include "shell/ui/CPageView.h"

#include <functional>

class QCheckBox;
class QLineEdit;

// The alerts page "Meldungen": each alert sound (no fix, signal back, no data) on or off with its
// WAV file, a chooser and a test button, and the master switch "Sound an/aus". Every change is
// stored at once and the document's alert sounds are reloaded.
class CModuleAlerts : public CPageView {
    Q_OBJECT
public:
    struct Actions {
        std::function<void()> alertsChanged;                   // reload the alert sounds
        std::function<void(const QString& hostPath)> playFile; // the test button
        std::function<bool()> isSoundOn;
        std::function<void(bool)> setSoundOn;
    };
    CModuleAlerts(Actions actions, QWidget* parent = nullptr);
    void OnUpdate(uint16_t) override {}

private:
    struct AlertRow {
        QCheckBox* pOn;
        QLineEdit* pFile;
    };
    void Store();
    void Choose(int alert);

    Actions m_actions;
    AlertRow m_rows[3];
    QCheckBox* m_pSoundOn;
};
