#pragma once

#include "gps/GpsFix.h"

#include <vector>

class DeviceClock;
class QIODevice;

// Reads a recorded NMEA log into track points: one point per valid $GPGGA; $GPRMC points only
// while no GGA has been seen in the file. With details, points without a fix are kept and carry
// quality, satellites, HDOP and the speed of the latest RMC/VTG; without, they are skipped.
// Altitudes get fix.m_nAltitudeOffset; times are dated by the clock's date, not the recording's.
// With bAcceptAllTalkers, other talkers' fix sentences count as GPS ones, as the live sources take
// them ("AcceptAllTalkers", see TalkerRewrite.h). Lines are cut by LogLineSplitter.
// False when the device is missing, not open or cannot be rewound; else true, even for an empty list.
bool ReadFromFile(QIODevice* file, std::vector<TrackPoint>& points, const GpsFix& fix,
                  const DeviceClock& clock, bool bDetails, bool bAcceptAllTalkers = false);
