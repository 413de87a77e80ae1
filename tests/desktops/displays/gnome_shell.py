# SPDX-License-Identifier: MIT
"""GNOME's own buses and services, as a test has to ask them: without a monitor, a seat or hands."""
import subprocess

from gi.repository import Gio, GLib

from base.picture import Picture
from base.waiting import prepare

SIZES = [(1280, 800), (1024, 768)]
TEMPORARY = 1  # of the ways to apply an arrangement: without asking the person to keep it
LEFT_BUTTON = 0x110
KEYS = {"Escape": 1, "Tab": 15, "Alt": 56}


class GnomeShell:
    """A running shell with two monitors. Sets the variables of the room."""

    def __init__(self, room):
        self.room = room
        self.start_system_bus()
        room.start_bus()
        monitors = [word for width, height in SIZES
                    for word in ("--virtual-monitor", f"{width}x{height}")]
        room.start("gnome-shell", "--headless", "--wayland", *monitors)
        prepare(lambda: "GNOME Shell started" in self.log(), "gnome-shell", 60)
        self.bus = connection(room.environment["DBUS_SESSION_BUS_ADDRESS"])
        # The shell takes pictures for programs of these names only.
        self.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                  "RequestName", "(su)", "org.gnome.Screenshot", 4)
        self.start_x11()
        self.arrange()
        self.hands = self.call("org.gnome.Mutter.RemoteDesktop", "/org/gnome/Mutter/RemoteDesktop",
                               "org.gnome.Mutter.RemoteDesktop", "CreateSession")[0]
        self.hand("Start")
        self.press("Escape")  # out of the overview

    def start_system_bus(self):
        """With a service that knows of one session. Without that the shell does not start."""
        path = self.room.folder / "runtime/system"
        address = f"unix:path={path}"
        self.room.environment |= {"DBUS_SYSTEM_BUS_ADDRESS": address, "XDG_SESSION_ID": "c1"}
        self.room.start("dbus-daemon", "--session", "--nofork", "--nopidfile",
                        f"--address={address}")
        prepare(path.exists, "the system bus")
        self.room.start("/usr/bin/python3", "-m", "dbusmock", "--system", "--template", "logind")
        user = subprocess.check_output(["id", "-u"], text=True).strip()
        prepare(lambda: self.room.ask(
            "gdbus", "call", "--system", "-d", "org.freedesktop.login1", "-o",
            "/org/freedesktop/login1", "-m", "org.freedesktop.DBus.Mock.AddSession", "c1", "seat0",
            user, "tester", "true"), "the service of sessions")

    def start_x11(self):
        number = self.log().partition("Using public X11 display :")[2].partition(",")[0].split()[0]
        self.room.environment["DISPLAY"] = ":" + number
        runtime = self.room.folder / "runtime"
        found = prepare(lambda: [*runtime.glob(".mutter-Xwaylandauth.*")], "Xwayland's cookie")
        self.room.environment |= {"XAUTHORITY": str(found[0]), "WAYLAND_DISPLAY": "wayland-0"}

    def log(self):
        return self.room.log_of("gnome-shell").read_text(encoding="utf-8", errors="replace")

    def call(self, name, path, interface, method, signature=None, *words):
        parameters = GLib.Variant(signature, words) if signature else None
        return self.bus.call_sync(name, path, interface, method, parameters, None,
                                  Gio.DBusCallFlags.NONE, 10000, None).unpack()

    def arrange(self, is_on_its_side=False, has_second=True):
        """The monitors side by side, the first turned or not, the second on or off."""
        service = ("org.gnome.Mutter.DisplayConfig", "/org/gnome/Mutter/DisplayConfig",
                   "org.gnome.Mutter.DisplayConfig")
        serial, monitors, *_ = self.call(*service, "GetCurrentState")
        modes = {monitor[0][0]: monitor[1][0][0] for monitor in monitors}
        places, turns = [0, SIZES[0][is_on_its_side]], [int(is_on_its_side), 0]
        arranged = [(x, 0, 1.0, turn, x == 0, [(name, modes[name], {})])
                    for x, turn, name in zip(places, turns, sorted(modes))]
        self.call(*service, "ApplyMonitorsConfig", "(uua(iiduba(ssa{sv}))a{sv})", serial, TEMPORARY,
                  arranged[:1 + has_second], {})
        first = SIZES[0][::-1] if is_on_its_side else SIZES[0]
        self.screens = [(0, 0, *first), (places[1], 0, *SIZES[1])][:1 + has_second]

    def hand(self, method, signature=None, *words):
        self.call("org.gnome.Mutter.RemoteDesktop", self.hands,
                  "org.gnome.Mutter.RemoteDesktop.Session", method, signature, *words)

    def press(self, *keys):
        """All at once."""
        for key in keys:
            self.hand("NotifyKeyboardKeycode", "(ub)", KEYS[key], True)
        for key in reversed(keys):
            self.hand("NotifyKeyboardKeycode", "(ub)", KEYS[key], False)

    def click(self, x, y, button=1):
        for move in ((-9999.0, -9999.0), (float(x), float(y))):
            self.hand("NotifyPointerMotionRelative", "(dd)", *move)
        for is_down in (True, False):
            self.hand("NotifyPointerButton", "(ib)", LEFT_BUTTON + button - 1, is_down)

    def picture(self):
        file = self.room.folder / "screen.png"
        self.call("org.gnome.Shell.Screenshot", "/org/gnome/Shell/Screenshot",
                  "org.gnome.Shell.Screenshot", "Screenshot", "(bbs)", False, False, str(file))
        done = subprocess.run(["convert", str(file), "-depth", "8", "ppm:-"], check=True,
                              capture_output=True)
        return Picture.of_ppm(done.stdout)


def connection(address):
    flags = (Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
             | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION)
    return Gio.DBusConnection.new_for_address_sync(address, flags, None, None)
