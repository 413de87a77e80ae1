# SPDX-License-Identifier: MIT
from base.picture import WINDOW
from base.waiting import expect, expect_settled

TITLE = "show desktop"
RULE = "The desktop's command to show the desktop leaves the wallpaper, and takes the windows."


def check(desk):
    window = desk.show((300, 200, 260, 180), WINDOW)
    place = desk.expect_window(window, WINDOW, "before")
    desk.show_desktop(True)
    try:
        expect(lambda: desk.at(*place) != WINDOW, "the window stays")
        expect_settled(desk.shows_wallpaper, desk.seen)
    finally:
        desk.show_desktop(False)
    desk.expect_colour(place, WINDOW, "when the windows are shown again")
    desk.expect_wallpaper("when the windows are shown again")
