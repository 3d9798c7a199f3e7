"""Sources stand as clang-format would put them."""

import subprocess

from lint_checks.project import Result, in_parallel

TITLE = "clang-format"
MEND = "Run script/format."


def is_formatted(project, path):
    command = ["clang-format", "--dry-run", "-Werror", str(project.root / path)]
    return subprocess.run(command, capture_output=True, cwd=project.root, check=False).returncode == 0


def check(project):
    sources = project.code(with_tests=True)
    result = Result(checked=len(sources))
    for path, good in zip(sources, in_parallel(lambda source: is_formatted(project, source), sources)):
        if not good:
            result.find(path, "is not formatted")
    return result
