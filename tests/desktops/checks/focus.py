# SPDX-License-Identifier: MIT
from base.outcome import Failed
from base.picture import WINDOW

TITLE = "focus"
RULE = "The wallpaper never takes the keyboard: not by a click, and not in the window switcher."


def check(desk):
    desk.show((300, 200, 260, 180), WINDOW)
    desk.show((500, 300, 260, 180), WINDOW)
    refuse(desk, "after windows opened")
    desk.click(*desk.spot())
    refuse(desk, "after a click on the desktop")
    for _ in range(3):
        desk.switch_window()
        refuse(desk, "by the window switcher")


def refuse(desk, when):
    if desk.focus_is_ours():
        raise Failed(f"it has the keyboard {when}")
