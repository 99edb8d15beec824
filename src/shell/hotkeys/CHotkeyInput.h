#pragma once

#include "integrations/hotkeys/CHotkeyPresses.h"

#include <QKeyCombination>
#include <QObject>
#include <QTimer>
#include <array>
#include <functional>

class CHotkeyActions;
class EvdevKeys;

// The five application buttons: keys of the program window (any of its widgets) and keys of the
// chosen input device, turned into button messages, resolved by the press detection with the
// 500 ms press window (timer 46) and performed. A button takes its key away from the window only
// while its short press has an action; the assignments are read at every key, so changes count
// at once.
class CHotkeyInput : public QObject {
    Q_OBJECT
public:
    enum class KeySource { Window, Device };
    // Where a captured key came from and its code: a key combination of the window
    // (key | modifiers, as QKeySequence takes it) or the kernel's key code of the device.
    using Capture = std::function<void(KeySource source, int code)>;

    // `pDevice` may be null: the window's keys only.
    CHotkeyInput(CHotkeyActions& actions, EvdevKeys* pDevice, QObject* parent = nullptr);

    // Re-reads which keys stand for the buttons and opens the chosen device.
    void LoadKeys();
    // The next key of the window or the device goes to `capture` instead of the buttons.
    void CaptureNextKey(Capture capture) { m_capture = std::move(capture); }
    // A message of button 1..6 (key code 0xC0 + button); false when the button is not registered.
    bool OnButton(int button, bool bUp);
    // Keys of every widget of the program (installed on the application); true when taken.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void OnDeviceKey(int code, bool bDown);
    void Perform(const QString& valueName);

    CHotkeyActions& m_actions;
    EvdevKeys* m_pDevice;
    CHotkeyPresses m_presses;
    QTimer m_pressWindow;
    std::array<QKeyCombination, 5> m_windowKeys;
    std::array<int, 5> m_deviceKeys{};
    Capture m_capture;
};
