#!/usr/bin/env bash
# Runs a command on a screen of its own: a virtual one (of 1280 x 1024, or as large as SCREEN says) on a free display, with a window
# manager that is up before the command starts. Screen and window manager end with the command, however it ends; its exit code is ours.
#   tools/xvfb.sh COMMAND [ARGUMENT...]
set -uo pipefail

top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
patience=30 # seconds; a loaded machine needs a few

if [ $# -eq 0 ]; then
    echo "usage: xvfb.sh COMMAND [ARGUMENT...]" >&2
    exit 2
fi

started=() # ids of our own processes, in the order of their start
scratch=$(mktemp -d)
log=$scratch/log

finish() {
    local i
    for ((i = ${#started[@]} - 1; i >= 0; i--)); do
        kill "${started[i]}" 2>/dev/null
        wait "${started[i]}" 2>/dev/null
    done
    rm -rf "$scratch"
}
trap finish EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

fail() {
    echo "xvfb.sh: $1" >&2
    cat "$log" >&2
    exit 70
}

# Keys do not repeat: on a loaded machine a press may last long. The server names its display when it accepts clients; the end of the
# stream means that it could not start.
exec {display_stream}< <(exec Xvfb -displayfd 1 -screen 0 "${SCREEN:-1280x1024}x24" -nolisten tcp -noreset -r 2>"$log")
started+=($!)
read -r -t "$patience" display <&"$display_stream" || fail "the virtual screen did not start"
export DISPLAY=":$display"
export XDG_RUNTIME_DIR=$scratch # lock files of a program here are not those of the user's session
export XDG_CONFIG_HOME=$scratch # nor are its settings
export XDG_STATE_HOME=$scratch # nor the changes that it keeps
unset WAYLAND_DISPLAY

# What sanitizers would blame on the program and is the desktop's libraries'. That of the X11 keyboard copies n characters out of a
# text that has no end of its own, which it may; the strict check of strings would call it an error.
[ -z "${ASAN_OPTIONS:-}" ] || export ASAN_OPTIONS=$ASAN_OPTIONS:strict_string_checks=0
export LSAN_OPTIONS=suppressions=$top/tests/lsan.supp:print_suppressions=0
export TSAN_OPTIONS=${TSAN_OPTIONS:-suppressions=$top/tests/tsan.supp}

# The window manager writes into the pipe when it manages the screen.
mkfifo "$scratch/up"
exec {up_stream}<>"$scratch/up"
openbox --sm-disable --config-file /etc/xdg/openbox/rc.xml --startup "sh -c 'echo up >$scratch/up'" >>"$log" 2>&1 &
started+=($!)
read -r -t "$patience" <&"$up_stream" || fail "the window manager did not start"

# In the background, so that a signal to this script reaches its traps while the command runs.
"$@" <&0 {display_stream}<&- {up_stream}<&- &
started+=($!)
wait $!
