#pragma once

#include <cstdint>
#include <string_view>

// One received line split into fields. Nothing is copied: the field starts point into the
// caller's line, which must outlive this object. Field 0 is the sentence name with its "$".
class NmeaFields {
public:
    // A sentence has at most 82 characters, so at most 80 fields; a few more are allowed for
    // receivers that run long, and a line with more is rejected.
    static constexpr int kMaxFields = 96;

    int count() const { return m_nCount; }
    // The field's text up to its comma, "*" or line end; empty when index >= count().
    std::string_view field(int index) const;
    // Where the field begins, and where the line ends (at the first NUL, or the end of the text).
    // Converters that look beyond one field (latitude with its hemisphere) stop at lineEnd().
    const char* fieldStart(int index) const { return m_pStarts[index]; }
    const char* lineEnd() const { return m_pLineEnd; }
    // True when the sentence name begins with `name` ("$GPGGA": the first six characters count).
    bool isNamed(std::string_view name) const;

private:
    friend bool splitNmeaLine(std::string_view line, NmeaFields& fields);

    // Left uninitialised on purpose: a sentence is split for every line, and only the first
    // m_nCount entries are ever read.
    const char* m_pStarts[kMaxFields];
    const char* m_pEnds[kMaxFields]; // the field's comma, its "*" or the line end
    const char* m_pLineEnd = nullptr;
    int m_nCount = 0;
};

// Splits a line that starts at its "$" and tests its checksum in one pass. A NUL ends the line
// early. Accepted: a line without "*" (no checksum), or one whose hexadecimal number behind the
// "*" equals the XOR of every character between "$" and "*". False also for an empty line and a
// line of more than kMaxFields fields.
bool splitNmeaLine(std::string_view line, NmeaFields& fields);

// The checksum of a sentence: the XOR of every character between a leading "$" and the first "*"
// (or the end).
uint8_t nmeaChecksum(std::string_view sentence);
