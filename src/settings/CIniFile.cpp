#include "settings/CIniFile.h"

#include "settings/TextDecoding.h"

#include <QFile>
#include <QSaveFile>
#include <unistd.h>

namespace {

// A line is read with at most 1023 characters; the rest of a longer line becomes further lines.
constexpr qsizetype kMaxLineChars = 1023;
constexpr char16_t kCarriageReturnMark = 0xFFE7;

bool isHeader(const QString& line) {
    return line.size() > 2 && line.startsWith('[') && line.endsWith(']');
}

QString keyOf(const QString& line, qsizetype equals) {
    QString key = line.left(equals);
    while (!key.isEmpty() && key.back().isSpace())
        key.chop(1);
    return key;
}

QString entryLine(const QString& key, const QString& value) {
    return key + QStringLiteral(" = ") + value;
}

// The fourteen fields of a font, in the order they are written.
template <typename Visitor> void visitFontFields(LogFont& f, Visitor&& visit) {
    visit(".lfHeight", f.lfHeight);
    visit(".lfWidth", f.lfWidth);
    visit(".lfEscapement", f.lfEscapement);
    visit(".lfOrientation", f.lfOrientation);
    visit(".lfWeight", f.lfWeight);
    visit(".lfItalic", f.lfItalic);
    visit(".lfUnderline", f.lfUnderline);
    visit(".lfStrikeOut", f.lfStrikeOut);
    visit(".lfCharSet", f.lfCharSet);
    visit(".lfOutPrecision", f.lfOutPrecision);
    visit(".lfClipPrecision", f.lfClipPrecision);
    visit(".lfQuality", f.lfQuality);
    visit(".lfPitchAndFamily", f.lfPitchAndFamily);
    visit(".lfFaceName", f.lfFaceName);
}

} // namespace

bool CIniFile::Load(const QString& path) {
    m_lines.clear();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    LoadFromBytes(file.readAll());
    return true;
}

void CIniFile::LoadFromBytes(const QByteArray& bytes) {
    m_lines.clear();
    QString text = decodeText(bytes);
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    qsizetype pos = 0;
    qsizetype lineEnd = 0;
    while (pos < text.size()) {
        // Like a fixed 1024-character line buffer: a chunk ends after "\n" or at 1023 characters.
        // The line end is searched once per line, not once per chunk, so a huge line stays linear.
        if (lineEnd <= pos) {
            const qsizetype newline = text.indexOf('\n', pos);
            lineEnd = newline < 0 ? text.size() : newline + 1;
        }
        const qsizetype chunkEnd = std::min(lineEnd, pos + kMaxLineChars);
        m_lines << text.mid(pos, chunkEnd - pos).trimmed();
        pos = chunkEnd;
    }
}

QByteArray CIniFile::ToBytes() const {
    QByteArray bytes;
    for (const QString& line : m_lines)
        bytes += line.toUtf8() + '\n';
    return bytes;
}

bool CIniFile::Save(const QString& path) const {
    // A temporary file beside the old one, synced, then renamed over it: the old file stays as it
    // was until the new one is complete on disk, whatever fails on the way.
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return false;
    const QByteArray bytes = ToBytes();
    if (file.write(bytes) != bytes.size() || !file.flush() || ::fsync(file.handle()) != 0)
        return false; // the temporary file is removed, the old one untouched
    return file.commit();
}

int CIniFile::FindSection(const QString& section) const {
    if (section.isEmpty()) return 0;
    for (int i = 0; i < m_lines.size(); ++i)
        if (isHeader(m_lines[i]) && QStringView(m_lines[i]).sliced(1, m_lines[i].size() - 2) == section)
            return i;
    return -1;
}

int CIniFile::FindOrAddSection(const QString& section) {
    if (section.isEmpty()) return -1;
    const int found = FindSection(section);
    if (found >= 0) return found;
    m_lines << QLatin1Char('[') + section + QLatin1Char(']');
    return int(m_lines.size() - 1);
}

