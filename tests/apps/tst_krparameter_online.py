#!/usr/bin/python3
"""Runs krparameter simulate and krparameter online as processes.

Usage: tst_krparameter_online.py PROGRAM
"""

import json
import shutil
import socket
import subprocess
import sys
import tempfile
import threading
import unittest
from pathlib import Path

PROGRAM = ""

GOOD, DIFFERENCES, USAGE, UNREADABLE, REJECTED, NOT_WRITABLE, WRITE_FAILED = range(7)

DEVICE = """{
  "format": "kr-device-description", "version": 1,
  "family": {"identifier": 80, "name": "Device", "hasPhysicalAxes": true, "axes": [1, 2]},
  "languages": ["de", "en"], "dataTypes": ["UINT16", "INT32", "REAL32", "STRING8", "RAW"],
  "profiles": {"measured": {"levels": {"read": 0, "write": 6}, "memoryAllocation": 1, "noWrite": 1}},
  "parameters": [
    {"number": 1, "coordinates": ["A01"], "name": {"de": "Strom", "en": "Current"}, "global": true,
     "elements": [{"dataType": "UINT16", "default": 4200, "limits": {"lower": 0, "upper": UPPER},
                   "units": {"scaled": "A"}, "scaling": {"factor": 0.001}, "decimals": {"behind": 3}}]},
    {"number": 2, "coordinates": ["A02"], "name": "Text", "global": true,
     "elements": [{"dataType": "STRING8", "kind": 5, "default": "abc"}]},
    {"number": 3, "coordinates": ["A03"], "name": "Block", "global": true,
     "elements": [{"dataType": "RAW", "kind": 5, "noWrite": 1}]},
    {"number": 4, "coordinates": ["B01"], "name": "Zahl",
     "elements": [{"dataType": "INT32", "default": 5}]},
    {"number": 5, "coordinates": ["B02"], "name": "Ist",
     "elements": [{"profile": "measured", "dataType": "INT32", "default": 100}]},
    {"number": 6, "coordinates": ["B03"], "name": "Real",
     "elements": [{"dataType": "REAL32", "default": "1.50"}]},
    {"number": 7, "coordinates": ["E48"], "name": "Zustand",
     "elements": [{"profile": "measured", "dataType": "UINT16"}]}
  ]
}"""


class Run:
    def __init__(self, *words):
        done = subprocess.run([PROGRAM, *words], capture_output=True, timeout=60)
        self.code = done.returncode
        self.out = done.stdout.decode("utf-8")
        self.err = done.stderr.decode("utf-8")

    def lines(self):
        return [json.loads(line) for line in self.out.splitlines()]

# C01 needs a disabled axis, C02 does not; both end with a result that is a choice.
ACTION = """{"number": NUMBER, "coordinates": ["COORDINATE"], "name": "Suche", "type": "record", "elements": [
   {"number": 0, "name": "Steuerung", "dataType": "INT32", "levels": {"read": 0, "write": 2},
    "memoryAllocation": 1, "limits": {"lower": 0, "upper": 1}, "enableOffRequired": REQUIRED},
   {"number": 1, "name": "Fortschritt", "profile": "measured", "dataType": "UINT16",
    "units": {"scaled": "%"}},
   {"number": 2, "name": "Ergebnis", "profile": "measured", "dataType": "UINT16", "kind": 1,
    "choices": {"0": "keines", "1": "gefunden", "2": "abgebrochen"}}]}"""
ACTION_DEVICE = DEVICE.replace("UPPER", "50000").replace("  ]\n}", "    , "
    + ACTION.replace("NUMBER", "8").replace("COORDINATE", "C01").replace("REQUIRED", "1") + ",\n"
    + ACTION.replace("NUMBER", "9").replace("COORDINATE", "C02").replace("REQUIRED", "0") + "\n  ]\n}")


