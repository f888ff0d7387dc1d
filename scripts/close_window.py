#!/usr/bin/env python3
"""close_window.py WINDOW_ID: asks an X window to close, as the cross of a window manager does (there is none on the
virtual display of the tests)."""

import ctypes
import sys

CLIENT_MESSAGE = 33


class ClientMessage(ctypes.Structure):
    _fields_ = [
        ("type", ctypes.c_int),
        ("serial", ctypes.c_ulong),
        ("send_event", ctypes.c_int),
        ("display", ctypes.c_void_p),
        ("window", ctypes.c_ulong),
        ("message_type", ctypes.c_ulong),
        ("format", ctypes.c_int),
        ("data", ctypes.c_long * 5),
        # The library copies a whole XEvent, which is larger.
        ("room", ctypes.c_char * 192),
    ]


def main():
    window = int(sys.argv[1], 0)
    x11 = ctypes.CDLL("libX11.so.6")
    x11.XOpenDisplay.restype = ctypes.c_void_p
    x11.XInternAtom.restype = ctypes.c_ulong
    x11.XInternAtom.argtypes = [ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int]
    x11.XSendEvent.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_long, ctypes.c_void_p]
    x11.XCloseDisplay.argtypes = [ctypes.c_void_p]
    display = x11.XOpenDisplay(None)
    if not display:
        return "no display"
    protocols = x11.XInternAtom(display, b"WM_PROTOCOLS", 0)
    delete = x11.XInternAtom(display, b"WM_DELETE_WINDOW", 0)
    event = ClientMessage(CLIENT_MESSAGE, 0, 1, display, window, protocols, 32)
    event.data[0] = delete
    sent = x11.XSendEvent(display, window, 0, 0, ctypes.byref(event))
    x11.XCloseDisplay(display)
    return 0 if sent else "the event was not sent"


if __name__ == "__main__":
    sys.exit(main())
