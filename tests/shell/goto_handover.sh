#!/usr/bin/env bash
# A destination from outside under a private session bus: the first tarvik owns org.tarvik.Tarvik; a
# second start with --goto, then one with a geo: URI, hand their targets to it and end with exit code 0.
set -euo pipefail
tarvik=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cat > "$work/run.sh" <<SCRIPT
set -u
export QT_QPA_PLATFORM=offscreen
target() {
    gdbus call --session --dest org.tarvik.Tarvik --object-path /org/tarvik/Tarvik --method org.tarvik.Tarvik.Target
}
"$tarvik" --root "$work/first" 2> "$work/stderr" &
pid=\$!
for _ in \$(seq 150); do target > /dev/null 2>&1 && break; sleep 0.2; done
echo "before: \$(target)"
"$tarvik" --root "$work/second" --goto 48.1,11.5,Home; echo "second start: \$?"
echo "after --goto: \$(target)"
"$tarvik" --root "$work/second" 'geo:47.5,10.75?q=G%C3%BCnter%20Hof'; echo "third start: \$?"
echo "after geo: \$(target)"
kill -TERM \$pid
wait \$pid
SCRIPT
result=$(dbus-run-session -- bash "$work/run.sh")
echo "$result"
expected="before: ('',)
second start: 0
after --goto: ('11.5,48.1,Home',)
third start: 0
after geo: ('10.75,47.5,Günter Hof',)"
[ "$result" = "$expected" ] || { echo "unexpected hand-over"; cat "$work/stderr"; exit 1; }
[ ! -e "$work/second/registry.db" ] || { echo "the second start ran on its own"; exit 1; }
