# SPDX-License-Identifier: MIT
from base.outcome import Failed
from base.waiting import expect

TITLE = "quit"
RULE = "The program ends by itself when asked, and the desktop looks as it did before it came."
ENDS = True

# A desktop that was on other displays meanwhile may lay out its icons a pixel further. Of the
# places that are compared, some ten are those of one icon's edges.
SHIFTED = 15


def check(desk):
    if not desk.tavi.quit():
        raise Failed("it does not end")
    expect_as_before(desk)


def expect_as_before(desk):
    expect(lambda: desk.unlike_before() <= SHIFTED,
           lambda: f"{desk.unlike_before()} places are not as before: {desk.seen()}", 8)
