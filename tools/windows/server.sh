# One server of Wine, and its drive C, for all programs that a script starts, until it ends: a server that goes with its last program
# may refuse the next one at that moment. To be sourced after lib.sh.

export WINEPREFIX=$top/build/windows/wine

end_wine() {
    /usr/lib/wine/wineserver64 --kill || true # it may have ended
    /usr/lib/wine/wineserver64 --wait
}

# What it starts of the system's own processes keeps this output open, and not that of a later program.
own_wine() {
    WINEDEBUG=-all WINEDLLOVERRIDES=mscoree,mshtml= /usr/lib/wine/wine64 "$@" >/dev/null 2>&1
}

set_in_registry() {
    own_wine reg add "$1" /v "$2" /d "$3" /f
}

# Gives a new drive fonts for windows and for texts of fixed width. Without a screen the toolkit looks for them where it is told, and
# takes the first family for all.
bring_fonts() {
    local replacements='HKCU\Software\Wine\Fonts\Replacements'
    set_in_registry "$replacements" 'MS Shell Dlg' 'DejaVu Sans'
    set_in_registry "$replacements" 'Courier New' 'DejaVu Sans Mono'
    set_in_registry 'HKCU\Environment' QT_QPA_FONTDIR 'C:\windows\Fonts'
    cp /usr/share/fonts/truetype/dejavu/DejaVuSans{,-Bold,Mono,Mono-Bold}.ttf "$WINEPREFIX/drive_c/windows/Fonts/"
}

serve_wine() {
    step "starting Wine"
    mkdir -p "$WINEPREFIX"
    /usr/lib/wine/wineserver64 --persistent
    trap 'finish; end_wine' EXIT
    own_wine wineboot
    [ -e "$WINEPREFIX/drive_c/windows/Fonts/DejaVuSans.ttf" ] || bring_fonts
}
