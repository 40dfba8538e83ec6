"""Presses each button of the main window that mends what is wrong with chrony, and looks at the machine afterwards.

Usage: mending.py PROGRAM
Run by scratch/mending, in a machine that may be changed and by a user who may give the rights. What only root can do
there is wished for by a file, and done when that is gone.
"""

import atexit
import os
import pathlib
import subprocess
import sys
import time

from hands import click, shown, words_of
from screen_reader import application, eventually, report, window_titled, words_shown

UNIT = "org.chrony-project.chronyd"
CONFIGURATION = pathlib.Path("/etc/chrony.d/chrony.conf")
LOG = pathlib.Path("/var/log/chrony/tracking.log")
SETTINGS = pathlib.Path(os.environ["XDG_CONFIG_HOME"]) / "Tickervantage/Tickervantage.ini"
BUTTONS = {"push button", "button"}


def wish(what):
    """Of root, who looks for it twice a second."""
    path = pathlib.Path("/home/clockadmin/wish")
    path.with_suffix(".new").write_text(what, encoding="ascii")
    path.with_suffix(".new").rename(path)
    eventually(lambda: not path.exists(), f"what root was asked for: {what}")


def runs():
    return subprocess.run(["systemctl", "--quiet", "is-active", UNIT], check=False).returncode == 0


def can_read_log():
    return os.access(LOG, os.R_OK)


def press(app, button, question=None):
    click(eventually(lambda: shown(app, BUTTONS, button), f"the button {button}"))
    if question:
        click(eventually(lambda: shown(app, BUTTONS, question), f"the answer {question}"))
    print(f"pressed: {button}", flush=True)
    time.sleep(0.5)  # the job has begun


def comes_true(what, condition):
    eventually(condition, what)
    print(f"    {what}", flush=True)


# A job watches for some seconds whether chronyd stays up.
def is_at_work(app):
    return any(word in words for word in ("chronyd daemon…", "chrony software…", "Installing the configuration…") for words in words_of(app))


def goes(app, button):
    comes_true("the job has ended", lambda: not is_at_work(window_titled(app, "Tickervantage")))
    comes_true(f"{button} is not offered any more", lambda: not shown(app, BUTTONS, button))


def check(program):
    SETTINGS.parent.mkdir(parents=True)
    SETTINGS.write_text("[General]\nadj_system=false\nchronyc_interval=1\n", encoding="utf-8")
    process = subprocess.Popen([program])
    atexit.register(process.kill)  # whatever becomes of this script
    app = eventually(application, "the program on the accessibility bus")
    eventually(lambda: window_titled(app, "Tickervantage"), "its main window")
    click(eventually(lambda: shown(app, BUTTONS, "Cancel"), "the offer at the first start"))

    press(app, "Install chrony…", "Install")
    comes_true("chronyd was installed and runs", lambda: runs() and CONFIGURATION.exists())
    goes(app, "Install chrony…")

    wish("stop")
    press(app, "Start chronyd")
    comes_true("chronyd runs", runs)
    goes(app, "Start chronyd")

    wish("no-logging")
    press(app, "Turn On Logging…", "Turn On")
    comes_true("the configuration asks for a log", lambda: "\nlog " in CONFIGURATION.read_text(encoding="utf-8"))
    comes_true("chronyd runs with it", lambda: runs() and LOG.exists())
    comes_true("everybody can read it", can_read_log)
    goes(app, "Turn On Logging…")

    wish("closed-logs")
    assert not can_read_log()
    press(app, "Let Me Read the Logs")
    comes_true("everybody can read the log", can_read_log)
    goes(app, "Let Me Read the Logs")

    wish("distribution")
    press(app, "Use This System's chrony…", "Use It")
    comes_true("the settings name it", lambda: "file_chronyd=/usr/sbin/chronyd" in SETTINGS.read_text(encoding="utf-8"))
    goes(app, "Use This System's chrony…")
    process.terminate()
    return []


if __name__ == "__main__":
    sys.exit(report(check, lambda: words_shown(BUTTONS | {"alert", "label"})))
