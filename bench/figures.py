#!/usr/bin/python3
"""Runs every figure of Quillmarsh beside two references in one go and prints a table.

The references are a bare X client (what nobody can beat) and a least Qt program (what the toolkit
costs). Each figure is a median on a private desktop, with the 99th percentile behind it; ratios
within one run are what counts on a noisy machine.

usage: figures.py BIN_DIR [--sizes 1000,10000,100000] [--clips even|real] [--runs 20]
       [--only NAME,...]
BIN_DIR holds quillmarsh, probe, bench_clips, floor_xcb, floor_qt and, for the added copy,
history_bench.
"""

import argparse
import json
import os
import pathlib
import plistlib
import re
import subprocess
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tests" / "support"))
from desktop import Desktop  # noqa: E402
from quillmarsh import Quillmarsh, pasteboard  # noqa: E402

LETTER_KEYCODE = 52  # "z" by position: rare enough that it changes the visible rows
IDLE_SECONDS = 10
SUBJECTS = ("floor", "qt", "quillmarsh")


class Subject:
    """One of the three programs, running on `desktop` with `count` clips of such `sizes`."""

    def __init__(self, kind, desktop, binaries, count, sizes):
        self.kind = kind
        self.desktop = desktop
        started = time.monotonic()
        if kind == "quillmarsh":
            self._seed(binaries, count, sizes)
            started = time.monotonic()
            self.program = Quillmarsh(desktop, str(binaries / "quillmarsh"))
            self.process = self.program.process
        else:
            history = pathlib.Path(desktop.home, "history.txt")
            subprocess.run([str(binaries / "bench_clips"), sizes, str(count), "--lines",
                            str(history)], check=True)
            started = time.monotonic()
            binary = binaries / ("floor_xcb" if kind == "floor" else "floor_qt")
            self.process = desktop.start([str(binary), str(history)], stdin=subprocess.PIPE,
                                         stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
            for line in self.process.stderr:
                if line.strip() == "ready":
                    break
        self.start_ms = (time.monotonic() - started) * 1000

    def _seed(self, binaries, count, sizes):
        seeded = pathlib.Path(self.desktop.home, "seeded")
        if seeded.exists():
            return
        seeded.touch()
        first = Quillmarsh(self.desktop, str(binaries / "quillmarsh"))
        store = first.store
        first.quit()
        if not count:
            return
        subprocess.run([str(binaries / "bench_clips"), sizes, str(count), "--store", str(store)],
                       check=True)
        plist = pathlib.Path(self.desktop.environment["XDG_CONFIG_HOME"],
                             "org.quillmarsh.Quillmarsh.plist")
        settings = plistlib.loads(plist.read_bytes())
        # Room for the copies that are added while measuring.
        settings["maxItems"] = max(count, 100_000)
        settings["maxStringSize"] = 100_000_000
        plist.write_bytes(plistlib.dumps(settings))

    def ask(self, command):
        self.process.stdin.write(command + "\n")
        self.process.stdin.flush()
        return self.process.stdout.readline().rstrip("\n")

    def recorded(self):
        """How many copies are in the history."""
        if self.kind == "quillmarsh":
            return len(self.program.clips("pk"))
        return int(self.ask("count"))

    def newest(self):
        if self.kind == "quillmarsh":
            return (self.program.clips() or [None])[0]
        return self.ask("last")

    def private_kib(self):
        told = pathlib.Path(f"/proc/{self.process.pid}/smaps_rollup").read_text()
        return sum(int(kib) for kib in re.findall(r"^Private_Dirty:\s+(\d+)", told, re.M))

    def wakeups(self):
        total = 0
        for task in pathlib.Path(f"/proc/{self.process.pid}/task").iterdir():
            told = (task / "status").read_text()
            total += int(re.search(r"^voluntary_ctxt_switches:\s+(\d+)", told, re.M)[1])
        return total


class Figures:
    def __init__(self, options):
        self.options = options
        self.binaries = pathlib.Path(options.bin_dir).resolve()
        self.rows = []

    def probe(self, desktop, *arguments):
        told = desktop.run([str(self.binaries / "probe"), *map(str, arguments)],
                           capture_output=True, text=True)
        if told.returncode:
            return {"runs": 0, "problem": told.stderr.strip()}
        return json.loads(told.stdout) if told.stdout.strip() else {}

    def each(self, name, measure, count=0):
        """Measures the three subjects, each on a fresh desktop."""
        cells = []
        for kind in SUBJECTS:
            with Desktop() as desktop:
                subject = Subject(kind, desktop, self.binaries, count, self.options.clips)
                try:
                    cells.append(measure(desktop, subject))
                except (OSError, TimeoutError, ValueError) as problem:
                    cells.append(f"failed: {problem}")
        self.rows.append((name, *cells))
        print(f"| {name} | " + " | ".join(map(str, cells)) + " |", flush=True)

    @staticmethod
    def milliseconds(told):
        if not told.get("runs"):
            return told.get("problem", "none")
        return f"{told['median']:.2f} / {told['p99']:.2f} ms"

    def request(self):
        self.each("owner change → text requested", lambda desktop, _: self.milliseconds(
            self.probe(desktop, "request-latency", 100)))

    def burst(self):
        def measure(desktop, subject):
            before = subject.recorded()
            self.probe(desktop, "burst", 100, 5)
            return subject.recorded() - before

        self.each("100 copies 5 ms apart: recorded", measure)

    def short_owner(self):
        def measure(desktop, subject):
            recorded = pasteable = 0
            for i in range(20):
                text = f"copied by a short-lived owner {i}"
                self.probe(desktop, "copy-and-quit", text, 50)
                try:
                    desktop.wait_for(lambda: subject.newest() == text, text, 1)
                    recorded += 1
                except TimeoutError:
                    pass
                try:
                    desktop.wait_for(lambda: pasteboard(desktop) == text, text, 0.5)
                    pasteable += 1
                except TimeoutError:
                    pass
            return f"{recorded} / {pasteable}"

        self.each("owner quits after 50 ms, 20 times: recorded / pasteable", measure)

    def opening(self):
        for count in self.options.sizes:
            self.each(f"hot key → content painted, {count:,} clips", lambda desktop, _: (
                self.milliseconds(self.probe(desktop, "open", self.options.runs))), count)

    def typing(self):
        for count in self.options.sizes:
            self.each(f"letter typed → list settled, {count:,} clips", lambda desktop, _: (
                self.milliseconds(self.probe(desktop, "type", self.options.runs,
                                             LETTER_KEYCODE))), count)

    def first(self):
        """What the first opening after a start takes, and the first letter, once there is rest."""
        for count in self.options.sizes:
            for name, *command in (("first opening → window settled", "first-opening"),
                                   ("first letter → list settled", "first-letter",
                                    LETTER_KEYCODE)):
                def measure(desktop, _, command=command):
                    time.sleep(self.options.rest)
                    return self.milliseconds(self.probe(desktop, *command))

                self.each(f"{name}, {count:,} clips", measure, count)

    def pasting(self):
        for count in self.options.sizes:
            self.each(f"Return → text in hand at the target, {count:,} clips", lambda desktop, _: (
                self.milliseconds(self.probe(desktop, "paste", self.options.runs))), count)

    def adding(self):
        bench = self.binaries / "history_bench"
        if not bench.exists():
            return
        told = subprocess.run([str(bench), "--benchmark_filter=[Aa]dd", "--benchmark_format=json"],
                              capture_output=True, text=True, check=False)
        for result in json.loads(told.stdout)["benchmarks"]:
            value = result["real_time"] / {"ns": 1e6, "us": 1e3, "ms": 1}[result["time_unit"]]
            self.tell(f"add a copy ({result['name']})", "", "", f"{value:.2f} ms")

    def memory(self):
        for count in (self.options.sizes[0], self.options.sizes[-1]):
            def measure(desktop, subject):
                # Opened and searched once, as in use; then left alone.
                self.probe(desktop, "type", 1, LETTER_KEYCODE)
                time.sleep(2)
                return f"{subject.private_kib() / 1024:.1f} MiB"

            self.each(f"private memory, {count:,} clips", measure, count)

    def growth(self):
        """What is left of memory, handles and threads after what must leave nothing."""
        def measure(desktop, subject):
            def state():
                process = pathlib.Path(f"/proc/{subject.process.pid}")
                return (subject.private_kib() / 1024, len(list((process / "fd").iterdir())),
                        len(list((process / "task").iterdir())))

            # Once before, because what is made once is no growth.
            self.probe(desktop, "open", 5)
            self.probe(desktop, "burst", 100, 5)
            time.sleep(self.options.rest)
            before = state()
            self.probe(desktop, "open", 100)
            self.probe(desktop, "burst", 10_000, 5)
            time.sleep(self.options.rest)
            grown = [after - b for after, b in zip(state(), before)]
            return f"{grown[0]:+.1f} MiB, {grown[1]:+d} handles, {grown[2]:+d} threads"

        self.each("100 openings and 10,000 copies: growth", measure, self.options.sizes[0])

    def large_copy(self):
        """What stays of a copy of 50 MB a minute later."""
        def measure(desktop, subject):
            before = subject.private_kib()
            self.probe(desktop, "copy-large", 50_000_000)
            time.sleep(60)
            return f"{(subject.private_kib() - before) / 1024:+.1f} MiB"

        self.each("50 MB copied, a minute later", measure, 1000)

    def start(self):
        for count in (0, self.options.sizes[-1]):
            self._start(count)

    def _start(self, count):
        def measure(desktop, subject):
            values = [subject.start_ms]
            for _ in range(6):
                subject.process.terminate()
                subject.process.wait()
                subject = Subject(subject.kind, desktop, self.binaries, count,
                                  self.options.clips)
                values.append(subject.start_ms)
            return f"{sorted(values)[len(values) // 2]:.0f} ms"

        self.each(f"start → ready, {count:,} clips", measure, count)

    def second_start(self):
        """From the start of a further process to its end, which it reaches once it was answered."""
        with Desktop() as desktop:
            subject = Subject("quillmarsh", desktop, self.binaries, 0, self.options.clips)
            values = []
            for _ in range(self.options.runs):
                started = time.monotonic()
                desktop.run([subject.program.binary, "launch"]).check_returncode()
                values.append((time.monotonic() - started) * 1000)
        self.tell("second start → handed over", "", "",
                  f"{sorted(values)[len(values) // 2]:.1f} ms")

    def listing(self):
        """From the start of "quillmarsh list" to its end, as a launcher waits for it."""
        for count in self.options.sizes:
            with Desktop() as desktop:
                subject = Subject("quillmarsh", desktop, self.binaries, count,
                                  self.options.clips)
                values = []
                for _ in range(self.options.runs):
                    started = time.monotonic()
                    told = desktop.run([subject.program.binary, "list"],
                                       stdout=subprocess.PIPE)
                    values.append((time.monotonic() - started) * 1000)
                    told.check_returncode()
            self.tell(f"list, {count:,} clips", "", "",
                      f"{sorted(values)[len(values) // 2]:.1f} ms")

    def tell(self, *row):
        self.rows.append(row)
        print("| " + " | ".join(row) + " |", flush=True)

    def idle(self):
        def measure(_, subject):
            time.sleep(3)
            before = subject.wakeups()
            time.sleep(IDLE_SECONDS)
            return f"{(subject.wakeups() - before) / IDLE_SECONDS:.1f} wake-ups/s"

        self.each("idle", measure)


def main():
    names = ["request", "burst", "short_owner", "opening", "first", "typing", "pasting", "adding",
             "memory", "growth", "large_copy", "start", "second_start", "listing", "idle"]
    parser = argparse.ArgumentParser()
    parser.add_argument("bin_dir")
    parser.add_argument("--sizes", default="1000,10000,100000")
    parser.add_argument("--clips", choices=("even", "real"), default="even",
                        help="200 bytes each, or of the sizes that people copy")
    parser.add_argument("--runs", type=int, default=20)
    parser.add_argument("--rest", type=float, default=2,
                        help="seconds between a start and what is first measured then")
    parser.add_argument("--only", default=",".join(names))
    options = parser.parse_args()
    options.sizes = [int(size) for size in options.sizes.split(",")]
    print(f"load average at start: {os.getloadavg()[0]:.2f}")
    print("| what | bare X client | least Qt program | Quillmarsh |")
    print("|---|---|---|---|")
    figures = Figures(options)
    for name in options.only.split(","):
        getattr(figures, name)()


if __name__ == "__main__":
    main()
