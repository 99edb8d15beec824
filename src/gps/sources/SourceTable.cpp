#include "gps/sources/SourceTable.h"

namespace {

constexpr const char* kNames[SourceTable::kCount] = {
    "COM0",
    "COM1",
    "COM2",
    "COM3",
    "COM4",
    "COM5",
    "COM6",
    "COM7",
    "COM8",
    "COM9",
    "Datei",
    "Simulate",
    "MobileNavigator",
    "Vantrel (Splitter Driver)",
    "gpsd",
    "tcp",
};

} // namespace

QString SourceTable::name(int index) {
    return index >= 0 && index < kCount ? QString::fromLatin1(kNames[index]) : QString();
}

int SourceTable::lookUp(const QString& source) {
    for (int index = 0; index < kCount; ++index) {
        // The splitter driver is only listed on the settings page; choosing it runs COM1.
        if (index != kSplitterDriver && source == QLatin1String(kNames[index])) return index;
    }
    return kDefaultSource;
}
