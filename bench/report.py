#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Tavrin authors
# SPDX-License-Identifier: MIT
"""Prints one table of the jobs that bench/run has timed.

    report.py PLISTLIB.json BENCHMARK.json... -- FILE...

Fails when a job was refused or a file has no times.
"""

import json
import sys
from pathlib import Path

# job, what it is called, what it is measured against: (column, job)
JOBS = [
    ("touch", "look at every byte once", []),
    ("scan", "find every `<`", []),
    ("copy", "copy the bytes", []),
    ("read", "read the property list", ["touch", "scan", "plistlib"]),
    ("write", "write the property list", ["copy", "plistlib"]),
    ("open", "open the datafile", ["touch", "scan"]),
    ("save", "save the datafile", ["copy"]),
]
COLUMNS = [("touch", "x one look"), ("scan", "x scan"), ("copy", "x copy"), ("plistlib", "x plistlib")]


def medians(paths):
    """(job, file name) -> median processor seconds of one round."""
    result = {}
    for path in paths:
        for run in json.loads(Path(path).read_text())["benchmarks"]:
            if run.get("error_occurred"):
                sys.exit(f"report.py: {run['name']}: {run['error_message']}")
            if run.get("aggregate_name") == "median":
                job, name = run["run_name"].split("/")[:2]
                result[job, name] = run["cpu_time"] / {"ns": 1e9, "us": 1e6, "ms": 1e3, "s": 1}[run["time_unit"]]
    return result


def row(job, title, against, path, seconds, plistlib):
    own = seconds[job, path.name]
    reference = {name: seconds.get((name, path.name)) for name, _ in COLUMNS}
    reference["plistlib"] = plistlib.get(path.name, {}).get(job)
    cells = [f"{own / reference[name]:.3g}" if name in against and reference[name] else "–" for name, _ in COLUMNS]
    megabytes = path.stat().st_size / 1e6
    return f"| {path.name} | {megabytes:.0f} | {title} | {own:.3g} | " + " | ".join(cells) + " |"


def main():
    separator = sys.argv.index("--")
    plistlib = json.loads(Path(sys.argv[1]).read_text())
    seconds = medians(sys.argv[2:separator])
    print("| file | MB | job | seconds | " + " | ".join(title for _, title in COLUMNS) + " |")
    print("|---|--:|---|--:|" + "--:|" * len(COLUMNS))
    for path in map(Path, sys.argv[separator + 1 :]):
        if ("read", path.name) not in seconds:
            sys.exit(f"report.py: no times for {path.name}")
        for job, title, against in JOBS:
            if (job, path.name) in seconds:
                print(row(job, title, against, path, seconds, plistlib))


if __name__ == "__main__":
    main()
