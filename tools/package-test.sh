#!/usr/bin/env bash
# Makes the packages, and tries them on a machine of their own: installs the Debian packages in a minimal Debian in FOLDER, works with
# the installed programs there as a user without rights, on a virtual screen (loads a sample, reads its maps and the help) and on the
# command line, does the same with the archive, removes the packages, and expects that no file is left. As root; needs debootstrap, like tools/bare-root.sh.
#   tools/package-test.sh [--fresh] [FOLDER]    FOLDER is /var/tmp/ferrolyn-package-root unless given; --fresh starts it anew
#   tools/package-test.sh --build               only makes the packages, in build/packages/
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

packages=$top/build/packages
make_packages() {
    "$top/tools/packages.sh" build package
    build release
    step "making the packages"
    rm -rf "$packages"
    # The folders in the packages take their modes from the umask.
    (umask 022 && cpack --config "$top/build/release/CPackConfig.cmake" -B "$packages") >"$top/build/packages.log" 2>&1 || {
        cat "$top/build/packages.log" >&2
        return 1
    }
    ls -l "$packages"/*.deb "$packages"/*.tar.gz
}

fresh=()
case ${1:-} in
    --build) make_packages && exit ;;
    --fresh) fresh=(--fresh) && shift ;;
esac
root=$(realpath -m "${1:-/var/tmp/ferrolyn-package-root}")

make_packages
step "preparing $root"
"$top/tools/bare-root.sh" "${fresh[@]}" "$root" true </dev/null
rm -rf "$root/packages"
mkdir "$root/packages"
cp "$packages"/*.deb "$packages"/*.tar.gz "$root/packages/"
chmod -R a+rX "$root/packages"

step "trying the packages in $root"
"$top/tools/bare-root.sh" "$root" tests/package/inside_root.sh /packages </dev/null
rm -rf "$root/packages"
say "the packages work"
