"""Sets of events that are the same on every machine, and what a calendar program must find in them.

30 % happen once, the others follow the six rules; anchors lie up to five years back, a fifth have alarms, descriptions have
20 to 120 characters with punctuation and letters of Latin-1.
"""
import calendar
import random
from datetime import date, timedelta

ONCE, WEEK_DAYS, DAY_OF_MONTH, N_MONTHS, N_WEEKS, NTH_WEEK_DAY, N_DAYS = range(-1, 6)
SHARES = [(ONCE, 300), (WEEK_DAYS, 140), (DAY_OF_MONTH, 210), (N_MONTHS, 80), (N_WEEKS, 120), (NTH_WEEK_DAY, 100),
          (N_DAYS, 50)]
WARNINGS = [(0, 25), (1, 15), (2, 10), (3, 10), (5, 8), (7, 20), (14, 9), (30, 3)]
EVERY_MONTH = 13
LAST_DAY = 31

USERS = ["Anna", "Björn", "Chloé", "Dirk", "Estelle"]
CATEGORIES = ["Shared", "Home", "Work", "Birthdays", "Health", "Bills", "School", "Garden", "Travel"]
VERBS = ["Call", "Meet", "Pay", "Renew", "Book", "Collect", "Send", "Review", "Clean", "Check", "Order", "Visit", "Prepare",
         "Return", "Water", "Back up", "Sign", "Repair", "Discuss", "Cancel"]
THINGS = ["dentist (Dr. Müller)", "car insurance", "library books", "the café rent", "Zoë's birthday present",
          "quarterly report", "VAT return - 2nd draft", "piano lesson", "passport photos", "smoke-detector batteries",
          "crème brûlée for the party", "José & Inés", "garden waste/recycling bins", "team meeting #3", "boiler service",
          "school fees", "the Ångström project", "flu jab @ clinic", "mortgage, fixed rate", "server disk (90% full)",
          "Frühstück mit Jürgen", "naïve-Bayes homework", "football boots", "Mum's prescription", "TV licence",
          "électricité bill", "window cleaner", "hotel in Besançon", "parents' evening", "tax office"]
DETAILS = ["before 9:30 a.m.", "ask about the £25 fee!", "bring ID + 2 photos", "room B/12, 3rd floor",
           "don't forget the keys", "50% deposit paid", "tel. 01632 960-147", "see e-mail of 3.2.; reply to Søren",
           "(moved from Tuesday?)", "\"final\" version", "near the Straße", "ref: AZ-2291/b", "cost: 12.50",
           "take the 14:05 train", "with Renée, François and Åsa", "half-day off", "20°C forecast", "½ hour at most",
           "e-mail the minutes", "no parking on Sundays"]


class Event:
    """`anchor` is the first day, `due` the day that the last run left."""
    __slots__ = ("code", "kind", "text", "start", "time", "period", "day", "month", "number", "week_day", "week_days",
                 "warning", "alarm", "minutes_warning", "category", "owner", "email", "shared", "share_names", "run_file",
                 "file", "sound", "due", "anchor")


def month_length(year, month):
    return calendar.monthrange(year, month)[1]


def nth_week_day(year, month, number, week_day):
    """Sunday is 1; the fifth is the last."""
    if number < 5:
        first = date(year, month, 1)
        return first + timedelta((week_day - first.isoweekday() % 7 - 1) % 7 + 7 * (number - 1))
    last = date(year, month, month_length(year, month))
    return last - timedelta((last.isoweekday() % 7 + 1 - week_day) % 7)


