"""Where master passwords come from, and `passwd`."""

from vmr import (
    DONE,
    FILE_FAILED,
    MASTER,
    NEW_MASTER,
    SECRET,
    USAGE,
    WRONG_PASSWORD,
    VmrTest,
    item,
)


class PasswordFromStandardInput(VmrTest):
    def opens(self, stdin, code=DONE):
        self.vmr("ls", "--password-stdin", self.file, stdin=stdin, code=code)

    def setUp(self):
        super().setUp()
        self.file = self.sample()

    def test_is_the_first_line(self):
        self.opens(MASTER + "\n")
        self.opens(MASTER + "\nsomething else\n")

    def test_may_lack_a_line_end(self):
        self.opens(MASTER)

    def test_may_end_as_on_windows(self):
        self.opens(MASTER + "\r\n")

    def test_keeps_blanks(self):
        for stdin in (" " + MASTER, MASTER + " \n", MASTER + "\t\n"):
            self.opens(stdin, code=WRONG_PASSWORD)

    def test_is_not_the_second_line(self):
        self.opens("\n" + MASTER, code=USAGE)

    def test_may_be_missing(self):
        self.opens("", code=USAGE)


class PasswordFromAFile(VmrTest):
    def setUp(self):
        super().setUp()
        self.file = self.sample()

    def opens(self, content, code=DONE):
        self.vmr("ls", "--password-file", self.write("p", content), self.file, code=code)

    def test_is_the_first_line(self):
        for content in (MASTER, MASTER + "\n", MASTER + "\r\n", MASTER + "\r\nnot this\r\n"):
            with self.subTest(content.replace(MASTER, "*")):
                self.opens(content)

    def test_keeps_blanks(self):
        self.opens(MASTER + " \n", code=WRONG_PASSWORD)

    def test_may_have_a_mark_of_utf_8(self):
        self.opens(b"\xef\xbb\xbf" + MASTER.encode() + b"\r\n")

    def test_that_is_missing_is_said(self):
        missing = self.path("nosuchfile")
        run = self.vmr("ls", "--password-file", missing, self.file, code=FILE_FAILED)
        self.assertIn("nosuchfile", run.message)

    def test_that_is_a_folder(self):
        self.vmr("ls", "--password-file", self.folder, self.file, code=FILE_FAILED)

    def test_has_precedence_over_nothing(self):
        self.vmr(
            "ls", "--password-file", self.master, "--password-stdin", self.file, stdin=MASTER, code=USAGE
        )


class WrongPassword(VmrTest):
    def test_is_refused_by_every_command(self):
        file = self.sample()
        before = file.read_bytes()
        for command in (
            ["info"], ["ls"], ["show", "Bank"], ["get", "Bank", "password"], ["dump"],
            ["add", "x"], ["set", "Bank", "username", "x"], ["rm", "Bank"], ["move", "Bank", "down"],
            ["merge", "Bank", "Mail"], ["rename", "x"], ["export", self.path("out.csv")],
            ["passwd", "--new-password-file", self.master],
        ):  # fmt: skip
            with self.subTest(command[0]):
                args = [command[0], "--password-file", self.new_master, file, *command[1:]]
                self.assertEqual(self.vmr(*args, code=WRONG_PASSWORD).out, b"")
        self.assert_unchanged(file, before)
        self.assertFalse(self.path("out.csv").exists())


class NoInput(VmrTest):
    def test_fails_instead_of_waiting(self):
        file = self.sample()
        self.vmr("ls", "--no-input", file, code=USAGE)
        self.vmr("new", "--no-input", "--name", "x", self.path("b.vmr"), code=USAGE)
        self.assertFalse(self.path("b.vmr").exists())

    def test_does_not_ask_for_a_new_password_either(self):
        file = self.sample()
        before = file.read_bytes()
        self.on("passwd", file, code=USAGE)
        self.assert_unchanged(file, before)

    def test_lets_the_other_sources_be(self):
        file = self.sample()
        self.vmr("ls", "--no-input", "--password-stdin", file, stdin=MASTER)
        self.vmr("ls", "--no-input", "--password-file", self.master, file)


