# SPDX-License-Identifier: MIT
from base.picture import WINDOW
from base.waiting import expect_settled

TITLE = "manager killed"
RULE = "Without its window manager the wallpaper stays behind the windows, and under the next one."


def check(desk):
    had_icons = desk.comes_to_show_icons()
    window = show(desk)
    restart = desk.kill_manager()

    def holds():
        return desk.at(*window.centre()) == WINDOW and desk.shows_wallpaper()

    def seen():
        return desk.seen([window.centre(), *desk.spots()])

    try:
        if desk.windows_outlive_manager:
            expect_settled(holds, lambda: f"without a manager: {seen()}")
    finally:
        restart()
    if not desk.windows_outlive_manager:
        window = show(desk)
    expect_settled(holds, lambda: f"under the next manager: {seen()}", 20)
    if had_icons:  # else the check of icons tells
        desk.expect_icons("under the next manager")


def show(desk):
    return desk.show((300, 200, 260, 180), WINDOW)
