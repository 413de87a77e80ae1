# SPDX-License-Identifier: MIT
from base.outcome import Failed, NotApplicable

TITLE = "icons"
RULE = "The icons of the desktop are as visible as before, and take their clicks."


def check(desk):
    if not desk.has_icons:
        raise NotApplicable("there are no icons")
    desk.expect_icons(seconds=8)
    left, top, right, bottom = desk.picture().places_of(desk.icon_colour)
    names, ours = desk.takes_clicks_at((left + right) // 2, (top + bottom) // 2)
    if ours:
        raise Failed(f"a click on an icon goes to {names[-1]}")
