"""The installer and what takes it away again, run silently under Wine.

RUNNER starts a Windows program, WINEPREFIX is the Wine prefix.
"""

import os
import subprocess
import tempfile
import unittest
from pathlib import Path

from building import FOLDER, first_release

RUNNER = os.environ.get("RUNNER", "").split()
UNINSTALL = r"HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Vaultmere"
SETTINGS = r"HKCU\Software\Tolvane\Vaultmere"
PROGRAM_ID = r"HKCU\Software\Classes\Tolvane.Vaultmere"
COMMAND = PROGRAM_ID + r"\shell\open\command"
TARGET = "C:\\place\\Vaultmere"
RUNNING = 2  # exit code of an installer that will not go on


def run(*command):
    """The exit code and what the command wrote. It writes into files: the first program with a window starts Wine's
    desktop, which keeps what it inherited, and a pipe would not end before the last window of any program is gone."""
    with tempfile.TemporaryFile() as out:
        files = {"stdin": subprocess.DEVNULL, "stdout": out, "stderr": subprocess.STDOUT}
        code = subprocess.run([*RUNNER, *command], **files, timeout=180, check=False).returncode
        out.seek(0)
        return code, out.read().decode(errors="replace")


def query(key, name=None):
    """The default or a named value of a key; None if there is none."""
    code, text = run("reg", "query", key, *(["/v", name] if name else ["/ve"]))
    found = [line.split("    ", 3)[3] for line in text.splitlines() if line.startswith("    ")]
    return found[0] if code == 0 and found else None


def drive():
    return Path(os.environ["WINEPREFIX"]) / "drive_c"


def target():
    return drive() / "place" / "Vaultmere"


def links():
    """Names of the folders in which a link to the program lies."""
    users = drive() / "users"
    return sorted(path.parent.name for path in users.rglob("Vaultmere.lnk"))


@unittest.skipUnless(RUNNER, "RUNNER starts no Windows program")
class Installer(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.setup = str(FOLDER / "first" / next(name for name in first_release() if name.endswith("-setup.exe")))
        for desktop in drive().glob("users/*/Desktop"):
            if desktop.is_symlink():  # to the desktop of whoever runs the tests
                desktop.unlink()
                desktop.mkdir()

    def setUp(self):
        run("reg", "delete", PROGRAM_ID, "/f")

    def tearDown(self):
        if (target() / "uninstall.exe").exists():
            self.uninstall()

    def install(self, *options):
        return run(self.setup, "/S", *options, "/D=" + TARGET)[0]

    def uninstall(self):
        # With its place given the program does its work itself; otherwise a copy of it would, after it has ended.
        return run(str(target() / "uninstall.exe"), "/S", "_?=" + TARGET)[0]

    def test_brings_the_files_of_the_zip_and_is_listed(self):
        self.assertEqual(self.install(), 0)
        for name in ("vaultmere.exe", "vmr.exe", "README.txt", "Lang/english.ini", "Theme/slate.ini"):
            self.assertTrue((target() / name).is_file(), name)
        self.assertEqual(query(UNINSTALL, "DisplayName"), "Vaultmere")
        self.assertEqual(query(UNINSTALL, "InstallLocation"), TARGET)
        self.assertEqual(links(), ["Programs"])
        self.assertIsNone(query(COMMAND), "the file type is the user's choice")

    def test_binds_the_file_type_and_puts_a_link_on_the_desktop_if_wanted(self):
        self.assertEqual(self.install("/FILETYPE", "/DESKTOP"), 0)
        self.assertEqual(query(COMMAND), TARGET + "\\vaultmere.exe %1")
        self.assertEqual(links(), ["Desktop", "Programs"])

    def test_goes_without_a_trace(self):
        self.assertEqual(self.install("/FILETYPE", "/DESKTOP"), 0)
        run("reg", "add", SETTINGS + r"\Settings", "/v", "AutoSave", "/d", "1", "/f")
        self.assertEqual(self.uninstall(), 0)
        (target() / "uninstall.exe").unlink(missing_ok=True)  # stays where the program's place was given
        self.assertEqual(list(target().rglob("*")), [])
        self.assertEqual(links(), [])
        for key in (UNINSTALL, SETTINGS, PROGRAM_ID):
            self.assertEqual(run("reg", "query", key)[0], 1, key)

    def test_leaves_what_the_user_put_there(self):
        self.assertEqual(self.install(), 0)
        (target() / "mine.VMR").write_bytes(b"mine")
        (target() / "Lang" / "mine.ini").write_bytes(b"mine")
        self.assertEqual(self.uninstall(), 0)
        self.assertEqual((target() / "mine.VMR").read_bytes(), b"mine")
        self.assertEqual([path.name for path in (target() / "Lang").iterdir()], ["mine.ini"])
        (target() / "mine.VMR").unlink()
        (target() / "Lang" / "mine.ini").unlink()

    def test_leaves_a_file_type_that_another_copy_has_by_now(self):
        self.assertEqual(self.install("/FILETYPE"), 0)
        run("reg", "add", COMMAND, "/ve", "/d", r"D:\other\vaultmere.exe %1", "/f")
        self.assertEqual(self.uninstall(), 0)
        self.assertEqual(query(COMMAND), r"D:\other\vaultmere.exe %1")

    def test_refuses_while_the_program_is_running(self):
        self.assertEqual(self.install(), 0)
        with subprocess.Popen([*RUNNER, str(target() / "vaultmere.exe")], stdin=subprocess.DEVNULL) as program:
            try:
                self.wait_for_refusal()
                self.assertEqual(self.uninstall(), RUNNING)
                self.assertTrue((target() / "vmr.exe").is_file())
            finally:
                run("taskkill", "/f", "/im", "vaultmere.exe")
                program.wait(60)

    def wait_for_refusal(self):
        """The program is there a moment after it was started."""
        codes = []
        while len(codes) < 20 and RUNNING not in codes:
            codes.append(self.install())
        self.assertEqual(codes[-1], RUNNING, codes)


if __name__ == "__main__":
    unittest.main()
