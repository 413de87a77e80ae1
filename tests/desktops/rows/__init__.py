# SPDX-License-Identifier: MIT
"""The desktops, one a file: how it is started, and what it can't do."""
import importlib

ROWS = ["no_manager", "openbox", "openbox_picom", "xfwm4_xfdesktop",
        "xfwm4_xfdesktop_scaled", "xfwm4_xfdesktop_uncomposited", "marco_caja", "marco_caja_scaled",
        "mutter", "muffin_nemo", "openbox_pcmanfm", "openbox_pcmanfm_qt", "i3", "fluxbox", "icewm",
        "awesome", "kwin_plasma", "kwin_plasma_uncomposited", "kwin_plasma_pictures", "sway",
        "sway_scaled", "kwin_wayland_plasma", "kwin_wayland_plasma_scaled",
        "kwin_wayland_plasma_pictures", "gnome_shell_ding"]
QUICK = ["openbox", "xfwm4_xfdesktop", "marco_caja", "i3", "sway"]


def row(name):
    """The class of a row."""
    return importlib.import_module(f"rows.{name}").Row
