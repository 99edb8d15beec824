#include "integrations/hotkeys/CHotkeyPresses.h"

#include "integrations/hotkeys/HotkeyNames.h"

CHotkeyPresses::Step CHotkeyPresses::OnKey(int button, bool bUp) {
    if (button < 1 || button > HotkeyNames::kHighestButton) return {};
    // Checked before the release flag on purpose: a release of another button while one is pending
    // counts as a chord too.
    if (m_nPending != 0 && m_nPending != button)
        return {Resolve(HotkeyNames::chord(m_nPending, button)), false};
    if (bUp) {
        m_bDown = false;
        return {};
    }
    if (m_bDown) return {}; // the key repeats while held
    const bool bFirst = m_nPending == 0;
    m_nPending = button;
    ++m_nCount;
    m_bDown = true;
    return {std::nullopt, bFirst};
}

std::optional<QString> CHotkeyPresses::OnTimer() {
    if (m_nPending == 0) return std::nullopt;
    if (m_bDown) return Resolve(HotkeyNames::longPress(m_nPending));
    if (m_nCount < 2) return Resolve(HotkeyNames::shortPress(m_nPending));
    return Resolve(HotkeyNames::multiPress(m_nCount, m_nPending));
}

QString CHotkeyPresses::Resolve(const QString& valueName) {
    // The down flag stays: the held button's release is still to come.
    m_nPending = 0;
    m_nCount = 0;
    return valueName;
}
