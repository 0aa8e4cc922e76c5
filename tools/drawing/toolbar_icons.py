"""The icons of the main window's toolbar, of its warnings and of the tray's; a file is named like its button's key. Each is drawn anew for every size, so
that its edges fall on whole pixels. Around a badge the background shows through, on light and dark toolbars alike."""
from drawing import Drawing, arc, around, bar, box, disc, polygon, write_icon
from icon_parts import (AMBER, AMBER_EDGE, BAND, EDGE, GREEN, RED, SHEET, badge, calendar, edge, edged, event, framed)

SIZES = (16, 20, 24, 32, 40, 48)


def exit(d):
    framed(d, BAND, EDGE, d.whole(1), d.whole(0.6), d.whole(10), d.size - d.whole(0.6), d.size / 20)
    middle, e = d.size / 2, edge(d)
    half, thick = d.whole(3.6) + e % 2 / 2, d.whole(1) + e % 2 / 2
    left, right = d.whole(5) + e / 2, d.size - e
    neck = right - half
    arrow = polygon((left, middle - thick), (neck, middle - thick), (neck, middle - half), (right, middle),
                    (neck, middle + half), (neck, middle + thick), (left, middle + thick))
    d.clear(arrow, grow=1.5 * e)
    edged(d, AMBER, AMBER_EDGE, arrow)


def addevent(d):
    event(d)
    m, half, t = badge(d, GREEN)
    d.fill(SHEET, box(m - half, m - t, m + half, m + t), box(m - t, m - half, m + t, m + half))


def editevent(d):
    event(d)
    u, e = d.size / 16, edge(d)
    tip, half, neck, end = (6.4 * u, 15.4 * u), 1.9 * u, 2.4 * u, 10.4 * u

    def at(along, side):
        x, y = tip[0] + along * 0.7071, tip[1] - along * 0.7071
        return x + side * half * 0.7071, y + side * half * 0.7071

    sides = at(neck, -1), at(end, -1), at(end, 1), at(neck, 1)
    pencil = polygon(tip, *sides)
    d.clear(pencil, grow=1.5 * e)
    d.fill(SHEET, pencil)
    d.fill(AMBER, polygon(*sides))
    d.fill(AMBER_EDGE, polygon(tip, at(neck / 2, -0.5), at(neck / 2, 0.5)))
    d.outline(AMBER_EDGE, e, pencil)


def pushevent(d):
    event(d)
    m, half, t = badge(d, BAND)
    tip = m + half
    d.fill(SHEET, box(m - half, m - t, tip - t, m + t))
    for side in (-1, 1):
        d.fill(SHEET, bar((m + t, m + side * (half + t) * 0.85), (tip - t * 0.2, m - side * t * 0.7), 2 * t))


def skipevent(d):
    event(d)
    m, half, t = badge(d, BAND)
    d.fill(SHEET, polygon((m - half, m - half), (m + half * 0.5, m), (m - half, m + half)),
           box(m + half - t, m - half, m + half + t, m + half))


def deleteevent(d):
    event(d)
    m, half, t = badge(d, RED)
    a = half * 0.8
    d.fill(SHEET, bar((m - a, m - a), (m + a, m + a), 2 * t), bar((m - a, m + a), (m + a, m - a), 2 * t))


