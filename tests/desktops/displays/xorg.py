# SPDX-License-Identifier: MIT
"""An X server whose outputs can be plugged and turned: Xorg with the dummy driver."""
import os
import re

from base.outcome import NotReady
from base.waiting import prepare

CONFIGURATION = """
Section "ServerFlags"
    Option "AutoAddDevices" "false"
    Option "AutoEnableDevices" "false"
    Option "AllowMouseOpenFail" "true"
    Option "DontVTSwitch" "true"
EndSection
Section "Device"
    Identifier "dummy"
    Driver "dummy"
    VideoRam 96000
EndSection
Section "Monitor"
    Identifier "monitor"
    HorizSync 5-1000
    VertRefresh 5-200
EndSection
Section "Screen"
    Identifier "screen"
    Device "dummy"
    Monitor "monitor"
    DefaultDepth 24
    SubSection "Display"
        Depth 24
        Modes "1280x800"
        Virtual 4096 2304
    EndSubSection
EndSection
"""
FIRST = "DUMMY0"
SECOND = "DUMMY1"


class Xorg:
    """Sets DISPLAY of the room."""

    def __init__(self, room):
        self.room = room
        self.second_modes = set()
        configuration = room.write("xorg.conf", CONFIGURATION)
        read, write = os.pipe()
        self.process = room.start(
            "/usr/lib/xorg/Xorg", "-displayfd", write, "-config", configuration.name,
            "-logfile", room.folder / "xorg-server.log", "-novtswitch", "-sharevts", "-keeptty",
            "-noreset", "-ac", "-nolisten", "tcp", pass_fds=[write])
        os.close(write)
        with os.fdopen(read) as number:
            display = number.readline().strip()
        if not display:
            raise NotReady("Xorg with the dummy driver: see xorg-server.log")
        self.display = room.environment["DISPLAY"] = ":" + display

    def xrandr(self, *words):
        return self.room.ask("xrandr", *words, extra={"DISPLAY": self.display})

    def screens(self):
        """The distinct rectangles (x, y, width, height) that outputs show, left ones first."""
        return sorted(set(self.shown()))

    def shown(self):
        """What each output shows."""
        shown = re.findall(r" connected (?:primary )?(\d+)x(\d+)\+(\d+)\+(\d+)"
                           r"|disconnected (?:primary )?(\d+)x(\d+)\+(\d+)\+(\d+)",
                           self.xrandr("--query"))
        numbers = [[int(word) for word in found if word] for found in shown]
        return [(x, y, width, height) for width, height, x, y in numbers]

    def mode(self, output, width, height):
        """The name of one of that size, which `output` has from then on."""
        name = f"{width}x{height}"
        if f" {name} " not in self.xrandr("--query"):
            clock = width * height * 60 / 1e6
            self.xrandr("--newmode", name, clock, *4 * [width], *4 * [height])
        self.xrandr("--addmode", output, name)
        if output == SECOND:
            self.second_modes.add(name)
        return name

    def set_mode(self, width, height):
        self.xrandr("--output", FIRST, "--mode", self.mode(FIRST, width, height))
        prepare(lambda: (width, height) == self.screens()[0][2:], f"{width}x{height}")

    def add_second(self, width=1280, height=720, place="--right-of"):
        """`place` is one of xrandr's, such as --same-as."""
        self.xrandr("--output", SECOND, "--mode", self.mode(SECOND, width, height), place, FIRST)
        prepare(lambda: len(self.shown()) == 2, "a second output")

    def remove_second(self):
        """With its modes: managers that start turn on an output that has any."""
        self.xrandr("--output", SECOND, "--off")
        for name in self.second_modes:
            self.xrandr("--delmode", SECOND, name)
        self.second_modes.clear()
