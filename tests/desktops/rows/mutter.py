# SPDX-License-Identifier: MIT
from displays.x11_desk import X11Desk


class Row(X11Desk):
    name = "mutter"
    title = "mutter"
    packages = ["mutter"]
    needs = ["mutter"]
    manager = ("mutter", "--x11", "--sm-disable")
    root_is_bare = False
    replacement = ("mutter", "--x11", "--sm-disable", "--replace")

    def furnish(self):
        self.set_setting("org.gnome.mutter", "dynamic-workspaces", "false")
        self.set_setting("org.gnome.desktop.wm.preferences", "num-workspaces", "4")
