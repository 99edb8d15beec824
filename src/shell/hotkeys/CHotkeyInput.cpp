#include "shell/hotkeys/CHotkeyInput.h"

#include "integrations/hotkeys/HotkeyAssignments.h"
#include "platform/EvdevKeys.h"
#include "settings/CRegistryKey.h"
#include "shell/hotkeys/CHotkeyActions.h"
#include "shell/hotkeys/HotkeySettings.h"

#include <QKeyEvent>
#include <QKeySequence>

CHotkeyInput::CHotkeyInput(CHotkeyActions& actions, EvdevKeys* pDevice, QObject* parent)
    : QObject(parent), m_actions(actions), m_pDevice(pDevice) {
    m_pressWindow.setSingleShot(true);
    m_pressWindow.setInterval(CHotkeyPresses::kWindowMs);
    connect(&m_pressWindow, &QTimer::timeout, this, [this] {
        if (const std::optional<QString> name = m_presses.OnTimer()) Perform(*name);
    });
    if (m_pDevice) connect(m_pDevice, &EvdevKeys::key, this, &CHotkeyInput::OnDeviceKey);
    LoadKeys();
}

void CHotkeyInput::LoadKeys() {
    CRegistryKey key;
    for (size_t i = 0; i < m_windowKeys.size(); ++i) {
        const QKeySequence sequence = QKeySequence::fromString(
            readSetting(key, HotkeySettings::kWindowKeys[i]), QKeySequence::PortableText);
        m_windowKeys[i] = sequence.isEmpty() ? QKeyCombination() : sequence[0];
        m_deviceKeys[i] = readSetting(key, HotkeySettings::kDeviceKeys[i]);
    }
    if (m_pDevice) m_pDevice->SetDevice(readSetting(key, HotkeySettings::kDevice));
}

bool CHotkeyInput::OnButton(int button, bool bUp) {
    CRegistryKey key;
    if (!HotkeyAssignments::isRegistered(key, button)) return false;
    const CHotkeyPresses::Step step = m_presses.OnKey(button, bUp);
    if (step.bStartTimer) m_pressWindow.start();
    if (step.resolved) {
        m_pressWindow.stop();
        Perform(*step.resolved);
    }
    return true;
}

bool CHotkeyInput::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease)
        return QObject::eventFilter(watched, event);
    const auto* keyEvent = static_cast<QKeyEvent*>(event);
    const QKeyCombination pressed(keyEvent->modifiers() & ~Qt::KeypadModifier, Qt::Key(keyEvent->key()));
    if (m_capture && event->type() == QEvent::KeyPress) {
        std::exchange(m_capture, {})(KeySource::Window,
                                     int(pressed.key()) | int(pressed.keyboardModifiers().toInt()));
        return true;
    }
    for (size_t i = 0; i < m_windowKeys.size(); ++i) {
        if (m_windowKeys[i] != pressed || m_windowKeys[i] == QKeyCombination()) continue;
        if (keyEvent->isAutoRepeat()) {
            CRegistryKey key;
            return HotkeyAssignments::isRegistered(key, int(i) + 1);
        }
        return OnButton(int(i) + 1, event->type() == QEvent::KeyRelease);
    }
    return false;
}

void CHotkeyInput::OnDeviceKey(int code, bool bDown) {
    if (m_capture && bDown) {
        std::exchange(m_capture, {})(KeySource::Device, code);
        return;
    }
    for (size_t i = 0; i < m_deviceKeys.size(); ++i)
        if (m_deviceKeys[i] == code) OnButton(int(i) + 1, !bDown);
}

void CHotkeyInput::Perform(const QString& valueName) {
    CRegistryKey key;
    m_actions.Perform(HotkeyAssignments::action(key, valueName));
}
