#!/usr/bin/python3
"""windows.py BUILD HERE PICTURES [CHECK...]: drives the programs for Windows under Wine, on a virtual display, in a Wine
of its own: BUILD is the folder that scripts/make_windows.sh filled, HERE one with the programs of this system. What the
keys give must be what the same work gives without a window, replayed on this system. The folder PICTURES gets a picture
of each step. CHECK is the title of a check, as it is written at its end; where none is named all are made.

Run it under dbus-run-session."""

import html
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import time
import unicodedata
import zipfile

from desk import Trouble, wait_for
from end_to_end import COPIED_COLUMNS, DATE, GPM, HEAD, LENGTH, NAME, READINGS, letters, paper, script_of
from windows_installer import check_installer
from wine_desk import (OWN_FILES, PATIENCE, PLANNED, PROJECT, SAMPLE, WINE, WineDesk, end_wine, files_of_user, here,
                       registered, user_folder, wine)

FOREIGN_NAME = "Žitné pole, поле, 葡萄園.PFD"
OBJDUMP = "x86_64-w64-mingw32-objdump"
SUBSYSTEMS = {"torvale": "Windows GUI", "torvale_script": "Windows CUI", "torvale_batch": "Windows CUI"}
# The numbers that Windows gives to kinds of resources.
RESOURCES = {0x03: "icon", 0x0e: "group of icons", 0x10: "version", 0x18: "manifest"}
WINDOW_VALUES = ("MainLeft", "MainTop", "MainWidth", "MainHeight")
# What the manifest asks for: sharp letters on every display, long paths, UTF-8, the desktop's own controls.
MANIFEST = (b"PerMonitorV2", b">true</longPathAware>", b">UTF-8</activeCodePage>", b"Microsoft.Windows.Common-Controls")
THEME = r"HKCU\Software\Microsoft\Windows\CurrentVersion\Themes\Personalize"
DESKTOP = r"HKCU\Control Panel\Desktop"


def type_survey(desk):
    """As end_to_end.py does it, by the order of the fields alone: Name, Date, GPM, Head, Location, Rod, sheet. Texts go
    out and come back by the keys that only Windows has for it."""
    desk.keys("ctrl+n")
    time.sleep(1)
    for text in (NAME, DATE, GPM, HEAD, "", "R"):
        desk.keys("ctrl+a")
        if text:
            desk.type(text)
        if text == NAME:
            desk.keys("ctrl+a", "shift+Delete", "shift+Insert")
        if text == DATE:
            desk.keys("ctrl+a", "ctrl+Insert", "Delete", "shift+Insert")
        desk.keys("Tab")
    desk.keys("ctrl+Home", *["Return"] * len(READINGS))
    desk.type("*")
    desk.keys(*["BackSpace"] * 5)
    for reading in READINGS:
        desk.type(reading)
        desk.keys("Return")
    for column in range(COPIED_COLUMNS):
        desk.type("*" + (LENGTH if column == 0 else ""))
        desk.keys(*["Return"] * len(READINGS))
    # The first reading is copied onto itself. The second one goes below the survey, from where the cursor comes back to
    # the place that it was cut from, and is put there as well.
    below = ["Down"] * (len(READINGS) + 2)
    desk.keys("ctrl+Home", "Right", "ctrl+Insert", "Delete", "shift+Insert")
    desk.keys("Down", "shift+Delete", *below, "shift+Insert", "shift+Insert", *below, "Delete")


def by_script(script_program, name):
    """What the same work gives without a window: the design that it saves under that name, which stands in it too, and
    the letters of the Summary once it was opened again. To this system a path of Windows is a name like any other."""
    quoted = name.replace("\\", "\\\\")
    work = script_of(1) + f'''
dialog "{quoted}"
click mnuFileSaveAs
click mnuFileNew
dialog "{quoted}"
click mnuFileOpen
copies 1
click mnuPrintSummary
show printed
'''
    with tempfile.TemporaryDirectory() as folder:
        done = subprocess.run([script_program, "--data", str(PROJECT / "data")], input=work, text=True, check=True,
                              capture_output=True, cwd=folder)
        saved = (pathlib.Path(folder) / name).read_bytes()
    report = done.stdout.rpartition("\ndocument ")[2]
    return saved, letters(" ".join(re.findall(r'^(?:text|centred) .*? "(.*)"$', report, re.M)).replace("\\\\", "\\"))


