"""Drags a row of the server list with a real mouse, and looks into the file for the new order.

Usage: drag_servers.py PROGRAM
"""

import atexit
import os
import pathlib
import subprocess
import sys

import pyatspi

from hands import mouse
from screen_reader import application, eventually, find, open_by_menu, report, window_titled

LIST = pathlib.Path(os.environ["XDG_DATA_HOME"]) / "Tickervantage/servers.txt"
ROWS = ["One:one.example:10:6:true", "Two:two.example:8:4:false", "Three:three.example:8:4:false"]


def place(window, title):
    """Left edge, top, width and height of a row on the screen."""
    item = eventually(lambda: find(window, {"list item"}, title), f"the row {title}")
    area = item.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    return area.x, area.y, area.width, area.height


def drag(window, title, below):
    left, top, _, height = place(window, title)
    x, y = left + 30, top + height // 2
    _, other, _, _ = place(window, below)
    mouse(x, y, "abs")
    mouse(x, y, "b1p")
    for step in range(1, 6):  # a hand does not jump
        mouse(x + 2 * step, y + (other + height - 2 - y) * step // 5, "abs")
    mouse(x + 10, other + height - 2, "b1r")


def check(program):
    LIST.parent.mkdir(parents=True, exist_ok=True)
    LIST.write_text("\n".join(ROWS) + "\n", encoding="utf-8")
    process = subprocess.Popen([program])
    atexit.register(process.kill)  # whatever becomes of this script
    app = eventually(application, "the program on the accessibility bus")
    eventually(lambda: window_titled(app, "Tickervantage"), "its main window")
    open_by_menu(app, "Servers")
    window = eventually(lambda: window_titled(app, "Servers"), "the window of the servers")
    drag(window, "One", "Two")
    wanted = "\n".join([ROWS[1], ROWS[0], ROWS[2]]) + "\n"
    eventually(lambda: LIST.read_text(encoding="utf-8") == wanted, "the new order in the file")
    print(LIST.read_text(encoding="utf-8"))
    return []


if __name__ == "__main__":
    sys.exit(report(check, lambda: [LIST.read_text(encoding="utf-8")]))
