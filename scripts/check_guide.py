#!/usr/bin/env python3
"""Fails unless the guide (data/TORVALEHELP.hlp) is whole and true to the program.

  check_guide.py [ROOT]       checks the project at ROOT (by default the one that this script lies in)
  check_guide.py --self-test  fails unless each fault is found in a guide and sources made for it

What it wants:
  - well-formed pages of the tags that the help window shows, lines of at most 120 characters;
  - every page that the program opens by name, every link with its target, every picture there, small, and used;
  - every figure of an example (<code data-from="SCRIPT NAME N">) in the N-th line of NAME in tests/scripts/SCRIPT.expected;
  - an entry (a heading of third rank, or the first cell of a row) on the page of messages for each row of the table of
    words (src/screen/words.h), with a name in italics for each gap, and no row that nothing in src/ names;
  - no words from elsewhere: no literal among what a host's boxes or a cell's mark are given, no row of words outside the
    table, no message box past the host, and nothing put on the status bar but by src/screen/status_line.cpp. (Say, Tell
    and Ask take rows of the table alone, by their types.)
"""

import pathlib
import re
import struct
import sys
import xml.etree.ElementTree as ElementTree

GUIDE = "data/TORVALEHELP.hlp"
PAGES = """contents first-design survey fields sheet-columns pipe design-types results hole-summary applied-water
    hole-selection preferences soils profile printing files clipboard messages limits keys""".split()
ANCHORS = """field-name field-date field-gpm field-head field-location field-rod col-station col-reading col-length
    col-spacing col-diameter col-hole col-holes col-mil col-planted""".split()
TAGS = set("""section h1 h2 h3 p ul ol li table tr th td b i code pre img a sub sup""".split())
LONGEST_LINE = 120
WIDEST_PICTURE = 720  # pixels
ALL_PICTURES = 600_000  # bytes

WORDS = "src/screen/words.h"
# A row of the table: its kind, name and literals.
ROW = re.compile(r'inline constexpr (Sentence|Message|Question)<\d+> (k\w+)\{((?:\s*"(?:[^"\\]|\\.)*")+)[^;]*\};')
ROWS = re.compile(r"\b(?:Sentence|Message|Question)<\d+> \w+\s*[{=(]")
# The procedures that take words take nothing else. Those that take any text:
SPEAKS = re.compile(r"\b(SetMark|Message|Question)\(")
STATUS = re.compile(r"\bsbStatusBar\.caption\s*(?:\+?=(?!=)|\.\w+\()|&\s*\w+\s*=\s*[\w.]*sbStatusBar\.caption")
STATUS_LINE = "src/screen/status_line.cpp"
BOXES = "src/qt/qt_host.cpp"
GAP = "\u2026"  # stands for what the program puts in

LITERAL = re.compile(r'"((?:[^"\\]|\\.)*)"')
ESCAPES = {"n": "\n", "r": "\r", "t": "\t"}


def unescape(text):
    return re.sub(r"\\(.)", lambda match: ESCAPES.get(match.group(1), match.group(1)), text)


def plain(text):
    """With every stretch of blanks and line ends as one blank."""
    return " ".join(text.split())


# ---- what the program says ----


def arguments(text, start):
    """What stands between the bracket at start and the one that closes it."""
    depth, i = 0, start
    while i < len(text):
        if text[i] == '"':
            i = LITERAL.match(text, i).end()
            continue
        depth += (text[i] == "(") - (text[i] == ")")
        if depth == 0:
            break
        i += 1
    return text[start + 1 : i]


def without_comments(text):
    """The same text with its comments blank, so that positions and line numbers stay."""
    pattern = re.compile(r'"(?:[^"\\\n]|\\.)*"|//[^\n]*|/\*.*?\*/', re.S)
    blank = lambda match: match.group() if match.group()[0] == '"' else re.sub(r"[^\n]", " ", match.group())
    return pattern.sub(blank, text)


def read_sources(root):
    """Path -> text without comments of each file of the program."""
    paths = [path for path in sorted((root / "src").rglob("*")) if path.suffix in (".h", ".cpp")]
    return {path.relative_to(root).as_posix(): without_comments(path.read_text()) for path in paths}


def read_words(sources):
    """Name -> text of each row of the table, GAP for each gap."""
    rows = {}
    for _, name, literals in ROW.findall(sources.get(WORDS, "")):
        rows[name] = plain(unescape("".join(LITERAL.findall(literals)))).replace("{}", GAP)
    return rows


def check_speech(sources):
    """Complaints about what is said past the table."""
    for file, text in sources.items():
        at = lambda match: f"{file}:{text.count(chr(10), 0, match.start()) + 1}"
        if "QMessageBox::" in text and file != BOXES:
            yield f"{file}: a message box past the host"
        if file != WORDS:
            for match in ROWS.finditer(text):
                if LITERAL.search(text[match.end() : text.find(";", match.end())]):
                    yield f"{at(match)}: a row of words outside {WORDS}"
        for match in SPEAKS.finditer(text):
            if LITERAL.search(arguments(text, match.end() - 1)):
                yield f"{at(match)}: a literal is handed to {match.group(1)}: give it a row in {WORDS}"
        if file != STATUS_LINE:
            for match in STATUS.finditer(text):
                yield f"{at(match)}: the status bar is written past {STATUS_LINE}"


# ---- the guide ----


def text_of(element):
    """Text of an element, with GAP for what stands in italics."""
    parts = [element.text or ""]
    for child in element:
        parts.append(GAP if child.tag == "i" else text_of(child))
        parts.append(child.tail or "")
    return "".join(parts)


