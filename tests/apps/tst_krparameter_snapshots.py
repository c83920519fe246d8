#!/usr/bin/python3
"""Runs krparameter as a process: snapshot, diff, export and report.

Usage: tst_krparameter_snapshots.py PROGRAM SOURCE-FOLDER [TEST-CLASS...]
"""

import csv
import io
import json
import os
import re
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import unittest
import zlib
from pathlib import Path

PROGRAM = ""
SOURCE = Path()

GOOD, DIFFERENCES, USAGE, UNREADABLE, REJECTED, NOT_WRITABLE, WRITE_FAILED = range(7)
BEGIN = b"\xef\xbb\xbf\r\n"
SCRIPT = "<script>document.title = 'run'</script>"
DEVICE = ["--device", "two-axis-drive"]


class Run:
    def __init__(self, *words, program=None, **options):
        done = subprocess.run(
            program or [PROGRAM, *map(str, words)], capture_output=True, timeout=60, **options)
        self.code = done.returncode
        self.out = done.stdout.decode("utf-8")
        self.err = done.stderr.decode("utf-8")

    def lines(self):
        return [json.loads(line) for line in self.out.splitlines()]


def without_rights(*words):
    """Root, too, without the right to pass over those of files."""
    program = [PROGRAM, *map(str, words)]
    if os.geteuid() == 0:
        program[:0] = ["setpriv", "--bounding-set=-dac_override,-dac_read_search"]
    return Run(program=program)


def full_disk():
    """Every file is cut after 4096 bytes."""
    signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
    resource.setrlimit(resource.RLIMIT_FSIZE, (4096, 4096))


class SnapshotTest(unittest.TestCase):
    def setUp(self):
        self.folder = Path(tempfile.mkdtemp())
        self.a = self.project("a", "H00", "15.5")
        self.b = self.project("b", "H00", "16", "2.H00", "9", "E30[1]", "3")

    def tearDown(self):
        shutil.rmtree(self.folder)

    def project(self, name, *pairs):
        path = self.folder / name
        self.check(Run(*DEVICE, "--project", path, "set", *pairs), GOOD)
        return path

    def check(self, run, code, out=None, err=None):
        self.assertEqual(run.code, code, run.err)
        if out is not None:
            self.assertEqual(run.out, out)
        if err is not None:
            self.assertEqual(run.err, err)

    def snapshot(self, project, name, *words):
        path = self.folder / name
        self.check(Run(*DEVICE, "--project", project, "snapshot", "-o", path, *words), GOOD)
        return path

    def project_with_a_script(self):
        """The words that name a device whose A20 is called like a script, and a project of it."""
        device = json.loads((SOURCE / "devices/two-axis-drive.json").read_text(encoding="utf-8"))
        for parameter in device["parameters"]:
            if parameter.get("coordinates") == ["A20"]:
                parameter["name"] = SCRIPT
        description = self.folder / "device.json"
        description.write_text(json.dumps(device), encoding="utf-8")
        project = str(self.folder / "<b>c")
        words = ["--device", description, "--project", project]
        self.check(Run(*words, "set", "A20", "<i>&"), GOOD)
        return words

    def names(self):
        return sorted(entry.name for entry in self.folder.iterdir())


class Help(SnapshotTest):
    def test_of_every_command(self):
        for command in ("snapshot", "diff", "export", "report"):
            for language, begin in (("de", "Aufruf"), ("en", "Usage")):
                run = Run("--lang", language, command, "--help")
                self.check(run, GOOD, err="")
                self.assertTrue(run.out.startswith(f"{begin}: krparameter "))
                for line in run.out.splitlines():
                    self.assertLessEqual(len(line), 100, line)
            self.assertIn(f"  {command} ", Run("--help").out)


