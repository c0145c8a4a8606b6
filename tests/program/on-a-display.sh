#!/usr/bin/env bash
# on-a-display.sh SCRIPT PROGRAM GROUPS: runs SCRIPT on a display of its own with a window manager, in a folder that
# holds a copy of PROGRAM and the groups that GROUPS makes.
set -eu
if [ -z "${VELMARIN_ON_A_DISPLAY:-}" ]; then
    VELMARIN_ON_A_DISPLAY=1 exec xvfb-run -a -s "-screen 0 1400x1100x24" bash "$0" "$@"
fi
script=$1 program=$2 groups=$3
folder=$(mktemp -d)
manager=
ended() {
    [ -z "$manager" ] || kill "$manager" 2>/dev/null || true
    rm -rf "$folder"
}
trap ended EXIT
cp "$program" "$folder/velmarin"
cp "$(dirname "$program")/velmarin-decode" "$folder"
"$groups" "$folder"
export XDG_CONFIG_HOME=$folder/config XDG_RUNTIME_DIR=$folder/runtime QT_QPA_PLATFORM=xcb LSAN_OPTIONS=detect_leaks=0
mkdir -m 700 "$XDG_RUNTIME_DIR"
openbox --startup "touch '$folder/managed'" >/dev/null 2>&1 &
manager=$!
cd "$folder"

fail() {
    echo "FAILED: $*" >&2
    exit 1
}
# until_true COMMAND...: waits for something that the program is bound to bring about.
until_true() {
    local tries=0
    until "$@" >/dev/null 2>&1; do
        tries=$((tries + 1))
        [ $tries -lt 1200 ] || fail "waited in vain for: $*"
        sleep 0.1
    done
}
# A window that is shown while the manager starts is never mapped.
until_true test -e managed
. "$script"
echo "1 passed, 0 failed"
