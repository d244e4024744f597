# One server of Wine for all programs that a script starts, until it ends: a server that goes with its last program may refuse the
# next one at that moment. To be sourced after lib.sh.

export WINEPREFIX=$top/build/windows/wine

end_wine() {
    /usr/lib/wine/wineserver64 --kill || true # it may have ended
    /usr/lib/wine/wineserver64 --wait
}

# The system's own processes come with it, so that they do not keep the output of a later program open.
serve_wine() {
    mkdir -p "$WINEPREFIX"
    /usr/lib/wine/wineserver64 --persistent
    trap 'end_wine; finish' EXIT
    WINEDEBUG=-all WINEDLLOVERRIDES=mscoree,mshtml= /usr/lib/wine/wine64 wineboot >/dev/null 2>&1
}
