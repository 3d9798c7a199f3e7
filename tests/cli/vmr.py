"""Runs the program `vmr` for the tests, and looks after secrets on the way.

VMR         the program, native or Windows
VMR_RUNNER  what runs it, e.g. "wine"; nothing for a native program

Each test works in a temporary folder of its own. A path is handed over as a `Path`, so that it can be written
as a Windows program knows it; any other argument goes to the program as it stands.

The rules about secrets hold for every run and so are checked in every run: no secret among the arguments, no
master password in the output, no secret at all in what a failing run prints.
"""

import json
import os
import shlex
import subprocess
import tempfile
import unittest
from dataclasses import dataclass
from pathlib import Path

PROGRAM = os.path.abspath(os.environ.get("VMR", "build/linux/bin/vmr"))
RUNNER = shlex.split(os.environ.get("VMR_RUNNER", ""))
IS_NATIVE = not RUNNER

DONE = 0
FAILED = 1
USAGE = 2
NOT_FOUND = 3
FILE_FAILED = 4
NOT_A_DATABASE = 5
WRONG_PASSWORD = 6
LIMIT = 7
FOUND = 8
INTERRUPTED = 130

MASTER = "Kestrel-quartz 9!"
NEW_MASTER = "Über-Falke 東京 4711"
SECRET = "s3cr3t-entry-word"
MASTERS = [MASTER, NEW_MASTER]

DATE = "0x01dafebeb8f8f480"
REPOSITORY = Path(__file__).resolve().parents[2]

# A program that waits for something that never comes must not hold up the rest.
PATIENCE = 30


@dataclass
class Result:
    """How a run ended and what it printed."""

    code: int
    out: bytes
    err: bytes

    @property
    def text(self):
        return self.out.decode("utf-8")

    @property
    def message(self):
        return self.err.decode("utf-8")

    @property
    def json(self):
        return json.loads(self.text)


def entry(type_, text):
    return {"type": type_, "text": text}


def item(name, program="", username="", password="", notes=(), date=DATE):
    """An item as `dump` prints it, but for the readable date."""
    basic = [entry(3, program), entry(4, username), entry(5, password)]
    return {"name": name, "date": date, "entries": basic + [entry(6, note) for note in notes]}


def environment(own=None):
    """Nothing of the caller's surroundings may change what the program says."""
    env = {**os.environ, "LC_ALL": "C.UTF-8", "TZ": "UTC", **(own or {})}
    if not IS_NATIVE:
        env.setdefault("WINEDEBUG", "-all")
    return env


def argument(value):
    """An argument as the program gets it. Wine shows the whole file system as drive Z."""
    if isinstance(value, Path) and not IS_NATIVE:
        return "Z:" + str(value.absolute()).replace("/", "\\")
    return str(value)


def command_line(args):
    return [*RUNNER, PROGRAM, *map(argument, args)]


def forms_of(secret):
    return {secret.encode("utf-8", "surrogatepass"), secret.encode("utf-16-le", "surrogatepass")} - {b""}


class VmrTest(unittest.TestCase):
    """A test with a temporary folder and the program at hand."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="vmr-")
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name).resolve()
        self.masters = list(MASTERS)
        self.secrets = [SECRET]
        self.surroundings = {}  # environment variables of this test alone
        self.master = self.write("master.txt", MASTER + "\n")
        self.new_master = self.write("new-master.txt", NEW_MASTER + "\n")

    def path(self, name):
        return self.folder / name

    def write(self, name, content):
        """Makes a file in the test's folder from bytes or a text."""
        path = self.path(name)
        path.write_bytes(content.encode("utf-8") if isinstance(content, str) else content)
        return path

    # --- Running ---

    def vmr(self, *args, code=DONE, stdin=b""):
        """Runs the program to its end, which must be with the exit code `code`."""
        self.check_arguments(args)
        # Files, since a pipe would end only with Wine's own servers, which outlive the program.
        with tempfile.TemporaryFile() as out, tempfile.TemporaryFile() as err:
            run = subprocess.run(
                command_line(args),
                input=stdin.encode("utf-8") if isinstance(stdin, str) else stdin,
                stdout=out,
                stderr=err,
                env=environment(self.surroundings),
                timeout=PATIENCE,
                check=False,
            )
            out.seek(0)
            err.seek(0)
            result = Result(run.returncode, out.read(), err.read())
        self.check_result(args, result, code)
        return result

    def on(self, command, file, *args, **how):
        """Runs a command on a database that has the usual master password."""
        return self.vmr(command, "--no-input", "--password-file", self.master, file, *args, **how)

    def check_arguments(self, args):
        for secret in filter(str.strip, self.masters + self.secrets):
            for arg in args:
                self.assertNotIn(secret, str(arg), "a secret among the arguments")

    def check_result(self, args, result, code):
        shown = f"vmr {' '.join(map(str, args))}\n{result.message}"
        self.assertEqual(result.code, code, shown)
        self.check_leaks(result, shown)
        if code not in (DONE, FOUND):
            self.assertNotEqual(result.err, b"", f"a failure without a message: {shown}")
            self.assertNotIn("terminate called", result.message)

    def check_leaks(self, result, shown):
        silent = self.masters + (self.secrets if result.code != DONE else [])
        for secret in filter(str.strip, silent):
            for form in forms_of(secret):
                self.assertNotIn(form, result.out, f"a secret in the output of {shown}")
        for secret in filter(str.strip, self.masters + self.secrets):
            for form in forms_of(secret):
                self.assertNotIn(form, result.err, f"a secret in the messages of {shown}")

    # --- Databases ---

    def make(self, *items, name="Sample", file="sample.vmr"):
        """A database with the given items and the usual master password, made anew; returns its path."""
        path = self.path(file)
        path.unlink(missing_ok=True)
        content = json.dumps({"version": 1, "name": name, "items": list(items)})
        source = self.write("source.json", content)
        self.vmr("load", "--no-input", "--password-file", self.master, source, path)
        return path

    def sample(self):
        """Three items: a full one, one without anything in it, one with two additional entries."""
        return self.make(
            item("Bank", "https://bank.example/", "erika", SECRET),
            item("Empty"),
            item("Mail", "mail.exe", "erika@example", "", ["first note", "second\r\nnote"]),
        )

    def dump(self, file, **how):
        return self.on("dump", file, **how).json

    def names(self, file):
        return [entry["name"] for entry in self.dump(file)["items"]]

    def texts(self, file, position=1):
        """The entries of the item at the position, as pairs of type and text."""
        chosen = self.dump(file)["items"][position - 1]
        return [(one["type"], one["text"]) for one in chosen["entries"]]

    def assert_unchanged(self, file, before):
        self.assertEqual(file.read_bytes(), before, "the file has changed")


def without_modified(content):
    """A dump without the readable dates, which `load` takes no notice of."""
    items = [{key: one[key] for key in ("name", "date", "entries")} for one in content["items"]]
    return {**content, "items": items}
