#!/usr/bin/env python3
"""What README.md, docs/scenarios.md and docs/desk.md say of the command line, tried on the program."""

import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
SCENARIOS = (ROOT / "docs" / "scenarios.md").read_text(encoding="utf-8")
README = (ROOT / "README.md").read_text(encoding="utf-8")
DESK_PAGE = (ROOT / "docs" / "desk.md").read_text(encoding="utf-8")
DESK = Path(sys.argv.pop(1)).resolve()  # the built program


def section(page, name):
    return re.search(rf"^## {name}\n(.*?)(?=^## |\Z)", page, re.M | re.S)[1]


def desk(*words, folder=None):
    return subprocess.run([str(DESK), *words], cwd=folder, capture_output=True, text=True)


def options_of(*command):
    return set(re.findall(r"--\w+", desk(*command, "--help").stdout)) - {"--help"}


class Pages(unittest.TestCase):
    def test_the_example_of_a_scenario_goes_through_on_a_demo_book(self):
        example = re.search(r"^```\n(# .*?)^```$", SCENARIOS, re.M | re.S)[1]
        with tempfile.TemporaryDirectory() as folder:
            (Path(folder) / "first.txt").write_text(example, encoding="utf-8")
            self.assertEqual(desk("new", "demo.book", "--demo", folder=folder).returncode, 0)
            played = desk("play", "demo.book", "first.txt", folder=folder)
        self.assertEqual(played.returncode, 0, played.stdout + played.stderr)
        self.assertIn("C001 still owes something in CNY.", played.stdout)

    def test_the_options_of_play_are_those_of_the_program(self):
        named = re.findall(r"^\| `(--\w+)", section(SCENARIOS, "Playing"), re.M)
        self.assertEqual(set(named), options_of("play"))

    def test_every_command_and_option_of_the_program_is_named(self):
        text = section(DESK_PAGE, "Command line")
        rows = dict(re.findall(r"^\| `desk (\w+)[^|]*\|(.*)$", text, re.M))
        known = re.findall(r"^  (\w+) {2,}", desk("--help").stdout.split("Subcommands:")[1], re.M)
        self.assertEqual(set(rows), set(known))
        waiting = re.search(r"how long (.*?) wait", text, re.S)[1]
        for command, row in rows.items():
            options = options_of(command, "settle") if command == "bench" else options_of(command)
            self.assertEqual("--wait" in options, f"`{command}`" in waiting, command)
            self.assertEqual(set(re.findall(r"`(--\w+)", row)), options - {"--wait"}, command)

    def test_the_mapping_of_the_readme_is_taken(self):
        mapping = re.search(r"--map (\S+)", README)[1]
        names = dict(pair.split("=") for pair in mapping.split(","))
        header = [names.get(key, key) for key in ("number", "customer", "date", "duedate", "amount")]
        with tempfile.TemporaryDirectory() as folder:
            lines = ",".join(header) + "\nA-1,North,2026-11-02,12/2/2026,120.50\n"
            (Path(folder) / "invoices.csv").write_text(lines, encoding="utf-8")
            desk("new", "a.book", folder=folder)
            told = desk("import", "a.book", "invoices.csv", "--map", mapping, folder=folder)
        self.assertEqual(told.returncode, 0, told.stderr)
        self.assertIn("imported 1 invoices, total 120.50, 1 new customers", told.stdout)

    def test_the_exit_codes_are_as_told(self):
        with tempfile.TemporaryDirectory() as folder:
            for name, line in (("good", "say hello"), ("failing", "expect open X 1"), ("unreadable", "frob")):
                (Path(folder) / name).write_text(line, encoding="utf-8")
            self.assertEqual(desk("new", "a.book", folder=folder).returncode, 0)
            self.assertEqual(desk("play", "a.book", "good", folder=folder).returncode, 0)
            self.assertEqual(desk("play", "a.book", "failing", folder=folder).returncode, 1)
            self.assertEqual(desk("play", "a.book", "unreadable", folder=folder).returncode, 2)
            self.assertEqual(desk("play", "no.book", "good", folder=folder).returncode, 3)


if __name__ == "__main__":
    unittest.main()
