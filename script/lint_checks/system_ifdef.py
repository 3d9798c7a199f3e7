"""Conditional compilation for the system stands only in platform/ and in its own tests."""

import re

from lint_checks.project import CORE, Result, without_comments

TITLE = "#ifdef for the system only in platform/"
MEND = ("Give platform/ an operation or a constant that differs between the systems, and use that; "
        "in code, `if constexpr` on such a constant serves.")

HOME = ("platform/", "tests/unit/platform/")
SYSTEM = re.compile(
    r"^\s*#\s*(?:if|ifdef|ifndef|elif|elifdef|elifndef)\b.*\b"
    r"(_WIN32|_WIN64|WIN32|WIN64|_WIN32_WINNT|WINVER|__MINGW32__|__MINGW64__|_MSC_VER|__CYGWIN__|"
    r"__linux__|__linux|linux|__unix__|__unix|unix|__APPLE__|__FreeBSD__|__ANDROID__|_POSIX_VERSION)\b")


def check(project):
    result = Result()
    for path in project.code(with_tests=True):
        name = path.as_posix()
        if not name.startswith(CORE + ("tests/",)) or name.startswith(HOME):
            continue
        result.checked += 1
        for number, line in enumerate(without_comments(project.text(path)).splitlines(), 1):
            match = SYSTEM.match(line)
            if match:
                result.find(path, f"line {number}: asks for {match.group(1)}")
    return result
