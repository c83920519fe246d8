"""Every relative link of the documentation leads somewhere, and every decision stands in the index."""

import re
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
LINK = re.compile(r"\]\(([^)#\s]+)[^)]*\)")


def links(page):
    return [link for link in LINK.findall(page.read_text(encoding="utf-8")) if "://" not in link]


class Docs(unittest.TestCase):
    def test_links_lead_somewhere(self):
        pages = [page for page in ROOT.rglob("*.md")
                 if page.relative_to(ROOT).parts[0] not in ("build", ".git")]
        self.assertGreater(len(pages), 10)
        for page in pages:
            for link in links(page):
                with self.subTest(page=page.relative_to(ROOT).as_posix(), link=link):
                    self.assertTrue((page.parent / link).exists())

    def test_index_of_decisions_is_complete(self):
        folder = ROOT / "docs" / "decisions"
        pages = {page.name for page in folder.glob("*.md")} - {"README.md"}
        self.assertEqual(pages, set(links(folder / "README.md")))

    def test_every_decision_gives_its_reason(self):
        for page in (ROOT / "docs" / "decisions").glob("*.md"):
            if page.name != "README.md":
                with self.subTest(page=page.name):
                    self.assertIn("**Why.**", page.read_text(encoding="utf-8"))


if __name__ == "__main__":
    unittest.main()
