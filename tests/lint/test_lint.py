"""Each check of script/lint finds a fault that is planted for it, and is content without one.

Every test makes a small project of its own in a temporary folder and runs one check over it.
"""

import json
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

REPOSITORY = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(REPOSITORY / "script"))

from lint_checks import (formatting, headers_alone, language_keys, layers, sizes,  # noqa: E402
                         system_headers, system_ifdef, tidy)
from lint_checks.project import Project  # noqa: E402


class LintTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="lint-")
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name).resolve()

    def write(self, name, content):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content if isinstance(content, bytes) else content.encode())

    def run_check(self, module):
        return module.check(Project(self.root))

    def assert_clean(self, module, checked=None):
        result = self.run_check(module)
        self.assertEqual(result.findings, [])
        if checked is not None:
            self.assertEqual(result.checked, checked)

    def assert_finds(self, module, subject, words):
        """The check finds this one fault and says these words about it."""
        result = self.run_check(module)
        self.assertEqual([found for found, _ in result.findings], [subject], result.findings)
        self.assertIn(words, result.findings[0][1])
        self.assertEqual(result.failed, 1)


class LayerOrder(LintTest):
    def setUp(self):
        super().setUp()
        for name in ("platform/text.h", "platform/posix/mine.h", "foundation/text.h", "database/model.h",
                     "toolkit/button.h", "cli/command.h"):
            self.write(name, "#pragma once\n")

    def test_lets_a_room_include_what_is_below_it(self):
        self.write("database/model.cpp", '#include "database/model.h"\n#include "foundation/text.h"\n'
                   '#include "platform/text.h"\n#include <vector>\n')
        self.assert_clean(layers, checked=7)

    def test_finds_an_upward_include(self):
        self.write("foundation/text.cpp", '#include "foundation/text.h"\n#include "database/model.h"\n')
        self.assert_finds(layers, "foundation/text.cpp", 'line 2: foundation/ may not include "database/model.h"')

    def test_finds_the_database_asking_for_the_command_line(self):
        self.write("database/model.cpp", '#include "cli/command.h"\n')
        self.assert_finds(layers, "database/model.cpp", "may not include")

    def test_keeps_database_and_toolkit_apart(self):
        self.write("toolkit/button.cpp", '#include "database/model.h"\n')
        self.assert_finds(layers, "toolkit/button.cpp", "may not include")

    def test_keeps_logic_free_of_windows(self):
        self.write("windows/sort.cpp", '#include "toolkit/button.h"\n')
        self.assert_finds(layers, "windows/sort.cpp", "windows/sort. may not include")

    def test_lets_a_window_include_logic_and_controls(self):
        self.write("windows/sort.h", '#include "database/model.h"\n')
        self.write("windows/list.cpp", '#include "toolkit/button.h"\n#include "windows/sort.h"\n')
        self.assert_clean(layers)

    def test_finds_another_room_asking_for_a_systems_half_of_platform(self):
        self.write("foundation/text.cpp", '#include "platform/posix/mine.h"\n')
        self.assert_finds(layers, "foundation/text.cpp", "of use to platform/posix/ alone")

    def test_lets_platform_ask_for_its_own_half(self):
        self.write("platform/posix/mine.cpp", '#include "platform/posix/mine.h"\n')
        self.assert_clean(layers)

    def test_finds_an_include_beside_instead_of_from_the_root(self):
        self.write("foundation/text.cpp", '#include "text.h"\n')
        self.assert_finds(layers, "foundation/text.cpp", "no file of the project")


