#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Tavrin authors
# SPDX-License-Identifier: MIT
"""Processor seconds that Python's plistlib takes to read and to write each file, as JSON.

    plistlib_times.py [--rounds N] FILE...
"""

import argparse
import gc
import json
import plistlib
import statistics
import sys
import time
from pathlib import Path


def processor_seconds(work):
    gc.collect()
    start = time.process_time()
    result = work()
    return time.process_time() - start, result


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--rounds", type=int, default=3)
    parser.add_argument("files", nargs="+", type=Path)
    options = parser.parse_args()
    times = {}
    for path in options.files:
        reads, writes = [], []
        for _ in range(options.rounds):
            seconds, value = processor_seconds(lambda: plistlib.loads(path.read_bytes()))
            reads.append(seconds)
            seconds, _ = processor_seconds(lambda: plistlib.dumps(value, sort_keys=False))
            writes.append(seconds)
            del value
        times[path.name] = {"read": statistics.median(reads), "write": statistics.median(writes)}
    json.dump(times, sys.stdout)


if __name__ == "__main__":
    main()
