"""Checks the shipped device descriptions against their schema and for what no schema can say.

Usage: check_descriptions.py DEVICES_FOLDER
"""

import copy
import json
import re
import struct
import sys
import unittest
from decimal import Decimal
from pathlib import Path

import jsonschema

PROJECT = Path(__file__).resolve().parents[2]
FOLDER = PROJECT / "devices"
FORMAT_PAGE = PROJECT / "docs" / "formats" / "device-description.md"
SHIPPED = ("four-axis-controller.json", "two-axis-drive.json")
SCHEMA = "device-description.schema.json"

PLACEHOLDER = re.compile(r"<(local|active)Axis:([A-Z][0-9]{1,3})>")
CANONICAL_COORDINATE = re.compile(r"[A-Z]([0-9]{2}|[1-9][0-9]{2})")
HEXADECIMAL = re.compile(r"([0-9A-Fa-f]{2})*")
CHOICE_KINDS = (1, 2)
TEXT_KIND = 5
ADDRESS_KIND = 11
UNUSED_ADDRESS = 4294967295
MOVEABLE_GROUP = "Q"

# The smallest description that has every part which the broken variants break.
VALID = {
    "format": "kr-device-description",
    "version": 1,
    "family": {"identifier": 1, "name": "Drive", "hasPhysicalAxes": True, "axes": [1]},
    "languages": ["de", "en"],
    "dataTypes": ["UINT16"],
    "profiles": {"current": {"dataType": "UINT16", "units": {"scaled": "<localAxis:E12>"}}},
    "functions": {"limit": {"1": "return 0", "2": ["local a = 0", "return a"]}},
    "parameters": [
        {
            "number": 1,
            "coordinates": ["A12"],
            "name": {"de": "Grenze", "en": "Limit"},
            "elements": [
                {
                    "profile": "current",
                    "kind": 1,
                    "limits": {"lower": "-9223372036854775808", "upper": 10},
                    "levels": {"read": 0, "write": 6},
                    "decimals": {"behind": 1100},
                    "choices": {"-1": "A"},
                    "settable": [47, 50],
                    "dependencies": {"limit": 1},
                }
            ],
        },
        {
            "number": 2,
            "coordinates": ["A13"],
            "type": "record",
            "name": "Record",
            "elements": [{"number": 16383, "name": "Element", "dataType": "UINT16"}],
        },
    ],
    "systemParameters": [
        {"number": 1, "coordinates": [], "name": "System", "elements": [{"dataType": "UINT16"}]}
    ],
}
SIMPLE = ("parameters", 0)
ELEMENT = (*SIMPLE, "elements", 0)
RECORD = ("parameters", 1)
SYSTEM = ("systemParameters", 0)

# Kind of dependency to the kind of function that receives it.
RECEIVING_KINDS = (
    "limit", "scaling", "hiding", "preRead", "preWrite", "postRead", "postWrite")
COORDINATE_IN_A_FUNCTION = re.compile(r"'([A-Z][0-9]{2,3})'")

