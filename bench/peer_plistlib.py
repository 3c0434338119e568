#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Tavrin authors
# SPDX-License-Identifier: MIT
"""peer_plistlib.py JOB FILE ROUNDS: the same jobs as tavrin-bench's, done with Python's plistlib."""

import gc
import os
import plistlib
import statistics
import sys
import time
from pathlib import Path


def save(value, path):
    with open(path, "wb") as file:
        plistlib.dump(value, file, sort_keys=False)
        file.flush()
        os.fsync(file.fileno())
    path.replace(f"{path}.saved")


def main():
    job, path, rounds = sys.argv[1], Path(sys.argv[2]), int(sys.argv[3])
    copy = Path(f"{path}.plistlib")
    value = plistlib.loads(path.read_bytes()) if job == "save" else None
    work = {"open": lambda: plistlib.loads(path.read_bytes()), "save": lambda: save(value, copy)}[job]
    times = []
    for _ in range(rounds):
        gc.collect()
        start = time.process_time(), time.monotonic()
        work()
        times.append((time.process_time() - start[0], time.monotonic() - start[1]))
    print(job, *map(statistics.median, zip(*times)))
    Path(f"{copy}.saved").unlink(missing_ok=True)


if __name__ == "__main__":
    main()
