# SPDX-License-Identifier: MIT
from displays.x11_desk import X11Desk


class Row(X11Desk):
    name = "openbox_pcmanfm_qt"
    title = "LXQt: openbox + pcmanfm-qt"
    packages = ["openbox", "pcmanfm-qt"]
    needs = ["openbox", "pcmanfm-qt"]
    manager = ("openbox", "--sm-disable")
    replacement = ("openbox", "--sm-disable", "--replace")
    desktop_program = ("pcmanfm-qt", "--desktop", "--profile", "lxqt")
    has_icons = True
    menu_button = 3

    def furnish(self):
        self.room.environment["XDG_CURRENT_DESKTOP"] = "LXQt"
        self.room.write("config/pcmanfm-qt/lxqt/settings.conf",
                        "[Desktop]\nWallpaperMode=stretch\n"
                        f"Wallpaper={self.room.desktop_picture()}\n")