# Where a value is set, and what it is set to.
REFUSED = {
    "another format": (("format",), "other"),
    "another version": (("version",), 2),
    "an unknown key of the root": (("comment",), "text"),
    "family identifier 0": (("family", "identifier"), 0),
    "family identifier above 32 bits": (("family", "identifier"), 4294967296),
    "a family flag that is no bool": (("family", "hasPhysicalAxes"), 1),
    "living space 0 as axis": (("family", "axes"), [0]),
    "living space 5 as axis": (("family", "axes"), [5]),
    "an unknown key of the family": (("family", "vendor"), "text"),
    "no language": (("languages",), []),
    "an unknown data type": (("dataTypes",), ["UINT17"]),
    "a data type named twice": (("dataTypes",), ["UINT16", "UINT16"]),
    "a profile with an element number": (("profiles", "current", "number"), 0),
    "a profile with an unknown key": (("profiles", "current", "unit"), "A"),
    "a unit locator without an axis": (("profiles", "current", "units", "scaled"), "<E12>"),
    "an unknown unit": (("profiles", "current", "units", "display"), "A"),
    "function index 0": (("functions", "limit"), {"0": "return 0"}),
    "function index 65536": (("functions", "limit"), {"65536": "return 0"}),
    "an unknown function kind": (("functions", "unit"), {}),
    "a function that is no text": (("functions", "limit"), {"1": 0}),
    "a line of a function that is no text": (("functions", "limit"), {"1": ["return 0", 0]}),
    "a function longer than 65536 bytes": (("functions", "limit"), {"1": "x" * 65537}),
    "parameter number 0": ((*SIMPLE, "number"), 0),
    "a parameter number as text": ((*SIMPLE, "number"), "1"),
    "an unknown key of a parameter": ((*SIMPLE, "comment"), "text"),
    "a coordinate in lower case": ((*SIMPLE, "coordinates"), ["a12"]),
    "a coordinate with four digits": ((*SIMPLE, "coordinates"), ["A1234"]),
    "a coordinate without digits": ((*SIMPLE, "coordinates"), ["A"]),
    "an empty identifier": ((*SIMPLE, "identifier"), ""),
    "an unknown parameter type": ((*SIMPLE, "type"), "list"),
    "unknown instances": ((*SIMPLE, "instances"), "many"),
    "no element": ((*SIMPLE, "elements"), []),
    "two elements of a simple parameter": ((*SIMPLE, "elements"), [{}, {}]),
    "element count 0": ((*SIMPLE, "elementCount"), 0),
    "element count 16001": ((*SIMPLE, "elementCount"), 16001),
    "an element count of a record": ((*RECORD, "elementCount"), 1),
    "defaults of a record": ((*RECORD, "defaults"), [1]),
    "a record without elements": ((*RECORD, "elements"), []),
    "element number 16384": ((*RECORD, "elements", 0, "number"), 16384),
    "a negative element number": ((*RECORD, "elements", 0, "number"), -1),
    "a system parameter with many instances": ((*SYSTEM, "instances"), "multi"),
    "an element number of a simple parameter": ((*ELEMENT, "number"), 0),
    "an element name of a simple parameter": ((*ELEMENT, "name"), "text"),
    "an unknown key of an element": ((*ELEMENT, "unit"), "A"),
    "an element's unknown data type": ((*ELEMENT, "dataType"), "WORD"),
    "kind 12": ((*ELEMENT, "kind"), 12),
    "kind -1": ((*ELEMENT, "kind"), -1),
    "a limit that is no number": ((*ELEMENT, "limits", "lower"), "low"),
    "a misspelt limit": ((*ELEMENT, "limits", "minimum"), 0),
    "a misspelt level": ((*ELEMENT, "levels", "reading"), 0),
    "a negative level": ((*ELEMENT, "levels", "read"), -1),
    "1101 decimals": ((*ELEMENT, "decimals", "behind"), 1101),
    "1101 significant digits": ((*ELEMENT, "decimals", "significant"), 1101),
    "a full scale with a fraction": ((*ELEMENT, "scaling"), {"fullScale": 0.5}),
    "a choice that is no number": ((*ELEMENT, "choices"), {"on": "On"}),
    "a choice with a leading zero": ((*ELEMENT, "choices"), {"01": "On"}),
    "a text with a short form alone": ((*ELEMENT, "choices", "-1"), {"de": {"short": "A"}}),
    "property 46": ((*ELEMENT, "settable"), [46]),
    "property 51": ((*ELEMENT, "absent"), [51]),
    "an unknown dependency": ((*ELEMENT, "dependencies", "unit"), 1),
}
REQUIRED = {
    "format": (),
    "version": (),
    "family": (),
    "languages": (),
    "dataTypes": (),
    "parameters": (),
    "identifier": ("family",),
    "axes": ("family",),
    "hasPhysicalAxes": ("family",),
    "number": SIMPLE,
    "coordinates": SIMPLE,
    "name": SIMPLE,
    "elements": SIMPLE,
}


def at(value, path):
    for key in path:
        value = value[key]
    return value


def read_json(name):
    def refuse_repeated_keys(pairs):
        keys = [key for key, _ in pairs]
        repeated = {key for key in keys if keys.count(key) > 1}
        if repeated:
            raise ValueError(f"{name}: repeated keys {sorted(repeated)}")
        return dict(pairs)

    text = (FOLDER / name).read_text(encoding="utf-8")
    return json.loads(text, object_pairs_hook=refuse_repeated_keys)


def validator():
    schema = read_json(SCHEMA)
    jsonschema.Draft202012Validator.check_schema(schema)
    return jsonschema.Draft202012Validator(schema)


def integer_range(data_type):
    """Bounds of an integer type, None for any other."""
    match = re.fullmatch(r"(U?)INT(\d+)", data_type)
    if not match:
        return None
    bits = int(match[2])
    return (0, 2**bits - 1) if match[1] else (-(2 ** (bits - 1)), 2 ** (bits - 1) - 1)


