#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""What the checks of desktops make of failures, without a desktop."""
import contextlib
import io
import sys
import unittest
from pathlib import Path
from types import SimpleNamespace

sys.path.insert(0, str(Path(__file__).resolve().parent))
sys.dont_write_bytecode = True

from base.course import outcome_of  # noqa: E402
from base.outcome import FAILED, NOT_APPLICABLE, PASSED, Failed, NotApplicable  # noqa: E402
from base.program import Tavi  # noqa: E402
from base.verdict import Known, verdict  # noqa: E402
from checks import desktop_program, quick_clicks  # noqa: E402
from displays.desk import Desk  # noqa: E402


class PlayedProcess:
    """Runs until the test ends it; asked to, it ends with `status`."""

    def __init__(self, status=0):
        self.returncode, self.status = None, status

    def poll(self):
        return self.returncode

    def send_signal(self, _):
        self.returncode = self.status


class PlayedTavi(Tavi):
    def __init__(self):
        super().__init__(None, "tavi")
        self.starts = 0

    def start(self, environment, **settings):
        self.note_death()
        self.process, self.is_to_end = PlayedProcess(), False
        self.starts += 1

    def log(self):
        return "last words"


class PlayedPicture:
    """`icons` are pixels of the loud icon, at `places`."""

    def __init__(self, icons, places):
        self.icons, self.places = icons, places

    def count(self, _):
        return self.icons

    def places_of(self, _):
        return self.places


class PlayedDesk(Desk):
    name, has_icons, icons_before = "marco_caja", True, 100

    def __init__(self):
        self.room = SimpleNamespace(folder=Path("/nonexistent"))
        self.tavi, self.opened = PlayedTavi(), []
        self.shown = PlayedPicture(100, (0, 0, 9, 9))
        self.clicks = []  # what is shown after the next ones
        self.after_restart = self.shown
        self.tavi.start({})

    def picture(self):
        return self.shown

    def screens(self):
        return [(0, 0, 100, 100)]

    def shows_wallpaper(self, places=None):
        return True

    def seen(self, places=None):
        return ""

    def click(self, x, y, button=1):
        if self.clicks:
            self.shown = self.clicks.pop(0)

    def restart_desktop_program(self):
        self.shown = self.after_restart


class CourseTest(unittest.TestCase):
    def setUp(self):
        self.desk = PlayedDesk()

    def outcome(self, check, name="panel", **module):
        with contextlib.redirect_stdout(io.StringIO()):
            return outcome_of(self.desk, name, SimpleNamespace(check=check, **module))

    def test_a_check_that_returns_has_passed(self):
        self.assertEqual(self.outcome(lambda desk: "a remark"), (PASSED, "a remark"))

    def test_nothing_to_look_at_is_a_failure_where_there_is_something(self):
        def check(desk):
            raise NotApplicable("there is no panel")

        self.assertEqual(self.outcome(check)[0], FAILED)
        self.desk.limits = {"panel": "it takes none"}
        self.assertEqual(self.outcome(check)[0], NOT_APPLICABLE)
        self.desk.limits = {}
        self.desk.name = "no_manager"
        self.assertEqual(self.outcome(check, "manager_killed")[0], NOT_APPLICABLE)

    def test_a_death_fails_the_check_whatever_that_says(self):
        def dies(desk):
            desk.tavi.process.returncode = -11

        def dies_and_does_not_apply(desk):
            dies(desk)
            raise NotApplicable("there is no panel")

        def dies_and_is_started(desk):
            dies(desk)
            desk.start_program()

        self.desk.limits = {"panel": "it takes none"}
        for check in (dies, dies_and_is_started):
            outcome, seen = self.outcome(check, "click")
            self.assertEqual(outcome, FAILED)
            self.assertIn("-11", seen)
            self.assertTrue(self.desk.tavi.is_running(), "the next check finds it running")
        self.desk.allow = lambda name: None
        self.assertEqual(self.outcome(dies_and_does_not_apply)[0], FAILED)
        self.assertEqual(len(self.desk.tavi.deaths), 3)

    def test_a_death_while_it_is_tidied_fails_the_check(self):
        def leave():
            self.desk.tavi.process.returncode = -6

        self.desk.leave_workspace = leave
        outcome, seen = self.outcome(lambda desk: None)
        self.assertEqual(outcome, FAILED)
        self.assertIn("-6", seen)

    def test_an_end_that_was_asked_for_is_no_death(self):
        self.outcome(lambda desk: desk.end_program(), ENDS=True)
        self.desk.start_program()
        self.assertEqual(self.desk.tavi.deaths, [])

    def test_an_end_that_goes_wrong_is_one(self):
        self.desk.tavi.process.status = 1
        self.desk.end_program()
        self.assertEqual(len(self.desk.tavi.deaths), 1)


class VerdictTest(unittest.TestCase):
    known = {("i3", "panel"): Known("it is not listed", "^the words are at ")}

    def verdict(self, outcome, seen="", deaths=()):
        return verdict("i3", {"checks": {"panel": (outcome, seen)}, "deaths": list(deaths)},
                       self.known)

    def test_what_is_known_is_forgiven(self):
        self.assertEqual(self.verdict(FAILED, "the words are at 5"),
                         (0, ["known: it is not listed"]))

    def test_another_failure_of_the_same_check_is_not(self):
        self.assertEqual(self.verdict(FAILED, "the check broke: the words are at 5")[0], 1)

    def test_a_death_is_not(self):
        self.assertEqual(self.verdict(FAILED, "the words are at 5; the program ended", ["x"])[0], 1)

    def test_it_is_told_that_what_is_known_holds(self):
        failures, remarks = self.verdict(PASSED)
        self.assertEqual((failures, len(remarks)), (0, 1))

    def test_what_did_not_come_up_has_failed(self):
        self.assertEqual(verdict("i3", {"missing": "sway"}, self.known), (1, ["sway"]))


class IconsTest(unittest.TestCase):
    def setUp(self):
        self.desk = PlayedDesk()
        self.patience = Failed.witness
        Failed.witness = None

    def tearDown(self):
        Failed.witness = self.patience

    def test_clicks_leave_the_icons_where_they_are(self):
        self.assertIsNone(quick_clicks.check(self.desk))
        for after in (PlayedPicture(50, (0, 0, 9, 9)), PlayedPicture(100, (5, 0, 14, 9))):
            self.desk.clicks = [self.desk.shown, after]
            with self.assertRaises(Failed):
                quick_clicks.check(self.desk)
            self.desk.shown = PlayedPicture(100, (0, 0, 9, 9))

    def test_a_restart_brings_the_icons_back(self):
        self.assertIsNone(desktop_program.check(self.desk))
        self.desk.after_restart = PlayedPicture(0, None)
        with self.assertRaises(Failed):
            desktop_program.check(self.desk)

    def test_it_is_said_where_there_were_none_to_bring_back(self):
        self.desk.shown = self.desk.after_restart = PlayedPicture(0, None)
        self.assertIn("not to be seen", desktop_program.check(self.desk))


if __name__ == "__main__":
    import base.waiting  # a played desktop does not change by itself
    base.waiting.PATIENCE = 0
    base.waiting.expect.__defaults__ = (0,)
    unittest.main()
