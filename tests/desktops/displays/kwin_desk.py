# SPDX-License-Identifier: MIT
"""Plasma on Wayland: kwin_wayland in windows of a private X display, one an output, which are looked
at instead of it. As in every session of Plasma its wrapper keeps the sockets and starts it."""
import os
import re
import shutil
import signal
from pathlib import Path

from base.outcome import NotApplicable
from base.picture import DESKTOP
from base.waiting import prepare
from .desk import Desk
from .layer_surfaces import take_clicks
from .plasma import OWN_PICTURE, is_ready, run_script
from .shown_desktop import ShownDesktop
from .toolkit_window import ToolkitWindow
from .x11 import X11
from .xorg import Xorg

SIZE = (1280, 800)
OUT_OF_SIGHT = 8000  # further right than any mode reaches
RULES = """[General]
count=1
rules=sample

[sample]
Description=sample
wmclass=sample
wmclassmatch=1
position=300,200
positionrule=3
size=260,180
sizerule=3
noborder=true
noborderrule=2
"""


class KWinDesk(Desk):
    session = "Wayland"
    has_icons = True
    panel_edges = ("bottom",)
    windows_outlive_manager = False
    program_environment = {"WAYLAND_DEBUG": "client"}

    def open(self):
        self.room.put_on_desktop()
        self.xorg = Xorg(self.room)
        self.x11 = X11(self.room)
        outer = self.room.environment.pop("DISPLAY")
        self.room.environment |= {
            "XDG_CURRENT_DESKTOP": "KDE", "KDE_FULL_SESSION": "true", "KDE_SESSION_VERSION": "5",
            "XDG_SESSION_TYPE": "wayland", "WAYLAND_DISPLAY": "wayland-0",
            "QT_QPA_PLATFORM": "wayland"}
        self.room.write("config/kwinrc", "[Desktops]\nNumber=2\nRows=1\n")
        self.room.write("config/kwinrulesrc", RULES)
        self.room.start_bus()
        # With the capabilities of its file it may not run in a sandbox; a copy has none.
        folder = self.room.folder / "kwin"
        folder.mkdir()
        shutil.copy(shutil.which("kwin_wayland"), folder / "kwin_wayland")
        self.wrapper = self.room.start(
            "kwin_wayland_wrapper", "--x11-display", outer, "--width", SIZE[0], "--height", SIZE[1],
            "--output-count", 2, "--no-lockscreen", "--no-global-shortcuts", "--xwayland",
            extra={"DISPLAY": outer, "QT_QPA_PLATFORM": "",
                   "PATH": f"{folder}:{self.room.environment['PATH']}"})
        self.outer = outer
        prepare((self.room.folder / "runtime/wayland-0").exists, "kwin_wayland")
        self.set_up_outputs()
        self.start_desktop_program()

    def set_up_outputs(self):
        """The first is on, the second is plugged in later."""
        self.windows = prepare(self.find_windows, "the windows of kwin_wayland")
        self.place(self.windows[0], 0)
        self.place(self.windows[1], OUT_OF_SIGHT)
        self.is_second_on = False
        self.set_outputs("output.2.disable", f"output.1.scale.{self.scale}")

    def find_windows(self):
        """That of each output, which no manager has placed."""
        found = [window for window in self.x11.children(self.x11.root)
                 if self.x11.is_viewable(window) and window.get_geometry().width == SIZE[0]]
        return sorted(found, key=lambda window: window.id) if len(found) == 2 else None

    def place(self, window, x):
        window.configure(x=x, y=0)
        self.x11.connection.sync()

    def set_outputs(self, *changes):
        """Until KWin tells that it has."""
        def is_done():
            told = re.sub(r"\x1b\[[0-9;]*m", "", self.room.ask("kscreen-doctor", "-o"))
            second = "enabled" if self.is_second_on else "disabled"
            return (f"X11-1 {second}" in told
                    and re.search(rf"X11-0 enabled.* Scale: {self.scale:g} ", told))

        prepare(lambda: self.room.ask("kscreen-doctor", *changes) is not None and is_done(),
                f"the outputs after {' '.join(changes)}", pause=1)

    def start_desktop_program(self):
        self.desktop_process = self.room.start("plasmashell", "--no-respawn")
        prepare(lambda: is_ready(self.room), "plasmashell", 60)
        run_script(self.room, OWN_PICTURE.format(picture=self.room.desktop_picture()))
        prepare(lambda: all(self.at(*place) == DESKTOP for place in self.spots()),
                "the desktop's own picture")
        prepare(self.icons, "icons")

    def restart_desktop_program(self):
        self.room.stop(self.desktop_process)
        self.start_again()

    def start_again(self):
        self.desktop_process = self.room.start("plasmashell", "--no-respawn")
        prepare(lambda: is_ready(self.room), "plasmashell", 60)

    # Desk

    def picture(self):
        return self.x11.picture()

    def screens(self):
        areas = [window.get_geometry() for window in self.windows[:1 + self.is_second_on]]
        return [(area.x, area.y, area.width, area.height) for area in areas]

    def set_mode(self, width, height):
        self.xorg.set_mode(width, height)
        self.windows[0].configure(width=width, height=height)
        prepare(lambda: (width, height) == self.screens()[0][2:], f"{width} by {height}")

    def add_screen(self):
        self.is_second_on = True
        self.xorg.add_second(*SIZE)
        self.place(self.windows[1], SIZE[0])
        self.set_outputs("output.2.enable", f"output.2.position.{round(SIZE[0] / self.scale)},0")

    def remove_screen(self):
        self.is_second_on = False
        self.set_outputs("output.2.disable")
        self.place(self.windows[1], OUT_OF_SIGHT)
        self.xorg.remove_second()

    def tidy(self):
        if self.is_second_on:
            self.remove_screen()
        super().tidy()

    def click(self, x, y, button=1):
        self.room.ask("xdotool", "mousemove", int(x), int(y), "click", button,
                      extra={"DISPLAY": self.outer})

    def takes_clicks_at(self, x, y):
        self.click(x, y)
        ours = take_clicks(self.tavi.log())
        if ours is None:
            raise NotApplicable("the program has no surface of its own here")
        return ["what lies beneath, since it takes input nowhere"], ours

    def show_window(self, area, colour, full_screen=False):
        window = ToolkitWindow(self.room, (300, 200, 260, 180), colour, full_screen)
        prepare(lambda: self.at(*window.centre()) == colour, "a window")
        return window

    def own_panel(self):
        return self.lengths(44)[0]

    def workspace(self):
        return int(self.ask_kwin("org.kde.KWin.currentDesktop") or 1) - 1

    def go_to_workspace(self, number):
        self.ask_kwin("org.kde.KWin.setCurrentDesktop", number + 1)
        prepare(lambda: self.workspace() == number, f"workspace {number + 1}")

    def ask_kwin(self, method, *words):
        answer = self.room.ask("gdbus", "call", "--session", "-d", "org.kde.KWin", "-o", "/KWin",
                               "-m", method, *words)
        return answer.strip("(,)\n ")

    def show_desktop(self, on):
        if on:
            self.shown_desktop = ShownDesktop(self.room)
        else:
            self.shown_desktop.close()

    def managers(self):
        """The processes of KWin."""
        pid = self.wrapper.pid
        return Path(f"/proc/{pid}/task/{pid}/children").read_text().split()

    def kill_manager(self):
        """It takes all windows with it, and its wrapper starts it anew at once."""
        killed = self.managers()
        for pid in killed:
            os.kill(int(pid), signal.SIGKILL)
        self.room.stop(self.desktop_process)
        prepare(lambda: self.managers() and not set(killed) & set(self.managers()),
                "another kwin_wayland")
        self.set_up_outputs()
        return self.start_again

    def replace_manager(self):
        """It reads its settings anew."""
        self.ask_kwin("org.kde.KWin.reconfigure")
