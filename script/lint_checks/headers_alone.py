"""Each header compiles alone, with the warnings of the build."""

import subprocess

from lint_checks.project import ROOMS, Result, in_parallel, is_for_windows

TITLE = "each header compiles alone"
MEND = "Include in the header what it uses, or declare it there."

WARNINGS = ["-Wall", "-Wextra", "-Wpedantic", "-Wconversion", "-Wshadow", "-Werror"]
NATIVE = "g++"
WINDOWS = "x86_64-w64-mingw32-g++-posix"
GOOGLETEST = ("-isystem", "/usr/src/googletest/googletest/include")  # which the cross compiler does not find by itself


def compiler_for(path):
    return WINDOWS if is_for_windows(path) else NATIVE


def definitions(path):
    return ["-DVAULTMERE_FAULTS"] if path.parts[0] == "tests" else []


def diagnostics(project, path):
    command = [compiler_for(path), "-std=c++20", *WARNINGS, *definitions(path), "-fsyntax-only",
               "-I", str(project.root), *GOOGLETEST, "-x", "c++", "-include", str(project.root / path), "/dev/null"]
    run = subprocess.run(command, capture_output=True, text=True, cwd=project.root, check=False)
    return None if run.returncode == 0 else run.stderr.strip()


def check(project):
    headers = project.files(ROOMS + ("tests",), {".h"})
    result = Result(checked=len(headers))
    for path, output in zip(headers, in_parallel(lambda header: diagnostics(project, header), headers)):
        if output is not None:
            result.find(path, output)
    return result
