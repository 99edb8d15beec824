#pragma once

#include "nav/poi/PoiEntry.h"

#include <QImage>
#include <QString>
#include <vector>

// One POI file of the POI folder: its name and folder, its icon, whether it is enabled, and its points
// sorted by longitude ascending.
struct PoiFile {
    QString m_strName;   // file name, as the subkey POI names it
    QString m_strFolder; // host folder
    QImage m_icon;       // null: no icon
    bool m_bEnabled = false;
    std::vector<PoiEntry> m_entries;

    QString path() const;
};

// Reads the file's points (.ov2, else .asc text, by the name's extension), keeps those the program
// lists, sorts them by longitude and trims the array. A missing or unreadable file gives 0 points.
// Returns the number of points.
int LoadPoiFile(PoiFile& file);

// The name of a point of the file, read from the file at its name offset (empty: none).
QByteArray ReadPoiName(const PoiFile& file, const PoiEntry& entry);

// The points of a file's bytes as LoadPoiFile keeps them, by the file name's extension.
std::vector<PoiEntry> ReadPoiEntries(QByteArrayView bytes, const QString& fileName, PoiReading reading);

// The icon: the .bmp of the same base name in the same folder, else that name with every '_' made a
// blank; stretched to `poiSize` by `poiSize` pixels when poiSize is not 0 and not its height.
QImage LoadPoiIcon(const PoiFile& file, uint8_t poiSize);
