#!/usr/bin/env bash
# The tour: the program's main job in the real window, on a real screen.
source "$(dirname "$0")/common.sh"

timeout "$ceiling" "$build/tools/tour/ferrolyn_tour" "$top/samples" "$scratch/tour" || fail "the tour"
for picture in 1-splash 2-start 7-saved; do
    [ -s "$scratch/tour/$picture.png" ] || fail "no picture $picture"
done
