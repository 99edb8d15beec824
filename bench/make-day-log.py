#!/usr/bin/env python3
"""Writes a synthetic NMEA log of a moving receiver: one $GPGGA and one $GPRMC a second.

usage: make-day-log.py OUT [HOURS]   (default 24 hours, about 12 MB)

The receiver drives round a 3 km circle near Munich at 20 to 80 km/h, climbing and falling 40 m,
so every statistic of a replay has something to do. The output is the same on every run.
"""
import math
import sys


def checksum(body):
    value = 0
    for ch in body.encode("ascii"):
        value ^= ch
    return value


def sentence(body):
    return "$%s*%02X\r\n" % (body, checksum(body))


def ddmm(value, degree_digits):
    degrees = int(abs(value))
    minutes = (abs(value) - degrees) * 60.0
    return "%0*d%07.4f" % (degree_digits, degrees, minutes)


def main():
    out = sys.argv[1]
    hours = float(sys.argv[2]) if len(sys.argv) > 2 else 24.0
    centre_lat, centre_lon, radius_km = 48.137, 11.575, 1.5
    km_per_degree = 111.12
    angle = 0.0
    with open(out, "w", newline="") as log:
        for second in range(int(hours * 3600)):
            speed_kmh = 50.0 + 30.0 * math.sin(second / 300.0)
            angle += speed_kmh / 3600.0 / radius_km
            lat = centre_lat + radius_km * math.sin(angle) / km_per_degree
            lon = centre_lon + radius_km * math.cos(angle) / (km_per_degree * math.cos(math.radians(centre_lat)))
            altitude = 520.0 + 40.0 * math.sin(angle)
            course = (math.degrees(angle) + 270.0) % 360.0
            hms = "%02d%02d%02d.00" % (second // 3600 % 24, second // 60 % 60, second % 60)
            lat_text, lon_text = ddmm(lat, 2), ddmm(lon, 3)
            log.write(sentence("GPGGA,%s,%s,N,%s,E,1,08,0.9,%.1f,M,47.0,M,," % (hms, lat_text, lon_text, altitude)))
            log.write(sentence("GPRMC,%s,A,%s,N,%s,E,%.2f,%.1f,220526,,,A"
                               % (hms, lat_text, lon_text, speed_kmh / 1.852, course)))


if __name__ == "__main__":
    main()
