#include "integrations/template/ExpandTemplate.h"

#include "gps/CFendixDoc.h"
#include "gps/RecordingSettings.h"
#include "integrations/NavigationTarget.h"
#include "integrations/TmcStatus.h"
#include "nav/CoordinateText.h"
#include "nav/GeoConstants.h"
#include "nav/GeoSphere.h"
#include "nav/goto/GoToTarget.h"
#include "platform/DeviceClock.h"
#include "settings/CRegistryKey.h"

#include <QDateTime>
#include <QLocale>
#include <QTimeZone>
#include <algorithm>
#include <climits>
#include <cmath>
#include <optional>

namespace {

// What follows a name up to its closing "%": "*1.609" (a factor), ":2" (a notation), "3,1" (text data).
struct TokenArgs {
    QStringView text;

    double factor() const {
        if (!text.startsWith('*')) return 1.0;
        // Read as "%f" would: the longest number at the front, the rest ignored.
        qsizetype nEnd = 1;
        while (nEnd < text.size() && QStringView(u"0123456789.+-eE").contains(text[nEnd]))
            ++nEnd;
        for (; nEnd > 1; --nEnd) {
            bool bOk = false;
            const double dValue = QLocale::c().toDouble(text.mid(1, nEnd - 1), &bOk);
            if (bOk) return dValue;
        }
        return 1.0;
    }
};

// The sources with the document's parts taken out once; each may be null.
struct Values {
    const TemplateSources& sources;
    const GpsFix* pFix = nullptr;
    const TourStatistics* pStats = nullptr;

