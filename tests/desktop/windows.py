#!/usr/bin/python3
"""windows.py BUILD HERE PICTURES: drives the programs for Windows under Wine, on a virtual display, in a Wine of its own:
BUILD is the folder that scripts/make_windows.sh filled, HERE one with the programs of this system. What the keys give
must be what the same work gives without a window, replayed on this system. The folder PICTURES gets a picture of each
step.

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

from desk import Desk, Trouble, wait_for
from end_to_end import COPIED_COLUMNS, DATE, GPM, HEAD, LENGTH, NAME, READINGS, letters, paper, script_of

PROJECT = pathlib.Path(__file__).resolve().parents[2]
WINE = str(PROJECT / "scripts/wine.sh")
SAMPLE = PROJECT / "data/samples/ditch_corner.PFD"
FOREIGN_NAME = "Žitné pole, поле, 葡萄園.PFD"
PLANNED = "TORVALE +Planned Field Design"
PATIENCE = 90  # seconds; a start under Wine on a busy machine takes some
OBJDUMP = "x86_64-w64-mingw32-objdump"
SUBSYSTEMS = {"torvale": "Windows GUI", "torvale_script": "Windows CUI", "torvale_batch": "Windows CUI"}
# The numbers that Windows gives to kinds of resources.
RESOURCES = {0x03: "icon", 0x0e: "group of icons", 0x10: "version", 0x18: "manifest"}
OWN_FILES = ("Default50.TVL", "SoilsName.txt", "SafeHeads.txt", "RecentTORVALEFileName.Dat")
WINDOW_VALUES = ("MainLeft", "MainTop", "MainWidth", "MainHeight")
CLASSES = r"HKCU\Software\Classes"
KINDS = (".pfd", ".csd", ".dsd", ".csh", ".xfd", ".lhd", ".dat")


def here(path):
    """A path of this system as Windows has it under Wine."""
    return "Z:" + str(path).replace("/", "\\")


def wine(*arguments):
    done = subprocess.run([WINE, *map(str, arguments)], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=300)
    return done.returncode, done.stdout.decode("utf-8", "replace")


class WineDesk(Desk):
    """A display on which programs for Windows are seen by the titles of their windows."""

    def __enter__(self):
        super().__enter__()
        # What the toolkit of this system is told would be taken as said to the one of Windows.
        os.environ.pop("QT_QPA_PLATFORM")
        return self

    def start_there(self, *command):
        self.program = subprocess.Popen([WINE, *map(str, command)], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                        cwd=self.folder)

    def titled(self, title):
        return subprocess.run(["xdotool", "search", "--onlyvisible", "--name", title], capture_output=True,
                              text=True).stdout.split()

    def await_title(self, title):
        window = wait_for(f"a window with the title {title}", lambda: self.titled(title), PATIENCE)[-1]
        time.sleep(1)
        return window

    def await_main_window(self, title="^TORVALE"):
        self.await_title(title)
        # The splash screen stands over it for two seconds.
        time.sleep(3)
        wait_for("the main window", lambda: self.titled(title), PATIENCE)

    def answer_file_dialog(self, title, path):
        self.await_title(title)
        self.keys("ctrl+a")
        self.type(here(path))
        self.keys("Return")
        wait_for(f"the end of the dialog {title}", lambda: not self.titled(title), PATIENCE)
        self.take_keyboard()

    def take_keyboard(self):
        """Under Wine the keyboard is nobody's when a dialog of the system goes."""
        time.sleep(1)
        subprocess.run(["xdotool", "windowactivate", self.await_title("^TORVALE")], check=True)
        time.sleep(1)

    def leave(self):
        self.keys("alt+f", "x")
        try:
            status = self.program.wait(timeout=PATIENCE)
        except subprocess.TimeoutExpired as late:
            raise Trouble("the program runs on after its end was asked for") from late
        if status != 0:
            raise Trouble(f"the program ended with status {status}")


def type_survey(desk):
    """As end_to_end.py does it, by the order of the fields alone: Name, Date, GPM, Head, Location, Rod, sheet."""
    desk.keys("ctrl+n")
    time.sleep(1)
    for text in (NAME, DATE, GPM, HEAD, "", "R"):
        desk.keys("ctrl+a")
        if text:
            desk.type(text)
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
        told = subprocess.run([OBJDUMP, "-p", str(build / f"{name}.exe")], capture_output=True, text=True, check=True).stdout
        if f"({subsystem})" not in told:
            raise Trouble(f"{name} is not of the kind {subsystem}")
        tree = told[told.index("The .rsrc Resource Directory"):]
        # The first of three levels.
        kinds = {int(number, 16) for number in re.findall(r"^[0-9a-f]+ {3}Entry: ID: (0x[0-9a-f]+),", tree, re.M)}
        missing = [what for number, what in RESOURCES.items() if number not in kinds]
        if missing:
            raise Trouble(f"{name} has no {', '.join(missing)}")
        status, said = wine(build / f"{name}.exe", "--version")
        if status != 0 or not re.fullmatch(name + r" \d+\.\d+\.\d+\r?\n", said):
            raise Trouble(f"{name} --version ends with {status} and says: {said}")
        system = pathlib.Path(os.environ["TORVALE_WINE"]) / "drive_c/windows/system32"
        # Names of that beginning stand for parts of the system itself; no file needs to have them.
        foreign = [library for library in re.findall(r"DLL Name: (\S+)", told)
                   if not library.startswith("api-ms-win-core-") and not (system / library.lower()).exists()]
        if foreign:
            raise Trouble(f"{name} needs {', '.join(foreign)}")


