"""The self-test of check_guide.py: a small project that is right, and one fault after the other put into it."""

import pathlib
import struct
import tempfile

import check_guide

WORDS = """
// inline constexpr Sentence<0> kComment{"a comment says nothing"};
inline constexpr Message<1> kMissing{"In row {} no, \\"it\\" "
                                     "is missing", "Title"};
inline constexpr Question<0> kWhy{"Why?"};
inline constexpr Sentence<0> kFoot{
    "At the foot."};
"""
SOURCE = """
// Say(program, "a comment says nothing");
void Work(Program& program) {
  Tell(program, words::kMissing(GeneralText(1)));
  if (!Ask(program, words::kWhy)) Say(program, words::kFoot);
  if (program.main.sbStatusBar.caption == "x") Do(program, "y");
}
"""
MESSAGES = """<h3>In row <i>n</i> no, "it" is missing</h3><p>x</p>
<table><tr><td>Why?</td><td>x</td></tr></table>
<h3>At the foot.</h3>"""
FIGURES = '<pre>Head <code data-from="made lblA 2">1.25</code> <code data-from="made lblB 1">3/4</code></pre>'
TRANSCRIPT = 'lblA = "x"\nlblB = " Hole \\n3/4\\r"\nlblA = "Head 1.25" visible\n'
PICTURE = '<img src="help/a.png" alt="a picture" />'


def png(width):
    return b"\x89PNG\r\n\x1a\n" + struct.pack(">I4sII", 13, b"IHDR", width, 10)


def guide():
    anchors = "".join(f'<h2 id="{name}">x</h2>\n' for name in check_guide.ANCHORS)
    inside = {"fields": anchors, "messages": MESSAGES, "first-design": FIGURES, "profile": PICTURE}
    links = "".join(f'<a href="#{name}">x</a>\n' for name in check_guide.PAGES if name != "contents")
    inside["contents"] = f"<p>{links}</p>"
    pages = (
        f'<section id="{name}" data-group="g"><h1>x</h1>\n{inside.get(name, "")}\n</section>\n'
        for name in check_guide.PAGES
    )
    return "<html><body>\n" + "".join(pages) + "</body></html>\n"


# What is replaced by what, in which file, and a word of the complaint that must come of it.
GUIDE = check_guide.GUIDE
FAULTS = [
    (GUIDE, "</pre>", "", "not well-formed"),
    (GUIDE, "<pre>", "<pre><blink></blink>", "the tag blink"),
    (GUIDE, "<pre>", "<pre>" + "x" * 121, "longer than"),
    (GUIDE, 'id="pipe"', 'id="pype"', "no page or anchor pipe"),
    (GUIDE, 'id="col-hole"', 'id="col-hull"', "no page or anchor col-hole"),
    (GUIDE, 'id="pipe"', 'id="fields"', "stands twice"),
    (GUIDE, 'id="keys" data-group="g"', 'id="keys"', "section keys is no page"),
    (GUIDE, "<h3>At the foot.</h3>", "<h3>At the foot.</h3><h3>On top.</h3>", "nothing says: On top."),
    (GUIDE, '<a href="#keys">', '<a href="#keyes">', "leads nowhere"),
    (GUIDE, '<a href="#keys">', '<a href="https://keys">', "leads nowhere"),
    (GUIDE, '<a href="#keys">', '<a href="#pipe">', "the contents lack the page keys"),
    (GUIDE, "help/a.png", "help/b.png", "help/b.png is not there"),
    (GUIDE, 'alt="a picture"', "", "no alt text"),
    (GUIDE, PICTURE, "", "a.png is not used"),
    (GUIDE, ">1.25<", ">1.2<", "the figure 1.2 is not in line"),
    (GUIDE, "lblA 2", "lblA 1", "the figure 1.25 is not in line"),
    (GUIDE, "lblA 2", "lblA 9", "the figure 1.25 is not in line"),
    (GUIDE, ">3/4<", ">3<", "the figure 3 is not in line"),
    (GUIDE, "made lblB", "other lblB", "names no line"),
    (GUIDE, ' data-from="made lblA 2"', "", "has no data-from"),
    (GUIDE, "<h3>At the foot.</h3>", "", "no entry for kFoot"),
    (GUIDE, "<td>Why?</td>", "<td>Wy?</td>", "no entry for kWhy"),
    (GUIDE, "<i>n</i>", "12", "no entry for kMissing"),
    ("src/screen/words.h", "In row ", "In line ", "no entry for kMissing"),
    ("src/screen/words.h", '"At the foot."', 'AtTheFoot()', "a row that can't be read"),
    ("src/screen/words.h", "{\n    \"At", "{\n    \"No longer at", "no entry for kFoot"),
    ("src/a.cpp", "words::kWhy", "words::kMissing(x)", "nobody says kWhy"),
    ("src/a.cpp", "words::kFoot", "Foot()", "nobody says kFoot"),
    ("src/a.cpp", "Do(program", 'host.Message(Made(")", std::string("b")), title);', "a literal is handed to Message"),
    ("src/a.cpp", "Ask(program, words::kWhy)", 'program.host.Question("Why?", "")', "a literal is handed to Question"),
    ("src/a.cpp", "Do(program", "grid.SetMark(1, 2", "a literal is handed to SetMark"),
    ("src/a.cpp", "void Work", 'constexpr Sentence<0> kMine{"x"};\nvoid Work', "a row of words outside"),
    ("src/a.cpp", 'caption == "x"', "caption = text", "the status bar is written past"),
    ("src/a.cpp", 'caption == "x"', "caption.append(text)", "the status bar is written past"),
    ("src/a.cpp", "  Tell(", "  std::string& news = program.main.sbStatusBar.caption;\n  Tell(", "is written past"),
    ("src/a.cpp", "// Say", 'QMessageBox::about(nullptr, "x", "y"); //', "past the host"),
    ("tests/scripts/made.expected", "1.25", "1.26", "the figure 1.25 is not in line"),
]


def complaints_with(root, file="", old="", new=""):
    files = {
        GUIDE: guide(),
        "src/screen/words.h": WORDS,
        "src/a.cpp": SOURCE,
        "tests/scripts/made.expected": TRANSCRIPT,
    }
    if file:
        if old not in files[file]:
            return [f"the self-test's own {old!r} is not in {file}"]
        files[file] = files[file].replace(old, new, 1)
    for name, text in files.items():
        path = root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)
    return check_guide.complaints_of(root)


def run():
    failures = 0
    with tempfile.TemporaryDirectory() as folder:
        root = pathlib.Path(folder)
        (root / "data/help").mkdir(parents=True)
        picture = root / "data/help/a.png"
        picture.write_bytes(png(100))
        for complaint in complaints_with(root):
            print(f"self-test: nothing is wrong, and yet: {complaint}")
            failures += 1
        for file, old, new, word in FAULTS:
            found = complaints_with(root, file, old, new)
            if not any(word in complaint for complaint in found):
                print(f"self-test: {old!r} -> {new!r} in {file} gives no complaint of {word!r}: {found}")
                failures += 1
        for content, word in ((png(721), "no PNG of at most"), (b"x" * 24, "no PNG of at most")):
            picture.write_bytes(content)
            if not any(word in complaint for complaint in complaints_with(root)):
                print(f"self-test: a picture that is wrong gives no complaint of {word!r}")
                failures += 1
        picture.write_bytes(png(100) + b"x" * check_guide.ALL_PICTURES)
        if not any("take more than" in complaint for complaint in complaints_with(root)):
            print("self-test: pictures that are too large are not found")
            failures += 1
    return 1 if failures else 0
