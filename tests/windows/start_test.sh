#!/usr/bin/env bash
# The program for Windows in the real window: it starts and becomes normal when the splash has gone, a second copy runs beside the
# first, closing ends each. On a screen of its own (tools/xvfb.sh).
#   start_test.sh PICTURE PROGRAM...    the program with what runs it; the picture is of its window
set -Eeuo pipefail
cd "$(dirname "$0")/../../samples"
picture=$1
shift
ceiling=60 # seconds
children=()
trap 'kill "${children[@]}" 2>/dev/null || true' EXIT

fail() {
    echo "FAILED: $*; windows:" >&2
    wmctrl -l >&2
    exit 1
}

# Polls a command until it succeeds.
#   eventually DESCRIPTION COMMAND [ARGUMENT...]
eventually() {
    local what=$1 end=$((SECONDS + ceiling))
    shift
    until "$@" >/dev/null 2>&1; do
        [ "$SECONDS" -lt "$end" ] || fail "$what"
        sleep 0.1
    done
}

# How many main windows are normal; the splash has no title of its own.
normal_windows() {
    local id count=0
    for id in $(wmctrl -l | awk '$4 == "Ferrolyn" && NF == 4 { print $1 }'); do
        ! xprop -id "$id" WM_STATE | grep -q 'window state: Normal' || count=$((count + 1))
    done
    echo "$count"
}
are_normal() {
    [ "$(normal_windows)" -eq "$1" ]
}
splash_has_gone() {
    [ "$(wmctrl -l | wc -l)" -eq "$1" ]
}
has_ended() {
    ! kill -0 "$1" 2>/dev/null || grep -qs '^State:.*Z' "/proc/$1/status"
}

for copies in 1 2; do
    "$@" &
    children+=($!)
    eventually "copy $copies does not come up" are_normal "$copies"
    eventually "the splash of copy $copies stays" splash_has_gone "$copies"
done
import -window root "$picture"

for left in 1 0; do
    wmctrl -c Ferrolyn # one of them
    eventually "a window does not close" are_normal "$left"
done
for child in "${children[@]}"; do
    eventually "a copy does not end" has_ended "$child"
    wait "$child" || fail "exit code $?"
done
children=()
echo "two copies came up and ended"
