#include "nav/poi/NamedPoi.h"

#include <cmath>

QByteArray PoiDegreesText(double degrees) {
    QByteArray text = QByteArray::number(degrees, 'f', 9);
    while (text.endsWith('0'))
        text.chop(1);
    if (text.endsWith('.')) text.chop(1);
    return text == "-0" ? QByteArray("0") : text;
}

bool IsWritablePoi(const NamedPoi& point) {
    return std::abs(point.m_dLon) <= 180.0 && std::abs(point.m_dLat) <= 90.0;
}
