# SPDX-License-Identifier: MIT
from displays.x11_desk import X11Desk


# Seen without the program too: the icons are gone with the picture beneath them.
LOST = "muffin without Cinnamon's shell paints no desktop windows after a workspace switch"


class Row(X11Desk):
    name = "muffin_nemo"
    title = "Cinnamon: muffin + nemo-desktop"
    packages = ["muffin", "nemo"]
    needs = ["muffin", "nemo-desktop"]
    manager = ("muffin", "--sm-disable")
    replacement = ("muffin", "--sm-disable", "--replace")
    desktop_program = ("nemo-desktop",)
    has_icons = True
    menu_button = 3
    limits = {"workspaces": LOST, "chosen_workspaces": LOST}

    def furnish(self):
        self.room.environment["XDG_CURRENT_DESKTOP"] = "X-Cinnamon"
        self.set_setting("org.cinnamon.muffin", "dynamic-workspaces", "false")
        self.set_setting("org.cinnamon.desktop.wm.preferences", "num-workspaces", "4")

    def await_own_picture(self):
        """Muffin alone paints a colour of its own."""
