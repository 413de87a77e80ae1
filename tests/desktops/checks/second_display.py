# SPDX-License-Identifier: MIT
from base.outcome import NotApplicable

from . import geometry

TITLE = "second display"
RULE = ("A display that is plugged in gets the wallpaper, beside the first one or showing the same, "
        "and the icons stay; one that is unplugged leaves the other's.")


def check(desk):
    has_icons = desk.icons_on_two_displays and desk.comes_to_show_icons()
    desk.add_screen()
    remark = None
    try:
        desk.expect_wallpaper_to_stay("with two displays")
        geometry.check(desk)
        if has_icons:
            desk.expect_icons("with two displays")
    finally:
        try:
            desk.remove_screen()
        except NotApplicable as reason:
            remark = str(reason)
    desk.expect_wallpaper_to_stay("afterwards")
    if desk.can_mirror:
        look_at_mirror(desk)
    return remark


def look_at_mirror(desk):
    desk.add_mirror()
    try:
        desk.expect_wallpaper_to_stay("with two displays that show the same")
        geometry.check(desk)
    finally:
        desk.remove_screen()
    desk.expect_wallpaper_to_stay("with one display again")
