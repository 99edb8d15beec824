#!/usr/bin/env bash
# A whole replayed day: `tarvik-tool replay` of a generated 24-hour log (one $GPGGA and one $GPRMC a
# second, about 12 MB) with every sentence logged, side by side in one run with gpsbabel reading
# the same log into a track and gpsdecode decoding it. Prints wall and CPU seconds, best of N.
set -euo pipefail
build=${1:-build}
runs=${RUNS:-5}
here=$(cd "$(dirname "$0")" && pwd)
tool=$(realpath "$build/apps/tarvik-tool/tarvik-tool")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
python3 "$here/make-day-log.py" "$work/day.nmea"
echo "log: $(stat -c %s "$work/day.nmea") bytes, $(wc -l < "$work/day.nmea") sentences"

# best-of NAME RUNS COMMAND...: the smallest wall time and the smallest CPU time (user + system).
best_of() {
    local name=$1 count=$2
    shift 2
    : > "$work/times"
    for _ in $(seq "$count"); do
        rm -rf "$work/root" && mkdir "$work/root"
        /usr/bin/time -a -o "$work/times" -f "%e %U %S" "$@" > /dev/null 2>&1
    done
    awk -v name="$name" 'NR == 1 || $1 < wall { wall = $1 } NR == 1 || $2 + $3 < cpu { cpu = $2 + $3 }
        END { printf "%-30s wall %6.3f s   cpu %6.3f s\n", name, wall, cpu }' "$work/times"
}

best_of "tarvik-tool replay" "$runs" "$tool" --root "$work/root" replay "$work/day.nmea" \
    --now 2026-05-22T00:00:00Z --set LogDelay=0 --set 'LogType=$GPGGA,$GPRMC'
if command -v gpsbabel > /dev/null; then
    best_of "gpsbabel nmea -> unicsv" 2 env TZ=UTC gpsbabel -t -i nmea -f "$work/day.nmea" \
        -o unicsv,utc=0 -F "$work/out.csv"
fi
if command -v gpsdecode > /dev/null; then
    best_of "gpsdecode" 2 sh -c "gpsdecode < '$work/day.nmea'"
fi
