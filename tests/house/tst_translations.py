#!/usr/bin/python3
"""Every text for users has its English translation.

Usage: tst_translations.py LUPDATE SOURCE-FOLDER NAME=FOLDER,FOLDER...
"""

import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree
from collections import Counter
from pathlib import Path

LUPDATE = ""
SOURCE = Path()
TRANSLATIONS = {}

PLACEHOLDER = re.compile(r"%(?:L?[0-9]{1,2}|n)")


def messages_of(file):
    """Each message: (context, source, translation, type), the type "" for a finished one."""
    for context in ElementTree.parse(file).getroot().iter("context"):
        for message in context.iter("message"):
            translation = message.find("translation")
            yield (context.findtext("name"), message.findtext("source"), translation.text or "",
                   translation.get("type", ""))


def sources_of(file):
    return {(context, source) for context, source, _, _ in messages_of(file)}


def problem_of(source, translation, kind):
    """What is wrong with one message; empty when nothing is."""
    if kind:
        return kind
    if not translation.strip():
        return "empty"
    if Counter(PLACEHOLDER.findall(source)) != Counter(PLACEHOLDER.findall(translation)):
        return "other placeholders"
    # Blanks and line ends there join the text to what is printed around it.
    if [re.match(r"\s*", text).group() for text in (source, source[::-1])] != \
            [re.match(r"\s*", text).group() for text in (translation, translation[::-1])]:
        return "other blanks at an end"
    return ""


class Translations(unittest.TestCase):
    def test_the_files_are_there(self):
        files = {file.stem for file in (SOURCE / "translations").glob("*.ts")}
        self.assertTrue(TRANSLATIONS)
        self.assertLessEqual(set(TRANSLATIONS), files)

    def test_every_text_is_translated(self):
        for name in TRANSLATIONS:
            messages = list(messages_of(SOURCE / "translations" / f"{name}.ts"))
            self.assertTrue(messages, name)
            for context, source, translation, kind in messages:
                with self.subTest(file=name, context=context, source=source):
                    self.assertEqual(problem_of(source, translation, kind), "")

    def test_the_files_have_the_texts_of_the_sources(self):
        for name, folders in TRANSLATIONS.items():
            with self.subTest(file=name), tempfile.TemporaryDirectory() as folder:
                file = SOURCE / "translations" / f"{name}.ts"
                updated = Path(folder) / file.name
                shutil.copyfile(file, updated)
                subprocess.run([LUPDATE, "-silent", "-no-obsolete", "-I", ".", "-I", "include",
                                *folders, "-ts", str(updated)],
                               cwd=SOURCE, check=True, capture_output=True, timeout=50)
                self.assertEqual(sources_of(updated) ^ sources_of(file), set(),
                                 "build the target update_translations")


class Problems(unittest.TestCase):
    def test_of_a_message(self):
        for source, translation, kind, problem in (
            ("Achse %1", "Axis %1", "", ""),
            ("%1 von %2", "of %2 %1", "", ""),
            ("Wert\n", "Value\n", "", ""),
            ("Wert", "Value", "unfinished", "unfinished"),
            ("Wert", "Value", "vanished", "vanished"),
            ("Wert", "Value", "obsolete", "obsolete"),
            ("Wert", "", "", "empty"),
            ("Wert", " ", "", "empty"),
            ("Achse %1", "Axis", "", "other placeholders"),
            ("Achse", "Axis %1", "", "other placeholders"),
            ("Achse %1", "Axis %2", "", "other placeholders"),
            ("%1 %1", "%1", "", "other placeholders"),
            ("%n Werte", "values", "", "other placeholders"),
            ("Wert\n", "Value", "", "other blanks at an end"),
            (" und", "and", "", "other blanks at an end"),
        ):
            with self.subTest(source=source, translation=translation, kind=kind):
                self.assertEqual(problem_of(source, translation, kind), problem)


if __name__ == "__main__":
    LUPDATE, SOURCE = sys.argv[1], Path(sys.argv[2])
    for pair in sys.argv[3:]:
        file_name, _, folder_list = pair.partition("=")
        TRANSLATIONS[file_name] = folder_list.split(",")
    unittest.main(argv=sys.argv[:1])
