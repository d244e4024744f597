# Completion for ferrolyn-cli. Commands, options and choices are read off the program's own --help.

# The options of a help text; with "value" those alone that take one.
#   _ferrolyn_cli_options HELP [value]
_ferrolyn_cli_options() {
    local line form='^ +(-[a-z],)?(--[a-z-]+)'
    [ "${2-}" != value ] || form+=' [A-Z]+([^a-z]|$)'
    while IFS= read -r line; do
        [[ $line =~ $form ]] && printf '%s\n' "${BASH_REMATCH[2]}"
    done <<<"$1"
}

# What an option may be, when its help says so: "--format FORMAT:{table,csv,json}".
#   _ferrolyn_cli_choices HELP OPTION
_ferrolyn_cli_choices() {
    local line
    while IFS= read -r line; do
        [[ $line =~ ^\ +$2\ [A-Z]+:\{([a-z,]+)\} ]] && printf '%s\n' "${BASH_REMATCH[1]//,/ }"
    done <<<"$1"
}

# How many arguments that are no options and no values of such stand before the word.
_ferrolyn_cli_place() {
    local i place=0 taking
    taking=" -o $(_ferrolyn_cli_options "$1" value | tr '\n' ' ')"
    for ((i = 2; i < COMP_CWORD; ++i)); do
        if [[ $taking == *" ${COMP_WORDS[i]} "* ]]; then
            ((++i))
        elif [[ ${COMP_WORDS[i]} != -* ]]; then
            ((++place))
        fi
    done
    printf '%s\n' "$place"
}

# Files by their ending in any letter case, and folders.
#   _ferrolyn_cli_files WORD ENDING
_ferrolyn_cli_files() {
    local ending
    ending=$(sed 's/./[&\U&]/g' <<<"$2")
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -f -X "!*.$ending" -- "$1"; compgen -d -- "$1")
}

_ferrolyn_cli() {
    local program=$1 word=$2 before=$3 command="" help maps
    [ "$COMP_CWORD" -lt 2 ] || command=${COMP_WORDS[1]}
    help=$("$program" ${command:+"$command"} --help 2>/dev/null) || return
    maps=$("$program" --help | sed -n 's/^Maps: //p')
    COMPREPLY=()
    case $before in
        --spec | --spec-b | --spec-out) _ferrolyn_cli_files "$word" spc && return ;;
        --from | --to) _ferrolyn_cli_files "$word" bin && return ;;
        -o | --output) compopt -o default 2>/dev/null; return ;;
        --*)
            mapfile -t COMPREPLY < <(compgen -W "$(_ferrolyn_cli_choices "$help" "$before")" -- "$word")
            [ ${#COMPREPLY[@]} -eq 0 ] || return ;;
    esac
    if [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$(_ferrolyn_cli_options "$help")" -- "$word")
        return
    fi
    case $command:$(_ferrolyn_cli_place "$help") in
        :*) mapfile -t COMPREPLY < <(compgen -W "$(sed -n '/^Commands:/,/^$/s/^  \([a-z]*\) .*/\1/p' <<<"$help")" -- "$word") ;;
        info:* | find:* | check:* | diff:* | copy:1 | *:0) _ferrolyn_cli_files "$word" bin ;;
        patch:*) compopt -o default 2>/dev/null ;;
        import:2) _ferrolyn_cli_files "$word" csv ;;
        set:*) compopt -o nospace 2>/dev/null; mapfile -t COMPREPLY < <(compgen -S '[' -W "$maps" -- "$word"; compgen -W 'rev-limiter=' -- "$word") ;;
        *) mapfile -t COMPREPLY < <(compgen -W "$maps" -- "$word") ;;
    esac
}
complete -F _ferrolyn_cli ferrolyn-cli
