#pragma once

#include <QString>

// Where the navigation program lives, as a system path with "\" separators: "MNProgam" of the
// settings, else MobileNavigator's "InstallDir" (HKEY_LOCAL_MACHINE) with "\" appended. Empty when
// neither is set.
QString navProgramPath();
// The folder of a program path: everything up to and including the last "\".
QString navProgramFolder(const QString& programPath);
