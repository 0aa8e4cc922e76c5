"""Whole processes: each program at the same work on the same events, in turn, the least of the rounds."""
import os
import pathlib
import shutil
import subprocess

from data import DATA, ROOT, TODAY, day_shown, event_set

BIN = ROOT / "build/bench/bin"
OUT = DATA / "saved"
COPY = DATA / "calcurse-copy"
ENVIRONMENT = dict(os.environ, LC_ALL="C.UTF-8", TZ="UTC")


class WrongResult(Exception):
    pass


def command_of(program, operation, folder):
    """A command line, and the file that it writes or None."""
    day = str(day_shown(operation))
    if operation == "backup":
        files = [folder / "events.xml", folder / "events.ics", folder / "events.rem"]
        return ([BIN / "bench_program_backup"] if program == "kaz" else ["zip", "-q", "-j"]) + [OUT, *files], OUT
    kind = operation.split("+", maxsplit=1)[0]
    own = {"kaz": ("program_kaz", "xml"), "floor": ("program_floor", "xml"), "libical": ("libical", "ics"),
           "KCalendarCore": ("kcalendarcore", "ics")}
    if program in own:
        name, ending = own[program]
        return [BIN / f"bench_{name}", kind, folder / f"events.{ending}", day, OUT], OUT
    if program == "remind":
        month = ["-s1", folder / "events.rem", day[:8] + "01"]
        return ["remind", "-q", "-h", *(month if kind == "month" else [folder / "events.rem", day])], None
    if program == "gcal":
        return ["gcal", "-u", "-x", "-s", "1", "-H", "no", "-f", folder / "events.gcal", "-cm", "%" + day.replace("-", "")], None
    if program == "calcurse" and kind == "save":
        return ["calcurse", "-D", COPY, "-F", "--filter-type", "cal"], COPY / "apts"
    return ["calcurse", "-D", folder / "calcurse", "--read-only", "--input-datefmt", "4", "-Q", "--filter-type", "cal",
            "--from", day, "--days", "7"], None


def lines_expected(program, operation, known):
    """Of what is printed; None where the program lists something else, like a whole week."""
    if program in ("calcurse", "gcal") or known["events"] == 0:
        return None
    if operation in ("agenda", "update"):
        return known["agenda"] + (program == "remind")  # with a heading
    return known.get(operation)


def check(program, operation, command, written, known):
    """Throws unless the program prints as many lines and saves as many events as it must."""
    OUT.unlink(missing_ok=True)
    result = subprocess.run(command, env=ENVIRONMENT, stdin=subprocess.DEVNULL, capture_output=True, check=False)
    if result.returncode != 0:
        raise WrongResult(f"{program} {operation} ended with {result.returncode}: {result.stderr[-200:]!r}")
    counts = {"lines": (sum(1 for line in result.stdout.split(b"\n") if line.strip()),
                        lines_expected(program, operation, known))}
    if operation in ("save", "update"):
        text = written.read_bytes()
        counts["saved events"] = (text.count(b"<EVENT>") + text.count(b"BEGIN:VEVENT") if written == OUT else text.count(b"\n"),
                                  known["kept" if operation == "update" else "events"])
    # In the program itself the event behind one that expires waits for the next pass.
    waiting = known["events"] - known["kept"] if (program, operation) == ("kaz", "update") else 0
    for what, (found, wanted) in counts.items():
        if wanted is not None and abs(found - wanted) > waiting:
            raise WrongResult(f"{program} {operation}: {found} {what}, {wanted} expected")


def run_once(command):
    """Milliseconds, megabytes, and the milliseconds of its work that the program itself tells, if any."""
    OUT.unlink(missing_ok=True)
    run = subprocess.run([BIN / "bench_program_stopwatch", *command], env=ENVIRONMENT, capture_output=True, text=True, check=True)
    nanoseconds, kilobytes, result = map(int, run.stdout.split())
    if result != 0:
        raise WrongResult(f"{command[0]} ended with {result}")
    told = run.stderr.split()
    return {"time": nanoseconds / 1e6, "memory": kilobytes / 1024,
            "work": float(told[-2]) if told[-1:] == ["ms"] else None}


def measure(wanted, rounds):
    """Of names like ("time", "10k", "agenda", "kaz"): what was measured. `rounds`: how often, by size."""
    figures = {}
    for size in dict.fromkeys(name[1] for name in wanted):
        folder, known = event_set(size)
        shutil.rmtree(COPY, ignore_errors=True)
        shutil.copytree(folder / "calcurse", COPY)
        cases = {}
        for _, _, operation, program in (name for name in wanted if name[1] == size):
            if (operation, program) not in cases:
                command, written = command_of(program, operation, folder)
                check(program, operation, command, written, known)
                cases[operation, program] = command
        for _ in range(rounds(size)):
            for (operation, program), command in cases.items():
                for kind, value in run_once(command).items():
                    name = (kind, size, operation, program)
                    if value is not None:
                        figures[name] = min(value, figures.get(name, value))
    for left in (OUT, pathlib.Path(f"{OUT}.log"), pathlib.Path(f"{OUT}.expired")):
        left.unlink(missing_ok=True)
    shutil.rmtree(COPY, ignore_errors=True)
    return figures
