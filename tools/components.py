#!/usr/bin/env python3
"""Writes the last section of docs/components.md: where the rules make each component and call each member. What stands above
it is written by hand; the tool fails when a call isn't described there or a description has no call. --check: fail when stale."""

import re
import sys
from collections import defaultdict
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
PAGE = ROOT / "docs" / "components.md"
LAST_SECTION = "## Where each call stands\n"
PROG_ID = re.compile(r'"([A-Z]\w+\.[A-Za-z]\w+)"')
NO_PROG_IDS = {"NUVV11.chm", "ErpSwitch.sss", "MNetControl.ExecFunc"}
MADE = re.compile(r'Create(Server|Local)Object\("([^"]+)"')
MEMBER = re.compile(r"Member::(\w+)")
# A member that this library answers, not one that it calls.
ANSWERED = re.compile(r"case Member::|member [!=]= Member::")
# The windows of the host have typed views; their members are described there.
VIEWS_OF_WINDOWS = {"contract_bill.h", "contract_bill.cpp", "contract_bars.h", "contract_lists.h", "names.h", "open_choices.h"}


class Calls:
    def __init__(self):
        self.components = defaultdict(set)
        self.members = defaultdict(set)
        self.made = {}
        for path in sorted((ROOT / "plugin").rglob("*")):
            if path.suffix in (".cpp", ".h"):
                self.read(path)

    def read(self, path):
        name = str(path.relative_to(ROOT))
        for line in path.read_text(encoding="utf-8").splitlines():
            line = line.split("//")[0]
            for prog_id in PROG_ID.findall(line):
                if prog_id not in NO_PROG_IDS:
                    self.components[prog_id].add(name)
            for way, prog_id in MADE.findall(line):
                self.made[prog_id] = "by the factory" if way == "Server" else "plainly"
            if path.name not in VIEWS_OF_WINDOWS and not ANSWERED.search(line):
                for member in MEMBER.findall(line):
                    self.members[member].add(name)


def sections(text):
    """(the headings' names, the text) of each section of a component."""
    for section in re.split(r"^### ", text, flags=re.M)[1:]:
        title, _, body = section.partition("\n")
        yield title, body.split("\n## ")[0]


def described_members(text):
    for _, body in sections(text):
        for line in body.splitlines():
            if line.startswith("| `"):
                yield from re.findall(r"`(\w+)`", line.split("|")[1])


def faults(calls, text):
    named = {p: body for title, body in sections(text) for p in re.findall(r"`([\w.]+)`", title + body) if p in calls.components}
    titles = [p for title, _ in sections(text) for p in re.findall(r"`([\w.]+)`", title)]
    members = set(described_members(text))
    yield from (f"{p} isn't described" for p in sorted(set(calls.components) - set(named)))
    yield from (f"{p} is described, and no rule makes it" for p in titles if p not in calls.components)
    yield from (f"{p} is made {way}; its section doesn't say so" for p, way in sorted(calls.made.items())
                if p in named and f"made {way}" not in " ".join(named[p].split()).replace("Made", "made"))
    yield from (f"{m} is called and isn't described" for m in sorted(set(calls.members) - members))
    yield from (f"{m} is described, and no rule calls it" for m in sorted(members - set(calls.members)))


def last_section(calls):
    def table(title, rows):
        yield from (f"| {title} | Files |", "|---|---|")
        for name, files in sorted(rows.items(), key=lambda row: (row[0].lower(), row[0])):
            yield f"| `{name}` | {', '.join(f'`{f}`' for f in sorted(files))} |"

    lines = ["Made by `tools/components.py` from the rules as they are; a stale page fails the tests.", "",
             *table("ProgID", calls.components), "", *table("Member", calls.members)]
    return LAST_SECTION + "\n" + "\n".join(lines) + "\n"


def main():
    calls = Calls()
    page = PAGE.read_text(encoding="utf-8")
    text = page.split(LAST_SECTION)[0]
    found = list(faults(calls, text))
    if found:
        sys.exit("docs/components.md: " + "\n".join(found))
    if "--check" not in sys.argv:
        PAGE.write_text(text + last_section(calls), encoding="utf-8")
    elif page != text + last_section(calls):
        sys.exit("docs/components.md is stale: run tools/components.py")


if __name__ == "__main__":
    main()
