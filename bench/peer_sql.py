#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Tavrin authors
# SPDX-License-Identifier: MIT
"""peer_sql.py sqlite|duckdb ROWS ROUNDS: what sorting the rows costs in a database in memory.

ROWS has a text and an amount of money in each line, between them a tab. Prints names and medians; exit
status 3 when the database is not installed.
"""

import importlib
import statistics
import sys
import time


def main():
    engine, path, rounds = sys.argv[1], sys.argv[2], int(sys.argv[3])
    try:
        module = importlib.import_module({"sqlite": "sqlite3"}.get(engine, engine))
    except ImportError:
        sys.exit(3)
    with open(path, encoding="utf-8", newline="\n") as file:
        lines = [line.rstrip("\n").split("\t") for line in file]
    rows = [(i, name, float(amount.translate({ord(c): None for c in "$,"}) or 0)) for i, (name, amount) in enumerate(lines)]
    database = module.connect(":memory:")
    if engine == "duckdb":
        database.execute("SET threads = 1")
    database.execute("CREATE TABLE records (place INTEGER, name VARCHAR, amount DOUBLE)")
    if engine == "duckdb":
        import csv, tempfile  # row by row it would take minutes

        with tempfile.NamedTemporaryFile("w", suffix=".csv", newline="") as made:
            csv.writer(made).writerows(rows)
            made.flush()
            database.execute(f"COPY records FROM '{made.name}'")
    else:
        database.executemany("INSERT INTO records VALUES (?, ?, ?)", rows)
    # Only one row is fetched, so that making Python's objects does not count; the limit has all of them sorted.
    query = "SELECT max(place) FROM (SELECT place FROM records ORDER BY {} LIMIT 1000000000)"
    for name, by in ("texts", "name COLLATE NOCASE"), ("numbers", "amount"):
        times = []
        for _ in range(rounds):
            used, start = time.process_time(), time.monotonic()
            database.execute(query.format(by)).fetchall()
            times.append((time.process_time() - used, time.monotonic() - start))
        print(name, *(f"{statistics.median(clock):.9f}" for clock in zip(*times)))


main()
