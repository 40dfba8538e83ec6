"""Reads every window of a running demonstration as a screen reader does, through the accessibility bus.

Usage: screen_reader.py PROGRAM
Starts the program, opens its windows by their menu items and looks at everything in them: what can be focused needs a
name and a role that says how it is used, what is drawn needs a name and a text that tells what it shows. Whatever
lacks something is listed, and the exit status is then 1.
"""

import subprocess
import sys
import time

import pyatspi

PATIENCE_SECONDS = 40
PROGRAM_NAME = "tickervantage"
MUTE_ROLES = {"unknown", "invalid", "filler", "panel", "redundant object", "layered pane"}
DRAWN_ROLES = {"chart", "image", "canvas", "drawing area"}
NAMED_BY_CONTENT = {"list item", "table cell", "tree item", "text"}

# The menu item that opens a window, a part of its title, and how many drawings it has to tell of.
WINDOWS = [
    (None, "Tickervantage", 3),
    ("Live Tracking Graph", "racking", 1),
    ("Preferences…", "references", 0),
    ("Spectrum", "pectrum", 1),
    ("Frequency and Temperature", "emperature", 1),
    ("Sensor Inspector", "nspector", 0),
    ("New Configuration", "ntitled", 0),
    ("Servers", "ervers", 0),
    ("About Tickervantage", "About", 0),
]
# These two windows are offered only where somebody asks for them.
OFFERS = ["spectrum", "frequency"]


class Missing(Exception):
    """Something that has to be there was not found in time."""


def eventually(find, what):
    deadline = time.monotonic() + PATIENCE_SECONDS
    while time.monotonic() < deadline:
        found = find()
        if found:
            return found
        time.sleep(0.1)  # between two looks
    raise Missing(f"{what} did not appear")


def below(node, depth=0):
    """All that is below a node; children may go while they are read."""
    if depth > 40:
        return
    for index in range(min(node.childCount, 400)):
        try:
            child = node.getChildAtIndex(index)
            if child is None:
                continue
            yield child
            yield from below(child, depth + 1)
        except Exception:  # gone meanwhile
            continue


def states(node):
    return node.getState()


def application():
    desktop = pyatspi.Registry.getDesktop(0)
    for index in range(desktop.childCount):
        found = desktop.getChildAtIndex(index)
        if found is not None and PROGRAM_NAME in (found.name or "").lower():
            return found
    return None


def window_titled(app, part):
    for index in range(app.childCount):
        window = app.getChildAtIndex(index)
        if window is not None and part in (window.name or "") and states(window).contains(pyatspi.STATE_SHOWING):
            return window
    return None


def plain(name):
    return (name or "").replace("&", "").strip().lower()


def press(node):
    action = node.queryAction()
    for index in range(action.nActions):
        if action.getName(index).lower() in ("press", "toggle", "showmenu", "click"):
            return action.doAction(index)
    return False


def find(root, roles, wanted):
    for node in below(root):
        if node.getRoleName() in roles and plain(wanted) in plain(node.name):
            return node
    return None


def open_by_menu(app, item):
    main = window_titled(app, "Tickervantage")
    roles = {"menu item", "check menu item"}
    entry = eventually(
        lambda: next((node for node in below(main) if node.getRoleName() in roles and plain(node.name) == plain(item)), None),
        f"the menu item {item}",
    )
    press(entry)


def words_shown(roles):
    """The names of all that has one of the roles: what there was where something else was missing."""
    return sorted({repr(node.name) for node in below(application()) if node.getRoleName() in roles and node.name})


def report(check, state=list):
    """Prints what the check finds at fault in the program, with the state of things where something is missing."""
    try:
        faults = check(sys.argv[1])
    except Missing as reason:
        faults = [str(reason), *state()]
    print("\n".join(faults))
    return 1 if faults else 0


