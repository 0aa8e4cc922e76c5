#!/usr/bin/env python3
"""count_tests.py BUILD JUNIT: prints "PASSED FAILED" for one CTest run.

Counts the cases of each test program from the XML that it left in BUILD/results; a program without one (a script, a
fuzz replay, a program that crashed before its end) counts as one case.
"""
import pathlib
import sys
import xml.etree.ElementTree as ElementTree


def cases_of(report):
    try:
        suites = ElementTree.parse(report).getroot()
        total, bad, off = (int(suites.get(name, 0)) for name in ("tests", "failures", "disabled"))
        skipped = sum(1 for case in suites.iter("testcase") if case.get("result") == "skipped")
        return total - bad - off - skipped, bad
    except (OSError, ElementTree.ParseError):
        return None


def main():
    build, junit = map(pathlib.Path, sys.argv[1:])
    passed = failed = 0
    for test in ElementTree.parse(junit).getroot().iter("testcase"):
        ok = test.get("status") == "run"
        good, bad = cases_of(build / "results" / f"{test.get('name')}.xml") or (1 if ok else 0, 0)
        passed += good
        failed += bad if ok or bad else 1
    print(passed, failed)


if __name__ == "__main__":
    main()
