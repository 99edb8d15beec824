#!/usr/bin/env bash
# Readers on files that hold one huge line (50 MB): each must stay linear. Times `tarvik-tool` reading
# a text profile, a regedit file and an NMEA log made of one line, best of N, beside gpsbabel on the
# same NMEA line. Prints wall seconds and peak memory.
set -euo pipefail
build=${1:-build}
runs=${RUNS:-3}
megabytes=${MEGABYTES:-50}
tool=$(realpath "$build/apps/tarvik-tool/tarvik-tool")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
python3 - "$work" "$megabytes" <<'PY'
import sys
work, size = sys.argv[1], int(sys.argv[2]) * 1_000_000
open(f"{work}/long.ini", "wb").write(b"[Main]\nName = " + b"x" * size + b"\n")
open(f"{work}/long.reg", "wb").write(b"Windows Registry Editor Version 5.00\r\n\r\n[HKEY_CURRENT_USER\\X]\r\n\"A\"=\""
                                      + b"x" * size + b"\"\r\n")
open(f"{work}/long.nmea", "wb").write(b"$GPGGA," + b"1," * (size // 2) + b"\r\n")
open(f"{work}/long-cr.nmea", "wb").write(b"$GPGGA,120000,4806.0,N,01130.0,E,1,08,0.9,500.0,M,47.0,M,,*71\r" * (size // 64))
PY
echo "one line of $megabytes MB per file"

# best-of NAME COMMAND...: the smallest wall time of $runs runs and the peak memory of that run.
best_of() {
    local name=$1
    shift
    : > "$work/times"
    for _ in $(seq "$runs"); do
        rm -rf "$work/root" && mkdir "$work/root"
        /usr/bin/time -a -o "$work/times" -f "%e %M" "$@" > /dev/null 2>&1 || true
    done
    sort -n "$work/times" | head -1 | awk -v name="$name" '{ printf "%-34s wall %6.2f s   peak %5d MB\n", name, $1, $2 / 1024 }'
}

best_of "tarvik-tool ini get" "$tool" --root "$work/root" ini get "$work/long.ini" Main Name
best_of "tarvik-tool reg import" "$tool" --root "$work/root" reg import "$work/long.reg"
best_of "tarvik-tool track read" "$tool" --root "$work/root" track read "$work/long.nmea"
best_of "tarvik-tool nmea parse" "$tool" --root "$work/root" nmea parse "$work/long.nmea"
best_of "tarvik-tool replay" "$tool" --root "$work/root" replay --now 2026-05-22T12:00:00 "$work/long.nmea"
best_of "tarvik-tool track read (CR only)" "$tool" --root "$work/root" track read "$work/long-cr.nmea"
if command -v gpsbabel > /dev/null; then
    best_of "gpsbabel nmea (one line)" gpsbabel -i nmea -f "$work/long.nmea" -o unicsv -F "$work/out.csv"
fi
