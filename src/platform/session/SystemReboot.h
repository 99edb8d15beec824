#pragma once

#include <QDBusConnection>

// Restarts the machine through logind's Reboot on the system bus (the caller's session must be
// allowed to, as a local seat user normally is); false when logind refused or is not there.
bool requestReboot(QDBusConnection bus);
