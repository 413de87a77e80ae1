# SPDX-License-Identifier: MIT
"""On which desktops a check finds nothing to look at, beside what a row names in its `limits`. One
that finds nothing anywhere else has failed: it would pass whatever the program did."""

LACKING = {
    "no_manager": {"icons", "show_desktop", "manager_killed", "desktop_program"},
    "openbox": {"icons", "desktop_program"},
    "openbox_picom": {"icons", "desktop_program"},
    "mutter": {"icons", "desktop_program"},
    "i3": {"icons", "show_desktop", "desktop_program"},
    "fluxbox": {"icons", "show_desktop", "manager_replaced", "desktop_program"},
    "icewm": {"icons", "desktop_program"},
    "awesome": {"icons", "show_desktop", "desktop_program"},
    "sway": {"icons", "show_desktop", "manager_killed"},
    "sway_scaled": {"icons", "show_desktop", "manager_killed"},
    "gnome_shell_ding": {"resolution", "manager_replaced", "manager_killed"},
}


def may_lack(desk, check):
    """Whether nothing to look at is what is expected."""
    return check in desk.limits or check in LACKING.get(desk.name, ())
