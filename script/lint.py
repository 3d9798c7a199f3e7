#!/usr/bin/env python3
"""Runs the checks of lint_checks/ over the project: one line each, what was found, how to mend it.

The last line is "N passed, N failed", counted in checks; the exit status is 0 if none failed.
"""

import argparse
import sys

from lint_checks import (formatting, headers_alone, language_keys, layers, sizes, system_headers,
                         system_ifdef, tidy)
from lint_checks.project import Project

CHECKS = {
    "layers": layers,
    "headers-alone": headers_alone,
    "system-headers": system_headers,
    "system-ifdef": system_ifdef,
    "language-keys": language_keys,
    "format": formatting,
    "tidy": tidy,
    "sizes": sizes,
}


def report(module, result):
    """Prints a check's line and its findings; true if it passed, nothing if it only gives figures."""
    if not result.checked and result.note:
        print(f"{module.TITLE}: {result.note}", flush=True)
        return None
    note = f" ({result.note})" if result.note else ""
    print(f"{module.TITLE}: {result.passed} passed, {result.failed} failed{note}", flush=True)
    for subject, message in result.findings:
        print(f"    {subject}: " + message.replace("\n", "\n    "))
    if result.findings:
        print(f"    To mend it: {module.MEND}", flush=True)
    return not result.findings


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--root", default=".", help="the project's folder")
    parser.add_argument("--build", help="the build folder with the compile database (build/linux)")
    parser.add_argument("--only", action="append", choices=CHECKS, help="only this check; may be repeated")
    parser.add_argument("--list", action="store_true", help="print the formatted files, each ended by NUL")
    options = parser.parse_args()
    project = Project(options.root, options.build)
    if options.list:
        sys.stdout.write("".join(f"{path}\0" for path in project.code(with_tests=True)))
        return 0
    verdicts = [report(CHECKS[name], CHECKS[name].check(project)) for name in options.only or CHECKS]
    failed = verdicts.count(False)
    print(f"{verdicts.count(True)} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
