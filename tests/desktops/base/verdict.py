# SPDX-License-Identifier: MIT
"""What of a row's result is a failure, and what was known."""
import re
from collections import namedtuple

from .outcome import FAILED, PASSED

Known = namedtuple("Known", "why seen")  # `seen` is a pattern in what the failed check tells


def verdict(row, result, known):
    """The number of failures, and remarks about the others. A failure is known by its check and
    by what was seen; the end of the program that nobody asked for is never known."""
    if "missing" in result:
        return 1, [result["missing"]]
    failures, remarks = len(result.get("deaths", ())), []
    for check, (outcome, seen) in result["checks"].items():
        one = known.get((row, check))
        if outcome == PASSED and one:
            remarks.append(f"{check} passes, though it is known to fail: {one.why}")
        if outcome == FAILED and one and re.search(one.seen, seen):
            remarks.append(f"known: {one.why}")
        elif outcome == FAILED:
            failures += 1
    return failures, remarks
