"""The same events as each program keeps them."""
from datetime import date

from events import (CATEGORIES, DAY_OF_MONTH, EVERY_MONTH, LAST_DAY, N_DAYS, N_MONTHS, N_WEEKS, NTH_WEEK_DAY, ONCE, WEEK_DAYS,
                    next_day)

WEEK = ["Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"]
MONTHS = ["", "Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"]
NO_DATE = "1899-12-30"
PLAIN = frozenset("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789:.,?")


def days_of_mask(event):
    """Monday is 0."""
    return [day for day in range(7) if event.week_days & (2 << day)]


def day_name(event):
    return WEEK[(event.week_day - 2) % 7]


# KAZ

def percent(text):
    return "".join(c if c in PLAIN else f"%{ord(c):02X}" for c in text)


def flag(value):
    return "-1" if value else "0"


def kaz_fields(event, last_run):
    alarm = event.time[0] * 60 + event.time[1] - event.minutes_warning if event.alarm else 0
    return (
        ("IDCode", event.code), ("AlarmSet", flag(event.alarm)), ("AlarmTime", f"{NO_DATE} {alarm // 60:02d}:{alarm % 60:02d}"),
        ("DayNumber", event.number), ("DayOfMonth", event.day), ("DayOfWeek", event.week_day),
        ("DaysLeft", (event.due - last_run).days), ("DaysWarning", event.warning), ("Deleted", "0"), ("MailSent", "0"),
        ("Desc", percent(event.text)), ("DueDate", event.due), ("DueTime", f"{NO_DATE} %02d:%02d" % event.time),
        ("Layer", event.category), ("SharedLayerName", CATEGORIES[event.category] if event.shared else ""),
        ("Email", event.email), ("MinutesWarning", event.minutes_warning), ("MonthNumber", event.month),
        ("Owner", event.owner), ("Period", event.period), ("RecurrenceType", max(event.kind, 0)),
        ("Recurring", flag(event.kind != ONCE)),
        ("StartDate", event.due if event.kind in (N_MONTHS, N_WEEKS, N_DAYS) else event.start),
        ("WeekDays", event.week_days), ("SharedEvent", flag(event.shared)), ("ExecFile", flag(event.run_file)),
        ("Filename", event.file), ("WavFile", event.sound), ("PlayWav", flag(event.sound)),
        ("ShareWithSpecific", flag(event.share_names)),
        ("ShareNames", percent("".join(name + "\r\n" for name in event.share_names))))


def write_kaz(events, path, last_run):
    with open(path, "w", encoding="latin-1", newline="\r\n") as file:
        file.write('<?xml version="1.0" encoding="iso-8859-1"?>\n')
        for event in events:
            fields = kaz_fields(event, last_run or event.due)
            file.write("<KAZ2>\n\t<EVENT>\n" + "".join(f"\t\t<{name}>{value}</{name}>\n" for name, value in fields) +
                       "\t</EVENT>\n</KAZ2>\n")


# remind

def remind_trigger(event):
    first = event.anchor
    if event.kind == ONCE:
        return str(first), ""
    if event.kind == WEEK_DAYS:
        return " ".join(WEEK[day] for day in days_of_mask(event)), ""
    if event.kind == DAY_OF_MONTH:
        if event.day == LAST_DAY:  # one day before the first of the next
            return ("1 --1" if event.month == EVERY_MONTH else f"1 {MONTHS[event.month % 12 + 1]} --1"), ""
        return f"{event.day}" + ("" if event.month == EVERY_MONTH else " " + MONTHS[event.month]), ""
    if event.kind == N_MONTHS:
        if event.period == 1:
            return str(first.day), ""
        if event.period < 12:
            return str(first.day), f" SATISFY [$Tm%{event.period}=={first.month % event.period}]"
        odd = f" SATISFY [$Ty%2=={first.year % 2}]" if event.period == 24 else ""
        return f"{first.day} {MONTHS[first.month]}", odd
    if event.kind in (N_WEEKS, N_DAYS):
        return f"{first} *{event.period * (7 if event.kind == N_WEEKS else 1)}", ""
    if event.number < 5:
        return f"{day_name(event)} {7 * event.number - 6}" + (" " + MONTHS[event.month] if event.month else ""), ""
    return f"{day_name(event)} 1" + (" " + MONTHS[event.month % 12 + 1] if event.month else "") + " --7", ""


def write_remind(events, path):
    with open(path, "w", encoding="utf-8") as file:
        for event in events:
            trigger, satisfy = remind_trigger(event)
            line = "REM " + trigger + (f" ++{event.warning}" if event.warning else "")
            if event.time != (0, 0):
                line += " AT %02d:%02d" % event.time
                if event.minutes_warning:
                    line += f" +{event.minutes_warning}"
            file.write(f"{line}{satisfy} MSG %b: {event.text.replace('%', '%%')}\n")


# calcurse

def calcurse_rule(event):
    if event.kind == ONCE:
        return ""
    if event.kind == WEEK_DAYS:  # Sunday is 0
        return "{1W" + "".join(f" w{day}" for day in sorted((day + 1) % 7 for day in days_of_mask(event))) + "}"
    if event.kind == DAY_OF_MONTH:
        day = -1 if event.day == LAST_DAY else event.day
        return f"{{1M d{day}}}" if event.month == EVERY_MONTH else f"{{1Y d{day} m{event.month}}}"
    if event.kind in (N_MONTHS, N_WEEKS, N_DAYS):
        return "{%d%s}" % (event.period, {N_MONTHS: "M", N_WEEKS: "W", N_DAYS: "D"}[event.kind])
    day = event.week_day - 1
    week_day = f"w{day + 7 * event.number}" if event.number < 5 else f"w{-7 - day}"
    return f"{{1Y {week_day} m{event.month}}}" if event.month else f"{{1M {week_day}}}"


