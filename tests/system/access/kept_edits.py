"""Types into the configuration editor of the real program and ends it: by kill -9 once a copy can have been made, and by
SIGTERM at once. The next run has to offer what was typed, and to show it when it is asked to.

Usage: kept_edits.py PROGRAM
"""

import atexit
import os
import pathlib
import signal
import subprocess
import sys

import screen_reader
from screen_reader import PATIENCE_SECONDS, application, eventually, find, open_by_menu, press, report, window_titled

KEPT = pathlib.Path(os.environ["XDG_STATE_HOME"]) / "Tickervantage/unsaved"
MESSAGE = "not been saved when the program ended"


class Run:
    """The program, from its start to the signal that ends it."""

    def __init__(self, program):
        self.process = subprocess.Popen([program])
        atexit.register(self.process.kill)  # whatever becomes of this script
        self.app = eventually(self.on_the_bus, "the program on the accessibility bus")
        eventually(lambda: window_titled(self.app, "Tickervantage"), "its main window")

    def on_the_bus(self):
        found = application()
        return found if found is not None and found.get_process_id() == self.process.pid else None

    def text(self, title):
        """Of the editor with that title, once its text is there."""

        def settled():
            window = window_titled(self.app, title)
            node = window and find(window, {"text"}, "Configuration text")
            return node if node and node.queryText().characterCount > 0 else None

        return eventually(settled, f"a text in the editor {title}")

    def end(self, number):
        self.process.send_signal(number)
        self.process.wait(PATIENCE_SECONDS)
        eventually(lambda: application() is None, "the end of the program on the bus")


def kept():
    return [path.read_text(encoding="utf-8") for path in KEPT.glob("*/*.edit")]


def write_at_start(node, words):
    node.queryEditableText().insertText(0, words, len(words))


def answer(run, button):
    """Answers the question about kept edits; what it said."""
    box = eventually(
        lambda: next((one for one in screen_reader.below(run.app) if MESSAGE in (one.name or "")), None),
        "the question about kept edits",
    )
    asked = box.name
    press(eventually(lambda: find(run.app, {"push button", "button"}, button), f"the button {button}"))
    return asked


def check(program):
    first = Run(program)
    open_by_menu(first.app, "New Configuration")
    write_at_start(first.text("ntitled"), "# one\n")
    eventually(lambda: any("# one\n" in text for text in kept()), "a copy of the edit on the disk")
    first.end(signal.SIGKILL)

    second = Run(program)
    print(answer(second, "Open"))
    node = second.text("ntitled")
    write_at_start(node, "# two\n")
    second.end(signal.SIGTERM)
    faults = [] if any("# two\n# one\n" in text for text in kept()) else ["SIGTERM lost what was typed last"]

    third = Run(program)
    print(answer(third, "Open"))
    text = third.text("ntitled").queryText()
    shown = text.getText(0, 12)
    print(f"shown again: {shown!r}")
    if shown != "# two\n# one\n":
        faults.append(f"the editor begins with {shown!r}")
    third.end(signal.SIGKILL)
    return faults


if __name__ == "__main__":
    sys.exit(report(check))
