"""clang-tidy over every source of the rooms.

Most of the time goes into the headers of the systems, so that several sources are looked at as one text. Those at whose
lines something is found are then looked at for themselves, and so are those that cannot stand in one text with others.

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
import tempfile

from lint_checks.project import INCLUDE, ROOMS, Result, in_parallel, is_for_windows

TITLE = "clang-tidy"
MEND = ("Change the code as the finding says. Where the code is right and the finding isn't, write "
        "NOLINTNEXTLINE(check): reason at the line; what suits the whole project goes to .clang-tidy with its reason.")

TOGETHER = 16  # sources in one text

MINGW = "x86_64-w64-mingw32"
FAULT = re.compile(r"^(.+?):(\d+):\d+: (?:warning|error|fatal error): ", re.MULTILINE)
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

    def is_known(self, key):
        return key is not None and (self.cache / key).exists()

    def command(self, path, flags):
        return ["clang-tidy", "--quiet", f"--config-file={self.config}", str(path), "--", *flags]

    def look_at(self, source, folder, flags):
        """What the tool says of a source; nothing if it finds nothing."""
        run = subprocess.run(self.command(self.project.root / source, flags), capture_output=True, text=True, cwd=folder,
                             check=False)
        if run.returncode != 0 or re.search(r": (warning|error): ", run.stdout):
            return run.stdout.strip() or run.stderr.strip()
        return None

    def findings(self, jobs):
        """[(source, the tool's output)] of those of the jobs in which something is found; the jobs share their flags."""
        folder, flags = jobs[0][1]
        with tempfile.TemporaryDirectory() as temporary:
            path = pathlib.Path(temporary, "sources.cpp")
            compiler = ["clang++", "-fsyntax-only", "-ferror-limit=0", *flags, str(path)]
            together, alone = [source for source, _ in jobs], []
            while len(together) > 1 and (faulty := self.faulty(together, path, compiler, folder)):
                together = [source for source in together if source not in faulty]
                alone += faulty
            alone += together if len(together) < 2 else self.faulty(together, path, self.command(path, flags), folder)
        outputs = [(source, self.look_at(source, folder, flags)) for source in sorted(alone)]
        return [(source, output) for source, output in outputs if output is not None]

    def faulty(self, sources, path, command, folder):
        """Those of the sources at whose lines the command finds fault with all of them as one text, in `path`; all of
        them if it finds fault elsewhere."""
        lines = in_one_text({source: self.project.text(source) for source in sources})
        path.write_text("".join(line + "\n" for _, line in lines), encoding="utf-8")
        run = subprocess.run(command, capture_output=True, text=True, cwd=folder, check=False)
        told = FAULT.findall(run.stdout + run.stderr)
        if not told and run.returncode == 0:
            return []
        named = [lines[int(number) - 1][0] for name, number in told if name == str(path)]
        return sorted(set(named)) if named and len(named) == len(told) else sources

    def keep(self, keys):
        """These hashes, and no others, stand for clean sources."""
        for path in self.cache.iterdir():
            if path.name not in keys:
                path.unlink()
        for key in keys:
            (self.cache / key).touch()


def in_one_text(sources):
    """[(source, line)] of the sources, {source: text}, one after the other. What one before has included is included
    once less."""
    included, lines = set(), []
    for source, text in sources.items():
        own = text.splitlines()
        before = set(included)
        for line in own:
            lines.append((source, "" if line in before else line))
            before.discard(line)
        included.update(line for line in own if INCLUDE.match(line))
    return lines


def groups(jobs):
    """The jobs in groups of the same flags and room."""
    together = {}
    for job in jobs:
        source, (folder, flags) = job
        together.setdefault((source.parts[0], folder, tuple(flags)), []).append(job)
    return [alike[start:start + TOGETHER] for alike in together.values() for start in range(0, len(alike), TOGETHER)]


def check(project):
    result = Result()
    if not (project.build / "compile_commands.json").exists():
        result.checked = 1
        result.find(project.build, "no compile_commands.json; configure with: cmake --preset linux")
        return result
    tidy = Tidy(project)
    jobs = sorted({**windows_commands(project), **native_commands(project)}.items())
    keys = dict(zip((source for source, _ in jobs), in_parallel(lambda job: tidy.key(job[0], *job[1]), jobs)))
    new = [job for job in jobs if not tidy.is_known(keys[job[0]])]
    found = [finding for group in in_parallel(tidy.findings, groups(new)) for finding in group]
    for source, output in found:
        result.find(source, output)
    faulty = {source for source, _ in found}
    tidy.keep({key for source, key in keys.items() if key is not None and source not in faulty})
    result.checked = len(jobs)
    result.note = f"{len(jobs) - len(new)} of {len(jobs)} as found clean before"
    return result
