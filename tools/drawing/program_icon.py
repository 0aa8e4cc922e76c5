"""The icon of the program, a calendar sheet with a bell. Needs ImageMagick."""
import math
import subprocess
import tempfile

SIZES = (16, 24, 32, 48, 256)
SHARPNESS = 8  # drawn this many times larger, then reduced

SHEET, BAND, EDGE, CELL = "#ffffff", "#2f6fb5", "#1f4e82", "#b9c9da"
BELL, BELL_EDGE = "#f5b921", "#a87400"


def calendar(size):
    """Drawing commands on a 32 x 32 grid; edges fall on whole pixels, so that the small sizes stay sharp."""
    pixel = size / 32

    def box(colour, left, top, right, bottom, radius=0.0):
        near = [math.floor(value * pixel + 0.5) * SHARPNESS for value in (left, top)]
        far = [math.floor(value * pixel + 0.5) * SHARPNESS - 1 for value in (right, bottom)]
        r = radius * pixel * SHARPNESS
        corners = f"{near[0]},{near[1]} {far[0]},{far[1]}"
        return f"fill {colour} roundrectangle {corners} {r},{r}" if r else f"fill {colour} rectangle {corners}"

    border = max(1, round(1.3 * pixel)) / pixel
    left, top, right, bottom = 1, 4, 27, 29
    yield box(EDGE, left, top, right, bottom, 2.5)
    inside = (left + border, top + border, right - border)
    yield box(SHEET, *inside, bottom - border, 1.2)
    yield box(BAND, *inside, 11, 1.2)
    yield box(BAND, inside[0], 9, inside[2], 11)
    for x in (7, 19):
        yield box(EDGE, x, 1, x + 3, 8, 1.5)
        if size >= 32:
            yield box(SHEET, x + 1, 2, x + 2, 7, 0.5)
    columns, rows, side, step = (4, 3, 4, 5.3) if size >= 32 else (3, 2, 4, 6)
    for row in range(rows):
        for column in range(columns):
            x, y = 4.7 + column * step, 13.3 + row * step * 0.95
            yield box(CELL, x, y, x + side, y + side)


def bell(u):
    def shape(grow):
        g = grow
        yield f"circle {u(22.5)},{u(28.6)} {u(22.5)},{u(30.6 + g)}"
        yield f"circle {u(22.5)},{u(14.6)} {u(22.5)},{u(16.1 + g)}"
        yield (f"path 'M {u(14 - g)},{u(28.4 + g)} C {u(17.4 - g)},{u(25.5)} {u(15.6 - g)},{u(16 - g)}"
               f" {u(22.5)},{u(15.4 - g)} C {u(29.4 + g)},{u(16 - g)} {u(27.6 + g)},{u(25.5)}"
               f" {u(31 + g)},{u(28.4 + g)} Z'")
    for colour, grow in ((SHEET, 1.9), (BELL_EDGE, 0.9), (BELL, 0)):
        for part in shape(grow):
            yield f"fill {colour} {part}"


def draw(path):
    with tempfile.TemporaryDirectory() as folder:
        pictures = []
        for size in SIZES:
            large = size * SHARPNESS

            def u(value):
                return round(value * large / 32, 2)

            commands = " ".join([*calendar(size), *bell(u)])
            picture = f"{folder}/{size}.png"
            subprocess.run(["convert", "-size", f"{large}x{large}", "xc:none", "-draw", commands,
                            "-filter", "box", "-resize", f"{size}x{size}", "-depth", "8", f"PNG32:{picture}"], check=True)
            pictures.append(picture)
        subprocess.run(["convert", *pictures, str(path)], check=True)
