"""Closes the main window of the real program while its icon is in a real tray: the program goes on and says so, once.

Usage: tray.py PROGRAM
"""

import atexit
import ctypes
import os
import pathlib
import shutil
import subprocess
import sys
import time

from hands import is_shown, shown, words_of
from screen_reader import application, eventually, open_by_menu, press, report, window_titled

SKIPPED = 77
BUTTONS = {"push button", "button"}
SETTINGS = pathlib.Path(os.environ["XDG_CONFIG_HOME"]) / "Tickervantage/Tickervantage.ini"
PANEL = "panel_items = S\npanel_size = 100% 40\nsystray_icon_size = 24\n"


def play_window_manager():
    """The panel waits for one; all it wants to know is how many desktops there are."""
    x = ctypes.CDLL("libX11.so.6")
    x.XOpenDisplay.restype = ctypes.c_void_p
    x.XDefaultRootWindow.restype = x.XInternAtom.restype = ctypes.c_ulong
    display = ctypes.c_void_p(x.XOpenDisplay(None))
    root = ctypes.c_ulong(x.XDefaultRootWindow(display))
    cardinal, bits, replace = 6, 32, 0
    for name, value in ((b"_NET_NUMBER_OF_DESKTOPS", 1), (b"_NET_CURRENT_DESKTOP", 0)):
        atom = ctypes.c_ulong(x.XInternAtom(display, name, 0))
        number = ctypes.c_ulong(value)
        x.XChangeProperty(display, root, atom, ctypes.c_ulong(cardinal), bits, replace, ctypes.byref(number), 1)
    x.XSync(display, 0)
    return display  # what it said goes with it


def start_tray():
    play_window_manager()
    configuration = pathlib.Path(os.environ["HOME"]) / "tint2rc"
    configuration.write_text(PANEL, encoding="ascii")
    panel = subprocess.Popen(["tint2", "-c", str(configuration)], stderr=subprocess.DEVNULL)
    atexit.register(panel.kill)
    time.sleep(2)  # it says to nobody when it is there


def is_told(app):
    return any("still being watched" in words for words in words_of(app))


def is_open(app):
    return window_titled(app, "Tickervantage") is not None


def close_window(app, process):
    open_by_menu(app, "Close Window")
    eventually(lambda: not is_open(app), "the closed window")
    time.sleep(2)  # what is said comes a moment later
    return [] if process.poll() is None else ["the program ended with its window"]


def check(program):
    start_tray()
    SETTINGS.parent.mkdir(parents=True, exist_ok=True)
    SETTINGS.write_text("[General]\nwatch_tray=true\n", encoding="utf-8")
    process = subprocess.Popen([program])
    atexit.register(process.kill)  # whatever becomes of this script
    app = eventually(application, "the program on the accessibility bus")
    eventually(lambda: window_titled(app, "Tickervantage"), "its main window")
    said = eventually(lambda: shown(app, BUTTONS, "Cancel") or shown(app, BUTTONS, "Dismiss"), "what is said at first")
    press(said)
    eventually(lambda: not is_shown(said, BUTTONS, said.name), "its end")
    faults = close_window(app, process)
    eventually(lambda: is_told(app), "the message that the clock is still being watched")
    eventually(lambda: not is_told(app), "the end of the message")
    subprocess.run([program], check=True)  # which brings the window back
    eventually(lambda: is_open(app), "the window once more")
    faults += close_window(app, process)
    return faults + (["it is said a second time"] if is_told(app) else [])


def main():
    if shutil.which("tint2") is None:
        print("Skipped: a tray needs tint2, which this machine lacks.")
        return SKIPPED
    return report(check)


if __name__ == "__main__":
    sys.exit(main())