class Usage(SnapshotTest):
    def test_refused(self):
        for words, text in (
            (["snapshot", "a", "b"], "snapshot nimmt höchstens ein Projekt oder einen Snapshot"),
            (["snapshot", "--project", "a", "b"],
             "snapshot nimmt höchstens ein Projekt oder einen Snapshot"),
            (["snapshot", "-o", ""], "--output braucht einen Wert: DATEI"),
            (["snapshot", "--axis", "1"], "snapshot kennt die Option --axis nicht"),
            (["snapshot", "--filter", "x"],
             '"x" ist keine Bedingung der Form EIGENSCHAFT=WERT'),
            (["diff"], "diff braucht ein oder zwei Projekte oder Snapshots"),
            (["diff", "a", "b", "c"], "diff braucht ein oder zwei Projekte oder Snapshots"),
            (["diff", "--project", "a", "b", "c"],
             "diff braucht ein oder zwei Projekte oder Snapshots"),
            (["diff", "a", "b", "--csv", "--json"], "--csv und --json schließen sich aus"),
            (["diff", "a", "b", "--axis", "1"], "diff kennt die Option --axis nicht"),
            (["diff", "a", "b", "--allow-loss"], "diff kennt die Option --allow-loss nicht"),
            (["export"], "export braucht -o DATEI"),
            (["export", "a", "b", "-o", "c"],
             "export nimmt höchstens ein Projekt oder einen Snapshot"),
            (["export", "-o", "c", "--axis", "0"], "--axis nimmt eine Zahl von 1 bis 4"),
            (["report", "-o", "x"], "report braucht Projekte oder Snapshots"),
            (["report", "a", "b"], "report braucht -o DATEI oder --pdf DATEI"),
            (["report", "a", "b", "-o", "c", "--json"], "report kennt die Option --json nicht"),
        ):
            run = Run(*DEVICE, *words, cwd=self.folder)
            self.check(run, USAGE, out="")
            self.assertEqual(run.err.splitlines()[0], "krparameter: " + text)
        self.assertEqual(self.names(), ["a", "b"])

    def test_device_is_needed_for_a_project(self):
        run = Run("diff", self.a, self.b)
        self.check(run, USAGE, out="")
        self.assertIn("es fehlt --device DATEI", run.err)

    def test_unreadable_sides(self):
        broken = self.folder / "broken.json"
        broken.write_text("{")
        for side, text in (
            (self.folder / "none", "weder Projektordner noch Snapshot"),
            (broken, "das ist kein JSON (ab Byte 1)"),
            ("/dev/zero", "ist keine Datei"),
        ):
            run = Run(*DEVICE, "diff", side, self.b)
            self.check(run, UNREADABLE, out="")
            self.assertIn(f"krparameter: {side}: {text}", run.err)
        empty = self.folder / "empty"
        empty.mkdir()
        self.check(Run(*DEVICE, "diff", empty, self.b), UNREADABLE, out="")
        self.check(Run(*DEVICE, "--project", self.folder / "none", "diff"), UNREADABLE, out="")


