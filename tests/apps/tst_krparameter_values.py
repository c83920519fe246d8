#!/usr/bin/python3
"""Runs krparameter as a process: how values are shown, and the notes on texts that do not read back.

Usage: tst_krparameter_values.py PROGRAM SOURCE-FOLDER
"""

import csv
import io
import json
import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

PROGRAM = ""

GOOD, DIFFERENCES, REJECTED = 0, 1, 4

DEVICE = """{
  "format": "kr-device-description", "version": 1,
  "family": {"identifier": 81, "name": "Device", "hasPhysicalAxes": true, "axes": [1, 2]},
  "languages": ["de", "en"], "dataTypes": ["UINT8", "INT16", "REAL64", "STRING8"],
  "profiles": {"kept": {"levels": {"read": 0, "write": 6}}},
  "parameters": [
    {"number": 1, "coordinates": ["A01"], "name": "Einheit",
     "elements": [{"dataType": "STRING8", "kind": 5, "default": "mm"}]},
    {"number": 2, "coordinates": ["A02"], "name": "Weg",
     "elements": [{"dataType": "REAL64", "default": "0.25", "decimals": {"behind": 0},
                   "units": {"scaled": "<localAxis:A01>", "native": "m"}}]},
    {"number": 3, "coordinates": ["A03"], "name": "Maske", "global": true,
     "elements": [{"dataType": "INT16", "kind": 3, "default": -1}]},
    {"number": 4, "coordinates": ["A04"], "name": "Wahl", "global": true,
     "elements": [{"dataType": "UINT8", "kind": 1, "limits": {"lower": 1, "upper": 2}, "default": 1,
                   "choices": {"0": "Aus", "1": "Ein", "2": "Auto", "3": "Test"}}]},
    {"number": 5, "coordinates": ["A05"], "name": "Leer",
     "elements": [{"dataType": "STRING8", "kind": 0, "default": "",
                   "units": {"scaled": "<localAxis:A01>", "native": "m"}}]},
    {"number": 6, "coordinates": ["A06"], "name": "Geheim",
     "elements": [{"profile": "kept", "dataType": "REAL64", "default": "0.25",
                   "decimals": {"behind": 0}, "units": {"scaled": "<localAxis:A01>"}}]}
  ]
}"""

BECOMES_0 = 'als Eingabe ergibt dieser Text nativ "0"'
BECOMES_1 = 'als Eingabe ergibt dieser Text nativ "1"'
REFUSED = "dieser Text wird als Eingabe nicht angenommen"


class Run:
    def __init__(self, *words, locale="C"):
        done = subprocess.run([PROGRAM, *words], capture_output=True, timeout=60,
                              env={**os.environ, "LC_ALL": locale})
        self.code = done.returncode
        self.out = done.stdout.decode("utf-8")
        self.err = done.stderr.decode("utf-8")

    def lines(self):
        return [json.loads(line) for line in self.out.splitlines()]


class ValueTest(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)
        device = self.folder / "device.json"
        device.write_text(DEVICE, encoding="utf-8")
        self.device = ["--device", str(device)]

    def run_on_device(self, *words):
        return Run(*self.device, *words)

    def check(self, run, code, out=None):
        self.assertEqual(run.code, code, run.err)
        if out is not None:
            self.assertEqual(run.out, out)

    def project(self, name, *pairs):
        path = str(self.folder / name)
        self.check(self.run_on_device("--project", path, "set", *pairs), GOOD)
        return path


