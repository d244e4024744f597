#!/usr/bin/env bash
# Checks who may include whom below a folder src/, and who may know a system. Prints one line for each breach, "file:line: what is wrong: the include", and
# fails when there is any.
#   layers.sh FOLDER [CORE_UNIT...]    the folder that holds src/; units of the core outside model/ and system/, such as spec/IniFile
set -uo pipefail
cd "$1" || exit 2
[ -d src ] || { echo "there is no src/ in $1" >&2; exit 2; }
shift
core_units=$(IFS='|' && echo "$*")
breaches=0

breach() {
    echo "$1: $2: $3"
    breaches=$((breaches + 1))
}

# A header of the standard library: <vector>.
is_standard() {
    [[ $1 =~ ^\<[a-z0-9_]+\>$ ]]
}

# A header of the system or of a library that only some systems have: <unistd.h>, <sys/stat.h>, <xcb/xcb.h>. The toolkit and the
# test library write theirs like that too.
is_of_a_system() {
    [[ $1 =~ ^\<[^\>]*[./] && ! $1 =~ ^\<(Q|gtest/|gmock/) ]]
}

# check FILE PLACE INCLUDE: FILE without "src/", PLACE as "file:line", INCLUDE with its quotes or angle brackets.
check() {
    local file=$1 place=$2 include=$3
    local name=${include:1:-1}

    if [[ $include == \"* && ! $name =~ ^(system|model|forms|spec|maps|filedisplay|changes|discovery|cli)/ && $name != *.moc ]]; then
        breach "$place" "not written from the folder src/" "$include"
    fi
    if [[ $name == cli/* && $file != cli/* ]]; then
        breach "$place" "the command line is known to nobody" "$include"
    fi
    if [[ $name == spec/main.h && $file != ferrolyn.cpp && $file != spec/main.cpp ]]; then
        breach "$place" "the main window is known to the entry alone" "$include"
    fi

    # The libraries of the command line: arguments and JSON.
    [[ $file == cli/* && $include =~ ^"<"(CLI/CLI|nlohmann/json)\.hpp">"$ ]] && return

    # What a system does its own way is in files that are named after it.
    if [[ ! $file =~ ^system/.*(Linux|Windows)\.(h|cpp)$ ]]; then
        is_of_a_system "$include" && breach "$place" "headers of a system are for system/*Linux and system/*Windows alone" "$include"
        [[ $name =~ ^system/.*(Linux|Windows)\.h$ ]] && breach "$place" "a system's own file is for its like in system/ alone" "$include"
    fi

    if [[ $file == system/* ]]; then
        if [[ $name != system/* ]] && ! is_standard "$include" && ! is_of_a_system "$include"; then
            breach "$place" "system/ knows no other room and no toolkit" "$include"
        fi
    elif [[ $file == model/* ]]; then
        if [[ ! $name =~ ^(system|model)/ ]] && ! is_standard "$include"; then
            breach "$place" "the model knows system/ and the standard library alone" "$include"
        fi
    elif [[ $file =~ ^($core_units)\.(h|cpp)$ ]]; then
        if [[ ! $name =~ ^((system|model)/.*|($core_units)\.h)$ ]] && ! is_standard "$include"; then
            breach "$place" "a core unit knows system/, the model and the standard library alone" "$include"
        fi
    elif [[ $file == cli/* ]]; then
        if [[ ! $name =~ ^((system|model|cli)/.*|($core_units)\.h)$ ]] && ! is_standard "$include"; then
            breach "$place" "the command line knows the core and its two libraries alone" "$include"
        fi
    elif [[ $file == forms/* ]]; then
        if [[ $name =~ ^(spec|maps|filedisplay|changes|discovery)/ ]]; then
            breach "$place" "the forms know no page" "$include"
        elif [[ $name == model/* && ! $name =~ ^model/(Messages|MapViews)\.h$ ]]; then
            breach "$place" "the forms know no ROM image" "$include"
        fi
    elif [[ $file =~ ^(maps|filedisplay|changes|discovery)/ && $name == spec/* ]]; then
        breach "$place" "the pages know nothing of spec/" "$include"
    elif [[ $file =~ ^(maps|filedisplay|changes)/ && $name == discovery/* ]]; then
        breach "$place" "these pages know nothing of discovery/" "$include"
    fi
}

# grep prints "src/file:line:text".
while IFS=: read -r path line text; do
    [[ $text =~ (\"[^\"]+\"|\<[^\>]+\>) ]] && check "${path#src/}" "$path:$line" "${BASH_REMATCH[1]}"
done < <(grep -rnE --include='*.h' --include='*.cpp' '^[[:space:]]*#[[:space:]]*include' src | sort)

# No file reads differently on another system: there CMake takes another file.
while IFS=: read -r path line text; do
    breach "$path:$line" "what differs from system to system has a file for each in system/" "${text%%//*}"
done < <(grep -rnE --include='*.h' --include='*.cpp' \
    '^[[:space:]]*#[[:space:]]*(if|ifdef|ifndef|elif)|^([^/]|/[^/])*(Q_OS_|Q_WS_|QSysInfo|QOperatingSystemVersion|QNativeInterface)' src | sort)

# Every question to the user goes through one interface; comments may name what is behind it.
while IFS=: read -r path line text; do
    code=${text%%//*}
    if [[ $path != src/forms/QtDialogs.cpp && $path != src/forms/Printing.cpp && $code =~ (^|[^A-Za-z_])(Q(MessageBox|ErrorMessage|[A-Za-z]+Dialog))($|[^A-Za-z_]) ]]; then
        breach "$path:$line" "dialog classes stand in forms/QtDialogs.cpp and forms/Printing.cpp alone" "${BASH_REMATCH[2]}"
    fi
done < <(grep -rnE --include='*.h' --include='*.cpp' 'Q(MessageBox|ErrorMessage|[A-Za-z]+Dialog)' src | sort)

[ "$breaches" -eq 0 ]
