#!/usr/bin/python3
"""Makes the faults and writes what was seen into the table of a page.

  campaign.py PAGE [FAULT...]       all of them, if none is named; the other rows of the page stay"""

import functools
import os
import sys
import traceback

import killed
import storage
import surrounding

FAULTS = {
    **{f"killed-{work}": (f"`kill -9` of the history's code while {work}",
                          functools.partial(killed.kill_often, work)) for work in killed.CHECKS},
    "killed-program": ("`kill -9` of the program while copies come in", surrounding.killed_program),
    "full-disk": ("a disk with 0 to 16 pages left at each save", storage.full_disk),
    "read-only": ("the store on a disk that is read-only", storage.read_only_folder),
    "vanished": ("the store's folder removed below the running program", storage.vanished_folder),
    "locked": ("the store locked by another program for a minute, the history opened meanwhile",
               storage.locked_store),
    "display": ("the X server killed while copies come in", surrounding.ended_display),
    "bus": ("the session bus killed and started again", surrounding.restarted_bus),
    "tray": ("the panel killed and started again", surrounding.restarted_tray),
    "clock": ("stopped, and the clock set by a day or 31 years, ahead and back",
              surrounding.shifted_clock),
    "bursts": ("bursts of three owners, a copy each 5 ms", surrounding.bursts),
    "owners": ("owners that hang, lie, drip, race or die, the history opened meanwhile",
               surrounding.bad_owners),
}
HEADS = ("fault", "how often", "what was seen")


def rows_of(page):
    """What a page has, by the fault."""
    rows = {}
    for line in page.splitlines():
        cells = [cell.strip() for cell in line.strip("|").split(" | ")]
        if line.startswith("| ") and len(cells) == len(HEADS) and cells[0] not in (HEADS[0], "---"):
            rows[cells[0]] = cells
    return rows


def write(path, rows):
    """The page's words stay."""
    with open(path, encoding="utf-8") as file:
        words = file.read().partition(f"| {HEADS[0]} |")[0]
    lines = [HEADS, ["---"] * len(HEADS),
             *(rows[what] for what, _ in FAULTS.values() if what in rows)]
    with open(path, "w", encoding="utf-8") as file:
        file.write(words + "".join("| " + " | ".join(line) + " |\n" for line in lines))


def main(path, names):
    with open(path, encoding="utf-8") as file:
        rows = rows_of(file.read())
    has_failed = False
    for name in names or FAULTS:
        what, make = FAULTS[name]
        try:
            often, seen = make()
        except Exception as problem:  # pylint: disable=broad-except
            traceback.print_exc()
            has_failed = True
            often, seen = "", f"**failed**: {str(problem).splitlines()[0]}"
        print(f"{name}: {often}: {seen}", flush=True)
        rows[what] = [what, often, seen]
        write(path, rows)
    return has_failed


if __name__ == "__main__":
    os.umask(0o022)
    sys.exit(main(sys.argv[1], sys.argv[2:]))