class Notes(ValueTest):
    def test_of_set(self):
        self.check(self.run_on_device("set", "A02", "0.75"), GOOD, out=(
            "1.A02  Weg: 0 mm -> 1 mm\n"
            f"  Hinweis: {BECOMES_1}\n"))
        self.check(self.run_on_device("--lang", "en", "set", "A02", "0.75"), GOOD, out=(
            "1.A02  Weg: 0 mm -> 1 mm\n"
            '  Note: when typed in, this text yields the native value "1"\n'))
        run = self.run_on_device("set", "A02", "0.75", "A04", "2", "--json")
        self.check(run, GOOD)
        self.assertEqual([line.get("note") for line in run.lines()], [BECOMES_1, None])

    def test_of_list(self):
        run = self.run_on_device("list", "--json", "--axis", "1")
        self.check(run, GOOD)
        self.assertEqual({line["address"]: line.get("note") for line in run.lines()},
                         {"1.A01": None, "1.A02": BECOMES_0, "A03": REFUSED, "A04": None,
                          "1.A05": None, "1.A06": None})

    def test_of_what_changes_elsewhere(self):
        self.check(self.run_on_device("set", "1.A01", "m"), GOOD, out=(
            "1.A01  Einheit: mm -> m\n"
            "  1.A02  Weg: 0 mm -> 0 m\n"
            f"    Hinweis: {BECOMES_0}\n"
            "  1.A02  Weg: Einheit mm -> m\n"
            "  1.A05  Leer: Einheit mm -> m\n"
            # Its value is masked.
            "  1.A06  Geheim: Einheit mm -> m\n"))

    def test_of_what_changes_elsewhere_as_json(self):
        run = self.run_on_device("set", "1.A01", "m", "--json")
        self.check(run, GOOD)
        found = {line.get("consequence"): line for line in run.lines()}
        self.assertEqual(found["1.A02"], {
            "consequence": "1.A02", "name": "Weg",
            "before": {"display": "0 mm", "value": "0.25", "native": "0.25", "unit": "mm",
                       "nativeUnit": "m", "lowerLimit": "", "upperLimit": "", "visible": True},
            "after": {"display": "0 m", "value": "0.25", "native": "0.25", "unit": "m",
                      "nativeUnit": "m", "lowerLimit": "", "upperLimit": "", "visible": True,
                      "note": BECOMES_0}})
        self.assertNotIn("note", found["1.A05"]["after"])

    def test_of_both_sides_of_a_difference(self):
        a = self.project("a", "A02", "0.75", "A04", "2")
        b = self.project("b", "A02", "1.75")
        self.check(self.run_on_device("diff", a, b), DIFFERENCES, out=(
            "1.A02  Weg: 1 mm -> 2 mm\n"
            f'  Hinweis zu "1 mm": {BECOMES_1}\n'
            '  Hinweis zu "2 mm": als Eingabe ergibt dieser Text nativ "2"\n'
            "A04  Wahl: 2: Auto -> 1: Ein\n"))
        self.check(self.run_on_device("diff", a), DIFFERENCES, out=(
            "1.A02  Weg: 0 mm -> 1 mm\n"
            f'  Hinweis zu "0 mm": {BECOMES_0}\n'
            f'  Hinweis zu "1 mm": {BECOMES_1}\n'
            "A04  Wahl: 1: Ein -> 2: Auto\n"))
        run = self.run_on_device("--lang", "en", "diff", a)
        self.assertIn('  Note on "0 mm": when typed in, this text yields the native value "0"\n',
                      run.out)

    def test_of_one_side_of_a_difference(self):
        b = self.project("b", "A03", "7")
        self.check(self.run_on_device("diff", b), DIFFERENCES, out=(
            "A03  Maske: ffff hex -> 0007 hex\n"
            f'  Hinweis zu "ffff hex": {REFUSED}\n'))

    def test_of_a_difference_as_json(self):
        b = self.project("b", "A03", "7")
        run = self.run_on_device("diff", b, "--json")
        self.check(run, DIFFERENCES)
        self.assertEqual(run.lines(), [{
            "address": "A03", "name": "Maske",
            "left": {"display": "ffff hex", "value": "-1", "native": "-1", "note": REFUSED},
            "right": {"display": "0007 hex", "value": "7", "native": "7"}}])

    def test_table_of_differences_has_the_native_texts_instead(self):
        b = self.project("b", "A03", "7")
        run = self.run_on_device("diff", b, "--csv")
        self.check(run, DIFFERENCES)
        self.assertEqual(list(csv.reader(io.StringIO(run.out, newline="")))[1],
                         ["A03", "Maske", "ffff hex", "0007 hex", "-1", "7", "value", "value"])

    def test_files_of_snapshots_have_no_device_to_ask(self):
        b = self.project("b", "A03", "7")
        file = str(self.folder / "default.json")
        self.check(self.run_on_device("snapshot", "-o", file), GOOD)
        self.check(self.run_on_device("diff", file, b), DIFFERENCES,
                   out="A03  Maske: ffff hex -> 0007 hex\n")
        self.check(self.run_on_device("diff", b, file), DIFFERENCES,
                   out="A03  Maske: 0007 hex -> ffff hex\n")

    def test_of_a_value_above_the_access_level(self):
        text = DEVICE.replace('"kind": 3,', '"kind": 3, "levels": {"read": 3, "write": 3},')
        device = self.folder / "secret.json"
        device.write_text(text, encoding="utf-8")
        b = self.project("b", "A03", "7")
        self.check(Run("--device", str(device), "--access-level", "2", "diff", b), DIFFERENCES,
                   out="A03  Maske: <nicht lesbar> -> <nicht lesbar>\n")


