"""A virtual desktop with the real program on it, driven by keys and the mouse and read as a screen reader reads it."""

import os
import pathlib
import shutil
import subprocess
import tempfile
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

SCREEN = (1600, 1200)
PATIENCE = 30  # seconds that anything may take

# The program and the display must not see the desktop of whoever runs the test.
FOREIGN = ("WAYLAND_DISPLAY", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME")


class Trouble(Exception):
    """What was awaited did not come."""


def wait_for(what, look, seconds=PATIENCE):
    """The first true answer of `look`, asked again and again; Trouble when none comes in time."""
    deadline = time.monotonic() + seconds
    while True:
        try:
            found = look()
        except GLib.Error:  # the window that was asked has just gone
            found = None
        if found:
            return found
        if time.monotonic() > deadline:
            raise Trouble(f"{what}: nothing after {seconds} seconds")
        time.sleep(0.05)


class Desk:
    """An X display with a window manager and an empty home, for the time of a `with` block. It needs a message bus of
    its own: run the whole test under dbus-run-session."""

    def __init__(self, screen=SCREEN):
        self.screen = screen

    def __enter__(self):
        self.program = None
        self.folder = pathlib.Path(tempfile.mkdtemp())
        read_end, write_end = os.pipe()
        self.log = open(self.folder / "desk.log", "wb")
        # Keys don't repeat themselves (-r): on a busy machine one that is pressed once may stay down for long.
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write_end), "-screen", "0", f"{self.screen[0]}x{self.screen[1]}x24",
             "-nolisten", "tcp", "-r"],
            pass_fds=[write_end], stdout=self.log, stderr=self.log)
        os.close(write_end)
        with os.fdopen(read_end) as number:
            display = number.readline().strip()
        for name in FOREIGN:
            os.environ.pop(name, None)
        os.environ.update(DISPLAY=f":{display}", QT_QPA_PLATFORM="xcb", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        for variable, name in (("HOME", "home"), ("XDG_RUNTIME_DIR", "runtime")):
            (self.folder / name).mkdir(mode=0o700)
            os.environ[variable] = str(self.folder / name)
        self.manager = subprocess.Popen(["openbox"], stdout=self.log, stderr=self.log)
        Atspi.init()
        return self

    def __exit__(self, *_):
        if self.program is not None and self.program.poll() is None:
            self.program.kill()
            self.program.wait()
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()
        self.log.close()
        shutil.rmtree(self.folder, ignore_errors=True)

    def start(self, program, *arguments):
        """Starts the program and waits until its main window can be used."""
        errors = open(self.folder / "stderr", "wb")
        self.program = subprocess.Popen([program, *arguments], stderr=errors, cwd=self.folder)
        self.find("text", "GPM")

    def ended(self):
        """Waits for the end of the program and gives its exit status and what it wrote to standard error."""
        status = self.program.wait(timeout=PATIENCE)
        return status, (self.folder / "stderr").read_text()

    def picture(self, path):
        subprocess.run(["import", "-window", "root", str(path)], check=True)

    # Reading

    def windows(self):
        desktop = Atspi.get_desktop(0)
        for i in range(desktop.get_child_count()):
            application = desktop.get_child_at_index(i)
            if application is None:
                continue
            for j in range(application.get_child_count()):
                window = application.get_child_at_index(j)
                if window is not None:
                    yield window

    def showing(self, role, name, within=None):
        """What is on view with that role and with a name that begins so; nothing where it is not there."""
        return self.look(lambda node: node.get_role_name() == role and node.get_name().startswith(name), within)

    def focused(self, name):
        """Whether what has the focus has a name that begins so."""
        return self.look(lambda node: node.get_state_set().contains(Atspi.StateType.FOCUSED)
                         and node.get_name().startswith(name)) is not None

    def look(self, fits, within=None):
        for window in [within] if within else self.windows():
            found = look_through(window, fits)
            if found is not None:
                return found
        return None

    def find(self, role, name, within=None, seconds=PATIENCE):
        return wait_for(f'a {role} named "{name}"', lambda: self.showing(role, name, within), seconds)

    # Acting

    def keys(self, *keys):
        """Presses keys by their names, as "alt+f" or "Return"."""
        subprocess.run(["xdotool", "key", "--delay", "15", *keys], check=True)

    def type(self, text):
        subprocess.run(["xdotool", "type", "--delay", "15", text], check=True)

    def click(self, control, dx=None, dy=None, button="1"):
        """Clicks into the middle of a control, or at that many pixels from its corner."""
        box = control.get_extents(Atspi.CoordType.SCREEN)
        x = box.x + (box.width // 2 if dx is None else dx)
        y = box.y + (box.height // 2 if dy is None else dy)
        subprocess.run(["xdotool", "mousemove", str(x), str(y), "click", button], check=True)

    def tab_to(self, name, key="Tab"):
        """Presses Tab until the control of that name has the focus; Trouble where it never comes round. Through a sheet
        Tab moves cell by cell, so what stands ahead of one is reached by "shift+Tab"."""
        for _ in range(40):
            if self.focused(name):
                return
            self.keys(key)
            time.sleep(0.1)
        raise Trouble(f'Tab never comes to "{name}"')

    def double_click(self, control):
        box = control.get_extents(Atspi.CoordType.SCREEN)
        subprocess.run(["xdotool", "mousemove", str(box.x + box.width // 2), str(box.y + box.height // 2),
                        "click", "--repeat", "2", "--delay", "60", "1"], check=True)


# Lists and tables of hundreds of cells are asked for their cells, never searched.
LEAVES = ("table", "list item", "table cell", "push button", "label")


def look_through(node, fits):
    """The first node on view, depth first, that fits."""
    if not node.get_state_set().contains(Atspi.StateType.SHOWING):
        return None
    if fits(node):
        return node
    if node.get_role_name() in LEAVES:
        return None
    for i in range(node.get_child_count()):
        child = node.get_child_at_index(i)
        found = look_through(child, fits) if child is not None else None
        if found is not None:
            return found
    return None


def cell(table, row, column):
    """The text of a table's cell, the heading row not counted."""
    return table.get_accessible_at(row, column).get_name()
