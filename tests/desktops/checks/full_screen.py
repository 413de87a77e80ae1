# SPDX-License-Identifier: MIT
from base.picture import FULL_SCREEN

TITLE = "full screen"
RULE = "A full-screen window covers all of the display, and the wallpaper is there after it."


def check(desk):
    x, y, width, height = desk.screens()[0]
    window = desk.show((x, y, width, height), FULL_SCREEN, full_screen=True)
    for place in (desk.spot(), (x + 3, y + height // 2), (x + width // 2, y + height - 3)):
        desk.expect_colour(place, FULL_SCREEN, "under a full-screen window")
    desk.opened.remove(window)
    window.close()
    desk.expect_wallpaper("after a full-screen window")
