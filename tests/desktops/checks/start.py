# SPDX-License-Identifier: MIT
TITLE = "start"
RULE = "The program starts and its wallpaper covers the desktop's own picture."


def check(desk):
    desk.start_program()
    desk.expect_wallpaper(seconds=40)
