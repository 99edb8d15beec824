#!/usr/bin/env bash
# Peers of bench_maps' LoadMapImage: decoding the same 10000 x 8000 JPEG (written by bench_maps into
# the temporary folder) with GDAL (gdalinfo -checksum reads every pixel through its block cache) and
# with ImageMagick (to raw 8-bit RGB). Prints CPU seconds and the peak resident memory, best of N.
set -euo pipefail
runs=${RUNS:-3}
jpeg=${TMPDIR:-/tmp}/tarvik-bench-10000x8000.jpg
[ -f "$jpeg" ] || { echo "no $jpeg: run bench_maps first"; exit 0; }
measure() {
    local name=$1
    shift
    local times
    times=$(mktemp)
    for _ in $(seq "$runs"); do
        /usr/bin/time -a -o "$times" -f "%U %S %M" "$@" > /dev/null 2>&1
    done
    awk -v name="$name" 'NR == 1 || $1 + $2 < cpu { cpu = $1 + $2 } $3 > peak { peak = $3 }
        END { printf "%-28s cpu %6.3f s   peak %7.1f MB\n", name, cpu, peak / 1024 }' "$times"
    rm -f "$times"
}
command -v gdalinfo > /dev/null && measure "gdalinfo -checksum" gdalinfo -checksum "$jpeg"
[ -x /usr/bin/convert ] && measure "ImageMagick convert to rgb" /usr/bin/convert "$jpeg" -depth 8 rgb:/dev/null
exit 0
