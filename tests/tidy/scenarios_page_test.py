#!/usr/bin/env python3
"""docs/scenarios.md names exactly the lines that the parser of scenarios knows."""

import re
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
PAGE = (ROOT / "docs" / "scenarios.md").read_text(encoding="utf-8")
PARSER = (ROOT / "desk" / "cli" / "scenario.cpp").read_text(encoding="utf-8")
HEADER = (ROOT / "desk" / "cli" / "scenario.h").read_text(encoding="utf-8")
KINDS = (ROOT / "desk" / "services" / "bill_kinds.cpp").read_text(encoding="utf-8")


def lines_of(section):
    """The lines that a section's table names in its first column."""
    text = re.search(rf"^## {section}\n(.*?)(?=^## |\Z)", PAGE, re.M | re.S)[1]
    return [line.replace("\\|", "|") for line in re.findall(r"^\| `([^`]+)` \|", text, re.M)]


class ScenariosPage(unittest.TestCase):
    def test_the_verbs_are_those_of_the_parser(self):
        known = set(re.findall(r'sVerb == "(\w+)"', PARSER)) | set(re.findall(r'words\[0\] == "(\w+)"', PARSER))
        self.assertGreater(len(known), 15)
        named = {line.split()[0] for line in lines_of("What a line can do") + lines_of("What a line can expect")}
        self.assertEqual(named, known)

    def test_the_expectations_are_those_of_the_parser(self):
        known = set(re.findall(r'sWhat == "(\w+)"', PARSER))
        self.assertGreater(len(known), 9)
        lines = lines_of("What a line can expect")
        self.assertEqual({line.split()[0] for line in lines}, {"expect"})
        self.assertEqual({line.split()[1] for line in lines}, known)

    def test_a_line_of_one_form_is_written_as_the_parser_asks_for_it(self):
        call = r'(?:counted|choice|row_step)\(line, Verb::\w+, \w+,(?: \d,)*\s+"([^"]+)"'
        forms = re.findall(call, PARSER)
        self.assertGreater(len(forms), 15)
        named = lines_of("What a line can do") + lines_of("What a line can expect")
        self.assertEqual([form for form in forms if form not in named], [])

    def test_the_forms_of_the_others_stand_on_the_page_word_by_word(self):
        refusals = re.findall(r'refuse\(line, "write: ([^"]+)"\)', PARSER)
        self.assertGreater(len(refusals), 2)
        for form in refusals:
            for word in re.findall(r"\w+", re.sub(r"\b(write|or|and)\b", " ", form)):
                self.assertIn(word, PAGE, form)

    def test_the_loops_are_those_of_the_parser(self):
        things = re.findall(r'inline constexpr std::string_view k\w+ = "([^"]+)";', HEADER)
        self.assertEqual(len(things), 5)
        named = [line.removeprefix("for each ") for line in lines_of("Loops and variables")]
        self.assertEqual(named, [thing + "N" if thing.endswith(" ") else thing for thing in things])

    def test_the_kinds_of_bill_are_named(self):
        kinds = re.findall(r'^    \{"(\w+)", "', KINDS, re.M)
        self.assertEqual(len(kinds), 4)
        told = re.search(r"^KIND is (.*?):", PAGE, re.M)[1]
        self.assertEqual(re.findall(r"`(\w+)`", told), kinds)


if __name__ == "__main__":
    sys.exit(unittest.main())
