#pragma once

#include <QString>

class DeviceRoot;

// "MNInfo.ini": the element windows shown over the navigation program, written like a user page.
namespace NavInfoFile {
constexpr const char* kFileName = "MNInfo.ini";

// The file on this machine: in the navigation program's folder (a system path, "\" separators),
// else in the program folder; empty when neither has one. Relative bitmaps lie beside it.
QString find(const DeviceRoot& root, const QString& navProgramFolder);

// The element list section for a kind of navigation program, so that one file can serve several
// programs; empty for a kind without one (then the page files' default list is read).
QString listSection(int kind);
} // namespace NavInfoFile
