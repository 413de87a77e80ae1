# SPDX-License-Identifier: MIT
from . import geometry

TITLE = "second display"
RULE = "A display that is plugged in gets the wallpaper; one that is unplugged leaves the other's."


def check(desk):
    desk.add_screen()
    try:
        desk.expect_wallpaper("with two displays")
        geometry.check(desk)
    finally:
        desk.remove_screen()
    desk.expect_wallpaper("with one display again")
