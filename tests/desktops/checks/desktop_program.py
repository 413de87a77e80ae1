# SPDX-License-Identifier: MIT
from base.waiting import expect_settled

TITLE = "desktop program"
RULE = "Wallpaper and icons are as they were after the desktop's own program restarts."


def check(desk):
    had_icons = desk.comes_to_show_icons()
    desk.restart_desktop_program()
    expect_settled(desk.shows_wallpaper, desk.seen, 20)
    if not had_icons:
        return "the icons were not to be seen before"  # which the check of icons tells
    desk.expect_icons("afterwards")
    return None
