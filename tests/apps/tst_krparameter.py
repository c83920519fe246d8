#!/usr/bin/python3
"""Runs krparameter as a process: exit codes, options, help, JSON, and which stream says what.

Usage: tst_krparameter.py PROGRAM SOURCE-FOLDER
"""

import json
import os
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

PROGRAM = ""
SOURCE = Path()

GOOD, DIFFERENCES, USAGE, UNREADABLE, REJECTED, NOT_WRITABLE, WRITE_FAILED = range(7)

EDS = """[DeviceInfo]
VendorName=Example
VendorNumber=0x1
ProductName=Example drive
ProductNumber=0x2
[MandatoryObjects]
SupportedObjects=1
1=0x1000
[1000]
ParameterName=Device type
ObjectType=0x7
DataType=0x0007
AccessType=ro
DefaultValue=0x192
[ManufacturerObjects]
SupportedObjects=1
1=0x2000
[2000]
ParameterName=Gain
ObjectType=0x7
DataType=0x0006
AccessType=rw
DefaultValue=5
"""


class Run:
    def __init__(self, *words, program=None, **options):
        done = subprocess.run(program or [PROGRAM, *words], capture_output=True, timeout=60, **options)
        self.code = done.returncode
        self.out = done.stdout.decode("utf-8")
        self.err = done.stderr.decode("utf-8")

    def lines(self):
        return [json.loads(line) for line in self.out.splitlines()]


DRIVE = ["--device", "two-axis-drive"]


def on_drive(*words, **options):
    return Run(*DRIVE, *words, **options)


def without_rights(*words):
    """Root, too, without the right to pass over those of files."""
    program = [PROGRAM, *words]
    if os.geteuid() == 0:
        program[:0] = ["setpriv", "--bounding-set=-dac_override,-dac_read_search"]
    return Run(program=program)


class CommandLineTest(unittest.TestCase):
    def setUp(self):
        self.folder = Path(tempfile.mkdtemp())
        self.project = str(self.folder / "project")

    def tearDown(self):
        shutil.rmtree(self.folder)

    def check(self, run, code, out=None, err=None):
        self.assertEqual(run.code, code, run.err)
        if out is not None:
            self.assertEqual(run.out, out)
        if err is not None:
            self.assertEqual(run.err, err)

    def block(self):
        return (Path(self.project) / "Parameter.ini").read_bytes()

    def save(self, *words):
        self.check(on_drive("--project", self.project, "set", *words), GOOD)


class Help(CommandLineTest):
    def test_of_the_program(self):
        for words in (["--help"], ["-h"]):
            run = Run(*words)
            self.check(run, GOOD, err="")
            for part in ("--device DATEI", "--project", "--axis", "--access-level", "--lang", "--json",
                         "--force", "--allow-loss", "import-eds", "Rückgabewerte: 0 gut"):
                self.assertIn(part, run.out)

    def test_of_every_command_without_a_device(self):
        for command in ("info", "check", "list", "get", "set", "import-eds", "demo"):
            for words in ([command, "--help"], ["--help", command], ["-h", command]):
                run = Run(*words)
                self.check(run, GOOD, err="")
                self.assertTrue(run.out.startswith(f"Aufruf: krparameter [OPTIONEN] {command}"))

    def test_version(self):
        self.check(Run("--version"), GOOD, out="krparameter 0.1.0\n", err="")

    def test_lines_fit_a_terminal(self):
        for words in ([], ["check"], ["list"], ["set"], ["get"], ["demo"], ["import-eds"]):
            for line in Run(*words, "--help").out.splitlines():
                self.assertLessEqual(len(line), 100, line)


class Usage(CommandLineTest):
    def test_refused(self):
        for words, text in (
            ([], "es fehlt der Befehl"),
            (["frob"], 'unbekannter Befehl "frob"'),
            (["list", "--frob"], "unbekannte Option --frob"),
            (["get", "E84", "--hidden"], "get kennt die Option --hidden nicht"),
            (["list"], "es fehlt --device DATEI, zum Beispiel --device two-axis-drive"),
            (["list", "--device"], "--device braucht einen Wert: DATEI"),
            (["list", "--device", ""], "--device braucht einen Wert: DATEI"),
            (["list", "--device=", "--json"], "--device braucht einen Wert: DATEI"),
            (["demo", "--project", ""], "--project braucht einen Wert: ORDNER"),
            (["import-eds", "x.eds", "--project="], "--project braucht einen Wert: ORDNER"),
            (["list", "--lang", "fr"], '--lang nimmt de oder en, nicht "fr"'),
            (["list", "--json=1"], "--json nimmt keinen Wert"),
            (["demo", "x"], "demo nimmt keine Argumente"),
            (["demo", "--device", "two-axis-drive"], "demo kennt die Option --device nicht"),
            (["demo", "--axis", "1"], "demo kennt die Option --axis nicht"),
            (["demo", "--access-level", "0"], "demo kennt die Option --access-level nicht"),
            (["demo", "--json"], "demo kennt die Option --json nicht"),
            (["demo", "--allow-loss"], "demo kennt die Option --allow-loss nicht"),
            (["info", "--axis", "1"], "info kennt die Option --axis nicht"),
            (["info", "--access-level", "0"], "info kennt die Option --access-level nicht"),
            (["info", "--allow-loss"], "info kennt die Option --allow-loss nicht"),
            (["check", "--project", "p"], "check kennt die Option --project nicht"),
            (["list", "--allow-loss"], "list kennt die Option --allow-loss nicht"),
            (["get", "E84", "--allow-loss"], "get kennt die Option --allow-loss nicht"),
            (["import-eds", "--device", "d"], "import-eds kennt die Option --device nicht"),
            (["import-eds", "--axis", "1"], "import-eds kennt die Option --axis nicht"),
            (["import-eds", "--access-level", "0"],
             "import-eds kennt die Option --access-level nicht"),
            (["import-eds"], "import-eds braucht genau eine Datei"),
            (["import-eds", "x.eds"],
             "import-eds braucht --coordinates TABELLE und -o DATEI"),
            (["import-eds", "x.eds", "--coordinates", "t", "-o", "o", "--node-id", "128"],
             "--node-id nimmt eine Zahl von 1 bis 127 oder 0x1 bis 0x7F"),
        ):
            run = Run(*words)
            self.check(run, USAGE, out="")
            self.assertEqual(run.err.splitlines()[0], "krparameter: " + text)

    def test_refused_on_a_device(self):
        for words, text in (
            (["info", "x"], "info nimmt keine Argumente"),
            (["check", "x"], "check nimmt keine Argumente"),
            (["list", "a", "b"], "list nimmt höchstens ein Muster"),
            (["get"], "get braucht mindestens eine Adresse"),
            (["set"], "set braucht Paare aus Adresse und Wert"),
            (["set", "H00"], "set braucht Paare aus Adresse und Wert"),
            (["list", "--axis", "0"], "--axis nimmt eine Zahl von 1 bis 4"),
            (["list", "--axis", "5"], "--axis nimmt eine Zahl von 1 bis 4"),
            (["list", "--axis", "x"], "--axis nimmt eine Zahl von 1 bis 4"),
            (["list", "--axis", "3"], "Achse 3 gibt es nicht, nur 1, 2"),
            (["list", "--access-level", "-1"],
             '--access-level nimmt eine Zahl von 0 bis 6 oder mehr, nicht "-1"'),
            (["list", "--access-level", "x"],
             '--access-level nimmt eine Zahl von 0 bis 6 oder mehr, nicht "x"'),
            (["list", "--access-level", "4294967296"],
             '--access-level nimmt eine Zahl von 0 bis 6 oder mehr, nicht "4294967296"'),
            (["get", "84"],
             '"84" ist keine Adresse; Adressen sind zum Beispiel E84, E30[1] und 2.B01'),
            (["get", "E84:3"],
             '"E84:3" ist keine Adresse; Adressen sind zum Beispiel E84, E30[1] und 2.B01'),
            (["get", "X99"], "Parameter X99: das Gerät hat ihn nicht; list zeigt alle"),
            (["get", "3.H00"], "Parameter H00: Achse 3 gibt es nicht, nur 1, 2"),
            (["get", "E30[7]"], "Parameter E30: Element 7 gibt es nicht, nur 1, 2"),
            (["set", "E30", "1"],
             "Parameter E30 hat mehrere Elemente; gebraucht wird eines, zum Beispiel E30[1]"),
        ):
            self.check(on_drive(*words), USAGE, out="", err=f"krparameter: {text}\n")