class Snapshot(SnapshotTest):
    def test_file(self):
        run = Run(*DEVICE, "--project", self.a, "snapshot", "-o", self.folder / "a.json")
        self.check(run, GOOD, out="")
        self.assertIn(f"{self.folder}/a.json: 362 Parameter eingefroren\n", run.err)
        state = json.loads((self.folder / "a.json").read_text(encoding="utf-8"))
        self.assertEqual(state["format"], "kr-parameter-snapshot")
        self.assertEqual(state["livingSpaces"], [0, 1, 2])
        limit = [entry for entry in state["parameters"] if entry["coordinate"] == "H00"]
        self.assertEqual(limit, [{
            "coordinate": "H00", "name": "Stromgrenze", "livingSpaces": [1, 2],
            "elements": [{"number": 0, "readLevel": 0}],
            "values": [
                {"livingSpace": 1, "element": 0, "display": "15.500", "value": "15.5",
                 "native": "15500", "scaledUnit": "A", "nativeUnit": "mA"},
                {"livingSpace": 2, "element": 0, "display": "12.600", "value": "12.6",
                 "native": "12600", "scaledUnit": "A", "nativeUnit": "mA"}]}])

    def test_project_as_argument(self):
        by_option = Run(*DEVICE, "--project", self.a, "snapshot")
        self.check(Run(*DEVICE, "snapshot", self.a), GOOD, out=by_option.out, err=by_option.err)
        self.assertIn('"display":"15.500"', by_option.out.replace(" ", ""))
        self.check(Run(*DEVICE, "snapshot", self.folder / "none"), UNREADABLE, out="")

    def test_output_of_the_defaults(self):
        run = Run(*DEVICE, "snapshot")
        self.check(run, GOOD, err="")
        self.assertEqual(len(json.loads(run.out)["parameters"]), 362)

    def test_filter_and_language(self):
        run = Run(*DEVICE, "--lang", "en", "snapshot", "--filter", "Coordinate=H00")
        self.check(run, GOOD, err="")
        self.assertEqual([entry["name"] for entry in json.loads(run.out)["parameters"]],
                         ["Current limit"])

    def test_values_above_the_access_level(self):
        low, high = (Run(*DEVICE, "snapshot", "--access-level", level) for level in ("0", "6"))
        self.check(low, GOOD, out=high.out)
        self.assertIn("auch die über der Zugriffsstufe", Run("snapshot", "--help").out)

    def test_reads_back_without_a_device(self):
        first = self.snapshot(self.a, "a.json")
        second = self.snapshot(self.b, "b.json")
        self.check(Run("diff", first, first), GOOD, out="", err="")
        run = Run("diff", first, second)
        self.check(run, DIFFERENCES, err="")
        self.assertEqual(run.out, Run(*DEVICE, "diff", self.a, self.b).out)
        self.check(Run(*DEVICE, "diff", first, self.a), GOOD, out="")

    def test_full_output(self):
        with open("/dev/full", "wb") as full:
            done = subprocess.run([PROGRAM, *DEVICE, "snapshot"], stdout=full,
                                  stderr=subprocess.PIPE, timeout=60)
        self.assertEqual(done.returncode, WRITE_FAILED)
        self.assertEqual(done.stderr.decode("utf-8"), "die Ausgabe konnte nicht vollständig "
                         "geschrieben werden\n")

    def test_folder_that_is_read_only(self):
        path = self.snapshot(self.a, "a.json")
        before = path.read_bytes()
        self.folder.chmod(0o555)
        for words in (["snapshot", self.b, "-o", path],
                      ["report", self.a, self.b, "-o", self.folder / "r.html"]):
            run = without_rights(*DEVICE, *words)
            self.check(run, WRITE_FAILED, out="")
            self.assertIn(f"krparameter: {words[-1]}: ", run.err)
        self.folder.chmod(0o755)
        self.assertEqual(path.read_bytes(), before)
        self.assertEqual(self.names(), ["a", "a.json", "b"])

    def test_cannot_be_written(self):
        path = self.snapshot(self.a, "a.json")
        before = path.read_bytes()
        run = Run(*DEVICE, "--project", self.b, "snapshot", "-o", path, preexec_fn=full_disk)
        self.check(run, WRITE_FAILED, out="")
        self.assertIn(f"krparameter: {path}: ", run.err)
        self.assertEqual(path.read_bytes(), before)
        for place in (self.folder / "none/a.json", self.folder, "/dev/full"):
            run = Run(*DEVICE, "snapshot", "-o", place)
            self.check(run, WRITE_FAILED, out="")
            self.assertIn(f"krparameter: {place}: ", run.err)
        self.assertEqual(self.names(), ["a", "a.json", "b"])

    def test_cut_and_damaged_files(self):
        path = self.snapshot(self.a, "a.json")
        whole = path.read_bytes()
        for size in (0, 1, len(whole) // 3, len(whole) - 3):
            path.write_bytes(whole[:size])
            self.check(Run("diff", path, path), UNREADABLE, out="")
        for size in (1, 100000):
            path.write_bytes(os.urandom(size))
            self.check(Run("diff", path, path), UNREADABLE, out="")


class Diff(SnapshotTest):
    CSV_HEAD = ["address", "name", "left", "right", "leftNative", "rightNative",
                "leftState", "rightState"]
    TEXT = ("1.E30[1]  Geschwindigkeitsfaktor · Zähler: 1 -> 3\n"
            "1.H00  Stromgrenze: 15.500 A -> 16.000 A\n"
            "2.H00  Stromgrenze: 12.600 A -> 9.000 A\n")

    def test_two_projects(self):
        self.check(Run(*DEVICE, "diff", self.a, self.b), DIFFERENCES, out=self.TEXT)
        self.check(Run(*DEVICE, "--project", self.a, "diff", self.b), DIFFERENCES, out=self.TEXT)
        self.check(Run(*DEVICE, "diff", self.a, self.a), GOOD, out="")

    def test_against_the_defaults(self):
        text = "1.H00  Stromgrenze: 12.600 A -> 15.500 A\n"
        self.check(Run(*DEVICE, "diff", self.a), DIFFERENCES, out=text)
        self.check(Run(*DEVICE, "--project", self.a, "diff"), DIFFERENCES, out=text)

    def test_snapshot_as_the_project(self):
        first, second = self.snapshot(self.a, "a.json"), self.snapshot(self.b, "b.json")
        self.check(Run("--project", first, "diff", second), DIFFERENCES, out=self.TEXT, err="")
        self.check(Run("--project", first, "diff", first), GOOD, out="", err="")
        export = self.folder / "a.txt"
        self.check(Run("--project", first, "export", "-o", export), GOOD, out="")
        self.check(Run("export", first, "-o", self.folder / "b.txt"), GOOD, out="")
        self.assertEqual(export.read_bytes(), (self.folder / "b.txt").read_bytes())

    def test_snapshot_against_the_defaults(self):
        path = self.snapshot(self.a, "a.json")
        self.check(Run(*DEVICE, "diff", path), DIFFERENCES,
                   out="1.H00  Stromgrenze: 12.600 A -> 15.500 A\n")
        run = Run("diff", path)
        self.check(run, USAGE, out="")
        self.assertIn("es fehlt --device", run.err)

    def test_masked_values_show_no_difference(self):
        """Both sides show "<offline>", whatever is behind it; who sees the values compares them."""
        device = json.loads((SOURCE / "devices/two-axis-drive.json").read_text(encoding="utf-8"))
        for parameter in device["parameters"]:
            if parameter.get("coordinates") == ["H00"]:
                parameter["elements"][0]["levels"] = {"read": 0, "write": 6}
        description = self.folder / "device.json"
        description.write_text(json.dumps(device), encoding="utf-8")
        words = ["--device", description, "diff", self.a]
        self.check(Run(*words), GOOD, out="")
        self.check(Run(*words, "--access-level", "6"), GOOD, out="")
        self.check(Run(*words, "--access-level", "5"), DIFFERENCES,
                   out="1.H00  Stromgrenze: <offline> (12.600) A -> <offline> (15.500) A\n")
        self.assertIn("außer mit --access-level 5", Run("diff", "--help").out)

    def test_json(self):
        run = Run(*DEVICE, "diff", self.a, self.b, "--json")
        self.check(run, DIFFERENCES)
        self.assertEqual(run.lines()[1], {
            "address": "1.H00", "name": "Stromgrenze",
            "left": {"display": "15.500 A", "value": "15.5 A", "native": "15500 mA"},
            "right": {"display": "16.000 A", "value": "16 A", "native": "16000 mA"}})
        self.check(Run(*DEVICE, "diff", self.a, self.a, "--json"), GOOD, out="")

    def test_csv(self):
        c = self.project("c", "A20", 'say "hi",\n=1')
        d = self.project("d", "A20", "=1+2")
        run = Run(*DEVICE, "diff", c, d, "--csv")
        self.check(run, DIFFERENCES)
        self.assertEqual(list(csv.reader(io.StringIO(run.out, newline=""))), [
            self.CSV_HEAD,
            ["A20", "Anlagenkennzeichen", 'say "hi",\n=1', "'=1+2", 'say "hi",\n=1', "'=1+2",
             "value", "value"]])
        run = Run(*DEVICE, "diff", c, c, "--csv")
        self.check(run, GOOD, out=",".join(f'"{title}"' for title in self.CSV_HEAD) + "\r\n")

    def test_csv_tells_empty_fields_apart(self):
        c = self.project("c", "A20", "text")
        only = ["--filter", "Coordinate=A20"]
        text, empty = self.snapshot(c, "c.json", *only), self.snapshot(self.a, "a.json", *only)
        none = self.snapshot(self.a, "none.json", "--filter", "Coordinate=Z99")

        def rows(left, right, *words):
            run = Run("diff", left, right, "--csv", *words)
            self.check(run, DIFFERENCES)
            return [row[2:] for row in csv.reader(io.StringIO(run.out, newline=""))][1:]

        self.assertEqual(rows(text, empty), [["text", "", "text", "", "value", "value"]])
        self.assertEqual(rows(none, text), [["", "text", "", "text", "absent", "value"]])
        secret = json.loads(text.read_text(encoding="utf-8"))
        secret["parameters"][0]["elements"][0]["readLevel"] = 5
        text.write_text(json.dumps(secret), encoding="utf-8")
        self.assertEqual(rows(text, none), [["", "", "", "", "unreadable", "absent"]])
        self.assertEqual(rows(text, none, "--access-level", "5"),
                         [["text", "", "text", "", "value", "absent"]])

    def test_output_that_cannot_be_written(self):
        """Differences or none: who does not see them all is told."""
        for words in ([self.a, self.b], [self.a, self.a, "--csv"]):
            with open("/dev/full", "wb") as full:
                done = subprocess.run([PROGRAM, *map(str, [*DEVICE, "diff", *words])],
                                      stdout=full, stderr=subprocess.PIPE, timeout=60)
            self.assertEqual(done.returncode, WRITE_FAILED)
            self.assertTrue(done.stderr.decode("utf-8").endswith(
                "die Ausgabe konnte nicht vollständig geschrieben werden\n"))

    def test_last_of_two_projects_counts(self):
        words = [*DEVICE, "--project", self.a, "--project", self.b]
        self.check(Run(*words, "diff", self.b), GOOD, out="")
        run = Run(*words, "get", "H00", "--json")
        self.check(run, GOOD)
        self.assertEqual(run.lines()[0]["display"], "16.000 A")

    def test_filter(self):
        words = [*DEVICE, "diff", self.a, self.b]
        only_limit = self.TEXT.split("\n", 1)[1]
        self.check(Run(*words, "--filter", "Coordinate=H00"), DIFFERENCES, out=only_limit)
        self.check(Run(*words, "--filter", "Coordinate=H00", "--filter", "Coordinate=E30"),
                   DIFFERENCES, out=self.TEXT)
        self.check(Run(*words, "--filter", "Coordinate=H00", "--filter", "ParameterKind=5"),
                   GOOD, out="")

    def test_unknown_property_answers_like_the_coordinate(self):
        run = Run(*DEVICE, "diff", self.a, self.b, "--filter", "coordinate=H00")
        self.check(run, DIFFERENCES, out=self.TEXT.split("\n", 1)[1])
        self.assertIn('Die Eigenschaft "coordinate" ist unbekannt und antwortet wie "Coordinate".',
                      run.err)

    def test_filter_needs_projects(self):
        path = self.snapshot(self.a, "a.json")
        run = Run(*DEVICE, "diff", path, self.b, "--filter", "Coordinate=H00")
        self.check(run, USAGE, out="")
        self.assertIn(f"--filter wählt aus Projekten; {path} ist ein Snapshot", run.err)

    def test_parameter_on_one_side(self):
        path = self.snapshot(self.a, "one.json", "--filter", "Coordinate=H00")
        empty = self.snapshot(self.a, "none.json", "--filter", "Coordinate=Z99")
        run = Run("diff", path, empty)
        self.check(run, DIFFERENCES, err="", out=(
            "1.H00  Stromgrenze: 15.500 A -> <nicht vorhanden>\n"
            "2.H00  Stromgrenze: 12.600 A -> <nicht vorhanden>\n"))
        self.assertIsNone(Run("diff", path, empty, "--json").lines()[0]["right"])

    def test_value_above_the_access_level(self):
        device = json.loads((SOURCE / "devices/two-axis-drive.json").read_text(encoding="utf-8"))
        for parameter in device["parameters"]:
            if parameter.get("coordinates") == ["H00"]:
                parameter["elements"][0]["levels"] = {"read": 3, "write": 3}
        description = self.folder / "device.json"
        description.write_text(json.dumps(device), encoding="utf-8")
        words = ["--device", description, "diff", self.a, "--access-level"]
        self.check(Run(*words, "3"), DIFFERENCES, out="1.H00  Stromgrenze: 12.600 A -> 15.500 A\n")
        self.check(Run(*words, "2"), DIFFERENCES,
                   out="1.H00  Stromgrenze: <nicht lesbar> -> <nicht lesbar>\n")
        self.assertEqual(Run(*words, "2", "--json").lines()[0]["left"], {"readable": False})

    def test_line_ends_stay_in_the_line(self):
        c = self.project("c", "A20", "one\ntwo")
        self.check(Run(*DEVICE, "diff", c), DIFFERENCES,
                   out="A20  Anlagenkennzeichen:  -> one\\ntwo\n")


class Export(SnapshotTest):
    def export(self, *words, **options):
        return Run(*DEVICE, "export", *words, **options)

    def test_whole_text(self):
        path = self.folder / "a.txt"
        run = self.export(self.a, "-o", path)
        self.check(run, GOOD, out="")
        self.assertIn(f"{path}: 1061 Zeilen geschrieben und zurückgelesen\n", run.err)
        text = path.read_bytes()
        self.assertTrue(text.startswith(
            BEGIN + '"A00";"Gerätebezeichnung";"Zweiachsregler"\n'.encode()))
        self.assertIn('\n"1.H00";"Stromgrenze";"15.500 A"\n'
                      '"2.H00";"Stromgrenze";"12.600 A"\n'.encode(), text)
        self.assertIn('\n"1.E30[1]";"Zähler";"1"\n"1.E30[2]";"Nenner";"1"\n'.encode(), text)
        self.assertEqual(text.count(b"\n"), 1062)
        self.assertEqual(self.names(), ["a", "a.txt", "b"])

    def test_sources(self):
        snapshot = self.snapshot(self.a, "a.json")
        texts = []
        for number, words in enumerate(([*DEVICE, "export", self.a],
                                        [*DEVICE, "--project", self.a, "export"],
                                        ["export", snapshot])):
            path = self.folder / f"{number}.txt"
            self.check(Run(*words, "-o", path), GOOD)
            texts.append(path.read_bytes())
        self.assertEqual(texts[0], texts[1])
        self.assertEqual(texts[0], texts[2])
        self.check(self.export("-o", self.folder / "default.txt"), GOOD)
        self.assertIn(b'"1.H00";"Stromgrenze";"12.600 A"\n',
                      (self.folder / "default.txt").read_bytes())

    def test_axis_and_filter(self):
        path = self.folder / "a.txt"
        self.check(self.export(self.a, "-o", path, "--axis", "2", "--filter", "Coordinate=H00",
                               "--filter", "Coordinate=A00"), GOOD)
        self.assertEqual(path.read_bytes(),
                         BEGIN + '"A00";"Gerätebezeichnung";"Zweiachsregler"\n'
                         '"2.H00";"Stromgrenze";"12.600 A"\n'.encode())
        self.check(self.export(self.a, "-o", path, "--filter", "Coordinate=Z99"), GOOD)
        self.assertEqual(path.read_bytes(), BEGIN)

    def test_values_above_the_access_level(self):
        texts = []
        for level in ("0", "6"):
            path = self.folder / f"{level}.txt"
            self.check(self.export(self.a, "-o", path, "--access-level", level), GOOD)
            texts.append(path.read_bytes())
        self.assertEqual(texts[0], texts[1])
        self.assertIn("auch die über der Zugriffsstufe", Run("export", "--help").out)

    def test_texts_that_it_cannot_carry(self):
        path, table = self.folder / "c.txt", self.folder / "c.csv"
        c = self.project("c", "A20", 'a"b\n', "A21", "=1+2")
        only = ["--filter", "Coordinate=A20", "--filter", "Coordinate=A21"]
        run = self.export(c, "-o", path, "--rfc4180", table, *only, "--json")
        self.check(run, GOOD)
        self.assertIn("Parameter A20: der Wert enthält ein Anführungszeichen\n"
                      "Parameter A20: der Wert enthält ein Zeilenende\n"
                      "Parameter A21: der Wert wird von Tabellenprogrammen als Formel ausgeführt\n",
                      run.err)
        self.assertEqual(run.lines(), [{"file": str(path), "lines": 2, "issues": [
            {"address": "A20", "field": "value", "kind": "quote", "text": 'a"b\n'},
            {"address": "A20", "field": "value", "kind": "lineEnd", "text": 'a"b\n'},
            {"address": "A21", "field": "value", "kind": "formula", "text": "=1+2"}]}])
        self.assertTrue(path.read_bytes().startswith(
            BEGIN + b'"A20";"Anlagenkennzeichen";"a"b\n"\n"A21";"'))
        with open(table, encoding="utf-8", newline="") as file:
            rows = list(csv.reader(file))
        self.assertEqual([row[0] for row in rows], ["address", "A20", "A21"])
        self.assertEqual([row[2] for row in rows], ["value", 'a"b\n', "'=1+2"])

    def test_full_disk(self):
        path = self.folder / "a.txt"
        self.check(self.export(self.a, "-o", path), GOOD)
        before = path.read_bytes()
        run = self.export(self.b, "-o", path, preexec_fn=full_disk)
        self.check(run, WRITE_FAILED, out="")
        self.assertIn(f"krparameter: {path}: wurde nicht vollständig geschrieben\n", run.err)
        self.assertEqual(path.read_bytes(), before)
        self.assertEqual(self.names(), ["a", "a.txt", "b"])
        run = self.export(self.b, "-o", self.folder / "new.txt", preexec_fn=full_disk)
        self.check(run, WRITE_FAILED, out="")
        self.assertEqual(self.names(), ["a", "a.txt", "b"])

    def test_places_that_cannot_be_written(self):
        for place, text in (
            (self.folder / "none/a.txt", "der Ordner ist nicht vorhanden"),
            (self.folder, "ist ein Ordner"),
            ("/dev/full", "ist keine Datei"),
            ("/proc/a.txt", "in den Ordner kann nicht geschrieben werden"),
        ):
            run = self.export("-o", place)
            self.check(run, WRITE_FAILED, out="")
            self.assertEqual(run.err, f"krparameter: {place}: {text}\n")

    def test_read_only_folder(self):
        folder = self.folder / "closed"
        folder.mkdir()
        path, table = folder / "a.txt", folder / "a.csv"
        self.check(self.export(self.a, "-o", path, "--rfc4180", table), GOOD)
        before = path.read_bytes(), table.read_bytes()
        folder.chmod(0o555)
        run = without_rights(*DEVICE, "export", self.b, "-o", path)
        self.check(run, WRITE_FAILED, out="")
        self.assertEqual(
            run.err.splitlines()[-1],
            f"krparameter: {path}: in den Ordner kann nicht geschrieben werden")
        run = without_rights(*DEVICE, "export", self.b, "-o", self.folder / "b.txt",
                             "--rfc4180", table)
        self.check(run, WRITE_FAILED, out="")
        self.assertEqual(run.err.splitlines()[-1],
                         f"krparameter: {table}: darf nicht geschrieben werden")
        folder.chmod(0o755)
        self.assertEqual((path.read_bytes(), table.read_bytes()), before)
        self.assertEqual(sorted(entry.name for entry in folder.iterdir()), ["a.csv", "a.txt"])

    def test_table_cut_by_a_full_disk(self):
        """The text fits and the table, which is longer, does not."""
        path, table = self.folder / "a.txt", self.folder / "a.csv"
        only = ["--filter", "Coordinate=H00"]
        self.check(self.export(self.b, "-o", path, *only), GOOD)
        size = path.stat().st_size
        table.write_text("earlier")

        def limit():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (size, size))

        run = self.export(self.b, "-o", path, "--rfc4180", table, *only, preexec_fn=limit)
        self.check(run, WRITE_FAILED, out="")
        self.assertIn(f"krparameter: {table}: ", run.err)
        self.assertEqual(table.read_text(), "earlier")
        self.assertEqual(self.names(), ["a", "a.csv", "a.txt", "b"])

    def test_one_file_for_both_is_refused(self):
        path, link = self.folder / "a.txt", self.folder / "link"
        link.symlink_to(path)
        for other in (path, link, self.folder / "a/../a.txt"):
            run = self.export(self.a, "-o", path, "--rfc4180", other)
            self.check(run, USAGE, out="")
            self.assertIn("-o und --rfc4180 brauchen verschiedene Dateien\n", run.err)
        self.assertEqual(self.names(), ["a", "b", "link"])

    def test_what_is_read_is_not_written(self):
        state = self.snapshot(self.a, "a.json")
        device = self.folder / "device.json"
        shutil.copy(SOURCE / "devices/two-axis-drive.json", device)
        link = self.folder / "link"
        link.symlink_to(state)
        block = self.a / "Parameter.ini"
        kept = [path.read_bytes() for path in (state, device, block)]
        for command in (["export"], ["snapshot"], ["report"]):
            for words, output in ((["--project", state], state), ([state], link),
                                  ([self.a], block), ([self.a], device)):
                run = Run("--device", device, *command, *words, "-o", output)
                self.check(run, USAGE, out="")
                self.assertIn(f"-o {output}: die Datei wird gelesen\n", run.err)
        self.check(Run("--device", device, "export", self.a, "-o", self.folder / "x.txt",
                       "--rfc4180", block), USAGE, out="")
        self.assertEqual([path.read_bytes() for path in (state, device, block)], kept)
        self.assertEqual(self.names(), ["a", "a.json", "b", "device.json", "link"])
        # Another file of the folder is nobody's input.
        self.check(self.export(self.a, "-o", self.a / "text.txt"), GOOD)

    def test_name_of_a_folder(self):
        for name in ("none/", "a/"):
            run = self.export(self.a, "-o", f"{self.folder}/{name}")
            self.check(run, WRITE_FAILED, out="")
            self.assertIn(f"krparameter: {self.folder}/{name}: ", run.err)
        self.assertEqual(self.names(), ["a", "b"])

    def test_issues_are_told_though_the_table_fails(self):
        c = self.project("c", "A20", "=1")
        run = self.export(c, "-o", self.folder / "c.txt", "--rfc4180", self.folder / "none/c.csv")
        self.check(run, WRITE_FAILED, out="")
        self.assertIn("A20: ", run.err)
        self.assertIn(f"krparameter: {self.folder}/none/c.csv: ", run.err)

    def test_links_stay_links(self):
        path, link, second = self.folder / "a.txt", self.folder / "link", self.folder / "second"
        link.symlink_to(path)
        second.symlink_to(link)
        self.check(self.export(self.a, "-o", second), GOOD)
        self.assertTrue(link.is_symlink() and second.is_symlink())
        self.assertTrue(path.is_file() and not path.is_symlink())
        path.unlink()
        path.symlink_to(second)
        run = self.export(self.a, "-o", second)
        self.check(run, WRITE_FAILED, out="")
        self.assertEqual(run.err.splitlines()[-1],
                         f"krparameter: {second}: die Verweise führen im Kreis")

    def test_table_that_cannot_be_written(self):
        path = self.folder / "a.txt"
        run = self.export("-o", path, "--rfc4180", self.folder / "none/a.csv")
        self.check(run, WRITE_FAILED, out="")
        self.assertIn(f"krparameter: {self.folder}/none/a.csv: ", run.err)