class SystemHeaders(LintTest):
    def test_lets_the_core_use_the_standard_library(self):
        self.write("foundation/a.cpp", "#include <string_view>\n#include <cstdint>\n")
        self.assert_clean(system_headers, checked=1)

    def test_finds_windows_h(self):
        self.write("database/a.cpp", "#include <vector>\n#include <windows.h>\n")
        self.assert_finds(system_headers, "database/a.cpp", "line 2: <windows.h>")

    def test_finds_posix_and_library_headers(self):
        for name in ("unistd.h", "sys/stat.h", "openssl/evp.h", "unicode/ucol.h"):
            self.write("foundation/a.h", f"#  include <{name}>\n")
            self.assert_finds(system_headers, "foundation/a.h", name)

    def test_lets_the_command_line_use_its_libraries_and_nobody_else(self):
        self.write("cli/a.cpp", "#include <CLI/CLI.hpp>\n#include <nlohmann/json.hpp>\n")
        self.assert_clean(system_headers, checked=1)
        self.write("database/a.cpp", "#include <nlohmann/json.hpp>\n")
        self.assert_finds(system_headers, "database/a.cpp", "nlohmann")

    def test_leaves_platform_alone(self):
        self.write("platform/win32/a.cpp", "#include <windows.h>\n")
        self.assert_clean(system_headers, checked=0)


class SystemIfdef(LintTest):
    def test_finds_an_ifdef_for_the_system_in_the_core(self):
        self.write("foundation/a.cpp", "int a;\n#ifdef _WIN32\n#endif\n")
        self.assert_finds(system_ifdef, "foundation/a.cpp", "line 2: asks for _WIN32")

    def test_finds_the_other_forms(self):
        for line in ("#if defined(__linux__)", "# ifndef _WIN64", "#if A\n#elif defined _MSC_VER"):
            self.write("cli/a.h", line + "\n#endif\n")
            self.assert_finds(system_ifdef, "cli/a.h", "asks for")

    def test_finds_one_in_a_test(self):
        self.write("tests/unit/database/a_test.cpp", "#ifdef __MINGW32__\n#endif\n")
        self.assert_finds(system_ifdef, "tests/unit/database/a_test.cpp", "__MINGW32__")

    def test_leaves_platform_and_its_tests_alone(self):
        self.write("platform/file.h", "#ifdef _WIN32\n#endif\n")
        self.write("tests/unit/platform/file_test.cpp", "#ifdef _WIN32\n#endif\n")
        self.assert_clean(system_ifdef, checked=0)

    def test_leaves_other_conditions_and_comments_alone(self):
        self.write("foundation/a.cpp", "#ifdef NDEBUG\n#endif\n/*\n#ifdef _WIN32\n*/\n")
        self.assert_clean(system_ifdef, checked=1)


class HeadersAlone(LintTest):
    def test_is_content_with_a_header_that_includes_what_it_uses(self):
        self.write("foundation/a.h", "#pragma once\n#include <string>\ninline std::string A() { return {}; }\n")
        self.assert_clean(headers_alone, checked=1)

    def test_finds_a_header_that_counts_on_others(self):
        self.write("foundation/a.h", "#pragma once\ninline std::string A() { return {}; }\n")
        self.assert_finds(headers_alone, "foundation/a.h", "std::string")

    def test_finds_a_warning(self):
        self.write("database/a.h", "#pragma once\ninline short A(int a) { return a; }\n")
        self.assert_finds(headers_alone, "database/a.h", "-Werror=conversion")

    def test_finds_a_fault_in_a_header_of_the_tests(self):
        self.write("tests/unit/a.h", "#pragma once\ninline int A() { return b; }\n")
        self.assert_finds(headers_alone, "tests/unit/a.h", "was not declared")

    def test_lets_tests_alone_order_faults(self):
        header = "#pragma once\n#ifndef VAULTMERE_FAULTS\n#error no faults\n#endif\n"
        self.write("tests/unit/faults.h", header)
        self.assert_clean(headers_alone, checked=1)
        self.write("foundation/faults.h", header)
        self.assert_finds(headers_alone, "foundation/faults.h", "no faults")

    def test_compiles_the_windows_half_for_windows(self):
        self.write("platform/win32/a.h", "#pragma once\n#include <windows.h>\ninline HWND A() { return nullptr; }\n")
        self.assert_clean(headers_alone, checked=1)
        self.write("platform/win32/a.h", "#pragma once\n#include <unistd_of_nobody.h>\n")
        self.assert_finds(headers_alone, "platform/win32/a.h", "unistd_of_nobody.h")


