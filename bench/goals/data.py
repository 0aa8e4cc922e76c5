"""The sets of events under build/bench/data, made once and again when the code that makes them changes."""
import hashlib
import json
import pathlib
import shutil
from datetime import date, timedelta

import events
import formats

ROOT = pathlib.Path(__file__).resolve().parents[2]
DATA = ROOT / "build/bench/data"
TODAY = date(2026, 3, 2)
COUNTS = {"empty": 0, "1k": 1000, "10k": 10000, "100k": 100000, "stale": 10000}
# Months ahead that the month view is measured at.
AHEAD = {"month": 0, "month+10y": 120, "month+20y": 240}


def day_shown(operation):
    """The day that a program is told: one in the month to show."""
    return TODAY.replace(year=TODAY.year + AHEAD.get(operation, 0) // 12)


def stamp():
    code = b"".join(pathlib.Path(module.__file__).read_bytes() for module in (events, formats))
    return hashlib.sha256(code + pathlib.Path(__file__).read_bytes()).hexdigest()


def event_set(size):
    """The folder of the set, and what a program must find in it. The events of "stale" nobody has looked at for years."""
    folder = DATA / size
    found = folder / "expected.json"
    if found.exists():
        known = json.loads(found.read_text())
        if known["stamp"] == stamp():
            return folder, known
    folder.mkdir(parents=True, exist_ok=True)
    last_run = None if size == "stale" else TODAY - timedelta(1)
    made = events.make_events(COUNTS[size], TODAY, last_run)
    formats.write_kaz(made, folder / "events.xml", last_run)
    formats.write_remind(made, folder / "events.rem")
    formats.write_calcurse(made, folder / "calcurse")
    formats.write_ical(made, folder / "events.ics")
    formats.write_gcal(made, folder / "events.gcal", TODAY.year)
    months = AHEAD if size == "10k" else {"month": 0}
    known = {"stamp": stamp(), **events.expected(made, TODAY, months)}
    found.write_text(json.dumps(known, indent=1) + "\n")
    return folder, known


def start_folder(size):
    """A data folder that the program is started on, made for today, since its clock cannot be set. No event rings and none is
    mailed, so that neither an alarm nor another program comes into the middle of a start."""
    folder = DATA / f"start-{size}"
    folder.mkdir(parents=True, exist_ok=True)
    today = date.today()
    last_run = None if size == "stale" else today - timedelta(1)
    made = events.make_events(COUNTS[size], today, last_run)
    for event in made:
        event.alarm = False
        event.email = ""
    formats.write_kaz(made, folder / "Events.xml", last_run)
    settings = ["OWNER,Single", "DATAPATH,C:\\bench", "NOSOUNDS,-1", "NOAUTOBACKUPS,-1"]
    (folder / "Kaz.ini").write_bytes("".join(line + "\r\n" for line in settings).encode())
    shutil.copy(ROOT / "src/resources/alarm.wav", folder)  # as the first start leaves it
    return folder
