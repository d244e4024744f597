#!/usr/bin/env bash
# Tries under Wine what tools/windows.sh has built: every test, the worked examples in the real window, the packages. It wants a screen
# and mounts of its own, which tools/windows.sh gives it.
. "$(dirname "${BASH_SOURCE[0]}")/../lib.sh"
. "$top/tools/windows/server.sh"

windows=$top/build/windows
wine=$windows/wine.sh
pictures=$windows/pictures

serve_wine

# A full disk for the tests of saving: 64 KiB.
full=$windows/full
mkdir -p "$full" "$pictures"
mount -t tmpfs -o size=64k tmpfs "$full"
export FERROLYN_FULL_DISK=Z:$full

step "running the tests"
(cd "$top" && ctest --preset windows --parallel "$jobs" | { grep --line-buffered -v '^ *Start ' || true; })

step "doing the same on both systems"
"$top/tests/windows/same_bytes_test.sh" "$top/build/release/src/ferrolyn-cli" "$wine" "$windows/src/ferrolyn-cli.exe"

# What the programs have kept is not to be seen in what follows.
forget() {
    rm -rf "$WINEPREFIX"/drive_c/users/*/AppData/{Local/ferrolyn,Roaming/Ferrolyn}
}

step "taking the tour in the real window"
forget
rm -rf "$pictures/tour"
"$wine" "$windows/tools/tour/ferrolyn_tour.exe" "Z:$top/samples" "Z:$pictures/tour" -platform windows
# What the pictures show is what those of the documents show. Fonts decide over sizes and over the buttons that scroll the tabs, the
# system over the order of spec files and how a name is written.
seen() {
    tr -d '\r' <"$1" | sed -E 's/ [0-9]+ x [0-9]+$//; s/(rdoROMtemplate)[0-9]/\1/; s|ROMS\\|ROMS/|; /Scroll(Left|Right)Button:/d' | sort
}
diff <(seen "$top/docs/pictures/log.txt") <(seen "$pictures/tour/log.txt")

# Pictures of every page, dialog and menu, to be looked at by a person; the scale is the one that Windows is told of.
#   take_pictures DOTS_PER_INCH FOLDER
take_pictures() {
    step "taking pictures of every page at $1 dots per inch"
    "$wine" reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$1" /f >/dev/null
    forget
    rm -rf "$2"
    mkdir "$2"
    "$wine" "$windows/tools/screens/ferrolyn_screens.exe" "Z:$top/samples" "Z:$2" -platform windows
}
take_pictures 192 "$pictures/scale200"
take_pictures 96 "$pictures/scale100"

step "trying the packages"
forget
"$top/tests/windows/package_test.sh" "$windows" "$pictures/start.png"
