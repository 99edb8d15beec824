#pragma once

#include <QByteArray>
#include <QString>

// Another user's last position as the service's look-up answers it: one line "longitude,latitude,text".
struct LiveposAnswer {
    QString strLine;  // the first line as it stands
    double dLong = 0; // degrees, east positive
    double dLat = 0;  // degrees, north positive
    QString strText;
    bool bComplete = false; // all three parts found: only then can the position be used
};

namespace LiveposAnswers {
inline constexpr const char* kWrongData = "Wrong Data!";

// Reads one answer line (8-bit text): longitude = the number at its start; latitude after the
// first ',' from the second character on; the text after the next ',' searched from two
// characters past the first.
LiveposAnswer ParseLine(const QByteArray& line);
// The first line of an answer body; false when the body holds no line at all.
bool FirstLine(const QByteArray& body, QByteArray& line);
} // namespace LiveposAnswers
