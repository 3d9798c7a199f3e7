"""Prompts for passwords on a terminal."""

import shutil
import signal
import subprocess
import termios
from pathlib import Path

from terminal import CTRL_BACKSLASH, CTRL_C, CTRL_D, LOCAL_FLAGS, ERASE, Terminal
from vmr import (
    DONE,
    FAILED,
    INTERRUPTED,
    MASTER,
    NEW_MASTER,
    PATIENCE,
    REPOSITORY,
    SECRET,
    USAGE,
    WRONG_PASSWORD,
    VmrTest,
    command_line,
    environment,
    item,
)


class PromptTest(VmrTest):
    def start(self, *args, **how):
        self.check_arguments(args)
        terminal = Terminal(self.folder, command_line(args), **how)
        self.addCleanup(terminal.close)
        self.command = args
        return terminal

    def finish(self, terminal, code=DONE):
        """Ends the session; the terminal must be as it was and must have shown no secret."""
        run = terminal.finish()
        self.check_result(self.command, run, code)
        self.assertEqual(terminal.after, terminal.before, "the terminal's settings")
        for secret in self.masters + self.secrets:
            self.assertNotIn(secret.encode(), terminal.screen)
        return run

    def ask(self, *args, answers, code=DONE, **how):
        terminal = self.start(*args, **how)
        for number, answer in enumerate(answers, 1):
            terminal.answer(answer, number)
        run = self.finish(terminal, code)
        self.assertEqual(terminal.screen.count(b": "), len(answers), terminal.screen)
        return run


class Prompt(PromptTest):
    def test_opens_the_database(self):
        run = self.ask("ls", self.sample(), answers=[MASTER])
        self.assertEqual(run.text, "Bank\nEmpty\nMail\n")

    def test_stands_on_the_terminal_only(self):
        terminal = self.start("ls", self.sample())
        terminal.answer(MASTER)
        run = self.finish(terminal)
        self.assertEqual(run.text, "Bank\nEmpty\nMail\n")
        self.assertEqual(run.err, b"")
        self.assertIn(b"assword", terminal.screen)

    def test_names_the_file(self):
        terminal = self.start("ls", self.sample())
        terminal.answer(MASTER)
        self.finish(terminal)
        self.assertIn(b"sample.vmr", terminal.screen)

    def test_ends_its_line_although_nothing_is_echoed(self):
        terminal = self.start("ls", self.sample())
        terminal.answer(MASTER)
        self.finish(terminal)
        self.assertTrue(terminal.screen.endswith(b": \r\n"), terminal.screen)

    def test_has_the_echo_off_before_it_shows(self):
        terminal = self.start("ls", self.sample())
        self.assertTrue(terminal.before[LOCAL_FLAGS] & termios.ECHO)
        terminal.expect_prompt()
        self.assertFalse(terminal.echoes())
        terminal.type(MASTER + "\n")
        self.finish(terminal)

    def test_lets_typing_be_corrected(self):
        self.ask("ls", self.sample(), answers=["x" + ERASE + MASTER + "yz" + ERASE * 2])

    def test_takes_letters_outside_ascii(self):
        file = self.sample()
        self.on("passwd", file, "--new-password-file", self.new_master)
        self.ask("ls", file, answers=[NEW_MASTER])

    def test_takes_a_long_password(self):
        long = "long-password " * 100
        file = self.path("a.vmr")
        self.vmr("new", "--password-stdin", "--name", "x", file, stdin=long)
        self.ask("ls", file, answers=[long])

    def test_tells_of_a_wrong_password(self):
        self.ask("ls", self.sample(), answers=["wrong"], code=WRONG_PASSWORD)

    def test_leaves_standard_input_alone(self):
        file = self.make(item("a"))
        source = self.write("value", SECRET + "\n")
        self.ask("set", file, "a", "password", "--stdin", answers=[MASTER], stdin=source)
        self.assertEqual(self.on("get", file, "a", "password", "-n").text, SECRET)

    def test_leaves_an_echo_that_was_off(self):
        def echo_off(terminal):
            settings = termios.tcgetattr(terminal)
            settings[LOCAL_FLAGS] &= ~termios.ECHO
            termios.tcsetattr(terminal, termios.TCSANOW, settings)

        self.ask("ls", self.sample(), answers=[MASTER], prepare=echo_off)

    def test_refuses_an_empty_answer(self):
        self.ask("ls", self.sample(), answers=[""], code=USAGE)


