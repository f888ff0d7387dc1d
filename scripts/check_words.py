#!/usr/bin/env python3
"""Fails on marks of unfinished work in the sources, tests, scripts and pages.

  check_words.py [ROOT]       checks the project at ROOT (by default the one that this script lies in)
  check_words.py --self-test  fails unless each mark is found and plain words are not
"""

import pathlib
import re
import sys

# Written apart so that this file passes its own check.
MARKS = re.compile(r"\b(" + "|".join(("TO" + "DO", "FIX" + "ME", "XX" + "X", "HA" + "CK", "WI" + "P")) + r")\b")
FOLDERS = ("src", "tests", "bench", "scripts", "cmake", "docs", "packaging")
SUFFIXES = (".h", ".cpp", ".py", ".sh", ".cmake", ".md", ".txt", ".script")


def marks(text):
    """(line number, mark) for each mark in text."""
    return [(text.count("\n", 0, match.start()) + 1, match.group()) for match in MARKS.finditer(text)]


def self_test():
    for mark in ("TO" + "DO", "FIX" + "ME", "XX" + "X", "HA" + "CK", "WI" + "P"):
        if marks(f"first\n// {mark}: later\n") != [(2, mark)]:
            print(f"self-test: {mark} is not found")
            return 1
    if marks("Mastodon, hacksaw, prefixme, wipe"):
        print("self-test: a plain word is taken for a mark")
        return 1
    return 0


def main():
    if sys.argv[1:] == ["--self-test"]:
        return self_test()
    root = pathlib.Path(sys.argv[1]) if sys.argv[1:] else pathlib.Path(__file__).resolve().parent.parent
    found = 0
    for folder in FOLDERS:
        for path in sorted((root / folder).rglob("*")):
            if path.suffix in SUFFIXES and path.is_file():
                for line, mark in marks(path.read_text(errors="replace")):
                    print(f"{path.relative_to(root)}:{line}: {mark}")
                    found += 1
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
