#!/usr/bin/env bash
# Tests layers.sh against the folder fixture/, in which each line that breaks a rule ends with "// breach" and no other does.
set -uo pipefail
cd "$(dirname "$0")" || exit 2

expected=$(grep -rn '// breach$' fixture | sed -E 's|^fixture/([^:]+:[0-9]+):.*|\1|' | sort)
found=$(bash layers.sh fixture spec/IniFile spec/SpecFile filedisplay/Searches maps/ChartData)
status=$?

if [ "$status" -ne 1 ]; then
    echo "layers.sh ended with $status on a folder full of breaches, 1 expected"
    exit 1
fi
if ! diff <(echo "$expected") <(echo "$found" | sed -E 's|^([^:]+:[0-9]+):.*|\1|' | sort -u); then
    echo "'<' lines are breaches that were not found, '>' lines were found and are none"
    exit 1
fi
