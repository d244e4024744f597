#!/usr/bin/env bash
# One check of what packaging/ installs.
#   package_test.sh install BUILD_FOLDER    the installed tree is what packaging/files.txt names, with the right modes
#   package_test.sh desktop                 the desktop entry is valid, and what it names is installed
#   package_test.sh metainfo                the metadata for software centres is valid
#   package_test.sh manpage                 the manual pages have no warnings
#   package_test.sh words COMMAND_LINE      the manual page of the command line has all of its commands and options
#   package_test.sh toolkit COMMAND_LINE    the command line needs no toolkit
#   package_test.sh version VERSION         every file that names the version names this one
set -Eeuo pipefail
top=$(cd "$(dirname "$0")/../.." && pwd)
packaging=$top/packaging
id=org.ferrolyn.Ferrolyn
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

check_install() {
    DESTDIR=$scratch/root cmake --install "$1" --prefix /usr >"$scratch/log" || fail "installing: $(cat "$scratch/log")"
    cd "$scratch/root/usr"
    diff <(sort "$packaging/files.txt") <(find . ! -type d -printf '%P\n' | sort) || fail "the installed tree (>) is not the expected one (<)"
    [ "$(find "$scratch/root" -mindepth 1 -maxdepth 1)" = "$scratch/root/usr" ] || fail "files outside the prefix"
    [ "$(readlink bin/ferrolyn)" = ../lib/ferrolyn/ferrolyn ] || fail "the command is no link to the program"
    [ "$(find . -type f -perm 755 | sort | tr '\n' ' ')" = "./bin/ferrolyn-cli ./lib/ferrolyn/ferrolyn " ] ||
        fail "what can be run: $(find . -type f -perm 755)"
    [ -z "$(find . -type f ! -perm 755 ! -perm 644)" ] || fail "modes: $(find . -type f ! -perm 755 ! -perm 644)"
    [ -z "$(find . -type d ! -perm 755)" ] || fail "modes: $(find . -type d ! -perm 755)"
    [ -z "$(find . -type f -empty)" ] || fail "empty: $(find . -type f -empty)"
}

check_desktop() {
    local entry=$packaging/$id.desktop
    desktop-file-validate "$entry" || fail "the desktop entry"
    grep -qx 'Exec=ferrolyn' "$entry" && grep -qx bin/ferrolyn "$packaging/files.txt" || fail "the program of the desktop entry"
    grep -qx "Icon=$id" "$entry" && grep -qx "share/icons/hicolor/scalable/apps/$id.svg" "$packaging/files.txt" || fail "the icon"
    grep -q "setDesktopFileName(\"$id\")" "$top/src/spec/Application.cpp" || fail "the program names another desktop entry"
}

check_manpage() {
    local page
    for page in ferrolyn ferrolyn-cli; do
        groff -man -ww -Tutf8 -z "$packaging/$page.1" 2>"$scratch/log"
        [ ! -s "$scratch/log" ] || fail "the manual page of $page: $(cat "$scratch/log")"
    done
}

# The part of the command line's manual page that is about a command.
manual_of() {
    sed -n "/^\.SS $1\$/,/^\.S/p" "$packaging/ferrolyn-cli.1" | sed 's/\\-/-/g'
}

# Each command and each option that --help names is in the manual page.
check_words() {
    local command option
    "$1" --help | sed -n '/^Commands:/,/^$/s/^  \([a-z]*\) .*/\1/p' >"$scratch/commands"
    [ -s "$scratch/commands" ] || fail "the program has no commands"
    while read -r command; do
        manual_of "$command" | grep -q "ferrolyn-cli $command\$" || fail "the manual page has no section of '$command'"
        while read -r option; do
            manual_of "$command" | grep -qE -- "$option([^a-z-]|\$)" || fail "the manual page has no $option in its section of '$command'"
        done < <("$1" "$command" --help | sed -nE 's/^ +(-[a-z],)?(--[a-z-]+).*/\2/p' | grep -vx -- --help)
    done <"$scratch/commands"
}

# The program for scripts links no toolkit, nor anything of the screen.
check_toolkit() {
    ldd "$1" >"$scratch/libraries" || fail "ldd says nothing"
    ! grep -iE 'qt|xcb|x11|libgl' "$scratch/libraries" || fail "the command line needs the toolkit"
}

check_version() {
    [ "$(sed -nE 's/.*<release version="([^"]*)".*/\1/p' "$packaging/$id.metainfo.xml" | head -n 1)" = "$1" ] ||
        fail "the newest release of the metadata is not $1"
    [ "$(grep -c "^\.TH .*\"Ferrolyn $1\"" "$packaging"/ferrolyn.1 "$packaging"/ferrolyn-cli.1 | grep -c ':1$')" = 2 ] ||
        fail "a manual page is not of $1"
    head -n 1 "$packaging/changelog.Debian" | grep -qF "($1-" || fail "the newest entry of the package's changelog is not of $1"
}

case $1 in
    install) umask 022 && check_install "$2" ;;
    desktop) check_desktop ;;
    metainfo) appstreamcli validate --no-net --no-color "$packaging/$id.metainfo.xml" ;;
    manpage) check_manpage ;;
    words) check_words "$2" ;;
    toolkit) check_toolkit "$2" ;;
    version) check_version "$2" ;;
    *) fail "there is no check '$1'" ;;
esac
