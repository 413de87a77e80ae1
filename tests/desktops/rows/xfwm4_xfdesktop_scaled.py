# SPDX-License-Identifier: MIT
from rows import xfwm4_xfdesktop


class Row(xfwm4_xfdesktop.Row):
    name = "xfwm4_xfdesktop_scaled"
    title = "Xfce at scale 2: xfwm4 + xfdesktop, composited"
    scale = 2
