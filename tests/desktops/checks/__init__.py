# SPDX-License-Identifier: MIT
"""What has to hold on every desktop, one rule a file.

A check is a module with TITLE (the head of its column), RULE (a sentence) and `check(desk)`, which
returns, perhaps with a remark, or raises Failed or NotApplicable. It finds the program running with
the wallpaper on the screen, and may leave windows open.
"""
import importlib

# In the order in which they run: the last ones end the program.
NAMES = ["start", "icons", "geometry", "stacking", "click", "quick_clicks", "focus", "workspaces",
         "chosen_workspaces", "full_screen", "show_desktop", "panel", "resolution",
         "turned_display", "second_display", "manager_replaced", "manager_killed",
         "desktop_program", "quit", "killed"]


def checks():
    """Names and modules."""
    return [(name, importlib.import_module(f"checks.{name}")) for name in NAMES]
