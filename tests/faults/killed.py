"""Kills what works on a store at a random instant. A clip counts as committed when another connection
read it from the store's file before that: each of those must be there afterwards, unless the work
deletes clips, and then together with what it was saved with."""

import collections
import os
import random
import shutil
import signal
import sqlite3
import subprocess
import tempfile
import time

PROBE = os.path.abspath(os.environ.get("STORE_PROBE", "build/dev/tests/history/store_probe"))
FEW = 20  # clips that the probe keeps for all works but copying
ROOM = 30  # while it trims

# From before there were files, formats, indexes and pins.
OLD_SHAPE = ("CREATE TABLE ClipItem (pk INTEGER PRIMARY KEY, id INTEGER, strValue TEXT, "
             "createDate REAL, pasteCount INTEGER); PRAGMA user_version = 1;")

Clip = collections.namedtuple("Clip", "text pastes")


class Lost(AssertionError):
    pass


def read(file):
    """The clips, oldest first; none while there is no table yet."""
    store = sqlite3.connect(f"file:{file}?mode=ro", uri=True, timeout=10)
    try:
        columns = [row[1] for row in store.execute("PRAGMA table_info(ClipItem)")]
        if "createDate" not in columns or "pasteCount" not in columns:
            return []
        return [Clip(text, -1 if pastes is None else pastes) for text, pastes in store.execute(
            "SELECT strValue, pasteCount FROM ClipItem ORDER BY createDate, pk")]
    finally:
        store.close()


def check_whole(file):
    with sqlite3.connect(file, timeout=10) as store:
        told = store.execute("PRAGMA integrity_check").fetchall()
    store.close()
    if told != [("ok",)]:
        raise Lost(f"the store is broken: {told}")


def demand(holds, seen, found):
    if not holds:
        raise Lost(f"there was {[clip.text for clip in seen]}, there is "
                   f"{[clip.text for clip in found]}")


def numbers(clips):
    return [int(clip.text.split()[1]) for clip in clips]


def is_run(values):
    return values == list(range(values[0], values[0] + len(values))) if values else True


def check_copying(seen, found):
    demand(is_run(numbers(found)) and len(found) >= len(seen) and found[:len(seen)] == seen, seen,
           found)


def check_pasting(seen, found):
    demand(numbers(found) == list(range(len(found))) and len(found) >= len(seen) and
           all(now.pastes >= then.pastes for now, then in zip(found, seen)), seen, found)


def check_trimming(seen, found):
    # The newest stay, and as many as there is room for: 10 where that was wanted, counting on.
    now, then = numbers(found), numbers(seen)
    demand(is_run(now) and len(now) <= ROOM + 1 and (not then or (
        now and now[-1] >= then[-1] and (len(now) >= min(len(then), 10)))), seen, found)


def check_clearing(seen, found):
    # Clips of one round, the first of it on: a round goes as a whole.
    def rounds(clips):
        return {clip.text.split(" of ")[1] for clip in clips}
    order = [int(clip.text.split(" of ")[0]) for clip in found]
    demand(len(rounds(found)) <= 1 and order == list(range(len(found))), seen, found)
    if seen and rounds(seen) == rounds(found) and len(seen) < FEW:
        demand(len(found) >= len(seen), seen, found)


def check_returning(seen, found):
    # Three are deleted and brought back at a time.
    demand(len(found) >= min(len(seen), FEW - 3) and
           set(numbers(found)) <= set(range(FEW)) and len(set(found)) == len(found), seen, found)


def check_migrating(seen, found):
    demand(found == seen, seen, found)


CHECKS = {"copying": check_copying, "pasting": check_pasting, "trimming": check_trimming,
          "clearing": check_clearing, "returning": check_returning, "migrating": check_migrating}


def make_old(file, count=300):
    os.makedirs(os.path.dirname(file))
    store = sqlite3.connect(file)
    store.executescript(OLD_SHAPE)
    store.executemany("INSERT INTO ClipItem (strValue, createDate, pasteCount) VALUES (?, ?, ?)",
                      [(f"clip {i} " + "x" * 400, i, i) for i in range(count)])
    store.commit()
    store.close()


def kill_once(work, file, chance):
    """Of a process that works; what was in the store before, and is afterwards."""
    is_migrating = work == "migrating"
    seen = read(file) if is_migrating else []
    with subprocess.Popen([PROBE, "open" if is_migrating else work, os.path.dirname(file)],
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL) as probe:
        if is_migrating or chance.random() < 0.2:  # while it opens the store
            time.sleep(chance.uniform(0, 0.06))
        else:
            probe.stdout.readline()
            time.sleep(chance.uniform(0, 0.08))
        if os.path.exists(file) and not is_migrating:
            seen = read(file)
        has_ended = probe.poll() is not None
        probe.send_signal(signal.SIGKILL)
        probe.wait()
    if has_ended and not is_migrating:
        raise Lost(f"the probe has ended by itself, with {probe.returncode}")
    if not os.path.exists(file):
        return seen, []
    check_whole(file)
    return seen, read(file)


def kill(work, times, chance):
    """How many clips were committed when the process was killed, of all times."""
    committed = 0
    folder = tempfile.mkdtemp(prefix="quillmarsh-killed-", dir="/dev/shm")
    file = os.path.join(folder, "store", "Quillmarsh.sqlite")
    try:
        for number in range(times):
            # A store lives through many deaths; an old one is new to us once.
            if work == "migrating" or number % 25 == 0:
                shutil.rmtree(os.path.dirname(file), ignore_errors=True)
                if work == "migrating":
                    make_old(file)
            seen, found = kill_once(work, file, chance)
            CHECKS[work](seen, found)
            committed += len(seen)
            if number % 20 == 19:
                opened = subprocess.run([PROBE, "open", os.path.dirname(file)], check=True,
                                        capture_output=True, text=True).stdout.split("\n")
                if [text for text in opened if text] != [clip.text for clip in reversed(found)]:
                    raise Lost("the program reads another history than is in its file")
    finally:
        shutil.rmtree(folder, ignore_errors=True)
    return committed


def kill_often(work, times=200, seed=None):
    """How often, and what came of it."""
    seed = random.randrange(1 << 32) if seed is None else seed
    try:
        committed = kill(work, times, random.Random(seed))
    except Lost as loss:
        raise Lost(f"{loss} (seed {seed})") from None
    return f"{times}", f"all of {committed:,} committed clips there, store whole"