def check_programs(build):
    """Each program is one file: it needs only libraries of the system, and carries icon, version and manifest. Only those
    for a command line have a console."""
    for name, subsystem in SUBSYSTEMS.items():
        program = build / f"{name}.exe"
        told = subprocess.run([OBJDUMP, "-p", str(program)], capture_output=True, text=True, check=True).stdout
        if f"({subsystem})" not in told:
            raise Trouble(f"{name} is not of the kind {subsystem}")
        tree = told[told.index("The .rsrc Resource Directory"):]
        # The first of three levels.
        kinds = {int(number, 16) for number in re.findall(r"^[0-9a-f]+ {3}Entry: ID: (0x[0-9a-f]+),", tree, re.M)}
        missing = [what for number, what in RESOURCES.items() if number not in kinds]
        if missing:
            raise Trouble(f"{name} has no {', '.join(missing)}")
        content = program.read_bytes()
        missing = [what.decode() for what in MANIFEST if what not in content]
        if missing:
            raise Trouble(f"the manifest of {name} lacks {', '.join(missing)}")
        if "ProductName\0\0TORVALE\0".encode("utf-16-le") not in content:
            raise Trouble(f"the version of {name} doesn't name the product")
        status, said = wine(program, "--version")
        if status != 0 or not re.fullmatch(name + r" \d+\.\d+\.\d+\r?\n", said):
            raise Trouble(f"{name} --version ends with {status} and says: {said}")
        system = pathlib.Path(os.environ["TORVALE_WINE"]) / "drive_c/windows/system32"
        # Names of that beginning stand for parts of the system itself; no file needs to have them.
        foreign = [library for library in re.findall(r"DLL Name: (\S+)", told)
                   if not library.startswith("api-ms-win-core-") and not (system / library.lower()).exists()]
        if foreign:
            raise Trouble(f"{name} needs {', '.join(foreign)}")


def check_line_ends(build, programs_here):
    """A script with the line ends of Windows gives the transcript that it gives here without them, byte for byte."""
    work = script_of(1).encode() + b"\n"
    there, transcript = (subprocess.run([*program, "--data", data], input=script, capture_output=True, check=True,
                                        timeout=PATIENCE).stdout
                         for program, data, script in (
                             ([WINE, build / "torvale_script.exe"], here(PROJECT / "data"), work.replace(b"\n", b"\r\n")),
                             ([programs_here / "torvale_script"], PROJECT / "data", work)))
    if len(transcript) < 1000 or there != transcript:
        raise Trouble(f"the transcript is another: {there[-400:]}")


def files_below(folder):
    """Names and contents, less the notes of what was done when."""
    return {str(p.relative_to(folder)): p.read_bytes() for p in folder.rglob("*") if p.is_file() and p.suffix != ".journal"}


def work_out_fields(build, programs_here, folder, there):
    """The guide's table of fields, put into the folder, gives there what it gives on this system. Windows names the
    folder `there`. The results go to a folder with letters of every alphabet."""
    guide = (PROJECT / "data/TORVALEHELP.hlp").read_text("utf-8")
    for name, file in (("table", "fields.csv"), ("survey", "corner.csv")):
        text = re.search(rf'<pre id="many-fields-{name}">\n(.*?)</pre>', guide, re.S)[1]
        (folder / file).write_text(html.unescape(text))
    papers = ("--write", "designs,tables,reports")
    subprocess.run([programs_here / "torvale_batch", folder / "fields.csv", "--out", folder / "here", *papers],
                   capture_output=True, check=True)
    status, said = wine(build / "torvale_batch.exe", there + r"\fields.csv", "--out", there + "\\" + FOREIGN_NAME, *papers)
    if status != 0:
        raise Trouble(f"torvale_batch ended with status {status}: {said}")
    expected = files_below(folder / "here")
    if len(expected) < 10 or files_below(folder / FOREIGN_NAME) != expected:
        raise Trouble(f"the files are not those of this system: {said}")


def check_many_fields(build, programs_here):
    with tempfile.TemporaryDirectory() as name:
        work_out_fields(build, programs_here, pathlib.Path(name), here(name))


