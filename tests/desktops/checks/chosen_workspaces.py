# SPDX-License-Identifier: MIT
from base.picture import WINDOW
from base.waiting import expect, expect_settled

TITLE = "chosen workspaces"
RULE = "Where one workspace was chosen, the others show the desktop's own picture."


def check(desk):
    for number in (1, 0):
        # Some desktops have only the workspaces that hold something.
        desk.go_to_workspace(number)
        desk.show((300, 200, 260, 180), WINDOW)
    desk.end_program()
    desk.start_program(desktop_selection="2")
    try:
        desk.go_to_workspace(1)
        desk.expect_wallpaper("on the chosen workspace")
        desk.go_to_workspace(0)
        expect(desk.shows_own_picture,
               lambda: f"on one that was not chosen: {desk.seen()}", 5)
        for number in (1, 0, 1):
            desk.go_to_workspace(number)
        expect_settled(desk.shows_wallpaper, lambda: "on the chosen one again: " + desk.seen())
    finally:
        desk.go_to_workspace(0)
        desk.end_program()
        desk.start_program(desktop_selection="all")
