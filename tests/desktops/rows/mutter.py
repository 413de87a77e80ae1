# SPDX-License-Identifier: MIT
from base.picture import DESKTOP
from displays.x11_desk import X11Desk


class Row(X11Desk):
    name = "mutter"
    title = "mutter"
    packages = ["mutter"]
    needs = ["mutter"]
    manager = ("mutter", "--x11", "--sm-disable")
    root_is_bare = False
    limits = {"manager_replaced":
              "the one that leaves deletes the announcement of the one that comes"}

    def furnish(self):
        self.set_setting("org.gnome.mutter", "dynamic-workspaces", "false")
        self.set_setting("org.gnome.desktop.wm.preferences", "num-workspaces", "4")

    def shows_nothing_else(self):
        """Its own picture comes some time after it, over what lay on the root."""
        return self.at(*self.spot()) not in (0, DESKTOP)
