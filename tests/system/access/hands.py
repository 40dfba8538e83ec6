"""A user's mouse, over the program's display."""

import time

import pyatspi
from gi.repository import GLib

from screen_reader import below, eventually, plain, states, window_titled


def mouse(x, y, what):
    pyatspi.Registry.generateMouseEvent(x, y, what)
    time.sleep(0.1)  # the server hands it on to the program


def middle(node):
    area = node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    return area.x + area.width // 2, area.y + area.height // 2


def click(node):
    x, y = middle(node)
    mouse(x, y, "abs")
    mouse(x, y, "b1c")


def is_shown(node, roles, name):
    try:
        return node.getRoleName() in roles and plain(node.name) == plain(name) and states(node).contains(pyatspi.STATE_SHOWING)
    except GLib.GError:  # gone meanwhile
        return False


def shown(root, roles, name):
    """What bears the name and is in sight; none: null."""
    return next((node for node in below(root) if is_shown(node, roles, name)), None)


def click_menu(app, window_title, menu, item):
    """Opens the menu with the mouse and clicks its item."""
    window = eventually(lambda: window_titled(app, window_title), f"the window {window_title}")
    click(eventually(lambda: shown(window, {"menu item", "menu"}, menu), f"the menu {menu}"))
    roles = {"menu item", "check menu item", "radio menu item"}
    entry = eventually(lambda: shown(app, roles, item), f"the item {item}")
    time.sleep(0.3)  # the menu has come to rest
    click(entry)


def own_words(node):
    try:
        yield node.name or ""
        yield node.description or ""
        yield node.queryText().getText(0, -1)
    except (NotImplementedError, GLib.GError):  # it has no text, or is gone meanwhile
        return


def words_of(root):
    """Every name, description and text below, one after the other."""
    for node in below(root):
        yield from own_words(node)
