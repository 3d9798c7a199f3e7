"""Standard streams that take no more, or are not there."""

import json
import os
import signal
import subprocess

from vmr import FILE_FAILED, NOT_A_DATABASE, PATIENCE, Result, VmrTest, command_line, environment, item


class StreamTest(VmrTest):
    def run_with(self, args, code, **streams):
        """Runs the program with streams given as Popen takes them."""
        self.check_arguments(args)
        run = subprocess.run(
            command_line(args), env=environment(), timeout=PATIENCE, check=False, **streams
        )
        result = Result(run.returncode, run.stdout or b"", run.stderr or b"")
        self.assertEqual(result.code, code, result.message)
        self.check_leaks(result, str(args))
        return result

    def printing(self, file):
        """Command lines that print something."""
        password = ["--password-file", self.master]
        for command in (["ls"], ["info"], ["dump"], ["show", "@1"], ["get", "@1", "name"], ["ls", "--json"]):
            yield [command[0], *password, file, *command[1:]]
        yield ["--help"]
        yield ["ls", "--help"]
        yield ["--version"]
        yield ["--exit-codes"]
        yield ["--man"]


class OutputThatTakesNoMore(StreamTest):
    def test_on_a_full_disk(self):
        for args in self.printing(self.sample()):
            with self.subTest(str(args)), open("/dev/full", "wb") as full:
                run = self.run_with(args, FILE_FAILED, stdout=full, stderr=subprocess.PIPE)
                self.assertNotEqual(run.err, b"")
                self.assertNotIn("terminate", run.message)

    def test_into_a_closed_pipe(self):
        for args in self.printing(self.sample()):
            for ignored in (False, True):
                with self.subTest(f"{args} {ignored}"):
                    self.into_closed_pipe(args, restore_signals=not ignored)

    def into_closed_pipe(self, args, **how):
        reader, writer = os.pipe()
        os.close(reader)
        try:
            self.run_with(args, FILE_FAILED, stdout=writer, stderr=subprocess.PIPE, **how)
        finally:
            os.close(writer)

    def test_into_a_pipe_closed_half_way(self):
        file = self.make(*(item(f"item {n}", "x" * 500) for n in range(1000)))
        process = subprocess.Popen(
            command_line(["dump", "--password-file", self.master, file]),
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            env=environment(),
        )
        with process:
            process.stdout.read(1000)
            process.stdout.close()
            self.assertNotIn(b"terminate", process.stderr.read())
        self.assertEqual(process.returncode, FILE_FAILED)

    def test_messages_that_nobody_takes_change_nothing(self):
        file = self.sample()
        with open("/dev/full", "wb") as full:
            args = ["show", "--password-file", self.master, file, "Bank"]
            run = self.run_with(args, 0, stdout=subprocess.PIPE, stderr=full)
            self.assertIn("Bank", run.text)
            self.run_with(["ls", self.path("none")], FILE_FAILED, stdout=subprocess.PIPE, stderr=full)


class StreamsThatAreNotThere(StreamTest):
    """The first file opened would take the place of a closed stream, and messages would go into it."""

    def closed(self, *numbers):
        def close():
            for number in numbers:
                os.close(number)

        return close

    def test_leave_the_database_as_it_is(self):
        file = self.sample()
        before = file.read_bytes()
        for numbers in ((0,), (1,), (2,), (0, 1), (1, 2), (0, 1, 2)):
            for command in (["ls"], ["get", "none", "name"], ["show", "Bank"]):
                with self.subTest(f"{numbers} {command}"):
                    args = [command[0], "--password-file", self.master, file, *command[1:]]
                    subprocess.run(
                        command_line(args),
                        stdout=subprocess.DEVNULL,
                        stderr=subprocess.DEVNULL,
                        env=environment(),
                        preexec_fn=self.closed(*numbers),
                        timeout=PATIENCE,
                        check=False,
                    )
                    self.assert_unchanged(file, before)

    def test_do_not_hinder_a_change(self):
        file = self.make(item("a"))
        args = ["add", "--password-file", self.master, file, "b"]
        self.run_with(args, 0, preexec_fn=self.closed(0, 1, 2))
        self.assertEqual(self.names(file), ["a", "b"])

    def test_without_output_is_a_failure_to_write(self):
        args = ["ls", "--password-file", self.master, self.sample()]
        self.run_with(args, FILE_FAILED, stderr=subprocess.PIPE, preexec_fn=self.closed(1))


class PipeInsteadOfAFile(StreamTest):
    def run_in_shell(self, script, *args):
        return subprocess.run(
            ["bash", "-c", script, "bash", *command_line(args)],
            capture_output=True,
            env=environment(),
            timeout=PATIENCE,
            check=True,
        )

    def test_may_give_the_password(self):
        script = f'"$1" ls --password-file <(cat "{self.master}") "$2"'
        run = self.run_in_shell(script, self.sample())
        self.assertEqual(run.stdout, b"Bank\nEmpty\nMail\n")

    def test_may_take_an_export_however_slowly(self):
        file = self.make(*(item(f"item {n}", "x" * 500) for n in range(1000)))
        self.on("export", file, self.path("out.csv"))
        export = f'"$1" export --password-file "{self.master}" "$2" /dev/stdout'
        script = f"set -o pipefail; {export} | (sleep 0.3; cat)"
        self.assertEqual(self.run_in_shell(script, file).stdout, self.path("out.csv").read_bytes())

    def test_without_a_writer_is_no_database(self):
        pipe = self.path("pipe")
        os.mkfifo(pipe)
        self.on("ls", pipe, code=NOT_A_DATABASE)


class InputThatNeverComes(StreamTest):
    def test_can_be_interrupted(self):
        reader, writer = os.pipe()
        process = subprocess.Popen(
            command_line(["load", "--password-file", self.master, "-", self.path("a.vmr")]),
            stdin=reader,
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            env=environment(),
            preexec_fn=lambda: signal.signal(signal.SIGINT, signal.SIG_DFL),  # a job in the background ignores it
        )
        os.close(reader)
        with process, os.fdopen(writer, "wb") as pipe:
            pipe.write(json.dumps({"version": 1}).encode()[:-1])
            pipe.flush()
            process.send_signal(signal.SIGINT)
            process.wait(PATIENCE)
        self.assertIn(process.returncode, (-signal.SIGINT, 130))
        self.assertFalse(self.path("a.vmr").exists())