    QDateTime localNow() const { return QDateTime::fromSecsSinceEpoch(sources.tLocalNow, QTimeZone::utc()); }
    // The navigation program's destination; null when none is known.
    const NavigationTarget* navTarget() const {
        return sources.pNavTarget && sources.pNavTarget->bKnown ? sources.pNavTarget : nullptr;
    }
};

QString fixed(const char* format, double value) {
    return QString::asprintf(format, value);
}
QString whole(int value) {
    return QString::number(value);
}
// "As a whole number": cut towards zero; a factor that leaves the int range gives the range's end.
QString whole(double value) {
    if (std::isnan(value)) return whole(0);
    return whole(static_cast<int>(std::clamp(value, double(INT_MIN), double(INT_MAX))));
}

// Distance (km) and direction (degrees 0..359) from the fix to a place.
struct Leg {
    double km = 0;
    double degrees = 0;
};

std::optional<Leg> legTo(const Values& v, double lon, double lat) {
    if (!v.pFix) return std::nullopt;
    float course = 0;
    Leg leg;
    leg.km = GeoDistance(v.pFix->m_dPosLong, v.pFix->m_dPosLat, lon, lat, &course);
    leg.degrees = std::fmod(course * RadToDeg, 360.0);
    if (leg.degrees < 0) leg.degrees += 360.0;
    return leg;
}

// To the navigation program's destination, while one is known.
std::optional<Leg> legToDestination(const Values& v) {
    const NavigationTarget* pTarget = v.navTarget();
    return pTarget ? legTo(v, pTarget->dLong, pTarget->dLat) : std::nullopt;
}

// To the GoTo target, while the GoTo page exists and a target is set.
std::optional<Leg> legToGoTo(const Values& v) {
    double lon = 0, lat = 0;
    return v.sources.pGoTo && v.sources.pGoTo->GetTarget(lon, lat) ? legTo(v, lon, lat) : std::nullopt;
}

QString coordinate(const Values& v, const TokenArgs& args, bool isLatitude) {
    if (!v.pFix) return {};
    PosFormat format = PosFormat::FromSettings;
    if (args.text.startsWith(':')) {
        bool bOk = false;
        const int nFormat = args.text.mid(1).toInt(&bOk);
        if (!bOk || nFormat < 0 || nFormat > static_cast<int>(PosFormat::FalkMarcoPolo)) return {};
        format = static_cast<PosFormat>(nFormat);
    }
    return FormatCoordinate(isLatitude ? v.pFix->m_dPosLat : v.pFix->m_dPosLong, format, isLatitude);
}

QString navText(const Values& v, const TokenArgs& args) {
    const NavigationTarget* pTarget = v.navTarget();
    if (!pTarget) return {};
    bool bRowOk = false;
    bool bColumnOk = false;
    const qsizetype nComma = args.text.indexOf(',');
    const int nRow = args.text.left(nComma).toInt(&bRowOk);
    const int nColumn = nComma < 0 ? 0 : args.text.mid(nComma + 1).toInt(&bColumnOk);
    return bRowOk && bColumnOk ? pTarget->Text(nRow, nColumn) : QString();
}

QString tourStart() {
    CRegistryKey key;
    const auto start = readStoredSetting(key, RecordingSettings::kTourStart);
    if (!start) return {};
    const QDateTime time = QDateTime::fromSecsSinceEpoch(*start, QTimeZone::utc());
    return QString::asprintf("%d.%d.%d %d:%02d", time.date().day(), time.date().month(), time.date().year(),
                             time.time().hour(), time.time().minute());
}

using ValueFunction = QString (*)(const Values&, const TokenArgs&);

// A name ending in "%" is a whole token; the others run to the next "%" and may carry arguments.
struct Variable {
    const char16_t* pszName;
    ValueFunction value;
};

// In the order of matching: the first name that the text after a "%" starts with is taken, so
// "Distance2Target" must stay before "Distance".
const Variable kVariables[] = {
    {u"Speed",
     [](const Values& v, const TokenArgs& a) {
         return v.pFix ? fixed("%.0f", v.pFix->m_fSpeed * a.factor()) : QString();
     }},
    {u"Distance2Target",
     [](const Values& v, const TokenArgs& a) {
         const auto leg = legToDestination(v);
         return leg ? fixed("%.1f", leg->km * a.factor()) : QString();
     }},
    {u"Average",
     [](const Values& v, const TokenArgs& a) {
         if (!v.pStats) return QString();
         const int32_t nSeconds = v.pStats->m_nMovingTime;
         return fixed("%.0f",
                      nSeconds > 0 ? v.pStats->m_dMovingDistance / nSeconds * 3600.0 * a.factor() : 0.0);
     }},
    {u"Break%",
     [](const Values& v, const TokenArgs&) {
         return v.pStats && v.pStats->m_tBreakStart != 0
                    ? DurationText(v.sources.tLocalNow - v.pStats->m_tBreakStart)
                    : QString();
     }},
    {u"TripTime%",
     [](const Values& v, const TokenArgs&) {
         return v.pStats ? DurationText(v.pStats->m_nMovingTime) : QString();
     }},
    {u"Target%",
     [](const Values& v, const TokenArgs&) { return v.navTarget() ? v.navTarget()->strName : QString(); }},
    {u"Distance",
     [](const Values& v, const TokenArgs& a) {
         return v.pStats ? fixed("%.0f", v.pStats->m_dMovingDistance * a.factor()) : QString();
     }},
    {u"Time%",
     [](const Values& v, const TokenArgs&) {
         const QTime time = v.localNow().time();
         return QString::asprintf("%d:%02d", time.hour(), time.minute());
     }},
    {u"Seconds%", [](const Values& v,
                     const TokenArgs&) { return QString::asprintf("%02d", v.localNow().time().second()); }},
    {u"DateTime%", [](const Values& v,
                      const TokenArgs&) { return QLocale().toString(v.localNow(), QLocale::ShortFormat); }},
    {u"Text:", navText},
    {u"TargetStreet%",
     [](const Values& v, const TokenArgs&) { return v.navTarget() ? v.navTarget()->strStreet : QString(); }},
    {u"TargetTown%",
     [](const Values& v, const TokenArgs&) { return v.navTarget() ? v.navTarget()->strTown : QString(); }},
    {u"Altitude",
     [](const Values& v, const TokenArgs& a) {
         return v.pFix ? whole(v.pFix->m_fAltitude * a.factor()) : QString();
     }},
    {u"GPSQuality%",
     [](const Values& v, const TokenArgs&) { return v.pFix ? whole(v.pFix->m_nValid) : QString(); }},
    {u"Sats%",
     [](const Values& v, const TokenArgs&) { return v.pFix ? whole(v.pFix->m_nSatellites) : QString(); }},
    {u"HDOP%",
     [](const Values& v, const TokenArgs&) { return v.pFix ? fixed("%.1f", v.pFix->m_fHdop) : QString(); }},
    {u"Long", [](const Values& v, const TokenArgs& a) { return coordinate(v, a, false); }},
    {u"Lat", [](const Values& v, const TokenArgs& a) { return coordinate(v, a, true); }},
    {u"Direction%",
     [](const Values& v, const TokenArgs&) { return v.pFix ? whole(double(v.pFix->m_fCourse)) : QString(); }},
    {u"GoToDistance",
     [](const Values& v, const TokenArgs& a) {
         const auto leg = legToGoTo(v);
         if (!leg) return QString();
         const double km = leg->km * a.factor();
         return fixed(km >= 10.0 ? "%.1f" : "%.3f", km);
     }},
    {u"GoToName%",
     [](const Values& v, const TokenArgs&) {
         double lon = 0, lat = 0;
         return v.sources.pGoTo && v.sources.pGoTo->GetTarget(lon, lat) ? v.sources.pGoTo->Name() : QString();
     }},
    {u"GoToDirection%",
     [](const Values& v, const TokenArgs& a) {
         const auto leg = legToGoTo(v);
         return leg ? fixed("%.1f", leg->degrees * a.factor()) : QString();
     }},
    {u"Direction2Target",
     [](const Values& v, const TokenArgs& a) {
         const auto leg = legToDestination(v);
         return leg ? fixed("%.1f", leg->degrees * a.factor()) : QString();
     }},
    {u"MaxSpeed",
     [](const Values& v, const TokenArgs& a) {
         return v.pStats ? fixed("%.0f", v.pStats->m_fMaxSpeed * a.factor()) : QString();
     }},
    {u"MaxAltitude",
     [](const Values& v, const TokenArgs& a) {
         return v.pStats ? whole(v.pStats->m_fMaxAltitude * a.factor()) : QString();
     }},
    {u"GPSTime%",
     [](const Values& v, const TokenArgs&) {
         if (!v.sources.pDoc) return QString();
         const int64_t tUtc = v.pFix->m_tFixTime - v.sources.pDoc->Clock().localOffset();
         const QDateTime time = QDateTime::fromSecsSinceEpoch(tUtc, QTimeZone::utc());
         return QString::asprintf("%04d-%02d-%02d %02d:%02d:%02d", time.date().year(), time.date().month(),
                                  time.date().day(), time.time().hour(), time.time().minute(),
                                  time.time().second());
     }},
    {u"TourDistance",
     [](const Values& v, const TokenArgs& a) {
         return v.pStats ? fixed("%.0f", v.pStats->m_dTourDistance * a.factor()) : QString();
     }},
    {u"TourTime%",
     [](const Values& v, const TokenArgs&) {
         return v.pStats ? DurationText(v.pStats->m_nTourTime) : QString();
     }},
    {u"TourStart%", [](const Values&, const TokenArgs&) { return tourStart(); }},
    {u"TmcCnt%",
     [](const Values& v, const TokenArgs&) {
         return v.sources.pTmc && v.sources.pTmc->IsCountKnown() ? whole(v.sources.pTmc->nMessageCount)
                                                                 : QString();
     }},
    {u"TmcStation%",
     [](const Values& v, const TokenArgs&) {
         return v.sources.pTmc ? v.sources.pTmc->strStation : QString();
     }},
    {u"Slope%", [](const Values& v,
                   const TokenArgs&) { return v.pStats ? fixed("%.1f", v.pStats->m_fGradient) : QString(); }},
    {u"BatPerc%",
     [](const Values& v, const TokenArgs&) {
         const int nPercent = v.sources.nBatteryPercent;
         return nPercent >= 0 && nPercent <= 100 ? whole(nPercent) : QString();
     }},
};

} // namespace

