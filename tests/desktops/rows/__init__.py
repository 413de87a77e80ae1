# SPDX-License-Identifier: MIT
"""The desktops, one a file: how it is started, and what it can't do."""
import importlib

ROWS = ["openbox", "xfwm4_xfdesktop", "xfwm4_xfdesktop_uncomposited", "i3"]
QUICK = ["openbox", "xfwm4_xfdesktop", "i3"]


def row(name):
    """The class of a row."""
    return importlib.import_module(f"rows.{name}").Row
