# SPDX-License-Identifier: MIT
"""Conditions with deadlines. Nothing here waits for a time to pass."""
import time

from .outcome import Failed, NotReady

PATIENCE = 15
PAUSE = 0.03


def wait_until(condition, seconds=PATIENCE, pause=PAUSE):
    """The first true answer of the condition, or its last one at the deadline."""
    deadline = time.monotonic() + seconds
    while True:
        answer = condition()
        if answer or time.monotonic() > deadline:
            return answer
        time.sleep(pause)


def expect(condition, seen, seconds=PATIENCE):
    """Fails with what was seen, a text or what makes one, unless the condition comes true."""
    answer = wait_until(condition, seconds)
    if not answer:
        raise Failed(seen() if callable(seen) else seen)
    return answer


def prepare(condition, what, seconds=40, pause=PAUSE):
    """The same for the pieces of a desktop, whose absence is no fault of the program."""
    answer = wait_until(condition, seconds, pause)
    if not answer:
        raise NotReady(what)
    return answer


def expect_settled(condition, seen, seconds=6, lasting=0.7):
    """Fails unless the condition comes true and stays so for a while: what two programs do to
    each other may look right for a moment."""
    begun = None

    def holds_on():
        nonlocal begun
        if not condition():
            begun = None
        elif begun is None:
            begun = time.monotonic()
        return begun is not None and time.monotonic() - begun > lasting

    expect(holds_on, seen, seconds)
