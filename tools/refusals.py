#!/usr/bin/env python3
"""Writes docs/refusals.md from the rules' sources: every message with its file and function. --check: fail when stale."""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
PAGE = ROOT / "docs" / "refusals.md"
MESSAGE = re.compile(r'"((?:[^"\\]|\\.)*[\u4e00-\u9fff](?:[^"\\]|\\.)*)"')
FUNCTION = re.compile(r"^(?:[\w:<>&*, ]+\s)?[\w:]*?(\w+)\([^;]*$")
# A message ends as a sentence; captions and part texts don't.
SENTENCE = re.compile(r"[。!！?？]$|^请|没有权限|：$")


def rows():
    for path in sorted((ROOT / "plugin").rglob("*")):
        if path.suffix not in (".cpp", ".h"):
            continue
        rule = ""
        for line in path.read_text(encoding="utf-8").splitlines():
            found = FUNCTION.match(line)
            if found and line[:1].isalpha():
                rule = found.group(1)
            if line.lstrip().startswith("//"):
                continue
            for text in MESSAGE.findall(line):
                if SENTENCE.search(text):
                    yield text, str(path.relative_to(ROOT)), rule


def page():
    lines = ["# Messages and refusals", "",
             "Made by `tools/refusals.py` from the rules as they are; a stale page fails the tests.", "",
             "| Text | Rule | File |", "|---|---|---|"]
    seen = set()
    for text, path, rule in rows():
        if (text, path) not in seen:
            seen.add((text, path))
            lines.append(f"| {text} | {'`' + rule + '`' if rule else ''} | `{path}` |")
    return "\n".join(lines) + "\n"


def main():
    text = page()
    if "--check" in sys.argv:
        if not PAGE.exists() or PAGE.read_text(encoding="utf-8") != text:
            sys.exit("docs/refusals.md is stale: run tools/refusals.py")
    else:
        PAGE.write_text(text, encoding="utf-8")


if __name__ == "__main__":
    main()
