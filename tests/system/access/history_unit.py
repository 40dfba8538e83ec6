"""Ticks the box that keeps a history also while the window is closed, and looks who keeps it: the window while it is
open, the user's own service afterwards; never both.

Usage: history_unit.py PROGRAM
Run by scratch/mending, with a service manager of the user's own.
"""

import atexit
import os
import pathlib
import sqlite3
import subprocess
import sys

import pyatspi

from screen_reader import application, eventually, find, open_by_menu, press, report, states, window_titled

UNIT = "tickervantage-history.service"
STORE = pathlib.Path(os.environ["XDG_DATA_HOME"]) / "Tickervantage/history.sqlite"


def systemctl(*words):
    return subprocess.run(["systemctl", "--user", *words, UNIT], check=False, capture_output=True, text=True).stdout.strip()


def keeper():
    """The name of the process that holds the lock of the store, this one apart; empty: nobody."""
    listed = subprocess.run(
        ["lslocks", "--noheadings", "--raw", "--output", "COMMAND,PATH"], check=False, capture_output=True, text=True
    )
    lines = [line.split(maxsplit=1) for line in listed.stdout.splitlines()]
    return "".join(sorted({name for name, path in lines if path == str(STORE) and not name.startswith("python")}))


def readings():
    with sqlite3.connect(f"file:{STORE}?mode=ro", uri=True) as store:
        return store.execute("SELECT COUNT(*) FROM reading").fetchone()[0]


def start(program):
    process = subprocess.Popen([program])
    atexit.register(process.kill)  # whatever becomes of this script
    app = eventually(application, "the program on the accessibility bus")
    return process, app


def stop(process):
    process.terminate()
    process.wait(20)
    eventually(lambda: application() is None, "the end of the program on the bus")


def check(program):
    print(f"at first: {systemctl('is-enabled')}, {systemctl('is-active')}", flush=True)
    process, app = start(program)
    eventually(lambda: STORE.exists() and readings() > 0, "a first reading in the store")
    faults = [] if keeper() == "tickervantage" else [f"the window is open, and {keeper()!r} keeps the history"]
    open_by_menu(app, "Preferences…")
    window = eventually(lambda: window_titled(app, "references"), "the preferences")
    box = eventually(lambda: find(window, {"check box"}, "Keep a history also while"), "the box")
    eventually(lambda: states(box).contains(pyatspi.STATE_ENABLED), "that it can be ticked")
    press(box)
    eventually(lambda: systemctl("is-enabled") == "enabled" and systemctl("is-active") == "active", "the service")
    before = readings()
    eventually(lambda: readings() > before, "a reading more, with both")
    if keeper() != "tickervantage":
        faults.append(f"both run, and {keeper()!r} keeps the history")
    stop(process)
    before = readings()
    eventually(lambda: keeper() == "tickerctl", "the service as the one who keeps the history")
    eventually(lambda: readings() > before, "a reading more, without the window")
    print(f"the service keeps it: {readings()} readings", flush=True)
    process, app = start(program)
    before = readings()
    eventually(lambda: readings() > before + 1, "readings while the service keeps them and the window shows them")
    if keeper() != "tickerctl":
        faults.append(f"the service was first, and {keeper()!r} keeps the history")
    stop(process)
    return faults


if __name__ == "__main__":
    sys.exit(report(check, lambda: [f"{systemctl('status')}", f"kept by {keeper()!r}"]))
