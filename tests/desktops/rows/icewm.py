# SPDX-License-Identifier: MIT
from displays.x11_desk import X11Desk


class Row(X11Desk):
    name = "icewm"
    title = "icewm"
    packages = ["icewm"]
    needs = ["icewm"]
    manager = ("icewm",)
    replacement = ("icewm", "--replace")
    menu_button = 3

    def furnish(self):
        self.room.write("home/.icewm/preferences", "ShowTaskBar=0\n")
