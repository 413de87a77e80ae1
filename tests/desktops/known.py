# SPDX-License-Identifier: MIT
"""What is known not to hold, by row and check: told in the document like every other failure, but
no reason for --quick to fail. An entry goes as soon as its cause is mended."""

KNOWN = {
    ("marco_caja", "second_display"): "caja mostly announces no picture for a display that was just plugged in",
}
