# SPDX-License-Identifier: MIT
"""One desktop through all checks."""
import time
import traceback
from pathlib import Path

from applicable import may_lack
from checks import checks

from .outcome import FAILED, NOT_APPLICABLE, PASSED, Failed, NotApplicable, NotReady


def go_through(desk, picture, only=()):
    """The results of the checks by name; writes a picture of the desktop with the program.

    Raises NotReady when the desktop itself does not come up."""
    results, mechanism = {}, None
    try:
        desk.open()
        desk.remember()
        for name, module in checks():
            if only and name not in only and name != "start":
                continue
            results[name] = outcome_of(desk, name, module)
            if name == "start":
                desk.comes_to_show_icons()
                desk.picture().write(picture)
                mechanism = desk.tavi.mechanism()
            if results["start"][0] == FAILED:
                break
        return {"checks": results, "mechanism": mechanism, "deaths": desk.tavi.deaths}
    finally:
        desk.close()


def outcome_of(desk, name, module):
    """(passed, failed or not applicable; what was seen)"""
    begun, deaths = time.monotonic(), len(desk.tavi.deaths)
    Failed.witness = lambda: photograph(desk, desk.room.folder / f"failed-{name}.jpg")
    try:
        desk.allow(name)
        seen = module.check(desk) or ""
        if not getattr(module, "ENDS", False):
            desk.expect_running()
        outcome = PASSED, seen
    except NotApplicable as reason:
        outcome = NOT_APPLICABLE, str(reason)
        if not may_lack(desk, name):
            outcome = FAILED, f"there is something to look at here, and yet: {reason}"
    except Failed as failure:
        outcome = FAILED, str(failure)
    except NotReady as missing:
        outcome = FAILED, f"the desktop did not go along: {missing}"
    except Exception as fault:  # A check that breaks has proven nothing.
        frame = traceback.extract_tb(fault.__traceback__)[-1]
        place = f"{Path(frame.filename).name}:{frame.lineno}"
        outcome = FAILED, f"the check broke: {fault!r} in {place}"
    desk.tavi.note_death()
    if not getattr(module, "ENDS", False):
        tidy(desk)
        desk.tavi.note_death()
    if desk.tavi.deaths[deaths:]:
        outcome = FAILED, "; ".join(filter(None, [outcome[1], *desk.tavi.deaths[deaths:]]))
    print(f"  {name}: {': '.join(filter(None, outcome))} ({time.monotonic() - begun:.1f} s)",
          flush=True)
    return outcome


def photograph(desk, file):
    """What lies on the screen, for whoever keeps the logs."""
    try:
        desk.picture().write(file, 1280)
    except Exception as fault:
        print(f"  (no picture: {fault!r})", flush=True)


def tidy(desk):
    try:
        desk.tidy()
    except (NotReady, NotApplicable) as trouble:
        print(f"  (could not tidy: {trouble})", flush=True)


__all__ = ["go_through", "outcome_of", "NotReady"]
