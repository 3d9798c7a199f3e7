# Wine in a prefix of its own, build/wine. To be sourced, with the project's root as working folder in `root`.
# shellcheck shell=bash

# shellcheck disable=SC2154  # root is common.sh's
export WINEPREFIX=$root/build/wine WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe="

# What runs a Windows program. The kernel moves the heap of Wine's loader about by chance, and once in some thousand
# times onto the page that Windows has at a fixed address; the program then does not start. So nothing is moved about,
# where that can be had.
wine=(wine)
if setarch -R true 2>/dev/null; then wine=(setarch -R wine); fi

# Tahoma is the font of menus and dialogs, Marlett has the signs on the buttons of captions. Wine looks for them in
# the prefix alone. Windows have captions of Wine's own, since nobody manages windows on a virtual display, and follow
# the mouse as they are dragged. (In a virtual desktop of Wine's a move of the mouse may end where the last one did.)
make_prefix() {
    if [ ! -f "$WINEPREFIX/system.reg" ]; then
        on_display timeout 300 sh -c 'wineboot -i && wineserver -w' || return 1
    fi
    cp /usr/share/wine/fonts/{marlett,tahoma,tahomabd}.ttf "$WINEPREFIX/drive_c/windows/Fonts/" || return 1
    # The server stays until it is ended, so that each program starts quickly. One that is running already will do; one
    # that is just ending is waited for.
    if ! wineserver -p; then
        if timeout 10 wineserver -w; then wineserver -p || return 1; fi
    fi
    "${wine[@]}" reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f &&
        "${wine[@]}" reg add 'HKCU\Control Panel\Desktop' /v DragFullWindows /d 1 /f
}

# start_display: a virtual display for all that follows. Whatever draws has to find it from the start: Wine's desktop
# stays while programs come and go, and one that was made without a display has none for those after it either.
start_display() {
    local number descriptor
    exec {descriptor}< <(exec Xvfb -displayfd 1 -screen 0 1280x900x24 -nolisten tcp 2>/dev/null 9>&-)
    display_process=$!
    read -r -t 30 -u "$descriptor" number || return 1
    exec {descriptor}<&-
    export DISPLAY=:$number
}

# on_display COMMAND...: runs it on the virtual display that was started, or on one of its own.
on_display() {
    if [ -n "${display_process:-}" ]; then "$@"; else xvfb-run -a -s "-screen 0 1280x900x24" "$@"; fi
}

# Programs and Wine's server talk thousands of times while windows come and paint themselves. On two processors each
# sleeps meanwhile, and on a virtual machine the waking takes many times longer than what is asked for.
processors=$(taskset -cp $$ 2>/dev/null | sed 's/.*: //') || processors=  # those there are for us, as 0-3,6

# share_one_processor: from here on all that is started is on the first of them, if that can be had.
share_one_processor() { [ -z "$processors" ] || taskset -cp "${processors%%[-,]*}" $$ >/dev/null 2>&1 || true; }

# use_all_processors: ends that.
use_all_processors() { [ -z "$processors" ] || taskset -cp "$processors" $$ >/dev/null 2>&1 || true; }

# beside COMMAND...: runs it on the last of them, in a second prefix, on a display of its own: another computer with
# another user.
beside() {
    local -a there=(taskset -c "${processors##*[-,]}")
    "${there[@]}" true 2>/dev/null || there=(env)
    WINEPREFIX=$WINEPREFIX-second "${there[@]}" xvfb-run -a -s "-screen 0 1280x900x24" "$@"
}

# make_second_prefix: for `beside`. Its server ends, so that the next one is on that display from the start.
make_second_prefix() {
    local -x WINEPREFIX=$WINEPREFIX-second
    local display_process=
    make_prefix && wineserver -k && wineserver -w
}

end_wine() {
    if [ -d "$WINEPREFIX" ] && command -v wineserver >/dev/null; then wineserver -k || true; fi
    if [ -n "${display_process:-}" ]; then kill "$display_process" 2>/dev/null || true; fi
    display_process=
}
