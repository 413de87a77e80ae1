# SPDX-License-Identifier: MIT
from rows import sway


class Row(sway.Row):
    name = "sway_scaled"
    title = "sway + swaybg at scale 1.5"
    scale = 1.5
