#!/usr/bin/env bash
# Kills a process that saves ROM images and spec files at random moments, and fails unless every file was found whole, old or
# new, and no temporary files pile up. The tests do this 100 times; this is the long run.
#   tools/kill-saves.sh [KILLS]    2000 unless told otherwise; about ten a second
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

kills=${1:-2000}
need_number "$kills" kills
build dev test_kills
step "killing $kills saves"
FERROLYN_KILLS=$kills "$top/build/dev/tests/kills/test_kills" --gtest_filter='TKilledSaver.*'
say "$kills kills survived in $SECONDS s"
