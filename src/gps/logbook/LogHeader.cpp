#include "gps/logbook/LogHeader.h"

#include "gps/NmeaSentence.h"

#include <cstdio>
#include <charconv>
#include <cstring>
#include <string>

namespace LogHeader {

namespace {

constexpr char kHeaderStart[] = "$Tarvik,";

bool isBlank(QByteArrayView area) {
    for (char c : area)
        if (c != ' ') return false;
    return true;
}

bool isPrintable(QByteArrayView area) {
    for (char c : area)
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7f) return false;
    return true;
}

std::optional<double> parseKm(std::string_view text) {
    double km = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), km);
    if (text.empty() || error != std::errc() || end != text.data() + text.size() || !(km >= 0)) return std::nullopt;
    return km;
}

} // namespace

std::optional<int32_t> parseDuration(std::string_view text) {
    const std::string copy(text);
    int hours = 0, minutes = 0, seconds = 0;
    char rest = 0;
    if (std::sscanf(copy.c_str(), "%d:%d:%d%c", &hours, &minutes, &seconds, &rest) == 3) {
    } else if (std::sscanf(copy.c_str(), "%d:%d%c", &hours, &minutes, &rest) == 2) {
        seconds = 0;
    } else {
        return std::nullopt;
    }
    if (hours < 0 || minutes < 0 || seconds < 0 || hours > 596522) return std::nullopt;
    return hours * 3600 + minutes * 60 + seconds;
}

QString durationText(int32_t seconds) {
    return QString::asprintf("%d:%02d:%02d", seconds / 3600, seconds / 60 % 60, seconds % 60);
}

Reading read(QByteArrayView start) {
    Reading reading;
    if (start.size() < kLineSize || std::memcmp(start.data(), kHeaderStart, kReservedOffset) != 0 ||
        start.sliced(kLineSize - 2, 2) != QByteArrayView("\r\n"))
        return reading;
    const QByteArrayView area = start.sliced(kReservedOffset, kReservedSize);
    if (isBlank(area)) {
        reading.m_state = State::Blank;
        return reading;
    }
    reading.m_state = State::Foreign;
    NmeaFields fields;
    const QByteArrayView line = start.first(kLineSize);
    if (!isPrintable(area) || !splitNmeaLine({line.data(), static_cast<size_t>(line.size())}, fields))
        return reading;
    const std::optional<double> km = parseKm(fields.field(1));
    const std::optional<int32_t> seconds = parseDuration(fields.field(2));
    if (!km || !seconds || fields.count() > 4) return reading;
    reading.m_state = State::Filled;
    reading.m_fields.m_dKm = *km;
    reading.m_fields.m_nSeconds = *seconds;
    const std::string_view comment = fields.field(3);
    reading.m_fields.m_strComment =
        QString::fromLatin1(comment.data(), static_cast<qsizetype>(comment.size())).trimmed();
    return reading;
}

QString commentProblem(const QString& comment) {
    for (QChar c : comment) {
        if (c == ',' || c == '*' || c == '$') return QStringLiteral("a comment cannot hold ',', '*' or '$'");
        if (c.unicode() < 0x20 || c.unicode() == 0x7f) return QStringLiteral("a comment is one line of text");
        if (c.unicode() > 0xff) return QStringLiteral("the comment holds '%1', which a log cannot store").arg(c);
    }
    return {};
}

std::optional<QByteArray> reservedArea(const LogbookFields& fields, QString& problem) {
    problem = commentProblem(fields.m_strComment);
    if (!problem.isEmpty()) return std::nullopt;
    QByteArray area = QString::asprintf("%.1f,", fields.m_dKm).toLatin1() +
                      durationText(fields.m_nSeconds).toLatin1() + ',' + fields.m_strComment.trimmed().toLatin1();
    if (area.size() > kReservedSize) {
        problem = QStringLiteral("the comment is %1 characters too long (room for %2)")
                      .arg(area.size() - kReservedSize)
                      .arg(kReservedSize - (area.size() - fields.m_strComment.trimmed().size()));
        return std::nullopt;
    }
    return area.leftJustified(kReservedSize, ' ');
}

} // namespace LogHeader
