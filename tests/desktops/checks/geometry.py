# SPDX-License-Identifier: MIT
TITLE = "edges"
RULE = "The wallpaper reaches every edge of every display, but for the desktop's own panels."


def check(desk):
    for x, y, width, height in desk.screens():
        middle, centre = x + int(0.6 * width), y + int(0.7 * height)
        edges = {"left": (x + 1, centre), "right": (x + width - 2, centre),
                 "top": (middle, y + 1), "bottom": (middle, y + height - 2)}
        desk.expect_wallpaper(places=[place for edge, place in edges.items()
                                      if edge not in desk.panel_edges])
