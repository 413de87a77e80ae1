# SPDX-License-Identifier: MIT
from base.outcome import Failed
from base.picture import PANEL, is_wallpaper
from base.waiting import expect, expect_settled

TITLE = "panel"
RULE = "A panel lies above the wallpaper, whose words keep out of its way."
HEIGHT = 60
BRIGHT = 205
# In points, of the lowest bright words, those of the clock, from what is below the wallpaper.
DISTANCE = 80


def check(desk):
    own = desk.own_panel()
    if own:
        return check_own(desk, own)
    x, y, width, height = desk.screens()[0]
    # The check before may have left windows that are still going, and caja painting.
    expect_settled(lambda: lowest_words(desk, desk.screens()[0]), lambda: "there are no words")
    lowest = lowest_words(desk, desk.screens()[0])
    panel = desk.show_panel(HEIGHT)
    _, top, _, _ = panel.area()
    desk.expect_colour(panel.centre(), PANEL, "the panel")
    covered = y + height - top
    expect(lambda: abs(lowest - covered
                       - lowest_words(desk, (x, y, width, height - covered))) <= 2,
           lambda: f"the lowest words are at {lowest} without a panel and at "
                   f"{lowest_words(desk, (x, y, width, height - covered))} with one "
                   f"of {covered} pixels")
    return None


def check_own(desk, panel):
    """The desktop has a panel already, so the words keep the usual distance from it."""
    x, y, width, height = desk.screens()[0]
    lowest = lowest_words(desk, (x, y, width, height - panel))
    distance = y + height - panel - lowest
    if abs(distance - desk.lengths(DISTANCE)[0]) > 2:
        raise Failed(f"the lowest words are {distance} pixels above the panel")
    if is_wallpaper(desk.at(x + width // 2, y + height - panel // 2)):
        raise Failed("the wallpaper lies above the panel")
    return f"its own, of {panel} pixels"


def lowest_words(desk, area):
    """The lowest row with bright pixels in the corner of the clock; 0 without any."""
    picture = desk.picture()
    begin, end = desk.lengths(30, 430)
    x, y, _, height = area
    for row in range(y + height - 1, y + height // 2, -1):
        line = picture.row(row)[x + begin:x + end]
        if any(min(one >> 16, one >> 8 & 255, one & 255) > BRIGHT for one in line):
            return row
    return 0