def ask_for_offers(window):
    tab = find(window, {"page tab"}, "Advanced")
    if tab is not None:
        press(tab)
    for word in OFFERS:
        box = eventually(
            lambda wanted=word: find(window, {"check box"}, wanted), f"the check box about {word}"
        )
        if not states(box).contains(pyatspi.STATE_CHECKED):
            press(box)


def has_words(node):
    if (node.name or "").strip():
        return True
    try:  # a cell or an item may be known by what is written in it
        return node.getRoleName() in NAMED_BY_CONTENT and node.queryText().characterCount > 0
    except NotImplementedError:
        return False


def is_labelled(node):
    return any(one.getRelationType() == pyatspi.RELATION_LABELLED_BY for one in node.getRelationSet())


def place(node):
    words = [f"{node.getRoleName()} \"{node.name}\""]
    parent = node.parent
    for _ in range(4):
        if parent is None:
            break
        words.append(f"{parent.getRoleName()} \"{parent.name}\"")
        parent = parent.parent
    return " in ".join(words)


def faults_of(node):
    role = node.getRoleName()
    seen = states(node)
    if not seen.contains(pyatspi.STATE_SHOWING):
        return
    if role in DRAWN_ROLES and not ((node.name or "").strip() and (node.description or "").strip()):
        yield "a drawing without a name or without words for what it shows"
    if role == "page tab" and not seen.contains(pyatspi.STATE_FOCUSABLE):
        yield "a tab that keys do not reach"
    if not seen.contains(pyatspi.STATE_FOCUSABLE) or role in ("menu item", "menu", "menu bar"):
        return
    if role in MUTE_ROLES:
        yield "can be focused but has no role"
    if not has_words(node):
        yield "can be focused but has no name"
    if role == "combo box" and not is_labelled(node) and not (node.description or "").strip():
        yield "its name is what is chosen, and nothing tells what for"
    if role in ("slider", "spin button"):
        try:
            node.queryValue()
        except NotImplementedError:
            yield "tells no value"


def read(window, drawings, verbose):
    nodes = list(below(window))
    showing = [node for node in nodes if states(node).contains(pyatspi.STATE_SHOWING)]
    faults = [f"{fault}: {place(node)}" for node in showing for fault in faults_of(node)]
    drawn = [node for node in showing if node.getRoleName() in DRAWN_ROLES]
    focusable = [node for node in showing if states(node).contains(pyatspi.STATE_FOCUSABLE)]
    if len(drawn) < drawings:
        faults.append(f"{len(drawn)} drawings told of, not {drawings}")
    if not focusable:
        faults.append("nothing in it can be focused")
    print(f"{window.name}: {len(nodes)} objects, {len(focusable)} can be focused, {len(drawn)} drawn")
    if verbose:
        for node in showing:
            print(f"    {node.getRoleName()}: {node.name!r} {node.description!r}")
    return [f"{window.name}: {fault}" for fault in faults]


def drawings_have_words(window):
    drawn = [node for node in below(window) if node.getRoleName() in DRAWN_ROLES]
    return drawn and all((node.description or "").strip() for node in drawn)


def walk(verbose):
    app = eventually(application, "the program on the accessibility bus")
    main = eventually(lambda: window_titled(app, "Tickervantage"), "the main window")
    eventually(lambda: drawings_have_words(main), "the first reading on the dials")
    faults = []
    for item, title, drawings in WINDOWS:
        if item is not None:
            open_by_menu(app, item)
        window = eventually(lambda part=title: window_titled(app, part), f"the window of {item}")
        eventually(lambda here=window: here.childCount > 0, f"anything in the window of {item}")
        faults += read(window, drawings, verbose)
        if item == "Preferences…":
            ask_for_offers(window)
            faults += read(window, drawings, verbose)
    return faults


def main():
    program = subprocess.Popen([sys.argv[1], "--demo"])
    try:
        faults = walk("--verbose" in sys.argv)
    except Missing as reason:
        faults = [str(reason)]
    finally:
        program.terminate()
        status = program.wait(PATIENCE_SECONDS)
    if status < 0:
        faults.append(f"the program was ended by signal {-status}")
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
