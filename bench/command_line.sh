#!/usr/bin/env bash
# Measures how long ferrolyn-cli info takes for a sample, from its start to its end, beside the program true, each in turn. Prints a row
# of the table that Report.h prints, the difference in milliseconds, and fails when it is over its limit.
#   command_line.sh BUILD_FOLDER
set -Eeuo pipefail
program=$1/src/ferrolyn-cli
image=$(cd "$(dirname "$0")/../samples" && pwd)/FERRO32K.BIN
rounds=200
limit=5 # milliseconds

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# Notes the milliseconds that a command takes.
#   note NAME COMMAND [ARGUMENT...]
note() {
    local name=$1 begin=$EPOCHREALTIME end
    "${@:2}" >/dev/null
    end=$EPOCHREALTIME
    echo $((${end/./} - ${begin/./})) >>"$scratch/$name"
}

for ((round = 0; round < rounds; ++round)); do
    note true /bin/true
    note info "$program" info "$image"
done

median() {
    sort -n "$1" | awk '{ value[NR] = $1 } END { print value[int((NR + 1) / 2)] / 1000 }'
}
awk -v ours="$(median "$scratch/info")" -v theirs="$(median "$scratch/true")" -v limit="$limit" 'BEGIN {
    over = ours - theirs > limit
    printf "%-58s %10.3f %10.3f %8.2f %8.2f%s\n", "ferrolyn-cli info, ms more than true", ours, theirs, ours - theirs, limit, over ? "  OVER" : ""
    exit over
}'
