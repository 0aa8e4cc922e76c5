"""Small pictures of filled shapes. Lengths are pixels of the finished picture, so that a shape whose edges are whole
numbers stays sharp; everything is drawn larger and then reduced by the mean of each square. Needs ImageMagick."""
import math
import struct
import subprocess

SHARPNESS = 16  # drawn this many times larger


def polygon(*points):
    return "M " + " L ".join(f"{x:.3f},{y:.3f}" for x, y in points) + " Z"


def box(left, top, right, bottom, radius=0.0):
    if not radius:
        return polygon((left, top), (right, top), (right, bottom), (left, bottom))
    r = f"{radius:.3f},{radius:.3f} 0 0 1"
    return (f"M {left + radius:.3f},{top:.3f} L {right - radius:.3f},{top:.3f} A {r} {right:.3f},{top + radius:.3f}"
            f" L {right:.3f},{bottom - radius:.3f} A {r} {right - radius:.3f},{bottom:.3f}"
            f" L {left + radius:.3f},{bottom:.3f} A {r} {left:.3f},{bottom - radius:.3f}"
            f" L {left:.3f},{top + radius:.3f} A {r} {left + radius:.3f},{top:.3f} Z")


def disc(x, y, radius):
    return box(x - radius, y - radius, x + radius, y + radius, radius)


def around(x, y, radius, degrees):
    """The point at that angle, clockwise from the right."""
    angle = math.radians(degrees)
    return x + radius * math.cos(angle), y + radius * math.sin(angle)


def bar(start, end, thick):
    """A straight line with square ends."""
    length = math.dist(start, end)
    x, y = (thick / 2 * (to - of) / length for of, to in zip(start, end))
    return polygon((start[0] + y, start[1] - x), (end[0] + y, end[1] - x),
                   (end[0] - y, end[1] + x), (start[0] - y, start[1] + x))


def arc(x, y, radius, thick, begin, end):
    """A part of a ring, clockwise."""
    wide = int(end - begin > 180)
    outer, inner = radius + thick / 2, radius - thick / 2
    corners = [f"{a:.3f},{b:.3f}" for a, b in (around(x, y, outer, begin), around(x, y, outer, end),
                                              around(x, y, inner, end), around(x, y, inner, begin))]
    return (f"M {corners[0]} A {outer:.3f},{outer:.3f} 0 {wide} 1 {corners[1]} L {corners[2]}"
            f" A {inner:.3f},{inner:.3f} 0 {wide} 0 {corners[3]} Z")


class Drawing:
    """One square picture: what is painted later lies on top."""

    def __init__(self, size):
        self.size = size
        self._steps = []

    def whole(self, sixteenths):
        """The whole pixel nearest to a length given in sixteenths of the picture."""
        return math.floor(sixteenths * self.size / 16 + 0.5)

    def fill(self, colour, *shapes):
        self._steps += self._drawn(f"fill {colour}", shapes)

    def outline(self, colour, width, *shapes):
        """Half of the width lies inside of the shape, half outside."""
        self._steps += self._drawn(f"fill none stroke {colour} stroke-width {width} stroke-linejoin round", shapes)

    def clear(self, *shapes, grow=0.0):
        """Takes the shapes, and so many pixels around them, out of what is there: the background shows through."""
        rim = f" stroke black stroke-width {2 * grow} stroke-linejoin round" if grow else ""
        mask = [*self._empty(), *self._drawn("fill black" + rim, shapes)]
        self._steps += ["(", *mask, ")", "-compose", "DstOut", "-composite", "-compose", "Over"]

    def png(self):
        return self._made("-strip", "-define", "png:exclude-chunks=date,time,gama,chrm,srgb,bkgd",
                          "-define", "png:compression-level=9", "PNG32:-")

    def bitmap(self):
        """As it stands in an icon: the bottom row first, then an empty mask."""
        rows = self._made("-flip", "BGRA:-")
        header = struct.pack("<IiiHHIIiiII", 40, self.size, 2 * self.size, 1, 32, 0, len(rows), 0, 0, 0, 0)
        return header + rows + bytes((self.size + 31) // 32 * 4 * self.size)

    def _made(self, *form):
        words = ["convert", *self._empty(), *self._steps, "-filter", "box", "-resize", f"{self.size}x{self.size}",
                 "-depth", "8", *form]
        return subprocess.run(words, check=True, stdout=subprocess.PIPE).stdout

    def _empty(self):
        large = self.size * SHARPNESS
        return ["+antialias", "-size", f"{large}x{large}", "xc:none"]

    @staticmethod
    def _drawn(pen, shapes):
        # The zero of the drawing language is the middle of the first pixel, not its edge.
        for shape in shapes:
            yield from ("-draw", f"translate -0.5,-0.5 scale {SHARPNESS},{SHARPNESS} {pen} path '{shape}'")


def write_icon(path, pictures):
    """An icon file of pictures by their sizes."""
    header = struct.pack("<HHH", 0, 1, len(pictures))
    offset = len(header) + 16 * len(pictures)
    entries = b""
    for size, picture in pictures.items():
        entries += struct.pack("<BBBBHHII", size % 256, size % 256, 0, 0, 1, 32, len(picture), offset)
        offset += len(picture)
    path.write_bytes(header + entries + b"".join(pictures.values()))
