#!/usr/bin/env python3
"""Fails on links and paths in the pages (README.md, docs/*.md, tests/cases/README.md) that lead nowhere.

  check_links.py [ROOT]       checks the project at ROOT (by default the one that this script lies in)
  check_links.py --self-test  fails unless each kind of broken link is found and whole ones are not

A link leads to a file of the project, to a heading of a page (page.md#heading), or to the web, which isn't looked up. A
path between marks of code that begins with a folder of the project must be there too; "*" stands for anything, and one
with a place to fill in, <folder>, is passed over.
"""

import pathlib
import re
import sys
import tempfile

FENCE = re.compile(r"^```.*?^```", re.MULTILINE | re.DOTALL)
LINK = re.compile(r"\]\(([^)\s]+)\)")
CODE = re.compile(r"`([^`\n]+)`")
HEADING = re.compile(r"^#+ +(.*)$", re.MULTILINE)
FOLDERS = ("bench/", "cmake/", "data/", "docs/", "packaging/", "scripts/", "src/", "tests/")


def pages(root):
    found = [root / "README.md", *sorted((root / "docs").glob("*.md")), root / "tests/cases/README.md"]
    return [page for page in found if page.is_file()]


def anchors(text):
    """The names that headings are reached by: small letters, words joined by hyphens, other signs dropped."""
    return {re.sub(r"[^\w\- ]", "", title.lower()).strip().replace(" ", "-") for title in HEADING.findall(text)}


def broken(root, page):
    """(line, link) for each link or path of the page that leads nowhere."""
    # Blocks of code hold no links; their lines are kept so that the count is right.
    text = FENCE.sub(lambda block: "\n" * block.group().count("\n"), page.read_text())
    found = []
    for match in LINK.finditer(text):
        file, _, anchor = match.group(1).partition("#")
        if file.startswith(("http://", "https://", "mailto:")):
            continue
        target = (page.parent / file).resolve() if file else page
        if not target.exists() or anchor and anchor not in anchors(target.read_text()):
            found.append((match.start(), match.group(1)))
    for match in CODE.finditer(text):
        path = match.group(1).split()[0]
        if path.startswith(FOLDERS) and "<" not in path and not any(root.glob(path.rstrip("/"))):
            found.append((match.start(), path))
    return [(text.count("\n", 0, start) + 1, link) for start, link in sorted(found)]


def self_test():
    cases = [
        ("[a](other.md)", None),
        ("[a](none.md)", "none.md"),
        ("[a](other.md#the-heading-a)", None),
        ("[a](other.md#no-heading)", "other.md#no-heading"),
        ("[a](#here)\n# Here", None),
        ("![a](none.svg)", "none.svg"),
        ("[a](https://example.org/none)", None),
        ("see `src/base/*.h` and `src/base/`", None),
        ("see `src/base/none.h`", "src/base/none.h"),
        ("see `src/<folder>/*.h` and `none.h`", None),
        ("```\n[a](none.md)\n```", None),
    ]
    wrong = 0
    with tempfile.TemporaryDirectory() as name:
        root = pathlib.Path(name)
        (root / "docs").mkdir()
        (root / "src/base").mkdir(parents=True)
        (root / "src/base/a.h").write_text("")
        (root / "docs/other.md").write_text("# The heading (`a`)\n")
        page = root / "docs/page.md"
        for text, expected in cases:
            page.write_text(f"first\n{text}\n")
            found = broken(root, page)
            if found != ([] if expected is None else [(2, expected)]):
                wrong += 1
                print(f"self-test: {text!r}: found {found}, expected {expected or 'nothing'}")
    return 1 if wrong else 0


def main():
    if sys.argv[1:] == ["--self-test"]:
        return self_test()
    root = pathlib.Path(sys.argv[1] if sys.argv[1:] else pathlib.Path(__file__).resolve().parent.parent)
    count = 0
    for page in pages(root):
        for line, link in broken(root, page):
            print(f"{page.relative_to(root)}:{line}: {link} leads nowhere")
            count += 1
    return 1 if count or not pages(root) else 0


if __name__ == "__main__":
    sys.exit(main())
