#!/usr/bin/python3
"""walk.py: reads the window of "window-show" as a screen reader does, and walks it with the Tab key.

Prints a line a control, "role | name | states", then "tab | name" for each stop of the walk, and what
is wrong as "WRONG ...". Ends with 1 when something is.
"""
import subprocess
import sys
import time

import pyatspi
from gi.repository import Atspi

# What is met by the keyboard or pressed, and so has to say what it is called.
OPERATED = {
    pyatspi.ROLE_PUSH_BUTTON, pyatspi.ROLE_TOGGLE_BUTTON, pyatspi.ROLE_CHECK_BOX,
    pyatspi.ROLE_RADIO_BUTTON, pyatspi.ROLE_SLIDER, pyatspi.ROLE_SPIN_BUTTON, pyatspi.ROLE_COMBO_BOX,
    pyatspi.ROLE_TEXT, pyatspi.ROLE_PASSWORD_TEXT, pyatspi.ROLE_ENTRY, pyatspi.ROLE_LINK,
    pyatspi.ROLE_LIST, pyatspi.ROLE_LIST_ITEM, pyatspi.ROLE_PAGE_TAB, pyatspi.ROLE_PAGE_TAB_LIST,
    pyatspi.ROLE_PROGRESS_BAR, pyatspi.ROLE_LABEL, pyatspi.ROLE_DATE_EDITOR,
}
MEANINGLESS = {pyatspi.ROLE_UNKNOWN, pyatspi.ROLE_INVALID, pyatspi.ROLE_FILLER, pyatspi.ROLE_PANEL}
TOLD = [("focusable", pyatspi.STATE_FOCUSABLE), ("checked", pyatspi.STATE_CHECKED),
        ("enabled", pyatspi.STATE_ENABLED), ("selected", pyatspi.STATE_SELECTED)]
PATIENCE = 15.0  # seconds


def until(condition, patience=PATIENCE):
    end = time.monotonic() + patience
    while time.monotonic() < end:
        found = condition()
        if found:
            return found
        time.sleep(0.05)
    return None


def application():
    for found in pyatspi.Registry.getDesktop(0):
        if found is not None and found.name == "window-show" and found.childCount > 0:
            # Each question goes to the program, so that no answer is of earlier.
            found.set_cache_mask(Atspi.Cache.NONE)
            return found
    return None


def has(node, state):
    return node.getState().contains(state)


def seen(node, path=()):
    """Everything that shows, with its way from the window."""
    yield path, node
    for index in range(node.childCount):
        child = node.getChildAtIndex(index)
        if child is not None and has(child, pyatspi.STATE_SHOWING):
            yield from seen(child, path + (index,))


def focused(window):
    """The innermost that has the focus. The toolkit calls the current row of a list focused also
    while the list is not."""
    found = [(path, node) for path, node in seen(window) if has(node, pyatspi.STATE_FOCUSED)]
    paths = {path for path, _ in found}
    found = [(path, node) for path, node in found
             if node.getRole() not in (pyatspi.ROLE_LIST_ITEM, pyatspi.ROLE_PAGE_TAB)
             or path[:-1] in paths]
    return found[-1] if found else None


def press(*keys):
    subprocess.run(["xdotool", "key", *keys], check=True)


def next_stop(window, before):
    """Where Tab leads; nothing where it leads nowhere. A date has three parts to step through."""
    for _ in range(4):
        press("Tab")
        now = until(lambda: (lambda at: at if at and at[0] != before else None)(focused(window)), 1.0)
        if now:
            return now
    return None


def read(window, wrong):
    for _, node in seen(window):
        role, name = node.getRole(), node.name.strip()
        states = [word for word, state in TOLD if has(node, state)]
        print(f"{node.getRoleName()} | {name} | {' '.join(states)}")
        focusable = has(node, pyatspi.STATE_FOCUSABLE)
        if role in OPERATED and not name:
            wrong.append(f"a {node.getRoleName()} has no name")
        if focusable and role in MEANINGLESS:
            wrong.append(f"{name!r} takes the focus and says not what it is")


def walk(window, wrong):
    first = until(lambda: focused(window))
    if first is None:
        wrong.append("nothing has the focus")
        return
    stops = [first]
    if sum(1 for _, node in seen(window) if has(node, pyatspi.STATE_FOCUSABLE)) == 1:
        print(f"tab | {first[1].getRoleName()} | {first[1].name}")
        return
    limit = sum(1 for _ in seen(window)) + 1
    while len(stops) <= limit:
        now = next_stop(window, stops[-1][0])
        if now is None:
            wrong.append(f"no way on from {stops[-1][1].name!r}")
            return
        if now[0] == first[0]:
            break
        stops.append(now)
    else:
        wrong.append("the walk does not come back to where it began")
    for _, node in stops:
        print(f"tab | {node.getRoleName()} | {node.name}")
    met = {path for path, _ in stops}
    for path, node in seen(window):
        alone = node.getRole() in (pyatspi.ROLE_PUSH_BUTTON, pyatspi.ROLE_CHECK_BOX,
                                   pyatspi.ROLE_SLIDER, pyatspi.ROLE_COMBO_BOX, pyatspi.ROLE_LINK)
        if alone and has(node, pyatspi.STATE_FOCUSABLE) and path not in met:
            wrong.append(f"the walk leaves out {node.getRoleName()} {node.name!r}")


def main():
    found = until(application)
    if found is None:
        print("WRONG the window does not show")
        return 1
    window = found.getChildAtIndex(0)
    wrong = []
    if not until(lambda: has(window, pyatspi.STATE_ACTIVE)):
        wrong.append("the window is not the active one")
    print(f"window | {window.name}")
    read(window, wrong)
    walk(window, wrong)
    for fault in wrong:
        print("WRONG", fault)
    return 1 if wrong else 0


sys.exit(main())