class Info(CommandLineTest):
    def test_both_devices(self):
        run = Run("--device", str(SOURCE / "devices/two-axis-drive.json"), "info")
        self.check(run, GOOD, err="")
        self.assertIn("Gerätefamilie Two-axis drive (4096)\nAchsen        1, 2 (physisch)\n", run.out)
        run = Run("info", "--device=four-axis-controller", "--json")
        self.check(run, GOOD, err="")
        self.assertEqual(run.lines()[0]["axes"], [1, 2, 3, 4])
        self.assertEqual(run.lines()[0]["hasPhysicalAxes"], False)

    def test_of_a_project(self):
        self.save("H00", "9")
        run = on_drive("--project", self.project, "info", "--json")
        self.check(run, GOOD)
        self.assertEqual(run.lines()[0]["load"]["valuesRead"], run.lines()[0]["values"])
        self.assertEqual(run.lines()[0]["load"]["cut"], [])


class List(CommandLineTest):
    def test_one_value_a_line(self):
        run = on_drive("list", "Stromgrenze")
        self.check(run, GOOD, err="")
        self.assertEqual(
            [line.split() for line in run.out.splitlines() if "H00" in line],
            [["1.H00", "Stromgrenze", "12.600", "A"], ["2.H00", "Stromgrenze", "12.600", "A"]])

    def test_json(self):
        for device in ("two-axis-drive", "four-axis-controller"):
            run = Run("--device", device, "list", "--json")
            self.check(run, GOOD, err="")
            addresses = [line["address"] for line in run.lines()]
            self.assertEqual(len(addresses), len(set(addresses)))
            for line in run.lines():
                self.assertLessEqual({"address", "name", "display", "value", "native"}, set(line))
        self.assertEqual(
            on_drive("list", "1.H00", "--json").lines(),
            [{"address": "1.H00", "name": "Stromgrenze", "display": "12.600 A", "value": "12.6",
              "native": "12600", "unit": "A"}])

    def test_axis(self):
        run = on_drive("list", "--axis", "2", "--json")
        self.check(run, GOOD)
        prefixes = {line["address"].split(".")[0] for line in run.lines() if "." in line["address"]}
        self.assertEqual(prefixes, {"2"})
        self.assertIn("E84", [line["address"] for line in run.lines()])

    def test_access_level_and_hidden(self):
        def count(*words):
            return len(on_drive("list", "--json", *words).lines())
        self.assertLess(count("--access-level", "0"), count())
        self.assertLess(count(), count("--hidden"))
        self.assertEqual(count("--access-level", "0", "--hidden"), count("--hidden"))
        self.assertEqual(count("--access-level", "7"), count("--access-level", "6"))
        self.assertEqual(count("--access-level", "4294967295"), count("--access-level", "6"))

    def test_language(self):
        self.assertIn("Current limit", on_drive("list", "H00", "--lang", "en").out)
        self.assertIn("Stromgrenze", on_drive("list", "H00", "--lang", "de").out)

    def test_pattern_that_nothing_matches(self):
        self.check(on_drive("list", "nothing at all"), GOOD, out="", err="")

    def test_line_ends_in_values_stay_in_the_line(self):
        self.save("A20", "one\ntwo")
        run = on_drive("--project", self.project, "list", "A20")
        self.assertEqual(len(run.out.splitlines()), 1)
        self.assertIn("one\\ntwo", run.out)

    def test_full_output(self):
        with open("/dev/full", "wb") as full:
            done = subprocess.run([PROGRAM, "--device", "two-axis-drive", "list"], stdout=full,
                                  stderr=subprocess.PIPE, timeout=60, check=False)
        self.assertEqual(done.returncode, WRITE_FAILED)
        self.assertEqual(done.stderr.decode(),
                         "die Ausgabe konnte nicht vollständig geschrieben werden\n")


