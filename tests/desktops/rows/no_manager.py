# SPDX-License-Identifier: MIT
from displays.x11_desk import X11Desk

ABSENT = "there is no manager"


class Row(X11Desk):
    name = "no_manager"
    title = "no window manager"
    packages = ["xserver-xorg-core"]
    has_workspaces = False
    limits = {"workspaces": ABSENT, "chosen_workspaces": ABSENT, "manager_replaced": ABSENT}
