#!/usr/bin/python3
"""Kills the real program on a virtual display while somebody types, and looks at what can be brought back.

  dbus-run-session -- /usr/bin/python3 tests/desktop/kills.py PROGRAM [ROUNDS [SEED]]

Each round types into a field and down a column of the sheet, ends the program by SIGKILL at a moment of chance and starts
it anew: Bring Back Last Work gives every character but those of the last second. At the end two programs run at once and
die: each work comes back, unmixed.
"""

import os
import random
import signal
import subprocess
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

from desk import PATIENCE, Desk, Trouble, cell, look_through, wait_for  # noqa: E402

JOURNAL_PAUSE = 1.0  # seconds
DISK_TIME = 0.5  # that a busy disk and a busy machine may take on top
LETTERS = "abcdefghijklmnopqrstuvwxyz"


class Program:
    """One running program, told from others by the number of its process."""

    def __init__(self, desk, path):
        self.desk = desk
        self.process = subprocess.Popen([path], cwd=desk.folder, stderr=subprocess.DEVNULL)
        self.find("text", "GPM")

    def kill(self):
        self.process.send_signal(signal.SIGKILL)
        self.process.wait()
        wait_for("the end of the program", lambda: self.frame() is None)

    def frame(self):
        desktop = Atspi.get_desktop(0)
        for i in range(desktop.get_child_count()):
            application = desktop.get_child_at_index(i)
            if application is not None and application.get_process_id() == self.process.pid:
                return application
        return None

    def look(self, fits):
        application = self.frame()
        for i in range(application.get_child_count() if application is not None else 0):
            window = application.get_child_at_index(i)
            found = look_through(window, fits) if window is not None else None
            if found is not None:
                return found
        return None

    def find(self, role, name):
        return wait_for(f'a {role} named "{name}"', lambda: self.look(
            lambda node: node.get_role_name() == role and node.get_name().startswith(name)))

    def text(self, name):
        field = self.find("text", name)
        return Atspi.Text.get_text(field, 0, -1)

    def column(self):
        """The stations typed down the sheet, below that of the start, up to the first empty cell."""
        sheet = self.find("table", "Survey sheet")
        texts = []
        while True:
            text = cell(sheet, len(texts) + 1, 0)
            if not text:
                return texts
            texts.append(text)

    def bring_back(self):
        self.desk.click(self.find("push button", "Bring Back Last Work"))
        time.sleep(0.5)


class Typist:
    """Types key by key and remembers when each character stood on the screen."""

    def __init__(self, program):
        self.program = program
        self.seen = []  # (moment, text of the name, stations)

    def press(self, key, look, name, stations):
        self.program.desk.keys(key)
        wait_for(f"{(name, stations[-1:])} on the screen", look)
        self.seen.append((time.monotonic(), name, stations))

    def type(self, name, stations, until):
        """Stops once the moment `until` has passed."""
        field = self.program.find("text", "Name")
        self.program.desk.click(field)
        sheet = self.program.find("table", "Survey sheet")
        for i in range(len(name)):
            self.press(name[i], lambda: Atspi.Text.get_text(field, 0, -1) == name[:i + 1], name[:i + 1], [])
            if time.monotonic() > until:
                return
        self.program.desk.click(sheet.get_accessible_at(1, 0))
        for row, station in enumerate(stations):
            for i in range(len(station)):
                typed = stations[:row] + [station[:i + 1]]
                self.press(station[i], lambda: cell(sheet, row + 1, 0) == typed[-1], name, typed)
                if time.monotonic() > until:
                    return
            self.program.desk.keys("Return")

    def sure(self, moment):
        """What stood on the screen more than the journal's pause ahead of `moment`."""
        last = ("", [])
        for seen, name, stations in self.seen:
            if seen < moment - JOURNAL_PAUSE - DISK_TIME:
                last = (name, stations)
        return last

    def most(self):
        return self.seen[-1][1:]


def is_between(least, found, most):
    """Of two texts or lists of texts that grow at their end."""
    joined = ["\n".join(x) if isinstance(x, list) else x for x in (least, found, most)]
    return joined[1].startswith(joined[0]) and joined[2].startswith(joined[1])


def one_kill(desk, path, chance):
    program = Program(desk, path)
    typist = Typist(program)
    name = "".join(chance.choice(LETTERS) for _ in range(12))
    stations = [str(100 + 7 * i) for i in range(30)]
    typist.type(name, stations, time.monotonic() + chance.uniform(2.0, 9.0))
    time.sleep(chance.uniform(0.0, 1.5))
    moment = time.monotonic()
    program.kill()

    program = Program(desk, path)
    program.bring_back()
    back = (program.text("Name"), program.column())
    least, most = typist.sure(moment), typist.most()
    for kind, a, b, c in zip(("name", "stations"), least, back, most):
        if not is_between(a, b, c):
            raise Trouble(f"{kind}: {b!r} came back; {a!r} was on the disk for sure, {c!r} was typed in all")
    print(f"ok      killed after {len(most[0])} letters and {len(most[1])} stations: {len(back[0])} and {len(back[1])} "
          f"came back ({'all' if back == most else 'but for the last second'})", flush=True)
    program.kill()
    forget(desk)


def forget(desk):
    """Each round begins with nothing to bring back."""
    for journal in (desk.folder / "home").rglob("journal/*"):
        journal.unlink()


def two_programs(desk, path):
    names = ("east", "west")
    programs = []
    for name in names:
        program = Program(desk, path)
        field = program.find("text", "Name")
        # The newer window may lie over the older one: it is the one that is typed into.
        desk.click(field)
        desk.type(name)
        wait_for(f"{name} in its field", lambda: program.text("Name") == name)
        programs.append(program)
    time.sleep(JOURNAL_PAUSE + 1.0)
    for program in programs:
        program.kill()
    program = Program(desk, path)
    found = []
    for _ in names:
        program.bring_back() if not found else desk.keys("alt+f", "b")
        wait_for("the work", lambda: program.text("Name") in names and program.text("Name") not in found)
        found.append(program.text("Name"))
    if sorted(found) != sorted(names):
        raise Trouble(f"of {names} came back {found}")
    print(f"ok      two programs at once: {found[0]} and {found[1]} came back, each for itself")
    program.kill()


def main():
    path = os.path.abspath(sys.argv[1])
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else 3
    chance = random.Random(int(sys.argv[3]) if len(sys.argv) > 3 else 1)
    try:
        with Desk() as desk:
            for _ in range(rounds):
                one_kill(desk, path, chance)
            two_programs(desk, path)
    except Trouble as trouble:
        print(f"FAILED  {trouble}")
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