class Formatting(LintTest):
    def setUp(self):
        super().setUp()
        shutil.copy(REPOSITORY / ".clang-format", self.root)

    def test_is_content_with_a_formatted_source(self):
        self.write("foundation/a.cpp", "int Twice(int a) {\n    return a * 2;\n}\n")
        self.assert_clean(formatting, checked=1)

    def test_finds_an_unformatted_source(self):
        self.write("foundation/a.cpp", "int Twice(int a) {\n  return a*2;\n}\n")
        self.assert_finds(formatting, "foundation/a.cpp", "not formatted")

    def test_looks_at_tests_too(self):
        self.write("tests/unit/a_test.cpp", "int  a;\n")
        self.assert_finds(formatting, "tests/unit/a_test.cpp", "not formatted")


class Tidy(LintTest):
    CLEAN = "int Twice(int a);\nint Twice(int a) {\n    return a * 2;\n}\n"
    FAULT = "int Pick(int a);\nint Pick(int a) {\n    if (a = 1) return 2;\n    return a;\n}\n"

    def setUp(self):
        super().setUp()
        shutil.copy(REPOSITORY / ".clang-tidy", self.root)

    def write_source(self, content):
        self.write_sources(a=content)

    def write_sources(self, **contents):
        names = [f"foundation/{name}.cpp" for name in contents]
        for name, content in zip(names, contents.values()):
            self.write(name, content)
        self.write("build/linux/compile_commands.json", json.dumps([{
            "directory": str(self.root / "build"), "file": str(self.root / name),
            "command": f"/usr/bin/g++ -I{self.root} -std=c++20 -o a.o -c {self.root / name}"} for name in names]))

    def test_is_content_with_a_clean_source(self):
        self.write_source(self.CLEAN)
        self.assert_clean(tidy, checked=1)

    def test_finds_a_planted_fault(self):
        self.write_source("double Half(int a);\ndouble Half(int a) {\n    return a / 2;\n}\n")
        self.assert_finds(tidy, "foundation/a.cpp", "bugprone-integer-division")

    def test_finds_what_the_compiler_warns_of(self):
        self.write_source(self.FAULT)
        self.assert_finds(tidy, "foundation/a.cpp", "using the result of an assignment as a condition")

    def test_finds_a_fault_in_a_header_of_a_room(self):
        self.write("foundation/a.h", "#pragma once\nclass A {\npublic:\n    A(int a) : m_A(a) {}\n"
                   "    int Get() { return m_A; }\n\nprivate:\n    int m_A;\n};\n")
        self.write_source('#include "foundation/a.h"\n')
        self.assert_finds(tidy, "foundation/a.cpp", "readability-make-member-function-const")

    def test_tells_of_a_source_that_does_not_compile(self):
        self.write_source("int A() { return b; }\n")
        self.assert_finds(tidy, "foundation/a.cpp", "undeclared identifier 'b'")

    def test_looks_at_an_unchanged_source_once(self):
        self.write_source(self.CLEAN)
        self.assertEqual(self.run_check(tidy).note, "0 of 1 as found clean before")
        self.assertEqual(self.run_check(tidy).note, "1 of 1 as found clean before")

    def test_looks_at_a_faulty_source_again(self):
        self.write_source(self.FAULT)
        for _ in range(2):
            self.assertEqual(self.run_check(tidy).failed, 1)

    def test_looks_again_when_a_header_a_comment_or_the_configuration_changes(self):
        self.write("foundation/a.h", "#pragma once\nint Twice(int a);\n")
        self.write_source('#include "foundation/a.h"\n')
        self.run_check(tidy)
        self.write("foundation/a.h", "#pragma once\nint Thrice(int a);\n")
        self.assertEqual(self.run_check(tidy).note, "0 of 1 as found clean before")
        self.write_source('#include "foundation/a.h"  // said otherwise\n')
        self.assertEqual(self.run_check(tidy).note, "0 of 1 as found clean before")
        self.write(".clang-tidy", "Checks: 'readability-*'\n")
        self.assertEqual(self.run_check(tidy).note, "0 of 1 as found clean before")

    def test_is_content_with_a_fault_that_is_answered_for_and_not_after(self):
        answered = self.FAULT.replace("    if", "    // NOLINTNEXTLINE(*): answered for\n    if")
        self.write_source(answered)
        self.assert_clean(tidy, checked=1)
        self.write_source(self.FAULT)
        self.assertEqual(self.run_check(tidy).failed, 1)

    def test_finds_a_fault_in_one_of_many_sources_at_its_own_line(self):
        self.write_sources(a=self.CLEAN, b=self.FAULT, c=self.CLEAN.replace("Twice", "Double"))
        self.assert_finds(tidy, "foundation/b.cpp", "b.cpp:3:")
        self.assertEqual(self.run_check(tidy).failed, 1)
        self.assertEqual(self.run_check(tidy).note, "2 of 3 as found clean before")

    def test_looks_at_sources_that_cannot_stand_in_one_text(self):
        helper = "namespace {\nint Twice(int a) {\n    return a * 2;\n}\n}  // namespace\n"
        self.write_sources(a=helper + "int A();\nint A() {\n    return Twice(1);\n}\n",
                           b=helper + "int B();\nint B() {\n    return Twice(2);\n}\n", c=self.FAULT)
        self.assert_finds(tidy, "foundation/c.cpp", "using the result of an assignment as a condition")
        self.assertEqual(self.run_check(tidy).note, "2 of 3 as found clean before")

    def test_finds_what_one_of_many_sources_includes_twice(self):
        self.write("foundation/a.h", "#pragma once\nint Twice(int a);\n")
        include = '#include "foundation/a.h"\n'
        self.write_sources(a=include, b=include, c=include + include)
        self.assert_finds(tidy, "foundation/c.cpp", "readability-duplicate-include")
        self.assertEqual(self.run_check(tidy).failed, 1)

    def test_finds_a_fault_in_a_header_of_many_sources(self):
        self.write("foundation/a.h", "#pragma once\nclass A {\npublic:\n    A(int a) : m_A(a) {}\n"
                   "    int Get() { return m_A; }\n\nprivate:\n    int m_A;\n};\n")
        self.write_sources(a=self.CLEAN, b='#include "foundation/a.h"\n')
        self.assert_finds(tidy, "foundation/b.cpp", "readability-make-member-function-const")

    def test_looks_at_the_windows_half_of_platform(self):
        self.write_source(self.CLEAN)
        self.write("platform/win32/a.cpp", "#include <windows.h>\n\nbool Stop(HANDLE handle);\n"
                   "bool Stop(HANDLE handle) {\n    return CloseHandle(handle);\n}\n")
        self.assert_finds(tidy, "platform/win32/a.cpp", "readability-implicit-bool-conversion")

    def test_says_that_the_compile_database_is_missing(self):
        result = self.run_check(tidy)
        self.assertEqual(result.failed, 1)
        self.assertIn("compile_commands.json", result.findings[0][1])


