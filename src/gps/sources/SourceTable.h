#pragma once

#include <QString>

// The sources a document can take its sentences from. The index is what GpsFix::m_nSource holds.
namespace SourceTable {

constexpr int kSerialPorts = 10;     // 0..9: "COM0".."COM9"
constexpr int kDefaultSource = 1;    // "COM1", for any name not in the table
constexpr int kFile = 10;            // "Datei": a recorded file, opened for viewing only
constexpr int kSimulate = 11;        // "Simulate": a recorded file replayed as live data
constexpr int kMobileNavigator = 12; // "MobileNavigator": the navigation program's position file
constexpr int kSplitterDriver = 13;  // "Vantrel (Splitter Driver)": listed, never selected
constexpr int kGpsd = 14;            // "gpsd": raw NMEA from a gpsd daemon
constexpr int kTcp = 15;             // "tcp": a raw NMEA stream over TCP
constexpr int kCount = 16;

// The name stored in "Source" for an index; empty for an index outside the table.
QString name(int index);
// The index of a "Source" value: the first entry of that name that can be selected, else "COM1".
int lookUp(const QString& source);
inline bool isSerialPort(int index) {
    return index >= 0 && index < kSerialPorts;
}

} // namespace SourceTable
