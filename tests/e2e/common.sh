# What the tests of the real program share; to be sourced on a screen of its own (tools/xvfb.sh) with the build folder
# as first argument. Nothing waits for a time: every wait polls a condition up to a ceiling.

set -Eeuo pipefail

top=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
build=$(cd "$1" && pwd)
program=("$build/src/ferrolyn") # with what runs it, where that is needed
ceiling=60 # seconds; a loaded machine under a sanitizer needs some
scratch=$(mktemp -d)
children=() # ids of what we started and have not yet waited for

finish() {
    local child
    for child in "${children[@]}"; do
        kill "$child" 2>/dev/null || true
    done
    rm -rf "$scratch"
}
trap finish EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

unset QT_QPA_PLATFORM # the screen is a real one here
export XDG_CONFIG_HOME=$scratch XDG_STATE_HOME=$scratch

fail() {
    echo "FAILED: $*" >&2
    echo "windows:" >&2
    wmctrl -l >&2 || true
    exit 1
}

# Polls a command until it succeeds.
#   eventually DESCRIPTION COMMAND [ARGUMENT...]
eventually() {
    local what=$1 end=$((SECONDS + ceiling))
    shift
    until "$@" >/dev/null 2>&1; do
        [ "$SECONDS" -lt "$end" ] || fail "$what"
        sleep 0.02
    done
}

# Starts the program in samples/; its id is in $started.
start() {
    (cd "$top/samples" && exec "${program[@]}") &
    started=$!
    children+=("$started")
}

# Ids of all windows of a process that the window manager knows, one a line.
windows_of() {
    wmctrl -lp | awk -v process="$1" '$3 == process { print $1 }'
}

# The main window among them; the splash has no title of its own.
main_window() {
    local id
    for id in $(windows_of "$1"); do
        if xprop -id "$id" WM_NAME | grep -qx 'WM_NAME(STRING) = "Ferrolyn"'; then
            echo "$id"
            return
        fi
    done
    return 1
}

# The main window of a process, once the window manager knows it; its id is in $window.
wait_for_window() {
    eventually "process $1 shows no window" main_window "$1"
    window=$(main_window "$1")
}

# True when the main window is the only one left of a process.
splash_has_gone() {
    [ "$(windows_of "$1")" = "$window" ]
}

is_normal() {
    xprop -id "$1" WM_STATE | grep -q 'window state: Normal'
}

has_ended() {
    ! kill -0 "$1" 2>/dev/null || grep -qs '^State:.*Z' "/proc/$1/status"
}

# Waits for a process and expects exit code 0.
expect_clean_end() {
    eventually "process $1 does not end" has_ended "$1"
    local status=0 child rest=()
    wait "$1" || status=$?
    for child in "${children[@]}"; do
        [ "$child" = "$1" ] || rest+=("$child")
    done
    children=("${rest[@]}")
    [ "$status" -eq 0 ] || fail "exit code $status"
}
