#!/usr/bin/env bash
# The tour: the worked examples of README.md in the real window, on a real screen. The pictures of the documents are current when
# the tour, whose folder is new, leaves the same ones: by what they show, which is in words in docs/pictures/log.txt, and by how they look.
source "$(dirname "$0")/common.sh"

timeout 200 "$build/tools/tour/ferrolyn_tour" "$top/samples" "$scratch/tour" || fail "the tour"

seen() {
    sed -E 's/ [0-9]+ x [0-9]+$//' "$1" # without the pictures' sizes, which depend on fonts
}
old() {
    "$build/tests/e2e_old_pictures" "$1" "$scratch/tour"
}
again="tools/pictures.sh makes them again"
diff <(seen "$top/docs/pictures/log.txt") <(seen "$scratch/tour/log.txt") >&2 ||
    fail "the pictures in docs/pictures do not show what the program shows (>); $again"
old "$top/docs/pictures" >&2 || fail "these pictures in docs/pictures look otherwise than the program, or some are too many; $again"

# What is old would be noticed: a picture in another's place, and one that was not taken.
cp -r "$top/docs/pictures" "$scratch/old"
cp "$scratch/old/2-timing-maps.png" "$scratch/old/3-cell-edited.png"
[ "$(old "$scratch/old")" = 3-cell-edited.png ] || fail "a picture of something else passes"
rm "$scratch/old/3-cell-edited.png"
! old "$scratch/old" || fail "a picture that is missing passes"
