#!/usr/bin/env bash
# Makes the pictures of the documents again, and docs/pictures/log.txt, which says what they show: does the tour on a virtual screen.
# To be run, and its result looked at, when the test e2e.tour says that the pictures are old.
#   tools/pictures.sh
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

"$top/tools/packages.sh" build screen
build release ferrolyn_tour

step "taking the tour"
roms=/tmp/roms # the title of the window shows it
mkdir "$roms"
trap 'finish; rm -rf "$roms"' EXIT
LC_ALL=C.UTF-8 "$top/tools/xvfb.sh" "$top/build/release/tools/tour/ferrolyn_tour" "$top/samples" "$top/build/tour" "$roms"

rm -rf "$top/docs/pictures"
mkdir "$top/docs/pictures"
cp "$top"/build/tour/[0-9]*-*.png "$top/build/tour/log.txt" "$top/docs/pictures/"
ls -l "$top/docs/pictures"
