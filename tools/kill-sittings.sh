#!/usr/bin/env bash
# Kills a sitting at the program's window at random moments while it commits, saves, reads anew and brings back, and fails unless the
# image on the disk is wholly old or new each time and loading it offers exactly what was committed and never saved. The tests do this
# 30 times; this is the long run.
#   tools/kill-sittings.sh [KILLS]    1000 unless told otherwise; about four a second
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

kills=${1:-1000}
need_number "$kills" kills
build dev test_kills
step "killing $kills sittings"
FERROLYN_KILLS=$kills "$top/build/dev/tests/kills/test_kills" --gtest_filter='TKilledSitting.*'
say "$kills kills survived in $SECONDS s"
