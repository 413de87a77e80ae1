# SPDX-License-Identifier: MIT
from base.outcome import Failed
from base.waiting import expect

TITLE = "quit"
RULE = "The program ends by itself when asked, and the desktop looks as it did before it came."
ENDS = True


def check(desk):
    if not desk.tavi.quit():
        raise Failed("it does not end")
    expect_as_before(desk)


def expect_as_before(desk):
    expect(lambda: not desk.unlike_before(),
           lambda: f"{desk.unlike_before()} places are not as before: {desk.seen()}", 8)
