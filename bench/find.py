#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Tavrin authors
# SPDX-License-Identifier: MIT
"""Finds words in datafiles, with Tavrin and with other software, and prints what it costs.

    find.py --programs FOLDER --rounds N FILE...

Processor seconds, medians. Fails when a job fails, never because it is slow.
"""

import argparse
import resource
import shutil
import sqlite3
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

WORDS = {"nowhere": "zyxwvutsrq", "rare": "quixotry"}


def median_of(rounds, job):
    times = []
    for _ in range(rounds):
        start = time.process_time()
        used = resource.getrusage(resource.RUSAGE_CHILDREN)
        job()
        now = resource.getrusage(resource.RUSAGE_CHILDREN)
        child = now.ru_utime + now.ru_stime - used.ru_utime - used.ru_stime
        times.append(time.process_time() - start + child)
    return statistics.median(times)


def like(texts, rounds):
    """SQLite with the records in memory: LIKE on each column."""
    database = sqlite3.connect(":memory:")
    with open(texts, encoding="utf-8", newline="\n") as lines:
        rows = (line.rstrip("\n").split("\t") for line in lines)
        first = next(rows)
        names = [f"c{column}" for column in range(len(first))]
        database.execute(f"create table records ({', '.join(names)})")
        places = ", ".join("?" * len(names))
        insert = f"insert into records values ({places})"
        database.execute(insert, first)
        database.executemany(insert, (row[: len(names)] for row in rows))
    where = " or ".join(f"{name} like ?" for name in names)

    def count(word):
        return database.execute(f"select count(*) from records where {where}", [f"%{word}%"] * len(names)).fetchone()[0]

    return {name: median_of(rounds, lambda: count(word)) for name, word in WORDS.items()}


def grep(texts, rounds):
    if not shutil.which("grep"):
        return dict.fromkeys(WORDS)
    command = ["grep", "-i", "-c"]
    return {
        name: median_of(rounds, lambda: subprocess.run([*command, word, texts], stdout=subprocess.DEVNULL))
        for name, word in WORDS.items()
    }


def tavrin(program, path, rounds):
    command = [program, path, str(rounds), *WORDS.values()]
    done = subprocess.run(command, stdout=subprocess.PIPE, text=True)
    if done.returncode:
        sys.exit(f"find.py: {path}: exit status {done.returncode}")
    lines = [line.split() for line in done.stdout.splitlines()]
    return {name: float(first) for name, first, _ in lines}


def ratio(ours, other):
    return f"{ours / other:.3g}" if other else "–"


def table(program, path, rounds):
    ours = tavrin(program, path, rounds)
    with tempfile.NamedTemporaryFile(suffix=".txt") as texts:
        subprocess.run([program, "--texts", path], stdout=texts, check=True)
        peers = grep(texts.name, rounds), like(texts.name, (rounds + 1) // 2)
    for name, word in WORDS.items():
        found, places = ours[name], ours["places"]
        grepped, liked = (peer[name] for peer in peers)
        met = "yes" if found <= 2 * places and found <= 0.12 * liked else "**no**"
        cells = [f"{word} ({name})", f"{path.stem}, {ours['sizes'] / 1e6:.0f} MB", f"{found:.3g} s", f"{places:.3g}"]
        cells += [ratio(found, places), ratio(found, ours["texts"]), ratio(found, grepped), f"{liked:.3g}"]
        print("| " + " | ".join([*cells, ratio(found, liked), met]) + " |", flush=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--programs", type=Path, required=True)
    parser.add_argument("--rounds", type=int, default=5)
    parser.add_argument("files", type=Path, nargs="+")
    options = parser.parse_args()
    print("| find | where | ours | limit | x limit | x texts | x grep -i | LIKE | x LIKE | met |")
    print("|---|---|--:|--:|--:|--:|--:|--:|--:|---|")
    for path in options.files:
        table(options.programs / "tavrin-bench-find", path, options.rounds)
    print("\nProcessor seconds, medians. Limit: one pass over the bytes in which the texts lie in the datafile;")
    print("texts: one over the texts alone, lying together; grep reads those from a file. Goal: x limit ≤ 2 and")
    print("x LIKE ≤ 0.12.")


if __name__ == "__main__":
    main()
