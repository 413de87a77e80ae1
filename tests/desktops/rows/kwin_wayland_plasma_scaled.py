# SPDX-License-Identifier: MIT
from rows import kwin_wayland_plasma


class Row(kwin_wayland_plasma.Row):
    name = "kwin_wayland_plasma_scaled"
    title = "Plasma on Wayland at scale 1.25: kwin_wayland + plasmashell"
    scale = 1.25
