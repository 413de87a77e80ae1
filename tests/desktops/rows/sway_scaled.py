# SPDX-License-Identifier: MIT
from rows import sway


class Row(sway.Row):
    name = "sway_scaled"
    title = "sway + swaybg at scale 1.5"
    output_scale = 1.5
