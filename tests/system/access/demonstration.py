"""A demonstration, used with the mouse: its servers are pulled out until the clock runs on by itself, and put back; its
configuration is edited and installed; and nowhere stands where its files lie but in the preferences, which say so.

Usage: demonstration.py PROGRAM
"""

import atexit
import os
import pathlib
import subprocess
import sys

import pyatspi

from hands import click, click_menu, shown, words_of
from screen_reader import application, below, eventually, find, open_by_menu, press, report, states, window_titled, words_shown

BUTTONS = {"push button", "button"}
ADDED = "# one line more\n"
EDITOR = "Installed Chrony Configuration"
FOLDER = os.environ["XDG_RUNTIME_DIR"]  # the demonstration's files lie below


def verdict(app, word):
    eventually(lambda: any(word in (node.name or "") or word in (node.description or "")
                           for node in below(window_titled(app, "Tickervantage"))
                           if node.getRoleName() == "label"), f"the verdict {word}")
    print(f"verdict: {word}", flush=True)


def installed():
    """The configurations of all daemons of the demonstration."""
    return [path.read_text(encoding="utf-8") for path in pathlib.Path(FOLDER).rglob("chrony.conf")]


def install(app):
    click_menu(app, "Tickervantage", "File", "Edit Configuration…")
    window = eventually(lambda: window_titled(app, EDITOR), "the editor")
    text = eventually(lambda: find(window, {"text"}, "Configuration text"), "its text")
    eventually(lambda: text.queryText().characterCount > 20, "the configuration in it")
    text.queryEditableText().insertText(0, ADDED, len(ADDED))
    check = shown(window, BUTTONS, "Check")
    click(check)
    click(eventually(lambda: shown(app, BUTTONS, "Dismiss"), "what the check found"))
    click(eventually(lambda: shown(window, BUTTONS, "Install…") or shown(window, BUTTONS, "Install"), "the button Install"))
    click(eventually(lambda: shown(app, BUTTONS, "OK"), "the question before the installation"))
    eventually(lambda: any(ADDED in text for text in installed()), "the line in the demonstration's configuration")
    eventually(lambda: any("Installed." in words for words in words_of(window)), "the word that it is installed")
    print("the edit is installed", flush=True)


def paths_shown(app):
    """Windows that show where the demonstration's files lie."""
    faults = []
    for index in range(app.childCount):
        window = app.getChildAtIndex(index)
        for words in words_of(window):
            is_configuration = ADDED in words  # which has to name its files
            if FOLDER in words and "references" not in window.name and not is_configuration:
                faults.append(f"{window.name} shows a temporary path: {words[:200]!r}")
    return faults


def look_at_preferences(app):
    open_by_menu(app, "Preferences…")
    window = eventually(lambda: window_titled(app, "references"), "the preferences")
    eventually(lambda: any("demonstration's own files" in words for words in words_of(window)), "whose paths these are")
    if not any(FOLDER in words for words in words_of(window)):
        return ["the preferences do not show the demonstration's own paths"]
    field = find(window, {"text"}, "Configuration")
    return [] if states(field).contains(pyatspi.STATE_READ_ONLY) else ["a path can be changed"]


def check(program):
    process = subprocess.Popen([program, "--demo"])
    atexit.register(process.kill)  # whatever becomes of this script
    app = eventually(application, "the program on the accessibility bus")
    eventually(lambda: window_titled(app, "Tickervantage"), "its main window")
    verdict(app, "Synchronised")
    click_menu(app, "Tickervantage", "Chrony", "Pull Out All Servers")
    verdict(app, "Holdover")
    click_menu(app, "Tickervantage", "Chrony", "Pull Out All Servers")
    verdict(app, "Synchronised")
    install(app)
    verdict(app, "Synchronised")
    for item in ("Live Tracking Graph", "History of the Clock", "Servers"):
        open_by_menu(app, item)
    press(eventually(lambda: find(window_titled(app, "Tickervantage"), BUTTONS, "History of the Clock"), "the toolbar"))
    faults = look_at_preferences(app) + paths_shown(app)
    process.terminate()
    process.wait(20)
    return faults


if __name__ == "__main__":
    sys.exit(report(check, lambda: words_shown(BUTTONS | {"alert", "label"})))
