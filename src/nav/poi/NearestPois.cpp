#include "nav/poi/NearestPois.h"

#include "nav/GeoConstants.h"
#include "nav/GeoSphere.h"
#include "nav/poi/PoiName.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <limits>

namespace {

constexpr int kAllKm = 90000;
constexpr double kBoxMargin = 1.1;
constexpr qsizetype kNameBytesCompared = 4;

bool lessOn(int column, const PoiHit& a, const PoiHit& b) {
    switch (column) {
    case 1:
        return a.m_dDistance < b.m_dDistance;
    case 2:
        return a.m_nCourse < b.m_nCourse;
    default:
        return a.m_name.left(kNameBytesCompared) < b.m_name.left(kNameBytesCompared);
    }
}

} // namespace

int PoiRadiusKm(const QString& radiusText) {
    const QString text = radiusText.trimmed();
    qsizetype i = 0;
    const bool negative = i < text.size() && text[i] == '-';
    if (i < text.size() && (text[i] == '-' || text[i] == '+')) ++i;
    const qsizetype digits = i;
    long long value = 0;
    for (; i < text.size() && text[i].isDigit() && text[i].unicode() < 128; ++i)
        value = std::min<long long>(value * 10 + (text[i].unicode() - '0'), INT_MAX);
    if (i == digits) return kAllKm;
    return static_cast<int>(negative ? -value : value);
}

std::vector<PoiHit> FindNearestPois(const std::vector<const PoiFile*>& files, double lon0, double lat0,
                                    const QString& radiusText, bool withNames) {
    const int r = PoiRadiusKm(radiusText);
    const double kx = GeoDistance(lon0, lat0, lon0 + 0.01, lat0);
    const double ky = GeoDistance(lon0, lat0, lon0, lat0 + 0.01);
    const double dLon = r * 0.01 / kx * kBoxMargin;
    const double dLat = r * 0.01 / ky * kBoxMargin;
    const double lowestLon = lon0 - dLon;
    const double lonBound = lon0 + dLon;
    const double latBound = lat0 + dLat; // the fourth test compares the longitude with it
    const double lowestLat = lat0 - dLat;

    std::vector<PoiHit> hits;
    hits.reserve(1000);
    // A NaN bound (radius 0 at a pole, where a degree of longitude is 0 km) fails every test of the box.
    if (std::isnan(lowestLon) || std::isnan(lonBound) || std::isnan(latBound) || std::isnan(lowestLat))
        return hits;
    const double highestLon = std::min(lonBound, latBound);
    if (lowestLon > highestLon) return hits;
    // The box has no northern side, but a point further north than dLat (the radius plus 10 %, at least
    // 100 m beyond any rounding of the distance) is further away than the radius whatever its longitude:
    // skipping it before the distance changes no result and saves most distances of a large file.
    const double beyondRadius = r > 0 ? latBound : std::numeric_limits<double>::infinity();
    for (const PoiFile* file : files) {
        const std::vector<PoiEntry>& entries = file->m_entries;
        const auto first = std::ranges::lower_bound(entries, lowestLon, {}, &PoiEntry::m_dLon);
        const auto last = std::upper_bound(first, entries.end(), highestLon,
                                           [](double lon, const PoiEntry& e) { return lon < e.m_dLon; });
        const size_t firstHit = hits.size();
        for (auto entry = first; entry != last; ++entry) {
            if (entry->m_dLat < lowestLat || entry->m_dLat > beyondRadius) continue;
            const double distance = GeoDistance(lon0, lat0, entry->m_dLon, entry->m_dLat);
            if (!(distance <= r)) continue;
            float course = 0.0f; // the same call with the course: the same distance, the course only for hits
            GeoDistance(lon0, lat0, entry->m_dLon, entry->m_dLat, &course);
            const double degrees = course * RadToDeg;
            hits.push_back({file,
                            static_cast<int>(entry - entries.begin()),
                            static_cast<int16_t>(std::isnan(degrees) ? 0 : static_cast<int>(degrees)),
                            distance,
                            {}});
        }
        if (withNames && hits.size() > firstHit) {
            std::vector<uint32_t> offsets;
            for (size_t i = firstHit; i < hits.size(); ++i)
                offsets.push_back(entries[size_t(hits[i].m_nIndex)].m_nNameOffset);
            std::vector<QByteArray> names = ReadPoiNames(file->path(), offsets);
            for (size_t i = firstHit; i < hits.size(); ++i)
                hits[i].m_name = std::move(names[i - firstHit]);
        }
    }
    return hits;
}

void SortPoiHits(std::vector<PoiHit>& hits, int sortKey) {
    const int column = std::abs(sortKey);
    if (column < 1 || column > 3) return;
    if (sortKey > 0)
        std::ranges::stable_sort(hits,
                                 [column](const PoiHit& a, const PoiHit& b) { return lessOn(column, a, b); });
    else
        std::ranges::stable_sort(hits,
                                 [column](const PoiHit& a, const PoiHit& b) { return lessOn(column, b, a); });
}
