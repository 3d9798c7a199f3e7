"""What messages say, and what they keep from a terminal."""

from vmr import FILE_FAILED, IS_NATIVE, REPOSITORY, USAGE, VmrTest


class Messages(VmrTest):
    def test_hold_no_control_characters_of_a_path(self):
        if not IS_NATIVE:
            self.skipTest("a Windows path holds none")
        run = self.vmr("ls", self.path("a\x1b[2J\x7f\u009b\nb.vmr"), code=FILE_FAILED)
        self.assertEqual([sign for sign in run.message if sign < " " or "\x7f" <= sign < "\xa0"], ["\n"])
        self.assertTrue(run.message.endswith("\n"))
        self.assertIn("a?[2J???b.vmr", run.message)

    def test_name_the_commands_of_a_family(self):
        run = self.vmr("lang", code=USAGE)
        self.assertIn("check, dump, text", run.message)
        run = self.vmr("theme", "--json", code=USAGE)
        self.assertIn("check, show", run.message)


class ExportOntoItself(VmrTest):
    def test_is_refused_whatever_the_name(self):
        for data in (self.sample(), self.old_database()):
            before = data.read_bytes()
            for name in (data, data.parent / "." / data.name, data.parent / ".." / data.parent.name / data.name):
                self.on("export", data, name, code=FILE_FAILED)
            self.assert_unchanged(data, before)

    def old_database(self):
        return self.write("old.vmr", (REPOSITORY / "tests/data/database/old-long.vmr").read_bytes())
