"""The Windows programs under Wine, in the prefix and on the screen that tools/bench has begun."""
import os
import pathlib
import shutil
import subprocess
import time

from data import ROOT, TODAY, event_set, start_folder

BIN = ROOT / "build/mingw-bench/bin"
WORK = "C:\\bench"


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def run(program, *arguments, output=subprocess.PIPE):
    command = [os.environ["WINELOADER"], BIN / program, *arguments]
    return subprocess.run(command, stdin=subprocess.DEVNULL, stdout=output, stderr=output, encoding="latin-1", timeout=600,
                          check=True)


def figures_in(text):
    """Lines like "fill 10000 bare     12.345 ms"."""
    for line in text.splitlines():
        name, value, unit = line.rsplit(maxsplit=2)
        yield name.strip(), float(value), unit


def measure_ui(rounds):
    files = [windows_path(start_folder(size) / "Events.xml") for size in ("1k", "10k")]
    figures = {}
    for _ in range(1 if rounds < 10 else 3):
        for name, value, _ in figures_in(run("bench_ui.exe", *files).stdout):
            figures["ui", name] = min(value, figures.get(("ui", name), value))
    return figures


def measure_floor(rounds):
    file = windows_path(event_set("10k")[0] / "events.xml")
    told = [run("bench_program_floor.exe", "update", file, str(TODAY), "C:\\floor.out").stderr for _ in range(rounds)]
    return {("floor", "update"): min(float(text.split()[-2]) for text in told)}


def measure_starts(rounds):
    """In turn is only what leaves nothing to do behind: the system is still writing while the start after one with many events
    is measured."""
    empty, many, stale = (windows_path(start_folder(size)) for size in ("empty", "10k", "stale"))
    figures = {}
    for cases in (["bare", "controls", empty], [many], [stale]):
        output = run("bench_start.exe", str(rounds), windows_path(BIN), WORK, *cases).stdout
        figures.update({("start", name, unit): value for name, value, unit in figures_in(output)})
    return figures


def measure_first_starts(rounds):
    """The whole of Wine is started with the program and ended before the next one; nothing of it may hold a pipe of ours."""
    cases = {"bare": "bare", "start-empty": windows_path(start_folder("empty"))}
    figures = {}
    for _ in range(rounds):
        for name, case in cases.items():
            subprocess.run(["wineserver", "-k"], check=False)
            subprocess.run(["wineserver", "-w"], check=True)
            begin = time.perf_counter()
            run("bench_start.exe", "1", windows_path(BIN), WORK, case, output=subprocess.DEVNULL)
            took = (time.perf_counter() - begin) * 1000
            figures["first start", name] = min(took, figures.get(("first start", name), took))
    return figures


def measure(wanted, rounds):
    """The first starts come last, since they end the Wine that the others share."""
    kinds = {name[0] for name in wanted}
    steps = {"ui": measure_ui, "floor": measure_floor, "start": measure_starts, "first start": measure_first_starts}
    figures = {}
    for kind, step in steps.items():
        if kind in kinds:
            figures.update(step(rounds))
    shutil.rmtree(pathlib.Path(os.environ.get("WINEPREFIX", "/nonexistent")) / "drive_c/bench", ignore_errors=True)
    return {name: value for name, value in figures.items() if name in wanted}


def sizes():
    """Of what a user gets."""
    files = [BIN / "KAZ2.exe", BIN / "Kazlib.dll"]
    return ", ".join(f"{file.name} {file.stat().st_size / 1024:.0f} KB" for file in files if file.exists())