class Get(CommandLineTest):
    def test_all_forms(self):
        self.check(on_drive("get", "H00"), GOOD, err="", out=(
            "1.H00  Stromgrenze\n"
            "  Anzeige    12.600 A\n"
            "  Wert       12.6 A\n"
            "  Nativ      12600 mA\n"
            "  Default    12.600 A\n"
            "  Grenzen    0.000 A bis 60.000 A\n"
            "  Zugriff    lesen ab Stufe 0, schreiben ab Stufe 2\n"))

    def test_choices(self):
        run = on_drive("get", "e84")
        self.assertIn("  Auswahl    0: Achse 1\n             1: Achse 2\n", run.out)
        self.assertEqual(on_drive("get", "E84", "--json").lines()[0]["choices"],
                         {"0": "Achse 1", "1": "Achse 2"})

    def test_every_element_and_axis(self):
        def addresses(*words):
            return [line["address"] for line in on_drive("get", "--json", *words).lines()]
        self.assertEqual(addresses("E30"), ["1.E30[1]", "1.E30[2]"])
        self.assertEqual(addresses("E30[2]", "--axis", "2"), ["2.E30[2]"])
        self.assertEqual(addresses("2.H00", "H00"), ["2.H00", "1.H00"])

    def test_note_where_the_display_does_not_read_back(self):
        note = 'als Eingabe ergibt dieser Text nativ "0.0174532925199"'
        self.assertIn(f"  Hinweis    {note}\n", on_drive("get", "P09").out)
        self.assertEqual(on_drive("get", "P09", "--json").lines()[0]["note"], note)
        self.assertNotIn("note", on_drive("get", "H00", "--json").lines()[0])
        self.assertIn("(!)", on_drive("list", "1.P09").out)

    def test_masked_value(self):
        self.assertIn("  Hinweis    offline verdeckt; Stufe 5 zeigt den Wert in Klammern\n",
                      on_drive("get", "F14").out)
        self.assertIn("<offline> (0)", on_drive("get", "F14", "--access-level", "5").out)


class Check(CommandLineTest):
    def description(self, **changes):
        description = json.loads((SOURCE / "devices/two-axis-drive.json").read_text("utf-8"))
        description.update(changes)
        path = self.folder / "drive.json"
        path.write_text(json.dumps(description), "utf-8")
        return str(path)

    def test_shipped_descriptions_are_good(self):
        for name in ("two-axis-drive", "four-axis-controller"):
            self.check(Run("--device", name, "check"), GOOD, out="", err="")

    def test_function_that_is_no_program(self):
        path = self.description(functions={"limit": {"1": "return ="}})
        self.check(Run("--device", path, "check"), DIFFERENCES, err="",
                   out="functions.limit.1: Zeile 1: unexpected symbol near '='\n")
        self.assertEqual(Run("--device", path, "info").code, UNREADABLE)

    def test_function_that_fails(self):
        path = self.description(functions={
            kind: {str(i): "error('broken', 0)" if kind == "hiding" else "" for i in (1, 2)}
            for kind in ("limit", "scaling", "hiding", "preRead", "preWrite", "postRead", "postWrite")})
        for language, text in (
                ("de", "Funktion hiding 1 des Parameters B21, Element 0: broken"),
                ("en", "hiding function 1 of parameter B21, element 0: broken")):
            with self.subTest(language=language):
                run = Run("--device", path, "check", "--json", "--lang", language)
                self.check(run, DIFFERENCES)
                self.assertIn({"place": "", "text": text}, run.lines())

    def test_findings_speak_the_language(self):
        path = self.description(family={"identifier": 9, "name": "Drive",
                                        "hasPhysicalAxes": True, "axes": [2, 1]})
        for language, text in (
                ("de", "family.axes[1]: erwartet: Achsen in aufsteigender Folge\n"),
                ("en", "family.axes[1]: expected axes in ascending order\n")):
            with self.subTest(language=language):
                self.check(Run("--device", path, "check", "--lang", language), DIFFERENCES,
                           out=text, err="")

    def test_functions_that_are_missing(self):
        path = self.description(functions={})
        run = Run("--device", path, "check")
        self.check(run, DIFFERENCES, err="")
        self.assertIn("LimitFunctionIndex: das Gerät verwendet eine höhere Nummer, als seine "
                      "Firmware hat\n", run.out)
        self.assertIn("HidingFunctionIndex: ", run.out)

    def test_file_that_is_no_description(self):
        path = self.folder / "x.json"
        path.write_text("{", "utf-8")
        self.check(Run("--device", str(path), "check"), UNREADABLE, out="")
        self.check(Run("--device", "/nowhere.json", "check"), UNREADABLE, out="")


