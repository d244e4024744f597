#!/usr/bin/env bash
# "Tools" stays above all other windows while it floats, also when it was docked and floats anew; a question of the program
# comes up above it all the same.
source "$(dirname "$0")/common.sh"

# Whether "Tools", now in a window of its own, is above all others; its id is in $tools. Each docking makes it another window.
is_on_top() {
    tools=$(wmctrl -l | awk '$4 == "Tools" { print $1 }')
    [ -n "$tools" ] && xprop -id "$tools" _NET_WM_STATE | grep -q _NET_WM_STATE_ABOVE
}
is_not_on_top() {
    ! is_on_top && [ -n "$tools" ]
}
is_active() {
    [ "$(xdotool getactivewindow)" = "$1" ]
}
# The place of a window among all that the window manager stacks, the lowest first; 0 when it is not there.
level() {
    xprop -root _NET_CLIENT_LIST_STACKING | sed 's/.*# //' | tr -d ' ' | tr ',' '\n' | grep -nix "$(printf '0x%x' "$1")" |
        cut -d: -f1 || echo 0
}
is_over() {
    [ "$(level "$1")" -gt "$(level "$2")" ]
}
# Sends a command; the id that answers is in $reply.
tell() {
    echo "$1" >&"$commands"
    read -r -t "$ceiling" reply <&"$replies" || fail "no answer to '$1'"
}

mkfifo "$scratch/commands" "$scratch/replies"
"$build/tests/e2e_on_top" <"$scratch/commands" >"$scratch/replies" &
helper=$!
children+=("$helper")
exec {commands}>"$scratch/commands" {replies}<"$scratch/replies"
read -r -t "$ceiling" main <&"$replies" || fail "no window"

for round in first second; do
    eventually "the $round time it is not on top" is_on_top
    xdotool windowactivate "$main"
    eventually "the main window is not active" is_active "$main"
    eventually "the $round time the active window covers it" is_over "$tools" "$main"

    tell ask
    box=$reply
    eventually "the $round question is not active" is_active "$box"
    eventually "the $round question lies below" is_over "$box" "$tools"
    eventually "it is on top of the $round question" is_not_on_top
    tell answer
    eventually "it does not come back after the $round question" is_on_top

    tell dock
    tell float
done
eventually "the last time it is not on top" is_on_top
echo quit >&"$commands"
expect_clean_end "$helper"