class Drive:
    """A simulated drive that nothing moves by itself."""

    def __init__(self, device, *options):
        self.process = subprocess.Popen(
            [PROGRAM, "simulate", "--device", device, "--port", "0", "--tick", "0", "--json", *options],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.said = json.loads(self.process.stdout.readline())
        self.port = self.said["port"]

    def order(self, text):
        self.process.stdin.write(text.encode("utf-8") + b"\n")
        self.process.stdin.flush()
        return self.process.stdout.readline().decode("utf-8").rstrip("\n")

    def value(self, address):
        return self.order("get " + address).removeprefix("ok ")

    def end(self):
        self.process.kill()
        for stream in (self.process.stdin, self.process.stdout, self.process.stderr):
            stream.close()
        self.process.wait()


class FaultyLine:
    """A line to a drive that breaks: instead of the answer number ANSWERS, or of write number WRITES.

    REFUSED is a unit and a register that it lets nobody read."""

    def __init__(self, drive, answers=None, writes=None, refused=None):
        self.answers = answers
        self.writes = writes
        self.refused = refused
        self.server = socket.create_server(("127.0.0.1", 0))
        self.port = self.server.getsockname()[1]
        self.drive_port = drive.port
        self.thread = threading.Thread(target=self.serve, daemon=True)
        self.thread.start()

    @staticmethod
    def frame(stream):
        head = stream.read(6)
        return head + stream.read(int.from_bytes(head[4:6], "big")) if len(head) == 6 else b""

    def is_refused(self, request):
        if self.refused is None or request[7] != 3:
            return False
        unit, register = self.refused
        first, count = (int.from_bytes(request[i:i + 2], "big") for i in (8, 10))
        return request[6] == unit and first <= register < first + count

    def serve(self):
        host, _ = self.server.accept()
        # Nobody finds the drive a second time.
        self.server.close()
        drive = socket.create_connection(("127.0.0.1", self.drive_port))
        requests, responses = host.makefile("rb"), drive.makefile("rb")
        while request := self.frame(requests):
            if request[7] == 16:
                if self.writes == 0:
                    break
                self.writes = self.writes and self.writes - 1
            if self.is_refused(request):
                # Exception 4, the drive is not asked.
                host.sendall(request[:4] + bytes([0, 3, request[6], request[7] | 0x80, 4]))
                continue
            drive.sendall(request)
            if self.answers == 0:
                break
            self.answers = self.answers and self.answers - 1
            host.sendall(self.frame(responses))
        for thing in (requests, responses, host, drive):
            thing.close()

    def end(self):
        self.server.close()
        self.thread.join()


# Unit 1 has the values without axis, behind a header of 16 registers.
A01_REGISTER = (1, 16)
FAILED = "der Antrieb kann das in seinem Zustand nicht"
A01_REFUSED = f"A01: abgelehnt - {FAILED}\n"
A01_MISSING = (f"A01: abgelehnt - {FAILED}\n"
               "krparameter: nicht alle Werte des Antriebs wurden gelesen: 11 Werte: 9 unverändert, "
               "1 abgelehnt, 1 nicht übertragbar\n")
WAY_OUT = "; --despite-unread geht ohne sie weiter\n"
GOES_ON = "Ohne diese Werte geht es weiter.\n"


class OnlineTest(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)
        self.project = str(self.folder / "project")
        self.device = self.write("device.json", "50000")

    def write(self, name, upper):
        path = self.folder / name
        path.write_text(DEVICE.replace("UPPER", upper), encoding="utf-8")
        return str(path)

    def write_with_functions(self):
        """A change of B01 leads to functions."""
        path = self.folder / "functions.json"
        path.write_text(DEVICE.replace("UPPER", "50000").replace(
            '"INT32", "default": 5', '"INT32", "default": 5, "dependencies": {"postWrite": 1}'),
            encoding="utf-8")
        return str(path)

    def drive(self, *options, device=None):
        drive = Drive(device or self.device, *options)
        self.addCleanup(drive.end)
        return drive

    def online(self, drive, *words):
        return Run("--device", self.device, "online", "--port", str(drive.port), *words)

    def faulty(self, drive, **faults):
        line = FaultyLine(drive, **faults)
        self.addCleanup(line.end)
        return line

    def check(self, run, code, out=None, err=None):
        self.assertEqual(run.code, code, run.err)
        if out is not None:
            self.assertEqual(run.out, out)
        if err is not None:
            self.assertEqual(run.err, err)


class Usage(OnlineTest):
    def test_refused(self):
        for words, text in (
            (["online"], "online braucht get, set, watch, action, upload oder download"),
            (["online", "frob"], "online braucht get, set, watch, action, upload oder download"),
            (["online", "get"], "online get braucht mindestens eine Adresse"),
            (["online", "set", "A01"], "online set braucht Paare aus Adresse und Wert"),
            (["online", "set", "A01", "1", "A02"], "online set braucht Paare aus Adresse und Wert"),
            (["online", "action"], "online action braucht mindestens eine Adresse"),
            (["online", "action", "C01", "C02"], "online action nimmt eine einzige Adresse"),
            (["online", "action", "C01", "--seconds", "-1"], "--seconds nimmt eine Zahl von 0 bis 1000000"),
            (["online", "upload", "A01"], "online upload nimmt keine Argumente"),
            (["online", "download"], "online download braucht --project ORDNER"),
            (["online", "get", "A01", "--project", "p"], "online get kennt die Option --project nicht"),
            (["online", "get", "A01", "--seconds", "1"], "online get kennt die Option --seconds nicht"),
            (["online", "get", "A01", "--despite-unread"],
             "online get kennt die Option --despite-unread nicht"),
            (["online", "upload", "--despite-unread"],
             "online upload kennt die Option --despite-unread nicht"),
            (["online", "get", "A01", "--port", "65536"], "--port nimmt eine Zahl von 0 bis 65535"),
            (["online", "get", "A01", "--port", "x"], "--port nimmt eine Zahl von 0 bis 65535"),
            (["simulate", "x"], "simulate nimmt keine Argumente"),
            (["simulate", "--port", "-1"], "--port nimmt eine Zahl von 0 bis 65535"),
            (["simulate", "--tick", "60001"], "--tick nimmt eine Zahl von 0 bis 60000"),
            (["simulate", "--axis", "1"], "simulate kennt die Option --axis nicht"),
            (["simulate", "--host", "everywhere", "--port", "0"], "das ist keine IP-Adresse"),
        ):
            with self.subTest(words=words):
                run = Run("--device", self.device, *words)
                self.check(run, USAGE, out="")
                self.assertIn(text, run.err)

    def test_help_fits_a_terminal(self):
        for command in ("online", "simulate"):
            for language in ("de", "en"):
                run = Run(command, "--help", "--lang", language)
                self.check(run, GOOD, err="")
                for line in run.out.splitlines():
                    self.assertLessEqual(len(line), 100, line)

    def test_nobody_there(self):
        with socket.socket() as held:
            held.bind(("127.0.0.1", 0))
            run = Run("--device", self.device, "online", "get", "A01", "--port",
                      str(held.getsockname()[1]))
        self.check(run, UNREADABLE, out="")
        self.assertTrue(run.err.startswith("krparameter: der Antrieb ist nicht erreichbar: "), run.err)


class Simulate(OnlineTest):
    def test_listens_on_this_machine_alone(self):
        drive = self.drive()
        self.assertEqual(drive.said["host"], "127.0.0.1")
        with socket.create_connection(("127.0.0.1", drive.port), timeout=10):
            pass
        with self.assertRaises(OSError):
            socket.create_connection(("127.0.0.2", drive.port), timeout=10)

    def test_listens_where_it_is_told(self):
        drive = self.drive("--host", "127.0.0.2")
        with socket.create_connection(("127.0.0.2", drive.port), timeout=10):
            pass

    def test_takes_no_port_twice(self):
        drive = self.drive()
        run = Run("--device", self.device, "simulate", "--port", str(drive.port))
        self.check(run, USAGE, out="")
        self.assertIn(f"127.0.0.1, Anschluss {drive.port}: ", run.err)

    def test_names_what_does_not_fit(self):
        drive = self.drive()
        self.assertEqual(drive.process.stderr.readline().decode("utf-8"),
                         "A03 hat kein Register: der Wert ist länger als die 123 Register, die eine "
                         "Anfrage schreibt\n")

    def test_begins_with_the_project(self):
        self.check(Run("--device", self.device, "--project", self.project, "set", "2.B01", "77"), GOOD)
        drive = self.drive("--project", self.project)
        self.assertEqual(drive.value("2.B01"), "77")
        self.assertEqual(drive.value("1.B01"), "5")

    def test_quits(self):
        drive = self.drive()
        self.assertEqual(drive.order("quit"), "ok")
        self.assertEqual(drive.process.wait(timeout=20), GOOD)

    def test_goes_on_without_orders(self):
        drive = self.drive()
        drive.process.stdin.close()
        self.check(self.online(drive, "get", "A02"), GOOD, out="A02  Text: abc\n")


class Get(OnlineTest):
    def test_shows_what_the_drive_has(self):
        drive = self.drive()
        drive.order("set A01 1500")
        drive.order("set 2.B01 -8")
        self.check(self.online(drive, "get", "A01", "2.B01"), GOOD,
                   out="A01  Strom: 1.500 A\n2.B01  Zahl: -8\n", err="")

    def test_json(self):
        drive = self.drive()
        drive.order("set A01 1500")
        run = self.online(drive, "get", "A01", "--json")
        self.check(run, GOOD)
        self.assertEqual(run.lines(), [{"address": "A01", "name": "Strom", "display": "1.500 A",
                                        "value": "1.5", "native": "1500", "unit": "A"}])

    def test_notes_what_does_not_read_back(self):
        drive = self.drive()
        note = 'als Eingabe ergibt dieser Text nativ "2"'
        self.check(self.online(drive, "get", "1.B03", "A01"), GOOD, err="",
                   out=f"1.B03  Real: 2\n  Hinweis: {note}\nA01  Strom: 4.200 A\n")
        run = self.online(drive, "get", "1.B03", "A01", "--json")
        self.check(run, GOOD)
        self.assertEqual([line.get("note") for line in run.lines()], [note, None])

    def test_speaks_english(self):
        drive = self.drive()
        self.check(self.online(drive, "get", "A01", "--lang", "en"), GOOD, out="A01  Current: 4.200 A\n")
        run = self.online(drive, "get", "A03", "--lang", "en")
        self.check(run, UNREADABLE)
        self.assertEqual(run.out, "A03: cannot be transferred - the value is longer than the 123 "
                                  "registers that one request writes\n")

    def test_tells_what_has_no_register(self):
        run = self.online(self.drive(), "get", "A03", "A02")
        self.check(run, UNREADABLE, out="A03: nicht übertragbar - der Wert ist länger als die 123 "
                                        "Register, die eine Anfrage schreibt\nA02  Text: abc\n")

    def test_names_what_is_refused(self):
        # What is shown may follow from it.
        run = self.online(self.faulty(self.drive(), refused=A01_REGISTER), "get", "1.B01")
        self.check(run, UNREADABLE, out="1.B01  Zahl: 5\n", err=A01_MISSING)

    def test_is_refused(self):
        run = self.online(self.faulty(self.drive(), refused=A01_REGISTER), "get", "A01", "1.B01")
        self.check(run, UNREADABLE, err=A01_MISSING,
                   out=f"A01: abgelehnt - {FAILED}\n1.B01  Zahl: 5\n")

    def test_another_device(self):
        other = self.folder / "other.json"
        other.write_text(DEVICE.replace("UPPER", "9").replace('"INT32", "default": 5', '"REAL32"'),
                         encoding="utf-8")
        run = self.online(self.drive(device=str(other)), "get", "A01")
        self.check(run, UNREADABLE, out="")
        self.assertIn("der Antrieb ist ein anderes Gerät als das beschriebene (Einheit 2)", run.err)

    def test_addresses_that_are_none(self):
        self.check(self.online(self.drive(), "get", "Z99"), USAGE, out="")

    def test_a_drive_that_says_nothing(self):
        drive = self.drive()
        drive.order("silent 0")
        run = self.online(drive, "get", "A01")
        self.check(run, UNREADABLE, out="")
        self.assertIn("nicht erreichbar", run.err)


class Set(OnlineTest):
    def test_writes(self):
        drive = self.drive()
        self.check(self.online(drive, "set", "A01", "2.5 A", "2.B01", "-9"), GOOD,
                   out="A01: geschrieben\n2.B01: geschrieben\n", err="")
        self.assertEqual(drive.value("A01"), "2500")
        self.assertEqual(drive.value("2.B01"), "-9")
        self.assertEqual(drive.value("1.B01"), "5")

    def test_writes_what_the_drive_has_already(self):
        drive = self.drive()
        self.check(self.online(drive, "set", "1.B01", "5"), GOOD, out="1.B01: geschrieben\n")

    def test_shows_what_the_drive_made_of_it(self):
        drive = self.drive()
        run = self.online(drive, "set", "1.B03", "0.123456789012", "--json")
        self.check(run, DIFFERENCES)
        self.assertEqual(run.lines(), [{"address": "1.B03", "outcome": "altered",
                                        "sent": "0.123456789012", "kept": "0.12345679"}])

    def test_shows_what_functions_made_of_it(self):
        path = self.folder / "functions.json"
        path.write_text(DEVICE.replace("UPPER", '50000').replace(
            '"default": 4200', '"default": 4200, "dependencies": {"postWrite": 1}').replace(
            '"default": 5}', '"default": 5, "functions": {"postWrite": 1}}').replace(
            '  "parameters"', """  "functions": {"postWrite": {"1": "writeValueNative(1, 'B01', 0, 3)"}},
  "parameters\""""), encoding="utf-8")
        self.device = str(path)
        drive = self.drive()
        run = self.online(drive, "set", "1.B01", "7", "A01", "2.5")
        self.check(run, DIFFERENCES, out="A01: geschrieben\n"
                                         '1.B01: geschrieben wurde "7", der Antrieb hat "3"\n')
        self.assertEqual([drive.value(text) for text in ("1.B01", "A01")], ["3", "2500"])

    def test_is_refused_by_the_description(self):
        drive = self.drive()
        run = self.online(drive, "set", "1.B01", "6", "A01", "50.001", "2.B01", "7")
        self.check(run, REJECTED, out="1.B01: geschrieben\n")
        self.assertIn("abgewiesen", run.err)
        self.assertEqual(drive.value("1.B01"), "6")
        self.assertEqual(drive.value("A01"), "4200")
        self.assertEqual(drive.value("2.B01"), "5")

    def test_is_refused_by_the_drive(self):
        drive = self.drive(device=self.write("narrow.json", "10000"))
        self.check(self.online(drive, "set", "A01", "10.001"), REJECTED,
                   out="A01: abgelehnt - der Antrieb nimmt diesen Wert nicht an\n")
        self.assertEqual(drive.value("A01"), "4200")

    def test_is_not_writable(self):
        self.check(self.online(self.drive(), "set", "1.B02", "1"), NOT_WRITABLE, out="")

    def test_writes_nothing_where_a_function_may_need_what_is_refused(self):
        # The unit and the limits of what is typed may follow from it.
        self.device = self.write_with_functions()
        drive = self.drive()
        run = self.online(self.faulty(drive, refused=A01_REGISTER), "set", "1.B01", "6")
        self.check(run, UNREADABLE, out="", err=A01_MISSING.rstrip("\n") + WAY_OUT)
        self.assertEqual(drive.value("1.B01"), "5")
        run = self.online(self.faulty(drive, refused=A01_REGISTER), "set", "1.B01", "6", "2.B03", "7",
                          "--despite-unread")
        self.check(run, GOOD, out="1.B01: geschrieben\n2.B03: geschrieben\n", err=A01_REFUSED + GOES_ON)
        self.assertEqual(drive.value("1.B01"), "6")

    def test_writes_where_nothing_needs_what_is_refused(self):
        drive = self.drive()
        run = self.online(self.faulty(drive, refused=A01_REGISTER), "set", "1.B01", "6")
        self.check(run, GOOD, out="1.B01: geschrieben\n", err=A01_REFUSED + GOES_ON)
        self.assertEqual(drive.value("1.B01"), "6")

    def test_writes_nothing_that_is_refused_itself(self):
        drive = self.drive()
        run = self.online(self.faulty(drive, refused=A01_REGISTER), "set", "1.B01", "6", "A01", "2.5",
                          "--despite-unread")
        self.check(run, UNREADABLE, out="", err=A01_MISSING)
        self.assertEqual((drive.value("A01"), drive.value("1.B01")), ("4200", "5"))

    def test_speaks_english_of_what_is_refused(self):
        run = self.online(self.faulty(self.drive(), refused=A01_REGISTER), "set", "1.B01", "6",
                          "--lang", "en")
        self.check(run, GOOD, out="1.B01: written\n")
        self.assertEqual(run.err.splitlines()[-1], "Going on without these values.")

    def test_names_no_more_than_twenty(self):
        path = self.folder / "many.json"
        more = ", ".join("""{"number": %d, "coordinates": ["C%02d"], "name": "Zahl",
            "elements": [{"dataType": "UINT16"}]}""" % (n + 10, n) for n in range(30))
        path.write_text(DEVICE.replace("UPPER", "9").replace("  ]\n}", ", " + more + "]}"),
                        encoding="utf-8")
        self.device = str(path)
        # Three headers are answered, and one block of the other values.
        run = self.online(self.faulty(self.drive(), answers=4), "set", "1.B01", "6")
        self.check(run, UNREADABLE, out="")
        lines = run.err.splitlines()
        self.assertEqual(len([line for line in lines if ": verloren - " in line]), 20)
        self.assertRegex(lines[20], r"^und \d+ weitere Werte nicht gelesen$")
        self.assertEqual(len(lines), 22)

    def test_of_a_drive_that_dies_while_it_is_read(self):
        drive = self.drive()
        # Three headers are answered, and one block.
        run = self.online(self.faulty(drive, answers=4), "set", "1.B01", "6")
        self.check(run, UNREADABLE, out="")
        self.assertIn("krparameter: nicht alle Werte des Antriebs wurden gelesen: 11 Werte: ", run.err)
        self.assertEqual(drive.value("1.B01"), "5")

    def test_of_a_drive_that_dies_before_it_is_read(self):
        run = self.online(self.faulty(self.drive(), answers=3), "set", "1.B01", "6")
        self.check(run, UNREADABLE, out="")
        self.assertIn("krparameter: ", run.err)

    def test_of_a_drive_that_dies_while_it_is_written(self):
        drive = self.drive()
        run = self.online(self.faulty(drive, writes=1), "set", "1.B01", "6", "2.B01", "7")
        self.check(run, WRITE_FAILED)
        self.assertIn("2.B01: verloren - ", run.out)
        self.assertEqual(drive.value("2.B01"), "5")

    def test_through_lost_and_doubled_answers(self):
        drive = self.drive()
        drive.order("double 1000")
        self.check(self.online(drive, "set", "1.B01", "11", "2.B01", "12"), GOOD)
        drive.order("clear")
        drive.order("busy 3")
        self.check(self.online(drive, "set", "1.B01", "13"), GOOD)
        self.assertEqual((drive.value("1.B01"), drive.value("2.B01")), ("13", "12"))


class Transfers(OnlineTest):
    def test_upload_saves_in_a_project(self):
        drive = self.drive()
        drive.order("set 2.B01 99")
        run = self.online(drive, "upload", "--project", self.project)
        self.check(run, GOOD)
        self.assertIn("2.B01: geändert\n", run.out)
        self.assertIn("Gelesen: 11 Werte: 9 unverändert, 1 geändert, 1 nicht übertragbar", run.err)
        shown = Run("--device", self.device, "--project", self.project, "get", "2.B01", "--json")
        self.assertEqual(shown.lines()[0]["native"], "99")

    def test_upload_reports_every_value(self):
        run = self.online(self.drive(), "upload", "--json")
        self.check(run, GOOD)
        self.assertEqual(len(run.lines()), 11)
        self.assertEqual({line["outcome"] for line in run.lines()}, {"unchanged", "unmapped"})

    def test_upload_of_a_drive_that_falls_silent(self):
        drive = self.drive()
        # Three headers are answered, and one block.
        drive.order("silent 4")
        run = self.online(drive, "upload", "--project", self.project)
        self.check(run, UNREADABLE)
        self.assertIn(": verloren - keine Antwort\n", run.out)
        self.assertIn("nicht alle Werte wurden gelesen", run.err)
        self.assertFalse((Path(self.project) / "Parameter.ini").exists())

    def test_upload_of_what_a_drive_says_until_it_falls_silent(self):
        drive = self.drive()
        drive.order("set A01 1500")
        drive.order("silent 4")
        run = self.online(drive, "upload", "--project", self.project, "--allow-loss")
        self.check(run, GOOD)
        self.assertIn(": verloren - ", run.out)
        shown = Run("--device", self.device, "--project", self.project, "get", "A01", "--json")
        self.assertEqual(shown.lines()[0]["native"], "1500")
        # Nothing is saved where there is no project.
        drive.order("clear")
        drive.order("silent 4")
        self.check(self.online(drive, "upload", "--allow-loss"), UNREADABLE)

    def test_a_shipped_device(self):
        device = "two-axis-drive"
        drive = self.drive(device=device)
        self.check(Run("--device", device, "--project", self.project, "set", "1.H00", "12.5"), GOOD)
        online = ["--device", device, "online", "--port", str(drive.port)]
        run = Run(*online, "download", "--project", self.project)
        self.check(run, GOOD)
        before = drive.value("1.H00")
        run = Run(*online, "upload", "--json")
        self.check(run, GOOD)
        self.assertEqual({line["outcome"] for line in run.lines()}, {"unchanged", "unmapped", "changed"})
        self.check(Run(*online, "set", "1.H00", "11"), GOOD, out="1.H00: geschrieben\n")
        self.assertNotEqual(drive.value("1.H00"), before)
        # The error history is no action: what is written stands there.
        self.check(Run(*online, "set", "N02[0]", "0"), GOOD, out="N02[0]: geschrieben\n")
        self.check(Run(*online, "set", "1.O00[0]", "1"), GOOD)
        drive.order("tick 40")
        self.check(Run(*online, "get", "1.O00[1]"), GOOD,
                   out="1.O00[1]  Motordaten identifizieren · Fortschritt: 40 %\n")

    def test_download_of_a_drive_that_dies(self):
        self.check(Run("--device", self.device, "--project", self.project, "set", "2.B01", "77"), GOOD)
        drive = self.drive()
        run = self.online(self.faulty(drive, writes=2), "download", "--project", self.project, "--json")
        self.check(run, WRITE_FAILED)
        self.assertEqual(len(run.lines()), 6)
        self.assertIn("lost", {line["outcome"] for line in run.lines()})
        self.assertEqual(drive.value("2.B01"), "5")

    def test_download_of_what_the_drive_cuts(self):
        self.check(Run("--device", self.device, "--project", self.project, "set", "1.B03",
                       "0.123456789012"), GOOD)
        drive = self.drive()
        run = self.online(drive, "download", "--project", self.project)
        self.check(run, DIFFERENCES)
        self.assertIn('1.B03: geschrieben wurde "0.123456789012", der Antrieb hat "0.12345679"\n', run.out)
        self.assertEqual(drive.value("1.B03"), "0.12345679")

    def test_download(self):
        self.check(Run("--device", self.device, "--project", self.project, "set", "2.B01", "77", "A01",
                       "1.2", "A02", "xyz"), GOOD)
        drive = self.drive()
        run = self.online(drive, "download", "--project", self.project)
        self.check(run, GOOD, out="")
        self.assertIn("Geschrieben und zurückgelesen: 6 Werte: 6 geschrieben", run.err)
        self.assertEqual([drive.value(text) for text in ("2.B01", "A01", "A02", "1.B02")],
                         ["77", "1200", "xyz", "100"])

    def test_download_sends_nothing_for_a_value_that_is_missing(self):
        self.check(Run("--device", self.device, "--project", self.project, "set", "2.B01", "77"), GOOD)
        file = Path(self.project) / "Parameter.ini"
        text = file.read_text(encoding="utf-8")
        # Values that a project of an older description does not have, and one that wraps.
        file.write_text(text.replace("\nV_2_0=77\n", "\n").replace("\nV_0_0=4200\n", "\nV_0_0=70000\n"),
                        encoding="utf-8")
        (Path(self.project) / "Manifest.ini").unlink()
        drive = self.drive()
        run = self.online(drive, "download", "--project", self.project)
        self.check(run, REJECTED)
        self.assertEqual(sorted(run.out.splitlines()), [
            '2.B01: abgelehnt - "" passt nicht, erwartet wird eine ganze Zahl von -2147483648 bis '
            "2147483647",
            'A01: abgelehnt - "70000" passt nicht, erwartet wird eine ganze Zahl von 0 bis 65535'])
        self.assertIn("6 Werte: 4 geschrieben, 2 abgelehnt", run.err)
        self.assertEqual([drive.value(text) for text in ("2.B01", "A01", "1.B01")], ["5", "4200", "5"])

    def test_download_reports_what_is_refused(self):
        self.check(Run("--device", self.device, "--project", self.project, "set", "A01", "20"), GOOD)
        drive = self.drive(device=self.write("narrow.json", "10000"))
        run = self.online(drive, "download", "--project", self.project, "--json")
        self.check(run, REJECTED)
        self.assertIn({"address": "A01", "outcome": "refused", "sent": "20000", "kept": "4200",
                       "reason": "der Antrieb nimmt diesen Wert nicht an"}, run.lines())
        self.assertEqual(len(run.lines()), 6)


class Watch(OnlineTest):
    def begin(self, drive, *words):
        process = subprocess.Popen(
            [PROGRAM, "--device", self.device, "online", "--port", str(drive.port), "watch", *words],
            stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.addCleanup(process.wait)
        self.addCleanup(process.stderr.close)
        self.addCleanup(process.stdout.close)
        self.addCleanup(process.kill)
        return process

    def test_follows_values(self):
        drive = self.drive()
        process = self.begin(drive, "1.B02", "1.E48")
        self.assertEqual(process.stdout.readline(), b"1.B02  Ist: 100\n")
        self.assertEqual(process.stdout.readline(), b"1.E48  Zustand: 0\n")
        drive.order("tick 5")
        self.assertEqual({process.stdout.readline(), process.stdout.readline()},
                         {b"1.B02  Ist: 101\n", b"1.E48  Zustand: 1\n"})

    def test_follows_nothing_where_a_function_may_need_what_is_refused(self):
        self.device = self.write_with_functions()
        drive = self.drive()
        line = self.faulty(drive, refused=A01_REGISTER)
        run = self.online(line, "watch", "1.B01", "--seconds", "1")
        self.check(run, UNREADABLE, out="", err=A01_MISSING.rstrip("\n") + WAY_OUT)
        line = self.faulty(drive, refused=A01_REGISTER)
        run = self.online(line, "watch", "1.B01", "--seconds", "1", "--despite-unread")
        self.check(run, GOOD, out="1.B01  Zahl: 5\n", err=A01_REFUSED + GOES_ON)

    def test_follows_what_needs_nothing_that_is_refused(self):
        line = self.faulty(self.drive(), refused=A01_REGISTER)
        self.check(self.online(line, "watch", "1.B01", "--seconds", "1"), GOOD,
                   out="1.B01  Zahl: 5\n", err=A01_REFUSED + GOES_ON)

    def test_follows_nothing_that_is_refused_itself(self):
        line = self.faulty(self.drive(), refused=A01_REGISTER)
        run = self.online(line, "watch", "1.B01", "A01", "--seconds", "1", "--despite-unread")
        self.check(run, UNREADABLE, out="", err=A01_MISSING)

    def test_notes_what_does_not_read_back(self):
        drive = self.drive()
        process = self.begin(drive, "1.B03")
        self.assertEqual(process.stdout.readline(), b"1.B03  Real: 2\n")
        self.assertEqual(process.stdout.readline(),
                         b'  Hinweis: als Eingabe ergibt dieser Text nativ "2"\n')
        drive.order("set 1.B03 3")
        self.assertEqual(process.stdout.readline(), b"1.B03  Real: 3\n")
        drive.order("set 1.B03 4.25")
        self.assertEqual(process.stdout.readline(), b"1.B03  Real: 4\n")
        self.assertEqual(process.stdout.readline(),
                         b'  Hinweis: als Eingabe ergibt dieser Text nativ "4"\n')

    def test_notes_what_does_not_read_back_as_json(self):
        process = self.begin(self.drive(), "1.B03", "--json")
        self.assertEqual(json.loads(process.stdout.readline())["note"],
                         'als Eingabe ergibt dieser Text nativ "2"')

    def test_ends_when_the_time_is_over(self):
        self.check(self.online(self.drive(), "watch", "1.B01", "--seconds", "1"), GOOD,
                   out="1.B01  Zahl: 5\n", err="")

    def test_finds_a_drive_that_was_restarted(self):
        drive = self.drive()
        process = self.begin(drive, "1.B01")
        self.assertEqual(process.stdout.readline(), b"1.B01  Zahl: 5\n")
        drive.order("set 1.B01 6")
        self.assertEqual(process.stdout.readline(), b"1.B01  Zahl: 6\n")
        drive.process.kill()
        self.assertTrue(process.stderr.readline().startswith(b"Der Antrieb ist fort: "))
        self.drive("--port", str(drive.port))
        self.assertEqual(process.stderr.readline(), b"Der Antrieb antwortet wieder.\n")
        self.assertEqual(process.stdout.readline(), b"1.B01  Zahl: 5\n")


class Action(OnlineTest):
    def setUp(self):
        super().setUp()
        path = self.folder / "action.json"
        path.write_text(ACTION_DEVICE, encoding="utf-8")
        self.device = str(path)

    def begin(self, drive, *words):
        process = subprocess.Popen(
            [PROGRAM, "--device", self.device, "online", "--port", str(drive.port), "action", *words],
            stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.addCleanup(process.wait)
        self.addCleanup(process.stderr.close)
        self.addCleanup(process.stdout.close)
        self.addCleanup(process.kill)
        return process

    def finish(self, process, code, out, err):
        said, told = process.communicate(timeout=60)
        self.assertEqual(process.returncode, code, told)
        self.assertEqual(said.decode("utf-8"), out)
        self.assertEqual(told.decode("utf-8"), err)

    def started(self, drive, address):
        while drive.value(address) != "1":
            pass

    def test_tells_progress_and_result(self):
        drive = self.drive()
        process = self.begin(drive, "2.C01")
        self.started(drive, "2.C01[0]")
        drive.order("tick 40")
        self.assertEqual(process.stderr.readline(), b"40 %\n")
        drive.order("tick 60")
        self.finish(process, GOOD, "Ergebnis: 1: gefunden\n", "100 %\n")
        self.assertEqual(drive.value("1.C01[2]"), "0")

    def test_json(self):
        run = self.online(self.drive("--tick", "1"), "action", "1.C02", "--json")
        self.check(run, GOOD)
        self.assertEqual(run.lines(), [{"address": "1.C02[0]", "state": "Ergebnis: 1: gefunden"}])
        self.assertEqual(run.err.splitlines()[-1], "100 %")

    def test_runs_twice(self):
        drive = self.drive("--tick", "1")
        for _ in range(2):
            self.check(self.online(drive, "action", "1.C02[0]"), GOOD, out="Ergebnis: 1: gefunden\n")

    def test_follows_what_runs_already(self):
        drive = self.drive()
        drive.order("set 1.E48 4")
        self.check(self.online(drive, "action", "C02", "--seconds", "1"), UNREADABLE, out="",
                   err="krparameter: die Aktion 1.C02[0] läuft noch\n")
        drive.order("tick 99")
        process = self.begin(drive, "C02")
        self.assertEqual(process.stderr.readline(), b"99 %\n")
        drive.order("tick 1")
        self.finish(process, GOOD, "Ergebnis: 1: gefunden\n", "100 %\n")

    def test_is_not_startable(self):
        drive = self.drive()
        drive.order("set 1.E48 4")
        self.check(self.online(drive, "action", "1.C01"), NOT_WRITABLE, out="",
                   err="krparameter: die Aktion 1.C01[0] ist im Zustand des Antriebs nicht startbar\n")
        self.assertEqual(drive.value("1.C01[0]"), "0")

    def test_starts_without_what_it_does_not_need(self):
        drive = self.drive("--tick", "1")
        run = self.online(self.faulty(drive, refused=A01_REGISTER), "action", "1.C02")
        self.check(run, GOOD, out="Ergebnis: 1: gefunden\n")
        self.assertTrue(run.err.startswith(A01_REFUSED + GOES_ON), run.err)

    def test_is_not_startable_where_the_state_is_refused(self):
        # E48 of axis 1 stands behind B01 to B03 and both actions.
        drive = self.drive("--tick", "1")
        run = self.online(self.faulty(drive, refused=(2, 30)), "action", "1.C01", "--despite-unread")
        self.check(run, UNREADABLE, out="")
        self.assertTrue(run.err.startswith(f"1.E48: abgelehnt - {FAILED}\n"), run.err)
        self.assertEqual(drive.value("1.C01[0]"), "0")
        run = self.online(self.faulty(drive, refused=(2, 30)), "action", "1.C02")
        self.check(run, GOOD, out="Ergebnis: 1: gefunden\n")

    def test_is_not_for_everybody(self):
        self.check(self.online(self.drive(), "action", "C01", "--access-level", "1"), NOT_WRITABLE,
                   out="", err="krparameter: Parameter 1.C01[0] ist nicht schreibbar: "
                   "er braucht Zugriffsstufe 2, gegeben ist 1\n")

    def test_is_broken_off(self):
        drive = self.drive()
        process = self.begin(drive, "1.C01")
        self.started(drive, "1.C01[0]")
        drive.order("tick 7")
        self.assertEqual(process.stderr.readline(), b"7 %\n")
        self.check(self.online(drive, "set", "1.C01[0]", "0"), GOOD)
        self.finish(process, REJECTED, "Ergebnis: 2: abgebrochen\n",
                    "krparameter: die Aktion 1.C01[0] endete vor 100 %\n")

    def test_is_refused(self):
        # The host does not know that the action needs a disabled axis.
        device = self.device
        other = self.folder / "other.json"
        other.write_text(ACTION_DEVICE.replace('"enableOffRequired": 1', '"enableOffRequired": 0'),
                         encoding="utf-8")
        drive = self.drive()
        drive.order("set 1.E48 4")
        self.device = str(other)
        run = self.online(drive, "action", "1.C01")
        self.device = device
        self.check(run, REJECTED, out="",
                   err="1.C01[0]: abgelehnt - der Antrieb kann das in seinem Zustand nicht\n"
                       "krparameter: die Aktion 1.C01[0] wurde nicht gestartet\n")

    def test_of_a_drive_that_dies(self):
        drive = self.drive()
        process = self.begin(drive, "1.C01")
        self.started(drive, "1.C01[0]")
        drive.order("tick 7")
        self.assertEqual(process.stderr.readline(), b"7 %\n")
        drive.process.kill()
        said, told = process.communicate(timeout=60)
        self.assertEqual((process.returncode, said), (UNREADABLE, b""))
        self.assertIn("der Antrieb ist fort", told.decode("utf-8"))

    def test_of_a_drive_that_dies_at_the_start(self):
        drive = self.drive()
        run = self.online(self.faulty(drive, writes=0), "action", "1.C01")
        self.check(run, WRITE_FAILED, out="")
        self.assertIn("ob die Aktion 1.C01[0] gestartet wurde, ist nicht bekannt", run.err)

    def test_is_none(self):
        drive = self.drive()
        self.check(self.online(drive, "action", "1.B01"), USAGE, out="",
                   err="krparameter: Parameter B01 ist keine Aktion\n")
        self.check(self.online(drive, "action", "Z99"), USAGE, out="")


if __name__ == "__main__":
    PROGRAM = sys.argv[1]
    unittest.main(argv=sys.argv[:1])
