#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <cstdint>
#include <optional>

// The logbook's fields in the reserved area of a log's header line ("$Tarvik," + 256 bytes +
// "\r\n"): "%.1f," km, the duration "h:mm:ss", "," and the comment, padded with spaces. Read with
// the sentence field splitter, so the comment holds none of ",*$" and no control characters;
// it is Latin-1, one byte a character.
struct LogbookFields {
    double m_dKm = 0;
    int32_t m_nSeconds = 0;
    QString m_strComment;
};

namespace LogHeader {

inline constexpr int kReservedOffset = 8; // after "$Tarvik,"
inline constexpr int kReservedSize = 256;
inline constexpr int kLineSize = kReservedOffset + kReservedSize + 2;

enum class State : uint8_t {
    NoHeader, // not a header line of that shape: nothing can be written in place
    Blank,    // the recorder's spaces, still to be filled
    Filled,   // logbook fields
    Foreign,  // something else in the reserved area; left alone
};

struct Reading {
    State m_state = State::NoHeader;
    LogbookFields m_fields; // when Filled
};

// The first bytes of a log (at least kLineSize to see a header).
Reading read(QByteArrayView start);

// The characters a comment cannot hold; empty when it can be stored.
QString commentProblem(const QString& comment);
// The reserved area for these fields; nothing when the comment cannot be stored or does not fit
// (then `problem` says why).
std::optional<QByteArray> reservedArea(const LogbookFields& fields, QString& problem);

// "1:02:03" and back ("%d:%d:%d", else "%d:%d" as hours and minutes).
QString durationText(int32_t seconds);
std::optional<int32_t> parseDuration(std::string_view text);

} // namespace LogHeader
