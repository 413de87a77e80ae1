# SPDX-License-Identifier: MIT
"""A temporary home with folders, buses and processes that all end with it."""
import os
import signal
import struct
import subprocess
import zlib
from pathlib import Path

from .picture import DESKTOP, ICON
from .waiting import prepare, wait_until


class Room:
    """`folder` exists and is empty. Nothing outside it is written."""

    def __init__(self, folder):
        self.folder = Path(folder)
        self.home = self.folder / "home"
        self.children = []
        for name in ("home", "runtime", "config", "data", "cache", "state", "home/Desktop"):
            (self.folder / name).mkdir(mode=0o700)
        self.environment = {
            "PATH": os.environ.get("PATH", "/usr/bin:/bin"), "LANG": "C.UTF-8", "LC_ALL": "C.UTF-8",
            "TZ": "Europe/Berlin", "HOME": str(self.home), "USER": "tester", "LOGNAME": "tester",
            "XDG_RUNTIME_DIR": str(self.folder / "runtime"),
            "XDG_CONFIG_HOME": str(self.folder / "config"),
            "XDG_DATA_HOME": str(self.folder / "data"),
            "XDG_CACHE_HOME": str(self.folder / "cache"),
            "XDG_STATE_HOME": str(self.folder / "state"),
            "TMPDIR": str(self.folder),
            "DBUS_SYSTEM_BUS_ADDRESS": "unix:path=/nonexistent/bus",
            "GSETTINGS_BACKEND": "keyfile", "GIO_USE_VFS": "local",
            "NO_AT_BRIDGE": "1", "LIBGL_ALWAYS_SOFTWARE": "1",
            # Whatever would leave the machine ends at a port that nobody listens to.
            "http_proxy": "http://127.0.0.1:9", "https_proxy": "http://127.0.0.1:9",
        }
        self.write("config/user-dirs.dirs", 'XDG_DESKTOP_DIR="$HOME/Desktop"\n')

    def write(self, path, text):
        """A file below the room's folder."""
        file = self.folder / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text, encoding="utf-8")
        return file

    def start(self, *command, extra=None, **options):
        """A process in a group of its own; what it prints lies in a log named like it."""
        log = open(self.log_of(command[0]), "ab")
        child = subprocess.Popen([str(word) for word in command],
                                 env=self.environment | (extra or {}), cwd=self.folder,
                                 stdin=subprocess.DEVNULL, stdout=options.pop("stdout", log),
                                 stderr=log, start_new_session=True, **options)
        log.close()
        self.children.append(child)
        return child

    def log_of(self, program):
        return self.folder / (Path(program).name + ".log")

    def ask(self, *command, extra=None, seconds=20):
        """What a command prints; empty when it fails."""
        try:
            done = subprocess.run([str(word) for word in command], capture_output=True, text=True,
                                  env=self.environment | (extra or {}), cwd=self.folder,
                                  timeout=seconds, check=False)
        except subprocess.TimeoutExpired:
            return ""
        return done.stdout if done.returncode == 0 else ""

    def stop(self, child, signals=(signal.SIGTERM, signal.SIGKILL)):
        """Ends a process and its group; with SIGKILL first it can't do anything about it."""
        for number in signals:
            if child.poll() is None:
                send_to_group(child, number)
                wait_until(lambda: child.poll() is not None, 5)
        send_to_group(child, signal.SIGKILL)
        if child in self.children:
            self.children.remove(child)

    def start_bus(self):
        path = self.folder / "runtime/bus"
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={path}"
        self.start("dbus-daemon", "--session", "--nofork", "--nopidfile",
                   f"--address=unix:path={path}")
        prepare(path.exists, "the session bus")

    def put_on_desktop(self):
        """A launcher with a loud icon, and the same picture for whoever knows no launchers."""
        write_png(self.folder / "icon.png", 64, 64, ICON)
        launcher = self.write("home/Desktop/loud.desktop",
                              "[Desktop Entry]\nType=Application\nName=Loud\nExec=true\n"
                              f"Icon={self.folder}/icon.png\n")
        launcher.chmod(0o755)

    def desktop_picture(self):
        """The path of a picture for the desktop's own setting."""
        path = self.folder / "picture.png"
        if not path.exists():
            write_png(path, 320, 200, DESKTOP)
        return path

    def leave(self):
        for child in reversed(list(self.children)):
            self.stop(child)


def send_to_group(child, number):
    try:
        os.killpg(child.pid, number)
    except ProcessLookupError:
        pass


def write_png(path, width, height, colour):
    """A picture of one colour."""
    def chunk(kind, data):
        return (struct.pack(">I", len(data)) + kind + data
                + struct.pack(">I", zlib.crc32(kind + data)))

    row = b"\0" + colour.to_bytes(3, "big") * width
    Path(path).write_bytes(
        b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0))
        + chunk(b"IDAT", zlib.compress(row * height)) + chunk(b"IEND", b""))
