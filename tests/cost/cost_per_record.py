#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Tavrin authors
# SPDX-License-Identifier: MIT
"""Fails when a job costs more for each record the more records there are: a quadratic step.

    cost_per_record.py VALGRIND COUNTED-JOBS [COUNT...]

What is counted is instructions, not seconds, so the outcome does not depend on the machine's load.
"""

import os
import re
import subprocess
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

COUNTS = [1_000, 10_000, 30_000]
WHOLE_FILE = ["open", "save"]
OPERATIONS = 100
# Instructions hardly vary: a tenth is for tables that grow in steps. Thirty times the records and a tenth find
# what three hundred times and half would find, in a tenth of the time: a third of an instruction for each pair.
MOST_GROWTH = 1.1
# A job on one record may move an array of 8 bytes a record along, which takes an instruction a record and
# 0.1 ms in a million. Whatever looks at the records one by one takes more than that.
MOST_FOR_EACH_OTHER_RECORD = 3


def write_datafile(path, count):
    """Small records with every key that a record has, in the layout of the program's own writer."""
    flags = ["NeedsSync", "IsSum", "RecordLocked", "RecordWasLocked"]
    dates = ["RecordCreatedDate", "RecordModifiedDate", "RecordViewedDate"]
    texts = ["RecordName", "RecordCreatedBy", "RecordModifiedBy", "RecordViewedBy"]
    bookkeeping = "".join(
        [f"\t\t\t<key>{key}</key>\n\t\t\t<false/>\n" for key in flags]
        + [f"\t\t\t<key>{key}</key>\n\t\t\t<date>2020-02-20T20:20:20Z</date>\n" for key in dates]
        + [f"\t\t\t<key>{key}</key>\n\t\t\t<string></string>\n" for key in texts]
        + ["\t\t\t<key>TextRTFD</key>\n\t\t\t<data>\n\t\t\t</data>\n"])
    field = "0F0F0F0F-0000-4000-8000-000000000000"
    identifiers = [f"{number * 2654435761 % 2**32:08X}-0000-4000-8000-{number:012X}" for number in range(count)]
    with open(path, "w", encoding="utf-8") as file:
        file.write('<?xml version="1.0" encoding="UTF-8"?>\n'
                   '<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" '
                   '"http://www.apple.com/DTDs/PropertyList-1.0.dtd">\n'
                   '<plist version="1.0">\n<dict>\n'
                   "\t<key>Settings</key>\n\t<dict>\n\t\t<key>DataFormat</key>\n\t\t<integer>1</integer>\n"
                   "\t\t<key>Fields</key>\n\t\t<array>\n\t\t\t<dict>\n"
                   f"\t\t\t\t<key>Identifier</key>\n\t\t\t\t<string>{field}</string>\n"
                   "\t\t\t\t<key>Name</key>\n\t\t\t\t<string>Name</string>\n\t\t\t</dict>\n\t\t</array>\n\t</dict>\n"
                   "\t<key>Records</key>\n\t<dict>\n")
        for number, identifier in enumerate(identifiers):
            file.write(f"\t\t<key>{identifier}</key>\n\t\t<dict>\n"
                       f"\t\t\t<key>RecordIdentifier</key>\n\t\t\t<string>{identifier}</string>\n"
                       f"\t\t\t<key>Fields</key>\n\t\t\t<dict>\n"
                       f"\t\t\t\t<key>{field}</key>\n\t\t\t\t<string>Name {number}</string>\n\t\t\t</dict>\n"
                       f"\t\t\t<key>TextString</key>\n\t\t\t<string>Text {number}</string>\n{bookkeeping}\t\t</dict>\n")
        file.write("\t</dict>\n\t<key>Catalog</key>\n\t<array>\n")
        for identifier in identifiers:
            file.write(f"\t\t<dict>\n\t\t\t<key>Identifier</key>\n\t\t\t<string>{identifier}</string>\n"
                       "\t\t\t<key>CurrentlySelected</key>\n\t\t\t<true/>\n"
                       "\t\t\t<key>PreviouslySelected</key>\n\t\t\t<true/>\n\t\t</dict>\n")
        file.write("\t</array>\n</dict>\n</plist>\n")


def instructions(valgrind, program, count):
    """Job -> instructions, with a datafile of that many records."""
    with tempfile.TemporaryDirectory() as folder:
        datafile = Path(folder) / "datafile.tv3"
        write_datafile(datafile, count)
        subprocess.run([valgrind, "--quiet", "--tool=callgrind", f"--callgrind-out-file={folder}/counts",
                        program, str(datafile), str(OPERATIONS)],
                       check=True, stdout=subprocess.DEVNULL, env={**os.environ, "QT_HASH_SEED": "0"})
        result = {}
        for path in sorted(Path(folder).glob("counts.*"), key=lambda dump: int(dump.suffix[1:])):
            text = path.read_text()
            job = re.search(r"^desc: Trigger: Client Request: (\S+)$", text, re.M)
            if job:
                result[job[1]] = int(re.search(r"^totals: (\d+)", text, re.M)[1])
        return result


def main():
    valgrind, program, *given = sys.argv[1:]
    counts = [int(count) for count in given] or COUNTS
    with ThreadPoolExecutor() as pool:
        found = pool.map(lambda count: instructions(valgrind, program, count), counts)
        costs = dict(zip(counts, found))
    fewest = counts[0]
    print(f"{'instructions':16}" + "".join(f"{count:>12,}" for count in counts))
    failed = False
    for job in costs[fewest]:
        if job in WHOLE_FILE:
            each = [costs[count][job] / count for count in counts]
            good = max(each) <= MOST_GROWTH * each[0]
            what = f"a record; at most {MOST_GROWTH} times the first"
        else:
            each = [costs[count][job] / OPERATIONS for count in counts]
            good = all(cost - each[0] <= MOST_FOR_EACH_OTHER_RECORD * (count - fewest)
                       for cost, count in zip(each, counts))
            what = f"a time; at most {MOST_FOR_EACH_OTHER_RECORD} more for each further record"
        failed |= not good
        print(f"{job:16}" + "".join(f"{cost:12,.0f}" for cost in each) + f"  {what}{'' if good else ': FAILED'}")
    return failed


if __name__ == "__main__":
    sys.exit(main())
