# SPDX-License-Identifier: MIT
from base.outcome import NotApplicable

from . import geometry

TITLE = "second display"
RULE = "A display that is plugged in gets the wallpaper; one that is unplugged leaves the other's."


def check(desk):
    desk.add_screen()
    remark = None
    try:
        desk.expect_wallpaper_to_stay("with two displays")
        geometry.check(desk)
    finally:
        try:
            desk.remove_screen()
        except NotApplicable as reason:
            remark = str(reason)
    desk.expect_wallpaper_to_stay("afterwards")
    return remark
