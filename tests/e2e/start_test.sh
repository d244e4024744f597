#!/usr/bin/env bash
# The program starts, its window becomes normal when the splash has gone, its caption is "Ferrolyn", closing it ends the
# program; a second copy simply runs beside the first. Each talks to the screen over one connection.
source "$(dirname "$0")/common.sh"

# How many connections the screen has now; the window manager is one.
connections() {
    grep -cE "X11-unix/X${DISPLAY#:}\$" /proc/net/unix
}
has_one_connection() {
    [ "$(connections)" -eq "$((before + 1))" ]
}

before=$(connections)
start
first=$started
wait_for_window "$first"
first_window=$window
eventually "the splash stays" splash_has_gone "$first"
eventually "the window does not become normal" is_normal "$first_window"
[ "$(xdotool getwindowname "$first_window")" = Ferrolyn ] || fail "caption"
eventually "$(($(connections) - before)) connections to the screen" has_one_connection # those of our tools may take a moment to go

start
second=$started
wait_for_window "$second"
eventually "the second splash stays" splash_has_gone "$second"
eventually "the second window does not become normal" is_normal "$window"
has_ended "$first" && fail "the first copy ended"

wmctrl -i -c "$window"
expect_clean_end "$second"
has_ended "$first" && fail "the first copy ended with the second"
is_normal "$first_window" || fail "the first window is no longer normal"
wmctrl -i -c "$first_window"
expect_clean_end "$first"
