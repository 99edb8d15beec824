#include "nav/poi/AscWriter.h"

#include "nav/poi/PoiName.h"

namespace {
constexpr qsizetype kMaxNameBytes = 1000; // the line stays within the 1023 bytes read at once
} // namespace

QByteArray WriteAsc(const NamedPois& points) {
    QByteArray out;
    for (const NamedPoi& p : points) {
        if (!IsWritablePoi(p)) continue;
        QByteArray name = PoiNameBytes(p.m_strName).left(kMaxNameBytes);
        name.replace('\r', ' ').replace('\n', ' ').replace('\0', ' ');
        out += PoiDegreesText(p.m_dLon) + ',' + PoiDegreesText(p.m_dLat) + ",\"" + name + "\"\n";
    }
    return out;
}
