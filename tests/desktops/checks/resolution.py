# SPDX-License-Identifier: MIT
from . import geometry

TITLE = "resolution"
RULE = "The wallpaper follows the resolution, to a smaller and to a larger one."


def check(desk):
    _, _, width, height = desk.screens()[0]
    try:
        for size in ((1280, 720), (1600, 900)):
            desk.set_mode(*desk.lengths(*size))
            desk.expect_wallpaper_to_stay(f"at {size[0]} by {size[1]} points")
            geometry.check(desk)
    finally:
        desk.set_mode(width, height)
    desk.expect_wallpaper_to_stay("at the first resolution again")
