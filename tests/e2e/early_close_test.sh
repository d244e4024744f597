#!/usr/bin/env bash
# Twenty starts (or as many as STARTS says), each closed at another early moment, before the splash has gone: all end cleanly.
source "$(dirname "$0")/common.sh"

RANDOM=20 # the same moments at every run, as far as the machine allows
for ((round = 1; round <= ${STARTS:-20}; ++round)); do
    start
    wait_for_window "$started"
    for ((moment = RANDOM % 20; moment > 0; --moment)); do
        eventually "the window went in round $round" main_window "$started" # a splash that goes meanwhile disturbs the look
    done
    wmctrl -i -c "$window"
    expect_clean_end "$started"
done
