#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <cstdint>
#include <vector>

// A POI name is 8-bit text from its name offset to the first NUL or line end, at most 1023 bytes.
QByteArray PoiNameAt(QByteArrayView bytes, uint32_t nameOffset);

// The name as text: UTF-8 when it is valid UTF-8, else Windows-1252 (the handheld's 8-bit text).
QString PoiNameText(const QByteArray& name);
// The text as a name to write: Windows-1252 when every character has a byte there (what older
// devices show), else UTF-8; PoiNameText reads either back.
QByteArray PoiNameBytes(const QString& text);

// The names at `nameOffsets` in the file at `path`, in the order of the offsets, read in one forward
// pass through the file: a list of thousands costs a few reads, not one each. An offset of 0, a missing
// file or an offset past the end give an empty name.
std::vector<QByteArray> ReadPoiNames(const QString& path, const std::vector<uint32_t>& nameOffsets);
