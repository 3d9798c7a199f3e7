"""What others can see of the process while it waits for a password."""

import os
import shutil
import subprocess
from pathlib import Path

from terminal import CTRL_C, Terminal
from vmr import PATIENCE, PROGRAM, VmrTest, command_line, environment

NOBODY = 65534


class WaitingProcess(VmrTest):
    def wait_at_prompt(self, program=PROGRAM, **options):
        """Starts the program and returns its folder in /proc."""
        self.terminal = Terminal(self.folder, [program, "ls", str(self.path("sample.vmr"))], **options)
        self.addCleanup(self.terminal.close)
        self.terminal.expect_prompt()
        return Path("/proc") / str(self.terminal.process)

    def end(self):
        self.terminal.type(CTRL_C)
        self.terminal.finish()

    def test_leaves_no_core_file(self):
        self.sample()
        process = self.wait_at_prompt()
        self.assertRegex((process / "limits").read_text(), r"Max core file size +0 +0 ")
        self.end()

    def test_lets_nobody_look_into_its_memory(self):
        """The system gives what it shows of such a process to root. To see that, it must not be root's."""
        self.sample()
        program, options, user = PROGRAM, {}, os.geteuid()
        if user == 0:
            self.folder.chmod(0o755)
            program, user = shutil.copy(PROGRAM, self.path("vmr")), NOBODY
            os.chown(self.path("sample.vmr"), user, user)
            options = {"user": user, "group": user}
        process = self.wait_at_prompt(str(program), **options)
        self.assertRegex((process / "status").read_text(), rf"(?m)^Uid:\s+{user}\s")
        self.assertEqual((process / "mem").stat().st_uid, 0)
        self.end()

    def test_has_no_secret_in_its_arguments_and_surroundings(self):
        self.sample()
        process = self.wait_at_prompt()
        for name in ("cmdline", "environ"):
            for secret in self.masters + self.secrets:
                self.assertNotIn(secret.encode(), (process / name).read_bytes())
        self.end()


class LibraryConfiguration(VmrTest):
    def test_does_not_decide_whether_a_database_opens(self):
        """A configuration that names a module which is not there leaves the library without any cipher."""
        file = self.sample()
        configuration = self.write(
            "openssl.cnf",
            "openssl_conf = main\n[main]\nproviders = list\n[list]\nlegacy = one\n"
            "[one]\nmodule = /nonexistent.so\nactivate = 1\n",
        )
        run = subprocess.run(
            command_line(["ls", "--password-file", self.master, file]),
            capture_output=True,
            env={**environment(), "OPENSSL_CONF": str(configuration)},
            timeout=PATIENCE,
            check=False,
        )
        self.assertEqual((run.returncode, run.stdout), (0, b"Bank\nEmpty\nMail\n"))