def entries(page):
    found = {plain(text_of(heading)) for heading in page.iter("h3")}
    found |= {plain(text_of(row.find("td"))) for row in page.iter("tr") if row.find("td") is not None}
    return found


def check_form(text, body):
    for number, line in enumerate(text.splitlines(), 1):
        if len(line) > LONGEST_LINE:
            yield f"line {number} is longer than {LONGEST_LINE} characters"
    ids = [element.get("id") for element in body.iter() if element.get("id")]
    for name in sorted({name for name in ids if ids.count(name) > 1}):
        yield f"the id {name} stands twice"
    for element in body.iter():
        if element is not body and element.tag not in TAGS:
            yield f"the tag {element.tag} is not shown by the help window"
    for page in body:
        whole = page.tag == "section" and page.get("id") and page.get("data-group") and len(page) > 0
        if not whole or page[0].tag != "h1" or len(list(page.iter("section"))) != 1:
            yield f"{page.tag} {page.get('id')} is no page: a section with id, data-group and a heading"
    for name in PAGES + ANCHORS:
        if name not in ids:
            yield f"there is no page or anchor {name}"
    for link in body.iter("a"):
        target = link.get("href") or ""
        if target[:1] != "#" or target[1:] not in ids:
            yield f"the link {target} leads nowhere"
    contents = next((page for page in body if page.get("id") == "contents"), ElementTree.Element("none"))
    linked = {link.get("href") for link in contents.iter("a")}
    for page in body:
        if page.get("id") != "contents" and f"#{page.get('id')}" not in linked:
            yield f"the contents lack the page {page.get('id')}"


def png_width(path):
    head = path.read_bytes()[:24]
    return struct.unpack(">I", head[16:20])[0] if head[:8] == b"\x89PNG\r\n\x1a\n" else None


def check_pictures(body, folder):
    used = set()
    for picture in body.iter("img"):
        name = picture.get("src") or ""
        path = folder / name
        used.add(name)
        if not (picture.get("alt") or "").strip():
            yield f"the picture {name} has no alt text"
        if not name.startswith("help/") or not path.is_file():
            yield f"the picture {name} is not there"
        elif (png_width(path) or WIDEST_PICTURE + 1) > WIDEST_PICTURE:
            yield f"the picture {name} is no PNG of at most {WIDEST_PICTURE} pixels"
    pictures = sorted((folder / "help").glob("*"))
    for path in pictures:
        if f"help/{path.name}" not in used:
            yield f"the picture {path.name} is not used"
    if sum(path.stat().st_size for path in pictures) > ALL_PICTURES:
        yield f"the pictures take more than {ALL_PICTURES} bytes"


def values_in(transcript, name):
    """The values of a control or field in the lines of a transcript, in their order."""
    prefix = name + " = "
    return [line[len(prefix) :] for line in transcript.splitlines() if line.startswith(prefix)]


def check_figures(body, transcripts):
    """Every <code> of an example page or block names the line of a transcript that holds it."""
    for page in body:
        for figure in page.iter("code"):
            source = figure.get("data-from")
            text = plain(text_of(figure))
            if source is None:
                if page.get("id") in ("first-design", "more-examples") and re.search(r"\d", text):
                    yield f"the figure {text} has no data-from"
                continue
            words = source.split()
            if len(words) != 3 or words[0] not in transcripts or not words[2].isdigit():
                yield f"data-from {source!r} names no line of a transcript"
                continue
            values = values_in(transcripts[words[0]], words[1])
            number = int(words[2])
            value = unescape(values[number - 1]) if 1 <= number <= len(values) else ""
            if not re.search(r"(?<![\w./-])" + re.escape(text) + r"(?![\w/]|\.\d)", value):
                yield f"the figure {text} is not in line {number} of {words[1]} of {words[0]}: {value!r}"


def check_messages(body, sources):
    words = read_words(sources)
    page = next((page for page in body if page.get("id") == "messages"), ElementTree.Element("none"))
    found = entries(page)
    for name, text in words.items():
        if text not in found:
            yield f"{WORDS}: the guide has no entry for {name}: {text}"
        if not any(re.search(rf"\b{name}\b", source) for file, source in sources.items() if file != WORDS):
            yield f"{WORDS}: nobody says {name}"
    for heading in page.iter("h3"):
        text = plain(text_of(heading))
        if text not in words.values():
            yield f"an entry that nothing says: {text}"
    if len(words) != sources.get(WORDS, "").count("inline constexpr") or not words:
        yield f"{WORDS}: a row that can't be read"
    yield from check_speech(sources)


def complaints_of(root):
    text = (root / GUIDE).read_text(encoding="utf-8")
    try:
        body = ElementTree.fromstring(text).find("body")
    except ElementTree.ParseError as reason:
        return [f"not well-formed: {reason}"]
    if body is None:
        return ["there is no body"]
    transcripts = {path.stem: path.read_text() for path in (root / "tests/scripts").glob("*.expected")}
    checks = (
        check_form(text, body),
        check_pictures(body, (root / GUIDE).parent),
        check_figures(body, transcripts),
        check_messages(body, read_sources(root)),
    )
    return [complaint for check in checks for complaint in check]


def main():
    if sys.argv[1:] == ["--self-test"]:
        sys.dont_write_bytecode = True
        import check_guide_self_test

        return check_guide_self_test.run()
    root = pathlib.Path(sys.argv[1]) if sys.argv[1:] else pathlib.Path(__file__).resolve().parent.parent
    found = complaints_of(root)
    for complaint in found:
        print(f"{GUIDE}: {complaint}")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
