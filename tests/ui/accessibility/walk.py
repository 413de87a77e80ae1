#!/usr/bin/python3
"""walk.py [pages|over]: reads the window of "window-show" as a screen reader does, and walks it by Tab.

Prints a line a control, "role | name | states", then "tab | name" for each stop of the walk, and what
is wrong as "WRONG ...". Ends with 1 when something is. With "pages" it goes on to each page of the
window by F12, and prints "page | name" before what it tells of it. With "over" it walks what keys bring
up over a page: what a search finds, and the list of the keys.
"""
import subprocess
import sys
import time

import pyatspi
from gi.repository import Atspi, GLib

# What is met by the keyboard or pressed, and so has to say what it is called.
OPERATED = {
    pyatspi.ROLE_PUSH_BUTTON, pyatspi.ROLE_TOGGLE_BUTTON, pyatspi.ROLE_CHECK_BOX,
    pyatspi.ROLE_RADIO_BUTTON, pyatspi.ROLE_SLIDER, pyatspi.ROLE_SPIN_BUTTON, pyatspi.ROLE_COMBO_BOX,
    pyatspi.ROLE_TEXT, pyatspi.ROLE_PASSWORD_TEXT, pyatspi.ROLE_ENTRY, pyatspi.ROLE_LINK,
    pyatspi.ROLE_LIST, pyatspi.ROLE_LIST_ITEM, pyatspi.ROLE_PAGE_TAB, pyatspi.ROLE_PAGE_TAB_LIST,
    pyatspi.ROLE_PROGRESS_BAR, pyatspi.ROLE_LABEL, pyatspi.ROLE_DATE_EDITOR,
}
MEANINGLESS = {pyatspi.ROLE_UNKNOWN, pyatspi.ROLE_INVALID, pyatspi.ROLE_FILLER, pyatspi.ROLE_PANEL}
# The parts of a stop: the arrows lead to them.
PARTS = {pyatspi.ROLE_LIST_ITEM, pyatspi.ROLE_PAGE_TAB}
# What its role leaves open, and the states have to tell.
TELLING = {pyatspi.ROLE_COMBO_BOX: pyatspi.STATE_EXPANDABLE,
           pyatspi.ROLE_TEXT: pyatspi.STATE_EDITABLE,
           pyatspi.ROLE_PASSWORD_TEXT: pyatspi.STATE_EDITABLE}
VALUED = {pyatspi.ROLE_SLIDER, pyatspi.ROLE_SPIN_BUTTON, pyatspi.ROLE_PROGRESS_BAR}
TOLD = [("focusable", pyatspi.STATE_FOCUSABLE), ("checked", pyatspi.STATE_CHECKED),
        ("enabled", pyatspi.STATE_ENABLED), ("selected", pyatspi.STATE_SELECTED)]
PATIENCE = 15.0  # seconds
STEP_PATIENCE = 1.0
BESIDE = 30  # pixels by which the heights of those on one line may differ


def until(condition, patience=PATIENCE):
    end = time.monotonic() + patience
    while time.monotonic() < end:
        found = condition()
        if found:
            return found
        time.sleep(0.02)
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


def key(node):
    """By what one control is told from another."""
    return node.path


def seen(node, parent=None):
    """Everything that shows, with what it is in."""
    yield parent, node
    for index in range(node.childCount):
        child = node.getChildAtIndex(index)
        if child is not None and has(child, pyatspi.STATE_SHOWING):
            yield from seen(child, node)


def stop_of(node):
    """The stop that a control with the focus is, or is a part of."""
    while node is not None and node.getRole() in PARTS:
        node = node.parent
    parent = node.parent if node is not None else None
    if parent is not None and parent.getRole() == pyatspi.ROLE_SPIN_BUTTON:
        return parent
    return node


class Focus:
    """Where the focus went, as the program tells of it."""

    def __init__(self):
        self.told = []
        pyatspi.Registry.registerEventListener(self.hear, "object:state-changed:focused")

    def hear(self, event):
        if event.detail1:
            self.told.append(event.source)

    def turn(self):
        while GLib.MainContext.default().iteration(False):
            pass
        return self.told

    def forget(self):
        self.turn()
        self.told = []

    def moved(self, before):
        """The stop that Tab led to from `before`; nothing where it led nowhere."""
        if not until(self.turn, STEP_PATIENCE):
            return None
        now = stop_of(self.told[-1])
        return now if now is not None and key(now) != key(before) else None


