#pragma once

#include <QString>

class DeviceRoot;

// The receiver's state for other programs: when "<program folder>/GPSTMCInfo.ini" names a folder in
// [GPSTMCInfoSettings] PathWhereToWriteGPSTMCInfo, "GPSTMCInfo.txt" there holds the lines
// "station=<name>", "nsat=<satellites in use>" and "ntmcm=<messages held>". Without that setting
// nothing is written. The file is replaced whole, so a reader never sees half of it.
namespace TmcInfoFile {
// The host path the state goes to; empty when the profile names none.
QString TargetPath(const DeviceRoot& root);
bool Write(const QString& hostPath, const QString& station, int nSatellites, int nMessages);
} // namespace TmcInfoFile
