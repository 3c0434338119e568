# SPDX-FileCopyrightText: The Tavrin authors
# SPDX-License-Identifier: MIT

"""Makes datafiles, and compares them, with a property-list library that is not ours.

make FILE xml|binary    writes a datafile with unknown keys at every level
compare OLD NEW         prints the path of each place where they differ, order and types of values included
"""

import datetime
import plistlib
import sys

DAY = datetime.datetime(2019, 2, 28, 23, 59, 58)
SINCE = datetime.datetime(1895, 1, 1)


def record(identifier, **more):
    return {
        "FromTheFuture": {"list": [1, 2.5, True, "x", b"\x00\xff", DAY], "empty": {}},
        "RecordName": "",
        "RecordIdentifier": identifier,
        "NeedsSync": False, "IsSum": False, "RecordLocked": "YES", "RecordWasLocked": 1,
        "RecordCreatedDate": SINCE, "RecordModifiedDate": DAY, "RecordViewedDate": DAY,
        "RecordCreatedBy": "Zoë \U0001f33b", "RecordModifiedBy": "", "RecordViewedBy": "a & b <c>",
        "Fields": {"f-name": "Ada", "f-odd": 12, "f-real": 0.1, "f-yes": True, "f-day": DAY,
                   "f-data": b"abc" * 100, "f-list": ["a", {"b": -7}], "f-unknown": " kept  "},
        "TextString": "first line\n\n\tlast line ",
        "TextRTFD": bytes(range(256)) * 5,
        **more,
    }


def datafile():
    return {
        "RootBefore": ["kept", 2**63, -2**63],
        "Catalog": [
            {"Identifier": "R-2", "CurrentlySelected": "YES", "PreviouslySelected": 0, "Colour": "red"},
            {"PreviouslySelected": True, "Identifier": "R-1", "CurrentlySelected": False},
            {"Identifier": "R-3", "CurrentlySelected": True, "PreviouslySelected": True},
        ],
        "Settings": {
            "DataFormat": 1, "DataVersion": 7, "SettingFromTheFuture": {"deep": [[{"er": 1.5}]]},
            "Fields": [
                {"Identifier": "f-name", "Name": "Name", "Width": 150.0, "Show": True, "Hue": [1, 2]},
                {"Name": "Odd", "Identifier": "f-odd"},
            ],
            "FTAbackgrouneColor": b"no colour", "Criteria": {"DataFormat": 1, "Unknown": "kept"},
            "LastAutoAddInteger": 2**40, "Munge": "", "SortTaskDict": {"by name": {"x": 1}},
        },
        "Records": {
            "R-3": record("R-3"),
            "R-1": record("R-1", TextString="", TextRTFD=b""),
            "R-2": record("R-other"),
        },
        "RootBehind": {"kept": DAY},
    }


def differences(old, new, path):
    if type(old) is not type(new):
        yield f"{path}: {type(old).__name__} became {type(new).__name__}"
    elif isinstance(old, dict):
        if list(old) != list(new):
            yield f"{path}: keys {list(old)} became {list(new)}"
        for key in old:
            if key in new:
                yield from differences(old[key], new[key], f"{path}/{key}")
    elif isinstance(old, list):
        if len(old) != len(new):
            yield f"{path}: {len(old)} elements became {len(new)}"
        for index, pair in enumerate(zip(old, new)):
            yield from differences(*pair, f"{path}/{index}")
    elif old != new:
        yield path


def main(command, first, second):
    if command == "make":
        form = {"xml": plistlib.FMT_XML, "binary": plistlib.FMT_BINARY}[second]
        with open(first, "wb") as file:
            plistlib.dump(datafile(), file, fmt=form, sort_keys=False)
    else:
        with open(first, "rb") as old, open(second, "rb") as new:
            for line in differences(plistlib.load(old), plistlib.load(new), ""):
                print(line)


main(*sys.argv[1:])
