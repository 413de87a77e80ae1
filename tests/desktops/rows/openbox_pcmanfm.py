# SPDX-License-Identifier: MIT
from displays.x11_desk import X11Desk


class Row(X11Desk):
    name = "openbox_pcmanfm"
    title = "LXDE: openbox + pcmanfm"
    packages = ["openbox", "pcmanfm"]
    needs = ["openbox", "pcmanfm"]
    manager = ("openbox", "--sm-disable")
    replacement = ("openbox", "--sm-disable", "--replace")
    desktop_program = ("pcmanfm", "--desktop", "--profile", "LXDE")
    has_icons = True
    icons_on_two_displays = False  # see the limits of LXDE
    menu_button = 3

    def furnish(self):
        self.room.environment["XDG_CURRENT_DESKTOP"] = "LXDE"
        for monitor in (0, 1):
            self.room.write(f"config/pcmanfm/LXDE/desktop-items-{monitor}.conf",
                            "[*]\nwallpaper_mode=stretch\nwallpaper_common=1\n"
                            f"wallpaper={self.room.desktop_picture()}\n")