class PromptInterrupted(PromptTest):
    def interrupted(self, end, code):
        file = self.sample()
        before = file.read_bytes()
        terminal = self.start("add", file, "x")
        terminal.expect_prompt()
        terminal.type("half a pass")
        end(terminal)
        run = self.finish(terminal, code)
        self.assertEqual(run.out, b"")
        self.assertNotIn(b"half", terminal.screen)
        self.assert_unchanged(file, before)

    def check_result(self, args, result, code):
        self.assertEqual(result.code, code, result.message)
        self.check_leaks(result, str(args))

    def test_by_ctrl_c(self):
        self.interrupted(lambda terminal: terminal.type(CTRL_C), INTERRUPTED)

    def test_by_an_interrupt_from_elsewhere(self):
        self.interrupted(lambda terminal: terminal.signal(signal.SIGINT), INTERRUPTED)

    def test_by_ctrl_backslash(self):
        self.interrupted(lambda terminal: terminal.type(CTRL_BACKSLASH), 128 + signal.SIGQUIT)

    def test_by_an_order_to_end(self):
        self.interrupted(lambda terminal: terminal.signal(signal.SIGTERM), 128 + signal.SIGTERM)

    def test_by_a_hangup(self):
        self.interrupted(lambda terminal: terminal.signal(signal.SIGHUP), 128 + signal.SIGHUP)

    def test_leaves_nothing_of_the_answer_to_the_shell(self):
        terminal = self.start("ls", self.sample())
        terminal.expect_prompt()
        terminal.type("half a pass")
        terminal.signal(signal.SIGTERM)
        self.assertEqual(terminal.finish().code, 128 + signal.SIGTERM)
        self.assertEqual(terminal.left_over, b"")

    def test_by_the_end_of_input(self):
        terminal = self.start("ls", self.sample())
        terminal.expect_prompt()
        terminal.type(CTRL_D)
        run = terminal.finish()
        self.assertNotEqual(run.code, DONE)
        self.assertEqual(run.out, b"")
        self.assertEqual(terminal.after, terminal.before)

    def test_at_the_second_question(self):
        file = self.sample()
        before = file.read_bytes()
        terminal = self.start("passwd", file)
        terminal.answer(MASTER)
        terminal.expect_prompt(2)
        terminal.type(CTRL_C)
        self.finish(terminal, INTERRUPTED)
        self.assert_unchanged(file, before)


class PromptSuspended(PromptTest):
    def is_stopped(self, terminal):
        status = Path(f"/proc/{terminal.process}/stat").read_text()
        return status.rpartition(")")[2].split()[0] == "T"

    def test_gives_the_echo_back_and_asks_again_later(self):
        terminal = self.start("ls", self.sample())
        terminal.expect_prompt()
        terminal.type("half a pass")
        terminal.signal(signal.SIGTSTP)
        terminal.wait_until(lambda: self.is_stopped(terminal), "the program to stop")
        self.assertTrue(terminal.echoes())
        terminal.signal(signal.SIGCONT)
        terminal.expect_prompt(2)
        self.assertFalse(terminal.echoes())
        terminal.type(MASTER + "\n")
        self.assertEqual(self.finish(terminal).text, "Bank\nEmpty\nMail\n")


