#!/usr/bin/env bash
# The grid conversions at the command level: GeographicLib's GeoConvert converting 200,000 seeded
# positions to UTM/UPS and to MGRS (text in, text out), the peer figure beside bench_geo's ToUtm and
# ToMgrs. Prints wall and CPU seconds and points per CPU second, best of N.
set -euo pipefail
runs=${RUNS:-3}
points=200000
command -v GeoConvert > /dev/null || { echo "GeoConvert not installed: skipped"; exit 0; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
awk -v n=$points 'BEGIN { srand(7); for (i = 0; i < n; i++) printf "%.9f %.9f\n", rand() * 160 - 80, rand() * 360 - 180 }' \
    > "$work/points"
for mode in -u -m; do
    : > "$work/times"
    for _ in $(seq "$runs"); do
        /usr/bin/time -a -o "$work/times" -f "%e %U %S" GeoConvert "$mode" -p 0 < "$work/points" > /dev/null
    done
    awk -v mode="$mode" -v n=$points 'NR == 1 || $1 < wall { wall = $1 } NR == 1 || $2 + $3 < cpu { cpu = $2 + $3 }
        END { printf "GeoConvert %s  %d points   wall %6.3f s   cpu %6.3f s   %9.0f points per cpu second\n",
              mode, n, wall, cpu, n / cpu }' "$work/times"
done