def check_work(build, programs_here, pictures):
    """A design is typed, saved, opened again, looked at and written to PDF."""
    with WineDesk() as desk:
        step = 0

        def picture(name):
            nonlocal step
            step += 1
            desk.picture(pictures / f"{step}_{name}.png")

        try:
            desk.start_there(build / "torvale.exe")
            desk.await_main_window()
            picture("start")
            type_survey(desk)
            # The title tells nothing of a design before it is opened; the saved one below shows that it was run.
            desk.keys("F5")
            time.sleep(5)
            picture("design")
            design = desk.folder / "typed.PFD"
            saved, report = by_script(programs_here / "torvale_script", here(design))
            desk.keys("ctrl+shift+s")
            desk.await_title("^Save As$")
            picture("save_as")
            desk.answer_file_dialog("^Save As$", here(design))
            wait_for("the saved design", design.exists)
            if design.read_bytes() != saved:
                raise Trouble("the saved design is not what the same work saves on this system")
            desk.keys("ctrl+n")
            wait_for("the empty sheet", lambda: not desk.titled(PLANNED), PATIENCE)
            desk.keys("ctrl+o")
            desk.answer_file_dialog("^Open$", here(design))
            desk.await_title(PLANNED)
            picture("opened")
            desk.keys("alt+f", "v", "u")
            desk.await_title("Summary|Print Preview")
            time.sleep(3)
            picture("preview")
            desk.keys("Escape")
            desk.take_keyboard()
            pdf = desk.folder / "summary.pdf"
            desk.keys("alt+f", "e", "u")
            desk.answer_file_dialog("PDF", here(pdf))
            wait_for("the PDF", lambda: pdf.exists() and pdf.read_bytes().rstrip().endswith(b"%%EOF"), PATIENCE)
            shutil.copy(pdf, pictures / "summary.pdf")
            # Typefaces may have two letters in one.
            if letters(unicodedata.normalize("NFKC", paper(pdf))) != report:
                raise Trouble(f"the paper is not what the same work prints without a window: {paper(pdf)}")
            typefaces = subprocess.run(["pdffonts", str(pdf)], capture_output=True, text=True, check=True).stdout
            if not re.search(r"Sans|Arial|Helvetica|Tahoma|Verdana|SegoeUI", typefaces) or "Serif" in typefaces:
                raise Trouble(f"the letters of the paper have serifs: {typefaces}")
            subprocess.run(["pdftoppm", "-r", "60", "-png", "-singlefile", str(pdf), str(pictures / "summary")], check=True)
            desk.look_around(pictures, "light")
            desk.leave()
        finally:
            picture("end")
    kept = wine("reg", "query", r"HKCU\Software\TORVALE\TORVALE\Settings")[1]
    missing = [value for value in WINDOW_VALUES if not re.search(rf"\b{value}\s+REG_SZ\s+\d", kept)]
    if missing:
        raise Trouble(f"the registry lacks {', '.join(missing)}: {kept}")


def check_dark(build, pictures):
    """The desktop's dark look is taken over."""
    with registered(THEME, "AppsUseLightTheme", 0), WineDesk() as desk:
        desk.start_there(build / "torvale.exe", here(SAMPLE))
        desk.await_main_window(PLANNED)
        desk.picture(pictures / "dark.png")
        if desk.brightness(PLANNED) > 0.4:
            raise Trouble("the window is a bright one")
        desk.look_around(pictures, "dark")
        desk.leave()


def check_sharp(build, pictures):
    """A display with more dots to the inch gets a larger window, which the program draws and the system doesn't
    stretch."""
    widths = []
    for dots in (96, 120):
        with registered(DESKTOP, "LogPixels", dots), WineDesk() as desk:
            desk.start_there(build / "torvale.exe", here(SAMPLE))
            desk.await_main_window(PLANNED)
            desk.picture(pictures / f"dots_{dots}.png")
            widths.append(desk.width(PLANNED))
            desk.leave()
    if abs(widths[1] / widths[0] - 120 / 96) > 0.02:
        raise Trouble(f"the window is {widths[0]} dots wide, and {widths[1]} where there are 1.25 times as many")


def unpack(build, folder):
    """The archive, into a new folder: the path of the program in it."""
    with zipfile.ZipFile(next((build / "packages").glob("*.zip"))) as archive:
        archive.extractall(folder)
    return next(folder.glob("*/torvale.exe"))


def check_archive(build, pictures):
    """The archive starts from any folder and writes beside itself. What is dropped on it is opened, and saved in its
    place, at a path longer than most programs of that system can read."""
    with WineDesk() as desk:
        program = unpack(build, desk.folder / "my programs, žluté")
        design = desk.folder / "deep, žluté" / ("d" * 150) / ("e" * 150) / FOREIGN_NAME
        design.parent.mkdir(parents=True)
        shutil.copy(SAMPLE, design)
        was = design.stat()
        before = files_of_user()
        desk.start_there(here(program), here(design))
        try:
            desk.await_main_window(PLANNED)
            desk.keys("ctrl+s")
            wait_for("the saved design", lambda: design.stat().st_mtime_ns != was.st_mtime_ns, PATIENCE)
            if [p.name for p in design.parent.iterdir()] != [FOREIGN_NAME]:
                raise Trouble(f"beside the design lies {list(design.parent.iterdir())}")
        finally:
            desk.picture(pictures / "archive.png")
        desk.leave()
        missing = [name for name in OWN_FILES if not (program.parent / name).exists()]
        if missing:
            raise Trouble(f"beside the program lies no {', '.join(missing)}")
        elsewhere = {p for p in files_of_user() - before if p.name in OWN_FILES}
        if elsewhere:
            raise Trouble(f"a copy that writes beside itself wrote {elsewhere}")


