# SPDX-License-Identifier: MIT
from base.picture import PANEL
from base.waiting import expect
from displays.bar import Bar
from displays.x11_desk import X11Desk

CONFIGURATION = f"""# i3 config file (v4)
font pango:monospace 8
workspace 1 output DUMMY0
floating_minimum_size 1 x 1
for_window [class="Sample"] floating enable
bar {{
    id bar
    mode invisible
    workspace_buttons no
    font pango:monospace 24
    colors {{
        background #{PANEL:06X}
    }}
}}
"""


class Row(X11Desk):
    name = "i3"
    title = "i3"
    packages = ["i3-wm"]
    needs = ["i3", "i3bar"]
    manager = ("i3", "-c", "i3.config")
    replacement = ("i3", "-c", "i3.config", "--replace")

    def furnish(self):
        self.room.write("i3.config", CONFIGURATION)

    def show_panel(self, height):
        bar = Bar(self, "i3-msg")
        self.opened.append(bar)
        expect(bar.is_shown, "its bar is not on the screen")
        return bar

    def go_to_workspace(self, number):
        """It makes and removes workspaces as people go there, so it is asked by name."""
        self.room.ask("i3-msg", "workspace", "number", number + 1)

    def workspace(self):
        names = self.x11.property(self.x11.root, "_NET_DESKTOP_NAMES")
        current = self.x11.number("_NET_CURRENT_DESKTOP") or 0
        listed = (names.decode() if isinstance(names, bytes) else names or "1").split("\0")
        return int(listed[current]) - 1 if current < len(listed) else 0