class Passwd(VmrTest):
    def assert_has_new_password(self, file):
        self.on("ls", file, code=WRONG_PASSWORD)
        self.vmr("ls", "--password-file", self.new_master, file)

    def test_takes_the_new_one_from_a_file(self):
        file = self.sample()
        self.on("passwd", file, "--new-password-file", self.new_master)
        self.assert_has_new_password(file)

    def test_takes_the_new_one_from_a_file_made_on_windows(self):
        file = self.sample()
        self.on("passwd", file, "--new-password-file", self.write("crlf", NEW_MASTER + "\r\nmore\r\n"))
        self.assert_has_new_password(file)

    def test_takes_the_new_one_from_the_second_line(self):
        file = self.sample()
        self.vmr("passwd", "--password-stdin", file, stdin=f"{MASTER}\n{NEW_MASTER}\n")
        self.assert_has_new_password(file)

    def test_takes_the_old_one_from_input_and_the_new_one_from_a_file(self):
        file = self.sample()
        args = ["--password-stdin", "--new-password-file", self.new_master]
        self.vmr("passwd", *args, file, stdin=MASTER)
        self.assert_has_new_password(file)

    def test_leaves_the_content(self):
        file = self.sample()
        before = self.dump(file)
        self.on("passwd", file, "--new-password-file", self.new_master)
        self.assertEqual(self.vmr("dump", "--password-file", self.new_master, file).json, before)

    def test_prints_no_data(self):
        file = self.sample()
        self.assertEqual(self.on("passwd", file, "--new-password-file", self.new_master).out, b"")

    def test_refuses_an_empty_one(self):
        file = self.sample()
        before = file.read_bytes()
        for content in ("", "\n", "\nsecond line\n"):
            args = ["--new-password-file", self.write("empty", content)]
            self.on("passwd", file, *args, code=USAGE)
        self.assert_unchanged(file, before)

    def test_refuses_a_missing_second_line(self):
        file = self.sample()
        before = file.read_bytes()
        self.vmr("passwd", "--password-stdin", file, stdin=MASTER + "\n", code=USAGE)
        self.assert_unchanged(file, before)

    def test_says_if_the_file_of_the_new_one_is_missing(self):
        file = self.sample()
        before = file.read_bytes()
        self.on("passwd", file, "--new-password-file", self.path("none"), code=FILE_FAILED)
        self.assert_unchanged(file, before)


class SecretOnTheSameInput(VmrTest):
    """The master password is the first line; what a field is to hold comes behind it."""

    def test_of_set(self):
        file = self.make(item("a"))
        args = ["set", "--password-stdin", file, "a", "password", "--stdin"]
        self.vmr(*args, stdin=f"{MASTER}\n{SECRET}\n")
        self.assertEqual(self.on("get", file, "a", "password", "-n").text, SECRET)

    def test_of_add(self):
        file = self.make(item("a"))
        args = ["add", "--password-stdin", "--secret-stdin", file, "b"]
        self.vmr(*args, stdin=f"{MASTER}\n{SECRET}\n")
        self.assertEqual(self.on("get", file, "b", "password", "-n").text, SECRET)


class UnusualPassword(VmrTest):
    def roundtrip(self, password):
        self.masters.append(password)
        file = self.path("unusual.vmr")
        source = self.write("p", password + "\n")
        self.vmr("new", "--force", "--password-file", source, "--name", "x", file)
        self.vmr("ls", "--password-stdin", file, stdin=password + "\r\n")

    def test_of_one_blank(self):
        self.roundtrip(" ")

    def test_of_many_letters(self):
        self.roundtrip("long-password " * 70)

    def test_outside_the_basic_plane(self):
        self.roundtrip("密码🔑")
