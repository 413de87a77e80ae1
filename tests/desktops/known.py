# SPDX-License-Identifier: MIT
"""What is known not to hold, by row and check: told in the document like every other failure, but
no reason for --quick to fail. An entry goes as soon as its cause is mended."""

KNOWN = {
    ("i3", "panel"): "i3bar's window is in no list of windows, so its room is not read",
    ("marco_caja", "second_display"): "caja is slow to paint a display that was just plugged in",
    ("sway", "panel"): "sway tells nothing when a bar comes: it is seen at the next event of a window",
}
