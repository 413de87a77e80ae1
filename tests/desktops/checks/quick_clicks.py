# SPDX-License-Identifier: MIT
from base.waiting import expect_settled

TITLE = "6 clicks"
RULE = "Six quick clicks on the empty desktop leave wallpaper and icons where they are."


def check(desk):
    for _ in range(6):
        desk.click(*desk.spot())
    expect_settled(desk.shows_wallpaper, desk.seen)
