#!/usr/bin/env bash
# Measures the program beside the hex editors that are installed here, on the screen that it is started on: the time from the start to
# the first window, and the memory with the same image of 1 MiB open, ours with "File Contents" shown. Prints rows of the table that
# Report.h prints, and fails when one is over its limit. Where there is no such editor it prints nothing.
#   editors.sh BUILD_FOLDER
set -Eeuo pipefail
build=$1
rounds=9
ceiling=30 # seconds for every wait
limit=1.00 # ours is to be the quicker and the smaller one

scratch=$(mktemp -d)
export HOME=$scratch/home # nobody's settings and caches but their own
image=$scratch/image.BIN
process=
finish() {
    [ -z "$process" ] || kill "$process" 2>/dev/null || true
    rm -rf "$scratch"
}
trap finish EXIT

# Starts a program; its id is in $process.
start() {
    "$@" >/dev/null 2>&1 </dev/null &
    process=$!
}

end() {
    kill "$process"
    wait "$process" 2>/dev/null || true
    process=
}

# Polls a condition as quickly as it can.
until_true() {
    local last=$((SECONDS + ceiling))
    until "$@" >/dev/null 2>&1; do
        [ "$SECONDS" -lt "$last" ] || { echo "editors.sh: waited in vain: $*" >&2; exit 1; }
    done
}
has_window() {
    xdotool search --onlyvisible --pid "$process" | grep -q .
}
shows_image() {
    wmctrl -l | grep -qF "${image##*/}"
}

# Milliseconds from the start of a program to its first window.
#   start_time NAME PROGRAM [ARGUMENT...]    notes it under the name
start_time() {
    local name=$1 begin=$EPOCHREALTIME
    shift
    start "$@"
    until_true has_window
    awk -v begin="$begin" -v end="$EPOCHREALTIME" 'BEGIN { print (end - begin) * 1000 }' >>"$scratch/start.$name"
    end
}

# MiB that a process holds.
#   note_memory NAME KIB
note_memory() {
    awk -v kib="$2" 'BEGIN { print kib / 1024 }' >>"$scratch/memory.$1"
}
our_memory() {
    note_memory ferrolyn "$("$build/bench/ferrolyn_bench_window" contents "$image" | tail -n 1)"
}
editor_memory() {
    start "$1" "$image"
    until_true shows_image
    sleep 2 # until it has drawn everything
    note_memory "$1" "$(awk '/^VmRSS:/ { print $2 }' "/proc/$process/status")"
    end
}

median() {
    sort -n "$1" | awk '{ value[NR] = $1 } END { print value[int((NR + 1) / 2)] }'
}

failed=0
#   row TEXT KIND EDITOR
row() {
    awk -v text="$1" -v ours="$(median "$scratch/$2.ferrolyn")" -v theirs="$(median "$scratch/$2.$3")" -v limit="$limit" 'BEGIN {
        over = ours / theirs > limit
        printf "%-58s %10.3f %10.3f %8.2f %8.2f%s\n", text, ours, theirs, ours / theirs, limit, over ? "  OVER" : ""
        exit over
    }' || failed=1
}

installed=()
for editor in ghex okteta; do
    command -v "$editor" >/dev/null && installed+=("$editor")
done
[ ${#installed[@]} -ne 0 ] || exit 0

mkdir "$HOME"
head -c 1048576 /dev/urandom >"$image"
for ((round = 0; round <= rounds; ++round)); do
    start_time ferrolyn "$build/src/ferrolyn"
    for editor in "${installed[@]}"; do
        start_time "$editor" "$editor" "$image"
    done
    [ "$round" -gt 0 ] || rm "$scratch"/start.* # the first round reads the files from the disk
done
for round in 1 2 3; do
    our_memory
    for editor in "${installed[@]}"; do
        editor_memory "$editor"
    done
done
for editor in "${installed[@]}"; do
    row "start to the first window, ms, beside $editor" start "$editor"
    row "memory with 1 MiB shown, MiB, beside $editor" memory "$editor"
done
exit "$failed"
