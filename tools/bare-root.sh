#!/usr/bin/env bash
# Tries a command of the project on a bare machine: in a minimal Debian of its own in a folder, with nothing but bash and apt, on a
# copy of HEAD. To be run as root on Debian; needs debootstrap. Packages come from where this machine's own apt takes them.
#   tools/bare-root.sh [--fresh] FOLDER COMMAND [ARGUMENT...]    for example: tools/bare-root.sh --fresh /var/tmp/bare ./test
# FOLDER is created when it is not there, and else reused with what was installed in it; --fresh starts it anew.
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

fresh=
if [ "${1:-}" = --fresh ]; then
    fresh=1
    shift
fi
if [ $# -lt 2 ]; then
    sed -n '2,5s/^# *//p' "$0" >&2
    exit 2
fi
root=$(realpath -m "$1")
shift
marker=$root/etc/ferrolyn-bare-root # so that --fresh never removes a folder that is something else

create() {
    local mirror suite
    # Every package index that apt knows here, as "address suite"; the first one of the system's own release.
    suite=$(. /etc/os-release && echo "$VERSION_CODENAME")
    mirror=$(apt-get indextargets --format '$(REPO_URI) $(CODENAME)' 'Created-By: Packages' |
        awk -v suite="$suite" '$2 == suite { print $1; exit }')
    [ -n "$mirror" ] || { say "apt names no package source for $suite here" >&2; return 1; }

    debootstrap --variant=minbase "$suite" "$root" "$mirror" >"$top/build/bare-root.log" 2>&1 || {
        tail -n 20 "$top/build/bare-root.log" >&2
        return 1
    }
    # What this machine's apt needs to reach its source: proxies and certificates.
    apt-config dump | grep -iE '^Acquire::.*(proxy|verify|CAinfo)' >"$root/etc/apt/apt.conf.d/90machine" || true
    if [ -f /etc/ssl/certs/ca-certificates.crt ]; then
        install -D -m 644 /etc/ssl/certs/ca-certificates.crt "$root/etc/ssl/certs/ca-certificates.crt"
    fi
    touch "$marker"
}

if [ -n "$fresh" ] && [ -e "$marker" ]; then
    step "removing $root"
    rm -rf --one-file-system "$root"
fi
if [ ! -e "$marker" ]; then
    step "creating a bare Debian in $root"
    started=$SECONDS
    create
    say "created in $((SECONDS - started)) s"
fi

step "copying HEAD into $root"
rm -rf "$root/work"
mkdir "$root/work"
git -C "$top" archive HEAD | tar -x -C "$root/work"
cp /etc/resolv.conf "$root/etc/resolv.conf"

step "running $* in $root"
proxies=$(env | grep -iE '^(http|https|no|all)_proxy=' || true)
# Mounts and processes of its own: all of them end with the command.
# shellcheck disable=SC2086
unshare --mount --pid --fork --kill-child --mount-proc="$root/proc" chroot "$root" \
    /usr/bin/env -i ${proxies} PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root TERM="${TERM:-dumb}" JOBS="$jobs" \
    /bin/bash -c 'mount -t tmpfs tmpfs /tmp && mount -t tmpfs tmpfs /dev/shm &&
        mount -t devpts -o newinstance,ptmxmode=0666 devpts /dev/pts && ln -sf pts/ptmx /dev/ptmx; cd /work && time "$@"' bare-root "$@"
