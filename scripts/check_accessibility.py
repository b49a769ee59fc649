"""Walks the accessibility tree of korv: check_accessibility.py PROGRAM TEXT (see check-accessibility)."""

import subprocess
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

PATIENCE = 60  # seconds, for a busy machine


def children(node):
    for index in range(node.get_child_count()):
        child = node.get_child_at_index(index)
        if child is not None:
            yield child


def walk(node, way=""):
    """Every node below `node` that is in sight, with the way that leads there. Cells of large tables are left out."""
    for child in children(node):
        states = child.get_state_set()
        if not states.contains(Atspi.StateType.SHOWING):
            continue
        here = f"{way}/{child.get_role_name()} '{child.get_name()}'"
        yield here, child, states
        if not states.contains(Atspi.StateType.MANAGES_DESCENDANTS):
            yield from walk(child, here)


def found_within(seconds, find):
    """The first true value of `find`, which is called again and again; None when there is none in time."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        try:
            found = find()
        except gi.repository.GLib.Error:
            found = None  # The tree changed under our feet.
        if found:
            return found
        time.sleep(0.1)
    return None


def wait_for(what, find):
    found = found_within(PATIENCE, find)
    if found:
        return found
    print(f"check-accessibility: there is no {what}")
    sys.exit(1)


def application():
    for desktop in range(Atspi.get_desktop_count()):
        for app in children(Atspi.get_desktop(desktop)):
            if app.get_name() == "Korv":
                # What is kept of a tree gets old unnoticed: changes are told to main loops only, and there is none here.
                app.set_cache_mask(Atspi.Cache.NONE)
                return app
    return None


def named(app, role, name):
    for _, node, _ in walk(app):
        if node.get_role_name() == role and node.get_name() == name:
            return node
    return None


def faults(app):
    for way, node, states in walk(app):
        # A label is its text, and an empty one says nothing.
        if node.get_role_name() == "label":
            continue
        if states.contains(Atspi.StateType.FOCUSABLE) and not node.get_name().strip():
            yield f"no name: {way}"


def press(app, role, name, done):
    """Presses until it is done: what is pressed before its window is ready is lost."""
    for _ in range(PATIENCE // 5):
        node = found_within(5, lambda: named(app, role, name))
        if node:
            try:
                Atspi.Action.do_action(node, 0)
            except gi.repository.GLib.Error:
                continue  # It went away; whether it did what it should is seen below.
        if found_within(5, done):
            return
    print(f"check-accessibility: nothing comes of {role} '{name}'")
    sys.exit(1)


def main():
    program, text = sys.argv[1:]
    with subprocess.Popen([program, text]) as korv:
        try:
            app = wait_for("application", application)
            seen = 0
            found = []
            # The first start asks about common words.
            press(app, "push button", "No", lambda: not named(app, "push button", "No"))
            press(app, "push button", "Count phrases", lambda: named(app, "page tab", "Table"))
            for view in (None, "Table", "Report", "Pictures"):
                if view:
                    tab = wait_for(f"view '{view}'", lambda: named(app, "page tab", view))
                    Atspi.Action.do_action(tab, 0)
                    time.sleep(0.5)
                seen += sum(1 for _ in walk(app))
                found += [f"{view or 'start'}: {fault}" for fault in faults(app)]
            for fault in found:
                print(fault)
            if found:
                sys.exit(1)
            print(f"{seen} controls looked at; all that can have the focus have names.")
        finally:
            korv.terminate()


if __name__ == "__main__":
    main()
