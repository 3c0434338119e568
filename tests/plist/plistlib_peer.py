# SPDX-FileCopyrightText: The Tavrin authors
# SPDX-License-Identifier: MIT
"""An independent reader and writer of property lists, for PlistlibPeerTest.

    plistlib_peer.py dump FILE...        for each FILE, write what it holds to FILE.dump
    plistlib_peer.py make SEED FOLDER    write random lists, and what they hold, into FOLDER
"""

import datetime
import pathlib
import plistlib
import random
import struct
import sys

REFERENCE = datetime.datetime(2001, 1, 1)


def dump(value):
    """One line a value, every type marked, keys in order: equal text means equal trees."""
    if isinstance(value, bool):
        return f"b{int(value)}\n"
    if isinstance(value, int):
        return f"i{value}\n"
    if isinstance(value, float):
        return "r" + ("nan" if value != value else struct.pack(">d", value + 0.0).hex()) + "\n"
    if isinstance(value, str):
        return f"s{value.encode().hex()}\n"
    if isinstance(value, bytes):
        return f"d{value.hex()}\n"
    if isinstance(value, datetime.datetime):
        return f"t{int((value - REFERENCE).total_seconds())}\n"
    if isinstance(value, plistlib.UID):
        return f"u{value.data}\n"
    if isinstance(value, list):
        return f"[{len(value)}\n" + "".join(map(dump, value))
    entries = sorted((key.encode().hex(), item) for key, item in value.items())
    return f"{{{len(value)}\n" + "".join(f"k{key}\n{dump(item)}" for key, item in entries)


def random_text(source):
    return "".join(source.choices("aZ<>&\"' \t\né€\u2028\U0001F600\ufeff", k=source.randrange(30)))


def random_value(source, depth, uids):
    kind = source.randrange(10 if depth < 4 else 7)
    if kind == 0:
        return source.random() < 0.5
    if kind == 1:
        return source.randrange(-(2**63), 2**64) >> source.randrange(64)
    if kind == 2:
        return source.choice([0.0, 1e300, float("inf"), float("-inf"), float("nan"), source.random()])
    if kind == 3:
        return source.randbytes(source.randrange(200))
    if kind == 4:
        return REFERENCE + datetime.timedelta(seconds=source.randrange(-(10**10), 10**11))
    if kind == 5 and uids:
        return plistlib.UID(source.randrange(2**32))
    if kind <= 6:
        return random_text(source)
    if kind == 7:
        return [random_value(source, depth + 1, uids) for _ in range(source.randrange(12))]
    return random_dictionary(source, depth + 1, uids)


def random_dictionary(source, depth, uids):
    count = source.randrange(5, 30) if depth == 0 else source.randrange(12)
    return {random_text(source): random_value(source, depth, uids) for _ in range(count)}


def make(seed, folder):
    source = random.Random(seed)
    forms = {"xml": plistlib.FMT_XML, "bplist": plistlib.FMT_BINARY}
    for number in range(20):
        for suffix, form in forms.items():
            tree = random_dictionary(source, 0, suffix == "bplist")
            path = folder / f"{number}.{suffix}"
            path.write_bytes(plistlib.dumps(tree, fmt=form, sort_keys=number % 2 == 0))
            pathlib.Path(f"{path}.dump").write_text(dump(tree))


def main():
    command, *arguments = sys.argv[1:]
    if command == "make":
        make(int(arguments[0]), pathlib.Path(arguments[1]))
    else:
        for name in arguments:
            tree = plistlib.loads(pathlib.Path(name).read_bytes())
            pathlib.Path(f"{name}.dump").write_text(dump(tree))


main()
