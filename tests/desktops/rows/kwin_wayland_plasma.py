# SPDX-License-Identifier: MIT
from displays.kwin_desk import KWinDesk


class Row(KWinDesk):
    name = "kwin_wayland_plasma"
    title = "Plasma on Wayland: kwin_wayland + plasmashell"
    packages = ["kwin-wayland", "plasma-workspace", "plasma-desktop"]
    needs = ["kwin_wayland", "kwin_wayland_wrapper", "plasmashell", "kscreen-doctor"]
    limits = {"focus": "its window switcher can't be called from outside"}