def next_day(event, reference):
    """The first day at or behind the reference of an event that repeats."""
    if event.kind == WEEK_DAYS:
        while not event.week_days & (2 << reference.weekday()):
            reference += timedelta(1)
        return reference
    if event.kind in (N_WEEKS, N_DAYS):
        step = event.period * (7 if event.kind == N_WEEKS else 1)
        return event.start + timedelta(max(0, -(-(reference - event.start).days // step)) * step)
    if event.kind == N_MONTHS:
        months = event.start.year * 12 + event.start.month - 1
        day = event.start
        while day < reference:
            months += event.period
            day = date(months // 12, months % 12 + 1, event.start.day)
        return day
    year, month = reference.year, reference.month
    any_month = EVERY_MONTH if event.kind == DAY_OF_MONTH else 0
    while True:
        if event.month in (any_month, month):
            day = nth_week_day(year, month, event.number, event.week_day) if event.kind == NTH_WEEK_DAY else \
                date(year, month, min(event.day, month_length(year, month)))
            if day >= reference:
                return day
        year, month = (year, month + 1) if month < 12 else (year + 1, 1)


def count_days(event, first, last):
    if event.kind == ONCE:
        return int(first <= event.due <= last)
    count = 0
    day = next_day(event, max(first, event.due))
    while day <= last:
        count += 1
        day = next_day(event, day + timedelta(1))
    return count


def pick(rng, table):
    at = rng.randrange(sum(weight for _, weight in table))
    for value, weight in table:
        if at < weight:
            return value
        at -= weight
    raise AssertionError


def make_text(rng):
    target = rng.randint(20, 120)
    text = rng.choice(VERBS) + " " + rng.choice(THINGS)
    while len(text) < target:
        text += rng.choice([", ", "; ", " - ", ": "]) + rng.choice(DETAILS)
    text = text[:120].rstrip(" -:;,(")
    return text if len(text) >= 20 else text + " " + rng.choice(DETAILS)


def make_rule(event, rng, today):
    event.period = event.day = event.month = event.number = event.week_day = event.week_days = 0
    event.start = today - timedelta(rng.randint(2, 1826))
    event.time = (rng.randint(7, 21), rng.choice([0, 0, 0, 15, 30, 30, 45])) if rng.random() < 0.6 else (0, 0)
    if event.kind == ONCE:
        event.start = today + timedelta(rng.randint(-1, 400))
    elif event.kind == WEEK_DAYS:
        for day in rng.sample(range(7), rng.choice([1, 1, 1, 2, 2, 3, 5])):
            event.week_days |= 2 << day
    elif event.kind == DAY_OF_MONTH:
        event.day = LAST_DAY if rng.random() < 0.1 else rng.randint(1, 28)
        event.month = rng.randint(1, 12) if rng.random() < 0.6 else EVERY_MONTH
    elif event.kind == N_MONTHS:
        event.period = rng.choice([1, 1, 2, 3, 3, 4, 6, 6, 12, 24])
        event.start = event.start.replace(day=min(event.start.day, 28))
    elif event.kind == N_WEEKS:
        event.period = rng.choice([1, 1, 2, 2, 2, 3, 4, 4, 6, 8])
    elif event.kind == N_DAYS:
        event.period = rng.choice([1, 2, 3, 5, 7, 10, 10, 14, 21, 28, 30, 45, 60, 90])
    else:
        event.number, event.week_day = rng.randint(1, 5), rng.randint(1, 7)
        event.month = rng.randint(1, 12) if rng.random() < 0.3 else 0


def make_event(rng, position, today, last_run):
    event = Event()
    event.code = f"{(position * 61803 + 4711) % 100001:06d}"
    event.kind = pick(rng, SHARES)
    event.text = make_text(rng)
    make_rule(event, rng, today)
    event.warning = pick(rng, WARNINGS)
    event.alarm = rng.random() < 0.2
    event.minutes_warning = rng.choice([0, 5, 10, 15, 15, 30, 60]) if event.alarm else 0
    if event.alarm and event.time == (0, 0):
        event.time = (rng.randint(7, 21), 0)
    event.category = rng.randint(1, len(CATEGORIES) - 1)
    event.owner = "Single" if rng.random() < 0.9 else rng.choice(USERS)
    event.email = rng.choice(["ann", "bob", "c.d"]) + "@example.org" if rng.random() < 0.05 else ""
    event.shared = rng.random() < 0.08
    event.share_names = rng.sample(USERS, 2) if event.shared and rng.random() < .4 else []
    event.run_file = event.alarm and rng.random() < 0.05
    event.file = f"C:\\Program Files\\Backup\\run {event.code}.bat" if event.run_file else ""
    event.sound = "C:\\Windows\\Media\\chimes.wav" if event.alarm and rng.random() < 0.5 else ""
    event.anchor = event.start if event.kind == ONCE else next_day(event, event.start)
    event.start = event.due = event.anchor
    if last_run and event.kind != ONCE:
        event.due = next_day(event, max(event.anchor, last_run))
    return event


def make_events(count, today, last_run):
    """`last_run` is the day up to which due days were kept, or None when nobody ever did. At most 100,001 events."""
    rng = random.Random(20260302)
    return [make_event(rng, position, today, last_run) for position in range(count)]


def expected(events, today, months):
    """What a program must find on that day: the lines of the agenda and of each month, and the events kept. `months`: how far
    ahead, by name."""
    found = {"events": len(events), "agenda": 0, "kept": 0}
    for event in events:
        due = event.due
        if due < today:
            if event.kind == ONCE:
                continue
            due = next_day(event, today)
        found["kept"] += 1
        found["agenda"] += 0 <= (due - today).days <= event.warning
    for name, ahead in months.items():
        year, month = divmod(today.year * 12 + today.month - 1 + ahead, 12)
        first, last = date(year, month + 1, 1), date(year, month + 1, month_length(year, month + 1))
        found[name] = sum(count_days(event, first, last) for event in events)
    return found
