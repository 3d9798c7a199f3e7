"""How long the files are: figures to look at, no verdict."""

import statistics

from lint_checks.project import ROOMS, Result

TITLE = "file sizes"
MEND = ""


def figures(project, label, paths):
    lengths = sorted((len(project.text(path).splitlines()), path.as_posix()) for path in paths)
    if not lengths:
        return f"{label}: none"
    counts = [length for length, _ in lengths]
    p90 = counts[min(len(counts) - 1, int(len(counts) * 0.9))]
    longest = lengths[-1]
    return (f"{label} ({len(counts)}): median {statistics.median_low(counts)}, p90 {p90}, "
            f"max {longest[0]} in {longest[1]}")


def check(project):
    kinds = (("sources", ROOMS, {".cpp"}), ("headers", ROOMS, {".h"}), ("tests", ("tests",), {".cpp", ".h"}))
    lines = [figures(project, label, project.files(folders, suffixes)) for label, folders, suffixes in kinds]
    return Result(note="; ".join(lines))
