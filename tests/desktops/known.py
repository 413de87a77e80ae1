# SPDX-License-Identifier: MIT
"""What is known not to hold, by row and check, and what is seen then: told in the document like
every other failure, but no reason for --quick to fail. An entry goes as soon as its cause is
mended."""
from base.verdict import Known

KNOWN = {
    ("i3", "panel"): Known(
        "i3bar's window is in no list of windows, so its room is not read",
        "^the lowest words are at "),
    ("marco_caja", "second_display"): Known(
        "caja is slow to paint a display that was just plugged in",
        "^with two displays: "),
    ("sway", "panel"): Known(
        "sway tells nothing when a bar comes: it is seen at the next event of a window",
        "^its bar is not on the screen$|^the panel: |^the lowest words are at "),
}
