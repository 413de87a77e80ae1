# SPDX-License-Identifier: MIT
from displays.x11_desk import X11Desk


class Row(X11Desk):
    name = "marco_caja"
    title = "MATE: marco + caja"
    packages = ["marco", "caja"]
    needs = ["marco", "caja"]
    manager = ("marco", "--sm-disable", "--composite")
    replacement = ("marco", "--sm-disable", "--composite", "--replace")
    desktop_program = ("caja", "-n", "--force-desktop", "--sm-disable")
    has_icons = True
    menu_button = 3

    def furnish(self):
        self.room.environment["XDG_CURRENT_DESKTOP"] = "MATE"
        self.set_setting("org.mate.background", "picture-filename", self.room.desktop_picture())
        self.set_setting("org.mate.background", "picture-options", "stretched")