def texts_of(value):
    """Every text behind a plain or multilingual text."""
    if isinstance(value, str):
        return [value]
    return [text for item in value.values() for text in texts_of(item)]


class Description:
    """A description with its profiles applied."""

    def __init__(self, name):
        self.root = read_json(name)
        self.lists = [self.root["systemParameters"], self.root["parameters"]]
        self.parameters = [parameter for part in self.lists for parameter in part]
        self.by_coordinate = {c: p for p in self.parameters for c in p["coordinates"]}

    def element(self, element):
        """The element with what its profiles add; refuses a cycle of profiles."""
        merged = dict(element)
        seen = []
        while "profile" in element:
            name = element["profile"]
            if name in seen:
                raise ValueError(f"profile cycle {seen}")
            seen.append(name)
            element = self.root["profiles"][name]
            merged = {**element, **merged}
        merged["profiles"] = seen
        return merged

    def elements(self):
        """Parameter, element with profiles applied, and a text that names both."""
        for parameter in self.parameters:
            for position, element in enumerate(parameter["elements"]):
                place = f"{parameter['coordinates'] or parameter['number']}[{position}]"
                yield parameter, self.element(element), place


def number_problem(text, element):
    """What is wrong with a native number; None where nothing is."""
    bounds = integer_range(element["dataType"])
    if bounds and not re.fullmatch(r"-?\d+", text):
        return "no integer"
    value = Decimal(text)
    limits = element.get("limits", {})
    if bounds and not bounds[0] <= value <= bounds[1]:
        return "outside its type"
    if "lower" in limits and value < Decimal(str(limits["lower"])):
        return "below the lower limit"
    if "upper" in limits and value > Decimal(str(limits["upper"])):
        return "above the upper limit"
    return None


def string_problem(text, data_type):
    """What is wrong with a native text; None where nothing is."""
    size = 255 if data_type == "RAW" else int(re.search(r"\d+$", data_type)[0])
    if data_type.startswith("BYTES"):
        good = HEXADECIMAL.fullmatch(text) and len(text) <= 2 * size
        return None if good else "no bytes of its type"
    try:
        return None if len(text.encode("latin-1")) <= size else "too long"
    except UnicodeEncodeError:
        return "not storable as Latin-1"


def native_problem(text, element):
    """What is wrong with a native default; None where nothing is."""
    if is_numeric(element):
        return number_problem(str(text), element)
    return string_problem(str(text), element["dataType"])


def is_numeric(element):
    return re.match("U?INT|REAL", element["dataType"]) is not None


def has_element(parameter, number):
    if parameter is None:
        return False
    if parameter.get("type") == "record":
        return any(e["number"] == number for e in parameter["elements"])
    return number < parameter.get("elementCount", 1)


