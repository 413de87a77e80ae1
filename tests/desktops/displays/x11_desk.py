# SPDX-License-Identifier: MIT
"""Desktops on X11: a window manager, perhaps a program for the desktop, perhaps a panel."""
import signal

from base.outcome import NotApplicable
from base.waiting import expect, prepare, wait_until
from base.picture import DESKTOP, PANEL
from .desk import Desk
from .x11 import X11, OpenedWindow
from .xorg import Xorg


class X11Desk(Desk):
    session = "X11"
    manager = ()           # its command; empty: none
    replacement = ()       # the command that takes the place of a running one
    desktop_program = ()   # its command; empty: none
    has_workspaces = True
    root_is_bare = True    # without a desktop program: no panel, no picture of the manager's own
    menu_button = None     # of the pointer, that opens a menu over the empty desktop
    can_mirror = True

    def open(self):
        self.room.put_on_desktop()
        self.xorg = Xorg(self.room)
        self.x11 = X11(self.room)
        self.set_scale()
        self.furnish()
        self.room.start_bus()  # what it starts knows the display
        self.start_manager()
        self.x11.paint_root()
        if self.desktop_program:
            self.start_desktop_program()

    def set_scale(self):
        """For all programs, and for those of GTK, whose text is not to be enlarged twice."""
        if self.scale > 1:
            self.xorg.set_mode(*self.lengths(1280, 800))
            self.x11.set_resources(f"Xft.dpi:\t{96 * self.scale}\n")
            self.room.environment |= {"GDK_SCALE": str(self.scale),
                                      "GDK_DPI_SCALE": str(1 / self.scale)}

    def furnish(self):
        """Settings that have to be there before the manager starts."""

    def start_manager(self):
        self.manager_process = None
        if self.manager:
            self.manager_process = self.room.start(*self.manager)
            self.x11.await_manager()

    def start_desktop_program(self):
        self.desktop_process = self.room.start(*self.desktop_program)
        prepare(self.x11.windows_of_other_desktops, "the desktop program", 60)
        if self.has_icons:
            prepare(self.icons, "icons", 60)
        self.await_own_picture()

    def await_own_picture(self):
        """The loud one of the settings."""
        prepare(lambda: all(self.at(*place) == DESKTOP for place in self.spots()),
                "the desktop's own picture")

    def set_setting(self, schema, key, value):
        self.room.ask("gsettings", "set", schema, key, value)

    # Desk

    def shows_nothing_else(self):
        if self.desktop_program or not self.root_is_bare:
            return True
        picture = self.picture()
        return picture.count(DESKTOP) == len(picture.pixels)

    def picture(self):
        return self.x11.picture()

    def screens(self):
        return self.xorg.screens()

    def click(self, x, y, button=1):
        self.x11.click(x, y, button)

    def opens_menu(self, x, y):
        if not self.menu_button:
            return None
        before = self.x11.menus()
        self.click(x, y, self.menu_button)
        opened = bool(wait_until(lambda: self.x11.menus() > before, 5))
        self.x11.press("Escape")
        wait_until(lambda: self.x11.menus() <= before, 5)
        return opened

    def switch_window(self):
        before = self.x11.menus()
        self.room.ask("xdotool", "keydown", "alt", "key", "Tab")
        # A switcher that comes up after the key is let go waits for that for ever.
        wait_until(lambda: self.x11.menus() != before, 0.5)
        self.room.ask("xdotool", "keyup", "alt")

    def focus_is_ours(self):
        return any(self.x11.holds_ours(window) for window in self.x11.focused())

    def takes_clicks_at(self, x, y):
        chain = self.x11.under_pointer(x, y)
        return self.x11.names_under_pointer(x, y), any(self.x11.holds_ours(one) for one in chain)

    def show_window(self, area, colour, full_screen=False):
        window = OpenedWindow(self.x11, area, colour, full_screen=full_screen)
        expect(window.is_viewable, "a window of another program did not come up")
        return window

    def own_panel(self):
        if "bottom" not in self.panel_edges:
            return None
        return max(window.get_geometry().height for window in self.x11.windows_of_type("DOCK"))

    def show_panel(self, height):
        x, y, width, tall = self.screens()[0]
        strut = [0, 0, 0, height] + [0] * 6 + [x, x + width - 1]
        panel = OpenedWindow(self.x11, (x, y + tall - height, width, height), PANEL, dock=strut)
        self.opened.append(panel)
        expect(lambda: panel.is_viewable() and panel.area()[1] + height <= y + tall,
               lambda: f"the panel did not come up at its place, but at {panel.area()}")
        return panel

    def workspace(self):
        if not self.has_workspaces:
            raise NotApplicable("it has no workspaces")
        return self.x11.number("_NET_CURRENT_DESKTOP") or 0

    def go_to_workspace(self, number):
        self.x11.go_to_workspace(number)
        prepare(lambda: self.workspace() == number, f"workspace {number + 1}")

    def set_mode(self, width, height):
        self.xorg.set_mode(width, height)

    def add_screen(self):
        self.xorg.add_second()
        prepare(lambda: len(self.screens()) == 2, "the second display")

    def add_mirror(self):
        self.xorg.add_second(*self.screens()[0][2:], place="--same-as")

    def remove_screen(self):
        self.xorg.remove_second()
        prepare(lambda: len(self.screens()) == 1, "one display")

    def show_desktop(self, on):
        if not self.manager or not self.x11.supports("_NET_SHOWING_DESKTOP"):
            raise NotApplicable("its manager has no such command")
        self.x11.show_desktop(on)

    def replace_manager(self):
        if not self.replacement:
            super().replace_manager()
        old, check = self.manager_process, self.x11.number("_NET_SUPPORTING_WM_CHECK")
        self.manager_process = self.room.start(*self.replacement)
        prepare(lambda: self.x11.number("_NET_SUPPORTING_WM_CHECK") != check, "the new manager")
        wait_until(lambda: old.poll() is not None)
        self.x11.await_manager()

    def kill_manager(self):
        """Without a chance to leave; answers the function that brings it back."""
        if not self.manager:
            raise NotApplicable("there is none")
        self.room.stop(self.manager_process, (signal.SIGKILL,))
        prepare(lambda: not self.x11.is_managed(), "a display without a manager")
        return self.start_manager

    def restart_desktop_program(self):
        if not self.desktop_program:
            super().restart_desktop_program()
        self.room.stop(self.desktop_process, (signal.SIGKILL,))
        prepare(lambda: not self.x11.windows_of_other_desktops(), "a desktop without its program")
        self.desktop_process = self.room.start(*self.desktop_program)
        prepare(self.x11.windows_of_other_desktops, "the desktop program", 60)

    def tidy(self):
        if len(self.screens()) > 1:
            self.remove_screen()
        # Programs that make their windows anew have none for a moment.
        if self.desktop_program and not wait_until(self.x11.windows_of_other_desktops, 5):
            # One that was refused by a check must not spoil the next one.
            self.end_program()
            self.room.stop(self.desktop_process)
            self.start_desktop_program()
        super().tidy()
