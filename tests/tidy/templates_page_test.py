#!/usr/bin/env python3
"""docs/desk.md names exactly the keys that the desk reads from a template."""

import re
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
PAGE = (ROOT / "docs" / "desk.md").read_text(encoding="utf-8")
READER = (ROOT / "desk" / "engine" / "template_reader.cpp").read_text(encoding="utf-8")


class TemplatesPage(unittest.TestCase):
    def test_the_keys_are_those_of_the_reader(self):
        known = set(re.findall(r'(?:text|needed|number|flag|list|find|value)\((?:\*?\w+, )?"(\w+)"', READER))
        self.assertGreater(len(known), 25)
        text = re.search(r"^## Templates\n(.*?)(?=^## |\Z)", PAGE, re.M | re.S)[1]
        named = set(re.findall(r"`(\w+)`", re.search(r"^A template has the keys (.*)$", text, re.M)[1]))
        for first in re.findall(r"^\| (`.*?) \|", text, re.M):
            named |= set(re.findall(r"`(\w+)`", first))
        self.assertEqual(named, known)

    def test_the_kinds_are_those_of_the_reader(self):
        known = re.findall(r'\{"(\w+)", FieldKind::', READER)
        row = re.search(r"^\| `kind` \|(.*)$", PAGE, re.M)[1]
        self.assertEqual(set(re.findall(r"`(\w+)`", row)), set(known))


if __name__ == "__main__":
    sys.exit(unittest.main())
