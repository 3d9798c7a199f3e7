"""Files made by other programs, with what is in them: `dump` and `convert` must agree with each."""

import json

from vmr import DONE, NOT_A_DATABASE, REPOSITORY, WRONG_PASSWORD, VmrTest

FOLDER = REPOSITORY / "tests" / "data" / "database"
CASES = json.loads((FOLDER / "cases.json").read_text(encoding="utf-8"))
NO_DATABASE = {"wrong-magic.vmr", "eleven-bytes.vmr"}


def is_old(case):
    return case["file"].startswith("old-")


def expected(case, with_dates):
    items = []
    for one in case["database"]["items"]:
        date = {"date": f"0x{one['date']:016x}"} if with_dates else {}
        items.append({"name": one["name"], **date, "entries": one["entries"]})
    return {"version": 1, "name": case["database"]["name"], "items": items}


def stripped(content, with_dates):
    keys = ("name", "date", "entries") if with_dates else ("name", "entries")
    return {**content, "items": [{key: one[key] for key in keys} for one in content["items"]]}


class Vectors(VmrTest):
    def password_file(self, case):
        self.masters = [case["password"]] if len(case["password"]) > 3 else []
        return self.write("case-password.txt", case["password"] + "\n")

    def exit_code(self, case):
        if case["opens"]:
            return DONE
        return NOT_A_DATABASE if case["file"] in NO_DATABASE else WRONG_PASSWORD

    def test_of_the_present_format(self):
        cases = [case for case in CASES if not is_old(case)]
        self.assertGreater(len(cases), 20)
        for case in cases:
            with self.subTest(case["file"]):
                args = ["--password-file", self.password_file(case), FOLDER / case["file"]]
                run = self.vmr("dump", *args, code=self.exit_code(case))
                if case["opens"]:
                    self.assertEqual(stripped(run.json, True), expected(case, True))
                else:
                    self.assertEqual(run.out, b"")

    def test_of_the_old_format(self):
        cases = [case for case in CASES if is_old(case)]
        self.assertGreater(len(cases), 8)
        for case in cases:
            with self.subTest(case["file"]):
                new = self.path(case["file"])
                passwords = ["--password-file", self.password_file(case), "--new-password-file", self.master]
                old = FOLDER / case["file"]
                self.vmr("convert", *passwords, old, new, code=self.exit_code(case))
                self.assertEqual(new.exists(), case["opens"])
                if case["opens"]:
                    self.assertEqual(stripped(self.dump(new), False), expected(case, False))
