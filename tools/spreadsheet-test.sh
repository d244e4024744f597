#!/usr/bin/env bash
# Exports every map of the samples, lets LibreOffice Calc open and save each table, imports what it saved and expects the same bytes:
# into the sample itself, and into an image whose maps hold other values. In units and in counts.
#   tools/spreadsheet-test.sh
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

maps=(fuel-pt fuel-idle fuel-wot timing-pt timing-idle timing-wot)
cli=$top/build/dev/src/ferrolyn-cli

# export_all IMAGE SPEC FOLDER [--raw]
export_all() {
    mkdir -p "$3"
    for map in "${maps[@]}"; do
        "$cli" export "$1" --spec "$2" "$map" "${@:4}" -o "$3/$map.csv"
    done
}

# Opens all tables of a folder and saves them into another one; the program has a profile of its own.
#   save_all FOLDER INTO
save_all() {
    soffice "-env:UserInstallation=file://$work/profile" --headless --convert-to csv --outdir "$2" "$1"/*.csv >"$work/soffice.log" 2>&1 || {
        cat "$work/soffice.log" >&2
        return 1
    }
}

# Imports all tables of a folder into an image; nothing may be said, as all is stored exactly.
#   import_all IMAGE SPEC FOLDER [OPTION...]
import_all() {
    for map in "${maps[@]}"; do
        "$cli" import "$1" --spec "$2" "$map" "$3/$map.csv" "${@:4}" --in-place --strict
    done
}

# try_sample IMAGE SPEC [--raw]
try_sample() {
    local image=$1 spec=$2 raw=("${@:3}") name
    name=$(basename "$image") && name+=${3:-}
    step "saving the maps of $name"
    export_all "$image" "$spec" "$work/$name/exported" "${raw[@]}"
    save_all "$work/$name/exported" "$work/$name/saved"
    step "importing the maps of $name"
    cp "$image" "$work/same.bin"
    import_all "$work/same.bin" "$spec" "$work/$name/saved" "${raw[@]}"
    import_all "$work/same.bin" "$spec" "$work/$name/saved" "${raw[@]}" --axes
    cmp "$image" "$work/same.bin"
    "$cli" adjust "$image" --spec "$spec" "${maps[@]}" --raw --set 7 -o "$work/other.bin"
    import_all "$work/other.bin" "$spec" "$work/$name/saved" "${raw[@]}"
    cmp "$image" "$work/other.bin"
}

"$top/tools/packages.sh" build spreadsheet
build dev ferrolyn-cli
work=$(mktemp -d)
trap 'rm -rf "$work"; finish' EXIT
cat >"$work/64k.spc" <<'END'
; The 64K sample, whose maps no spec file of its own places
[Fuel Maps]
pt_offset=$B2C6
idle_offset=$B406
wot_offset=$B43D
[Timing Maps]
pt_offset=$C91A
idle_offset=$C8D0
wot_offset=$CA04
END
for raw in "" --raw; do
    try_sample "$top/samples/FERRO32K.BIN" "$top/samples/FERRO32K.SPC" ${raw:+"$raw"}
    try_sample "$top/samples/FERRO64K.BIN" "$work/64k.spc" ${raw:+"$raw"}
done
say "24 tables came back byte-identical from $(soffice --version | head -n 1 | cut -d ' ' -f 1-2)"
