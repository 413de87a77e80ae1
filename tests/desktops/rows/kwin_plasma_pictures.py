# SPDX-License-Identifier: MIT
from displays.plasma_pictures import PlasmaPictures
from rows import kwin_plasma


class Row(PlasmaPictures, kwin_plasma.Row):
    name = "kwin_plasma_pictures"
    title = "Plasma on X11 with our wallpaper: kwin_x11 + plasmashell"
    limits = kwin_plasma.Row.limits | PlasmaPictures.limits
