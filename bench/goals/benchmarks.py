"""What is measured inside of a process, by Google Benchmark: the least of the repetitions in milliseconds."""
import json
import os
import re
import subprocess

from data import ROOT, event_set

IN_MILLISECONDS = {"ns": 1e-6, "us": 1e-3, "ms": 1.0}


def run(program, names, file, repetitions):
    wanted = "|".join(re.escape(name) for name in names)
    output = subprocess.run(
        [ROOT / f"build/bench/bin/bench_{program}", f"--benchmark_filter=^({wanted})$", "--benchmark_format=json",
         "--benchmark_min_time=0.05", f"--benchmark_repetitions={repetitions}",
         "--benchmark_enable_random_interleaving=true"],
        env=dict(os.environ, **({"KAZ_BENCH_EVENTS": file} if file else {})), capture_output=True, text=True, check=True)
    least = {}
    for case in json.loads(output.stdout)["benchmarks"]:
        if case["run_type"] == "iteration":
            time = case["real_time"] * IN_MILLISECONDS[case["time_unit"]]
            name = case["name"].split("/repeats")[0]
            least[name] = min(time, least.get(name, time))
    return least


def measure(wanted, repetitions):
    """Of names like ("file", "storage", "Save/10000"), on the set of 10,000 events; ("own", ...) is on events of the
    benchmark's own."""
    figures = {}
    file = str(event_set("10k")[0] / "events.xml")
    for kind, program in dict.fromkeys(name[:2] for name in wanted):
        names = [name[2] for name in wanted if name[:2] == (kind, program)]
        for name, time in run(program, names, file if kind == "file" else None, repetitions).items():
            figures[kind, program, name] = time
    return figures
