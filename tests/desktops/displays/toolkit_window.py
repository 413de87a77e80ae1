# SPDX-License-Identifier: MIT
"""A window of one colour on Wayland, by a process of its own: this file is its program too."""
import signal
import sys


class ToolkitWindow:
    """A display system places it where it wants, or is told to; `area` is the place wanted."""

    def __init__(self, room, area, colour, full_screen=False):
        self.room, self.wanted = room, area
        self.process = room.start(
            sys.executable, "-B", __file__, f"#{colour:06X}", area[2], area[3],
            "full" if full_screen else "window", extra={"GDK_BACKEND": "wayland"})
        self.pid = self.process.pid

    def area(self):
        return self.wanted

    def centre(self):
        x, y, width, height = self.wanted
        return x + width // 2, y + height // 2

    def close(self):
        self.room.stop(self.process, (signal.SIGKILL,))


def show(colour, width, height, state):
    import gi
    gi.require_version("Gtk", "3.0")
    from gi.repository import GLib, Gtk

    GLib.set_prgname("sample")
    style = Gtk.CssProvider()
    style.load_from_data(f"* {{ background: {colour}; box-shadow: none; }}".encode())
    window = Gtk.Window(title="Sample", decorated=False)
    window.get_style_context().add_provider(style, Gtk.STYLE_PROVIDER_PRIORITY_USER)
    window.set_default_size(int(width), int(height))
    if state == "full":
        window.fullscreen()
    window.show_all()
    Gtk.main()


if __name__ == "__main__":
    show(*sys.argv[1:])
