"""script/test counts every failure: of a test, of a run that breaks off, of a stage that says nothing."""

import pathlib
import subprocess
import tempfile
import unittest

REPOSITORY = pathlib.Path(__file__).resolve().parents[2]

GTEST = "[ RUN      ] A.One\n[       OK ] A.One (0 ms)\n[ RUN      ] A.Two\n"
PYTHON = "test_a (test.A) ... ok\ntest_b (test.A) ... ok\n\n----\n"


class CountingTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="counting-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def bash(self, commands):
        """What the commands print, with the counting functions at hand."""
        script = f"set -euo pipefail\nlogs={self.folder}\nsource script/counting.sh\n{commands}\n"
        run = subprocess.run(["bash", "-c", script], cwd=REPOSITORY, capture_output=True, text=True, check=True)
        return run.stdout

    def counts(self, function, output, status):
        (self.folder / "out").write_bytes(output.encode())
        return self.bash(f"{function} {self.folder}/out {status}").splitlines()[-1]


class GoogleTest(CountingTest):
    def test_counts_what_passed(self):
        output = GTEST + "[       OK ] A.Two (1 ms)\n[  PASSED  ] 2 tests.\n"
        self.assertEqual(self.counts("gtest_counts", output, 0), "2 passed, 0 failed")

    def test_counts_a_failed_test_once(self):
        output = GTEST + ("[  FAILED  ] A.Two (1 ms)\n[  PASSED  ] 1 test.\n"
                          "[  FAILED  ] 1 test, listed below:\n[  FAILED  ] A.Two\n")
        self.assertEqual(self.counts("gtest_counts", output, 1), "1 passed, 1 failed")

    def test_counts_a_failed_test_with_a_parameter(self):
        output = GTEST + "[  FAILED  ] All/A.Two/0, where GetParam() = 4 (1 ms)\n"
        self.assertEqual(self.counts("gtest_counts", output, 1), "1 passed, 1 failed")

    def test_counts_a_run_that_breaks_off_as_failed(self):
        self.assertEqual(self.counts("gtest_counts", GTEST, 139), "1 passed, 1 failed")

    def test_tells_the_test_in_which_a_run_broke_off(self):
        (self.folder / "out").write_text(GTEST)
        self.assertIn("broke off in A.Two", self.bash(f"gtest_counts {self.folder}/out 139"))

    def test_counts_a_run_without_tests_as_failed(self):
        self.assertEqual(self.counts("gtest_counts", "[  PASSED  ] 0 tests.\n", 0), "0 passed, 1 failed")

    def test_reads_the_lines_of_a_windows_program(self):
        output = (GTEST + "[  FAILED  ] A.Two (1 ms)\n").replace("\n", "\r\n")
        self.assertEqual(self.counts("gtest_counts", output, 1), "1 passed, 1 failed")


class FailedGoogleTests(CountingTest):
    def failed(self, output):
        (self.folder / "out").write_bytes(output.encode())
        return self.bash(f"failed_gtests {self.folder}/out").strip()

    def test_are_a_filter(self):
        output = (GTEST + "[  FAILED  ] A.Two (1 ms)\r\n"
                  "[  FAILED  ] All/B.Three/Dark, where GetParam() = u\"Dark\" (7 ms)\r\n"
                  "[  FAILED  ] 2 tests, listed below:\n[  FAILED  ] A.Two\n")
        self.assertEqual(self.failed(output), "A.Two:All/B.Three/Dark")

    def test_are_none_where_all_passed(self):
        self.assertEqual(self.failed(GTEST + "[       OK ] A.Two (1 ms)\n"), "")

    def test_of_two_files_are_added(self):
        self.assertEqual(self.bash("add_counts <(printf 'x\\n3 passed, 1 failed\\n') <(echo 4 passed, 2 failed)").strip(),
                         "7 passed, 3 failed")

    def test_count_as_passed_if_they_pass_when_they_are_run_again(self):
        self.assertEqual(self.bash("sum_counts '38 passed, 2 failed' '2 passed, 0 failed'").strip(),
                         "40 passed, 0 failed")

    def test_count_as_failed_if_they_fail_again(self):
        self.assertEqual(self.bash("sum_counts '38 passed, 2 failed' '1 passed, 1 failed'").strip(),
                         "39 passed, 1 failed")


class PythonTests(CountingTest):
    def test_counts_what_passed(self):
        self.assertEqual(self.counts("unittest_counts", PYTHON + "Ran 2 tests in 0.1s\n\nOK\n", 0),
                         "2 passed, 0 failed")

    def test_counts_failures_and_errors(self):
        output = PYTHON + "Ran 9 tests in 0.1s\n\nFAILED (failures=2, errors=1)\n"
        self.assertEqual(self.counts("unittest_counts", output, 1), "6 passed, 3 failed")

    def test_does_not_count_a_skipped_test_as_passed(self):
        self.assertEqual(self.counts("unittest_counts", PYTHON + "Ran 9 tests in 0.1s\n\nOK (skipped=4)\n", 0),
                         "5 passed, 0 failed")

    def test_counts_a_run_that_breaks_off_as_failed(self):
        self.assertEqual(self.counts("unittest_counts", "Traceback\n", 1), "0 passed, 1 failed")

    def test_tells_the_test_in_which_a_run_broke_off(self):
        (self.folder / "out").write_text(GTEST)
        self.assertIn("broke off in A.Two", self.bash(f"gtest_counts {self.folder}/out 139"))

    def test_counts_a_run_without_tests_as_failed(self):
        self.assertEqual(self.counts("unittest_counts", "Ran 0 tests in 0.0s\n\nOK\n", 0), "0 passed, 1 failed")


class Stages(CountingTest):
    def totals(self, *commands):
        lines = "".join(f"stage title{i} {command}\n" for i, command in enumerate(commands))
        return self.bash(lines + 'echo "$passed $failed"').splitlines()[-1]

    def test_are_summed_up(self):
        self.assertEqual(self.totals("echo 3 passed, 0 failed", "echo 4 passed, 0 failed"), "7 0")

    def test_after_a_failing_one_still_run(self):
        self.assertEqual(self.totals("false", "echo 4 passed, 0 failed"), "4 1")

    def test_that_count_failures_add_them(self):
        self.assertEqual(self.totals('sh -c "echo 3 passed, 2 failed; exit 1"'), "3 2")

    def test_that_say_nothing_have_failed(self):
        self.assertEqual(self.totals("true"), "0 1")

    def test_that_end_badly_have_failed_whatever_they_say(self):
        self.assertEqual(self.totals('sh -c "echo 3 passed, 0 failed; exit 1"'), "3 1")

    def test_that_failed_show_failing_tests_and_the_one_that_broke_off(self):
        output = "[1/2] Building a.o\n" + GTEST + "what went wrong\n[  FAILED  ] A.Two (1 ms)\n[ RUN      ] A.Three\n"
        (self.folder / "out").write_text(output)
        self.assertEqual(self.bash(f"without_successes <{self.folder}/out"),
                         "[ RUN      ] A.Two\nwhat went wrong\n[  FAILED  ] A.Two (1 ms)\n"
                         "[ RUN      ] A.Three\n")

    def test_that_failed_show_what_they_printed(self):
        shown = self.bash('stage title sh -c "echo what went wrong; exit 1"')
        self.assertIn("    what went wrong\n", shown)


if __name__ == "__main__":
    unittest.main()
