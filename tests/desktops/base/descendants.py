# SPDX-License-Identifier: MIT
"""Nothing that a desktop started outlives it, however it detached itself."""
import ctypes
import os
import signal
from pathlib import Path

from .waiting import wait_until

PR_SET_CHILD_SUBREAPER = 36


def adopt_orphans():
    """From now on what loses its parent below us becomes our child."""
    ctypes.CDLL(None).prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0)


def children():
    """The processes whose parent we are."""
    found = []
    for process in Path("/proc").glob("[0-9]*"):
        try:
            # The name may hold anything, so the fields are counted from its end.
            fields = (process / "stat").read_text().rpartition(")")[2].split()
        except OSError:
            continue
        if int(fields[1]) == os.getpid():
            found.append(int(process.name))
    return found


def end_all():
    """Kills all children, and those that their end makes ours, until there is none."""
    def none_left():
        for child in children():
            try:
                os.kill(child, signal.SIGKILL)
                os.waitpid(child, 0)
            except (ProcessLookupError, ChildProcessError):
                pass
        return not children()

    return wait_until(none_left, 20)
