#!/usr/bin/env bash
# Installs what is missing of the Debian packages that the project needs; does nothing when all of them are there.
#   tools/packages.sh SECTION...    sections: build, run, wayland, screen, drive, test, package, windows, spreadsheet, clang, style, tidy
#   tools/packages.sh --list SECTION...    only names them
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

packages_of() {
    case $1 in
        # Compiler, build tool, toolkit, digests, arguments and JSON.
        build) echo g++ cmake ninja-build pkg-config qt6-base-dev libxcb1-dev nettle-dev libcli11-dev nlohmann-json3-dev ;;
        # What the program's window needs.
        run) echo fonts-dejavu-core ;;
        # The toolkit's window system for a desktop without X.
        wayland) echo qt6-wayland ;;
        # A virtual screen with a window manager, and what drives a window from outside.
        screen) echo fonts-dejavu-core xvfb openbox x11-utils wmctrl xdotool ;;
        # What reads a window from outside, by the accessibility bus.
        drive) echo at-spi2-core dbus python3-gi gir1.2-atspi-2.0 ;;
        # Test libraries, what collects the program's texts, what reads a printed page back, and what checks
        # JSON and the files that packages carry.
        test) echo libgtest-dev libgmock-dev qt6-l10n-tools poppler-utils desktop-file-utils appstream groff-base python3-jsonschema $(packages_of screen) ;;
        # What cpack needs for a Debian package.
        package) echo dpkg-dev file gzip ;;
        # The spreadsheet that opens and saves exported maps.
        spreadsheet) echo libreoffice-calc ;;
        # The second compiler and its sanitizers.
        clang) echo clang libclang-rt-14-dev ;;
        # The cross compiler for Windows with what builds Qt for it, and what makes and tries the packages.
        windows) echo g++-mingw-w64-x86-64-posix dpkg-dev xz-utils nsis wine64 googletest unzip imagemagick $(packages_of screen) ;;
        style) echo clang-format ;;
        tidy) echo clang-tidy ;;
        *) say "there is no section '$1'" >&2; return 2 ;;
    esac
}

is_installed() {
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

as_root=()
need_root() {
    [ "$(id -u)" -ne 0 ] || return 0
    command -v sudo >/dev/null || {
        say "not root and no sudo here; run as root: apt-get install ${missing[*]}" >&2
        exit 1
    }
    as_root=(sudo)
}

# Runs apt-get as root, quietly: its output is shown only when it fails.
apt() {
    local log
    log=$(mktemp)
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=120 "$@" \
        >"$log" 2>&1 </dev/null || {
        cat "$log" >&2
        rm -f "$log"
        return 1
    }
    rm -f "$log"
}

install_missing() {
    apt update && apt install -y --no-install-recommends "${missing[@]}"
}

list_only=
if [ "${1:-}" = --list ]; then
    list_only=1
    shift
fi

wanted=()
for section in "$@"; do
    current_step="reading the package list"
    names=$(packages_of "$section")
    read -ra names <<<"$names"
    wanted+=("${names[@]}")
done
if [ -n "$list_only" ]; then
    printf '%s\n' "${wanted[@]}" | sort -u
    exit
fi

missing=()
for package in $(printf '%s\n' "${wanted[@]}" | sort -u); do
    is_installed "$package" || missing+=("$package")
done
if [ ${#missing[@]} -eq 0 ]; then
    exit
fi

step "installing ${missing[*]}"
need_root
started=$SECONDS
install_missing || {
    say "that did not work; trying once more" >&2
    install_missing
}
say "installed in $((SECONDS - started)) s"