def focused(window):
    """The innermost that has the focus. The toolkit calls the current row of a list focused also
    while the list is not."""
    found = [node for _, node in seen(window)
             if has(node, pyatspi.STATE_FOCUSED) and node.getRole() not in PARTS]
    return stop_of(found[-1]) if found else None


def press(*keys):
    subprocess.run(["xdotool", "key", *keys], check=True)


def next_stop(window, focus, before):
    """Where Tab leads; nothing where it leads nowhere. A date has three parts to step through."""
    for _ in range(4):
        focus.forget()
        press("Tab")
        now = focus.moved(before)
        if now is None:  # the program may not have told yet that it is listened to
            at = focused(window)
            now = at if at is not None and key(at) != key(before) else None
        if now is not None:
            return now
    return None


def faults_of(node, role, name):
    if role in OPERATED and not name:
        yield f"a {node.getRoleName()} has no name"
    if not has(node, pyatspi.STATE_FOCUSABLE):
        return
    if role in MEANINGLESS:
        yield f"{name!r} takes the focus and says not what it is"
    if role in TELLING and not has(node, TELLING[role]):
        yield f"{node.getRoleName()} {name!r} tells its state not"
    if role in VALUED and node.get_value_iface() is None:
        yield f"{node.getRoleName()} {name!r} tells its value not"


def read(window, wrong):
    nodes = list(seen(window))
    for _, node in nodes:
        role, name = node.getRole(), node.name.strip()
        states = [word for word, state in TOLD if has(node, state)]
        print(f"{node.getRoleName()} | {name} | {' '.join(states)}")
        wrong.extend(faults_of(node, role, name))
    return nodes


def check_groups(nodes, wrong):
    """Of a group at most one is chosen, and the group says what for."""
    groups = {}
    for parent, node in nodes:
        if parent is not None and node.getRole() == pyatspi.ROLE_RADIO_BUTTON:
            groups.setdefault(key(parent), (parent, []))[1].append(node)
    for parent, members in groups.values():
        if not parent.name:
            wrong.append(f"nothing says what {members[0].name!r} is chosen for")
        if sum(1 for node in members if has(node, pyatspi.STATE_CHECKED)) > 1:
            wrong.append(f"more than one is chosen beside {members[0].name!r}")


def is_stop(node):
    return has(node, pyatspi.STATE_FOCUSABLE) and has(node, pyatspi.STATE_ENABLED) \
        and node.getRole() not in PARTS


def left_out(nodes, met):
    """Of radio buttons one is a stop, and the arrows lead to the others."""
    groups = {key(parent) for parent, node in nodes
              if parent is not None and node.getRole() == pyatspi.ROLE_RADIO_BUTTON
              and key(node) in met}
    for parent, node in nodes:
        if not is_stop(node) or key(node) in met:
            continue
        if node.getRole() == pyatspi.ROLE_RADIO_BUTTON and key(parent) in groups:
            continue
        if parent is not None and parent.getRole() == pyatspi.ROLE_SPIN_BUTTON:
            continue
        yield f"the walk leaves out {node.getRoleName()} {node.name!r}"


def check_order(stops, wrong):
    """Down the page, once it was entered from the side."""
    names = [node.getRole() for node in stops]
    if pyatspi.ROLE_PAGE_TAB_LIST not in names:
        return
    side = names.index(pyatspi.ROLE_PAGE_TAB_LIST)
    page = (stops[side + 1:] + stops[:side])[:-1]  # without the tabs and the search above them
    lowest = 0
    for node in page:
        place = node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        middle = place.y + place.height // 2
        if lowest and middle < lowest - BESIDE:
            wrong.append(f"{node.getRoleName()} {node.name!r} comes too late")
        lowest = max(lowest, middle)


