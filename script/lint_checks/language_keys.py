"""The texts that the code asks for and the texts that resources/english.ini holds are the same.

A key that only code still to come asks for, or that is asked for by a computed name, stands in
reserved_keys.txt, one "section key" a line; a key that the code does ask for must not.
"""

import re

from lint_checks.project import ROOMS, Result, without_comments

TITLE = "language keys"
MEND = ("Add the key to resources/english.ini, or mend its name where it is asked for; keep "
        "script/lint_checks/reserved_keys.txt to the keys that nothing asks for by a literal.")

LANGUAGE_FILE = "resources/english.ini"
RESERVED_FILE = "script/lint_checks/reserved_keys.txt"
DEFAULT_SECTION = "global"
TEXT = r'u"((?:\\.|[^"\\])*)"'
# SetText, of windows/, gives a control such a text.
CALL = r"\b(?:LangText\s*\(|SetText\s*\([^,()]*,)\s*"
ASKED = re.compile(CALL + r"(?:" + TEXT + r"|\{\s*\}|tvstring\s*(?:\(\s*\)|\{\s*\}))\s*,\s*" + TEXT)


def read_language_file(data):
    """([(section, key)], complaint) of the bytes of a language file, in its order and in lower case."""
    if data[:2] != b"\xff\xfe" or len(data) % 2 != 0:
        return [], "is not UTF-16LE with its mark"
    keys, section, continued = [], None, False
    for line in data[2:].decode("utf-16-le", errors="replace").split("\n"):
        line = line.strip(" \r\t")
        if not line or line[0] in "#;":
            continue
        starts, continued = not continued, (len(line) - len(line.rstrip("\\"))) % 2 == 1
        if not starts:
            continue
        if len(line) >= 2 and line[0] == "[" and line[-1] == "]":
            section = line[1:-1].lower()
        elif section and "=" in line[1:]:
            keys.append((section, line.split("=", 1)[0].strip().strip("\"'").lower()))
    return keys, None


def asked_keys(project):
    """{(section, key): where it is asked for first} of the code outside tests."""
    asked = {}
    for path in project.files(ROOMS, {".cpp", ".h"}):
        text = without_comments(project.text(path))
        for match in ASKED.finditer(text):
            section = (match.group(1) or DEFAULT_SECTION).lower()
            where = f"{path}:{text.count(chr(10), 0, match.start()) + 1}"
            asked.setdefault((section, match.group(2).lower()), where)
    return asked


def reserved_keys(project):
    path = project.root / RESERVED_FILE
    lines = path.read_text(encoding="utf-8").splitlines() if path.exists() else []
    pairs = [line.strip().split(None, 1) for line in lines if line.strip() and not line.startswith("#")]
    return {(section.lower(), key.lower()) for section, key in pairs}


def check(project):
    path = project.root / LANGUAGE_FILE
    keys, complaint = read_language_file(path.read_bytes()) if path.exists() else ([], "is missing")
    asked, reserved = asked_keys(project), reserved_keys(project)
    present = set(keys)
    result = Result(checked=len(present | set(asked) | reserved) or 1)
    if complaint:
        result.find(LANGUAGE_FILE, complaint)
        return result
    for section, key in sorted({pair for pair in keys if keys.count(pair) > 1}):
        result.find(f"[{section}] {key}", f"stands more than once in {LANGUAGE_FILE}")
    for section, key in sorted(set(asked) - present):
        result.find(f"[{section}] {key}", f"{asked[section, key]} asks for it; {LANGUAGE_FILE} lacks it")
    for section, key in sorted(present - set(asked) - reserved):
        result.find(f"[{section}] {key}", "nothing asks for it and it isn't reserved")
    for section, key in sorted(reserved & set(asked)):
        result.find(f"[{section}] {key}", f"{asked[section, key]} asks for it: take it off the reserved ones")
    for section, key in sorted(reserved - present):
        result.find(f"[{section}] {key}", f"is reserved, but {LANGUAGE_FILE} lacks it")
    return result