class Report(SnapshotTest):
    def report(self, *words, **options):
        path = self.folder / "report.html"
        self.check(Run(*DEVICE, "report", *words, "-o", path, **options), GOOD, out="")
        return path.read_bytes().decode("utf-8")

    HEAD = ('<html>\n<head>\n<meta charset="UTF-8">\n<meta http-equiv="Content-Security-Policy" '
            'content="default-src \'none\'">\n</head>\n<body>\n')
    TABLE = ('<h1>Änderungen</h1><br><br>\n<table border="1" width="100%">\n'
             '<thead bgcolor="lightgrey"><th  width="40%">Parameter</th>\n'
             '<th width="30%">a</th>\n<th width="30%">b</th>\n</thead>'
             '<tr><td>1.E30 Geschwindigkeitsfaktor</td>\n<td></td>\n<td></td>\n</tr>'
             '<tr><td>&nbsp;&nbsp;1.E30[1] Zähler</td>\n<td>1</td>\n<td>3</td>\n</tr>'
             '<tr><td>1.H00 Stromgrenze</td>\n<td>15.500 A</td>\n<td>16.000 A</td>\n</tr>'
             '<tr><td>2.H00 Stromgrenze</td>\n<td>12.600 A</td>\n<td>9.000 A</td>\n</tr>'
             '</table></body>\n</html>\n')

    def test_safe_document(self):
        self.assertEqual(self.report(self.a, self.b), self.HEAD + self.TABLE)

    def test_exact_document(self):
        self.assertEqual(self.report(self.a, self.b, "--exact"),
                         '<html>\n<meta charset="UTF-8"><body>\n' + self.TABLE)

    def test_sides(self):
        one = self.report(self.a)
        self.assertIn("<h1>Parameterwerte</h1>", one)
        self.assertEqual(one.count("<th"), 3)
        three = self.report(self.a, self.b, self.snapshot(self.a, "c.json"))
        self.assertIn('<th width="30%">c.json</th>', three)
        self.assertIn("<h1>Changes</h1>", self.report(self.a, self.b, "--lang", "en"))

    def test_no_difference(self):
        html = self.report(self.a, self.a)
        self.assertIn("</thead></table></body>", html)

    def test_without_a_device_or_a_screen(self):
        first, second = self.snapshot(self.a, "a.json"), self.snapshot(self.b, "b.json")
        path = self.folder / "report.html"
        environment = {name: value for name, value in os.environ.items()
                       if name not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
        for platform in ({}, {"QT_QPA_PLATFORM": "xcb"}):
            self.check(Run("report", first, second, "-o", path, env={**environment, **platform}),
                       GOOD, out="")
        self.assertIn("<td>16.000 A</td>", path.read_text(encoding="utf-8"))

    def test_names_and_values_are_escaped(self):
        words = self.project_with_a_script()
        path = self.folder / "report.html"
        self.check(Run(*words, "report", self.a, "-o", path), GOOD)
        safe = path.read_text(encoding="utf-8")
        self.assertNotIn("<script>", safe)
        self.assertIn("A20 &lt;script&gt;document.title = 'run'&lt;/script&gt;</td>", safe)
        self.assertIn("<td>&lt;i&gt;&amp;</td>", safe)
        self.assertIn('<th width="30%">&lt;b&gt;c</th>', safe)
        self.check(Run(*words, "report", self.a, "-o", path, "--exact"), GOOD)
        exact = path.read_text(encoding="utf-8")
        self.assertIn(f"A20 {SCRIPT}</td>", exact)
        self.assertIn("<td>&lt;i&gt;&amp;</td>", exact)

    def test_values_above_the_access_level_stay_empty(self):
        html = self.report(self.a, "--access-level", "0")
        self.assertIn("<td>15.500 A</td>", html)
        self.assertGreater(html.count("<td></td>"),
                           self.report(self.a, "--access-level", "6").count("<td></td>"))

    @staticmethod
    def drawn_letters(pdf):
        """The page's content draws them one by one; fonts and the like are no content."""
        count = 0
        for stream in re.findall(rb"stream\r?\n(.*?)endstream", pdf, re.DOTALL):
            try:
                count += len(re.findall(rb"> Tj\b", zlib.decompress(stream)))
            except zlib.error:
                pass
        return count

    def test_pdf(self):
        path = self.folder / "report.pdf"
        self.check(Run(*DEVICE, "report", self.a, self.b, "--pdf", path), GOOD, out="")
        pdf = path.read_bytes()
        self.assertTrue(pdf.startswith(b"%PDF-1."))
        self.assertTrue(pdf.rstrip().endswith(b"%%EOF"))
        # One page, on which every letter of the table is drawn.
        self.assertEqual(len(re.findall(rb"/Type /Page\b(?!s)", pdf)), 1)
        texts = ["Änderungen", "Parameter", "a", "b", "1.E30 Geschwindigkeitsfaktor",
                 "1.E30[1] Zähler", "1", "3", "1.H00 Stromgrenze", "15.500 A", "16.000 A",
                 "2.H00 Stromgrenze", "12.600 A", "9.000 A"]
        letters = len("".join(texts).replace(" ", ""))
        self.assertGreaterEqual(self.drawn_letters(pdf), letters)
        self.assertLessEqual(self.drawn_letters(pdf), letters + 40)
        self.assertFalse((self.folder / "report.html").exists())

    def test_pdf_of_many_pages(self):
        path, page = self.folder / "report.pdf", self.folder / "report.html"
        self.check(Run(*DEVICE, "report", self.a, "-o", page, "--pdf", path), GOOD, out="")
        self.assertGreater(len(re.findall(rb"/Type /Page\b(?!s)", path.read_bytes())), 5)
        self.assertIn("<td>15.500 A</td>", page.read_text(encoding="utf-8"))

    def test_pdf_is_printed_from_the_safe_form(self):
        words = [*self.project_with_a_script(), "report", self.a, "--pdf"]
        safe, exact = self.folder / "safe.pdf", self.folder / "exact.pdf"
        self.check(Run(*words, safe), GOOD)
        self.check(Run(*words, exact, "--exact"), GOOD)
        # As markup the script would be no text.
        self.assertEqual(self.drawn_letters(exact.read_bytes()),
                         self.drawn_letters(safe.read_bytes()))

    def test_cannot_be_written(self):
        path = self.folder / "report.html"
        path.write_text("earlier")
        for option in ("-o", "--pdf"):
            run = Run(*DEVICE, "report", self.a, option, path, preexec_fn=full_disk)
            self.check(run, WRITE_FAILED, out="")
            self.assertIn(f"krparameter: {path}: ", run.err)
            self.assertEqual(path.read_text(), "earlier")
        self.check(Run(*DEVICE, "report", self.a, "-o", "/dev/full"), WRITE_FAILED, out="")


class FullFileSystem(SnapshotTest):
    """On a file system of a few pages, where this may be mounted."""

    def setUp(self):
        super().setUp()
        self.mounted = self.folder / "small"
        self.mounted.mkdir()
        words = ["mount", "-t", "tmpfs", "-o", "size=16k", "tmpfs", str(self.mounted)]
        if shutil.which("mount") is None or subprocess.run(words, capture_output=True).returncode != 0:
            super().tearDown()
            self.skipTest("no file system can be mounted")

    def tearDown(self):
        subprocess.run(["umount", str(self.mounted)], capture_output=True)
        super().tearDown()

    def test_export(self):
        path = self.mounted / "a.txt"
        run = Run(*DEVICE, "export", self.a, "-o", path)
        self.check(run, WRITE_FAILED, out="")
        self.assertIn(f"krparameter: {path}: wurde nicht vollständig geschrieben\n", run.err)
        self.assertEqual(list(self.mounted.iterdir()), [])


class Browser(SnapshotTest):
    @unittest.skipUnless(shutil.which("chromium"), "no Chromium is installed")
    def test_script_in_a_name_runs_in_the_exact_document_alone(self):
        words = self.project_with_a_script()
        path = self.folder / "report.html"
        for option, title in ((["--exact"], "<title>run</title>"), ([], None)):
            self.check(Run(*words, "report", self.a, "-o", path, *option), GOOD)
            shown = subprocess.run(
                ["chromium", "--headless", "--no-sandbox", "--disable-gpu", "--dump-dom",
                 f"--user-data-dir={self.folder}/profile", path.as_uri()],
                capture_output=True, timeout=120).stdout.decode("utf-8")
            self.assertIn("<td>15.500 A</td>", shown)
            self.assertEqual(title is not None, "<title>" in shown)
            self.assertIn(title or "&lt;script&gt;document.title = 'run'&lt;/script&gt;", shown)


if __name__ == "__main__":
    PROGRAM, SOURCE = sys.argv[1], Path(sys.argv[2])
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])
