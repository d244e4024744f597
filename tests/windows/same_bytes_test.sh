#!/usr/bin/env bash
# Both systems' command lines do the same work on the samples, each in a folder of its own: every file that they write and all that
# they say must be the same, byte by byte.
#   same_bytes_test.sh LINUX_PROGRAM WINDOWS_PROGRAM...    the second one with what runs it
set -Eeuo pipefail
samples=$(cd "$(dirname "$0")/../../samples" && pwd)
linux=$1
shift
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

maps=(fuel-pt fuel-idle fuel-wot timing-pt timing-idle timing-wot)
step=0

# Runs a command of the program and keeps what it says, and how it ends.
run() {
    step=$((step + 1))
    local status=0
    "${program[@]}" "$@" >"$step.out" 2>"$step.err" </dev/null || status=$?
    echo "$* ended with $status" >>steps
    [ "$status" -lt 2 ] || { echo "FAILED: $* ($status): $(cat "$step.err")" >&2; return 1; }
}

# Every map out into a table and back in, converted and as counts, with points and with commas.
round_trips() {
    local image=$1 spec=$2 map form
    for map in "${maps[@]}"; do
        for form in "" --raw --decimal-comma; do
            run export "$image" --spec "$spec" "$map" $form -o "$map$form.csv"
            run import "$image" --spec "$spec" "$map" "$map$form.csv" $form -o "back-$map$form.bin"
            cmp "$image" "back-$map$form.bin"
        done
    done
}

work_with() {
    local image=$1 spec=$2 map
    run info "$image" --format json
    run show "$image" --spec "$spec"
    run show "$image" --spec "$spec" --format json
    run check "$image" --spec "$spec" --format json
    round_trips "$image" "$spec"
    for map in "${maps[@]}"; do
        run adjust "$image" --spec "$spec" "$map" --multiply=1.03 -o "more-$map.bin"
        run diff "$image" "more-$map.bin" --spec "$spec"
        run diff "$image" "more-$map.bin" --format csv
        run diff "$image" "more-$map.bin" --format patch -o "$map.patch"
        run patch "$image" "$map.patch" -o "again-$map.bin"
        cmp "more-$map.bin" "again-$map.bin"
        run patch "again-$map.bin" "$map.patch" --reverse -o "undone-$map.bin"
        cmp "$image" "undone-$map.bin"
        run draw "$image" --spec "$spec" "$map" -o "$map.svg"
    done
    run set "$image" --spec "$spec" 'fuel-pt[#3,#4]=0.98' 'timing-wot[#2]=21' rev-limiter=6800 fuel-pt.rpm[2]=900 -o set.bin
    run copy set.bin --spec "$spec" "$image" -o copied.bin
}

work() {
    program=("$@")
    cp "$samples"/*.BIN "$samples"/*.SPC .
    mkdir offsets pointers unknown
    (cd offsets && work_with ../FERRO32K.BIN ../FERRO32K.SPC)
    (cd pointers && work_with ../FERRO32K.BIN ../FERRO32P.SPC)
    cd unknown
    run find ../FERRO64K.BIN --reasons --spec-out found.spc
    run move --from ../FERRO32K.BIN --spec ../FERRO32K.SPC --to ../FERRO64K.BIN -o moved.spc --unsure
    run find ../FERRO32K.BIN ../FERRO64K.BIN --jobs 2 --format jsonl
}

mkdir "$scratch/linux" "$scratch/windows"
(cd "$scratch/linux" && work "$linux")
(cd "$scratch/windows" && work "$@")
diff -r "$scratch/linux" "$scratch/windows"
echo "$(cat "$scratch"/linux/*/steps | wc -l) commands, $(find "$scratch/linux" -type f | wc -l) files: the same bytes"
