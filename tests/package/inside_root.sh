#!/usr/bin/env bash
# The half of tools/package-test.sh that runs inside the clean root, as root: tries the packages that lie in the folder given.
#   inside_root.sh FOLDER
. "$(dirname "${BASH_SOURCE[0]}")/../../tools/lib.sh"
packages=$1
scratch=$(mktemp -d)
export DEBIAN_FRONTEND=noninteractive

quietly() {
    "$@" >"$scratch/log" 2>&1 </dev/null || {
        cat "$scratch/log" >&2
        return 1
    }
}

# Everything in the system's folders with kind, mode, owner and target; without what package tools keep of their own work.
list_files() {
    find / -xdev \( -path /work -o -path /proc -o -path /sys -o -path /dev -o -path /run -o -path /tmp -o -path "$packages" \
        -o -path /var/lib/dpkg -o -path /var/lib/apt -o -path /var/cache/apt -o -path /var/cache/debconf \
        -o -path /var/cache/ldconfig -o -path /var/log -o -path /home/tester \) -prune -o -printf '%p %y %m %u:%g %l\n' | sort
}

# Compares the files of now with an earlier list.
#   expect_files LIST WHAT
expect_files() {
    list_files >"$scratch/now"
    diff "$1" "$scratch/now" || {
        say "$2" >&2
        return 1
    }
}

# Drives a program as a user without rights.
#   drive PROGRAM SAMPLES HELP_FOLDER
drive() {
    runuser -u tester -- env -C /home/tester HOME=/home/tester PATH=/usr/bin:/bin LC_ALL=C.UTF-8 PYTHONDONTWRITEBYTECODE=1 \
        "$top/tools/xvfb.sh" env -u XDG_CONFIG_HOME -u XDG_STATE_HOME dbus-run-session -- python3 "$top/tests/package/drive.py" "$@" 2>"$scratch/log" || {
        cat "$scratch/log" >&2
        return 1
    }
}

# Runs a command line program as that user: what it shows of a sample is compared with the test's own knowledge of it.
#   try_command_line PROGRAM
try_command_line() {
    local shown
    shown=$(runuser -u tester -- env -C /home/tester PATH=/usr/bin:/bin "$1" show "$top/samples/FERRO32K.BIN" --spec "$top/samples/FERRO32K.SPC")
    [[ $shown == *"fuel-pt: Fuel PT at \$6000, 16 x 12, lambda"* && $shown == *"rev-limiter: 6800 rpm"* ]]
}

step "preparing the root"
quietly apt-get update
"$top/tools/packages.sh" screen drive
for package in ferrolyn ferrolyn-cli; do # of a run that failed
    ! dpkg-query -W $package >/dev/null 2>&1 || quietly apt-get purge -y $package
done
quietly apt-get purge -y --autoremove
id tester >/dev/null 2>&1 || useradd --create-home tester
rm -rf /home/tester && install -d -o tester -g tester /home/tester
mkdir -p -m 1777 /tmp/.X11-unix # the virtual screen's; a user may not make it as it should be
list_files >"$scratch/before"
packages_before=$(dpkg-query -W | wc -l)

step "installing the package of the command line alone"
quietly apt-get install -y --no-install-recommends "$packages"/ferrolyn-cli_*.deb
say "with it came $(($(dpkg-query -W | wc -l) - packages_before - 1)) other packages"
! dpkg-query -W | grep -iE '^libqt' # the toolkit would hide what is missing
try_command_line ferrolyn-cli
[ -f /usr/share/bash-completion/completions/ferrolyn-cli ]

step "installing both Debian packages"
quietly apt-get install -y --no-install-recommends "$packages"/*.deb
list_files >"$scratch/installed"
ldd /usr/bin/ferrolyn | grep 'not found' && exit 1
say "with them came $(($(dpkg-query -W | wc -l) - packages_before - 2)) other packages"
[ -z "$(dpkg --verify ferrolyn ferrolyn-cli)" ]

step "using the installed program"
drive ferrolyn /usr/share/ferrolyn/samples /usr/lib/ferrolyn
expect_files "$scratch/installed" "using the program changed the system's folders"
step "looking what it left in the user's home"
# The folders of the loaded images, and the file dialog's.
(cd /home/tester && find . -type f ! -path './.cache/*' -printf '%P\n' | LC_ALL=C sort) |
    diff - <(printf '%s\n' .config/Ferrolyn/Ferrolyn.ini .config/QtProject.conf)

step "removing the packages but not what they need"
quietly apt-get purge -y ferrolyn ferrolyn-cli

step "using the programs out of the archive"
mkdir /home/tester/unpacked
tar -xzf "$packages"/*.tar.gz --strip-components=1 --no-same-owner -C /home/tester/unpacked
try_command_line /home/tester/unpacked/bin/ferrolyn-cli
drive /home/tester/unpacked/bin/ferrolyn /home/tester/unpacked/share/ferrolyn/samples /home/tester/unpacked/lib/ferrolyn
[ -z "$(find /home/tester/unpacked -user tester)" ] # written by nobody but tar

step "comparing what is left with what was there before"
quietly apt-get purge -y --autoremove
expect_files "$scratch/before" "removing the packages left files behind or took others along"
say "nothing is left of the packages"