class Set(CommandLineTest):
    def test_writes_and_saves(self):
        run = on_drive("--project", self.project, "set", "H00", "15.5 A", "2.B16", "1")
        self.check(run, GOOD, out=(
            "1.H00  Stromgrenze: 12.600 A -> 15.500 A\n"
            "2.B16  Drehrichtung: 0: Rechtsdrehend positiv -> 1: Linksdrehend positiv\n"),
            err=(f"Projekt {self.project}: neu, mit den Defaultwerten\n"
                 f"Projekt {self.project}: gespeichert und zurückgelesen\n"))
        self.assertIn(b"V_1_0=15500\r\n", self.block())
        run = on_drive("--project", self.project, "get", "H00", "--json")
        self.assertEqual(run.lines()[0]["native"], "15500")

    def test_json(self):
        run = on_drive("set", "H00", "9", "--json")
        self.check(run, GOOD, err="Ohne --project wird nichts gespeichert.\n")
        self.assertEqual(run.lines()[0]["before"],
                         {"display": "12.600 A", "value": "12.6", "native": "12600"})
        self.assertEqual(run.lines()[0]["native"], "9000")

    def test_says_what_changes_elsewhere(self):
        run = on_drive("set", "B01", "2")
        self.check(run, GOOD, out=(
            "1.B01  Motornennstrom: 4.200 A -> 2.000 A\n"
            "  1.B04  Maximaler Motorstrom: Grenzen 4.200 A bis 120.000 A -> 2.000 A bis 120.000 A\n"
            "  1.H00  Stromgrenze: Grenzen 0.000 A bis 60.000 A -> 0.000 A bis 30.000 A\n"))
        run = on_drive("set", "B00", "7")
        self.check(run, GOOD)
        self.assertIn("\n  1.B24  Magnetisierungsstrom: jetzt sichtbar\n", run.out)
        self.assertIn("\n  1.B21  Kommutierungswinkel: jetzt verborgen\n", run.out)
        run = on_drive("set", "2.E11", "1")
        self.check(run, GOOD)
        self.assertIn("\n  2.H07  Maximale Profilgeschwindigkeit: "
                      "1000.00 mm/s -> 36000.00 °/s\n", run.out)
        self.assertNotIn("\n  1.", run.out)

    def test_says_what_changes_elsewhere_as_json(self):
        run = on_drive("set", "B01", "2", "--json")
        self.check(run, GOOD)
        self.assertEqual([line.get("address", line.get("consequence")) for line in run.lines()],
                         ["1.B01", "1.B04", "1.H00"])
        self.assertEqual(run.lines()[2], {
            "consequence": "1.H00", "name": "Stromgrenze",
            "before": {"display": "12.600 A", "value": "12.6", "native": "12600", "unit": "A",
                       "nativeUnit": "mA", "lowerLimit": "0.000 A", "upperLimit": "60.000 A", "visible": True},
            "after": {"display": "12.600 A", "value": "12.6", "native": "12600", "unit": "A",
                      "nativeUnit": "mA", "lowerLimit": "0.000 A", "upperLimit": "30.000 A", "visible": True}})

    def test_tells_units_that_another_value_names(self):
        run = on_drive("set", "1.E12", "m")
        self.check(run, GOOD)
        self.assertEqual(run.out.splitlines()[:4], [
            "1.E12  Einheit der Position: mm -> m",
            "  1.C09  Gebernullpunkt: 0.000 mm -> 0.000 m",
            "  1.C09  Gebernullpunkt: Einheit mm -> m",
            # Its value cannot be seen offline, its unit can.
            "  1.C10  Absolute Lage des Gebers: Einheit mm -> m"])
        self.assertNotIn("native Einheit", run.out)
        self.assertNotIn("\n  2.", run.out)
        run = on_drive("--lang", "en", "set", "1.E12", "m")
        self.assertIn("\n  1.C09  Encoder zero offset: unit mm -> m\n", run.out)

    def test_tells_the_unit_of_a_written_value(self):
        run = on_drive("set", "1.E12", "m", "1.G10", "5")
        self.check(run, GOOD)
        self.assertEqual([line for line in run.out.splitlines() if "G10" in line], [
            "1.G10  Zielposition: 0.000 m -> 5.000 m",
            "  1.G10  Zielposition: Einheit mm -> m"])

    def test_tells_native_units(self):
        description = json.loads((SOURCE / "devices/two-axis-drive.json").read_text("utf-8"))
        description["profiles"]["current"]["units"]["native"] = "<localAxis:E12>"
        device = self.folder / "device.json"
        device.write_text(json.dumps(description), "utf-8")
        run = Run("--device", str(device), "set", "1.E12", "m")
        self.check(run, GOOD)
        self.assertEqual([line for line in run.out.splitlines() if "H00" in line],
                         ["  1.H00  Stromgrenze: native Einheit mm -> m"])
        run = Run("--device", str(device), "set", "1.E12", "", "--json")
        self.check(run, GOOD)
        found = [line for line in run.lines() if line.get("consequence") == "1.H00"]
        self.assertEqual([(line["before"]["nativeUnit"], line["after"]["nativeUnit"],
                           line["after"]["unit"]) for line in found], [("mm", "", "A")])
        run = Run("--device", str(device), "set", "1.E12", "")
        self.assertIn("\n  1.H00  Stromgrenze: native Einheit mm -> -\n", run.out)

    def test_tells_values_that_a_function_wrote(self):
        run = on_drive("set", "2.E11", "2")
        self.check(run, GOOD)
        for line in ("  2.E12  Einheit der Position: mm -> in",
                     "  2.E14  Einheit der Geschwindigkeit: mm/s -> in/s",
                     "  2.E15  Einheit der Beschleunigung: mm/s² -> in/s²",
                     "  2.E16  Einheit des Rucks: mm/s³ -> in/s³"):
            self.assertIn(line, run.out.splitlines())
        run = on_drive("set", "2.E11", "2", "--json")
        found = [line for line in run.lines() if line.get("consequence") == "2.E12"]
        self.assertEqual([(line["before"]["native"], line["after"]["native"]) for line in found],
                         [("mm", "in")])

    def test_list_shows_what_a_write_hid(self):
        def listed(*words):
            run = on_drive("--project", self.project, "list", "--axis", "1", "--json", *words)
            self.check(run, GOOD)
            return {line["address"] for line in run.lines()} & {"1.B21", "1.B24"}
        self.save("2.H00", "9")
        self.assertEqual(listed(), {"1.B21"})
        self.save("1.B00", "7")
        self.assertEqual(listed(), {"1.B24"})
        self.assertEqual(listed("--hidden"), {"1.B21", "1.B24"})
        # Below the level that reads it nothing is shown, hidden or not.
        self.assertEqual(listed("--access-level", "0"), set())
        self.assertEqual(listed("--access-level", "0", "--hidden"), {"1.B21", "1.B24"})

    def test_both_of_two_writes_are_the_users_own(self):
        run = on_drive("set", "B01", "10", "H01", "360")
        self.check(run, GOOD)
        self.assertEqual([line for line in run.out.splitlines() if "H01" in line], [
            "1.H01  Maximaler Strom: 300.0 % -> 360.0 %",
            "  1.H01  Maximaler Strom: Grenzen 0.0 % bis 500.0 % -> 0.0 % bis 360.0 %"])

    def test_negative_number(self):
        run = on_drive("set", "H05[1]", "-250")
        self.check(run, GOOD)
        self.assertIn("-> -250.000 mm", run.out)

    def test_rejection(self):
        self.save("H00", "9")
        before = self.block()
        run = on_drive("--project", self.project, "set", "H00", "10", "H00", "75")
        self.check(run, REJECTED, out="")
        self.assertEqual(run.err.splitlines()[-3:], [
            'Fehler [project]: Parameter 1.H00: Fehler beim Übernehmen des Werts - '
            'Wert "60.000 A" ist zu groß',
            'krparameter: Parameter 1.H00: "75" wurde abgewiesen; zulässig: 0.000 A bis 60.000 A',
            "Es wurde nichts gespeichert."])
        self.assertEqual(self.block(), before)

    def test_rejections_in_words(self):
        for address, value, message in (
            ("B01", "0.05", 'Parameter 1.B01: Fehler beim Übernehmen des Werts - '
                            'Wert "0.100 A" ist zu klein'),
            ("E84", "5", 'Parameter E84: Fehler beim Übernehmen des Werts - '
                         'Wert "1: Achse 2" ist zu groß'),
            ("H00", "abc", 'krparameter: Parameter 1.H00: "abc" wurde abgewiesen; '
                           'zulässig: 0.000 A bis 60.000 A'),
        ):
            run = on_drive("set", address, value)
            self.check(run, REJECTED, out="")
            self.assertIn(message, run.err)

    def test_rejections_say_what_is_accepted(self):
        for address, accepted in (
            ("E84", "0: Achse 1, 1: Achse 2"),
            ("H00", "0.000 A bis 60.000 A"),
            ("L04", "ein Text mit höchstens 64 Zeichen aus Latin-1"),
            ("L00", "0.0.0.0 bis 255.255.255.255"),
            ("E01", "0000 0000 0000 0000 bin bis 1111 1111 1111 1111 bin"),
            ("M00[6]", "eine Adresse, zum Beispiel E84, E30[1] oder 2.B01"),
        ):
            run = on_drive("set", address, "€", "--access-level", "6")
            self.check(run, REJECTED, out="")
            self.assertIn(f'"€" wurde abgewiesen; zulässig: {accepted}\n', run.err)

    def test_every_rejection_names_its_address_and_what_is_accepted(self):
        words = ["--access-level", "6"]
        shown = on_drive("list", "--json", "--hidden", "--axis", "1", *words).lines()
        addresses = [line["address"] for line in shown][::7]
        for address in addresses:
            run = on_drive("set", address, "€", *words)
            if run.code == REJECTED:
                self.assertIn(f'krparameter: Parameter {address}: "€" wurde abgewiesen; zulässig: ',
                              run.err)

    def test_not_writable(self):
        for words, text in (
            (["A02", "x"], "Parameter A02 ist nicht schreibbar: er wird nur gelesen"),
            (["H00", "9", "--access-level", "1"],
             "Parameter 1.H00 ist nicht schreibbar: er braucht Zugriffsstufe 2, gegeben ist 1"),
        ):
            self.check(on_drive("set", *words), NOT_WRITABLE, out="",
                       err=f"krparameter: {text}\nEs wurde nichts gespeichert.\n")

    def test_loss(self):
        self.save("A20", "10 $")
        path = Path(self.project) / "Parameter.ini"
        # A UTF-8 block may hold more than the Latin-1 one that is saved.
        text = self.block().decode("latin-1").replace("=10 $", "=10 €")
        path.write_bytes(text.encode("utf-8-sig"))
        before = self.block()
        run = on_drive("--project", self.project, "set", "H00", "9")
        self.check(run, WRITE_FAILED, out="")
        self.assertEqual(run.err.splitlines()[1:], [
            'Parameter A20: Wert "10 €" enthält Zeichen, die Latin-1 nicht kennt',
            "krparameter: nicht gespeichert: 1 Texte gingen verloren; --allow-loss speichert trotzdem"])
        self.assertEqual(self.block(), before)
        self.check(on_drive("--project", self.project, "set", "H00", "9", "--allow-loss"), GOOD)
        self.assertIn(b"V_0_0=10 ?\r\n", self.block())

    def test_content_that_the_device_lacks(self):
        self.save("H00", "9")
        path = Path(self.project) / "Parameter.ini"
        path.write_bytes(self.block().replace(b"[H000]", b"[Z123]\r\nV_0_0=1\r\n[H000]"))
        before = self.block()
        run = on_drive("--project", self.project, "set", "H00", "10")
        self.check(run, WRITE_FAILED, out="")
        self.assertIn("1 Abschnitte übersprungen, das Gerät hat diese Parameter nicht: Z123", run.err)
        self.assertEqual(self.block(), before)
        self.check(on_drive("--project", self.project, "set", "H00", "10", "--allow-loss"), GOOD)

    def test_full_disk(self):
        self.save("H00", "9")
        before = self.block()

        def limit():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (4096, 4096))
        run = on_drive("--project", self.project, "set", "H00", "10", preexec_fn=limit)
        self.check(run, WRITE_FAILED, out="")
        self.assertIn(f"krparameter: {self.project}/Parameter.ini: ", run.err)
        self.assertEqual(self.block(), before)
        self.assertEqual(sorted(os.listdir(self.project)), ["Manifest.ini", "Parameter.ini"])
        self.check(on_drive("--project", self.project, "get", "H00"), GOOD)

    def test_missing_rights(self):
        self.save("H00", "9")
        before = self.block()
        description = self.folder / "d.json"
        shutil.copy(SOURCE / "devices/two-axis-drive.json", description)
        os.chmod(description, 0)
        os.chmod(self.project, 0o500)
        self.check(without_rights(*DRIVE, "--project", self.project, "get", "H00"), GOOD)
        self.check(without_rights(*DRIVE, "--project", self.project, "set", "H00", "8"), WRITE_FAILED,
                   out="")
        os.chmod(self.project, 0)
        for command in (["get", "H00"], ["set", "H00", "8"]):
            self.check(
                without_rights(*DRIVE, "--project", self.project, *command), UNREADABLE, out="",
                err=f"krparameter: {self.project}: der Ordner darf nicht gelesen werden\n")
        os.chmod(self.project, 0o700)
        os.chmod(Path(self.project) / "Parameter.ini", 0)
        self.check(
            without_rights(*DRIVE, "--project", self.project, "get", "H00"), UNREADABLE, out="",
            err=f"krparameter: {self.project}/Parameter.ini: darf nicht gelesen werden\n")
        os.chmod(Path(self.project) / "Parameter.ini", 0o600)
        self.assertEqual(self.block(), before)
        self.check(without_rights("--device", str(description), "info"), UNREADABLE, out="",
                   err=f"krparameter: {description}: darf nicht gelesen werden\n")

    def test_folder_that_cannot_be_made(self):
        (self.folder / "file").write_text("x")
        self.check(on_drive("--project", str(self.folder / "file/p"), "set", "H00", "9"), WRITE_FAILED)


