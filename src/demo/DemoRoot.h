#pragma once

#include <QString>
#include <QStringList>

// The demo's own device root, filled from the demo data folder (data/demo of the source tree):
// "settings.reg" holds the demo's settings in regedit form, and every other file or folder there
// is the target of one of those settings. A string setting whose last path element names an entry
// of the data folder gets that entry, at the place the setting names: "File"="/My Documents/Demo/
// drive.nmea" receives "drive.nmea", "SpeedWaves"="/My Documents/SpeedWaves/" the files of the
// folder "SpeedWaves". So the settings say once where each file lives.
namespace DemoRoot {
inline constexpr const char* kSettingsFile = "settings.reg";
// In the filled root's settings (current user): a digest of the data it was filled from.
inline constexpr const char* kStampKey = "SOFTWARE\\Tarvik\\Demo";
inline constexpr const char* kStampValue = "DataDigest";
} // namespace DemoRoot

// The first of `candidates` that holds demo data (a "settings.reg"); empty when none does.
QString findDemoData(const QStringList& candidates);

// Fills the device root `folder` from `dataFolder`: the files are copied under their system paths
// and the settings imported into that root's registry. Once per version of the data: later calls
// only put back files that are missing, so a user's changes in the demo stay. No other root is
// touched, and no file is written outside `folder`. False, with a line in the developer log, when
// the data is incomplete or cannot be written; the next call tries again.
bool prepareDemoRoot(const QString& folder, const QString& dataFolder);
