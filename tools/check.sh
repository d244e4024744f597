#!/usr/bin/env bash
# The project's checks; the same script for people and for CI.
#   tools/check.sh [CHECK...]
#     style   formatting, words and file sizes (tools/style.sh)
#     tests   g++ build, warnings are errors, every test
#     asan    clang++ build, warnings are errors, every test under the address and undefined behaviour sanitizers
#     tsan    the start-up tests and those of errands, of kept changes and many images under the thread sanitizer, but for those of the window
#             finder: they start an X server, and clang 14's thread sanitizer does not survive the toolkit's way of starting a
#             process; they have one thread alone
#     includes  clang++ build of src/, each source by itself, which finds an include that is missing
#     windows the program for Windows, cross-compiled, and every test of it that Wine can run (tools/windows.sh test; not part of all)
#     tidy    clang-tidy over src/ and tools/ (slow, not part of all)
#     default style tests
#     all     style includes asan tsan tests; the tests last, so that their summary ends the output
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

# Builds one preset, or only some of its targets, and runs its tests.
#   build_and_test PRESET [TARGET...]
build_and_test() {
    local preset=$1
    build "$@"
    step "running the tests of the preset '$preset'"
    # Without the lines that announce a test: each one is named again with its result.
    (cd "$top" && ctest --preset "$preset" --parallel "$jobs" | { grep --line-buffered -v '^ *Start ' || true; })
}

tidy() {
    build tidy
    step "running clang-tidy"
    (cd "$top" && find src tools -name '*.cpp' -print0 |
        xargs -0 -P "$jobs" -n 1 clang-tidy -p build/tidy --quiet --warnings-as-errors='*')
}

run_check() {
    case $1 in
        style) step "checking the style"; "$top/tools/style.sh" ;;
        tests) build_and_test dev ;;
        includes) build tidy ferrolyn ferrolyn-cli ;;
        asan) build_and_test asan ;;
        tsan) build_and_test tsan test_start test_system test_changes test_jobs ;;
        windows) "$top/tools/windows.sh" test ;;
        tidy) tidy ;;
    esac
}

# The toolkit and the start-up tests want a runtime folder; a bare machine has none.
if [ -z "${XDG_RUNTIME_DIR:-}" ]; then
    export XDG_RUNTIME_DIR=$top/build/runtime
    mkdir -p "$XDG_RUNTIME_DIR"
    chmod 700 "$XDG_RUNTIME_DIR"
fi

checks=()
sections=()
for name in "${@:-default}"; do
    case $name in
        default) checks+=(style tests) ;;
        all) checks+=(style includes asan tsan tests) ;;
        style | includes | tests | asan | tsan | windows | tidy) checks+=("$name") ;;
        *) refuse "there is no check '$name'" ;;
    esac
done
for name in "${checks[@]}"; do
    case $name in
        style) sections+=(style) ;;
        tests) sections+=(build test) ;;
        includes) sections+=(build clang) ;;
        asan | tsan) sections+=(build test clang) ;;
        windows) ;; # its script knows them
        tidy) sections+=(build test clang tidy) ;;
    esac
done

"$top/tools/packages.sh" "${sections[@]}"
for name in "${checks[@]}"; do
    run_check "$name"
done
say "done: ${checks[*]} in $((SECONDS / 60)) min $((SECONDS % 60)) s"
