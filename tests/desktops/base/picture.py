# SPDX-License-Identifier: MIT
"""The pixels of a screen."""
import subprocess
from array import array

# What the parts of the desktops are painted with. No two of them can be mistaken for each other.
DESKTOP = 0xFF00FF
ICON = 0x00D000
WINDOW = 0xFFD000
FULL_SCREEN = 0xFF4040
PANEL = 0xC8C8E8

# The wallpaper is a gradient around this colour.
WALLPAPER_SETTING = "#1E7A96"


def is_wallpaper(colour):
    """Of a spot without words."""
    red, green, blue = colour >> 16, colour >> 8 & 255, colour & 255
    return red < 56 and 60 < green < 136 and green < blue < 1.4 * green


def name_of(colour):
    """What a colour is, in words for a report."""
    for known, name in ((DESKTOP, "the desktop's own picture"), (WINDOW, "the window"),
                        (FULL_SCREEN, "the full-screen window"), (PANEL, "the panel"),
                        (ICON, "an icon"), (0, "black")):
        if are_alike(colour, known):
            return name
    return "the wallpaper" if is_wallpaper(colour) else f"#{colour:06X}"


def are_alike(one, other, tolerance=6):
    return all(abs((one >> shift & 255) - (other >> shift & 255)) <= tolerance
               for shift in (0, 8, 16))


class Picture:
    """`pixels` are numbers 0xRRGGBB, row by row."""

    def __init__(self, width, height, pixels):
        self.width, self.height, self.pixels = width, height, pixels

    @staticmethod
    def of_bgrx(width, height, data):
        data = bytearray(data)
        data[3::4] = bytes(width * height)
        return Picture(width, height, array("I", bytes(data)))

    @staticmethod
    def of_rgb(width, height, data):
        words = bytearray(4 * width * height)
        for channel in range(3):
            words[channel::4] = data[2 - channel::3]
        return Picture(width, height, array("I", bytes(words)))

    @staticmethod
    def of_ppm(data):
        kind, width, height, _, pixels = data.split(maxsplit=4) if data else (b"",) * 5
        if kind != b"P6":
            raise ValueError("no picture")
        width, height = int(width), int(height)
        return Picture.of_rgb(width, height, data[-3 * width * height:])

    def at(self, x, y):
        return self.pixels[int(y) * self.width + int(x)]

    def count(self, colour):
        return self.pixels.count(colour)

    def places_of(self, colour):
        """The bounding box (left, top, right, bottom) of a colour; None without it."""
        rows = [row for row in range(self.height) if colour in self.row(row)]
        if not rows:
            return None
        columns = [x for row in rows for x in (self.row(row).index(colour),)]
        right = max(x for row in rows for x, one in enumerate(self.row(row)) if one == colour)
        return min(columns), rows[0], right, rows[-1]

    def row(self, y):
        return self.pixels[y * self.width:(y + 1) * self.width]

    def unlike(self, other, above=0, below=0):
        """How many pixels of a grid differ from those of another picture, which may be smaller;
        `above` and `below` are the heights of what is left out at the edges."""
        if self.width < other.width or self.height < other.height:
            return len(other.pixels) // 25
        return sum(not are_alike(self.at(x, y), other.at(x, y))
                   for y in range(above, other.height - below, 5)
                   for x in range(0, other.width, 5))

    def write(self, path, width=640):
        """As a JPEG of that width."""
        data = bytearray(3 * len(self.pixels))
        words = self.pixels.tobytes()
        for channel in range(3):
            data[channel::3] = words[2 - channel::4]
        header = b"P6 %d %d 255\n" % (self.width, self.height)
        subprocess.run(["convert", "ppm:-", "-resize", f"{width}x", "-quality", "80", str(path)],
                       input=header + data, check=True)
