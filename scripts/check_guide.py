#!/usr/bin/env python3
"""Fails unless the guide (data/TORVALEHELP.hlp) is whole and true to the program.

  check_guide.py [ROOT]       checks the project at ROOT (by default the one that this script lies in)
  check_guide.py --self-test  fails unless each fault is found in a guide and sources made for it

What it wants:
  - well-formed pages of the tags that the help window shows, lines of at most 120 characters;
  - every page that the program opens by name, every link with its target, every picture there, small, and used;
  - every figure of an example (<code data-from="SCRIPT NAME N">) in the N-th line of NAME in tests/scripts/SCRIPT.expected;
  - an entry (a heading of third rank, or the first cell of a row) on the page of messages for everything that the
    sources hand to a message box, a question or the status bar. A text that can't be worked out from the sources fails,
    too: say in VALUES, VALUE_FUNCTIONS or TABLES what it is.
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

# Where a text is handed on: the procedure, which of its arguments is the text, and what it makes of it.
CALLS = {
    "Message": (0, "{}"),
    "Question": (0, "{}"),
    "Say": (1, "{}"),
    "SayToo": (1, "{}"),
    "Report": (1, "{}"),
    "GiveMark": (1, "{}"),
    "SetMark": (2, "{}"),
    "TellPrintError": (1, "{} print Error"),
}
STATUS = "sbStatusBar.caption"
GAP = "\u2026"  # stands for what the program puts in

# Calls whose result is a number or the like.
VALUE_FUNCTIONS = {"GeneralText", "Format", "ErrorNumber", "ProgramVersion", "WorkText", "CopyName", "Utf8Of"}
# Other operands that are put in as they are, by file. The arguments of the procedures in CALLS are among them: what they
# are given is checked where they are called.
VALUES = {
    "src/files/design_files.cpp": {"std::generic_category().message(fault.number)"},
    "src/files/earlier_versions.cpp": {"std::generic_category().message(fault.number)", "other"},
    "src/files/file_store.cpp": {"path"},
    "src/input/field_marks.cpp": {"shown", "mark", "wrong"},
    "src/input/sheet.cpp": {"above"},
    "src/reports/crown_profile.cpp": {"*path"},
    "src/reports/print_commands.cpp": {"*path", "description", "FaultText(fault.kind)"},
    "src/screen/program.cpp": {"body"},
    "src/screen/status_line.cpp": {"sentence", "std::move(sentence)"},
    "src/search/hole_selection_panel.cpp": {"typed", "found"},
    "src/search/cal_dsign_var.cpp": {"here", "before", "sentence", "remark.sentence"},
    "src/search/survey_diagnosis.cpp": {"kColumnNames[static_cast<std::size_t>(column)]"},
    "src/shell/csv_export.cpp": {"*path", "std::generic_category().message(error)"},
    "src/shell/events.cpp": {"what"},
    "src/shell/help.cpp": {"fault.what()"},
    "src/shell/history.cpp": {"step.name", "top.name"},
    "src/shell/recovery.cpp": {"std::generic_category().message(error)"},
}
# Members of tables: the file and the table whose texts they are, and which text of each row it is.
TABLES = {
    "field.sentence": ("src/search/survey_diagnosis.cpp", "kNeededFields", 0),
    "hint.text": ("src/input/info_fields.cpp", "kHints", 1),
    "TraitOf(column).hint": ("src/input/sheet.cpp", "kColumns", 2),
    "kind.advice": ("src/search/hole_selection.cpp", r"k\w+Pass", 0),
}
EMPTY = {'""', "std::string()", "std::string_view()", "std::nullopt", "{}"}

DECLARED = re.compile(r"(?:const )?(?:std::string(?:_view)?|Program|TextField|int)&? \w+")
LITERAL = re.compile(r'"((?:[^"\\]|\\.)*)"')
ESCAPES = {"n": "\n", "r": "\r", "t": "\t"}


class Unresolved(Exception):
    pass


def unescape(text):
    return re.sub(r"\\(.)", lambda match: ESCAPES.get(match.group(1), match.group(1)), text)


def plain(text):
    """With every stretch of blanks and line ends as one blank."""
    return " ".join(text.split())


# ---- what the program says ----


def skip_literals(text, start):
    """(position, character) of everything from start on that does not stand in a literal."""
    i = start
    while i < len(text):
        if text[i] in "\"'":
            quote = text[i]
            i += 1
            while i < len(text) and text[i] != quote:
                i += 2 if text[i] == "\\" else 1
        else:
            yield i, text[i]
        i += 1


def split_top(text, separators):
    """Parts of text between the separators that stand outside brackets and literals, and the separators."""
    parts, found, depth, begin = [], [], 0, 0
    for i, c in skip_literals(text, 0):
        if c in "([{":
            depth += 1
        elif c in ")]}":
            depth -= 1
        elif depth == 0 and c in separators and text[i : i + 2] != "::" and text[i - 1 : i + 1] != "::":
            parts.append(text[begin:i].strip())
            found.append(c)
            begin = i + 1
    return parts + [text[begin:].strip()], found


def closing(text, start):
    """Position of the bracket that closes the one at start."""
    depth = 0
    for i, c in skip_literals(text, start):
        if c in "([{":
            depth += 1
        elif c in ")]}":
            depth -= 1
            if depth == 0:
                return i
    raise Unresolved(f"no end of {text[start:start + 40]!r}")


def without_comments(text):
    """The same text with its comments blank, so that positions and line numbers stay."""
    pattern = re.compile(r'"(?:[^"\\\n]|\\.)*"|//[^\n]*|/\*.*?\*/', re.S)
    blank = lambda match: match.group() if match.group()[0] == '"' else re.sub(r"[^\n]", " ", match.group())
    return pattern.sub(blank, text)


class Sources:
    def __init__(self, root):
        self.files = {}
        for path in sorted((root / "src").rglob("*")):
            if path.suffix in (".h", ".cpp"):
                self.files[path.relative_to(root).as_posix()] = without_comments(path.read_text())

    def function(self, name, file):
        """(file, begin, end) of the bodies of the procedure of that name, those of the file first."""
        pattern = re.compile(r"[\w>&] " + re.escape(name) + r"\(")
        for place in [file] + [other for other in self.files if other != file]:
            bodies = []
            for match in pattern.finditer(self.files[place]):
                text = self.files[place]
                end = closing(text, match.end() - 1)
                brace = re.compile(r"\s*(?:const)?\s*\{").match(text, end + 1)
                if brace:
                    bodies.append((place, brace.end() - 1, closing(text, brace.end() - 1)))
            if bodies:
                return bodies
        raise Unresolved(f"no procedure {name}")

    def table(self, member):
        file, name, index = TABLES[member]
        texts = []
        for match in re.finditer(name + r"(?:\[\])?(?: =)?\s*\{", self.files[file]):
            body = self.files[file][match.end() : closing(self.files[file], match.end() - 1)]
            rows = re.findall(r"\{[^{}]*\}", body) or [body]
            texts += [LITERAL.findall(row)[index] for row in rows if len(LITERAL.findall(row)) > index]
        if not texts:
            raise Unresolved(f"nothing in the table of {member}")
        return [unescape(text) for text in texts]

    def texts(self, expression, file, at):
        """Every text that the expression, at that place of the file, can be; GAP for what is put in."""
        expression = expression.strip()
        if expression in EMPTY:
            return []
        # A sentence with the cell that it speaks of.
        remark = re.match(r"(?:SurveyRemark)?\{", expression)
        if remark and expression.endswith("}"):
            return self.texts(split_top(expression[remark.end() : -1], ",")[0][0], file, at)
        parts, found = split_top(expression, "?:")
        if found == ["?", ":"]:
            return self.texts(parts[1], file, at) + self.texts(parts[2], file, at)
        operands, _ = split_top(expression, "+")
        results = [""]
        for operand in operands:
            alternatives = self.operand(operand, file, at)
            results = [first + second for first in results for second in alternatives]
        return results

    def operand(self, operand, file, at):
        if operand in VALUES.get(file, ()):
            return [GAP]
        literals = LITERAL.findall(operand)
        if literals and not LITERAL.sub("", operand).strip():
            return [unescape("".join(literals))]
        if operand.startswith("(") and closing(operand, 0) == len(operand) - 1:
            return self.texts(operand[1:-1], file, at)
        if operand in TABLES:
            return self.table(operand)
        call = re.match(r"((?:\w+::)*)(\w+)\(", operand)
        if call and closing(operand, call.end() - 1) == len(operand) - 1:
            return self.call(call.group(2), operand[call.end() : -1], file, at)
        name = operand.lstrip("*")
        if re.fullmatch(r"\w+", name):
            return self.variable(name, file, at)
        raise Unresolved(f"{operand!r} is neither a text nor known")

    def call(self, name, arguments, file, at):
        if name in ("string", "string_view", "move"):
            return self.texts(arguments, file, at)
        if name in VALUE_FUNCTIONS:
            return [GAP]
        results = []
        for place, begin, end in self.function(name, file):
            for match in re.finditer(r"\breturn\b([^;]*);", self.files[place][begin:end]):
                results += self.texts(match.group(1), place, begin + match.start())
        if not results:
            raise Unresolved(f"{name} gives no text")
        return results

    def variable(self, name, file, at):
        kinds = r"(?:std::string(?:_view)?|std::optional<std::string>|auto)"
        pattern = re.compile(kinds + r"&?\s+" + name + r"\s*=\s*")
        found = list(pattern.finditer(self.files[file], 0, at))
        constants = [match for match in pattern.finditer(self.files[file]) if name.startswith("k")]
        if not found and not constants:
            raise Unresolved(f"{name} is neither a text nor known")
        start = (found or constants)[-1].end()
        ends = (i for i, c in skip_literals(self.files[file], start) if c == ";")
        return self.texts(self.files[file][start : next(ends)], file, start)


def handed_on(sources):
    """(file, line, expression or None, frame, position) of each place where a text goes to the user."""
    names = "|".join(CALLS)
    for file, text in sources.files.items():
        if "QMessageBox::" in text and file != "src/qt/qt_host.cpp":
            yield file, 1, None, "", 0
        for match in re.finditer(r"\b(" + names + r")\(", text):
            arguments, _ = split_top(text[match.end() : closing(text, match.end() - 1)], ",")
            which, frame = CALLS[match.group(1)]
            # A declaration has types for arguments.
            if which < len(arguments) and not DECLARED.fullmatch(arguments[0]):
                yield file, text.count("\n", 0, match.start()) + 1, arguments[which], frame, match.start()
        for match in re.finditer(re.escape(STATUS) + r"\s*=(?!=)\s*", text):
            ends = (i for i, c in skip_literals(text, match.end()) if c == ";")
            yield file, text.count("\n", 0, match.start()) + 1, text[match.end() : next(ends)], "{}", match.start()


def messages(sources):
    """({text: place} of everything the program says, complaints about what can't be worked out)."""
    said, complaints = {}, []
    for file, line, expression, frame, at in handed_on(sources):
        if expression is None:
            complaints.append(f"{file}: a message box past the host")
            continue
        try:
            for text in sources.texts(expression, file, at):
                if plain(text) not in ("", GAP):
                    said.setdefault(plain(frame.format(text)), f"{file}:{line}")
        except Unresolved as reason:
            complaints.append(f"{file}:{line}: {reason}")
    return said, complaints


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
    said, complaints = messages(sources)
    yield from complaints
    page = next((page for page in body if page.get("id") == "messages"), ElementTree.Element("none"))
    found = entries(page)
    for text, place in sorted(said.items()):
        if text not in found:
            yield f"{place}: the guide has no entry for the message: {text}"
    if not said:
        yield "no message was found in the sources"


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
        check_messages(body, Sources(root)),
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
