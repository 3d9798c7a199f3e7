"""clang-tidy over every source of the rooms.

What a source looked like when it was found clean (its preprocessed text, the project's files in it, the flags,
the configuration, the tool's version) is kept as a hash under build/lint-cache, so that a second run looks
only at what has changed.
"""

import hashlib
import json
import pathlib
import re
import shlex
import subprocess

from lint_checks.project import ROOMS, Result, in_parallel, is_for_windows

TITLE = "clang-tidy"
MEND = ("Change the code as the finding says. Where the code is right and the finding isn't, write "
        "NOLINTNEXTLINE(check): reason at the line; what suits the whole project goes to .clang-tidy with its reason.")

MINGW = "x86_64-w64-mingw32"
LINE_MARKER = re.compile(rb'^# \d+ "([^"<]+)"', re.MULTILINE)


def native_commands(project):
    """{source: (working folder, flags)} of the sources in the rooms, from the compile database.

    platform/ is built twice; the later entry, the one with fault points, has all of the code.
    """
    entries = json.loads((project.build / "compile_commands.json").read_text(encoding="utf-8"))
    commands = {}
    for entry in entries:
        source = pathlib.Path(entry["directory"], entry["file"]).resolve()
        if project.root not in source.parents:
            continue
        source = source.relative_to(project.root)
        if source.parts[0] in ROOMS and source.suffix == ".cpp":
            commands[source] = (entry["directory"], flags_of(entry))
    return commands


def flags_of(entry):
    words = entry.get("arguments") or shlex.split(entry["command"])
    compiler = next(i for i, word in enumerate(words) if re.search(r"(\+\+|g?cc|clang)(-\d+)?$", word))
    flags, skip = [], False
    for word in words[compiler + 1:]:
        if skip:
            skip = False
        elif word == "-o":
            skip = True
        elif word != "-c" and word != entry["file"]:
            flags.append(word)
    return flags


def windows_commands(project):
    """The same for what is for Windows alone, which the native build doesn't know."""
    sources = [source for source in project.files(ROOMS, {".cpp"}) if is_for_windows(source)]
    if not sources:
        return {}
    library = subprocess.run([f"{MINGW}-g++-posix", "-print-file-name=include/c++"], capture_output=True,
                             text=True, check=True).stdout.strip()
    flags = ["--target=x86_64-w64-windows-gnu", "-std=c++20", "-Wall", "-Wextra", "-Wpedantic", "-Wconversion",
             "-Wshadow", f"-I{project.root}", "-DVAULTMERE_FAULTS"]
    for folder in (library, f"{library}/{MINGW}", f"{library}/backward"):
        flags += ["-isystem", folder]
    return {source: (str(project.root), flags) for source in sources}


class Tidy:
    def __init__(self, project):
        self.project = project
        self.config = project.root / ".clang-tidy"
        self.cache = project.root / "build" / "lint-cache"
        self.cache.mkdir(parents=True, exist_ok=True)
        version = subprocess.run(["clang-tidy", "--version"], capture_output=True, check=True).stdout
        self.basis = version + self.config.read_bytes()
        self.reused = 0

    def key(self, source, folder, flags):
        """The hash that stands for this source as it is; nothing if it can't be preprocessed."""
        run = subprocess.run(["clang++", "-E", "-dD", *flags, str(self.project.root / source)],
                             capture_output=True, cwd=folder, check=False)
        if run.returncode != 0:
            return None
        parts = [self.basis, " ".join(flags).encode(), run.stdout, *self.own_files(folder, run.stdout)]
        return hashlib.sha256(b"\0".join(parts)).hexdigest()

    def own_files(self, folder, preprocessed):
        """The bytes of the project's files in a preprocessed text, whose comments may answer for findings."""
        names = {name.decode() for name in LINE_MARKER.findall(preprocessed)}
        paths = sorted({pathlib.Path(folder, name).resolve() for name in names})
        return [path.read_bytes() for path in paths if self.project.root in path.parents and path.is_file()]

    def findings(self, job):
        """(hash, the tool's output or nothing) for one source."""
        source, (folder, flags) = job
        key = self.key(source, folder, flags)
        if key and (self.cache / key).exists():
            self.reused += 1
            return key, None
        run = subprocess.run(
            ["clang-tidy", "--quiet", f"--config-file={self.config}", str(self.project.root / source), "--", *flags],
            capture_output=True, text=True, cwd=folder, check=False)
        if run.returncode != 0 or re.search(r": (warning|error): ", run.stdout):
            return key, run.stdout.strip() or run.stderr.strip()
        if key:
            (self.cache / key).touch()
        return key, None

    def forget_all_but(self, keys):
        for path in self.cache.iterdir():
            if path.name not in keys:
                path.unlink()


def check(project):
    result = Result()
    if not (project.build / "compile_commands.json").exists():
        result.checked = 1
        result.find(project.build, "no compile_commands.json; configure with: cmake --preset linux")
        return result
    tidy = Tidy(project)
    jobs = sorted({**windows_commands(project), **native_commands(project)}.items())
    result.checked = len(jobs)
    outcomes = in_parallel(tidy.findings, jobs)
    for (source, _), (_, output) in zip(jobs, outcomes):
        if output is not None:
            result.find(source, output)
    tidy.forget_all_but({key for key, _ in outcomes})
    result.note = f"{tidy.reused} of {result.checked} as found clean before"
    return result
