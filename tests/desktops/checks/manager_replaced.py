# SPDX-License-Identifier: MIT
from base.picture import WINDOW
from base.waiting import expect_settled

TITLE = "manager replaced"
RULE = "The wallpaper is behind the windows under another run of the window manager too."


def check(desk):
    had_icons = desk.comes_to_show_icons()
    window = desk.show((300, 200, 260, 180), WINDOW)
    desk.replace_manager()
    expect_settled(lambda: desk.at(*window.centre()) == WINDOW and desk.shows_wallpaper(),
                   lambda: desk.seen([window.centre(), *desk.spots()]))
    if had_icons:  # else the check of icons tells
        desk.expect_icons("under the next manager")