class Choices(ValueTest):
    def test_limits_are_shown_beside_them(self):
        self.check(self.run_on_device("get", "A04"), GOOD, out=(
            "A04  Wahl\n"
            "  Anzeige    1: Ein\n"
            "  Wert       1\n"
            "  Nativ      1\n"
            "  Default    1: Ein\n"
            "  Grenzen    1: Ein bis 2: Auto\n"
            "  Auswahl    0: Aus\n"
            "             1: Ein\n"
            "             2: Auto\n"
            "             3: Test\n"
            "  Zugriff    lesen ab Stufe 0, schreiben ab Stufe 0\n"))

    def test_a_rejection_names_those_within_the_limits(self):
        for value in ("0", "3", "Aus", "x"):
            run = self.run_on_device("set", "A04", value)
            self.check(run, REJECTED, out="")
            self.assertIn(f'"{value}" wurde abgewiesen; zulässig: 1: Ein, 2: Auto\n', run.err)

    def test_a_rejection_names_the_limits_where_no_choice_is_within(self):
        device = self.folder / "narrow.json"
        device.write_text(DEVICE.replace('"lower": 1, "upper": 2}, "default": 1',
                                         '"lower": 7, "upper": 9}, "default": 8'), encoding="utf-8")
        run = Run("--device", str(device), "set", "A04", "1")
        self.check(run, REJECTED, out="")
        self.assertIn('"1" wurde abgewiesen; zulässig: 7 bis 9\n', run.err)


class EmptyValue(ValueTest):
    def test_is_shown(self):
        self.check(self.run_on_device("get", "1.A05"), GOOD, out=(
            "1.A05  Leer\n"
            '  Anzeige    ""\n'
            '  Wert       ""\n'
            '  Nativ      ""\n'
            "  Zugriff    lesen ab Stufe 0, schreiben ab Stufe 0\n"))

    def test_has_the_units_of_its_axis(self):
        path = self.project("a", "2.A01", "inch")
        run = self.run_on_device("--project", path, "get", "1.A05", "2.A05", "--json")
        self.check(run, GOOD)
        self.assertEqual([(line["display"], line["unit"], line["nativeUnit"]) for line in run.lines()],
                         [("", "mm", "m"), ("", "inch", "m")])


class GermanLocale(unittest.TestCase):
    def run_on_drive(self, *words):
        run = Run("--device", "two-axis-drive", *words, locale="de_DE.UTF-8")
        self.assertEqual(run.code, GOOD, run.err)
        return run

    def test_display_text(self):
        run = self.run_on_drive("get", "H00", "--json").lines()[0]
        self.assertEqual((run["display"], run["value"], run["native"]), ("12,600 A", "12.6", "12600"))
        self.assertIn("  Grenzen    0,000 A bis 60,000 A\n", self.run_on_drive("get", "H00").out)

    def test_typed_text(self):
        for text in ("15,5 A", "15,5", "15.5 A", "15.5"):
            self.assertEqual(self.run_on_drive("set", "H00", text).out,
                             "1.H00  Stromgrenze: 12,600 A -> 15,500 A\n")

    def test_shown_text_reads_back(self):
        self.assertNotIn("(!)", self.run_on_drive("list", "H00").out)


if __name__ == "__main__":
    PROGRAM = sys.argv[1]
    unittest.main(argv=sys.argv[:1])
