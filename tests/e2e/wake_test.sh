#!/usr/bin/env bash
# A window of the class and with the title that a start looks for: the start wakes its owner and ends at once.
source "$(dirname "$0")/common.sh"

is_active() {
    [ "$(xdotool getactivewindow)" = "$1" ]
}
is_iconic() {
    xprop -id "$1" WM_STATE | grep -q 'window state: Iconic'
}
is_listed() {
    xprop -root _NET_CLIENT_LIST | grep -qi "$(printf '0x%x' "$1")"
}

# Starts the other program's windows; their ids are in $owner and $foreign.
#   show_foreign normal|iconic
show_foreign() {
    exec {ids}< <(exec "$build/tests/e2e_foreign_window" "$1")
    helper=$!
    children+=("$helper")
    read -r -t "$ceiling" owner foreign <&"$ids" || fail "no foreign windows"
    eventually "the owner is not managed" is_listed "$owner"
    eventually "the foreign window is not managed" is_listed "$foreign"
}
# Its own windows end with the other program.
end_foreign() {
    kill "$helper"
    exec {ids}<&-
    eventually "the foreign window stays" eval "! is_listed $foreign"
}
# While the started copy lives no window of it may come up.
expect_end_without_window() {
    while ! has_ended "$started"; do
        main_window "$started" >/dev/null && fail "a main window was shown"
    done
    expect_clean_end "$started"
}

# More than once: a request that is sent just before the end of a start gets lost only now and then.
show_foreign normal
for _ in {1..10}; do
    xdotool windowactivate "$foreign"
    eventually "the foreign window cannot be activated" is_active "$foreign"
    start
    expect_end_without_window
    eventually "the owner is not brought to the foreground" is_active "$owner"
done
end_foreign

show_foreign iconic
eventually "the owner is not minimised" is_iconic "$owner"
start
expect_end_without_window
eventually "the owner is not shown" is_normal "$owner"
end_foreign

# With nobody there a start goes on again.
start
wait_for_window "$started"
wmctrl -i -c "$window"
expect_clean_end "$started"