int CIniFile::FindKey(int startLine, const QString& key, QString& value) const {
    for (int i = std::max(startLine, 0); i < m_lines.size(); ++i) {
        const QString& line = m_lines[i];
        if (isHeader(line)) return -1;
        const qsizetype equals = line.indexOf('=');
        if (equals < 0 || keyOf(line, equals).compare(key, Qt::CaseInsensitive) != 0) continue;
        qsizetype start = equals + 1;
        while (start < line.size() && line[start].isSpace())
            ++start;
        value = line.mid(start);
        return i;
    }
    return -1;
}

bool CIniFile::ReadSection(const QString& section, QStringList& lines) const {
    const int header = FindSection(section);
    if (header < 0) return false;
    lines.clear();
    for (int i = header + 1; i < m_lines.size() && !isHeader(m_lines[i]); ++i)
        lines << m_lines[i];
    return true;
}

bool CIniFile::NextKey(const QString& section, QString& key) const {
    QStringList lines;
    if (!ReadSection(section, lines)) return false;
    qsizetype taken = 0;
    if (!key.isEmpty()) {
        taken = -1;
        for (qsizetype i = 0; i < lines.size() && taken < 0; ++i)
            if (lines[i].startsWith(key, Qt::CaseSensitive)) taken = i + 1;
        if (taken < 0) return false;
    }
    if (taken >= lines.size()) return false;
    const qsizetype equals = lines[taken].indexOf('=');
    if (equals >= 1) key = keyOf(lines[taken], equals);
    return true;
}

void CIniFile::DeleteSection(const QString& section) {
    const int header = FindSection(section);
    if (header < 0) return;
    m_lines.removeAt(header);
    while (header < m_lines.size() && !isHeader(m_lines[header]))
        m_lines.removeAt(header);
}

bool CIniFile::ReadString(const QString& section, const QString& key, QString& value) const {
    const int header = FindSection(section);
    return header >= 0 && FindKey(header + 1, key, value) >= 0;
}

bool CIniFile::ReadAddingSection(const QString& section, const QString& key, QString& value) {
    const int header = FindOrAddSection(section);
    return header >= 0 && FindKey(header + 1, key, value) >= 0;
}

bool CIniFile::ReadBool(const QString& section, const QString& key, bool& value) const {
    QString text;
    if (!ReadString(section, key, text)) return false;
    value = text.contains(QStringLiteral("true")) || ValueText::wtol(text) >= 1;
    return true;
}

bool CIniFile::ReadInt(const QString& section, const QString& key, int32_t& value) const {
    QString text;
    if (!ReadString(section, key, text)) return false;
    value = ValueText::wtol(text);
    return true;
}

bool CIniFile::ReadByte(const QString& section, const QString& key, uint8_t& value) const {
    int32_t wide = 0;
    if (!ReadInt(section, key, wide)) return false;
    value = static_cast<uint8_t>(wide);
    return true;
}

bool CIniFile::ReadFloat(const QString& section, const QString& key, float& value) const {
    QString text;
    if (!ReadString(section, key, text)) return false;
    value = static_cast<float>(ValueText::wcstod(text));
    return true;
}

bool CIniFile::ReadDouble(const QString& section, const QString& key, double& value) const {
    QString text;
    if (!ReadString(section, key, text)) return false;
    value = ValueText::wcstod(text.replace(',', '.'));
    return true;
}

bool CIniFile::ReadColour(const QString& section, const QString& key, Colour& value) const {
    QString text;
    if (!ReadString(section, key, text)) return false;
    Colour scanned = 0;
    if (ValueText::parseColour(text, scanned) == 3) value = scanned;
    return true;
}

bool CIniFile::ReadRect(const QString& section, const QString& key, Rect& value) {
    QString text;
    if (!ReadAddingSection(section, key, text)) return false;
    value = ValueText::parseRect(text);
    return true;
}

bool CIniFile::ReadPoint(const QString& section, const QString& key, Point& value) {
    QString text;
    if (!ReadAddingSection(section, key, text)) return false;
    value = ValueText::parsePoint(text);
    return true;
}