def walk(window, focus, nodes, wrong):
    first = until(lambda: focused(window))
    if first is None:
        wrong.append("nothing has the focus")
        return
    stops = [first]
    if sum(1 for _, node in nodes if is_stop(node)) == 1:
        print(f"tab | {first.getRoleName()} | {first.name}")
        return
    while True:
        now = next_stop(window, focus, stops[-1])
        if now is None:
            wrong.append(f"no way on from {stops[-1].getRoleName()} {stops[-1].name!r}")
            return
        if key(now) == key(first):
            break
        if any(key(now) == key(stop) for stop in stops):
            wrong.append(f"the walk comes to {now.name!r} again, and not to where it began")
            break
        stops.append(now)
    check_order(stops, wrong)
    for node in stops:
        print(f"tab | {node.getRoleName()} | {node.name}")
    # What scrolls out of sight on the way is still to be reached.
    wrong.extend(left_out(nodes, {key(stop) for stop in stops}))


def check(window, focus, wrong):
    nodes = read(window, wrong)
    check_groups(nodes, wrong)
    walk(window, focus, nodes, wrong)


def walk_pages(window, focus, wrong):
    page = window.name
    while page != "end":
        print(f"page | {page}")
        faults = []
        check(window, focus, faults)
        wrong.extend(f"{page}: {fault}" for fault in faults)
        press("F12")
        before = page
        page = until(lambda: window.name if window.name != before else None)
        if page is None:
            wrong.append(f"no page after {before!r}")
            return
        time.sleep(0.1)  # until it is laid out


def results(window):
    """What was found, in the list that a search fills."""
    for _, node in seen(window):
        if node.getRole() == pyatspi.ROLE_LIST and node.name == "Search results":
            return node
    return None


def settled_results(window):
    """The same once it stays as it is: panes that were not looked at yet are searched one by one."""
    last = None
    for _ in range(20):
        time.sleep(0.2)
        found = results(window)
        now = None if found is None else [row.name for row in found]
        if now is not None and now == last:
            return found
        last = now
    return None


def walk_search(window, focus, wrong, word):
    print(f"page | search for {word}")
    press("ctrl+f")
    subprocess.run(["xdotool", "type", word], check=True)
    found = settled_results(window)
    if found is None:
        wrong.append(f"nothing tells what was found of {word!r}")
        return
    print(f"says | {found.description}")
    for row in found:
        print(f"found | {row.name} | {row.description}")
        if not row.name or not row.description:
            wrong.append(f"a result says not what or where it is: {row.name!r}, {row.description!r}")
    if found.childCount > 0:
        check(window, focus, wrong)
    press("ctrl+f", "Escape")
    if not until(lambda: results(window) is None):
        wrong.append("Escape does not end the search")


def walk_shortcuts(window, focus, wrong):
    """They lie over all else, so that nothing else is a stop."""
    print("page | shortcuts")
    before = until(lambda: focused(window))
    press("F1")
    shown = until(lambda: next((node for _, node in seen(window)
                                if node.getRole() == pyatspi.ROLE_DIALOG
                                and has(node, pyatspi.STATE_FOCUSED)), None))
    if shown is None:
        wrong.append("F1 brings no list of the keys to the focus")
        return
    print(f"says | {shown.description}")
    check(shown, focus, wrong)
    press("Tab")
    time.sleep(0.2)
    if not has(shown, pyatspi.STATE_FOCUSED):
        wrong.append("Tab leads out of the list of the keys")
    press("Escape")
    if not until(lambda: focused(window) is not None and key(focused(window)) == key(before)):
        wrong.append("the focus does not come back from the list of the keys")


def walk_over(window, focus, wrong):
    walk_search(window, focus, wrong, "clock")
    walk_search(window, focus, wrong, "zzzz")
    walk_shortcuts(window, focus, wrong)


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
    focus = Focus()
    if "pages" in sys.argv[1:]:
        walk_pages(window, focus, wrong)
    elif "over" in sys.argv[1:]:
        walk_over(window, focus, wrong)
    else:
        check(window, focus, wrong)
    for fault in wrong:
        print("WRONG", fault)
    return 1 if wrong else 0


sys.exit(main())
