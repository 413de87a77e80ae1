# SPDX-License-Identifier: MIT
from base.picture import WINDOW
from base.waiting import expect_settled

TITLE = "stacking"
RULE = "Windows lie above the wallpaper, also after a click on the desktop."


def check(desk):
    window = desk.show((300, 200, 260, 180), WINDOW)
    desk.expect_window(window, WINDOW, "a new window")
    desk.click(*desk.spot())
    expect_settled(lambda: desk.at(*window.centre()) == WINDOW and desk.shows_wallpaper(),
                   lambda: "after a click on the desktop: "
                           + desk.seen([window.centre(), *desk.spots()]))
