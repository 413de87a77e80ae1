# SPDX-License-Identifier: MIT
from base.waiting import expect, expect_settled, wait_until

TITLE = "6 clicks"
RULE = "Six quick clicks on the empty desktop leave wallpaper and icons where they are."


def check(desk):
    desk.click(*desk.spot())  # an icon that was chosen before looks different
    wait_until(lambda: desk.icons() >= 0.95 * desk.icons_before, 5)
    before = desk.picture()
    icons, places = before.count(desk.icon_colour), before.places_of(desk.icon_colour)
    for _ in range(6):
        desk.click(*desk.spot())
    expect_settled(desk.shows_wallpaper, desk.seen)
    if icons < 0.95 * desk.icons_before:
        return "the icons were not to be seen before"  # which the check of icons tells

    def are_there():
        return desk.icons() >= 0.95 * icons and desk.picture().places_of(desk.icon_colour) == places

    if desk.has_icons:
        expect(are_there, lambda: f"{desk.icons()} of the {icons} pixels of an icon, at "
                                  f"{desk.picture().places_of(desk.icon_colour)} and not at {places}")
    return None
