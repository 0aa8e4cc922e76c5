"""Measures the goals named, or all, and writes build/bench/goals.md; tools/bench has built what this runs."""
import argparse
import datetime
import os
import sys

import benchmarks
import data
import goals
import programs
import windows


class Wanted:
    """Stands for the measured times, to learn which ones a goal asks for."""

    def __init__(self):
        self.names = {}

    def __getitem__(self, name):
        self.names[name] = True
        return 1.0


def table(head, rows):
    lines = ["| " + " | ".join(cells) + " |" for cells in [head, *rows]]
    return [lines[0], "|" + "|".join("---" for _ in head) + "|", *lines[1:]]


def number(value):
    return "" if value is None else f"{value:.{0 if value >= 100 else 1 if value >= 10 else 2}f}"


def limit(goal, value):
    return "" if value is None else f"{value:g} {goal.unit}"


def measure(wanted, quick):
    def of(*kinds):
        return [name for name in wanted if name[0] in kinds]

    def rounds(size):
        return (2 if quick else 9) if size == "100k" else (7 if quick else 25)
    return {**programs.measure(of("time", "memory", "work"), rounds),
            **benchmarks.measure(of("file", "own"), 5 if quick else 15),
            **windows.measure(of("ui", "start", "floor", "first start"), 5 if quick else 15)}


def main():
    parser = argparse.ArgumentParser(prog="tools/bench", description=__doc__)
    parser.add_argument("--quick", action="store_true", help="fewer rounds")
    parser.add_argument("goals", nargs="*", help="such as C1 or U7; all when none is named")
    options = parser.parse_args()
    chosen = [goal for goal in goals.ALL if not options.goals or goal.name in options.goals]
    if not chosen:
        parser.error("no such goal")
    began = datetime.datetime.now()
    load = os.getloadavg()[0]
    wanted = Wanted()
    for goal in chosen:
        goal.figure(wanted)
    figures = measure(list(wanted.names), options.quick)
    rows, missed = [], 0
    for goal in chosen:
        value = goal.figure(figures)
        verdict = goal.verdict(value)
        missed += verdict == "MISSED"
        sign = "≥ " if goal.more else ""
        rows.append([goal.name, goal.what, sign * (goal.must is not None) + limit(goal, goal.must),
                     sign * (goal.aim is not None) + limit(goal, goal.aim), f"{number(value)} {goal.unit}", verdict])
    seconds = (datetime.datetime.now() - began).seconds
    lines = table(["Goal", "What", "Must", "Aim", "Measured", "Verdict"], rows)
    lines += ["", f"Sizes: {windows.sizes()}."] if windows.sizes() else []
    lines += ["", f"{began:%Y-%m-%d %H:%M}, {seconds} s, {'quick, ' if options.quick else ''}load before {load:.1f}. "
              "The figures behind it, in ms and, for memory, MB:", ""]
    lines += table(["Figure", "Least"], [[" ".join(name), number(figures[name])] for name in sorted(wanted.names)])
    text = "\n".join(lines) + "\n"
    (data.ROOT / "build/bench/goals.md").write_text(text)
    print(text, end="")
    return 1 if missed else 0


if __name__ == "__main__":
    sys.exit(main())
