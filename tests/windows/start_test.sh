#!/usr/bin/env bash
# The program for Windows in the real window: it starts and becomes normal when the splash has gone, a second copy runs beside the
# first, closing ends each. On a screen of its own (tools/xvfb.sh).
#   start_test.sh BUILD_FOLDER PICTURE PROGRAM...    the program with what runs it; the picture is of both windows
source "$(dirname "$0")/../e2e/common.sh"
picture=$2
program=("${@:3}")

# The window manager does not know the splash here, only the screen does.
shows_splash() {
    [[ $(xwininfo -root -tree) == *" 492x151+"* ]]
}
shows_no_splash() {
    ! shows_splash
}

copies=()
windows=()
for copy in first second; do
    start
    copies+=("$started")
    wait_for_window "$started"
    windows+=("$window")
    eventually "the $copy copy shows no splash" shows_splash
    eventually "the splash of the $copy copy stays" shows_no_splash
    eventually "the window of the $copy copy does not become normal" is_normal "$window"
done
import -window root "$picture"

for copy in 1 0; do
    wmctrl -i -c "${windows[copy]}"
    expect_clean_end "${copies[copy]}"
done
echo "two copies came up and ended"
