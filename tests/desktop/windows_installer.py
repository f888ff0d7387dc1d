"""The installer: what it puts there, and what is left when that has been removed again."""

import re
import shutil
import time

from desk import Trouble, wait_for
from wine_desk import OWN_FILES, PATIENCE, PLANNED, SAMPLE, WineDesk, end_wine, files_of_user, here, user_folder, wine

CLASSES = r"HKEY_CURRENT_USER\Software\Classes"
KINDS = (".pfd", ".csd", ".dsd", ".csh", ".xfd", ".lhd", ".dat")


def registry(root):
    """The keys below that one, each with the lines of its values."""
    found = {}
    key = ""
    for line in wine("reg", "query", root, "/s")[1].splitlines():
        if line.startswith("HKEY"):
            key = line.strip()
            found[key] = []
        elif line.strip() and key:
            found[key].append(line.strip())
    return found


def traces():
    """Keys and values of the user's registry that tell of the program."""
    return {(key, line) for root in (CLASSES, r"HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion")
            for key, lines in registry(root).items() for line in (key, *lines) if "torvale" in line.lower()}


def check_installer(build, pictures):
    """It installs without a question, a double click opens a design, and removing leaves the user's data alone."""
    setup = next((build / "packages").glob("*-setup.exe"))
    with WineDesk() as desk:
        desk.start_there(setup)
        desk.await_title("^TORVALE Setup")
        desk.picture(pictures / "installer.png")
    end_wine()
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
    classes = registry(CLASSES)
    for kind in KINDS:
        offered = re.search(r"TORVALE\.\w+", " ".join(classes.get(rf"{CLASSES}\{kind}\OpenWithProgids", [])))
        if not offered:
            raise Trouble(f"{kind} is not registered")
        for key in ("DefaultIcon", r"shell\open\command"):
            if r"\Programs\TORVALE\bin\torvale.exe" not in " ".join(classes.get(rf"{CLASSES}\{offered[0]}\{key}", [])):
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
    users = {p: p.read_bytes() for p in map(own.joinpath, OWN_FILES)}
    # An upgrade takes the former release away and leaves what is the user's.
    status, said = wine(setup, "/S")
    if status != 0 or users != {p: p.read_bytes() for p in users}:
        raise Trouble(f"installing once more ended with status {status}, or changed what is the user's: {said}")
    if program_files.keys() != {p for p in installed.rglob("*") if p.is_file()}:
        raise Trouble("installing once more left other files in the folder of the program")
    wine(installed / "uninstall.exe", "/S")
    # It goes on in a copy of itself, so that it can remove itself.
    wait_for("the end of the removal", lambda: not installed.exists(), PATIENCE)
    time.sleep(2)
    wine("wineboot", "--end-session")
    left = {str(p.relative_to(user_folder())) for p in files_of_user() - before}
    known = {"AppData/Roaming/TORVALE", "AppData/Roaming/TORVALE/TORVALE", "AppData/Local/TORVALE"}
    known |= {f"AppData/Roaming/TORVALE/TORVALE/{name}" for name in OWN_FILES}
    if users != {p: p.read_bytes() for p in users if p.exists()}:
        raise Trouble("the removal changed what is the user's")
    foreign = {name for name in left if name not in known and not name.startswith("AppData/Local/TORVALE/")
               and "Microsoft/Windows/Recent" not in name}
    if foreign:
        raise Trouble(f"left behind: {sorted(foreign)}")
    keys = traces()
    if keys:
        raise Trouble(f"left in the registry: {sorted(keys)}")
