#!/usr/bin/env python3
"""Runs the shell blocks of README.md as they stand, in a folder that looks like the root of the project."""

import json
import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
README = (ROOT / "README.md").read_text(encoding="utf-8")
DESK = Path(sys.argv.pop(1)).resolve()  # the built program
INVOICES = """number,customer,date,duedate,amount
A-1,North,2026-11-02,2026-12-02,120.50
A-2,North,2026-11-03,2026-12-03,79.50
A-3,South,2026-11-04,2026-12-04,300.00
"""


def shell_blocks():
    """The fenced blocks that hold commands: a picture has none."""
    blocks = re.findall(r"^```\w*\n(.*?)^```$", README, re.M | re.S)
    return [block for block in blocks if re.search(r"^(\./|\$|[a-z]+=)", block, re.M)]


class Readme(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.place = Path(self.folder.name)
        (self.place / "desk").symlink_to(ROOT / "desk")
        (self.place / "invoices.csv").write_text(INVOICES, encoding="utf-8")

    def tearDown(self):
        self.folder.cleanup()

    def shell(self, script):
        result = subprocess.run(["bash", "-euo", "pipefail", "-c", script], cwd=self.place, capture_output=True, text=True)
        self.assertEqual(result.returncode, 0, f"{script}\n{result.stdout}{result.stderr}")
        return result.stdout

    def test_every_command_of_the_desk_goes_through(self):
        blocks = [block for block in shell_blocks() if block.startswith("desk=")]
        self.assertEqual(len(blocks), 1)
        program = self.place / re.match(r"desk=(\S+)", blocks[0])[1]
        program.parent.mkdir(parents=True)
        program.symlink_to(DESK)
        told = self.shell(blocks[0])
        self.assertIn("imported 3 invoices, total 500.00, 2 new customers", told)
        self.assertEqual(told.count("saved as"), 2, told)
        self.assertIn("500.00", told)
        show = json.loads(self.shell(f"{DESK} show my.book receivables --json"))
        self.assertEqual(sum(float(line["open"]) for line in show), 500.0, "every source is open again")

    def test_the_commands_of_the_root_are_there_and_know_their_options(self):
        blocks = [block for block in shell_blocks() if block.startswith("./")]
        self.assertEqual(len(blocks), 1)
        for line in blocks[0].splitlines():
            script = ROOT / line.split()[0]
            self.assertTrue(script.stat().st_mode & 0o111, f"{script} can't be run")
            subprocess.run(["bash", "-n", str(script)], check=True)
            options = re.findall(r"--[a-z]+", line)
            if options:
                usage = subprocess.run([str(script), "--nonsense"], capture_output=True, text=True).stderr
                self.assertEqual([o for o in options if o not in usage], [], f"{line}\n{usage}")

    def test_every_shell_block_is_one_of_these(self):
        self.assertEqual([b for b in shell_blocks() if not b.startswith(("./", "desk="))], [])

    def test_the_options_named_in_the_text_are_those_of_the_program(self):
        named = re.findall(r"`desk (\w+)[^`]*?(--\w+)`", README)
        self.assertTrue(named)
        for command, option in named:
            words = [command, "settle"] if command == "bench" else [command]
            told = subprocess.run([str(DESK), *words, "--help"], capture_output=True, text=True).stdout
            self.assertIn(option, told, f"desk {command}")


if __name__ == "__main__":
    unittest.main()
