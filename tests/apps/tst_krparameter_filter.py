#!/usr/bin/python3
"""Runs krparameter as a process: what --filter selects where states are compared, and elsewhere.

Usage: tst_krparameter_filter.py PROGRAM SOURCE-FOLDER
"""

import csv
import io
import json
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

PROGRAM = ""
SOURCE = Path()

GOOD, DIFFERENCES, USAGE = 0, 1, 2
DEVICE = ["--device", "two-axis-drive"]

LIMIT = "1.H00  Stromgrenze: 15.500 A -> 16.000 A\n"
LIMIT_OF_AXIS_2 = "2.H00  Stromgrenze: 12.600 A -> 9.000 A\n"
NUMERATOR = "1.E30[1]  Geschwindigkeitsfaktor · Zähler: 1 -> 3\n"


class FilterTest(unittest.TestCase):
    """The sides a and b differ in three values. In c a user wrote what is the default anyhow."""

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp())
        self.project("a", "H00", "15.5")
        self.project("b", "H00", "16", "2.H00", "9", "E30[1]", "3")
        self.project("c", "E30[1]", "3")
        self.tag("c", "H000", "V_1_0=12600", "VC_1_0=op7")

    def tearDown(self):
        shutil.rmtree(self.folder)

    def run_in_folder(self, *words):
        done = subprocess.run([PROGRAM, *words], capture_output=True, timeout=60, cwd=self.folder)
        return done.returncode, done.stdout.decode("utf-8"), done.stderr.decode("utf-8")

    def project(self, name, *pairs):
        code, _, err = self.run_in_folder(*DEVICE, "--project", name, "set", *pairs)
        self.assertEqual(code, GOOD, err)

    def tag(self, name, section, value, tag):
        """As another program of the suite saves it: after a value stands its change tag."""
        path = self.folder / name / "Parameter.ini"
        begin = f"[{section}]\r\n{value}\r\n".encode("latin-1")
        block = path.read_bytes()
        self.assertEqual(block.count(begin), 1)
        path.write_bytes(block.replace(begin, begin + tag.encode("latin-1") + b"\r\n"))

    def filtered(self, words, conditions):
        options = [word for condition in conditions for word in ("--filter", condition)]
        return self.run_in_folder(*DEVICE, *words, *options)

    def diff(self, sides, *conditions):
        return self.filtered(["diff", *sides.split()], conditions)[:2]

    def differs(self, sides, conditions, text):
        self.assertEqual(self.diff(sides, *conditions), (DIFFERENCES, text))

    def is_same(self, sides, *conditions):
        self.assertEqual(self.diff(sides, *conditions), (GOOD, ""))


class Diff(FilterTest):
    def test_value_that_passes_on_one_side(self):
        self.differs("a b", ["ValueNative=16000"], LIMIT + LIMIT_OF_AXIS_2)
        self.differs("a b", ["ValueNative=15500"], LIMIT + LIMIT_OF_AXIS_2)
        self.differs("a b", ["ValueScaled=9.000"], LIMIT + LIMIT_OF_AXIS_2)

    def test_axis_that_passes_alone(self):
        self.differs("a b", ["Address=1.H000[00000]"], LIMIT + LIMIT_OF_AXIS_2)
        self.differs("a b", ["Address=2.H000[00000]"], LIMIT + LIMIT_OF_AXIS_2)
        self.is_same("a a", "Address=1.H000[00000]")

    def test_element_of_a_record(self):
        self.differs("a b", ["Address=1.E030[00001]"], NUMERATOR)
        self.differs("a b", ["Address=2.E030[00001]"], NUMERATOR)
        self.is_same("a b", "Address=1.E030[00002]")
        self.differs("a b", ["ElementName=Zähler", "Coordinate=E30"], NUMERATOR)
        self.is_same("a b", "ElementName=Nenner", "Coordinate=E30")

    def test_state_of_one_side(self):
        """The tag alone makes no difference; a value that differs shows both of its texts."""
        self.is_same("c", "ChangeTagValue=op7")
        self.differs("a c", ["ChangeTagValue=op7"], "1.H00  Stromgrenze: 15.500 A -> 12.600 A\n")
        self.is_same("a b", "ChangeTagValue=op7")

    def test_against_the_defaults(self):
        changed = "1.H00  Stromgrenze: 12.600 A -> 15.500 A\n"
        for condition in ("ValueNative=15500", "ValueNative=12600", "Address=2.H000[00000]",
                          "Coordinate=H00"):
            self.differs("a", [condition], changed)
        self.is_same("a", "Coordinate=E30")
        self.differs("c", ["Coordinate=H00", "Coordinate=E30"], NUMERATOR)

    def test_two_properties_that_hold(self):
        self.differs("a b", ["ValueNative=16000", "Coordinate=H00"], LIMIT + LIMIT_OF_AXIS_2)
        self.is_same("a b", "ValueNative=16000", "Coordinate=E30")

    def test_two_properties_that_hold_apart(self):
        """On axis 1 of one side the one, on axis 2 of it or on the other side the other."""
        self.is_same("a b", "ValueNative=9000", "Address=1.H000[00000]")
        self.is_same("a c", "ValueNative=15500", "ChangeTagValue=op7")

    def test_json(self):
        code, out, _ = self.filtered(["diff", "a", "b", "--json"], ["ValueNative=16000"])
        self.assertEqual(code, DIFFERENCES)
        lines = [json.loads(line) for line in out.splitlines()]
        self.assertEqual([line["address"] for line in lines], ["1.H00", "2.H00"])
        self.assertEqual(lines[0]["left"],
                         {"display": "15.500 A", "value": "15.5 A", "native": "15500 mA"})
        self.assertEqual(lines[0]["right"],
                         {"display": "16.000 A", "value": "16 A", "native": "16000 mA"})
        self.assertEqual(self.filtered(["diff", "c", "--json"], ["ChangeTagValue=op7"])[:2],
                         (GOOD, ""))

    def test_csv(self):
        code, out, _ = self.filtered(["diff", "a", "b", "--csv"], ["Address=1.H000[00000]"])
        self.assertEqual(code, DIFFERENCES)
        self.assertEqual(list(csv.reader(io.StringIO(out, newline="")))[1:], [
            ["1.H00", "Stromgrenze", "15.500 A", "16.000 A", "15500 mA", "16000 mA",
             "value", "value"],
            ["2.H00", "Stromgrenze", "12.600 A", "9.000 A", "12600 mA", "9000 mA",
             "value", "value"]])

    def test_no_condition(self):
        for words in (["diff", "a", "b"], ["diff", "a"], ["report", "a", "b", "-o", "r.html"]):
            for text in ("H00", "=H00", ""):
                code, out, err = self.filtered(words, ["Coordinate=H00", text])
                self.assertEqual((code, out), (USAGE, ""))
                self.assertEqual(
                    err.splitlines()[0], "krparameter: --filter braucht einen Wert: EIGENSCHAFT=WERT"
                    if text == "" else
                    f'krparameter: "{text}" ist keine Bedingung der Form EIGENSCHAFT=WERT')
        self.assertFalse((self.folder / "r.html").exists())


