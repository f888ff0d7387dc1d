#!/usr/bin/python3
"""end_to_end.py PROGRAM SCRIPT_PROGRAM PICTURES: drives the real program on a virtual display, from an empty sheet to
the three reports as PDF, once for each of the six design types, by keys and mouse alone. What the screen and the paper
say must be what the same work gives without a window, replayed by SCRIPT_PROGRAM.

Run it under dbus-run-session. The folder PICTURES gets a picture of each finished design, or of where it went wrong."""

import collections
import pathlib
import re
import subprocess
import sys
import time

from desk import PATIENCE, SCREEN, Atspi, Desk, Trouble, cell, wait_for

# Design type: the name and the caption of its menu entry.
DESIGNS = {
    1: ("mnuDesignField", "Planned Design"),
    2: ("mnuDesignConstSlope", "Design Constant Slope"),
    3: ("mnuDesignDualSlope", "Design Dual Slope"),
    4: ("mnuComputerHoleSelection", "Computer Hole Selection"),
    5: ("mnuExistingDesign", "Existing Field Design"),
    6: ("mnuManHoleSelection", "User Hole Selection"),
}
# The entries of the Design menu from top to bottom.
MENU_ORDER = ("Planned Design", "Design Constant Slope", "Design Dual Slope", "Computer Hole Selection",
              "User Hole Selection", "Existing Field Design")
REPORTS = ("Summary", "Complete Design", "Hole Summary")

PROFILE = "Profile of Crown"  # the window's title
NAME = "End to end"
DATE = "11/21/2026"
GPM = "300"
HEAD = "2"
READINGS = ("5.20", "5.30", "5.40", "5.50")
LENGTH = "1320"
COPIED_COLUMNS = 7  # from the furrow length to the planted width: Enter copies them down from the first row
DATA = str(pathlib.Path(__file__).resolve().parents[2] / "data")  # what a program newly installed begins with
SIZES = ("1/2", "9/16", "5/8")  # what the planner of type 6 owns
TIGHT_SCREEN = (1100, 750)  # a window that begins at its usual place would reach past the edges by its title bar
SETTLED = 2  # seconds in which a window has found its place


def script_of(design):
    """The same work for the program without a window. It starts from the same defaults file."""
    entry, _ = DESIGNS[design]
    lines = ["click mnuFileNew", f'type txtInfo(0) "{NAME}"', f'type txtInfo(1) "{DATE}"', f'type txtInfo(2) "{GPM}"',
             f'type txtInfo(3) "{HEAD}"', 'type txtInfo(5) "R"', "at Grid1 1 0"]
    lines += ["key Grid1 Enter"] * len(READINGS)
    lines += ['key Grid1 "*"', "key Grid1" + " Backspace" * 5]
    for reading in READINGS:
        lines += [f'key Grid1 "{reading}"', "key Grid1 Enter"]
    for column in range(COPIED_COLUMNS):
        lines += ['key Grid1 "*"'] + [f'key Grid1 "{LENGTH}"'] * (column == 0) + ["key Grid1 Enter"] * len(READINGS)
    lines += [f"click {entry}"]
    if design == 6:
        lines += [f'doubleclick listAllHoles "{size}"' for size in SIZES] + ["click cmdExitHoleSelect"]
    lines += ["show lblEffic"]
    for print_entry in ("mnuPrintSummary", "mnuPrintComplete", "mnuPrtHoleSummary"):
        lines += ["copies 1", f"click {print_entry}", "show printed"]
    return "\n".join(lines)


def expected(script_program, design):
    """The line on the screen, and the letters and figures of each of the three reports, how often each."""
    done = subprocess.run([script_program, "--data", DATA], input=script_of(design), text=True, capture_output=True,
                          check=True)
    uniformity = re.search(r'^lblEffic = "([^"]*)" visible', done.stdout, re.M)
    reports = done.stdout.split("\ndocument ")[1:]
    if not uniformity or len(reports) != len(REPORTS):
        raise Trouble(f"without a window the work ends so: {done.stdout[-400:]}")
    return uniformity[1], [letters(" ".join(re.findall(r'^(?:text|centred) .*? "(.*)"$', r, re.M))) for r in reports]


def letters(text):
    """What stands on a page, whichever way its words are set apart."""
    return collections.Counter("".join(text.split()))


def by_keys_alone(design):
    """The even types are worked without the mouse."""
    return design % 2 == 0


def go_to(desk, design, role, name):
    if by_keys_alone(design):
        desk.tab_to(name)
    else:
        desk.click(desk.find(role, name))


def type_survey(desk, design):
    desk.keys("ctrl+n")
    for field, text in (("Name", NAME), ("Date", DATE), ("GPM", GPM), ("Target Head", HEAD), ("Enter Rod", "R")):
        go_to(desk, design, "text", field)
        desk.keys("ctrl+a")
        desk.type(text)

    sheet = desk.find("table", "Survey sheet")
    if by_keys_alone(design):
        desk.tab_to("Survey sheet")
        desk.keys("ctrl+Home")
    else:
        desk.click(sheet.get_accessible_at(0, 0))
    desk.keys(*["Return"] * len(READINGS))
    desk.type("*")
    desk.keys(*["BackSpace"] * 5)
    for reading in READINGS:
        desk.type(reading)
        desk.keys("Return")
    for column in range(COPIED_COLUMNS):
        desk.type("*" + (LENGTH if column == 0 else ""))
        desk.keys(*["Return"] * len(READINGS))
    wait_for("the last column", lambda: cell(sheet, len(READINGS) - 1, 2 + COPIED_COLUMNS - 1))