class Schema(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.validator = validator()

    def test_accepts_the_shipped_descriptions(self):
        found = sorted(path.name for path in FOLDER.glob("*.json"))
        self.assertEqual(found, sorted((*SHIPPED, SCHEMA)))
        for name in SHIPPED:
            with self.subTest(name):
                errors = self.validator.iter_errors(read_json(name))
                self.assertEqual([f"{e.json_path}: {e.message}" for e in errors], [])

    def test_accepts_the_example_of_the_format_page(self):
        page = FORMAT_PAGE.read_text(encoding="utf-8")
        examples = re.findall(r"^```json$(.*?)^```$", page, re.DOTALL | re.MULTILINE)
        self.assertEqual(len(examples), 1)
        self.assertEqual(list(self.validator.iter_errors(json.loads(examples[0]))), [])

    def test_accepts_the_base_of_the_broken_variants(self):
        self.assertEqual(list(self.validator.iter_errors(VALID)), [])

    def test_refuses_wrong_values(self):
        for rule, (path, value) in REFUSED.items():
            with self.subTest(rule):
                broken = copy.deepcopy(VALID)
                at(broken, path[:-1])[path[-1]] = value
                self.assertFalse(self.validator.is_valid(broken))

    def test_refuses_missing_keys(self):
        for key, path in REQUIRED.items():
            with self.subTest(key):
                broken = copy.deepcopy(VALID)
                del at(broken, path)[key]
                self.assertFalse(self.validator.is_valid(broken))

    def test_refuses_what_is_no_object(self):
        for value in (None, [], "text", 1, {}):
            self.assertFalse(self.validator.is_valid(value))


class Content:
    """What every shipped description must hold; run for each by the classes below."""

    name = ""

    @classmethod
    def setUpClass(cls):
        cls.description = Description(cls.name)
        cls.root = cls.description.root
        cls.places = list(cls.description.elements())
        cls.elements = [element for _, element, _ in cls.places]
        cls.types = {element["dataType"] for element in cls.elements}

    def problems(self, found):
        self.assertEqual(list(found), [])

    def values_of(self, key):
        """The values of an object that elements have under the key."""
        return [value for e in self.elements for value in e.get(key, {}).values()]

    def placeholders(self, key):
        """Matches of the texts under the key that stand for another parameter's text."""
        texts = [text for value in self.values_of(key) for text in texts_of(value)]
        return [PLACEHOLDER.fullmatch(text) for text in texts if text.startswith("<")]

    def test_is_large_enough(self):
        self.assertGreaterEqual(len(self.root["parameters"]), 250)
        self.assertTrue(10 <= len(self.root["systemParameters"]) <= 30)

    def test_holds_every_kind(self):
        self.assertEqual({e.get("kind", 0) for e in self.elements}, set(range(12)))

    def test_holds_every_family_of_types(self):
        families = {re.match(r"[A-Z]+", data_type)[0] for data_type in self.types}
        self.assertEqual(families, {"INT", "UINT", "REAL", "STRING", "BYTES", "RAW"})
        self.assertLessEqual({"UINT64", "INT64", "REAL32", "REAL64"}, self.types)

    def test_data_types_are_those_used(self):
        self.assertEqual(set(self.root["dataTypes"]), self.types)

    def test_profiles_are_all_used(self):
        used = {profile for element in self.elements for profile in element["profiles"]}
        self.assertEqual(set(self.root["profiles"]), used)

    def test_axes_ascend(self):
        self.assertEqual(self.root["family"]["axes"], sorted(set(self.root["family"]["axes"])))

    def test_numbers_are_unique(self):
        for part in self.description.lists:
            numbers = [p["number"] for p in part]
            self.assertEqual(numbers, sorted(set(numbers)))

    def test_identifiers_are_unique(self):
        for part in self.description.lists:
            names = [p.get("identifier", f"P{p['number']}") for p in part]
            self.assertEqual(len(names), len(set(names)))

    def test_coordinates_are_unique_and_canonical(self):
        names = [c for p in self.description.parameters for c in p["coordinates"]]
        self.assertEqual(len(names), len(set(names)))
        self.problems(c for c in names if not CANONICAL_COORDINATE.fullmatch(c))

    def test_parameters_stand_by_coordinate(self):
        for part in self.description.lists:
            names = [p["coordinates"][0] for p in part if p["coordinates"]]
            self.assertEqual(names, sorted(names))

    def test_single_instances_have_one_coordinate(self):
        self.problems(
            p["number"] for p in self.description.parameters
            if p.get("instances") != "multi" and len(p["coordinates"]) != 1)

    def test_many_instances_are_moveable(self):
        many = [p for p in self.description.parameters if p.get("instances") == "multi"]
        self.assertTrue(any(not p["coordinates"] for p in many))
        self.assertTrue(any(p["coordinates"] for p in many))
        self.problems(c for p in many for c in p["coordinates"] if c[0] != MOVEABLE_GROUP)

    def test_element_numbers_are_unique(self):
        for parameter in self.description.parameters:
            numbers = [e.get("number", i) for i, e in enumerate(parameter["elements"])]
            self.assertEqual(len(numbers), len(set(numbers)), parameter["coordinates"])

    def test_texts_are_german_and_english(self):
        languages = self.root["languages"]
        self.assertEqual(languages, ["de", "en"])

        def named(parameter):
            yield parameter["name"]
            yield from (e["name"] for e in parameter["elements"] if "name" in e)
            yield from ([parameter["description"]] if "description" in parameter else [])

        names = [text for p in self.description.parameters for text in named(p)]
        self.problems(text for text in names if list(text) != languages)
        others = [text for key in ("choices", "units") for text in self.values_of(key)]
        self.problems(t for t in others if isinstance(t, dict) and list(t) != languages)
        self.problems(t for t in names + others if "" in texts_of(t))

    def test_record_elements_are_named(self):
        self.problems(
            p["coordinates"] for p in self.description.parameters if p.get("type") == "record"
            for e in p["elements"] if "name" not in e or "number" not in e)

    def test_names_suit_html(self):
        names = [p["name"] for p in self.description.parameters]
        self.problems(text for name in names for text in texts_of(name) if re.search("[<>&]", text))

    def test_described_groups_have_descriptions(self):
        self.problems(
            p["number"] for p in self.description.parameters
            if "description" not in p and p["coordinates"] and p["coordinates"][0][0] in "PQ")

    def test_units_refer_to_texts(self):
        locators = self.placeholders("units")
        self.assertEqual({m[1] for m in locators}, {"local", "active"})
        for coordinate in {m[2] for m in locators}:
            target = self.description.by_coordinate[coordinate]
            element = self.description.element(target["elements"][0])
            self.assertEqual(element.get("kind"), TEXT_KIND, coordinate)
            self.assertTrue(element["dataType"].startswith("STRING"), coordinate)

    def test_placeholders_of_choices_refer_to_parameters(self):
        found = self.placeholders("choices")
        self.assertTrue(found)
        self.problems(m[0] for m in found if m[2] not in self.description.by_coordinate)

    def test_limits_fit_their_type(self):
        def wrong(element):
            limits = [Decimal(str(v)) for v in element.get("limits", {}).values()]
            bounds = integer_range(element["dataType"])
            if bounds and any(not bounds[0] <= v <= bounds[1] or v % 1 for v in limits):
                return True
            return len(limits) == 2 and limits[0] > limits[1]

        self.problems(place for _, e, place in self.places if wrong(e))

    def test_defaults_fit_limits_and_type(self):
        for parameter, element, place in self.places:
            implied = "0" if is_numeric(element) else ""
            for text in (element.get("default", implied), *parameter.get("defaults", [])):
                self.assertIsNone(native_problem(text, element), f"{place} {text}")
                if element.get("kind") in CHOICE_KINDS:
                    self.assertIn(str(text), element["choices"], place)

    def test_defaults_do_not_exceed_the_element_count(self):
        self.problems(
            p["coordinates"] for p in self.description.parameters
            if len(p.get("defaults", [])) > p.get("elementCount", 1))

    def test_choices_suit_type_and_limits(self):
        for _, element, place in self.places:
            for key in element.get("choices", {}):
                self.assertIsNone(native_problem(key, element), f"{place} {key}")

    def test_json_numbers_are_exact(self):
        def inexact(value):
            return isinstance(value, float) or isinstance(value, int) and abs(value) > 2**53

        self.problems(
            place for p, e, place in self.places
            for value in (e.get("default"), *e.get("limits", {}).values(), *p.get("defaults", []))
            if inexact(value))

    def test_factors_survive_32_bits(self):
        def survives(factor):
            single = struct.unpack("f", struct.pack("f", factor))[0]
            return factor != 0 and float(f"{single:.7g}") == factor

        self.assertTrue(any("fullScale" in e.get("scaling", {}) for e in self.elements))
        factors = self.values_of("scaling") + [
            e["fieldbus"]["factor"] for e in self.elements if "fieldbus" in e]
        self.problems(factor for factor in factors if not survives(factor))

    def test_addresses_refer_to_values(self):
        def wrong(number):
            axis, element, coordinate = number >> 30, number >> 16 & 0x3FFF, number & 0xFFFF
            name = f"{chr(64 + coordinate // 1000)}{coordinate % 1000:02}"
            target = self.description.by_coordinate.get(name)
            return axis + 1 not in self.root["family"]["axes"] or not has_element(target, element)

        numbers = [int(text) for p, e, _ in self.places if e.get("kind") == ADDRESS_KIND
                   for text in (e.get("default", "0"), *p.get("defaults", []))]
        used = [number for number in numbers if number != UNUSED_ADDRESS]
        self.assertTrue(used)
        self.problems(number for number in used if wrong(number))

    def test_address_type(self):
        types = {e["dataType"] for e in self.elements if e.get("kind") == ADDRESS_KIND}
        self.assertEqual(types, {"UINT32"})

    def test_online_order_ascends_by_group(self):
        orders = {}
        for parameter, element, _ in self.places:
            for coordinate in parameter["coordinates"]:
                orders.setdefault(coordinate[0], set()).add(element["onlineOrder"])
        self.problems(group for group, found in orders.items() if len(found) != 1)
        ascending = [orders[group].pop() for group in sorted(orders)]
        self.assertEqual(ascending, sorted(set(ascending)))

    def test_levels(self):
        levels = [e.get("levels", {}) for e in self.elements]
        read = {level.get("read", 0) for level in levels}
        write = {level.get("write", 0) for level in levels}
        self.assertEqual(read | write, set(range(7)))
        self.assertIn(6, read)
        self.assertTrue(any(
            e.get("shownOffline") and e["levels"]["write"] == 6 for e in self.elements))

    def test_measured_values_are_not_writable(self):
        self.problems(
            place for _, e, place in self.places
            if "measured" in e["profiles"] and e.get("noWrite") != 1)

    def test_system_parameters_that_the_library_reads(self):
        system = {p["coordinates"][0]: p for p in self.root["systemParameters"]}
        active = self.description.element(system["E84"]["elements"][0])
        self.assertIs(system["E84"]["global"], True)
        self.assertNotIn("physicalAxis", system["E84"])
        self.assertEqual(active["dataType"], "UINT8")
        last = len(self.root["family"]["axes"]) - 1
        self.assertEqual(active["limits"], {"lower": 0, "upper": last})
        state = self.description.element(system["E48"]["elements"][0])
        self.assertNotIn("global", system["E48"])
        self.assertEqual(state["limits"], {"lower": 0, "upper": 8})
        self.assertEqual(list(state["choices"]), [str(key) for key in range(9)])

    def test_special_parameters(self):
        parameters = self.description.parameters
        records = [[e["number"] for e in p["elements"]]
                   for p in parameters if p.get("type") == "record"]
        self.assertTrue(any(p.get("global") and p.get("physicalAxis") for p in parameters))
        self.assertTrue(any(p.get("elementCount", 1) > 1 and "defaults" in p for p in parameters))
        self.assertIn([0, 1, 2, 5], records)
        self.assertIn(list(range(16)), records)
        actions = [e for e in self.elements if "actionControl" in e["profiles"]]
        self.assertTrue(any(e.get("enableOffRequired") == 1 for e in actions))
        self.assertTrue(any(not e.get("enableOffRequired") for e in actions))


    def functions(self):
        """(kind, index, text) of every function."""
        for kind, table in self.root["functions"].items():
            for index, text in table.items():
                yield kind, int(index), text if isinstance(text, str) else "\n".join(text)

    def used(self, key, kind):
        """What elements have under a kind of functions or dependencies, without 0."""
        return {e[key][kind] for e in self.elements if e.get(key, {}).get(kind)}

    def test_functions_are_of_every_kind_and_all_used(self):
        self.assertEqual(set(self.root["functions"]), set(RECEIVING_KINDS))
        for kind in RECEIVING_KINDS:
            indices = {index for each, index, _ in self.functions() if each == kind}
            self.assertEqual(self.used("functions", kind), indices, kind)

    def test_dependencies_reach_functions(self):
        for kind in RECEIVING_KINDS:
            self.assertEqual(self.used("dependencies", kind), self.used("functions", kind), kind)

    def test_global_parameters_name_the_active_axis(self):
        self.problems(
            place for p, e, place in self.places if p.get("global")
            for text in e.get("units", {}).values()
            if isinstance(text, str) and text.startswith("<local"))

    def test_measuring_unit_dependencies_stand_at_the_units(self):
        located = {m[2] for m in self.placeholders("units")}
        dependent = {p["coordinates"][0] for p, e, _ in self.places
                     if e.get("dependencies", {}).get("measuringUnit")}
        self.assertLessEqual({"E12", "E14", "E15"}, dependent)
        self.assertEqual(located, dependent)

    def test_functions_name_parameters(self):
        names = {name for _, _, text in self.functions()
                 for name in COORDINATE_IN_A_FUNCTION.findall(text)}
        self.assertTrue(names)
        self.problems(names - set(self.description.by_coordinate))

    def test_system_strings_are_named(self):
        strings = {int(number) for number in self.root["systemStrings"]}
        texts = [e.get("commonTexts", {}) for e in self.elements]
        named = {number for text in texts for number in text.get("choices", [])}
        named |= {text[key] for text in texts for key in text if key != "choices"}
        self.assertEqual(named, strings)


class TwoAxisDrive(Content, unittest.TestCase):
    name = "two-axis-drive.json"

    def test_family(self):
        self.assertEqual(self.root["family"], {
            "identifier": 4096, "name": "Two-axis drive", "hasPhysicalAxes": True, "axes": [1, 2]})


class FourAxisController(Content, unittest.TestCase):
    name = "four-axis-controller.json"

    def test_family(self):
        self.assertEqual(self.root["family"], {
            "identifier": 8192, "name": "Four-axis controller", "hasPhysicalAxes": False,
            "axes": [1, 2, 3, 4]})


if __name__ == "__main__":
    if len(sys.argv) > 1:
        FOLDER = Path(sys.argv.pop(1)).resolve()
    unittest.main()
