# SPDX-License-Identifier: MIT
import os
from collections import Counter

from Xlib.ext import shape

from base.outcome import NotApplicable
from base.picture import DESKTOP
from base.waiting import expect, prepare
from displays.desk import Desk
from displays.gnome_shell import GnomeShell
from displays.toolkit_window import ToolkitWindow
from displays.x11 import X11

ICONS = "ding@rastersoft.com"
SETTINGS = [
    ("org.gnome.shell", "enabled-extensions", f"['{ICONS}']"),
    ("org.gnome.shell", "welcome-dialog-last-shown-version", "99"),
    ("org.gnome.desktop.interface", "enable-hot-corners", "false"),
    ("org.gnome.desktop.interface", "enable-animations", "false"),
    ("org.gnome.desktop.background", "picture-options", "none"),
    ("org.gnome.desktop.background", "primary-color", f"#{DESKTOP:06X}"),
    ("org.gnome.desktop.background", "color-shading-type", "solid"),
    ("org.gnome.mutter", "dynamic-workspaces", "false"),
    ("org.gnome.desktop.wm.preferences", "num-workspaces", "4"),
]


class Row(Desk):
    name = "gnome_shell_ding"
    title = "GNOME on Wayland with desktop icons"
    session = "Wayland"
    packages = ["gnome-shell", "gnome-shell-extension-desktop-icons-ng"]
    needs = ["gnome-shell", "gjs", "Xwayland"]
    has_icons = True
    panel_edges = ("top",)
    limits = {"panel": "its panel is at the upper edge, and it takes no others",
              "resolution": "monitors that are not there keep theirs"}

    def open(self):
        self.room.put_on_desktop()
        self.room.environment |= {"XDG_CURRENT_DESKTOP": "GNOME", "XDG_SESSION_TYPE": "wayland"}
        for schema, key, value in SETTINGS:
            self.room.ask("gsettings", "set", schema, key, value)
        self.shell = GnomeShell(self.room)
        os.environ["XAUTHORITY"] = self.room.environment["XAUTHORITY"]
        self.x11 = X11(self.room)
        prepare(lambda: all(self.at(*place) == DESKTOP for place in self.spots()),
                "the desktop's own picture")
        self.icon_colour = prepare(self.colour_of_icon, "icons")

    def colour_of_icon(self):
        """That of the most pixels where the icons lie: a launcher that nobody has trusted yet is
        shown in greyish tones."""
        picture = self.picture()
        colours = Counter(colour for y in range(40, 400) for colour in picture.row(y)[:200])
        del colours[DESKTOP]
        colour, pixels = colours.most_common(1)[0] if colours else (None, 0)
        return colour if pixels > 800 else None

    def picture(self):
        return self.shell.picture()

    def screens(self):
        return self.shell.screens

    def turn(self, is_on_its_side):
        self.shell.arrange(is_on_its_side)

    def add_screen(self):
        """It is there from the start, so it has to go before."""
        self.remove_screen()
        prepare(self.shows_wallpaper, "the wallpaper on one display")
        self.shell.arrange()

    def remove_screen(self):
        self.shell.arrange(has_second=False)

    def tidy(self):
        self.shell.arrange()
        super().tidy()

    def click(self, x, y, button=1):
        self.shell.click(x, y, button)

    def switch_window(self):
        self.shell.press("Alt", "Tab")

    def focus_is_ours(self):
        return any(self.x11.holds_ours(window) for window in self.x11.focused())

    def takes_clicks_at(self, x, y):
        self.click(x, y)
        taking = [window for window in self.x11.children(self.x11.root)
                  if self.x11.is_ours(window) and self.x11.is_viewable(window)
                  and window.shape_get_rectangles(shape.SK.Input).rectangles]
        return [self.x11.class_of(one) for one in taking] or ["what lies beneath"], bool(taking)

    def show_window(self, area, colour, full_screen=False):
        window = ToolkitWindow(self.room, area, colour, full_screen)
        self.opened.append(window)
        left, top, right, bottom = expect(lambda: self.picture().places_of(colour),
                                          "a window of another program did not come up")
        window.wanted = left, top, right + 1 - left, bottom + 1 - top
        return window

    def workspace(self):
        return self.x11.number("_NET_CURRENT_DESKTOP") or 0

    def go_to_workspace(self, number):
        self.x11.go_to_workspace(number)
        prepare(lambda: self.workspace() == number, f"workspace {number + 1}")

    def show_desktop(self, on):
        if not self.x11.supports("_NET_SHOWING_DESKTOP"):
            raise NotApplicable("it has no such command")
        self.x11.show_desktop(on)

    def restart_desktop_program(self):
        """The icons are an extension of the shell."""
        self.room.ask("gnome-extensions", "disable", ICONS)
        prepare(lambda: not self.icons(), "a desktop without icons")
        self.room.ask("gnome-extensions", "enable", ICONS)
        prepare(self.icons, "icons")
