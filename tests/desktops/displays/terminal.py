# SPDX-License-Identifier: MIT
import signal


class Terminal:
    """A window of one colour on Wayland."""

    def __init__(self, room, area, colour):
        self.room, self.wanted = room, area
        self.process = room.start(
            "foot", "--app-id=sample", f"--window-size-pixels={area[2]}x{area[3]}",
            "-o", f"colors.background={colour:06X}", "-o", "csd.preferred=none",
            "sh", "-c", r"printf '\033[?25l'; exec sleep 3600")
        self.pid = self.process.pid

    def area(self):
        return self.wanted

    def centre(self):
        x, y, width, height = self.wanted
        return x + width // 2, y + height // 2

    def close(self):
        self.room.stop(self.process, (signal.SIGKILL,))
