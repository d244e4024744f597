#!/usr/bin/env bash
# Takes pictures of every page, dialog and menu in every look: themes, scales, a small screen, a large font, right to left. No screen
# is needed: the toolkit makes one up, 3840 x 2160. The pictures are to be looked at by a person; what can be measured is measured by
# the tests of tests/look.
#   tools/screens.sh [FOLDER] [LOOK...]    build/screens and all looks unless told otherwise
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

folder=${1:-$top/build/screens}
shift || true
looks=("$@")
[ ${#looks[@]} -ne 0 ] || looks=(light dark contrast small font150 rtl scale150 scale200 scale300)

options_of() {
    case $1 in
        light | dark | contrast) echo --theme "$1" ;;
        small) echo --size 800x570 ;; # what a window manager leaves of 800 x 600
        font150) echo --font 150 --size 800x570 ;;
        rtl) echo -reverse ;;
        scale*) echo --theme light ;;
        *) say "there is no look '$1'" >&2; return 2 ;;
    esac
}

build dev ferrolyn_screens
for look in "${looks[@]}"; do
    step "taking the pictures of '$look'"
    options=$(options_of "$look")
    scale=100
    [[ $look == scale* ]] && scale=${look#scale}
    mkdir -p "$folder/$look"
    # shellcheck disable=SC2086
    QT_QPA_PLATFORM=offscreen:configfile=$top/tools/screens/screen.json \
        QT_SCALE_FACTOR=$(printf '%d.%02d' $((scale / 100)) $((scale % 100))) \
        "$top/build/dev/tools/screens/ferrolyn_screens" "$top/samples" "$folder/$look" $options 2>/dev/null
done
say "the pictures are in $folder"
