# What the project's commands share: a strict shell, the project's folder, numbered steps with their time, and one
# clear line that names what failed. To be sourced by bash, not run.

set -Eeuo pipefail

top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
command_name=$(basename "$0")
current_step=starting

# Paths in messages, file names and test data are UTF-8; a bare machine has no language set at all.
if [ "$(locale charmap 2>/dev/null)" != UTF-8 ]; then
    export LC_ALL=C.UTF-8
fi

# Processes at once while building and testing; JOBS=n overrides.
jobs=${JOBS:-$(nproc)}

say() {
    printf '%s: %s\n' "$command_name" "$*"
}

# Names what is being done, for the reader now and for the line that says what failed.
step() {
    current_step=$*
    say "$* ..."
}

# Ends the command because of what it was called with.
refuse() {
    current_step="reading its arguments"
    say "$*" >&2
    exit 2
}

# Refuses what is no whole number from 1 on.
#   need_number VALUE OF_WHAT
need_number() {
    [[ $1 =~ ^[1-9][0-9]*$ ]] || refuse "'$1' is no number of $2"
}

finish() {
    local status=$?
    if [ "$status" -ne 0 ]; then
        printf '%s: FAILED while %s (exit code %s)\n' "$command_name" "$current_step" "$status" >&2
    fi
}
trap finish EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

# Configures and builds a preset of CMakePresets.json.
#   build PRESET [TARGET...]
build() {
    local preset=$1 started=$SECONDS
    shift
    step "building the preset '$preset'"
    (
        cd "$top"
        cmake --preset "$preset" >"$top/build/$preset.configure.log" 2>&1 || {
            cat "$top/build/$preset.configure.log" >&2
            exit 1
        }
        cmake --build --preset "$preset" --parallel "$jobs" ${1:+--target "$@"} -- -k 0 # names every error, not the first alone
    )
    say "built the preset '$preset' in $((SECONDS - started)) s"
}
mkdir -p "$top/build"
