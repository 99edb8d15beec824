#!/usr/bin/env bash
# Settings, text profiles and track logs under faults: a full disk and a read-only root, each a small
# tmpfs in a private user and mount namespace. Stored data stays intact and every failed write says so.
# Exits 77 (skipped) where namespaces are not allowed.
set -uo pipefail
tool=$1
log=$2
if ! unshare -rm true 2>/dev/null; then
    echo "no user and mount namespaces here; skipped"
    exit 77
fi
export TOOL=$tool LOG=$log
exec unshare -rm bash -s <<'INNER'
set -uo pipefail
failures=0
fail() { echo "FAIL: $*"; failures=$((failures + 1)); }
# expect CODE LINES COMMAND...: exit code and number of stderr lines
expect() {
    local code=$1 lines=$2; shift 2
    local err; err=$("$@" 2>&1 >/dev/null); local rc=$?
    [ "$rc" -eq "$code" ] || fail "'${*:1:5}' exited $rc, expected $code ($err)"
    local n; n=$(printf '%s' "$err" | grep -c '')
    [ "$n" -eq "$lines" ] || fail "'${*:1:5}' printed $n lines on stderr, expected $lines: $err"
}
same() { cmp -s "$1" "$2" || fail "$1 changed"; }

base=$(mktemp -d)
trap 'umount -l "$base"/* 2>/dev/null; rm -rf "$base"' EXIT

# A full disk: the old profile survives byte for byte and the tool says why.
mkdir "$base/full" && mount -t tmpfs -o size=1m tmpfs "$base/full"
printf '[Main]\r\nName = Old\r\n' > "$base/full/p.ini" && cp "$base/full/p.ini" "$base/p.ini.orig"
"$TOOL" --root "$base/full/root" reg set 'HKCU\SOFTWARE\Omvale\Fendix' Kept --type sz yes
cp "$base/full/root/registry.db" "$base/registry.orig" 2>/dev/null
dd if=/dev/zero of="$base/full/fill" bs=4k 2>/dev/null
expect 1 1 "$TOOL" ini set "$base/full/p.ini" Main Name New
same "$base/full/p.ini" "$base/p.ini.orig"
expect 1 1 "$TOOL" --root "$base/full/root" reg set 'HKCU\SOFTWARE\Omvale\Fendix' Big --type sz "$(head -c 100000 /dev/zero | tr '\0' x)"
[ "$("$TOOL" --root "$base/full/root" reg get 'HKCU\SOFTWARE\Omvale\Fendix' Kept)" = yes ] || fail "stored value lost on a full disk"
expect 1 1 "$TOOL" --root "$base/full/root" replay --now 2026-05-22T12:00:00 "$LOG"

# A file that is not text is refused, not rewritten.
printf 'PNG\0\0\1binary' > "$base/image.ini" && cp "$base/image.ini" "$base/image.orig"
expect 1 1 "$TOOL" ini set "$base/image.ini" Main Name New
same "$base/image.ini" "$base/image.orig"

# A read-only root: reads return what is stored, writes fail loudly, exports are complete.
mkdir "$base/ro" && mount -t tmpfs -o size=4m tmpfs "$base/ro"
root="$base/ro/root"
"$TOOL" --root "$root" reg set 'HKCU\SOFTWARE\Omvale\Fendix' CurrentView --type sz Position
"$TOOL" --root "$root" reg set 'HKLM\Drivers\BuiltIn\Vantrel' Port --type dword 3
"$TOOL" --root "$root" reg export "$base/before.reg"
printf 'Windows Registry Editor Version 5.00\r\n\r\n[HKEY_CURRENT_USER\\SOFTWARE\\X]\r\n"A"="b"\r\n' > "$base/in.reg"
mount -o remount,ro "$base/ro"
sha_before=$(cat "$root"/registry.db* | sha256sum)
[ "$("$TOOL" --root "$root" reg get 'HKCU\SOFTWARE\Omvale\Fendix' CurrentView)" = Position ] ||
    fail "reg get on a read-only root lost the stored value"
expect 1 1 "$TOOL" --root "$root" reg set 'HKCU\SOFTWARE\Omvale\Fendix' CurrentView --type sz Track
expect 1 1 "$TOOL" --root "$root" reg import "$base/in.reg"
expect 0 0 "$TOOL" --root "$root" reg export "$base/after.reg"
same "$base/after.reg" "$base/before.reg"
[ "$(cat "$root"/registry.db* | sha256sum)" = "$sha_before" ] || fail "the read-only settings file changed"
expect 1 1 "$TOOL" --root "$root" replay --now 2026-05-22T12:00:00 "$LOG"

# Commands that only read leave the settings file alone: no file made, a damaged one not moved.
mkdir "$base/fresh"
"$TOOL" --root "$base/fresh" reg get 'HKCU\SOFTWARE\Omvale\Fendix' CurrentView 2>/dev/null
"$TOOL" --root "$base/fresh" coord format 48.1 9.5 >/dev/null 2>&1
[ -e "$base/fresh/registry.db" ] && fail "reading created a settings file"
mkdir "$base/damaged" && echo garbage > "$base/damaged/registry.db"
"$TOOL" --root "$base/damaged" reg list 'HKCU\SOFTWARE' >/dev/null 2>&1
[ "$(cat "$base/damaged/registry.db")" = garbage ] || fail "reading moved or changed a damaged settings file"

[ "$failures" -eq 0 ] && echo "all fault cases hold"
exit $((failures > 0))
INNER
