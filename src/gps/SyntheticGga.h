#pragma once

#include "gps/GpsFix.h"

#include <QByteArray>

// The $GPGGA line standing in for a receiver when the position comes from a navigation program:
// UTC time of fix.m_tFixTime (local seconds, so `localOffset` is taken off), position in degrees
// and minutes with five decimals, fix.m_nValid and fix.m_nSatellites, HDOP 1.2 with a fix and 50.0
// without, altitude 0.0 M; then "*" with the checksum in two lower-case hex digits and "\r\n".
QByteArray buildSyntheticGga(const GpsFix& fix, int32_t localOffset);
