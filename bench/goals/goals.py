"""The goals: what is compared, what must hold and what would be fine. `C` are of the core, `U` of the windows."""
import dataclasses
import typing


@dataclasses.dataclass(frozen=True)
class Goal:
    """`figure` takes the measured times by name; at least `must` where `more` is better, at most otherwise."""
    name: str
    what: str
    must: float | None
    aim: float | None
    figure: typing.Callable
    unit: str = "x"
    more: bool = False

    def verdict(self, value):
        def holds(limit):
            return limit is None or (value >= limit if self.more else value <= limit)
        return "MISSED" if not holds(self.must) else "met" if holds(self.aim) else "aim missed"


def ratio(over, under):
    return lambda m: m[over] / m[under]


def to(peer, operation, size="10k", kind="time"):
    return ratio((kind, size, operation, "kaz"), (kind, size, operation, peer))


def growth(operation, small, large):
    return ratio(("time", large, operation, "kaz"), ("time", small, operation, "kaz"))


def faster(name, peer, operation, must, aim=None, size="10k", kind="time"):
    figure = ratio((kind, size, operation, peer), (kind, size, operation, "kaz"))
    return Goal(name, f"{operation}: times as fast as {peer}", must, aim, figure, more=True)


CORE = [
    Goal("C1", "agenda of 10,000 events: load, move on, list; to the floor", 2, 1.5, to("floor", "agenda")),
    Goal("C1", "agenda: to remind", 2.5, None, to("remind", "agenda")),
    faster("C2", "calcurse", "agenda", 4, 8),
    faster("C2", "libical", "agenda", 7, 14),
    faster("C2", "KCalendarCore", "agenda", 10, 20),
    Goal("C3", "load of 10,000 in process: to finding each field in order (B2)", 1.2, None,
         ratio(("file", "storage", "LoadAsWritten/10000"), ("file", "limits", "ReadAndFind/InOrder"))),
    Goal("C3", "load: to finding each field at its place (B1)", None, 2,
         ratio(("file", "storage", "LoadAsWritten/10000"), ("file", "limits", "ReadAndFind/AtExpectedPlace"))),
    Goal("C4", "load of 10,000 off the written layout: to finding each field word for word (B3)", 1.3, 0.6,
         ratio(("file", "storage", "LoadOtherLayout/10000"), ("file", "limits", "ReadAndFind/WordForWord"))),
    Goal("C5", "month view of 10,000: to the floor", 2, 1.3, to("floor", "month")),
    faster("C5", "gcal", "month", 1),
    faster("C5", "remind", "month", 8),
    Goal("C6", "filling the month from memory: to the floor", 3, 1.5, to("floor", "month", kind="work")),
    faster("C6", "KCalendarCore", "month", 15, kind="work"),
    Goal("C7", "filling a month 10 years ahead: to KCalendarCore", 1, None, to("KCalendarCore", "month+10y", kind="work")),
    Goal("C7", "the same: to this month", None, 3, ratio(("work", "10k", "month+10y", "kaz"), ("work", "10k", "month", "kaz"))),
    Goal("C7", "filling a month 20 years ahead: to KCalendarCore", 1, None, to("KCalendarCore", "month+20y", kind="work")),
    Goal("C7", "the same: to this month", None, 3, ratio(("work", "10k", "month+20y", "kaz"), ("work", "10k", "month", "kaz"))),
    Goal("C8", "load and save of 10,000: to the floor", 2, 1.3, to("floor", "save")),
    Goal("C8", "save: to calcurse", 2, None, to("calcurse", "save")),
    faster("C8", "libical", "save", 2.5),
    faster("C8", "KCalendarCore", "save", 9),
    Goal("C9", "safe save of 10,000 in process: to making, writing, flushing, renaming", 1.5, 1.1, lambda m:
         m["file", "storage", "Save/10000"] / (m["file", "limits", "MakeText"] + m["file", "limits", "WriteFlushRename"])),
    Goal("C9", "the same: to writing, flushing, replacing the ready bytes", 1.5, None,
         ratio(("file", "storage", "Save/10000"), ("file", "storage", "WriteFlushReplace/10000"))),
    Goal("C10", "day change of 10,000: load, move on, list, save both files; to the floor", 2, 1.4, to("floor", "update")),
    Goal("C11", "day change after years of absence, with its log: to a usual one", 1.5, 1.2, growth("update", "10k", "stale")),
    Goal("C12", "most memory, agenda of 10,000: to the floor", 2.5, 1.5, to("floor", "agenda", kind="memory")),
    Goal("C12", "most memory, agenda of 100,000: to the floor", 2.5, 1.5, to("floor", "agenda", "100k", "memory")),
    Goal("C12", "most memory, agenda of 10,000: to libical", 0.333, None, to("libical", "agenda", kind="memory")),
    Goal("C12", "most memory, agenda of 100,000: to libical", 0.333, None, to("libical", "agenda", "100k", "memory")),
    Goal("C12", "most memory, day change of 10,000: to the floor", None, 1.5, to("floor", "update", kind="memory")),
    Goal("C13", "agenda of an empty file: to remind", 3, 2, to("remind", "agenda", "empty")),
    *(Goal("C14", f"growth of {operation} from {small} to {large} events", 12, 10.5, growth(operation, small, large))
      for operation in ("agenda", "month", "save", "update") for small, large in (("1k", "10k"), ("10k", "100k"))),
    Goal("C15", "agenda of 100,000: to the floor", 2.5, 1.5, to("floor", "agenda", "100k")),
    Goal("C15", "load and save of 100,000: to the floor", 2.5, 1.5, to("floor", "save", "100k")),
    faster("C15", "libical", "agenda", 5, size="100k"),
    faster("C15", "libical", "save", 5, size="100k"),
    Goal("C16", "one call of the slowest rule, five years behind", 5, 1.5, lambda m:
         1000 * max(m["own", "storage", f"Rule/{rule}"] for rule in range(6)), "µs"),
    Goal("C17", "adding events one by one, then one save: growth from 1k to 10k", 12, 10.5,
         ratio(("own", "storage", "AddOneByOneAndSave/10000"), ("own", "storage", "AddOneByOneAndSave/1000"))),
    Goal("C17", "the same, 10,000 events", None, 50, lambda m: m["own", "storage", "AddOneByOneAndSave/10000"], "ms"),
    Goal("S1", "change check of 50 shared files, beyond asking for the files' times", 60, None, lambda m:
         1000 * (m["own", "storage", "ChangeCheck"] - m["own", "storage", "FileTimes"]), "µs"),
    Goal("S2", "load of 50 users' files of 200 events: to one file of 10,000", 1.2, None,
         ratio(("own", "storage", "LoadUsers/10000"), ("own", "storage", "LoadAsWritten/10000"))),
    Goal("S3", "backup of three files, 15 MB: to zip", 1.3, None, to("zip", "backup")),
]


