#!/usr/bin/env bash
# A million POIs at the command level, side by side with GPSBabel in the same run: converting them from
# CSV to .ov2, the nearest query within 25 km (the whole run: load with the sort, query, table), and
# reading every point with its name into a table. Prints wall and CPU seconds and the peak memory of
# each command, best of N, and the memory per point beyond a run on a file of one point.
set -euo pipefail
build=${1:-build}
runs=${RUNS:-3}
tool="$build/apps/tarvik-tool/tarvik-tool"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
points=1000000
# Seeded, even over Germany's box (6..15 E, 47..55 N), names "POI 000000" as bench_poi has them.
awk -v n=$points 'BEGIN { srand(5); print "lon,lat,name";
    for (i = 0; i < n; i++) printf "%.5f,%.5f,POI %06d\n", 6 + rand() * 9, 47 + rand() * 8, i }' > "$work/million.csv"
head -2 "$work/million.csv" > "$work/one.csv"
"$tool" --root "$work/root" poi convert "$work/one.csv" "$work/one.ov2" > /dev/null

# measure LABEL COMMAND...: best wall, best CPU and the largest peak memory of `runs` runs
measure() {
    local label=$1
    shift
    : > "$work/times"
    for _ in $(seq "$runs"); do
        /usr/bin/time -a -o "$work/times" -f "%e %U %S %M" "$@" > /dev/null
    done
    awk -v label="$label" 'NR == 1 || $1 < wall { wall = $1 } NR == 1 || $2 + $3 < cpu { cpu = $2 + $3 }
        $4 > rss { rss = $4 }
        END { printf "%-44s wall %7.3f s   cpu %7.3f s   peak %7.1f MB\n", label, wall, cpu, rss / 1024 }' "$work/times"
    awk '$4 > rss { rss = $4 } END { print rss }' "$work/times" > "$work/rss"
}

measure "tarvik-tool poi convert csv -> ov2" "$tool" --root "$work/root" poi convert "$work/million.csv" "$work/million.ov2"
ls -l "$work/million.ov2" | awk '{ printf "%-44s %d bytes, %.1f bytes per point\n", "million.ov2", $5, $5 / '$points' }'
measure "tarvik-tool poi nearest, 1 point" "$tool" --root "$work/root" poi nearest "$work/one.ov2" --lon 10.5 --lat 51 --radius "25 km"
small=$(cat "$work/rss")
measure "tarvik-tool poi nearest 25 km" "$tool" --root "$work/root" poi nearest "$work/million.ov2" --lon 10.5 --lat 51 --radius "25 km"
big=$(cat "$work/rss")
awk -v s="$small" -v b="$big" -v n=$points 'BEGIN { printf "%-44s %.1f bytes per point at the peak\n", "tarvik-tool poi nearest 25 km", (b - s) * 1024 / n }'
measure "tarvik-tool poi read (all names)" "$tool" --root "$work/root" poi read "$work/million.ov2"
if command -v gpsbabel > /dev/null; then
    measure "gpsbabel unicsv -> tomtom" gpsbabel -i unicsv -f "$work/million.csv" -o tomtom -F "$work/babel.ov2"
    measure "gpsbabel tomtom -> unicsv (all names)" gpsbabel -i tomtom -f "$work/million.ov2" -o unicsv -F /dev/null
else
    echo "gpsbabel not installed: peers skipped"
fi
