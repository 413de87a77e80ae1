# SPDX-License-Identifier: MIT
from displays.sway_desk import SwayDesk


class Row(SwayDesk):
    name = "sway"
    title = "sway + swaybg"
    packages = ["sway", "swaybg"]
    needs = ["sway", "swaybg", "grim"]
    desktop_program = ("swaybg", "-c", "#FF00FF")
