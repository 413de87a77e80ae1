# SPDX-License-Identifier: MIT
"""What the checks ask of a desktop, whatever its display system."""
from base.outcome import Failed, NotApplicable, NotReady
from base.picture import ICON, are_alike, is_wallpaper, name_of
from base.program import Tavi
from base.room import Room
from base.waiting import expect, expect_settled, prepare, wait_until

# Where the wallpaper has no words, as parts of the width and the height.
FREE = [(x, y) for x in (0.72, 0.84, 0.96) for y in (0.45, 0.6, 0.75)]
SPOT = (0.84, 0.6)
PANEL_ROOM = 64


class Desk:
    """A desktop with the program on it. What a desktop can't do raises NotApplicable."""

    name = ""            # of the row: of its file, its result and its picture
    title = ""           # of the row in the table
    session = ""         # X11 or Wayland
    packages = []        # whose versions are told
    needs = []           # the programs without which the row can't run
    has_icons = False
    icons_on_two_displays = True  # whether they are seen with the wallpaper on both
    scale = 1            # units of places in a point
    can_mirror = False   # whether a second display can show what the first does
    icon_colour = ICON
    panel_edges = ()     # where the desktop itself has a panel: "top", "bottom"
    program_environment = {}
    windows_outlive_manager = True
    limits = {}          # name of a check: why it does not apply here

    def __init__(self, folder, executable):
        self.room = Room(folder)
        self.tavi = Tavi(self.room, executable)
        self.before = None
        self.icons_before = 0
        self.opened = []

    # What a display system has to offer

    def open(self):
        """Brings up the desktop, with a loud picture of its own and a loud icon."""
        raise NotImplementedError

    def picture(self):
        raise NotImplementedError

    def screens(self):
        """The rectangles (x, y, width, height) of the monitors."""
        raise NotImplementedError

    def click(self, x, y, button=1):
        raise NotApplicable("nothing can click here")

    def shows_nothing_else(self):
        """Whether what lies on the screen can be all that belongs there."""
        return True

    def opens_menu(self, x, y):
        """Whether the desktop's own menu opens over a place; None where it has none."""
        return None

    def switch_window(self):
        """Once through the window switcher."""
        raise NotApplicable("nothing can type here")

    def focus_is_ours(self):
        raise NotApplicable("nobody tells who has the keyboard")

    def takes_clicks_at(self, x, y):
        """The names of what a click there goes to, and whether the program is among them."""
        raise NotApplicable("nobody tells what a click goes to")

    def show_window(self, area, colour, full_screen=False):
        raise NotApplicable("there is no program to open here")

    def own_panel(self):
        """The height of the desktop's own panel at the lower edge; None without one."""
        return None

    def show_panel(self, height):
        raise NotApplicable("there is no panel to show here")

    def workspace(self):
        raise NotApplicable("there are no workspaces")

    def go_to_workspace(self, number):
        raise NotApplicable("there are no workspaces")

    def set_mode(self, width, height):
        raise NotApplicable("the resolution can't be changed here")

    def turn(self, is_on_its_side):
        """The first display, by a quarter: by a mode as high as the other one is wide, since
        neither the dummy driver nor KWin in a window turns what it shows. Programs see the same of
        a display that was turned, its place and size."""
        width, height = self.screens()[0][2:]
        if is_on_its_side == (width > height):
            self.set_mode(height, width)

    def add_screen(self):
        raise NotApplicable("there is one display")

    def add_mirror(self):
        """A second display that shows what the first does, where `can_mirror`."""

    def remove_screen(self):
        raise NotApplicable("there is one display")

    def show_desktop(self, on):
        raise NotApplicable("it has no such command")

    def replace_manager(self):
        raise NotApplicable("it can't be replaced while it runs")

    def kill_manager(self):
        raise NotApplicable("the session ends with it")

    def restart_desktop_program(self):
        raise NotApplicable("there is no desktop program")

    # What follows from it

    def allow(self, check):
        """Raises the reason why a check does not apply here."""
        if check in self.limits:
            raise NotApplicable(self.limits[check])

    def lengths(self, *points):
        """How long as many points are, in the units of places and sizes."""
        return [round(one * self.scale) for one in points]

    def spots(self, screen=None):
        """Places without words, windows and icons."""
        screens = [screen] if screen else self.screens()
        return [(int(x + part * width), int(y + share * height))
                for x, y, width, height in screens for part, share in FREE]

    def spot(self):
        x, y, width, height = self.screens()[0]
        return int(x + SPOT[0] * width), int(y + SPOT[1] * height)

    def shows_wallpaper(self, places=None):
        picture = self.picture()
        return all(is_wallpaper(picture.at(*place)) for place in places or self.spots())

    def seen(self, places=None):
        """What lies where, for a report."""
        picture = self.picture()
        kinds = {}
        for place in places or self.spots():
            kinds.setdefault(self.name_at(picture, place), place)
        return ", ".join(f"{kind} at {place[0]},{place[1]}" for kind, place in kinds.items())

    def name_at(self, picture, place):
        own = self.before and (picture.width, picture.height) == (self.before.width,
                                                                  self.before.height)
        if own and are_alike(picture.at(*place), self.before.at(*place)):
            return "the desktop's own picture"
        return name_of(picture.at(*place))

    def shows_own_picture(self):
        """The one from before the program came."""
        picture = self.picture()
        return all(are_alike(picture.at(*place), self.before.at(*place)) for place in self.spots())

    def unlike_before(self):
        """In how many places of a grid the desktop differs from what it was before the program
        came. The desktop's own panels show the time, so they differ."""
        panels = {f"{'above' if edge == 'top' else 'below'}": PANEL_ROOM
                  for edge in self.panel_edges}
        return self.picture().unlike(self.before, **panels)

    def expect_wallpaper(self, where="", places=None, seconds=15):
        expect(lambda: self.shows_wallpaper(places),
               lambda: f"{where + ': ' if where else ''}{self.seen(places)}", seconds)

    def expect_wallpaper_to_stay(self, where):
        """After changes of displays, which desktops answer with pictures of their own a moment
        later."""
        expect_settled(self.shows_wallpaper, lambda: f"{where}: {self.seen()}", 15, 1)

    def at(self, x, y):
        return self.picture().at(x, y)

    def expect_colour(self, place, colour, where):
        expect(lambda: self.at(*place) == colour,
               lambda: f"{where}: {name_of(self.at(*place))} at {place[0]},{place[1]}")

    def expect_window(self, window, colour, where):
        """That it is seen, wherever its manager has put it by then; answers a place on it."""
        expect(lambda: self.at(*window.centre()) == colour,
               lambda: f"{where}: {self.seen([window.centre()])}")
        return window.centre()

    def icons(self):
        """How many pixels of the loud icon are on the screen."""
        return self.picture().count(self.icon_colour)

    def shows_icons(self):
        """As visible as before the program came."""
        return self.icons() >= 0.95 * self.icons_before

    def comes_to_show_icons(self):
        """The same after a moment, for what has not begun yet."""
        return self.has_icons and wait_until(self.shows_icons, 3)

    def expect_icons(self, where="", seconds=20):
        """For good: a desktop program that makes its windows anew has none in between."""
        seen = f"{where}: " if where else ""
        expect_settled(self.shows_icons,
                       lambda: f"{seen}{self.icons()} of the {self.icons_before} pixels of an icon",
                       seconds, 1)

    def show(self, area, colour, **options):
        window = self.show_window(area, colour, **options)
        self.opened.append(window)
        return window

    def start_program(self, **settings):
        self.tavi.start(self.program_environment, **settings)

    def end_program(self):
        if self.tavi.is_running():
            self.tavi.quit()
        if self.tavi.is_running():
            self.tavi.kill()

    def expect_running(self):
        if not self.tavi.is_running():
            raise Failed(f"the program ended: {self.tavi.last_words()}")

    def expect_left_by_kill(self):
        """What has to be on the screen of a killed program."""

    def tidy(self):
        """Takes away what a check left, so that the next one finds the desktop as it was."""
        for window in self.opened:
            window.close()
        self.opened.clear()
        self.leave_workspace()
        if not self.tavi.is_running():
            self.start_program()
        wait_until(self.shows_wallpaper, 3)

    def leave_workspace(self):
        """Back to the first one."""
        try:
            if self.workspace():
                self.go_to_workspace(0)
        except NotApplicable:
            pass

    def remember(self):
        """Looks at the desktop before the program was ever there."""
        def rests():
            """Nothing comes or goes any more: a greeting, an icon that is loaded late."""
            before, self.before = self.before, self.picture()
            return before and before.pixels == self.before.pixels and self.shows_nothing_else()

        prepare(rests, "a desktop that rests", pause=0.4)
        self.before.write(self.room.folder / "before.jpg", 1280)
        if self.has_icons:
            self.icons_before = self.icons()
            if not self.icons_before:
                raise NotReady("the desktop shows no icons")

    def close(self):
        self.end_program()
        self.room.leave()
