#!/usr/bin/env bash
# Checks what a compiler does not see: the format, words that may not stand in the sources, the size of files.
# Prints every finding and fails when there is any.
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
cd "$top"
current_step="checking the style"

mapfile -t sources < <(find src tests tools bench fuzz \( -name '*.cpp' -o -name '*.h' \) 2>/dev/null | sort)
findings=0

# Prints "WHAT: line" for each line of the standard input, which are findings.
report() {
    local line
    while IFS= read -r line; do
        echo "$1: $line"
        findings=$((findings + 1))
    done
}

# words WHAT PATTERN FILE...: no line of the files may match the extended regular expression.
words() {
    local what=$1 pattern=$2
    shift 2
    [ $# -eq 0 ] || report "$what" < <(grep -nHE "$pattern" "$@")
}

tests_of() {
    printf '%s\n' "${sources[@]}" | grep '^tests/' || true
}
headers() {
    printf '%s\n' "${sources[@]}" | grep '\.h$' || true
}

report "not formatted (clang-format -i mends it)" < <(
    clang-format --dry-run -Werror "${sources[@]}" 2>&1 | sed -nE 's/^([^:]+):[0-9]+:[0-9]+: error.*/\1/p' | sort -u)

words "left for later" '\b(TODO|FIXME|XXX|HACK)\b' "${sources[@]}"
words "a numbered text that is not in this folder" '\b(Part|Section|Chapter) [0-9]+\.[0-9]' "${sources[@]}"
words "may wait forever on Windows (system/Stop.h)" '^[^/]*\bstd::(barrier|latch|(counting|binary)_semaphore|stop_callback|condition_variable_any)\b' "${sources[@]}"
mapfile -t files < <(headers)
words "using namespace in a header" '^[[:space:]]*using namespace' "${files[@]}"
mapfile -t files < <(tests_of)
words "a test that does not run" '\b(DISABLED_|GTEST_SKIP)' "${files[@]}"
words "a test that waits for time to pass" '\b(sleep_for|sleep_until|usleep|qSleep|QThread::m?sleep)\b|qWait\([1-9]' "${files[@]}"

for file in "${sources[@]}"; do
    limit=500
    [[ $file == *.h ]] && limit=250
    lines=$(wc -l <"$file")
    [ "$lines" -le "$limit" ] || report "over $limit lines" <<<"$file has $lines"
done

[ "$findings" -eq 0 ]
