# SPDX-License-Identifier: MIT
from base.picture import DESKTOP
from base.waiting import prepare
from displays.plasma import OWN_PICTURE, is_ready, run_script
from displays.x11_desk import X11Desk


class Row(X11Desk):
    name = "kwin_plasma"
    title = "Plasma on X11: kwin_x11 + plasmashell, composited"
    packages = ["kwin-x11", "plasma-workspace", "plasma-desktop"]
    needs = ["kwin_x11", "plasmashell"]
    manager = ("kwin_x11",)
    replacement = ("kwin_x11", "--replace")
    desktop_program = ("plasmashell", "--no-respawn")
    has_icons = True
    menu_button = 3
    panel_edges = ("bottom",)
    composing = "O2"

    def furnish(self):
        self.room.environment |= {
            "XDG_CURRENT_DESKTOP": "KDE", "KDE_FULL_SESSION": "true", "KDE_SESSION_VERSION": "5",
            "KWIN_COMPOSE": self.composing}
        self.room.write("config/kwinrc", "[Desktops]\nNumber=2\nRows=1\n")

    def await_own_picture(self):
        prepare(lambda: is_ready(self.room), "plasmashell", 60)
        run_script(self.room, OWN_PICTURE.format(picture=self.room.desktop_picture()))
        prepare(lambda: all(self.at(*place) == DESKTOP for place in self.spots()),
                "the desktop's own picture")
