"""What the checks share: the project's files, its rooms, and the form of a check's result."""

import concurrent.futures
import dataclasses
import os
import pathlib
import re

ROOMS = ("platform", "foundation", "database", "toolkit", "windows", "shell", "cli")

# What needs no window in the rooms that have windows: colour themes, the logic of search, sort and generator,
# the settings and the recent list. Each entry is the start of a path.
THEMES = tuple(f"toolkit/{name}." for name in ("color_theme", "theme_check", "theme_list"))
LOGIC = tuple(f"windows/{name}." for name in ("app_notify", "caption", "command_ids", "database_path", "generator",
                                              "item_view", "known_order", "search", "sort", "text_finder"))
SETTINGS = tuple(f"shell/{name}." for name in ("app_settings", "command_line", "load_store", "placement",
                                               "recent_list"))
# What the shell owns beside the main window, which the windows may know.
SHELL_DATA = tuple(f"shell/{name}." for name in ("app", "app_data", "app_menus", "app_menu_state", "file_type",
                                                 "last_window", "process_mutex", "statics", "window_placement"))

# What needs no window; of the rooms above, all else is for Windows alone.
WINDOWLESS = (*THEMES, *LOGIC, *SETTINGS)
WINDOW_ROOMS = ("toolkit/", "windows/", "shell/")
FOR_WINDOWS = ("platform/win32/", "platform/windows_api.h", "tests/app/", "tests/bench/plain_copy.", "tests/gallery/",
               "tests/golden/", "tests/gui/", "tests/scenarios/")


def is_for_windows(path):
    """True for a file that only a Windows program is made of."""
    name = path.as_posix()
    return name.startswith(FOR_WINDOWS) or "_win32" in path.name or (
        name.startswith(WINDOW_ROOMS) and not name.startswith(WINDOWLESS))


# The core: what must build for every system, from nothing but the standard library and platform/.
CORE = ("foundation/", "database/", *THEMES, *LOGIC, *SETTINGS, "cli/")

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')
COMMENT_OR_LITERAL = re.compile(
    r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|(?<![0-9A-Fa-f])\'(?:\\.|[^\'\\\n])*\'', re.DOTALL)


@dataclasses.dataclass
class Result:
    """Of `checked` subjects those named in `findings` failed; `note` is a line for information."""

    checked: int = 0
    findings: list = dataclasses.field(default_factory=list)
    note: str = ""

    def find(self, subject, message):
        self.findings.append((str(subject), message))

    @property
    def failed(self):
        return len({subject for subject, _ in self.findings})

    @property
    def passed(self):
        return max(0, self.checked - self.failed)


class Project:
    def __init__(self, root, build=None):
        self.root = pathlib.Path(root).resolve()
        self.build = pathlib.Path(build).resolve() if build else self.root / "build" / "linux"

    def files(self, folders, suffixes):
        """The files below these folders, as paths from the root, in a fixed order."""
        found = []
        for folder in folders:
            for path in (self.root / folder).rglob("*"):
                if path.suffix in suffixes and path.is_file():
                    found.append(path.relative_to(self.root))
        return sorted(found)

    def code(self, with_tests=False):
        return self.files(ROOMS + (("tests",) if with_tests else ()), {".cpp", ".h"})

    def text(self, path):
        return (self.root / path).read_text(encoding="utf-8", errors="replace")

    def includes(self, path):
        """(line number, '<' or '"', name) of each include."""
        for number, line in enumerate(self.text(path).splitlines(), 1):
            match = INCLUDE.match(line)
            if match:
                yield number, match.group(1), match.group(2)


def without_comments(text):
    """The text with its comments blanked; literals and line numbers stay."""
    def blank(match):
        token = match.group(0)
        return re.sub(r"[^\n]", " ", token) if token.startswith("/") else token
    return COMMENT_OR_LITERAL.sub(blank, text)


def in_parallel(work, items):
    """work(item) for each item, as many at a time as there are processors; results in order."""
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count() or 2) as pool:
        return list(pool.map(work, items))
