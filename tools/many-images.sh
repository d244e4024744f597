#!/usr/bin/env bash
# Measures the command line over folders of generated images of 64 KiB: images per second with one and two jobs, by turns, and the
# most memory that it took with few images and with many. Needs GNU time (apt-get install time).
#   tools/many-images.sh [IMAGES]    2000 unless told otherwise
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

images=${1:-2000}
need_number "$images" images
[ -x /usr/bin/time ] || refuse "GNU time is missing: apt-get install time"
build release ferrolyn-cli ferrolyn_truth

cli=$top/build/release/src/ferrolyn-cli
folder=$top/build/many-images
few=$folder/few
many=$folder/$images
rounds=3

# One generated image in seven has this size.
make_images() {
    local all=$folder/all file count=0
    mkdir -p "$all" "$many" "$few"
    "$top/build/release/tools/truth/ferrolyn_truth" write held-out "$((images * 7 + 200))" "$all"
    for file in $(find "$all" -name '*.BIN' -size 64k -printf '%f\n' | sort -n); do
        [ "$count" -lt "$images" ] || break
        count=$((count + 1))
        mv "$all/$file" "$many"
        [ "$count" -gt "$((images / 10))" ] || cp "$many/$file" "$few"
    done
    rm -r "$all"
    [ "$count" -eq "$images" ]
}

# Writes images per second and the memory, of what find and check of a folder take.
#   measure LABEL FOLDER WORD...
measure() {
    local label=$1 in=$2 figures=$folder/figures
    shift 2
    /usr/bin/time -o "$figures" -f '%e %M' "$cli" "$@" "$in" >"$folder/$label.out" || [ "$?" -eq 1 ]
    awk -v label="$label" -v images="$(find "$in" -name '*.BIN' | wc -l)" \
        'END {printf "%-24s %6d images %8.0f a second %8d KiB\n", label, images, images / $1, $2}' "$figures"
}

step "making $images images"
[ -d "$many" ] || make_images
step "measuring"
spec=$top/samples/FERRO32K.SPC
for ((round = 0; round < rounds; ++round)); do
    for count in 1 2; do
        measure "find-jobs-$count" "$many" find --jobs "$count"
        measure "check-jobs-$count" "$many" check --spec "$spec" --jobs "$count"
    done
done
for count in 1 2; do
    measure "find-few-jobs-$count" "$few" find --jobs "$count"
    measure "check-few-jobs-$count" "$few" check --spec "$spec" --jobs "$count"
done
step "comparing the answers"
for command in find check; do
    cmp "$folder/$command-jobs-1.out" "$folder/$command-jobs-2.out"
done
