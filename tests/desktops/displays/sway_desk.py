# SPDX-License-Identifier: MIT
"""Sway without a monitor: its outputs are made and turned by its own commands."""
import json
import subprocess

from base.outcome import NotApplicable
from base.picture import DESKTOP, PANEL, Picture
from base.waiting import expect, prepare
from .bar import Bar
from .desk import Desk
from .layer_surfaces import take_clicks
from .toolkit_window import ToolkitWindow

FIRST = "HEADLESS-1"
CONFIGURATION = """
output {first} mode --custom {width}x{height} scale {scale} position 0 0
default_border none
default_floating_border none
for_window [app_id="sample"] floating enable
workspace 1 output {first}
bar {{
    id bar
    mode invisible
    workspace_buttons no
    height 60
    colors {{
        background #{panel:06X}
    }}
}}
"""


class SwayDesk(Desk):
    session = "Wayland"
    desktop_program = ()   # its command; empty: none
    output_scale = 1       # pixels in a point, in which all places and sizes are
    program_environment = {"WAYLAND_DEBUG": "client"}

    def open(self):
        self.room.start_bus()
        self.room.put_on_desktop()
        width, height = self.pixels(1280, 800)
        self.room.write("sway.config", CONFIGURATION.format(
            first=FIRST, width=width, height=height, scale=self.output_scale, panel=PANEL))
        self.room.environment |= {
            "WLR_BACKENDS": "headless", "WLR_LIBINPUT_NO_DEVICES": "1", "WLR_RENDERER": "pixman",
            "XDG_SESSION_TYPE": "wayland", "XDG_CURRENT_DESKTOP": "sway"}
        self.room.start("sway", "-c", "sway.config")
        runtime = self.room.folder / "runtime"
        sockets = prepare(lambda: [*runtime.glob("sway-ipc.*.sock")] if [
            one for one in runtime.glob("wayland-*") if one.suffix != ".lock"] else None, "sway")
        displays = [one.name for one in runtime.glob("wayland-*") if one.suffix != ".lock"]
        self.room.environment |= {"SWAYSOCK": str(sockets[0]), "WAYLAND_DISPLAY": displays[0]}
        prepare(self.screens, "an output")
        if self.desktop_program:
            self.start_desktop_program()

    def start_desktop_program(self):
        self.desktop_process = self.room.start(*self.desktop_program)
        prepare(lambda: all(self.at(*place) == DESKTOP for place in self.spots()),
                "the desktop's own picture")

    def pixels(self, *points):
        return [round(one * self.output_scale) for one in points]

    def command(self, *words):
        return self.room.ask("swaymsg", "--", *words)

    def asked(self, kind):
        return json.loads(self.room.ask("swaymsg", "-r", "-t", kind) or "[]")

    # Desk

    def picture(self):
        done = subprocess.run(["grim", "-s", "1", "-t", "ppm", "-"], env=self.room.environment,
                              check=True, capture_output=True, timeout=20)
        return Picture.of_ppm(done.stdout)

    def screens(self):
        return sorted(tuple(output["rect"][key] for key in ("x", "y", "width", "height"))
                      for output in self.asked("get_outputs") if output["active"])

    def click(self, x, y, button=1):
        self.command("seat", "-", "cursor", "set", int(x), int(y))
        for action in ("press", "release"):
            self.command("seat", "-", "cursor", action, f"button{button}")

    def takes_clicks_at(self, x, y):
        self.click(x, y)
        ours = take_clicks(self.tavi.log())
        if ours is None:
            raise NotApplicable("the program has no surface of its own here")
        return ["what lies beneath, since it takes input nowhere"], ours

    def switch_window(self):
        self.command("focus", "next")

    def focus_is_ours(self):
        def focused(node):
            return node if node.get("focused") else next(filter(None, (
                focused(one) for one in node["nodes"] + node["floating_nodes"])), None)

        found = focused(self.asked("get_tree")) or {}
        names = (found.get("app_id"), (found.get("window_properties") or {}).get("class"))
        return any("tavi" in (name or "").lower() for name in names)

    def show_window(self, area, colour, full_screen=False):
        window = ToolkitWindow(self.room, area, colour)
        prepare(lambda: any(one == window.pid for one in self.window_processes()), "a window")
        x, y, width, height = area
        if full_screen:
            self.command(f"[pid={window.pid}]", "fullscreen", "enable")
        else:
            self.command(f"[pid={window.pid}]", "resize", "set", width, height, ",",
                         "move", "absolute", "position", x, y)
        return window

    def window_processes(self):
        def visit(node):
            return [node.get("pid")] + [pid for one in node["nodes"] + node["floating_nodes"]
                                        for pid in visit(one)]

        return visit(self.asked("get_tree"))

    def show_panel(self, height):
        bar = Bar(self, "swaymsg")
        self.opened.append(bar)
        expect(bar.is_shown, "its bar is not on the screen")
        return bar

    def workspace(self):
        return next((one["num"] - 1 for one in self.asked("get_workspaces") if one["focused"]), 0)

    def go_to_workspace(self, number):
        self.command("workspace", "number", number + 1)
        prepare(lambda: self.workspace() == number, f"workspace {number + 1}")

    def set_mode(self, width, height):
        across, down = self.pixels(width, height)
        self.command("output", FIRST, "mode", "--custom", f"{across}x{down}")
        prepare(lambda: (width, height) == self.screens()[0][2:], f"{width} by {height}")

    def turn(self, is_on_its_side):
        self.command("output", FIRST, "transform", "90" if is_on_its_side else "normal")

    def add_screen(self):
        self.command("create_output")
        prepare(lambda: len(self.screens()) == 2, "the second display")

    def remove_screen(self):
        raise NotApplicable("an output without a monitor can't be taken away again")

    def replace_manager(self):
        """It reads its settings anew, which takes away and brings back much of it."""
        self.command("reload")

    def restart_desktop_program(self):
        if not self.desktop_program:
            super().restart_desktop_program()
        self.room.stop(self.desktop_process)
        self.desktop_process = self.room.start(*self.desktop_program)
