# SPDX-License-Identifier: MIT
from base.outcome import Failed
from base.waiting import expect

from .quit import expect_as_before

TITLE = "killed"
RULE = "After it was killed, the next run works, and its end brings back what was there before."
ENDS = True


def check(desk):
    if not desk.tavi.is_running():
        desk.start_program()
    desk.expect_wallpaper("before")
    desk.tavi.kill()
    left = desk.seen()
    desk.expect_left_by_kill()
    desk.start_program()
    expect(desk.tavi.has_spoken, "the next run says nothing")
    desk.expect_wallpaper("in the next run", seconds=40)
    desk.expect_running()
    if not desk.tavi.quit():
        raise Failed("it does not end")
    expect_as_before(desk)
    return f"until the next run: {left}"
