# SPDX-License-Identifier: MIT
from base.picture import WINDOW
from base.waiting import expect_settled

TITLE = "workspaces"
RULE = "The wallpaper is on every workspace, below its windows, also after quick switches."


def check(desk):
    desk.go_to_workspace(1)
    desk.expect_wallpaper("on the second workspace")
    window = desk.show((300, 200, 260, 180), WINDOW)
    desk.expect_window(window, WINDOW, "a window on the second workspace")
    for number in (0, 1, 0, 1, 0):
        desk.go_to_workspace(number)
    expect_settled(desk.shows_wallpaper, lambda: "back on the first workspace: " + desk.seen())