def write_calcurse(events, folder):
    folder.mkdir(parents=True, exist_ok=True)
    for name in ("todo", "conf", "keys"):
        (folder / name).touch()
    with open(folder / "apts", "w", encoding="utf-8") as file:
        for event in events:
            day = event.anchor.strftime("%m/%d/%Y")
            rule = calcurse_rule(event)
            if event.time == (0, 0):
                file.write(f"{day} [1] {rule + ' ' if rule else ''}{event.text}\n")
                continue
            end = event.time[0] * 60 + event.time[1] + 30
            file.write(f"{day} @ %02d:%02d -> {day} @ %02d:%02d" % (*event.time, *divmod(end, 60)) +
                       f"{' ' + rule if rule else ''} {'!' if event.alarm else '|'}{event.text}\n")


# iCalendar, for libical and KCalendarCore

def ical_rule(event):
    iso = [day[:2].upper() for day in WEEK]
    if event.kind == WEEK_DAYS:
        return "FREQ=WEEKLY;BYDAY=" + ",".join(iso[day] for day in days_of_mask(event))
    if event.kind == DAY_OF_MONTH:
        day = -1 if event.day == LAST_DAY else event.day
        return f"FREQ=MONTHLY;BYMONTHDAY={day}" if event.month == EVERY_MONTH else \
            f"FREQ=YEARLY;BYMONTH={event.month};BYMONTHDAY={day}"
    if event.kind in (N_MONTHS, N_WEEKS, N_DAYS):
        every = {N_MONTHS: "MONTHLY", N_WEEKS: "WEEKLY", N_DAYS: "DAILY"}[event.kind]
        return f"FREQ={every};INTERVAL={event.period}"
    day = f"{event.number if event.number < 5 else -1}{iso[(event.week_day - 2) % 7]}"
    return f"FREQ=YEARLY;BYMONTH={event.month};BYDAY={day}" if event.month else f"FREQ=MONTHLY;BYDAY={day}"


def folded(line):
    """At most 75 bytes a line, and never a cut inside of a character."""
    rest, lines = line.encode(), []
    while len(rest) > 75:
        cut = 75
        while rest[cut] & 0xC0 == 0x80:
            cut -= 1
        lines.append(rest[:cut])
        rest = b" " + rest[cut:]
    return b"\r\n".join([*lines, rest, b""])


def ical_lines(event):
    day = event.anchor.strftime("%Y%m%d")
    text = event.text.replace("\\", "\\\\").replace(";", "\\;").replace(",", "\\,")
    yield from ("BEGIN:VEVENT", f"UID:{event.code}@example.org", "DTSTAMP:20210101T000000Z")
    if event.time == (0, 0):
        yield f"DTSTART;VALUE=DATE:{day}"
    else:
        yield from (f"DTSTART:{day}T%02d%02d00" % event.time, "DURATION:PT30M")
    yield f"SUMMARY:{text}"
    if event.kind != ONCE:
        yield f"RRULE:{ical_rule(event)}"
    yield from (f"CATEGORIES:{CATEGORIES[event.category]}", f"X-DAYS-WARNING:{event.warning}")
    if event.alarm:
        yield from ("BEGIN:VALARM", "ACTION:DISPLAY", f"TRIGGER:-PT{event.minutes_warning}M", f"DESCRIPTION:{text}",
                    "END:VALARM")
    yield "END:VEVENT"


def write_ical(events, path):
    with open(path, "wb") as file:
        file.write(b"BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//KAZ//benchmark//EN\r\n")
        for event in events:
            file.write(b"".join(folded(line) for line in ical_lines(event)))
        file.write(b"END:VCALENDAR\r\n")


# gcal: it repeats within one year only, so rules in steps begin in that year; a set of weekdays takes a line for each day.

def gcal_dates(event, year):
    first = event.anchor
    if event.kind == ONCE:
        return [first.strftime("%Y%m%d")]
    if event.kind == WEEK_DAYS:
        return [f"0*d1{WEEK[day].lower()}#99{WEEK[day].lower()}.7" for day in days_of_mask(event)]
    if event.kind == DAY_OF_MONTH:
        return ["0000%02d%02d" % (0 if event.month == EVERY_MONTH else event.month, 99 if event.day == LAST_DAY else event.day)]
    if event.kind == N_MONTHS:
        if event.period >= 12:
            return ["%04d%02d%02d" % (0 if event.period == 12 else year + (first.year - year) % 2, first.month, first.day)]
        months = [month for month in range(1, 13) if (month - first.month) % event.period == 0]
        return ["0000" + ",".join("%02d%02d" % (month, first.day) for month in months)] if event.period > 1 else \
            ["000000%02d" % first.day]
    if event.kind in (N_WEEKS, N_DAYS):
        begin = next_day(event, date(year, 1, 1)).strftime("%Y%m%d")
        return [f"{begin}#1231.{event.period * (7 if event.kind == N_WEEKS else 1)}"]
    assert event.kind == NTH_WEEK_DAY
    return ["0000%02d%s%d" % (event.month, day_name(event).lower(), event.number if event.number < 5 else 9)]


def write_gcal(events, path, year):
    with open(path, "w", encoding="utf-8") as file:
        for event in events:
            text = "".join("\\" + c if c in "\\%$~^" else c for c in event.text)
            file.writelines(f"{day} {text}\n" for day in gcal_dates(event, year))
