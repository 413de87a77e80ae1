# SPDX-License-Identifier: MIT
from rows import kwin_plasma


class Row(kwin_plasma.Row):
    name = "kwin_plasma_uncomposited"
    title = "Plasma on X11: kwin_x11 + plasmashell, not composited"
    composing = "N"