def closed(folder):
    """A command behind which nothing in the folder can be written: to root, the rights of a file forbid nothing."""
    if os.geteuid() != 0:
        for path in (folder, *folder.rglob("*")):
            path.chmod(path.stat().st_mode & ~0o222)
        return ()
    mount = 'mount --bind "$0" "$0" && mount -o remount,bind,ro "$0" && exec "$@"'
    return ("unshare", "--mount", "sh", "-c", mount, str(folder))


def check_closed_folder(build, pictures):
    """A copy that can't write beside itself keeps its files in the user's folder. A design there is opened, and told to
    be not saved."""
    with WineDesk() as desk:
        program = unpack(build, desk.folder / "closed")
        design = program.parent / "design.PFD"
        shutil.copy(SAMPLE, design)
        before = files_below(program.parent)
        # Wine's server opens the files; it must be one that starts behind the same command.
        end_wine()
        desk.start_there(here(program), here(design), within=closed(program.parent))
        try:
            desk.await_main_window(PLANNED)
            desk.keys("ctrl+s")
            desk.await_title("^TORVALE$")
            time.sleep(2)
        finally:
            desk.picture(pictures / "closed_folder.png")
        desk.keys("Return")
        desk.take_keyboard()
        desk.leave()
        if files_below(program.parent) != before:
            raise Trouble("something was written where nothing can be")
        own = user_folder() / "AppData/Roaming/TORVALE/TORVALE"
        missing = [name for name in OWN_FILES if not (own / name).exists()]
        shutil.rmtree(own.parent)
        if missing:
            raise Trouble(f"the user's folder has no {', '.join(missing)}")


def check_network(build, programs_here, pictures):
    """A design in a folder of another machine is opened, changed and saved, what it was before is kept, and fields there
    are worked out. Wine lets a folder of its own stand for that; its dialogs know none."""
    far = r"\\torvale\share\žluté"
    share = pathlib.Path(os.environ["TORVALE_WINE"]) / "share/žluté"
    share.mkdir()
    design = share / "far.PFD"
    shutil.copy(SAMPLE, design)
    was = design.read_bytes()
    with WineDesk() as desk:
        desk.start_there(build / "torvale.exe", far + r"\far.PFD")
        try:
            desk.await_main_window(PLANNED)
            desk.keys("End")
            desk.type(" in the network")
            desk.keys("ctrl+s")
            wait_for("the saved design", lambda: b"in the network" in design.read_bytes(), PATIENCE)
            time.sleep(2)
        finally:
            desk.picture(pictures / "network.png")
        desk.leave()
    if {p.name for p in share.iterdir()} != {"far.PFD"}:
        raise Trouble(f"beside the design lies {list(share.iterdir())}")
    if not any(p.read_bytes() == was for p in (user_folder() / "AppData/Local/TORVALE").rglob("*.PFD")):
        raise Trouble("what the design was before is not among the earlier versions")
    work_out_fields(build, programs_here, share, far)


def main():
    build, programs_here, pictures = (pathlib.Path(path).resolve() for path in sys.argv[1:4])
    if not sys.argv[4:]:
        shutil.rmtree(pictures, ignore_errors=True)
    pictures.mkdir(parents=True, exist_ok=True)
    checks = (("the programs", lambda: check_programs(build)),
              ("the ends of lines", lambda: check_line_ends(build, programs_here)),
              ("many fields in one go", lambda: check_many_fields(build, programs_here)),
              ("a design from keys to paper", lambda: check_work(build, programs_here, pictures)),
              ("the dark look", lambda: check_dark(build, pictures)),
              ("a sharper display", lambda: check_sharp(build, pictures)),
              ("the archive", lambda: check_archive(build, pictures)),
              ("a folder that can't be written", lambda: check_closed_folder(build, pictures)),
              ("a folder in the network", lambda: check_network(build, programs_here, pictures)),
              ("the installer", lambda: check_installer(build, pictures)))
    wanted = sys.argv[4:]  # some of their titles
    unknown = set(wanted) - {title for title, _ in checks}
    if unknown:
        sys.exit(f"no such check: {', '.join(unknown)}")
    failed = 0
    with tempfile.TemporaryDirectory() as prefix:
        os.environ["TORVALE_WINE"] = prefix
        # Wine lets the user's folders lead to those of this system.
        home = pathlib.Path(prefix) / "home"
        home.mkdir()
        os.environ["HOME"] = str(home)
        # Its folders are made at the first start, however long that takes.
        subprocess.run([WINE, "wineboot"], check=True)
        for title, check in checks:
            if wanted and title not in wanted:
                continue
            try:
                check()
                print(f"ok      {title}", flush=True)
            except (Trouble, subprocess.SubprocessError) as trouble:
                print(f"FAILED  {title}: {trouble}", flush=True)
                failed += 1
            finally:
                end_wine()
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
