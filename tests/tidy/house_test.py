#!/usr/bin/env python3
"""House rules as tests: what may include what, sizes, format, and headers that compile alone."""

import re
import subprocess
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
LONGEST_FILE = 400
LONGEST_FUNCTION = 60
# Files that are one list by nature.
LONG_FILES = {"desk/data/schema_sql.cpp"}
# Files whose one function is a table.
TABLES = {"plugin/settlement/settlement_sides.cpp", "plugin/otherbills/other_bill_sides.cpp"}


def sources(*folders, endings=(".h", ".cpp")):
    return sorted(p for f in folders for p in (ROOT / f).rglob("*") if p.suffix in endings)


def name(path):
    return str(path.relative_to(ROOT))


def includes(path):
    return re.findall(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]', path.read_text(encoding="utf-8"), re.M)


def functions(text):
    """(first line, length) of each function body that starts in column 0 and ends with a brace in column 0."""
    start = None
    for number, line in enumerate(text.splitlines(), 1):
        if re.match(r"^[A-Za-z].*\)[^;]*\{$", line) and not line.startswith(("namespace", "struct", "class", "enum")):
            start = number
        elif line == "}" and start is not None:
            yield start, number - start
            start = None


class House(unittest.TestCase):
    def test_plugin_includes_only_itself_and_the_standard_library(self):
        for path in sources("plugin"):
            for header in includes(path):
                local = (ROOT / "plugin" / header).exists()
                standard = "/" not in header and "." not in header
                self.assertTrue(local or standard, f"{name(path)} includes {header}")

    def test_only_com_includes_windows(self):
        for path in sources("plugin", "desk", "tests", "bench"):
            if name(path).startswith("tests/com/"):
                continue
            self.assertNotIn("windows.h", [h.lower() for h in includes(path)], name(path))

    def test_desk_and_com_keep_apart(self):
        for path in sources("desk"):
            self.assertFalse([h for h in includes(path) if h.startswith("com/")], name(path))
        for path in sources("com"):
            self.assertFalse([h for h in includes(path) if h.startswith("desk/")], name(path))

    def test_files_can_be_read_at_one_sitting(self):
        for path in sources("plugin", "com", "desk", "tests", "bench"):
            if name(path) in LONG_FILES:
                continue
            lines = len(path.read_text(encoding="utf-8").splitlines())
            self.assertLessEqual(lines, LONGEST_FILE, name(path))

    def test_functions_do_not_scroll(self):
        for path in sources("plugin", "desk", "com", endings=(".cpp",)):
            if name(path) in TABLES:
                continue
            for line, length in functions(path.read_text(encoding="utf-8")):
                self.assertLessEqual(length, LONGEST_FUNCTION, f"{name(path)}:{line}")

    def test_no_rule_of_the_plugin_asks_which_side_it_is(self):
        for path in sources("plugin"):
            self.assertIsNone(re.search(r"\b(bIsPay|is_pay|isPay)\b", path.read_text(encoding="utf-8")), name(path))

    def test_every_plugin_header_compiles_alone(self):
        for path in sources("plugin", endings=(".h",)):
            command = ["g++", "-std=c++20", "-fsyntax-only", "-Werror", "-Wall", "-Wextra", "-I", str(ROOT / "plugin"),
                       "-include", str(path), "-x", "c++", "/dev/null"]
            result = subprocess.run(command, capture_output=True, text=True)
            self.assertEqual(result.returncode, 0, f"{name(path)}\n{result.stderr}")

    def test_sources_are_formatted(self):
        files = [str(p) for p in sources("plugin", "com", "desk", "tests", "bench")]
        result = subprocess.run(["clang-format", "--dry-run", "--Werror", *files], capture_output=True, text=True)
        self.assertEqual(result.returncode, 0, result.stderr[:4000])


if __name__ == "__main__":
    sys.exit(unittest.main())
