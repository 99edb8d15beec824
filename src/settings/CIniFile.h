#pragma once

#include "settings/ValueText.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <cstdint>

// A font as the text profiles store it: fourteen keys "<key>.lfHeight" ... "<key>.lfFaceName".
struct LogFont {
    int32_t lfHeight = 0, lfWidth = 0, lfEscapement = 0, lfOrientation = 0, lfWeight = 0;
    uint8_t lfItalic = 0, lfUnderline = 0, lfStrikeOut = 0, lfCharSet = 0, lfOutPrecision = 0,
            lfClipPrecision = 0, lfQuality = 0, lfPitchAndFamily = 0;
    QString lfFaceName;
    bool operator==(const LogFont&) const = default;
};

// A text profile ("[Section]" headers and "key = value" entries) held as its lines. Section names
// compare exactly, keys without regard to case, and the first occurrence of a key wins. Lines that
// are not entries are kept as they are. Reads report only whether the key was found.
class CIniFile {
public:
    bool Load(const QString& path);
    // Reads the bytes of a file in any of the encodings decodeText() knows.
    void LoadFromBytes(const QByteArray& bytes);
    // UTF-8 without byte order mark, "\n" after every line. The file is replaced as a whole, so a
    // failed save (full disk, read-only folder) leaves the old file byte for byte as it was.
    bool Save(const QString& path) const;
    QByteArray ToBytes() const;
    const QStringList& Lines() const { return m_lines; }

    int FindSection(const QString& section) const; // header index, -1; 0 for the empty name
    int FindOrAddSection(const QString& section);  // -1 for the empty name
    int FindKey(int startLine, const QString& key, QString& value) const;
    bool ReadSection(const QString& section, QStringList& lines) const;
    bool NextKey(const QString& section, QString& key) const;
    void DeleteSection(const QString& section);

    bool ReadString(const QString& section, const QString& key, QString& value) const;
    bool ReadBool(const QString& section, const QString& key, bool& value) const;
    bool ReadInt(const QString& section, const QString& key, int32_t& value) const;
    bool ReadByte(const QString& section, const QString& key, uint8_t& value) const;
    bool ReadFloat(const QString& section, const QString& key, float& value) const;
    bool ReadDouble(const QString& section, const QString& key, double& value) const;
    bool ReadColour(const QString& section, const QString& key, Colour& value) const;
    // These three add a missing section header to the in-memory lines, as the profiles always did.
    bool ReadRect(const QString& section, const QString& key, Rect& value);
    bool ReadPoint(const QString& section, const QString& key, Point& value);
    bool ReadSize(const QString& section, const QString& key, Size& value);
    bool ReadMultiLine(const QString& section, const QString& key, QString& value) const;
    bool ReadStringList(const QString& section, const QString& key, QStringList& values) const;
    bool ReadFont(const QString& section, const QString& key, LogFont& font) const;

    bool WriteString(const QString& section, const QString& key, const QString& value);
    bool WriteBool(const QString& section, const QString& key, bool value);
    bool WriteInt(const QString& section, const QString& key, int32_t value);
    bool WriteByte(const QString& section, const QString& key, uint8_t value);
    bool WriteFloat(const QString& section, const QString& key, float value);
    bool WriteDouble(const QString& section, const QString& key, double value);
    bool WriteColour(const QString& section, const QString& key, Colour value);
    bool WriteRect(const QString& section, const QString& key, const Rect& value);
    bool WritePoint(const QString& section, const QString& key, const Point& value);
    bool WriteSize(const QString& section, const QString& key, const Size& value);
    bool WriteMultiLine(const QString& section, const QString& key, const QString& value);
    bool WriteStringList(const QString& section, const QString& key, const QStringList& values);
    bool WriteFont(const QString& section, const QString& key, const LogFont& font);

private:
    bool ReadAddingSection(const QString& section, const QString& key, QString& value);

    QStringList m_lines;
};
