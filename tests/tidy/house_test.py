#!/usr/bin/env python3
"""House rules as tests: what may include what, sizes, format, and headers that compile alone."""

import re
import subprocess
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
LONGEST_FILE = 400
LONGEST_FUNCTION = 40
# Tests walk a road step by step.
LONGEST_TEST = 50
# Files whose one function is a table.
TABLES = {"plugin/settlement/settlement_sides.cpp", "plugin/otherbills/other_bill_sides.cpp"}


def sources(*folders, endings=(".h", ".cpp")):
    return sorted(p for f in folders for p in (ROOT / f).rglob("*") if p.suffix in endings)


def name(path):
    return str(path.relative_to(ROOT))


def includes(path):
    return re.findall(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]', path.read_text(encoding="utf-8"), re.M)


NO_FUNCTION = re.compile(r"(namespace|struct|class|enum|union|extern|if|for|while|switch|return)\b|[}#/]")
HEAD_ENDS = re.compile(r"(\)|\}|\bconst|\boverride|\bfinal|\bnoexcept|\btry|-> [\w:<>&* ]+) \{$")


def functions(text):
    """(first line, length) of each function whose body has lines of its own, those inside classes too. The text is formatted,
    so a body ends at the brace in the column where its declaration begins."""
    head = end = None
    for number, line in enumerate(text.splitlines(), 1):
        if end is not None:
            if line.split(" catch ")[0] == end:
                yield head[0], number - head[0]
                head = end = None
            continue
        if head is None and line.strip():
            head = (number, line)
        if head is None or not line.strip() or NO_FUNCTION.match(head[1].lstrip()):
            head = None
        elif HEAD_ENDS.search(line):
            end = head[1][: len(head[1]) - len(head[1].lstrip())] + "}"
        elif re.search(r"[;{}:]$|//", line):
            head = None


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
        # Both are include roots of their own: "data/database.h" is a header of the desk, "bridge/bridge.h" one of com.
        for room, other in (("desk", "com"), ("com", "desk")):
            headers = {str(p.relative_to(ROOT / other)) for p in sources(other, endings=(".h",))}
            self.assertTrue(headers, other)
            for path in sources(room):
                foreign = [h for h in includes(path) if h in headers or (path.parent / h).resolve().is_relative_to(ROOT / other)]
                self.assertEqual(foreign, [], name(path))

    def test_files_can_be_read_at_one_sitting(self):
        for path in sources("plugin", "com", "desk", "tests", "bench"):
            lines = len(path.read_text(encoding="utf-8").splitlines())
            self.assertLessEqual(lines, LONGEST_FILE, name(path))

    def test_functions_do_not_scroll(self):
        for path in sources("plugin", "desk", "com", "bench", "tests"):
            if name(path) in TABLES:
                continue
            longest = LONGEST_TEST if name(path).startswith("tests/") else LONGEST_FUNCTION
            for line, length in functions(path.read_text(encoding="utf-8")):
                self.assertLessEqual(length, longest, f"{name(path)}:{line}")

    def test_functions_are_found_wherever_they_stand(self):
        text = """class Name {
  Name()
      : a_(1) {
    Call();
  }
  int a_;
};
int Long(int nFirst,
         int nSecond) try {
  return nFirst;
} catch (const Error&) {
  return 0;
}
const Table kTable{
    {1, 2},
};
"""
        self.assertEqual(list(functions(text)), [(2, 3), (8, 3)])

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