bool CIniFile::ReadSize(const QString& section, const QString& key, Size& value) {
    QString text;
    if (!ReadAddingSection(section, key, text)) return false;
    value = ValueText::parseSize(text);
    return true;
}

bool CIniFile::ReadMultiLine(const QString& section, const QString& key, QString& value) const {
    QString text;
    if (!ReadString(section, key, text)) return false;
    value = text.replace(QChar(kCarriageReturnMark), QChar('\r')).replace('|', '\n');
    return true;
}

bool CIniFile::ReadStringList(const QString& section, const QString& key, QStringList& values) const {
    QString text;
    if (!ReadString(section, key, text)) return false;
    values = text.split('"');
    if (values.last().isEmpty()) values.removeLast();
    return true;
}

bool CIniFile::ReadFont(const QString& section, const QString& key, LogFont& font) const {
    const int header = FindSection(section);
    if (header < 0) return false;
    bool any = false;
    visitFontFields(font, [&](const char* suffix, auto& field) {
        QString text;
        if (FindKey(header + 1, key + QLatin1String(suffix), text) < 0) return;
        any = true;
        if constexpr (std::is_same_v<std::decay_t<decltype(field)>, QString>)
            field = text;
        else
            field = static_cast<std::decay_t<decltype(field)>>(ValueText::wtol(text));
    });
    return any;
}

bool CIniFile::WriteString(const QString& section, const QString& key, const QString& value) {
    const int header = FindOrAddSection(section);
    if (header < 0) return false;
    QString old;
    const int line = FindKey(header + 1, key, old);
    if (line >= 0)
        m_lines[line] = entryLine(key, value);
    else
        m_lines.insert(header + 1, entryLine(key, value));
    return true;
}

bool CIniFile::WriteBool(const QString& section, const QString& key, bool value) {
    return WriteString(section, key, value ? QStringLiteral("true") : QStringLiteral("false"));
}

bool CIniFile::WriteInt(const QString& section, const QString& key, int32_t value) {
    return WriteString(section, key, QString::number(value));
}

bool CIniFile::WriteByte(const QString& section, const QString& key, uint8_t value) {
    return WriteString(section, key, QString::number(value));
}

bool CIniFile::WriteFloat(const QString& section, const QString& key, float value) {
    return WriteString(section, key, ValueText::formatF(value));
}

bool CIniFile::WriteDouble(const QString& section, const QString& key, double value) {
    return WriteString(section, key, ValueText::formatF(value));
}

bool CIniFile::WriteColour(const QString& section, const QString& key, Colour value) {
    return WriteString(section, key, ValueText::formatColour(value));
}

bool CIniFile::WriteRect(const QString& section, const QString& key, const Rect& value) {
    return WriteString(section, key, ValueText::formatRect(value));
}

bool CIniFile::WritePoint(const QString& section, const QString& key, const Point& value) {
    return WriteString(section, key, ValueText::formatPoint(value));
}

bool CIniFile::WriteSize(const QString& section, const QString& key, const Size& value) {
    return WriteString(section, key, ValueText::formatSize(value));
}

bool CIniFile::WriteMultiLine(const QString& section, const QString& key, const QString& value) {
    QString text = value;
    return WriteString(section, key, text.replace('\r', QChar(kCarriageReturnMark)).replace('\n', '|'));
}

bool CIniFile::WriteStringList(const QString& section, const QString& key, const QStringList& values) {
    QString text;
    for (const QString& item : values)
        text += item + '"';
    return WriteString(section, key, text);
}

bool CIniFile::WriteFont(const QString& section, const QString& key, const LogFont& font) {
    LogFont copy = font;
    bool ok = true;
    visitFontFields(copy, [&](const char* suffix, auto& field) {
        const QString name = key + QLatin1String(suffix);
        if constexpr (std::is_same_v<std::decay_t<decltype(field)>, QString>)
            ok = WriteString(section, name, field) && ok;
        else
            ok = WriteString(section, name, QString::number(field)) && ok;
    });
    return ok;
}