class Input(CommandLineTest):
    def test_description(self):
        self.check(Run("--device", "/nowhere.json", "info"), UNREADABLE, out="", err=(
            "krparameter: /nowhere.json: ist weder eine Datei noch eine mitgelieferte Beschreibung; "
            "mitgeliefert: four-axis-controller, two-axis-drive\n"))
        self.check(Run("--device", str(self.folder), "info"), UNREADABLE, out="",
                   err=f"krparameter: {self.folder}: ist ein Ordner\n")
        broken = self.folder / "broken.json"
        broken.write_text('{"format": "kr-device-description"')
        run = Run("--device", str(broken), "info")
        self.check(run, UNREADABLE, out="")
        self.assertIn(f"krparameter: {broken}", run.err)

    def test_project(self):
        for command in (["list"], ["get", "E84"], ["info"]):
            self.check(on_drive("--project", self.project, *command), UNREADABLE, out="",
                       err=f"krparameter: {self.project}: der Ordner ist nicht vorhanden\n")
        os.mkdir(self.project)
        self.check(on_drive("--project", self.project, "list"), UNREADABLE, out="",
                   err=f'krparameter: {self.project} enthält kein Projekt: "Parameter.ini" fehlt\n')
        file = self.folder / "file"
        file.write_text("x")
        self.check(on_drive("--project", str(file), "list"), UNREADABLE, out="",
                   err=f"krparameter: {file}: ist kein Ordner\n")

    def test_cut_block(self):
        self.save("H00", "9")
        whole = self.block()
        for size in (0, 10, len(whole) // 2, len(whole) - 1):
            (Path(self.project) / "Parameter.ini").write_bytes(whole[:size])
            run = on_drive("--project", self.project, "get", "H00")
            self.check(run, UNREADABLE, out="")
            self.assertIn('der Block "Parameter.ini" ist abgeschnitten; --force lädt ihn trotzdem',
                          run.err)
            self.check(on_drive("--project", self.project, "set", "H00", "8"), UNREADABLE, out="")
            self.assertEqual(self.block(), whole[:size])
            self.check(on_drive("--project", self.project, "get", "H00", "--force"), GOOD)

    def test_random_block(self):
        os.mkdir(self.project)
        for size in (1, 1000, 100000):
            (Path(self.project) / "Parameter.ini").write_bytes(os.urandom(size))
            self.assertIn(on_drive("--project", self.project, "list").code, (GOOD, UNREADABLE))
            self.check(on_drive("--project", self.project, "list", "--force"), GOOD)

    def test_block_of_64_mebibytes(self):
        os.mkdir(self.project)
        piece = b"[X%03d]\r\n" + b"V_0_0=" + b"x" * 1000 + b"\r\n"
        with open(Path(self.project) / "Parameter.ini", "wb") as file:
            for i in range(64 * 1024):
                file.write(piece % (i % 1000))
        self.check(on_drive("--project", self.project, "get", "E84"), UNREADABLE, out="")


class Demo(CommandLineTest):
    def test_runs_and_leaves_a_project(self):
        run = Run("--project", self.project, "demo")
        self.check(run, GOOD, err="")
        for part in (
            "362 Parameter angelegt",
            'Parameter 1.H00: Fehler beim Übernehmen des Werts - Wert "60.000 A" ist zu groß',
            "aktiv war Achse 1, aktiv ist Achse 2",
            "alle gleich",
            "Byte für Byte",
            "Nichts ging verloren.",
        ):
            self.assertIn(part, run.out)
        self.assertEqual(sorted(os.listdir(self.project)), ["Manifest.ini", "Parameter.ini"])
        self.assertEqual(
            on_drive("--project", self.project, "get", "H00", "--json").lines()[0]["native"], "15500")
        self.assertIn(b"VC_1_0=demo\r\n", self.block())

    def test_keeps_a_project_that_is_there(self):
        self.save("H00", "9")
        before = self.block()
        self.check(Run("--project", self.project, "demo"), USAGE, out="")
        self.assertEqual(self.block(), before)
        self.check(Run("--project", self.project, "demo", "--force"), GOOD)

    def test_default_folder(self):
        self.check(Run("demo", cwd=self.folder), GOOD)
        self.assertTrue((self.folder / "demo-project/Parameter.ini").is_file())


class ImportEds(CommandLineTest):
    def test_makes_a_usable_description(self):
        source = self.folder / "drive.eds"
        source.write_text(EDS)
        table, device = str(self.folder / "table.txt"), str(self.folder / "device.json")
        run = Run("import-eds", str(source), "--coordinates", table, "-o", device)
        self.check(run, GOOD, err="")
        self.assertNotEqual(run.out, "")
        listed = Run("--device", device, "list", "Gain", "--json").lines()
        self.assertEqual([line["native"] for line in listed], ["5"])
        again = Run("import-eds", str(source), f"--coordinates={table}", "--output", device, "--json")
        self.check(again, GOOD)
        self.assertEqual(len(again.lines()), 1)

    def test_configured_values_become_a_project(self):
        source = self.folder / "drive.dcf"
        source.write_text(EDS.replace("DefaultValue=5\n", "DefaultValue=5\nParameterValue=7\n"))
        table, device = str(self.folder / "table.txt"), str(self.folder / "device.json")
        words = ["import-eds", str(source), "--coordinates", table, "-o", device]
        beside = str(self.folder / "device.project")
        self.check(Run(*words), GOOD, err=f"Projekt {beside}: gespeichert und zurückgelesen\n")
        listed = Run("--device", device, "--project", beside, "list", "Gain", "--json").lines()
        self.assertEqual([line["native"] for line in listed], ["7"])
        self.check(Run(*words, "--force"), GOOD)
        self.check(Run(*words, "--project", self.project), GOOD)
        listed = Run("--device", device, "--project", self.project, "list", "Gain", "--json").lines()
        self.assertEqual([line["native"] for line in listed], ["7"])
        self.check(Run(*words, "--project", self.project), USAGE, out="")

    def test_a_configuration_without_usable_value_makes_no_project(self):
        unusable = EDS.replace("DefaultValue=5\n", "DefaultValue=5\nParameterValue=x\n")
        table, device = str(self.folder / "table.txt"), str(self.folder / "device.json")
        for name, text in (("a.dcf", EDS), ("A.DCF", EDS), ("a.dcf", unusable), ("a.eds", unusable)):
            source = self.folder / name
            source.write_text(text)
            words = ["import-eds", str(source), "--coordinates", table, "-o", device]
            self.check(Run(*words), GOOD,
                       err="Die Datei konfiguriert keinen brauchbaren Wert: kein Projekt.\n")
            self.check(Run("--lang", "en", *words), GOOD,
                       err="The file configures no usable value: no project.\n")
            self.assertFalse((self.folder / "device.project").exists())

    def test_a_taken_project_folder_leaves_everything_as_it_was(self):
        source = self.folder / "drive.dcf"
        configured = EDS.replace("DefaultValue=5\n", "DefaultValue=5\nParameterValue=7\n")
        source.write_text(configured)
        table, device = str(self.folder / "table.txt"), str(self.folder / "device.json")
        words = ["import-eds", str(source), "--coordinates", table, "-o", device]
        beside = str(self.folder / "device.project")
        self.check(Run(*words), GOOD)

        def files():
            return {path: path.read_bytes() for path in self.folder.rglob("*") if path.is_file()}

        source.write_text(configured.replace("Gain", "Other").replace("2000", "2001"))
        before = files()
        for folder, extra in ((beside, []), (beside, ["--project", beside])):
            self.check(Run(*words, *extra), USAGE,
                       err=f"krparameter: in {folder} liegt schon ein Projekt; --force ersetzt es\n")
            self.assertEqual(files(), before)
        source.write_text(EDS.replace("Gain", "Other"))
        self.check(Run(*words), GOOD)
        self.assertNotEqual(files()[Path(device)], before[Path(device)])

    def test_unreadable(self):
        self.check(Run("import-eds", "/nowhere.eds", "--coordinates", str(self.folder / "t"), "-o",
                       str(self.folder / "d.json")), UNREADABLE, out="")

    def test_a_folder_that_takes_no_lock_file(self):
        source, table = self.folder / "drive.eds", self.folder / "kept/table.txt"
        source.write_text(EDS)
        table.parent.mkdir()
        words = ["import-eds", str(source), "--coordinates", str(table),
                 "-o", str(self.folder / "device.json")]
        table.parent.chmod(0o555)
        run = without_rights(*words)
        self.check(run, WRITE_FAILED,
                   err=f"krparameter: {table}: in ihrem Ordner lässt sich keine Sperrdatei anlegen\n")
        self.assertEqual(sorted(os.listdir(self.folder)), ["drive.eds", "kept"])
        table.parent.chmod(0o755)
        table.write_text("0x1000 C00\n0x2000 E40\n")
        table.parent.chmod(0o555)
        self.check(without_rights(*words), GOOD, err="")
        self.assertEqual(os.listdir(table.parent), ["table.txt"])
        listed = Run("--device", str(self.folder / "device.json"), "list", "Gain", "--json").lines()
        self.assertEqual([line["address"] for line in listed], ["E40"])
        table.parent.chmod(0o755)

    def test_report_of_a_failed_import(self):
        source = self.folder / "drive.eds"
        table = str(self.folder / "table.txt")
        source.write_text("[1F50]\nParameterName=Program\nObjectType=2\n")
        words = ["import-eds", str(source), "--coordinates", table]
        run = Run(*words, "-o", str(self.folder / "d.json"))
        self.check(run, UNREADABLE)
        self.assertIn("0 Objekte gelesen (0 Elemente), 1 übersprungen", run.out)
        self.assertIn("übersprungen 0x1F50", run.out)
        self.assertIn("enthält kein Objekt mit einem Wert", run.err)
        source.write_text(EDS)
        run = Run(*words, "-o", str(self.folder / "none/d.json"), "--json")
        self.check(run, WRITE_FAILED)
        self.assertEqual(run.lines()[0]["objectsRead"], 2)


    def test_report_as_json(self):
        source = self.folder / "drive.eds"
        source.write_text(EDS + "[1F50]\nObjectType=2\nwhat\n[2001]\nDataType=7\nAccessType=rw\n"
                          "DefaultValue=$NODEID+1\n[2002]\nDataType=15\nAccessType=rw\n")
        table = str(self.folder / "table.txt")
        words = ["import-eds", str(source), "--coordinates", table, "-o", str(self.folder / "d.json")]
        run = Run(*words, "--json")
        self.check(run, GOOD, err="1 Werte hängen von der Knotennummer ab, die die Datei nicht nennt; "
                                  "--node-id N gibt sie an.\n")
        report = run.lines()[0]
        self.assertEqual(report["file"], str(source))
        self.assertEqual((report["objectsRead"], report["elementsRead"], report["objectsSkipped"]),
                         (3, 3, 2))
        self.assertEqual(report["valuesWithoutNodeId"], 1)
        self.assertEqual(report["skipped"], [
            {"index": "0x1F50", "line": 24, "reason": "DOMAIN, ein Datenblock ohne eigenen Wert"},
            {"index": "0x2002", "line": 31,
             "reason": "eine Gerätebeschreibung hat keinen Datentyp für DOMAIN"}])
        self.assertEqual(report["remarks"][0], {
            "line": 24, "text": "0x1F50 steht in keiner Objektliste"})
        english = Run(*words, "--json", "--lang", "en")
        self.check(english, GOOD, err="1 values depend on the node id, which the file does not give; "
                                      "--node-id N gives it.\n")
        self.assertEqual(english.lines()[0]["skipped"][0]["reason"],
                         "DOMAIN, a block of data without a value of its own")
        self.check(Run(*words, "--node-id", "5"), GOOD, err="")

    def test_files_that_cannot_be_used(self):
        source = self.folder / "drive.eds"
        source.write_text(EDS)
        folder, table = str(self.folder), str(self.folder / "table.txt")
        device = str(self.folder / "d.json")
        for words, code, text in (
            (["/nowhere.eds", "--coordinates", table, "-o", device], UNREADABLE,
             "/nowhere.eds: ist nicht vorhanden"),
            ([folder, "--coordinates", table, "-o", device], UNREADABLE, f"{folder}: ist ein Ordner"),
            ([str(source), "--coordinates", table, "-o", folder], WRITE_FAILED,
             f"{folder}: ist ein Ordner"),
            ([str(source), "--coordinates", table, "-o", "/none/d.json"], WRITE_FAILED,
             "/none/d.json: der Ordner ist nicht vorhanden"),
            ([str(source), "--coordinates", str(source), "-o", device], USAGE,
             f"{source}: würde überschrieben"),
            ([str(source), "--coordinates", table, "-o", "/dev/null"], WRITE_FAILED,
             "/dev/null: ist keine Datei"),
        ):
            run = Run("import-eds", *words)
            self.check(run, code, err=f"krparameter: {text}\n")
        self.assertEqual(source.read_text(), EDS)


class Language(CommandLineTest):
    def test_report_of_an_import(self):
        source = self.folder / "drive.eds"
        source.write_text(EDS + "[1F50]\nObjectType=2\n")
        words = ["import-eds", str(source), "--coordinates", str(self.folder / "t"),
                 "-o", str(self.folder / "d.json")]
        for language, texts in (
            ("de", ["2 Objekte gelesen (2 Elemente), 1 übersprungen", "Gerätefamilie",
                    "Knotennummer nicht bekannt; 0 Werte hängen von ihr ab",
                    "übersprungen 0x1F50 (Zeile 24): DOMAIN, ein Datenblock ohne eigenen Wert",
                    "Zeile 24: 0x1F50 steht in keiner Objektliste"]),
            ("en", ["2 objects read (2 elements), 1 skipped", "device family",
                    "node id not known; 0 values depend on it",
                    "skipped 0x1F50 (line 24): DOMAIN, a block of data without a value of its own",
                    "line 24: 0x1F50 stands in no object list"]),
        ):
            run = Run("--lang", language, *words)
            self.check(run, GOOD, err="")
            for text in texts:
                self.assertIn(text, run.out)

    def test_labels(self):
        for words, labels in (
            (["--lang", "en"], ["Display", "Value", "Native", "Default", "Limits", "Access"]),
            (["--lang", "de"], ["Anzeige", "Wert", "Nativ", "Default", "Grenzen", "Zugriff"]),
            ([], ["Anzeige", "Wert", "Nativ", "Default", "Grenzen", "Zugriff"]),
        ):
            run = on_drive(*words, "get", "H00")
            self.check(run, GOOD, err="")
            self.assertEqual([line.split()[0] for line in run.out.splitlines()[1:]], labels)

    def test_rejection_is_english_on_demand(self):
        run = on_drive("--lang", "en", "set", "H00", "99999")
        self.check(run, REJECTED, out="")
        first, second, third = run.err.splitlines()
        self.assertTrue(first.startswith("Error ["))
        self.assertTrue(first.endswith("]: Parameter 1.H00: error while applying the value - "
                                       'Value "60.000 A" is too large'))
        self.assertEqual(second, 'krparameter: Parameter 1.H00: "99999" was rejected; '
                                 "permitted: 0.000 A to 60.000 A")
        self.assertEqual(third, "Nothing was saved.")

    def test_rejection_is_german_otherwise(self):
        run = on_drive("set", "H00", "99999")
        self.check(run, REJECTED, out="")
        first, second, third = run.err.splitlines()
        self.assertTrue(first.startswith("Fehler ["))
        self.assertTrue(first.endswith("]: Parameter 1.H00: Fehler beim Übernehmen des Werts - "
                                       'Wert "60.000 A" ist zu groß'))
        self.assertEqual(second, 'krparameter: Parameter 1.H00: "99999" wurde abgewiesen; '
                                 "zulässig: 0.000 A bis 60.000 A")
        self.assertEqual(third, "Es wurde nichts gespeichert.")

    def test_help_fits_a_terminal_in_english(self):
        for words in ([], ["list"], ["set"], ["get"], ["demo"], ["import-eds"]):
            run = Run("--lang", "en", *words, "--help")
            self.check(run, GOOD, err="")
            self.assertTrue(run.out.startswith("Usage: krparameter "))
            for line in run.out.splitlines():
                self.assertLessEqual(len(line), 100, line)

    def test_demo_runs_in_english(self):
        run = Run("--lang", "en", "--project", self.project, "demo")
        self.check(run, GOOD, err="")
        self.assertIn("   Nothing was lost.\n", run.out)


class Locale(CommandLineTest):
    def test_streams_are_utf8_in_any_locale(self):
        for name in ("C", "de_DE.UTF-8", "POSIX"):
            run = on_drive("list", "E13", env={**os.environ, "LC_ALL": name})
            self.check(run, GOOD, err="")
            self.assertIn("Tänzerregelung", run.out)

    def test_native_and_value_do_not_follow_it(self):
        run = on_drive("get", "H00", "--json", env={**os.environ, "LC_ALL": "de_DE.UTF-8"})
        self.assertEqual(run.lines()[0]["value"], "12.6")
        self.assertEqual(run.lines()[0]["native"], "12600")


if __name__ == "__main__":
    PROGRAM, SOURCE = sys.argv[1], Path(sys.argv[2])
    unittest.main(argv=sys.argv[:1])