QString DurationText(int64_t seconds) {
    QString text;
    const int64_t nDays = seconds / 86400;
    if (nDays >= 1) {
        text += QString::number(nDays) + 'd';
        seconds -= nDays * 86400;
    }
    text += QString::number(seconds / 3600) + ':';
    text +=
        QString::asprintf("%02d:%02d", static_cast<int>(seconds / 60 % 60), static_cast<int>(seconds % 60));
    return text;
}

QString ExpandTemplate(const QString& text, const TemplateSources& sources) {
    Values values{sources};
    if (sources.pDoc) {
        values.pFix = &sources.pDoc->Fix();
        values.pStats = &sources.pDoc->Statistics();
    }
    QString result;
    result.reserve(text.size());
    const QStringView view(text);
    qsizetype nPos = 0;
    while (nPos < view.size()) {
        const qsizetype nPercent = view.indexOf('%', nPos);
        if (nPercent < 0) {
            result += view.mid(nPos);
            break;
        }
        result += view.mid(nPos, nPercent - nPos);
        nPos = nPercent + 1;
        const QStringView rest = view.mid(nPos);
        const Variable* pMatch = nullptr;
        for (const Variable& variable : kVariables)
            if (rest.startsWith(QStringView(variable.pszName))) {
                pMatch = &variable;
                break;
            }
        if (!pMatch) {
            result += '%';
            continue;
        }
        const QStringView name(pMatch->pszName);
        TokenArgs args;
        nPos += name.size();
        if (!name.endsWith('%')) {
            // The token runs to the next "%"; without one the value stands and the text goes on.
            const qsizetype nClose = view.indexOf('%', nPos);
            if (nClose >= 0) {
                args.text = view.mid(nPos, nClose - nPos);
                nPos = nClose + 1;
            }
        }
        result += pMatch->value(values, args);
    }
    return result;
}