class LanguageKeys(LintTest):
    def write_language(self, text):
        self.write("resources/english.ini", b"\xff\xfe" + text.replace("\n", "\r\n").encode("utf-16-le"))

    def ask(self, *calls):
        self.write("database/a.cpp", "".join(f"void F{i}() {{ {call}; }}\n" for i, call in enumerate(calls)))

    def reserve(self, *lines):
        self.write(language_keys.RESERVED_FILE, "".join(line + "\n" for line in ("# note", *lines)))

    def test_is_content_when_both_agree(self):
        self.write_language("[global]\nok = OK\nbig = a \\\nno = key\n[file]\nopen file=%ok\n; c = d\n")
        self.ask('LangText(u"", u"ok")', 'LangText(u"file",\n  u"open file", x)')
        self.reserve("global big")
        self.assert_clean(language_keys, checked=3)

    def test_finds_a_key_that_is_asked_for_and_missing(self):
        self.write_language("[global]\nok = OK\n")
        self.ask('LangText(u"global", u"ok")', 'LangText(u"global", u"cancel")')
        self.assert_finds(language_keys, "[global] cancel", "database/a.cpp:2 asks for it")

    def test_finds_a_key_that_a_control_is_given_and_missing(self):
        self.write_language("[global]\nok = OK\n")
        self.ask('SetText(m_okBtn, u"global", u"ok")', 'SetText(*this, u"global", u"cancel")')
        self.assert_finds(language_keys, "[global] cancel", "database/a.cpp:2 asks for it")

    def test_finds_a_section_that_is_missing(self):
        self.write_language("[global]\nok = OK\n")
        self.ask('LangText({}, u"ok")', 'LangText(u"file", u"ok")')
        self.assert_finds(language_keys, "[file] ok", "lacks it")

    def test_finds_a_key_that_nobody_asks_for(self):
        self.write_language("[global]\nok = OK\nstray = Stray\n")
        self.ask('LangText(u"global", u"ok")', '// LangText(u"global", u"stray")')
        self.assert_finds(language_keys, "[global] stray", "nothing asks for it")

    def test_does_not_count_what_tests_ask_for(self):
        self.write_language("[global]\nok = OK\n")
        self.write("tests/unit/a_test.cpp", 'LangText(u"global", u"ok"); LangText(u"global", u"nosuch");\n')
        self.assert_finds(language_keys, "[global] ok", "nothing asks for it")

    def test_finds_a_reserved_key_that_is_asked_for(self):
        self.write_language("[global]\nok = OK\n")
        self.ask('LangText(u"global", u"OK")')
        self.reserve("global ok")
        self.assert_finds(language_keys, "[global] ok", "take it off")

    def test_finds_a_reserved_key_that_does_not_exist(self):
        self.write_language("[theme]\nsystem default = System\n")
        self.reserve("theme system default", "theme light")
        self.assert_finds(language_keys, "[theme] light", "is reserved, but")

    def test_finds_a_key_that_stands_twice(self):
        self.write_language("[global]\nok = OK\nOk = Okay\n")
        self.reserve("global ok")
        self.assert_finds(language_keys, "[global] ok", "more than once")

    def test_finds_a_language_file_in_another_encoding(self):
        self.write("resources/english.ini", "[global]\nok = OK\n")
        self.assert_finds(language_keys, "resources/english.ini", "not UTF-16LE")

    def test_finds_a_missing_language_file(self):
        self.assert_finds(language_keys, "resources/english.ini", "missing")


