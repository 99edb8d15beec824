#include "nav/CoordinateText.h"

#include "nav/PosFormat.h"
#include "settings/ValueText.h"

#include <cmath>

namespace {

struct DegreesMinutes {
    double degrees = 0.0;  // whole degrees
    double minutes = 0.0;  // whole minutes
    double fraction = 0.0; // of a minute, 0..1
};

DegreesMinutes split(double absValue) {
    DegreesMinutes parts;
    const double minutes = std::modf(absValue, &parts.degrees) * 60.0;
    parts.fraction = std::modf(minutes, &parts.minutes);
    return parts;
}

// Carries a rounded-up fraction (thousandths of a minute, or seconds) into minutes, then into degrees.
void carry(DegreesMinutes& parts, int& units, int unitsPerMinute) {
    if (units >= unitsPerMinute) {
        units -= unitsPerMinute;
        parts.minutes += 1.0;
    }
    if (parts.minutes >= 60.0) {
        parts.minutes -= 60.0;
        parts.degrees += 1.0;
    }
}

} // namespace

QString FormatCoordinate(double value, PosFormat format, bool isLatitude) {
    if (format == PosFormat::FromSettings) format = readPosFormat();
    if (!std::isfinite(value)) return {};
    const bool negative = value < 0;
    const double absValue = std::abs(value);
    const char letter = "NSEW"[(isLatitude ? 0 : 2) + (negative ? 1 : 0)];
    DegreesMinutes parts = split(absValue);

    switch (format) {
    case PosFormat::DegreesMinutes: {
        int thousandths = static_cast<int>(parts.fraction * 1000.0 + 0.5);
        carry(parts, thousandths, 1000);
        return QString::asprintf(isLatitude ? "%c %02.f°%02d.%03.f" : "%c %03.f°%02d.%03.f", letter,
                                 parts.degrees, static_cast<int>(parts.minutes),
                                 static_cast<double>(thousandths));
    }
    case PosFormat::DegreesMinutesSeconds: {
        int seconds = static_cast<int>(parts.fraction * 60.0 + 0.5);
        carry(parts, seconds, 60);
        return QString::asprintf(isLatitude ? "%c %02.f°%02d'%02d''" : "%c %03.f°%02d'%02d''", letter,
                                 parts.degrees, static_cast<int>(parts.minutes), seconds);
    }
    case PosFormat::DecimalDegrees:
        return QString::asprintf(isLatitude ? "%c %02.6f" : "%c %03.6f", letter, absValue);
    case PosFormat::Utm:
        return QString::asprintf(isLatitude ? "%02.6f" : "%03.6f", value);
    default:
        return {};
    }
}

bool ParseCoordinate(const QString& text, double& value) {
    value = 0.0;
    if (text.isEmpty()) return false;

    QString work = text;
    double sign = 1.0;
    if (QStringLiteral("NEne").contains(work.front())) work.remove(0, 1);
    if (!work.isEmpty() && QStringLiteral("SWsw-").contains(work.front())) {
        work.remove(0, 1);
        sign = -1.0;
    }
    // U+FFB4 (not the acute accent U+00B4) is what the handheld's keyboard gives for a minute mark.
    for (QChar mark : {QChar(u'\''), QChar(u'\uFFB4'), QChar(u'`'), QChar(u',')})
        work.replace(mark, u'.');

    const qsizetype degreeMark = work.indexOf(u'°');
    const QStringView degreeText = degreeMark < 0 ? QStringView(work) : QStringView(work).left(degreeMark);
    const QStringView rest = degreeMark < 0 ? QStringView() : QStringView(work).mid(degreeMark + 1);

    double result = ValueText::wcstod(degreeText);
    // A seconds mark '' has become "..": without one the rest is decimal minutes.
    const qsizetype secondsMark = rest.indexOf(u"..");
    if (secondsMark < 0) {
        result += ValueText::wcstod(rest) * (1.0 / 60.0);
    } else {
        const QStringView minutesSeconds = rest.left(secondsMark);
        const qsizetype minutesMark = minutesSeconds.indexOf(u'.');
        if (minutesMark < 0) {
            result += ValueText::wtol(minutesSeconds) * (1.0 / 3600.0);
        } else {
            result += ValueText::wtol(minutesSeconds.left(minutesMark)) * (1.0 / 60.0);
            result += ValueText::wtol(minutesSeconds.mid(minutesMark + 1)) * (1.0 / 3600.0);
        }
    }
    value = result * sign;
    return true;
}
