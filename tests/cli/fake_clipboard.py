"""Programs that stand in for a desktop's clipboard: they keep it in a file."""

import os

from vmr import IS_NATIVE

XCLIP = """#!/bin/sh
printf '%s\\n' "xclip $*" >>"$FAKE_CLIPBOARD.calls"
case $* in
    *-in*) cat >"$FAKE_CLIPBOARD.new" && mv "$FAKE_CLIPBOARD.new" "$FAKE_CLIPBOARD" ;;
    *-out*) exec cat "$FAKE_CLIPBOARD" ;;
esac
"""
WL_COPY = """#!/bin/sh
printf '%s\\n' "wl-copy $*" >>"$FAKE_CLIPBOARD.calls"
if [ "$1" = --clear ]; then rm -f "$FAKE_CLIPBOARD"; else cat >"$FAKE_CLIPBOARD"; fi
"""
WL_PASTE = """#!/bin/sh
printf '%s\\n' "wl-paste $*" >>"$FAKE_CLIPBOARD.calls"
exec cat "$FAKE_CLIPBOARD"
"""
PROGRAMS = {"xclip": XCLIP, "wl-copy": WL_COPY, "wl-paste": WL_PASTE}


def give_clipboard(test, names=("xclip",), display="DISPLAY"):
    """Gives the runs of a test a clipboard of its own, reached through these programs; returns its file. A Windows
    program has the clipboard of its system."""
    if not IS_NATIVE:
        return None
    folder = test.path("desktop")
    folder.mkdir(exist_ok=True)
    for name in names:
        program = folder / name
        program.write_text(PROGRAMS[name])
        program.chmod(0o755)
    clipboard = folder / "clipboard"
    test.surroundings = {"PATH": f"{folder}:{os.environ['PATH']}", "DISPLAY": "", "WAYLAND_DISPLAY": "",
                         "FAKE_CLIPBOARD": str(clipboard), display: ":fake"}
    return clipboard
