#!/usr/bin/env bash
# Builds the program for Windows, on Debian, with a cross compiler, and tries it under Wine.
#   tools/windows.sh [build]    ferrolyn.exe and ferrolyn-cli.exe in build/windows/
#   tools/windows.sh package    that, and the archive and the installer in build/windows/packages/
#   tools/windows.sh test       all of that, and tries it under Wine: every test, the worked examples, the packages
# Qt is built from its Debian source package once, which takes a quarter to half an hour, and kept in a cache beside the user's others;
# FERROLYN_WINDOWS_CACHE names another folder. What of Qt is left out, and why, is in windows/qt.features.
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
. "$top/tools/windows/server.sh"

cache=${FERROLYN_WINDOWS_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/ferrolyn-windows}
features=$top/tools/windows/qt.features

# The options for CMake that the features stand for.
feature_options() {
    sed -nE 's/^([A-Za-z0-9_]+=[A-Za-z]+) .*/-D\1/p' "$features"
}

# Fetches the source package of Qt from where this machine's own apt takes its packages.
fetch_qt() {
    local version=$1 folder=$2
    mkdir -p "$folder/lists/partial" "$folder/archives/partial"
    apt-get indextargets --format '$(ORIGIN) deb-src $(REPO_URI) $(CODENAME) $(COMPONENT)' 'Created-By: Packages' |
        sed -n 's/^Debian //p' | sort -u >"$folder/sources.list"
    local apt=(apt-get -q -o Dir::Etc::sourcelist="$folder/sources.list" -o Dir::Etc::sourceparts=- -o Dir::State::lists="$folder/lists"
        -o Dir::Cache::archives="$folder/archives" -o Dir::Cache::srcpkgcache= -o Dir::Cache::pkgcache= -o APT::Sandbox::User=root)
    "${apt[@]}" update
    (cd "$folder" && "${apt[@]}" source --download-only "qt6-base=$version")
    # Debian's patches are for systems like Debian.
    dpkg-source --skip-patches -x "$folder"/*.dsc "$folder/source"
}

# The folder of Qt for Windows, which is built when it is not there; it is that of one version and one list of features.
provide_qt() {
    local version id
    version=$(dpkg-query -W -f '${source:Version}' qt6-base-dev)
    id=$(printf '%s\n' "$version" "$(feature_options)" "$(cat "$top/tools/windows/toolchain.cmake")" | sha256sum | cut -c1-12)
    export FERROLYN_WINDOWS_QT=$cache/qt-$id
    [ ! -e "$FERROLYN_WINDOWS_QT/complete" ] || return 0
    local work=$cache/work-$id log=$cache/qt-$id.log
    rm -rf "$work" "$FERROLYN_WINDOWS_QT"
    mkdir -p "$work"
    step "fetching the source of Qt $version"
    fetch_qt "$version" "$work/package" >"$log" 2>&1 || { tail -n 30 "$log" >&2; return 1; }
    step "building Qt for Windows, once (its log: $log)"
    local started=$SECONDS options
    mapfile -t options < <(feature_options)
    {
        cmake -G Ninja -S "$work/package/source" -B "$work/build" -DCMAKE_TOOLCHAIN_FILE="$top/tools/windows/toolchain.cmake" \
            -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$FERROLYN_WINDOWS_QT" -DQT_HOST_PATH=/usr \
            -DQT_HOST_PATH_CMAKE_DIR="$FERROLYN_HOST_CMAKE" -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF "${options[@]}" &&
            cmake --build "$work/build" --parallel "$jobs" && cmake --install "$work/build" --strip
    } >>"$log" 2>&1 || { tail -n 30 "$log" >&2; return 1; }
    cp -r "$work/package/source/LICENSES" "$FERROLYN_WINDOWS_QT/"
    rm -rf "$work"
    touch "$FERROLYN_WINDOWS_QT/complete"
    say "built Qt in $(((SECONDS - started) / 60)) min"
}

make_packages() {
    step "making the archive and the installer"
    rm -rf "$top/build/windows/packages"
    cpack --config "$top/build/windows/CPackConfig.cmake" -B "$top/build/windows/packages" >"$top/build/windows.log" 2>&1 || {
        cat "$top/build/windows.log" >&2
        return 1
    }
    ls -l "$top"/build/windows/packages/ferrolyn-*
}

# On a screen of its own, and with mounts of its own, for which a user without rights gets a name space.
try() {
    local own=(--mount --propagation unchanged)
    [ "$(id -u)" -eq 0 ] || own+=(--map-root-user)
    end_wine # the one that has served the build lacks these mounts
    SCREEN=2560x2048 unshare "${own[@]}" "$top/tools/xvfb.sh" "$top/tools/windows/try.sh"
}

what=${1:-build}
sections=(build windows)
case $what in
    build | package) ;;
    test) sections+=(screen) ;;
    *) refuse "there is no '$what'" ;;
esac
"$top/tools/packages.sh" "${sections[@]}"
export FERROLYN_HOST_CMAKE=/usr/lib/$(gcc -print-multiarch)/cmake
provide_qt
serve_wine # the build asks the test programs for their suites
build windows
[ "$what" = build ] || make_packages
if [ "$what" = test ]; then
    build windows ferrolyn_screens
    build release ferrolyn-cli # what both systems do must be the same
    try
fi
