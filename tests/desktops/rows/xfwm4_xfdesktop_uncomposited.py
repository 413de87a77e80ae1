# SPDX-License-Identifier: MIT
from rows import xfwm4_xfdesktop


class Row(xfwm4_xfdesktop.Row):
    name = "xfwm4_xfdesktop_uncomposited"
    title = "Xfce: xfwm4 + xfdesktop, not composited"
    composited = "false"
