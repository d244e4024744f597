#!/usr/bin/env bash
# What the completion of ferrolyn-cli offers, asked as the shell asks it.
#   completion_test.sh PROGRAM
set -uo pipefail
top=$(cd "$(dirname "$0")/../.." && pwd)
program=$(realpath "$1")
scratch=$(mktemp -d)
trap 'rm -rf "$scratch" "$scratch.diff"' EXIT
. "$top/packaging/ferrolyn-cli.bash"
cp "$top"/samples/*.BIN "$top"/samples/*.SPC "$scratch"
cd "$scratch"
mkdir roms
touch MORE.bin TABLE.csv "WITH BLANK.BIN"
failed=0

# expect WORDS OFFERED...: what is offered for the last of the words, in any order. Words are separated by blanks; the last may be
# empty.
expect() {
    local offered
    read -ra COMP_WORDS <<<"ferrolyn-cli $1"
    [[ $1 != *" " && -n $1 ]] || COMP_WORDS+=('')
    COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
    COMPREPLY=()
    _ferrolyn_cli "$program" "${COMP_WORDS[COMP_CWORD]}" "${COMP_WORDS[COMP_CWORD - 1]}"
    offered=$(printf '%s\n' "${COMPREPLY[@]}" | sort)
    shift
    diff <(printf '%s\n' "$@" | sort) <(echo "$offered") >"$scratch.diff" && return
    echo "FAILED: for '${COMP_WORDS[*]}' what is offered (>) is not what is expected (<):" >&2
    cat "$scratch.diff" >&2
    failed=1
}

maps=(fuel-pt fuel-idle fuel-wot timing-pt timing-idle timing-wot)
images=(FERRO32K.BIN FERRO64K.BIN MORE.bin "WITH BLANK.BIN" roms)

expect "inf" info
expect "sh" show
expect "info " "${images[@]}"
expect "info FERRO32K.BIN F" FERRO32K.BIN FERRO64K.BIN
expect "info --format " text json
expect "info --f" --format
expect "show FERRO32K.BIN --spec " FERRO32K.SPC FERRO32P.SPC roms
expect "show FERRO32K.BIN --spec FERRO32K.SPC " "${maps[@]}"
expect "show --spec FERRO32K.SPC --raw " "${images[@]}"
expect "show --spec FERRO32K.SPC FERRO32K.BIN fuel-pt timing-" timing-pt timing-idle timing-wot
expect "show --color a" auto always
expect "draw FERRO32K.BIN -o A.svg --size 90x90 fuel-i" fuel-idle
expect "set FERRO32K.BIN fuel-p" "fuel-pt["
expect "set FERRO32K.BIN rev" "rev-limiter="

# Every command, and every option of every command.
read -ra commands <<<"$("$program" --help | sed -n '/^Commands:/,/^$/s/^  \([a-z]*\) .*/\1/p' | tr '\n' ' ')"
expect "" "${commands[@]}"
for command in "${commands[@]}"; do
    read -ra options <<<"$("$program" "$command" --help | sed -nE 's/^ +(-[a-z],)?(--[a-z-]+).*/\2/p' | tr '\n' ' ')"
    [ ${#options[@]} -gt 1 ] || { echo "FAILED: '$command' has no options" >&2; failed=1; }
    expect "$command --" "${options[@]}"
done
exit "$failed"