class Report(FilterTest):
    def rows(self, sides, *conditions):
        code, _, err = self.filtered(["report", *sides.split(), "-o", "r.html"], conditions)
        self.assertEqual(code, GOOD, err)
        html = (self.folder / "r.html").read_text(encoding="utf-8")
        return [row.split("</tr>")[0].replace("</td>\n", "").split("<td>")[1:]
                for row in html.split("<tr>")[1:]]

    LIMITS = [["1.H00 Stromgrenze", "15.500 A", "16.000 A"],
              ["2.H00 Stromgrenze", "12.600 A", "9.000 A"]]

    def test_value_that_passes_on_one_side(self):
        self.assertEqual(self.rows("a b", "ValueNative=16000"), self.LIMITS)
        self.assertEqual(self.rows("a c", "ChangeTagValue=op7"),
                         [["1.H00 Stromgrenze", "15.500 A", "12.600 A"]])

    def test_axis_that_passes_alone(self):
        self.assertEqual(self.rows("a b", "Address=1.H000[00000]"), self.LIMITS)

    def test_three_sides(self):
        self.assertEqual(self.rows("a b c", "ChangeTagValue=op7"),
                         [["1.H00 Stromgrenze", "15.500 A", "16.000 A", "12.600 A"],
                          ["2.H00 Stromgrenze", "12.600 A", "9.000 A", "12.600 A"]])

    def test_one_side(self):
        self.assertEqual(self.rows("a", "ValueNative=15500"),
                         [["1.H00 Stromgrenze", "15.500 A"], ["2.H00 Stromgrenze", "12.600 A"]])


class OneState(FilterTest):
    """snapshot and export hold nothing of an element that fails on some axis."""

    def test_snapshot(self):
        for condition, numbers in (("Address=1.H000[00000]", []), ("Address=2.H000[00000]", []),
                                   ("ValueNative=15500", []), ("Coordinate=H00", [0])):
            code, out, err = self.filtered(["snapshot", "a"], [condition])
            self.assertEqual(code, GOOD, err)
            self.assertEqual([element["number"] for parameter in json.loads(out)["parameters"]
                              for element in parameter["elements"]
                              if not element.get("isRejected")], numbers)

    def test_export(self):
        code, _, err = self.filtered(["export", "a", "-o", "a.txt"], ["ValueNative=15500"])
        self.assertEqual(code, GOOD, err)
        self.assertEqual((self.folder / "a.txt").read_bytes(), b"\xef\xbb\xbf\r\n")

    def test_help(self):
        for command in ("snapshot", "export", "diff", "report"):
            for language, rules in (
                ("de", ("das auf einer Achse nicht passt, fehlt auf allen",
                        "das auf einer Achse einer Seite passt, wird auf allen Achsen aller Seiten\n"
                        "verglichen")),
                ("en", ("that does not match on one axis is missing on all",
                        "that matches on one axis of one side is compared on all axes of all "
                        "sides"))):
                _, out, _ = self.run_in_folder("--lang", language, command, "--help")
                compares = command in ("diff", "report")
                self.assertIn(rules[compares], out)
                self.assertNotIn(rules[not compares], out)
                self.assertIn("1.H000[00000]", out)

    def test_page_of_the_properties(self):
        page = (SOURCE / "docs/formats/filter-properties.md").read_text(encoding="utf-8")
        rows = re.findall(r"^\| (\d+) \| `(\w+)` \| .+ \|$", page, re.MULTILINE)
        _, out, _ = self.run_in_folder("--lang", "en", "diff", "--help")
        names = out.split("Properties are:\n")[1].split("\n\n")[0].split()
        self.assertEqual([name for _, name in sorted(rows, key=lambda row: int(row[0]))], names)
        self.assertEqual(len(names), 62)


if __name__ == "__main__":
    PROGRAM, SOURCE = os.path.abspath(sys.argv[1]), Path(sys.argv[2])
    unittest.main(argv=sys.argv[:1])
