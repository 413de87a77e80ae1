# SPDX-License-Identifier: MIT
from base.waiting import prepare

from . import geometry

TITLE = "turned display"
RULE = ("On a display that is turned on its side the wallpaper has the new shape, and the icons "
        "stay; turned back, it has the old one.")


def check(desk):
    has_icons = desk.comes_to_show_icons()
    shape = desk.screens()[0][2:]
    desk.turn(True)
    try:
        prepare(lambda: desk.screens()[0][2:] == shape[::-1], "a display on its side")
        desk.expect_wallpaper_to_stay("on its side")
        geometry.check(desk)
        if has_icons:
            desk.expect_icons("on its side")
    finally:
        desk.turn(False)
        prepare(lambda: desk.screens()[0][2:] == shape, "a display that is turned back")
    desk.expect_wallpaper_to_stay("turned back")
    geometry.check(desk)
