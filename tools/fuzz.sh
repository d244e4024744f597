#!/usr/bin/env bash
# Runs every fuzz target, or those that are named, for a while and fails when one finds something.
#   tools/fuzz.sh MINUTES [NAME...]    of each target
# A dictionary fuzz/NAME.dict and options of libFuzzer in fuzz/NAME.options, one a line, are used where they are there.
# What a target learns is kept in build/fuzz/corpus/NAME for the next run; what it finds goes to build/fuzz/findings/NAME. To look
# at a finding, give its file to build/fuzz/fuzz/fuzz_NAME. A small input that tells something new belongs into fuzz/corpus/NAME:
# the tests replay it.
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

minutes=${1:-}
if ! [[ $minutes =~ ^[1-9][0-9]*$ ]]; then
    sed -n '2,3s/^# *//p' "$0" >&2
    exit 2
fi
names=("${@:2}")
if [ ${#names[@]} -eq 0 ]; then
    mapfile -t names < <(basename -s .cpp "$top"/fuzz/[a-z]*.cpp)
fi

"$top/tools/packages.sh" build test clang
build fuzz "${names[@]/#/fuzz_}"

found=()
for name in "${names[@]}"; do
    corpus=$top/build/fuzz/corpus/$name
    findings=$top/build/fuzz/findings/$name
    mkdir -p "$corpus" "$findings"
    step "fuzzing '$name' for $minutes min"
    options=()
    [ ! -f "$top/fuzz/$name.options" ] || mapfile -t options < <(grep '^-' "$top/fuzz/$name.options")
    [ ! -f "$top/fuzz/$name.dict" ] || options+=(-dict="$top/fuzz/$name.dict")
    # The first folder is the one that is written to. 30 s for one input would be a finding as well.
    "$top/build/fuzz/fuzz/fuzz_$name" "$corpus" "$top/fuzz/corpus/$name" -max_total_time=$((minutes * 60)) -timeout=30 \
        -artifact_prefix="$findings/" -print_final_stats=1 "${options[@]}" || found+=("$name")
done

if [ ${#found[@]} -ne 0 ]; then
    step "fuzzing: ${found[*]} found something, see $top/build/fuzz/findings"
    exit 1
fi
say "found nothing"
