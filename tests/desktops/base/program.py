# SPDX-License-Identifier: MIT
"""The built program on a desktop."""
import json
import re
import signal

from .picture import WALLPAPER_SETTING
from .waiting import wait_until


LOGGING = {"QT_LOGGING_RULES": "zeph.system.info=true"}


class Tavi:
    """One installation: its settings, and one run after the other."""

    def __init__(self, room, executable):
        self.room, self.executable = room, executable
        self.process = None
        self.is_to_end = False  # as somebody asked it to
        self.deaths = []        # its ends that nobody asked for, and those that went wrong
        self.said = 0
        self.settings = {"zeph.onboarded": True, "zeph.background.hex": WALLPAPER_SETTING,
                         "zeph.clock.24h": True, "zeph.integrations.quote.enabled": False}

    def start(self, environment, **settings):
        """Settings are given with `_` for the dots behind `zeph.`."""
        self.note_death()
        for name, value in settings.items():
            self.settings["zeph." + name.replace("_", ".")] = value
        folder = self.room.folder / "config/Zeph"
        folder.mkdir(mode=0o700, exist_ok=True)
        file = folder / "defaults.json"
        stored = json.loads(file.read_text(encoding="utf-8")) if file.exists() else {}
        file.write_text(json.dumps(stored | self.settings), encoding="utf-8")
        file.chmod(0o600)
        self.said = len(self.log())
        self.process = self.room.start(self.executable,
                                       extra=LOGGING | environment)
        self.is_to_end = False

    def is_running(self):
        return self.process is not None and self.process.poll() is None

    def note_death(self):
        """Notes, once, that it has ended by itself."""
        if self.process is not None and not self.is_to_end and not self.is_running():
            self.is_to_end = True
            self.deaths.append(f"the program ended by itself with {self.process.returncode}: "
                               + self.last_words())

    def has_spoken(self):
        """Whether this run got as far as to look around. Before that a signal just kills it."""
        return len(self.log()) > self.said

    def quit(self):
        """Asks it to end; true when it did, with status 0."""
        self.note_death()
        if self.is_running():
            self.is_to_end = True
            self.process.send_signal(signal.SIGTERM)
            if not wait_until(lambda: not self.is_running()):
                self.deaths.append("the program did not end when it was asked to")
            elif self.process.returncode != 0:
                self.deaths.append(f"asked to end, the program did with {self.process.returncode}: "
                                   + self.last_words())
        return not self.is_running() and self.process.returncode == 0

    def kill(self):
        self.note_death()
        self.is_to_end = True
        self.room.stop(self.process, (signal.SIGKILL,))

    def log(self):
        file = self.room.log_of(self.executable)
        return file.read_text(encoding="utf-8", errors="replace") if file.exists() else ""

    def mechanism(self):
        """What it said last of how it draws here; None when it said nothing."""
        sentences = re.findall(r"^zeph\.system: (.*\bTavi\b.*\.)$", self.log(), re.M)
        return sentences[-1] if sentences else None

    def last_words(self):
        """The end of what it printed, for a report."""
        return " / ".join(self.log().strip().splitlines()[-3:])[-300:]