def files_below(folder):
    """Names and contents, less the notes of what was done when."""
    return {str(p.relative_to(folder)): p.read_bytes() for p in folder.rglob("*") if p.is_file() and p.suffix != ".journal"}


def check_many_fields(build, programs_here):
    """A table of fields gives the same files as on this system, under a name with letters of every alphabet."""
    guide = (PROJECT / "data/TORVALEHELP.hlp").read_text("utf-8")
    table, survey = (html.unescape(re.search(rf'<pre id="many-fields-{name}">\n(.*?)</pre>', guide, re.S)[1])
                     for name in ("table", "survey"))
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        (folder / "fields.csv").write_text(table)
        (folder / "corner.csv").write_text(survey)
        papers = ("--write", "designs,tables,reports")
        subprocess.run([programs_here / "torvale_batch", folder / "fields.csv", "--out", folder / "here", *papers],
                       capture_output=True, check=True)
        there = folder / FOREIGN_NAME
        status, said = wine(build / "torvale_batch.exe", here(folder / "fields.csv"), "--out", here(there), *papers)
        if status != 0:
            raise Trouble(f"torvale_batch ended with status {status}: {said}")
        expected = files_below(folder / "here")
        if len(expected) < 10 or files_below(there) != expected:
            raise Trouble(f"the files are not those of this system: {said}")


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
            desk.answer_file_dialog("^Save As$", design)
            wait_for("the saved design", design.exists)
            if design.read_bytes() != saved:
                raise Trouble("the saved design is not what the same work saves on this system")
            desk.keys("ctrl+n")
            wait_for("the empty sheet", lambda: not desk.titled(PLANNED), PATIENCE)
            desk.keys("ctrl+o")
            desk.answer_file_dialog("^Open$", design)
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
            desk.answer_file_dialog("PDF", pdf)
            wait_for("the PDF", lambda: pdf.exists() and pdf.read_bytes().rstrip().endswith(b"%%EOF"), PATIENCE)
            shutil.copy(pdf, pictures / "summary.pdf")
            # Typefaces may have two letters in one.
            if letters(unicodedata.normalize("NFKC", paper(pdf))) != report:
                raise Trouble(f"the paper is not what the same work prints without a window: {paper(pdf)}")
            subprocess.run(["pdftoppm", "-r", "60", "-png", "-singlefile", str(pdf), str(pictures / "summary")], check=True)
            desk.leave()
        finally:
            picture("end")
    kept = wine("reg", "query", r"HKCU\Software\TORVALE\TORVALE\Settings")[1]
    missing = [value for value in WINDOW_VALUES if not re.search(rf"\b{value}\s+REG_SZ\s+\d", kept)]
    if missing:
        raise Trouble(f"the registry lacks {', '.join(missing)}: {kept}")


def check_dark(build, pictures):
    """The desktop's dark look is taken over."""
    key = r"HKCU\Software\Microsoft\Windows\CurrentVersion\Themes\Personalize"
    wine("reg", "add", key, "/v", "AppsUseLightTheme", "/t", "REG_DWORD", "/d", "0", "/f")
    try:
        with WineDesk() as desk:
            desk.start_there(build / "torvale.exe", here(SAMPLE))
            desk.await_main_window(PLANNED)
            desk.picture(pictures / "dark.png")
            desk.keys("F1")
            time.sleep(5)
            desk.picture(pictures / "dark_guide.png")
            desk.keys("Escape")
            desk.take_keyboard()
            desk.leave()
    finally:
        wine("reg", "delete", key, "/v", "AppsUseLightTheme", "/f")


def check_archive(build, pictures):
    """The archive starts from any folder and writes beside itself. What is dropped on it is opened, and saved in its
    place, at a path longer than most programs of that system can read."""
    with WineDesk() as desk:
        folder = desk.folder / "my programs, žluté"
        with zipfile.ZipFile(next((build / "packages").glob("*.zip"))) as archive:
            archive.extractall(folder)
        program = next(folder.glob("*/torvale.exe"))
        design = desk.folder / "deep, žluté" / ("d" * 150) / ("e" * 150) / FOREIGN_NAME
        design.parent.mkdir(parents=True)
        shutil.copy(SAMPLE, design)
        was = design.stat()
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
        if not (program.parent / "RecentTORVALEFileName.Dat").exists():
            raise Trouble("the list of recent files doesn't lie beside the program")


def user_folder():
    return next(p for p in (pathlib.Path(os.environ["TORVALE_WINE"]) / "drive_c/users").iterdir() if p.name != "Public")


def files_of_user():
    temporary = user_folder() / "Temp"
    return {p for p in user_folder().rglob("*") if temporary not in p.parents and not p.is_symlink()}


