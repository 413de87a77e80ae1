# SPDX-License-Identifier: MIT
from base.outcome import Failed

TITLE = "click"
RULE = "A click on the empty desktop reaches what lies beneath the wallpaper."


def check(desk):
    names, ours = desk.takes_clicks_at(*desk.spot())
    if ours:
        raise Failed(f"it goes to {' > '.join(names)}")
    opened = desk.opens_menu(*desk.spot())
    if opened is False:
        raise Failed("the desktop's menu does not open")
    return f"goes to {names[-1]}" + (", whose menu opens" if opened else "")
