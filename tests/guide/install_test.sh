#!/usr/bin/env bash
# Every help text lies beside the program: in the build folder, and where the program is installed.
#   install_test.sh BUILD
set -Eeuo pipefail

top=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
build=$1
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

DESTDIR=$scratch cmake --install "$build" --prefix /usr >/dev/null
installed=$(readlink -f "$scratch/usr/bin/ferrolyn")
[ -x "$installed" ] || fail "the command is installed"

for folder in "$build/src" "$(dirname "$installed")"; do
    [ -x "$folder/ferrolyn" ] || fail "the program is in $folder"
    for text in "$top"/docs/readme.txt "$top"/docs/help/*.txt; do
        cmp "$text" "$folder/$(basename "$text")" || fail "$(basename "$text") in $folder"
    done
done
