# SPDX-License-Identifier: MIT
from base.waiting import prepare
from displays.x11_desk import X11Desk


class Row(X11Desk):
    name = "openbox_picom"
    title = "openbox + picom"
    packages = ["openbox", "picom"]
    needs = ["openbox", "picom"]
    manager = ("openbox", "--sm-disable")
    replacement = ("openbox", "--sm-disable", "--replace")
    menu_button = 3

    def open(self):
        super().open()
        self.room.start("picom", "--config", "/dev/null", "--backend", "xrender")
        prepare(self.x11.is_composited, "the compositor")
