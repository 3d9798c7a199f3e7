# Wine in a prefix of its own, build/wine. To be sourced, with the project's root as working folder in `root`.
# shellcheck shell=bash

# shellcheck disable=SC2154  # root is common.sh's
export WINEPREFIX=$root/build/wine WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe="

make_prefix() {
    if [ ! -f "$WINEPREFIX/system.reg" ]; then
        timeout 300 xvfb-run -a sh -c 'wineboot -i && wineserver -w' || return 1
    fi
    wineserver -p || return 1  # stays until it is ended, so that each program starts quickly
    wine cmd /c exit
}

end_wine() {
    if [ -d "$WINEPREFIX" ] && command -v wineserver >/dev/null; then wineserver -k || true; fi
}
