# SPDX-License-Identifier: MIT
from base.picture import PANEL


class Bar:
    """The bar that i3 and sway bring along, hidden until it is wanted."""

    def __init__(self, desk, messenger):
        self.desk, self.messenger = desk, messenger
        self.set_mode("dock")

    def set_mode(self, mode):
        self.desk.room.ask(self.messenger, "bar", "mode", mode, "bar")

    def is_shown(self):
        return self.desk.picture().places_of(PANEL) is not None

    def area(self):
        left, top, right, bottom = self.desk.picture().places_of(PANEL)
        return left, top, right + 1 - left, bottom + 1 - top

    def centre(self):
        x, y, width, height = self.area()
        return x + width // 2, y + height // 2

    def close(self):
        self.set_mode("invisible")