class Sizes(LintTest):
    def test_counts_lines_of_sources_and_headers(self):
        self.write("foundation/a.cpp", "int a;\n" * 3)
        self.write("database/b.cpp", "int b;\n" * 5)
        self.write("foundation/a.h", "int a;\n")
        note = self.run_check(sizes).note
        self.assertIn("sources (2): median 3, p90 5, max 5 in database/b.cpp", note)
        self.assertIn("headers (1): median 1", note)


class TheProgram(LintTest):
    def lint(self, *args):
        command = [sys.executable, str(REPOSITORY / "script" / "lint.py"), "--root", str(self.root), *args]
        return subprocess.run(command, capture_output=True, text=True, check=False)

    def test_ends_well_and_counts_its_checks(self):
        self.write("foundation/a.cpp", "int a;\n")
        run = self.lint("--only", "layers", "--only", "system-headers")
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertEqual(run.stdout.splitlines(), ["layer order: 1 passed, 0 failed",
                                                   "no system headers in the core: 1 passed, 0 failed",
                                                   "2 passed, 0 failed"])

    def test_ends_badly_and_says_how_to_mend_it(self):
        self.write("foundation/a.cpp", "#include <windows.h>\n")
        run = self.lint("--only", "layers", "--only", "system-headers")
        self.assertEqual(run.returncode, 1)
        self.assertIn("To mend it: Ask platform/", run.stdout)
        self.assertEqual(run.stdout.splitlines()[-1], "1 passed, 1 failed")

    def test_lists_what_is_to_be_formatted(self):
        self.write("foundation/a.cpp", "int a;\n")
        self.write("tests/unit/a_test.cpp", "int a;\n")
        self.write("docs/a.cpp", "int a;\n")
        self.assertEqual(self.lint("--list").stdout, "foundation/a.cpp\0tests/unit/a_test.cpp\0")


if __name__ == "__main__":
    unittest.main()