def ui(over, under):
    return ratio(("ui", over), ("ui", under))


def bare(name):
    return ui(name, name + " bare")


def start(longer, shorter):
    return lambda m: m["start", longer, "ms"] - m["start", shorter, "ms"]


WINDOWS = [
    Goal("U1", "fill of the list with 10,000 rows, painted: to a bare virtual list", 4, 2, bare("fill 10000")),
    Goal("U1", "the same: to a bare list that keeps its rows", 1, None, ui("fill 10000", "fill 10000 stock")),
    Goal("U2", "sort of 10,000 rows by a click on a header: to the bare list", 2, 1.2, bare("sort 10000")),
    Goal("U3", "20 pages of 10,000 rows: to the bare list", 1.5, 1.1, bare("scroll")),
    Goal("U4", "growth of the fill from 10,000 to 100,000 rows", 10, 4, ui("fill 100000", "fill 10000")),
    Goal("U5", "month of 10,000 events after another's save: to opening 42 bare edit boxes", 1, None,
         ui("month reload 10000", "month open 10000 bare")),
    Goal("U5", "the same: to loading and painting 20 times", None, 1, lambda m:
         m["ui", "month reload 10000"] / (m["ui", "month load 10000"] + 20 * m["ui", "month paint 10000 bare"])),
    Goal("U6", "opening the month window, 1,000 events: to opening 42 bare edit boxes", 2, 1, bare("month open 1000")),
    Goal("U7", "next month of 10,000 events: to filling 42 bare edit boxes", 0.5, None, bare("month next 10000")),
    Goal("U7", "the same: to one bare window that paints the boxes", None, 30,
         ui("month next 10000", "month paint 10000 bare")),
    Goal("U8", "coming-up window with 1,231 lines: to a bare list box", 3, 1.5, bare("coming up")),
    Goal("U9", "tick with nothing to do, 10,000 events", 2, 0.5, lambda m: m["ui", "tick"], "ms"),
    Goal("U10", "start on an empty folder, painted and ended: to a bare window", 1.6, 1.2,
         ratio(("start", "start-empty", "ms"), ("start", "bare", "ms"))),
    Goal("U10", "the same: to a bare window with the controls of the main one", None, 1.2,
         ratio(("start", "start-empty", "ms"), ("start", "controls", "ms"))),
    Goal("U11", "start with 10,000 events beyond that: to three floor updates and a bare list that keeps its rows", 1, None,
         lambda m: start("start-10k", "start-empty")(m) / (3 * m["floor", "update"] + m["ui", "fill 10000 stock"])),
    Goal("U11", "the same", None, 100, start("start-10k", "start-empty"), "ms"),
    Goal("U12", "first start, with no Wine running: to a bare window", 1.3, 1.1,
         ratio(("first start", "start-empty"), ("first start", "bare"))),
    Goal("U13", "start after years of absence beyond one with 10,000 events", 200, 50, start("start-stale", "start-10k"), "ms"),
    Goal("U14", "search of 10,000 rows without a hit", 10, 3, lambda m: m["ui", "find"], "ms"),
    Goal("U15", "most memory with 10,000 rows shown beyond a bare window's", 40, 20, lambda m:
         m["start", "start-10k", "MB"] - m["start", "bare", "MB"], "MB"),
]

ALL = CORE + WINDOWS
