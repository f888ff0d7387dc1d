"""Programs for Windows on a virtual display, under Wine."""

import contextlib
import os
import pathlib
import re
import subprocess
import time

from desk import Desk, Trouble, wait_for

PROJECT = pathlib.Path(__file__).resolve().parents[2]
WINE = str(PROJECT / "scripts/wine.sh")
SAMPLE = PROJECT / "data/samples/ditch_corner.PFD"
PLANNED = "TORVALE +Planned Field Design"  # in the title of the main window
PATIENCE = 90  # seconds; a start under Wine on a busy machine takes some
OWN_FILES = ("Default50.TVL", "SoilsName.txt", "SafeHeads.txt", "RecentTORVALEFileName.Dat")


def here(path):
    """A path of this system as Windows has it under Wine."""
    return "Z:" + str(path).replace("/", "\\")


def wine(*arguments):
    """The status of a program at its end and what it said; Wine itself has its say only where it failed."""
    done = subprocess.run([WINE, *map(str, arguments)], capture_output=True, timeout=600)
    return done.returncode, (done.stdout + (done.stderr if done.returncode != 0 else b"")).decode("utf-8", "replace")


def end_wine():
    """Ends what runs there; the next start finds a Wine that was just switched on."""
    subprocess.run([WINE, "--end"], check=False)


@contextlib.contextmanager
def registered(key, value, number):
    """A number in the registry for a while, and programs that find it there from their start on."""
    wine("reg", "add", key, "/v", value, "/t", "REG_DWORD", "/d", number, "/f")
    end_wine()
    try:
        yield
    finally:
        wine("reg", "delete", key, "/v", value, "/f")


class WineDesk(Desk):
    """A display on which programs for Windows are seen by the titles of their windows."""

    def __enter__(self):
        super().__enter__()
        # What the toolkit of this system is told would be taken as said to the one of Windows.
        os.environ.pop("QT_QPA_PLATFORM")
        return self

    def start_there(self, *command, within=()):
        """`within`: a command of this system that runs the one behind it."""
        self.program = subprocess.Popen([*within, WINE, *map(str, command)], stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL, cwd=self.folder)

    def titled(self, title):
        return subprocess.run(["xdotool", "search", "--onlyvisible", "--name", title], capture_output=True,
                              text=True).stdout.split()

    def await_title(self, title):
        window = wait_for(f"a window with the title {title}", lambda: self.titled(title), PATIENCE)[-1]
        time.sleep(1)
        return window

    def width(self, title):
        """In dots of the display."""
        told = subprocess.run(["xdotool", "getwindowgeometry", "--shell", self.titled(title)[-1]], capture_output=True,
                              text=True, check=True).stdout
        return int(re.search(r"^WIDTH=(\d+)$", told, re.M)[1])

    def brightness(self, title):
        """The mean of a window, from 0 for black to 1 for white."""
        picture = subprocess.run(["import", "-window", self.titled(title)[-1], "png:-"], capture_output=True,
                                 check=True).stdout
        return float(subprocess.run(["convert", "png:-", "-colorspace", "gray", "-format", "%[fx:mean]", "info:"],
                                    input=picture, capture_output=True, check=True).stdout)

    def await_main_window(self, title="^TORVALE"):
        self.await_title(title)
        # The splash screen stands over it for two seconds.
        time.sleep(3)
        wait_for("the main window", lambda: self.titled(title), PATIENCE)

    def answer_file_dialog(self, title, path):
        """The path as Windows has it."""
        self.await_title(title)
        self.keys("ctrl+a")
        self.type(path)
        self.keys("Return")
        wait_for(f"the end of the dialog {title}", lambda: not self.titled(title), PATIENCE)
        self.take_keyboard()

    def take_keyboard(self):
        """Under Wine the keyboard is nobody's when a dialog of the system goes."""
        time.sleep(1)
        subprocess.run(["xdotool", "windowactivate", self.await_title("^TORVALE")], check=True)
        time.sleep(1)

    def look_around(self, folder, name):
        """Pictures of what stands beside and over a finished design, and of the panel of preferences."""
        self.keys("ctrl+1", "ctrl+3")
        time.sleep(5)
        self.picture(folder / f"{name}_desk.png")
        self.keys("ctrl+1", "ctrl+3")
        for title, keys, file in (("Profile of Crown", ["alt+c"], "profile"), ("^TORVALE Help$", ["F1"], "guide"),
                                  ("^TORVALE$", ["alt+h", "a"], "about"), ("^TORVALE$", ["alt+f", "u"], "printer")):
            self.keys(*keys)
            self.await_title(title)
            time.sleep(2)
            self.picture(folder / f"{name}_{file}.png")
            self.keys("Escape")
            wait_for(f"the end of the window {title}", lambda: not self.titled(title), PATIENCE)
            self.take_keyboard()
        self.keys("alt+r")
        time.sleep(2)
        self.picture(folder / f"{name}_preferences.png")

    def leave(self):
        self.keys("alt+f", "x")
        try:
            status = self.program.wait(timeout=PATIENCE)
        except subprocess.TimeoutExpired as late:
            raise Trouble("the program runs on after its end was asked for") from late
        if status != 0:
            raise Trouble(f"the program ended with status {status}")


def user_folder():
    return next(p for p in (pathlib.Path(os.environ["TORVALE_WINE"]) / "drive_c/users").iterdir() if p.name != "Public")


def files_of_user():
    temporary = user_folder() / "Temp"
    return {p for p in user_folder().rglob("*") if temporary not in p.parents and not p.is_symlink()}
