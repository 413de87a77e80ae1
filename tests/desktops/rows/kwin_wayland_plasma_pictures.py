# SPDX-License-Identifier: MIT
from displays.plasma_pictures import PlasmaPictures
from rows import kwin_wayland_plasma


class Row(PlasmaPictures, kwin_wayland_plasma.Row):
    name = "kwin_wayland_plasma_pictures"
    title = "Plasma on Wayland with our wallpaper: kwin_wayland + plasmashell"
    limits = kwin_wayland_plasma.Row.limits | PlasmaPictures.limits
