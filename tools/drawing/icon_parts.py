"""What the icons have in common: their colours, the width of their edges, sheets, the calendar and the badge."""
from drawing import box, disc

SHEET, BAND, EDGE, CELL = "#ffffff", "#2f6fb5", "#1f4e82", "#a9bdd3"
AMBER, AMBER_EDGE = "#f5b921", "#a87400"
GREEN, RED = "#2c8a3f", "#c8302f"


def edge(d):
    """The width of every edge."""
    return max(1, round(d.size / 18))


def framed(d, colour, rim, left, top, right, bottom, radius=0.0):
    e = edge(d)
    d.fill(rim, box(left, top, right, bottom, radius))
    d.fill(colour, box(left + e, top + e, right - e, bottom - e, max(0, radius - e)))


def edged(d, colour, rim, shape):
    d.fill(colour, shape)
    d.outline(rim, edge(d), shape)


def fit(length, count):
    """Size and distance of so many squares in a row, about twice as wide as the gaps, the same margin on both sides."""
    best = None
    for gap in range(1, length):
        for side in range(1, length):
            rest = length - count * side - (count - 1) * gap
            if rest >= 2 and rest % 2 == 0:
                odds = abs(rest / 2 - gap) + abs(side - 2 * gap)
                best = min(best or (odds, side, gap), (odds, side, gap))
    return best[1:]


def calendar(d, left, top, right, bottom, columns=3, marked=None):
    """A sheet with a band and two rings; the days fill it. One day, by column and row, may be marked."""
    e, band, ring = edge(d), d.whole(2.6), d.whole(1.3)
    framed(d, SHEET, EDGE, left, top, right, bottom, d.size / 12)
    d.fill(BAND, box(left + e, top + e, right - e, top + e + band))
    for x in (left + d.whole(2.6), right - d.whole(2.6) - ring):
        d.fill(EDGE, box(x, top - d.whole(1.4), x + ring, top + e + d.whole(1)))

    width, height = right - left - 2 * e, bottom - top - 2 * e - band
    day, gap = fit(width, columns)
    rows = (height - gap) // (day + gap)
    x0 = left + e + (width - columns * (day + gap) + gap) // 2
    y0 = top + e + band + (height - rows * (day + gap) + gap) // 2
    for row in range(rows):
        for column in range(columns):
            x, y = x0 + column * (day + gap), y0 + row * (day + gap)
            d.fill(AMBER if (column, row) == marked else CELL, box(x, y, x + day, y + day))


def event(d):
    """The sheet that a badge lies on."""
    calendar(d, d.whole(0.6), d.whole(2), d.whole(13), d.whole(15))


def badge(d, colour):
    """A disc in the corner; the result is its middle, half of its sign's length and half of the sign's thickness."""
    thick = d.whole(1.7)
    across = d.whole(9.5)
    across += (across - thick) % 2
    middle = d.size - across / 2
    disc_ = disc(middle, middle, across / 2)
    d.clear(disc_, grow=edge(d))
    d.fill(colour, disc_)
    return middle, across / 2 - d.whole(1.9), thick / 2
