#!/usr/bin/env bash
# The archive and the installer for Windows: what is in them, and that the programs run from there with nothing but what they bring.
# On a screen of its own (tools/xvfb.sh).
#   package_test.sh BUILD_FOLDER PICTURE    where the packages are; where to put a picture of the window
set -Eeuo pipefail
here=$(cd "$(dirname "$0")" && pwd)
top=$(cd "$here/../.." && pwd)
build=$(cd "$1" && pwd)
packages=$build/packages
wine=$build/wine.sh
picture=$2
most_bytes=$((12 * 1000 * 1000))
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export WINEPATH='' QT_PLUGIN_PATH='' # nothing of what was built to make them

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

# The tree of a folder is the one that packaging/windows/files.txt names.
check_tree() {
    diff "$top/packaging/windows/files.txt" <(cd "$1" && find . -type f -printf '%P\n' | LC_ALL=C sort) ||
        fail "what is in $1 (>) is not what packaging/windows/files.txt names (<)"
}

archive=("$packages"/ferrolyn-*-windows.zip)
installer=("$packages"/ferrolyn-*-windows.exe)
bytes=$(stat -c %s "${archive[0]}")
[ "$bytes" -le "$most_bytes" ] || fail "the archive has $bytes bytes"
unzip -q "${archive[0]}" -d "$scratch"
unpacked=$scratch/$(basename "${archive[0]}" .zip)
check_tree "$unpacked"
for program in ferrolyn ferrolyn-cli; do
    grep -qa PerMonitorV2 "$unpacked/$program.exe" || fail "$program.exe does not say what it knows of screens"
    [[ $(strings --encoding=l "$unpacked/$program.exe") == *"the Ferrolyn authors"* ]] || fail "$program.exe has no version"
done
[[ $("$wine" "$unpacked/ferrolyn-cli.exe" info "Z:$top/samples/FERRO32K.BIN") == *"32768 bytes"* ]] || fail "ferrolyn-cli does not read a sample"
"$here/start_test.sh" "$build" "$picture" "$wine" "$unpacked/ferrolyn.exe"

# Without questions into another folder, and away again. The installer takes the folder's name as it stands, without quotes.
installed=$scratch/Ferrolyn
"$wine" "${installer[0]}" /S "/D=Z:${installed//\//\\}"
[ -e "$installed/Uninstall.exe" ] || fail "the installer leaves nothing to uninstall with"
mv "$installed/Uninstall.exe" "$scratch/"
check_tree "$installed"
mv "$scratch/Uninstall.exe" "$installed/"
"$wine" "$installed/ferrolyn-cli.exe" --version
"$wine" "$installed/Uninstall.exe" /S "_?=Z:${installed//\//\\}"
[ -z "$(find "$installed" -type f ! -name Uninstall.exe)" ] || fail "left: $(find "$installed" -type f)"
echo "archive: $bytes bytes, installer: $(stat -c %s "${installer[0]}") bytes; both are whole and run"
