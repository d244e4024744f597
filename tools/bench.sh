#!/usr/bin/env bash
# Runs all benchmarks on a virtual screen and writes their tables, under the machine's name, to build/bench/report.txt. Each row is a
# ratio, or a difference, with its limit; fails when a row is over. The figures of a quiet machine are the ones to go by.
#   tools/bench.sh
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

"$top/tools/packages.sh" build screen
build bench

report=$top/build/bench/report.txt
over=()
{
    date -u +%Y-%m-%d
    lscpu | sed -n 's/^Model name: *//p'
    echo "$(nproc) cores, $(free -g | awk '/^Mem/ {print $2}') GiB"
} >"$report"
for name in ferrolyn_bench ferrolyn_bench_contents ferrolyn_bench_chart ferrolyn_bench_searches; do
    step "running $name"
    printf '\n%s\n' "$name" >>"$report"
    "$top/tools/xvfb.sh" "$top/build/bench/bench/$name" | tee -a "$report" || over+=("$name")
done
say "the report is in $report"
if [ ${#over[@]} -ne 0 ]; then
    step "measuring: over the limit in ${over[*]}"
    exit 1
fi
