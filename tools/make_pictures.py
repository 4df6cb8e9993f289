#!/usr/bin/env python3
"""Writes the pictures of the bars, 16 x 16 in 24-bit colour, to plugin/lists/pictures. --check: fail when one differs."""

import struct
import sys
from pathlib import Path

FOLDER = Path(__file__).resolve().parents[1] / "plugin" / "lists" / "pictures"
SIZE = 16
# "." is the colour that the bars take as transparent.
COLOURS = {".": 0xFF00FF, "k": 0x303030, "w": 0xFFFFFF, "g": 0x2E8B57, "b": 0x1F5FBF, "r": 0xC8322D, "y": 0xE0A82E,
           "s": 0xA8B4C4}

SHEET = ["................",
         "..kkkkkkkkk.....",
         "..kwwwwwwwkk....",
         "..kwwwwwwwkwk...",
         "..kwwwwwwwkkkk..",
         "..kw{0}{0}{0}{0}{0}{0}wwwk..",
         "..kwwwwwwwwwwk..",
         "..kw{0}{0}{0}{0}{0}{0}{0}{0}wk..",
         "..kwwwwwwwwwwk..",
         "..kw{0}{0}{0}{0}{0}{0}wwwk..",
         "..kwwwwwwwwwwk..",
         "..kwwww{0}{0}{0}{0}{0}{0}k..",
         "..kwwww{0}{0}{0}{0}{0}{0}k..",
         "..kwwwwwwwwwwk..",
         "..kkkkkkkkkkkk..",
         "................"]

PICTURES = {
    "BLUE": [row.format("b") for row in SHEET],
    "RED": [row.format("r") for row in SHEET],
    "CHECK": ["................",
              "..kkkkkkkkkk....",
              "..kwwwwwwwwk....",
              "..kwsssssswk....",
              "..kwwwwwwwwk..gg",
              "..kwsssssswk.ggg",
              "..kwwwwwwwwkggg.",
              "..kwsssswwwggg..",
              "..kwwwwwwwggg...",
              "..kgggwwwggg....",
              "..kwgggwggg.....",
              "..kwwgggggk.....",
              "..kwwwgggwk.....",
              "..kkkkkgkkk.....",
              "................",
              "................"],
    "CONVERT": ["................",
                "................",
                ".........b......",
                ".........bb.....",
                "..bbbbbbbbbb....",
                "..bbbbbbbbbbb...",
                "..bbbbbbbbbb....",
                ".........bb.....",
                "......g..b......",
                ".....gg.........",
                "....gggggggggg..",
                "...ggggggggggg..",
                "....gggggggggg..",
                ".....gg.........",
                "......g.........",
                "................"],
    "PART": ["................",
             "......kkkk......",
             "....kkyykwkk....",
             "...kyyyykwwwk...",
             "..kyyyyykwwwwk..",
             "..kyyyyykwwwwk..",
             ".kyyyyyykwwwwwk.",
             ".kyyyyyykkkkkkk.",
             ".kyyyyyykbbbbbk.",
             ".kyyyyykbbbbbbk.",
             "..kyyykbbbbbbk..",
             "..kyykbbbbbbbk..",
             "...kkbbbbbbbk...",
             "....kkbbbbkk....",
             "......kkkk......",
             "................"],
    "SUM": ["................",
            "...bbbbbbbbbb...",
            "...bbbbbbbbbb...",
            "...bbb.....bb...",
            "....bbb.........",
            ".....bbb........",
            "......bbb.......",
            ".......bbb......",
            ".......bbb......",
            "......bbb.......",
            ".....bbb........",
            "....bbb.........",
            "...bbb.....bb...",
            "...bbbbbbbbbb...",
            "...bbbbbbbbbb...",
            "................"],
    "VIEW": ["................",
             "....kkkkk.......",
             "...kwwwwwk......",
             "..kwssssswk.....",
             ".kwswwwwwswk....",
             ".kwswwwwwswk....",
             ".kwswwwwwswk....",
             ".kwswwwwwswk....",
             "..kwssssswk.....",
             "...kwwwwwkk.....",
             "....kkkkkkyk....",
             "..........kyk...",
             "...........kyk..",
             "............kyk.",
             ".............kk.",
             "................"],
    "VOUCHER": ["................",
                ".kkkkkkkkkkkkkk.",
                ".kwwwwwwwwwwwwk.",
                ".kwwwrrrrrrwwwk.",
                ".kwwwwwwwwwwwwk.",
                ".kkkkkkkkkkkkkk.",
                ".kwwwwkwwwkwwwk.",
                ".kwsswkwswkwswk.",
                ".kwwwwkwwwkwwwk.",
                ".kkkkkkkkkkkkkk.",
                ".kwwwwkwwwkwwwk.",
                ".kwsswkwswkwswk.",
                ".kwwwwkwwwkwwwk.",
                ".kkkkkkkkkkkkkk.",
                "................",
                "................"],
}


def bitmap(rows):
    assert len(rows) == SIZE and all(len(row) == SIZE for row in rows)
    pixels = b"".join(struct.pack("<I", COLOURS[mark])[:3] for row in reversed(rows) for mark in row)
    info = struct.pack("<IiiHHIIiiII", 40, SIZE, SIZE, 1, 24, 0, len(pixels), 2835, 2835, 0, 0)
    return struct.pack("<2sIHHI", b"BM", 14 + len(info) + len(pixels), 0, 0, 14 + len(info)) + info + pixels


def main():
    for name, rows in PICTURES.items():
        path = FOLDER / (name.lower() + ".bmp")
        if "--check" not in sys.argv:
            path.write_bytes(bitmap(rows))
        elif not path.exists() or path.read_bytes() != bitmap(rows):
            sys.exit(f"{path.name} is stale: run tools/make_pictures.py")


if __name__ == "__main__":
    main()
