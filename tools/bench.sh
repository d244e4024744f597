#!/usr/bin/env bash
# Runs all benchmarks on a virtual screen and writes one table, under the machine's name, to build/bench/report.txt. Each row is a
# ratio, or a difference, with its limit; fails when a row is over, which is marked. The figures of a quiet machine are the ones to go
# by. Where GHex or Okteta is installed, start and memory are compared with theirs (apt-get install ghex okteta).
#   tools/bench.sh
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

"$top/tools/packages.sh" build screen
build bench

report=$top/build/bench/report.txt
over=()

describe_machine() {
    date -u +%Y-%m-%d
    lscpu | sed -n 's/^Model name: *//p'
    echo "$(nproc) cores, $(free -g | awk '/^Mem/ {print $2}') GiB, load average $(cut -d ' ' -f 1-3 /proc/loadavg)"
    . /etc/os-release && echo "$PRETTY_NAME, $(git -C "$top" describe --always --dirty)"
    dpkg-query -W -f '${Package} ${Version}\n' libqt6core6 ghex okteta 2>/dev/null || true
}

# Runs a benchmark on a virtual screen; the rows of its table go to the report.
#   measure NAME COMMAND [ARGUMENT...]
measure() {
    local name=$1
    shift
    step "measuring $name"
    { "$top/tools/xvfb.sh" "$@" || over+=("$name"); } > >({ grep -E '( +-?[0-9]+\.[0-9]+){4}(  OVER)?$' || true; } | tee -a "$report")
    wait $!
}

describe_machine >"$report"
printf '\n%-58s %10s %10s %8s %8s\n' measured ours plain result limit >>"$report"
for name in ferrolyn_bench ferrolyn_bench_contents ferrolyn_bench_pages ferrolyn_bench_chart ferrolyn_bench_changes \
    ferrolyn_bench_discovery ferrolyn_bench_searches; do
    measure "$name" "$top/build/bench/bench/$name"
done
measure "the command line" "$top/bench/command_line.sh" "$top/build/bench"
bus=()
command -v dbus-run-session >/dev/null && bus=(dbus-run-session --)
measure "other editors" "${bus[@]}" "$top/bench/editors.sh" "$top/build/bench"

say "the report is in $report"
if [ ${#over[@]} -ne 0 ]; then
    step "measuring: over the limit in ${over[*]}"
    exit 1
fi