def start_design(desk, design):
    _, caption = DESIGNS[design]
    if by_keys_alone(design):
        desk.keys("alt+f", "Right", "Right", "Right")
        desk.find("menu item", caption)
        desk.keys(*["Down"] * MENU_ORDER.index(caption), "Return")
    else:
        desk.click(desk.find("menu item", "Design"))
        desk.click(desk.find("menu item", caption))


def choose_holes(desk):
    """A list is searched by typing the beginning of a line."""
    desk.tab_to("Hole sizes")
    for size in SIZES:
        desk.type(size)
        desk.tab_to("---> Add")
        desk.keys("space")
        desk.tab_to("Hole sizes", "shift+Tab")
    desk.tab_to("Exit")
    desk.keys("space")


def export(desk, index, path):
    desk.keys("alt+f")
    desk.find("menu item", "Export as PDF")
    desk.keys("e")
    desk.find("menu item", f"{REPORTS[index]}...")
    desk.keys(*["Down"] * index, "Return")
    dialog = desk.find("dialog", "")
    field = desk.find("text", "File name", dialog)
    wait_for("the name's field", lambda: field.get_state_set().contains(Atspi.StateType.FOCUSED))
    desk.keys("ctrl+a")
    desk.type(str(path))
    desk.keys("Return")
    wait_for(f"{path.name} whole", lambda: path.exists() and path.read_bytes().rstrip().endswith(b"%%EOF"))
    wait_for("the end of the dialog", lambda: desk.showing("dialog", "") is None)


def paper(path):
    return subprocess.run(["pdftotext", "-layout", str(path), "-"], text=True, capture_output=True, check=True).stdout


def work_through(desk, design, awaited):
    """From the empty sheet to paper, in a program that has just started."""
    uniformity, reports = awaited
    type_survey(desk, design)
    start_design(desk, design)
    if design == 6:
        choose_holes(desk)
    desk.find("label", "Active Design", seconds=4 * PATIENCE)
    shown = desk.find("label", "Distribution Uniformity").get_name()
    if shown != uniformity:
        raise Trouble(f'the screen says "{shown}", without a window it is "{uniformity}"')
    for index, report in enumerate(reports):
        path = desk.folder / f"report_{index}.pdf"
        export(desk, index, path)
        if letters(paper(path)) != report:
            raise Trouble(f"the paper of {REPORTS[index]} is not what the same work prints without a window: {paper(path)}")


def look_at_profile(desk):
    """The crown profile opens by its letter in the menu bar and goes with Esc."""
    desk.keys("alt+c")
    wait_for("the crown profile", lambda: desk.look(lambda node: node.get_name() == PROFILE))
    desk.keys("Escape")
    wait_for("the end of the crown profile", lambda: desk.look(lambda node: node.get_name() == PROFILE) is None)


def magnify(desk):
    """At 250 percent the window would be larger than the screen: its edges stay on it, under a title bar too."""
    window = desk.find("frame", "TORVALE")
    box = window.get_extents(Atspi.CoordType.SCREEN)
    desk.keys(*["ctrl+equal"] * 6)

    def stays():
        now = window.get_extents(Atspi.CoordType.SCREEN)
        return now.width > box.width and now.x + now.width <= SCREEN[0] and now.y + now.height <= SCREEN[1]

    wait_for("the magnified window on the screen", stays, 10)


def check_edges(program):
    """On a screen with hardly more room than the window takes, its title bar and its edges keep it on the screen."""
    width, height = TIGHT_SCREEN
    with Desk(TIGHT_SCREEN) as desk:
        desk.start(program)
        time.sleep(SETTLED)
        now = desk.find("frame", "TORVALE").get_extents(Atspi.CoordType.SCREEN)
        if now.x < 0 or now.y < 0 or now.x + now.width > width or now.y + now.height > height:
            raise Trouble(f"the window stands at {now.x}, {now.y}, {now.width} x {now.height}, on {width} x {height} pixels")


def check_design(program, script_program, design, picture):
    awaited = expected(script_program, design)
    with Desk() as desk:
        desk.start(program)
        try:
            work_through(desk, design, awaited)
            look_at_profile(desk)
            magnify(desk)
        finally:
            desk.picture(picture)
        desk.keys("alt+f", "x")
        status, errors = desk.ended()
        if status != 0 or errors:
            raise Trouble(f"the program ended with status {status} and said: {errors}")


def main():
    program, script_program = (str(pathlib.Path(path).resolve()) for path in sys.argv[1:3])
    pictures = pathlib.Path(sys.argv[3]).resolve()
    pictures.mkdir(parents=True, exist_ok=True)
    passed = 0
    for design, (_, caption) in DESIGNS.items():
        try:
            check_design(program, script_program, design, pictures / f"design_{design}.png")
            passed += 1
            print(f"ok      {caption}")
        except Trouble as trouble:
            print(f"FAILED  {caption}: {trouble}")
    print(f"{passed} of {len(DESIGNS)} design types went from the empty sheet to paper")
    try:
        check_edges(program)
    except Trouble as trouble:
        print(f"FAILED  {trouble}")
        return 1
    return 0 if passed == len(DESIGNS) else 1


if __name__ == "__main__":
    sys.exit(main())
