# SPDX-License-Identifier: MIT
"""Plasma with the program's own wallpaper in it, which the person allowed."""

import shutil

from base.outcome import NotApplicable
from base.waiting import expect, prepare

SETTINGS = "config/plasma-org.kde.plasma.desktop-appletsrc"


class PlasmaPictures:
    """Before the class of a row of Plasma."""

    limits = {
        "chosen_workspaces": "Plasma has one wallpaper for all workspaces, which ours takes the "
                             "place of: it is plain on those that were not chosen",
    }

    def __init__(self, folder, executable):
        super().__init__(folder, executable)
        self.tavi.settings["zeph.plasma.wallpaper"] = True

    def kill_manager(self):
        """Plasma writes down only a moment later what its desktops show."""
        prepare(self.is_written_down, "our wallpaper in the settings of Plasma")
        return super().kill_manager()

    def expect_wallpaper(self, where="", places=None, seconds=15):
        """Of this run: the picture of an earlier one may still be there."""
        if self.tavi.is_running():
            expect(self.has_pictures, f"{where}: there are no pictures", seconds)
        super().expect_wallpaper(where, places, seconds)

    def has_pictures(self):
        return any((self.room.folder / "runtime/tavi/plasma").glob("*/f-*"))

    def expect_left_by_kill(self):
        """The last picture, also in the next session, which finds an empty runtime folder."""
        self.expect_wallpaper("after it was killed")
        prepare(self.is_written_down, "our wallpaper in the settings of Plasma")
        shutil.rmtree(self.room.folder / "runtime/tavi")
        self.restart_desktop_program()
        self.expect_wallpaper("in the next session", seconds=40)

    def is_written_down(self):
        settings = (self.room.folder / SETTINGS).read_text(encoding="utf-8")
        return "wallpaperplugin=com.tavi.Tavi" in settings

    def takes_clicks_at(self, x, y):
        try:
            return super().takes_clicks_at(x, y)
        except NotApplicable:  # without a surface nothing can be taken
            return ["Plasma's own desktop"], False
