"""A room includes only rooms below it, and always by the path from the root."""

from lint_checks.project import LOGIC, SETTINGS, SHELL_DATA, THEMES, Result

TITLE = "layer order"
MEND = ("Move what is asked for into a room that both may include, or hand it in from above. "
        "The rooms and what each may include stand in script/lint_checks/layers.py.")

PLATFORM = ("platform/",)
FOUNDATION = PLATFORM + ("foundation/",)
DATABASE = FOUNDATION + ("database/",)
BELOW_LOGIC = DATABASE + THEMES
BELOW_SETTINGS = BELOW_LOGIC + LOGIC
TOOLKIT = FOUNDATION + THEMES + ("toolkit/",)  # beside database: neither knows of the other
BELOW_WINDOWS = BELOW_SETTINGS + SETTINGS + ("toolkit/",) + SHELL_DATA
WINDOWS = BELOW_WINDOWS + ("windows/",)

# What a file below the first path may include. The longest path counts.
ALLOWED = {
    "platform/": PLATFORM,
    "foundation/": FOUNDATION,
    "database/": DATABASE,
    "toolkit/": TOOLKIT,
    "windows/": WINDOWS,
    "shell/": WINDOWS + ("shell/",),
    "cli/": BELOW_SETTINGS + SETTINGS + ("cli/",),
    **dict.fromkeys(THEMES, FOUNDATION + THEMES),
    **dict.fromkeys(LOGIC, BELOW_LOGIC + LOGIC),
    **dict.fromkeys(SETTINGS, BELOW_SETTINGS + SETTINGS),
    **dict.fromkeys(SHELL_DATA, BELOW_WINDOWS),
}

# The two systems' own halves of platform are nobody else's business.
PRIVATE = ("platform/posix/", "platform/win32/")


def longest_prefix(path, prefixes):
    return max((prefix for prefix in prefixes if path.startswith(prefix)), key=len, default=None)


def complaint(project, path, name):
    room = longest_prefix(path, ALLOWED)
    target = longest_prefix(name, ALLOWED)
    if target is None or not (project.root / name).is_file():
        return f'"{name}" is no file of the project by its path from the root'
    private = longest_prefix(name, PRIVATE)
    if private and not path.startswith(private):
        return f'"{name}" is of use to {private} alone'
    if target not in ALLOWED[room]:
        return f'{room} may not include "{name}"'
    return None


def check(project):
    result = Result()
    for path in project.code():
        result.checked += 1
        for number, mark, name in project.includes(path):
            fault = complaint(project, path.as_posix(), name) if mark == '"' else None
            if fault:
                result.find(path, f"line {number}: {fault}")
    return result
