#!/usr/bin/env bash
# The program in a real window: the demo starts on the town map and replays (the map moves between two
# screenshots taken seconds apart), changes to the overview by itself when the drive leaves the town
# (the window title names the map), then SIGTERM closes it cleanly (exit code 0) with the tour saved.
# An unknown page is a usage error before any window.
set -euo pipefail
tarvik=$1
tool=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
data=$(dirname "$0")/../../data/demo

# Replayed fast, so that the drive leaves the town map within the test's time.
"$tool" --root "$work/root" demo prepare "$data"
"$tool" --root "$work/root" reg set 'HKCU\SOFTWARE\Omvale\Fendix' SimulationSpeed --type dword 16

cat > "$work/run.sh" <<SCRIPT
set -u
QT_QPA_PLATFORM=xcb "$tarvik" --demo --root "$work/root" 2> "$work/stderr" &
pid=\$!
# Screenshots three seconds apart until two differ: a loaded machine may take a while to start.
sleep 3
import -window root "$work/one.png"
for _ in \$(seq 15); do
    sleep 3
    import -window root "$work/two.png"
    changed=\$(compare -metric AE "$work/one.png" "$work/two.png" null: 2>&1 || true)
    [ "\${changed%% *}" -gt 100 ] && break
    cp "$work/two.png" "$work/one.png"
done
for _ in \$(seq 60); do
    xwininfo -root -tree | grep -q '"Allgaeu.jpg"' && { echo "changed to the overview"; break; }
    sleep 1
done
kill -TERM \$pid
for _ in \$(seq 50); do kill -0 \$pid 2>/dev/null || break; sleep 0.2; done
if kill -0 \$pid 2>/dev/null; then echo "tarvik did not end on SIGTERM"; kill -KILL \$pid; exit 1; fi
wait \$pid
echo "exit code \$?"
SCRIPT
result=$(xvfb-run -a -s "-screen 0 480x640x24" bash "$work/run.sh")
echo "$result"
grep -q "changed to the overview" <<<"$result" || { echo "the page did not change to the overview map"; exit 1; }
[ "$(tail -n 1 <<<"$result")" = "exit code 0" ] || { cat "$work/stderr"; exit 1; }

changed=$(compare -metric AE "$work/one.png" "$work/two.png" null: 2>&1 || true)
echo "pixels changed between the screenshots: $changed"
[ "${changed%% *}" -gt 100 ] || { echo "the page did not change while replaying"; exit 1; }

tour=$("$tool" --root "$work/root" reg get 'HKCU\SOFTWARE\Omvale\Fendix' Tour)
echo "tour saved: $tour km"
view=$("$tool" --root "$work/root" reg get 'HKCU\SOFTWARE\Omvale\Fendix' CurrentView)
[ "$view" = "Kartenanzeige" ] || { echo "unexpected page $view"; exit 1; }
ls "$work/root/My Documents/TragLog/"*.txt > /dev/null || { echo "no track log written"; exit 1; }
set +e
"$tarvik" --page Nirgends 2> "$work/stderr"
code=$?
set -e
[ "$code" = 2 ] && [ "$(wc -l < "$work/stderr")" = 1 ] || { echo "unknown page: exit $code"; exit 1; }