def registered():
    """Keys and values of the user's registry that tell of the program."""
    found = set()
    for root in (CLASSES, r"HKCU\Software\Microsoft\Windows\CurrentVersion", r"HKCU\Software\TORVALE"):
        key = ""
        for line in wine("reg", "query", root, "/s")[1].splitlines():
            if line.startswith("HKEY"):
                key = line.strip()
            if "torvale" in line.lower():
                found.add((key, line.strip()))
    return found


def check_installer(build, pictures):
    """It installs without a question, a double click opens a design, and removing leaves the user's data alone."""
    setup = next((build / "packages").glob("*-setup.exe"))
    before = files_of_user()
    status, said = wine(setup, "/S")
    if status != 0:
        raise Trouble(f"the installer ended with status {status}: {said}")
    installed = user_folder() / "AppData/Local/Programs/TORVALE"
    for name in ("bin/torvale.exe", "bin/torvale_script.exe", "share/torvale/TORVALEHELP.hlp", "uninstall.exe"):
        if not (installed / name).exists():
            raise Trouble(f"{name} is not installed")
    if not list(user_folder().rglob("Start Menu/**/TORVALE.lnk")):
        raise Trouble("the start menu has no entry")
    for kind in KINDS:
        offered = re.search(r"TORVALE\.\w+", wine("reg", "query", rf"{CLASSES}\{kind}\OpenWithProgids")[1])
        if not offered:
            raise Trouble(f"{kind} is not registered")
        for key in ("DefaultIcon", r"shell\open\command"):
            if r"\Programs\TORVALE\bin\torvale.exe" not in wine("reg", "query", rf"{CLASSES}\{offered[0]}\{key}")[1]:
                raise Trouble(f"{kind} has no {key}")
    # Windows sees what a user has registered as if it were registered for the machine. Wine 8 doesn't.
    wine("reg", "copy", CLASSES, r"HKLM\Software\Classes", "/s", "/f")
    program_files = {p: p.stat().st_mtime for p in installed.rglob("*") if p.is_file()}
    with WineDesk() as desk:
        design = desk.folder / "double click.PFD"
        shutil.copy(SAMPLE, design)
        desk.start_there("start", "/wait", here(design))
        try:
            desk.await_main_window(PLANNED)
            desk.keys("F1")
            time.sleep(5)
        finally:
            desk.picture(pictures / "installed.png")
        desk.keys("Escape")
        desk.take_keyboard()
        desk.leave()
    if program_files != {p: p.stat().st_mtime for p in installed.rglob("*") if p.is_file()}:
        raise Trouble("the program wrote into its folder")
    own = user_folder() / "AppData/Roaming/TORVALE/TORVALE"
    for name in (*OWN_FILES, "TORVALEHELP.hlp"):
        if not (own / name).exists():
            raise Trouble(f"{name} is not in the user's folder")
    wine(installed / "uninstall.exe", "/S")
    # It goes on in a copy of itself, so that it can remove itself.
    wait_for("the end of the removal", lambda: not installed.exists(), PATIENCE)
    time.sleep(2)
    wine("wineboot", "--end-session")
    left = {str(p.relative_to(user_folder())) for p in files_of_user() - before}
    users = {"AppData/Roaming/TORVALE", "AppData/Roaming/TORVALE/TORVALE", "AppData/Local/TORVALE"}
    users |= {f"AppData/Roaming/TORVALE/TORVALE/{name}" for name in OWN_FILES}
    foreign = {name for name in left if name not in users and not name.startswith("AppData/Local/TORVALE/")
               and "Microsoft/Windows/Recent" not in name}
    if foreign:
        raise Trouble(f"left behind: {sorted(foreign)}")
    keys = {entry for entry in registered() if not re.match(r"HKEY_CURRENT_USER\\Software\\TORVALE", entry[0])}
    if keys:
        raise Trouble(f"left in the registry: {sorted(keys)}")


def main():
    build, programs_here, pictures = (pathlib.Path(path).resolve() for path in sys.argv[1:4])
    shutil.rmtree(pictures, ignore_errors=True)
    pictures.mkdir(parents=True)
    checks = (("the programs", lambda: check_programs(build)),
              ("many fields in one go", lambda: check_many_fields(build, programs_here)),
              ("a design from keys to paper", lambda: check_work(build, programs_here, pictures)),
              ("the dark look", lambda: check_dark(build, pictures)),
              ("the archive", lambda: check_archive(build, pictures)),
              ("the installer", lambda: check_installer(build, pictures)))
    failed = 0
    with tempfile.TemporaryDirectory() as prefix:
        os.environ["TORVALE_WINE"] = prefix
        # Wine lets the user's folders lead to those of this system.
        home = pathlib.Path(prefix) / "home"
        home.mkdir()
        os.environ["HOME"] = str(home)
        for title, check in checks:
            try:
                check()
                print(f"ok      {title}", flush=True)
            except Trouble as trouble:
                print(f"FAILED  {title}: {trouble}", flush=True)
                failed += 1
            finally:
                subprocess.run([WINE, "--end"], check=False)
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
