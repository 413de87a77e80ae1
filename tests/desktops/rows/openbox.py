# SPDX-License-Identifier: MIT
from displays.x11_desk import X11Desk


class Row(X11Desk):
    name = "openbox"
    title = "openbox"
    packages = ["openbox"]
    needs = ["openbox"]
    manager = ("openbox", "--sm-disable")
    replacement = ("openbox", "--sm-disable", "--replace")
    menu_button = 3
