# SPDX-License-Identifier: MIT
"""KWin's command to show the desktop, by a process of its own: this file is its program too. KWin
takes it back when whoever gave it leaves the bus."""
import sys


class ShownDesktop:
    """Until it is closed."""

    def __init__(self, room):
        self.room = room
        self.process = room.start(sys.executable, "-B", __file__)

    def close(self):
        self.room.stop(self.process)


def show():
    from gi.repository import Gio, GLib

    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    bus.call_sync("org.kde.KWin", "/KWin", "org.kde.KWin", "showDesktop",
                  GLib.Variant("(b)", (True,)), None, Gio.DBusCallFlags.NONE, -1)
    GLib.MainLoop().run()


if __name__ == "__main__":
    show()
