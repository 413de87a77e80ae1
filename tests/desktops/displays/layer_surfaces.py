# SPDX-License-Identifier: MIT
"""What the program asked a compositor for, from the messages that its library prints."""
import re

MESSAGE = re.compile(r"-> (\w+)@(\d+)\.(\w+)\((.*)\)")


def take_clicks(log):
    """Whether a surface of the wallpaper takes input somewhere; None when there is none.

    A surface takes it everywhere until it is given a region, and a region is empty until something
    is added."""
    shapes = {}    # of surfaces: the number of rectangles that take input; None: everywhere
    regions = {}   # the same of regions
    layered = set()
    for kind, number, request, words in MESSAGE.findall(log):
        made = re.search(r"new id (\w+)@(\d+)", words)
        if made and made[1] == "wl_surface":
            shapes[made[2]] = None
            layered.discard(made[2])
        elif made and made[1] == "wl_region":
            regions[made[2]] = 0
        elif made and made[1] == "zwlr_layer_surface_v1":
            layered.add(re.search(r"wl_surface@(\d+)", words)[1])
        elif kind == "wl_region" and request == "add":
            regions[number] = regions.get(number, 0) + 1
        elif kind == "wl_surface" and request == "set_input_region":
            region = re.search(r"wl_region@(\d+)", words)
            shapes[number] = regions.get(region[1]) if region else None
        elif kind == "wl_surface" and request == "destroy":
            shapes.pop(number, None)
            layered.discard(number)
    if not layered:
        return None
    return any(shapes.get(surface) != 0 for surface in layered)
