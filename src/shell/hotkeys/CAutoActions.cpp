#include "shell/hotkeys/CAutoActions.h"

#include "settings/CRegistryKey.h"
#include "shell/ShellSettings.h"
#include "shell/hotkeys/CHotkeyActions.h"

CAutoActions::CAutoActions(CHotkeyActions& actions, QObject* parent) : QObject(parent), m_actions(actions) {
    connect(&m_announcement, &QTimer::timeout, this,
            [this] { m_actions.Perform(QStringLiteral("<MN Neue Ansage>")); });
    connect(&m_tmcSearch, &QTimer::timeout, this,
            [this] { m_actions.Perform(QStringLiteral("<MN TMC Sendersuchlauf>")); });
}

void CAutoActions::Start() {
    CRegistryKey key;
    const int seconds = readSetting(key, ShellSettings::kAutoAnnouncement);
    const int minutes = readSetting(key, ShellSettings::kAutoTmc);
    if (seconds > 0) m_announcement.start(std::chrono::seconds(seconds));
    if (minutes > 0) m_tmcSearch.start(std::chrono::minutes(minutes));
}
