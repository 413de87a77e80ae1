# SPDX-License-Identifier: MIT
"""How a check ends. A check that returns has passed; what it returns is a remark."""

PASSED, FAILED, NOT_APPLICABLE = "passed", "failed", "not applicable"


class Failed(Exception):
    """The rule does not hold; the text tells what was seen instead."""

    witness = None  # called at once, before anything is put back

    def __init__(self, seen):
        super().__init__(seen)
        if Failed.witness:
            Failed.witness()


class NotApplicable(Exception):
    """The desktop has no such thing; the text tells which."""


class NotReady(Exception):
    """A piece of the desktop did not come up, so nothing can be said of the program."""
