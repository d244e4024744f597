#!/usr/bin/env bash
# The tour: the worked examples of README.md in the real window, on a real screen. The pictures of the documents are current when
# the tour sees what it saw when they were made; what it saw is in words in docs/pictures/log.txt, as pictures depend on fonts.
source "$(dirname "$0")/common.sh"

timeout 200 "$build/tools/tour/ferrolyn_tour" "$top/samples" "$scratch/tour" || fail "the tour"

seen() {
    sed -E 's/ [0-9]+ x [0-9]+$//' "$1" # without the pictures' sizes
}
diff <(seen "$top/docs/pictures/log.txt") <(seen "$scratch/tour/log.txt") >&2 ||
    fail "the pictures in docs/pictures do not show what the program shows (>); tools/pictures.sh makes them again"
