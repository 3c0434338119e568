#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Tavrin authors
# SPDX-License-Identifier: MIT
"""Runs the jobs, each in a process of its own, and prints one table of what they cost.

    table.py --programs FOLDER --rounds N --files FILE... --records FILE... --window EMPTY FILE --arrange FILE...

--files are opened and saved whole; --records, from few to many, are for jobs on one record; --window is
how long two datafiles take to the window; --arrange are sorted and selected from. Fails when a job fails, never because it is slow.
"""

import argparse
import os
import resource
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

PROCESSOR, ELAPSED = 0, 1
SINGLE = {
    "goto": "go to a record by its number",
    "show": "show a record",
    "change": "change a record",
    "add": "add a record",
    "delete": "delete a record",
}


class Programs:
    def __init__(self, folder, rounds):
        self.rounds = rounds
        self.paths = {name: [str(folder / f"tavrin-{name}")] for name in ("bench", "peer-libplist")}
        self.paths["peer-plistlib"] = [sys.executable, str(Path(__file__).with_name("peer_plistlib.py"))]
        self.tavrin = str(folder / "tavrin")
        self.arrange = str(folder / "tavrin-bench-arrange")

    def run(self, program, job, path):
        """What each line of the output says: name -> two figures. None when the program is not there."""
        command = self.paths[program]
        if not os.path.exists(command[-1]):
            return None
        print(f"{program} {job} {path.name}", file=sys.stderr)
        # Peers take so long that fewer rounds tell as much.
        slow = program == "peer-plistlib" and path.stat().st_size > 5e7
        rounds = 1 if slow else self.rounds if program == "bench" else (self.rounds + 1) // 2
        done = subprocess.run([*command, job, str(path), str(rounds)], stdout=subprocess.PIPE, text=True)
        if done.returncode:
            sys.exit(f"table.py: {program} {job} {path}: exit status {done.returncode}")
        lines = [line.split() for line in done.stdout.splitlines()]
        return {name: (float(first), float(second)) for name, first, second in lines}

    def seconds(self, program, job, path, clock):
        figures = self.run(program, job, path)
        return figures and figures[job][clock]

    def arranging(self, path):
        """Processor seconds of each job, and of the same in each database that is installed."""
        print(f"bench-arrange {path.name}", file=sys.stderr)

        def seconds(command):
            done = subprocess.run(command, stdout=subprocess.PIPE, text=True)
            if done.returncode == 3:
                return {}
            if done.returncode:
                sys.exit(f"table.py: {command[0]} {path}: exit status {done.returncode}")
            return {name: float(used) for name, used, _ in map(str.split, done.stdout.splitlines())}

        ours = seconds([self.arrange, "times", str(path), str(self.rounds)])
        peers = {}
        script = str(Path(__file__).with_name("peer_sql.py"))
        with tempfile.NamedTemporaryFile() as rows:
            subprocess.run([self.arrange, "rows", str(path), "1"], stdout=rows, check=True)
            for engine in ("sqlite", "duckdb"):
                rounds = str((self.rounds + 1) // 2)
                peers[engine] = seconds([sys.executable, script, engine, rows.name, rounds])
        return ours, peers

    def to_window(self, path):
        """Seconds on the clock, and of the processor, until a picture of the window is there."""
        print(f"tavrin {path.name}", file=sys.stderr)
        times = []
        with tempfile.TemporaryDirectory() as folder:
            picture = Path(folder) / "window.png"
            command = [self.tavrin, "--screenshot", str(picture), "--size", "1200x800", str(path)]
            for _ in range(2 * self.rounds - 1):
                start, used = time.monotonic(), resource.getrusage(resource.RUSAGE_CHILDREN)
                subprocess.run(command, env={**os.environ, "QT_QPA_PLATFORM": "offscreen"}, check=True)
                elapsed, now = time.monotonic() - start, resource.getrusage(resource.RUSAGE_CHILDREN)
                times.append((now.ru_utime + now.ru_stime - used.ru_utime - used.ru_stime, elapsed))
        return [statistics.median(clock) for clock in zip(*times)]


def row(job, size, ours, limit=None, peer=("", None), goals=(), unit="s"):
    """goals: (what the goal is about, what it is, at most)."""

    def figure(value):
        return f"{value:.3g}"

    def ratio(value):
        return f"{ours / value:.3g}" if value else "–"

    stated = [f"{name}{figure(most)}" for name, _, most in goals]
    kept = [value <= most for _, value, most in goals if value is not None]
    met = "–" if not kept else "yes" if all(kept) else "**no**"
    peer_cell = peer[0] + (f" {figure(peer[1])}" if peer[1] else " not installed" if peer[0] else "–")
    cells = [job, size, f"{figure(ours)} {unit}", figure(limit) if limit else "–", ratio(limit)]
    print("| " + " | ".join([*cells, peer_cell, ratio(peer[1]), ", ".join(stated) or "–", met]) + " |", flush=True)


def over(ours, other):
    return None if other is None else ours / other


def whole_file(programs, path):
    size = path.stat().st_size
    name = f"{path.stem}, {size / 1e6:.0f} MB"
    figures = programs.run("bench", "open", path)
    opened, scan = figures["open"][PROCESSOR], figures["scan"][PROCESSOR]
    libplist = programs.seconds("peer-libplist", "open", path, PROCESSOR)
    most = 0.08 if size > 1e9 else 0.15
    goals = [("x peer ≤ ", over(opened, libplist), most), ("x limit ≤ ", over(opened, scan), 4)]
    row("open", name, opened, scan, ("libplist", libplist), goals)
    if size < 1e9:
        row("open", name, opened, scan, ("plistlib", programs.seconds("peer-plistlib", "open", path, PROCESSOR)))

    memory, peak = programs.run("bench", "memory", path)["memory"]
    peer = programs.seconds("peer-libplist", "memory", path, 0)
    title = f"own memory beside the bytes (peak {peak / 1e6:.0f} MB)"
    row(title, name, memory, None, ("libplist", peer), [("≤ ", memory, 0.3)], "x file")

    libplist = programs.seconds("peer-libplist", "save", path, ELAPSED)
    for job, title in ("save-one", "save, one record changed *"), ("save-all", "save, all written anew *"):
        figures = programs.run("bench", job, path)
        saved, write = figures["save"][ELAPSED], figures["write"][ELAPSED]
        goal = ("x limit ≤ ", saved / write, 1.3) if job == "save-one" else ("x peer ≤ ", over(saved, libplist), 0.6)
        row(title, name, saved, write, ("libplist", libplist), [goal])
    if size < 1e9:
        row(title, name, saved, write, ("plistlib", programs.seconds("peer-plistlib", "save", path, ELAPSED)))


def single_records(programs, files):
    figures = [(path, programs.run("bench", "records", path)) for path in files]
    fewest, least = figures[0]
    for job, title in SINGLE.items():
        for path, figure in figures:
            mean, slowest = figure[job]
            # What lies further apart misses the processor's caches more often: that is no growth.
            growth = (mean - 2e-5) / least[job][0]
            goals = [("slowest ≤ ", slowest, 1e-3)]
            if path is not fewest:
                goals.append(("x limit ≤ ", growth, 2))
            row(f"{title} (slowest {slowest:.2g} s)", path.stem, mean, least[job][0], goals=goals)


def arrange(programs, path):
    ours, peers = programs.arranging(path)
    name = f"{path.stem}, {path.stat().st_size / 1e6:.0f} MB"
    is_large = path.stat().st_size > 5e8
    for what, most in ("texts", 1 if is_large else 0.6), ("numbers", 1 if is_large else 0.3):
        sort, limit = ours[f"sort-{what}"], ours[f"ready-{what}"]
        for engine, figures in peers.items():
            peer = figures.get(what)
            goals = [("x peer ≤ ", over(sort, peer), most)] if engine == "duckdb" else []
            row(f"sort by {what}", name, sort, limit, (engine, peer), goals)
    row("sort by created date", name, ours["sort-created"])
    for job, title in ("select", "select by Contains"), ("select-é", "the same, beyond ASCII"):
        row(title, name, ours[job], ours["look"], goals=[("x limit ≤ ", ours[job] / ours["look"], 2)])


def window(programs, empty, path):
    bare, full = programs.to_window(empty), programs.to_window(path)
    for clock, title in (ELAPSED, "to the window, more than an empty one *"), (PROCESSOR, "the same, processor"):
        more = full[clock] - bare[clock]
        row(title, f"{path.stem}, {path.stat().st_size / 1e6:.0f} MB", more, goals=[("s ≤ ", more, 0.2)])


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--programs", type=Path, required=True)
    parser.add_argument("--rounds", type=int, default=5)
    parser.add_argument("--files", type=Path, nargs="*", default=[])
    parser.add_argument("--records", type=Path, nargs="*", default=[])
    parser.add_argument("--window", type=Path, nargs=2)
    parser.add_argument("--arrange", type=Path, nargs="*", default=[])
    options = parser.parse_args()
    programs = Programs(options.programs, options.rounds)
    print("| job | size | ours | limit | x limit | peer | x peer | goal | met |")
    print("|---|---|--:|--:|--:|--:|--:|---|---|")
    for path in options.files:
        whole_file(programs, path)
    if options.records:
        single_records(programs, options.records)
    for path in options.arrange:
        arrange(programs, path)
    if options.window:
        window(programs, *options.window)
    print("\nMedians; jobs on one record: the mean of 400. Processor seconds, but elapsed ones where there is a *.")
    print('Limits: open, map the file and find every "<"; save, write as many bytes, flush, rename;')
    print("one record, the same with the fewest records (up to 20 µs do not count); sort, std::stable_sort of")
    print("ready keys; select, one look at every word of the texts.")


if __name__ == "__main__":
    main()
