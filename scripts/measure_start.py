#!/usr/bin/env python3
"""measure_start.py RUNS NAME TITLE COMMAND... [-- NAME TITLE COMMAND...]: starts the commands in turn, RUNS times, on the
X display, and prints for each the medians of the time until the window whose title matches TITLE is drawn, of the
processor time spent by then, and of its memory once it has come to rest. A splash screen is clicked away as soon as it
is drawn. The first command is what the others are compared with. A window counts as drawn when a corner of it shows
more colours than a blank one."""

import ctypes
import pathlib
import re
import statistics
import subprocess
import sys
import time

Z_PIXMAP = 2
PATIENCE = 30
SPLASH = "TORVALE"
CORNER = (400, 320)  # pixels
BLANK_COLOURS = 2


class Image(ctypes.Structure):
    """The head of an XImage."""

    _fields_ = [
        ("width", ctypes.c_int),
        ("height", ctypes.c_int),
        ("xoffset", ctypes.c_int),
        ("format", ctypes.c_int),
        ("data", ctypes.c_void_p),
        ("byte_order", ctypes.c_int),
        ("bitmap_unit", ctypes.c_int),
        ("bitmap_bit_order", ctypes.c_int),
        ("bitmap_pad", ctypes.c_int),
        ("depth", ctypes.c_int),
        ("bytes_per_line", ctypes.c_int),
    ]


class Display:
    def __init__(self):
        self.x11 = ctypes.CDLL("libX11.so.6")
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.x11.XDefaultRootWindow.restype = ctypes.c_ulong
        self.x11.XDefaultRootWindow.argtypes = [ctypes.c_void_p]
        self.x11.XFetchName.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.POINTER(ctypes.c_char_p)]
        self.x11.XGetImage.restype = ctypes.POINTER(Image)
        self.x11.XGetImage.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_int, ctypes.c_uint,
                                       ctypes.c_uint, ctypes.c_ulong, ctypes.c_int]
        self.x11.XQueryTree.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.POINTER(ctypes.c_ulong),
                                        ctypes.POINTER(ctypes.c_ulong),
                                        ctypes.POINTER(ctypes.POINTER(ctypes.c_ulong)),
                                        ctypes.POINTER(ctypes.c_uint)]
        # A window may go away while it is looked at: that is no reason to end.
        self.handler = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)(lambda display, error: 0)
        self.x11.XSetErrorHandler(self.handler)
        self.test = ctypes.CDLL("libXtst.so.6")
        self.test.XTestFakeButtonEvent.argtypes = [ctypes.c_void_p, ctypes.c_uint, ctypes.c_int, ctypes.c_ulong]
        self.test.XTestFakeMotionEvent.argtypes = [ctypes.c_void_p, ctypes.c_int, ctypes.c_int, ctypes.c_int,
                                                   ctypes.c_ulong]
        self.x11.XFlush.argtypes = [ctypes.c_void_p]
        self.display = self.x11.XOpenDisplay(None)
        if not self.display:
            sys.exit("no display")
        self.root = self.x11.XDefaultRootWindow(self.display)

    def windows(self):
        """The windows that stand on the display, as (id, title)."""
        ignored = ctypes.c_ulong()
        children = ctypes.POINTER(ctypes.c_ulong)()
        count = ctypes.c_uint()
        self.x11.XQueryTree(self.display, self.root, ctypes.byref(ignored), ctypes.byref(ignored),
                            ctypes.byref(children), ctypes.byref(count))
        found = []
        for window in (children[i] for i in range(count.value)):
            name = ctypes.c_char_p()
            if self.x11.XFetchName(self.display, window, ctypes.byref(name)) and name.value:
                found.append((window, name.value.decode(errors="replace")))
        return found

    def is_drawn(self, window):
        image = self.x11.XGetImage(self.display, window, 0, 0, *CORNER, ctypes.c_ulong(-1).value, Z_PIXMAP)
        if not image:
            return False
        row = image.contents.bytes_per_line
        pixels = ctypes.string_at(image.contents.data, row * image.contents.height)
        self.x11.XDestroyImage(image)
        return len(set(memoryview(pixels).cast("I"))) > BLANK_COLOURS


    def click_in_the_middle(self):
        width = self.x11.XDisplayWidth(ctypes.c_void_p(self.display), 0)
        height = self.x11.XDisplayHeight(ctypes.c_void_p(self.display), 0)
        self.test.XTestFakeMotionEvent(self.display, -1, width // 2, height // 2, 0)
        for pressed in (1, 0):
            self.test.XTestFakeButtonEvent(self.display, 1, pressed, 0)
        self.x11.XFlush(self.display)


def memory_of(pid):
    """Resident now and at most, in MB."""
    with open(f"/proc/{pid}/status", encoding="utf-8") as status:
        lines = dict(line.split(":", 1) for line in status)
    return [int(lines[key].split()[0]) / 1024 for key in ("VmRSS", "VmHWM")]


def processor_time_of(pid):
    """Milliseconds that its threads have run."""
    spent = 0
    for task in pathlib.Path(f"/proc/{pid}/task").iterdir():
        spent += int((task / "schedstat").read_text().split()[0])
    return spent / 1e6


def wait_until_drawn(display, title, program):
    """Clicks a splash screen away; returns when the window of that title is drawn."""
    deadline = time.monotonic() + PATIENCE
    clicked = False
    while time.monotonic() < deadline and program.poll() is None:
        for window, name in display.windows():
            if name == SPLASH and not clicked and display.is_drawn(window):
                display.click_in_the_middle()
                clicked = True
            elif re.search(title, name) and display.is_drawn(window):
                return
        time.sleep(0.001)
    sys.exit(f"{program.args[0]}: no window with the title {title}")


def start_once(display, title, command):
    """(milliseconds until drawn, of processor time, MB resident, MB at most)"""
    begin = time.monotonic()
    with subprocess.Popen(command) as program:
        try:
            wait_until_drawn(display, title, program)
            drawn = (time.monotonic() - begin) * 1000
            spent = processor_time_of(program.pid)
            time.sleep(1)
            return [drawn, spent, *memory_of(program.pid)]
        finally:
            program.terminate()


def commands_of(arguments):
    while arguments:
        end = arguments.index("--") if "--" in arguments else len(arguments)
        yield arguments[0], arguments[1], arguments[2:end]
        arguments = arguments[end + 1:]


def main():
    runs = int(sys.argv[1])
    commands = list(commands_of(sys.argv[2:]))
    display = Display()
    figures = {name: [] for name, _, _ in commands}
    for _ in range(runs):
        for name, title, command in commands:
            figures[name].append(start_once(display, title, command))
    print(f"{'':30}{'drawn, ms':>12}{'ratio':>7}{'processor, ms':>15}{'ratio':>7}{'RSS, MB':>9}{'at most':>9}")
    first = None
    for name, rows in figures.items():
        drawn, spent, resident, most = (statistics.median(column) for column in zip(*rows))
        first = first or (drawn, spent)
        print(f"{name:30}{drawn:12.0f}{drawn / first[0]:7.2f}{spent:15.0f}{spent / first[1]:7.2f}"
              f"{resident:9.1f}{most:9.1f}")


if __name__ == "__main__":
    main()
