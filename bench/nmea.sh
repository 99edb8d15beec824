#!/usr/bin/env bash
# Reading NMEA logs into tracks: tarvik-tool track read beside gpsbabel, gpsdecode and the bare
# checksum pass, on generated logs of 10 and 100 MB (GGA+RMC, and the "full" set with GSA+GSV).
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
exec python3 "$here/nmea_read_bench.py" "${1:-build}"