def tasklist(d):
    left, right, top, bottom = d.whole(2), d.size - d.whole(2), d.whole(2), d.size - d.whole(0.6)
    framed(d, SHEET, EDGE, left, top, right, bottom, d.size / 12)
    half, e = d.whole(3), edge(d)
    framed(d, AMBER, AMBER_EDGE, d.size // 2 - half, d.whole(0.6), d.size // 2 + half, d.whole(4), d.size / 20)
    thick, side, gap = d.whole(1), d.whole(2), d.whole(1)
    step = side + gap
    space = bottom - e - d.whole(4)
    y0 = d.whole(4) + (space - 3 * step + gap + 1) // 2
    for row in range(3):
        x, y = left + e + gap, y0 + row * step
        d.fill(GREEN, box(x, y, x + side, y + side))
        line = y + (side - thick) // 2
        d.fill(EDGE, box(x + side + gap, line, right - e - gap, line + thick))


def monthview(d):
    margin = d.whole(0.6)
    calendar(d, margin, d.whole(2), d.size - margin, d.size - margin, 4 if d.size >= 24 else 3, (2, 1))


def editlayers(d):
    e, height = edge(d), d.whole(6.5) // 2 * 2
    for colour, rim, left, top in ((AMBER, AMBER_EDGE, 0.6, 1), (BAND, EDGE, 3.4, 8.4)):
        left, top = d.whole(left), d.whole(top)
        right, bottom, slope = left + d.whole(12), top + height - e / 2, left + height / 2
        middle, top, right = top + height / 2, top + e / 2, right - e / 2
        edged(d, colour, rim,
              polygon((left + e / 2, middle), (slope, top), (right, top), (right, bottom), (slope, bottom)))
        d.fill(SHEET, disc(slope + e, middle, max(1, d.whole(1))))


def bell(d, x, bottom, u):
    """Its edges are of amber; `u` is a fourteenth of its height."""
    def shape(g):
        yield disc(x, bottom - 1.6 * u, 1.6 * u + g)
        yield disc(x, bottom - 12.4 * u, 1.3 * u + g)
        low, high, side = bottom - 2 * u + g, bottom - 12.6 * u - g, 6 * u + g
        yield (f"M {x - side:.3f},{low:.3f} C {x - 3.4 * u - g:.3f},{low - 2.4 * u:.3f} {x - 5 * u - g:.3f},{high:.3f}"
               f" {x:.3f},{high:.3f} C {x + 5 * u + g:.3f},{high:.3f} {x + 3.4 * u + g:.3f},{low - 2.4 * u:.3f}"
               f" {x + side:.3f},{low:.3f} Z")
    d.fill(AMBER_EDGE, *shape(edge(d) * 0.8))
    d.fill(AMBER, *shape(0))


def reminders(d):
    bell(d, d.size / 2, d.size - d.whole(1), (d.size - 2 * d.whole(1)) / 14)


def options(d):
    middle = d.size / 2
    body, outer, half = d.whole(5.3), middle - d.whole(0.6), d.whole(1.6)
    for turn in range(0, 360, 45):
        x, y = around(0, 0, 1, turn)
        corners = ((body - half, -half), (outer, -0.75 * half), (outer, 0.75 * half), (body - half, half))
        d.fill(BAND, polygon(*((middle + x * a - y * b, middle + y * a + x * b) for a, b in corners)))
    d.fill(BAND, disc(middle, middle, body))
    d.clear(disc(middle, middle, d.whole(2.3)))


def refresh(d):
    m, radius, thick = d.size / 2, d.size * 0.34, d.whole(2)
    for begin in (185, 5):
        end = begin + 110
        d.fill(BAND, arc(m, m, radius, thick, begin, end + 2),
               polygon(around(m, m, radius - 1.5 * thick, end), around(m, m, radius + 1.5 * thick, end),
                       around(m, m, radius, end + 50)))


def log(d):
    e, half = edge(d), edge(d) / 2
    left, right = d.whole(2) + half, d.size - d.whole(2) - half
    top, bottom, fold = d.whole(0.6) + half, d.size - d.whole(0.6) - half, d.whole(4)
    edged(d, SHEET, EDGE,
          polygon((left, top), (right - fold, top), (right, top + fold), (right, bottom), (left, bottom)))
    edged(d, BAND, EDGE, polygon((right - fold, top), (right, top + fold), (right - fold, top + fold)))
    thick, gap = d.whole(1), d.whole(1)
    first, last = top + fold + half + gap, bottom - half - gap
    rows = int(last - first + gap) // (thick + gap)
    for row in range(rows):
        y, x = first + row * (thick + gap), left + half + gap
        d.fill(BAND, box(x, y, right - half - gap - (d.whole(3) if row == rows - 1 else 0), y + thick))


def help(d):
    m, u = d.size / 2, d.size / 16
    radius, thick = m - d.whole(0.6), d.whole(1.9) // 2 * 2
    d.fill(EDGE, disc(m, m, radius))
    d.fill(BAND, disc(m, m, radius - edge(d)))
    bow, y, dot = 2.3 * u, 6.0 * u, d.whole(11.3)
    stem = y + 1.4142 * bow
    d.fill(SHEET, arc(m, y, bow, thick, 180, 405),
           bar(around(m, y, bow, 44), (m - thick * 0.2, stem + thick * 0.2), thick),
           box(m - thick / 2, stem - thick * 0.2, m + thick / 2, d.whole(10.3)),
           box(m - thick / 2, dot, m + thick / 2, dot + thick))


def exclamation(d, x, top, bottom, thick, colour):
    dot = thick
    d.fill(colour, box(x - thick / 2, top, x + thick / 2, bottom - 1.6 * dot),
           box(x - thick / 2, bottom - dot, x + thick / 2, bottom))


def warning(d):
    e, m = edge(d), d.size / 2
    low = d.size - d.whole(1) - e / 2
    edged(d, AMBER, AMBER_EDGE, polygon((m, d.whole(1)), (d.size - e, low), (e, low)))
    exclamation(d, m, d.whole(5.5), d.whole(13), d.whole(1.7) // 2 * 2, "#1f1f1f")


def kazwarning(d):
    event(d)
    m, half, t = badge(d, RED)
    exclamation(d, m, m - half, m + half, 2 * t, SHEET)


# The other icons of the tray: each sign has a colour and an outline of its own, for eyes that tell no colours apart.

def place(d):
    """Middle and half of the length of the square that a sign may fill."""
    across = d.whole(10)
    return d.size - across / 2, across / 2


def kazunsaved(d):
    event(d)
    m, r = place(d)
    square, a = box(m - r, m - r, m + r, m + r, r / 4), 0.5 * r
    d.clear(square, grow=edge(d))
    d.fill(RED, square)
    thick = d.whole(2)
    d.fill(SHEET, bar((m - a, m - a), (m + a, m + a), thick), bar((m - a, m + a), (m + a, m - a), thick))


def kazaway(d):
    event(d)
    m, r = place(d)
    e = edge(d)
    left, right, top, bottom = m - r + e / 2, m + r - e / 2, m - 0.75 * r, m + r - e / 2
    folder = polygon((left, top), (m - 0.1 * r, top), (m + 0.2 * r, top + 0.35 * r), (right, top + 0.35 * r), (right, bottom),
                     (left, bottom))
    d.clear(folder, grow=1.5 * e)
    edged(d, AMBER, AMBER_EDGE, folder)
    thick = d.whole(1.4)
    d.fill("#1f1f1f", box(m - 0.5 * r, m + 0.3 * r - thick / 2, m + 0.5 * r, m + 0.3 * r + thick / 2))


def kazmissed(d):
    event(d)
    m, r = place(d)
    bottom, u = d.size - 0.3, (d.size - 2 * d.whole(2.4)) / 14
    x = d.size - 6.4 * u
    d.clear(disc(x, bottom - 6 * u, 6.4 * u), box(x - 6.4 * u, bottom - 6 * u, d.size, bottom), grow=edge(d))
    bell(d, x, bottom, u)
    d.fill(RED, disc(x + 3.4 * u, bottom - 9 * u, max(2, 3.2 * u)))


def kazquiet(d):
    event(d)
    m, r = place(d)
    moon = disc(m, m, r)
    d.clear(moon, grow=edge(d))
    d.fill(EDGE, moon)
    inner = r * 0.72
    d.fill("#ffe28a", f"M {m + inner * 0.35:.3f},{m - inner:.3f} A {inner:.3f},{inner:.3f} 0 1 0 {m + inner:.3f},{m + inner * 0.35:.3f}"
           f" A {inner * 0.85:.3f},{inner * 0.85:.3f} 0 1 1 {m + inner * 0.35:.3f},{m - inner:.3f} Z")


def kazsilent(d):
    event(d)
    m, r = place(d)
    grey = "#4a4a4a"
    d.clear(box(m - r, m - r, m + r, m + r, r / 4), grow=edge(d))
    framed(d, SHEET, grey, m - r, m - r, m + r, m + r, r / 4)
    d.fill(grey, box(m - 0.6 * r, m - 0.25 * r, m - 0.1 * r, m + 0.25 * r),
           polygon((m - 0.3 * r, m - 0.25 * r), (m + 0.3 * r, m - 0.7 * r), (m + 0.3 * r, m + 0.7 * r),
                   (m - 0.3 * r, m + 0.25 * r)))
    a = 0.62 * r
    d.fill(RED, bar((m - a, m + a), (m + a, m - a), d.whole(1.4)))


ICONS = (exit, addevent, editevent, pushevent, skipevent, deleteevent, tasklist, monthview, editlayers, reminders, options, refresh, log, help,
         warning, kazwarning, kazunsaved, kazaway, kazmissed, kazquiet, kazsilent)


def draw(folder):
    folder.mkdir(exist_ok=True)
    for icon in ICONS:
        pictures = {}
        for size in SIZES:
            drawing = Drawing(size)
            icon(drawing)
            # What most screens need can be copied as it is at the start of the program (PictureStrip).
            pictures[size] = drawing.bitmap() if size <= 24 else drawing.png()
        write_icon(folder / f"{icon.__name__}.ico", pictures)
