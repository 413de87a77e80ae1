# SPDX-License-Identifier: MIT
from base.waiting import expect, expect_settled

TITLE = "desktop program"
RULE = "Wallpaper and icons are as they were after the desktop's own program restarts."


def check(desk):
    icons = desk.icons()
    desk.restart_desktop_program()
    expect_settled(desk.shows_wallpaper, desk.seen, 20)
    if icons < 0.95 * desk.icons_before:
        return "the icons were not to be seen before"  # which the check of icons tells
    expect(lambda: desk.icons() >= 0.95 * desk.icons_before,
           lambda: f"{desk.icons()} of the {desk.icons_before} pixels of an icon")
    return None
