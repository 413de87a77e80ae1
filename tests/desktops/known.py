# SPDX-License-Identifier: MIT
"""What is known not to hold, by row and check, and what is seen then (a `Known` of base.verdict):
told in the document like every other failure, but no reason for a run to fail. An entry goes as
soon as its cause is mended."""
from base.verdict import Known

COVERED = Known("this desktop's picture can't be painted into, so the wallpaper covers the icons",
                "^0 of the [0-9]+ pixels of an icon")
RAISED = Known("Plasma raises its own desktop above all", "^the desktop's own picture at ")

KNOWN = {
    ("openbox_pcmanfm_qt", "icons"): COVERED,
    ("kwin_plasma", "icons"): COVERED,
    ("kwin_plasma_uncomposited", "icons"): COVERED,
    ("kwin_wayland_plasma", "icons"): COVERED,
    ("kwin_wayland_plasma", "show_desktop"): RAISED,
    ("kwin_wayland_plasma_scaled", "icons"): COVERED,
    ("kwin_wayland_plasma_scaled", "show_desktop"): RAISED,
}