class PromptForANewPassword(PromptTest):
    def test_asks_twice(self):
        file = self.path("a.vmr")
        self.ask("new", "--name", "x", file, answers=[MASTER, MASTER])
        self.on("ls", file)

    def test_makes_nothing_of_two_that_differ(self):
        file = self.path("a.vmr")
        run = self.ask("new", "--name", "x", file, answers=[MASTER, MASTER + "x"], code=FAILED)
        self.assertIn("match", run.message)
        self.assertFalse(file.exists())

    def test_of_passwd_follows_the_old_one(self):
        file = self.sample()
        self.ask("passwd", file, answers=[MASTER, NEW_MASTER, NEW_MASTER])
        self.vmr("ls", "--password-file", self.new_master, file)

    def test_of_passwd_leaves_the_file_if_they_differ(self):
        file = self.sample()
        before = file.read_bytes()
        self.ask("passwd", file, answers=[MASTER, NEW_MASTER, NEW_MASTER + " "], code=FAILED)
        self.assert_unchanged(file, before)

    def test_of_passwd_comes_only_if_the_old_one_is_right(self):
        file = self.sample()
        self.ask("passwd", file, answers=["wrong"], code=WRONG_PASSWORD)

    def test_may_come_from_a_file_while_the_old_one_is_asked(self):
        file = self.sample()
        self.ask("passwd", "--new-password-file", self.new_master, file, answers=[MASTER])
        self.vmr("ls", "--password-file", self.new_master, file)

    def test_is_asked_while_the_old_one_comes_from_a_file(self):
        file = self.sample()
        self.ask("passwd", "--password-file", self.master, file, answers=[NEW_MASTER, NEW_MASTER])
        self.vmr("ls", "--password-file", self.new_master, file)

    def test_of_convert(self):
        new = self.path("new.vmr")
        old = self.path("old.vmr")
        shutil.copyfile(REPOSITORY / "tests" / "data" / "database" / "old-long.vmr", old)
        self.ask("convert", old, new, answers=["alt", MASTER, MASTER])
        self.on("ls", new)

    def test_of_load(self):
        source = self.write("a.json", '{"version":1,"name":"x","items":[]}')
        self.ask("load", source, self.path("a.vmr"), answers=[MASTER, MASTER])
        self.on("ls", self.path("a.vmr"))


class PromptForAnItemsPassword(PromptTest):
    def test_asks_twice(self):
        file = self.make(item("a"))
        self.ask("set", "--password-file", self.master, file, "a", "password", answers=[SECRET, SECRET])
        self.assertEqual(self.on("get", file, "a", "password", "-n").text, SECRET)

    def test_changes_nothing_if_they_differ(self):
        file = self.make(item("a"))
        before = file.read_bytes()
        self.ask("set", file, "a", "password", answers=[MASTER, SECRET, SECRET + " "], code=FAILED)
        self.assert_unchanged(file, before)


class Screen(PromptTest):
    """Standard output on the terminal itself."""

    def show(self, *args):
        terminal = self.start(*args, on_screen=True)
        self.assertEqual(terminal.finish().code, DONE)
        return terminal.screen

    def test_gets_no_orders_from_a_name(self):
        file = self.make(item("\x1b[2Jname", "\x1b[31mprogram\x9b"), name="\x07\x1b[2J")
        master = ["--password-file", self.master]
        for command in (["ls"], ["show", "@1"], ["info"]):
            screen = self.show(command[0], *master, file, *command[1:])
            self.assertNotRegex(screen.decode(), "[\x1b\x07\x9b]")
            self.assertIn(b"[2J", screen)


class NoPrompt(PromptTest):
    def test_where_the_password_comes_from_elsewhere(self):
        file = self.sample()
        self.ask("ls", "--password-file", self.master, file, answers=[])
        self.ask("ls", "--password-stdin", file, answers=[], stdin=self.master)

    def test_with_no_input(self):
        self.ask("ls", "--no-input", self.sample(), answers=[], code=USAGE)
        self.ask("new", "--no-input", "--name", "x", self.path("a.vmr"), answers=[], code=USAGE)

    def test_without_a_terminal(self):
        run = subprocess.run(
            command_line(["ls", self.sample()]),
            input=MASTER.encode(),
            capture_output=True,
            start_new_session=True,
            env=environment(),
            timeout=PATIENCE,
            check=False,
        )
        self.assertEqual(run.returncode, USAGE)
        self.assertEqual(run.stdout, b"")
        self.assertIn(b"terminal", run.stderr)

    def test_for_a_file_that_is_not_there(self):
        self.ask("ls", self.path("none.vmr"), answers=[], code=4)

    def test_before_the_command_line_is_right(self):
        self.ask("move", self.sample(), "@1", "left", answers=[], code=USAGE)
