#!/usr/bin/env python3
"""Writes a synthetic NMEA log of about SIZE megabytes for the log-reading benchmarks.

usage: make-nmea-log.py OUT SIZE_MB [--full]

Each second holds one $GPGGA and one $GPRMC (the drive of make-day-log.py); with --full also one
$GPGSA and three $GPGSV, as a receiver that reports its satellites sends them. The output is the
same on every run.
"""
import importlib.util
import math
import os
import sys

_spec = importlib.util.spec_from_file_location(
    "day_log", os.path.join(os.path.dirname(os.path.abspath(__file__)), "make-day-log.py"))
day_log = importlib.util.module_from_spec(_spec)
_spec.loader.exec_module(day_log)


def satellite_sentences(second):
    used = ",".join("%02d" % (1 + (second // 60 + i) % 32) for i in range(8))
    lines = [day_log.sentence("GPGSA,A,3,%s,,,,,2.1,0.9,1.8" % used)]
    for message in range(3):
        groups = []
        for slot in range(4):
            prn = 1 + (message * 4 + slot + second // 60) % 32
            groups.append("%02d,%02d,%03d,%02d" % (prn, (prn * 7 + second // 30) % 90,
                                                  (prn * 37 + second // 10) % 360, 20 + prn % 25))
        lines.append(day_log.sentence("GPGSV,3,%d,12,%s" % (message + 1, ",".join(groups))))
    return "".join(lines)


def main():
    out, size_mb = sys.argv[1], float(sys.argv[2])
    full = "--full" in sys.argv[3:]
    limit = int(size_mb * 1e6)
    centre_lat, centre_lon, radius_km = 48.137, 11.575, 1.5
    written, second, angle = 0, 0, 0.0
    with open(out, "w", newline="") as log:
        while written < limit:
            speed_kmh = 50.0 + 30.0 * math.sin(second / 300.0)
            angle += speed_kmh / 3600.0 / radius_km
            lat = centre_lat + radius_km * math.sin(angle) / 111.12
            lon = centre_lon + radius_km * math.cos(angle) / (111.12 * math.cos(math.radians(centre_lat)))
            hms = "%02d%02d%02d.00" % (second // 3600 % 24, second // 60 % 60, second % 60)
            lat_text, lon_text = day_log.ddmm(lat, 2), day_log.ddmm(lon, 3)
            block = day_log.sentence("GPGGA,%s,%s,N,%s,E,1,08,0.9,%.1f,M,47.0,M,,"
                                     % (hms, lat_text, lon_text, 520.0 + 40.0 * math.sin(angle)))
            block += day_log.sentence("GPRMC,%s,A,%s,N,%s,E,%.2f,%.1f,220526,,,A"
                                      % (hms, lat_text, lon_text, speed_kmh / 1.852,
                                         (math.degrees(angle) + 270.0) % 360.0))
            if full:
                block += satellite_sentences(second)
            log.write(block)
            written += len(block)
            second += 1


if __name__ == "__main__":
    main()
