"""Shows the clock of a chronyd that answers at another address, of one that does not answer, and this machine's again.

Usage: distant_daemon.py PROGRAM
The chronyd leaves the clock alone; only root may give it the port that chronyc asks.
"""

import atexit
import os
import pathlib
import subprocess
import sys

import pyatspi

from hands import click, click_menu, shown, words_of
from screen_reader import application, eventually, find, press, report, states, window_titled

SKIPPED = 77
HOST = f"127.77.{os.getpid() % 250 + 1}.{os.getpid() // 250 % 250 + 1}"
SILENT = f"127.78.{os.getpid() % 250 + 1}.{os.getpid() // 250 % 250 + 1}"


def start_daemon():
    folder = pathlib.Path(os.environ["HOME"]) / "daemon"
    folder.mkdir()
    (folder / "conf").write_text(
        f"local stratum 7\nport 0\nbindcmdaddress {HOST}\nbindcmdaddress {folder}/s\ncmdallow\npidfile {folder}/pid\n",
        encoding="utf-8",
    )
    daemon = subprocess.Popen(
        ["/usr/sbin/chronyd", "-x", "-d", "-u", "root", "-f", str(folder / "conf")], stderr=subprocess.DEVNULL
    )
    atexit.register(daemon.kill)


def add(app, host):
    dialog = eventually(lambda: window_titled(app, "Other Machines"), "the list of machines")
    field = find(dialog, {"text"}, "Name or address")
    field.queryEditableText().setTextContents(host)
    press(eventually(lambda: find(dialog, {"push button", "button"}, "Add"), "the button Add"))
    eventually(lambda: field.queryText().characterCount == 0, f"{host} in the list")
    return dialog


def says(app, sentence):
    return eventually(lambda: any(sentence in words for words in words_of(app)), f"the words {sentence!r}")


def check(program):
    start_daemon()
    process = subprocess.Popen([program])
    atexit.register(process.kill)  # whatever becomes of this script
    app = eventually(application, "the program on the accessibility bus")
    main = eventually(lambda: window_titled(app, "Tickervantage"), "its main window")
    buttons = {"push button", "button"}
    alert = eventually(
        lambda: shown(app, buttons, "Cancel") or shown(app, buttons, "Dismiss"), "what is said of chrony at the first start"
    )
    press(alert)
    click_menu(app, "Tickervantage", "Daemon", "Other Machines…")
    add(app, SILENT)
    dialog = add(app, HOST)
    click(eventually(lambda: shown(dialog, {"push button", "button"}, "Show Its Clock"), "its button"))
    eventually(lambda: window_titled(app, f"{HOST} – Tickervantage"), "the title with the other machine")
    says(main, "Own time only")
    item = find(main, {"menu item"}, "Stop chronyd")
    faults = ["a job can be chosen"] if states(item).contains(pyatspi.STATE_ENABLED) else []
    click_menu(app, HOST, "Daemon", SILENT)
    says(main, f"{SILENT} gave no answer (506 Cannot talk to daemon)")
    click(eventually(lambda: shown(main, {"push button", "button"}, "Back to this machine"), "the way back"))
    eventually(lambda: window_titled(app, "Tickervantage").name == "Tickervantage", "this machine's title")
    return faults


def main():
    if os.geteuid() != 0:
        print("Skipped: only root may listen where chronyc asks.")
        return SKIPPED
    return report(check)


if __name__ == "__main__":
    sys.exit(main())
