#!/usr/bin/env python3
"""Line coverage of the core's rooms, from what the unit tests of the coverage build have left behind.

    script/coverage.py BUILD [--least PERCENT] [--missed]

A line counts as run if any object that holds it ran it. Prints a line for each room and, for a room below the
least, its files; --missed lists the lines that never ran. The last line is "N passed, N failed", in rooms.
"""

import argparse
import collections
import concurrent.futures
import json
import os
import pathlib
import subprocess
import sys

ROOMS = ("foundation", "database", "toolkit", "windows", "shell")


def line_counts(root, notes):
    """{path from the root: {line: how often it ran}} of one object."""
    run = subprocess.run(["gcov", "--json-format", "--stdout", str(notes)], capture_output=True, cwd=root,
                         check=True)
    counts = {}
    for document in filter(None, run.stdout.splitlines()):
        for entry in json.loads(document)["files"]:
            path = pathlib.Path(root, entry["file"]).resolve()
            if root in path.parents:
                lines = counts.setdefault(path.relative_to(root).as_posix(), collections.Counter())
                for line in entry["lines"]:
                    lines[line["line_number"]] += line["count"]
    return counts


def merged_counts(root, build):
    total = collections.defaultdict(collections.Counter)
    notes = sorted(path for path in build.rglob("*.gcno") if "googletest" not in path.parts)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count() or 2) as pool:
        for counts in pool.map(lambda path: line_counts(root, path), notes):
            for path, lines in counts.items():
                for line, count in lines.items():
                    total[path][line] += count
    return total


def percent(run, all_lines):
    return 100.0 * run / all_lines if all_lines else 0.0


def report_room(room, counts, options):
    """Prints the room's line and what it lacks; true if enough of it ran."""
    files = {path: lines for path, lines in sorted(counts.items()) if path.startswith(room + "/")}
    run = sum(1 for lines in files.values() for count in lines.values() if count)
    total = sum(len(lines) for lines in files.values())
    share = percent(run, total)
    print(f"{room}/: {share:.1f} % of {total} lines")
    for path, lines in files.items():
        missed = sorted(line for line, count in lines.items() if not count)
        if missed and (share < options.least or options.missed):
            print(f"    {path}: {percent(len(lines) - len(missed), len(lines)):.1f} %, "
                  f"not run: {', '.join(map(str, missed))}")
    return share >= options.least


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("--least", type=float, default=95.0)
    parser.add_argument("--missed", action="store_true")
    options = parser.parse_args()
    counts = merged_counts(pathlib.Path.cwd().resolve(), options.build.resolve())
    verdicts = [report_room(room, counts, options) for room in ROOMS]
    failed = verdicts.count(False)
    print(f"{len(verdicts) - failed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
