# SPDX-License-Identifier: MIT
from displays.x11_desk import X11Desk


class Row(X11Desk):
    name = "fluxbox"
    title = "fluxbox"
    packages = ["fluxbox"]
    needs = ["fluxbox"]
    manager = ("fluxbox",)
    menu_button = 3

    def furnish(self):
        # Its styles bring a picture for the root window, which would take the place of ours.
        self.room.write("home/.fluxbox/overlay", "background: none\n")
        self.room.write("home/.fluxbox/init", "session.screen0.workspaces: 4\n"
                        "session.screen0.toolbar.visible: false\n"
                        "session.styleOverlay: ~/.fluxbox/overlay\n")
