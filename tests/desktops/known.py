# SPDX-License-Identifier: MIT
"""What is known not to hold, by row and check, and what is seen then: told in the document like
every other failure, but no reason for --quick to fail. An entry goes as soon as its cause is
mended."""
from base.verdict import Known

KNOWN = {
    ("marco_caja", "resolution"): Known(
        "caja in some runs announces no picture of the new size",
        "^(the desktop's own picture|black) at "),
    ("marco_caja", "second_display"): Known(
        "caja mostly announces no picture for a display that was just plugged in",
        "^with two displays: "),
}
