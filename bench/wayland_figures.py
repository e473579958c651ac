#!/usr/bin/python3
"""Runs the figures of Quillmarsh in a Wayland session beside those of a bare client, which nobody
can beat, in one go, and prints a table. Each is a median (and the largest); ratios within one run
are what counts on a noisy machine.

usage: wayland_figures.py BIN_DIR sway|kde [--runs 20] [--only NAME,...]
BIN_DIR holds quillmarsh, wayland_probe and floor_wayland; SESSION_INPUT names the tests' keyboard.

When something was drawn or hidden is what the program itself told the compositor (its log with
WAYLAND_DEBUG=1); when a key was pressed and what reached the application is from outside.
"""

import argparse
import json
import os
import pathlib
import re
import signal
import subprocess
import sys
import threading
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tests" / "support"))
from quillmarsh import Quillmarsh  # noqa: E402
from session import become_ordinary, session  # noqa: E402

WRAP = 2 ** 32  # the log's microseconds begin again after so many
HISTORY = ("Quillmarsh", "quillmarsh")  # the window's title, and its name in a layer


def now():
    return time.clock_gettime_ns(time.CLOCK_REALTIME) // 1000


def since(begin, end):
    """Milliseconds between two times, of which one may be short of its upper half."""
    return ((end - begin) % WRAP) / 1000


class Lines:
    """The lines that a pipe brings, less those that `take` answers for."""

    def __init__(self, pipe):
        self.lines = []
        self.take = lambda _: False
        self._pipe = pipe
        threading.Thread(target=self._read, daemon=True).start()

    def _read(self):
        try:
            for line in self._pipe:
                if not self.take(line):
                    self.lines.append(line.rstrip("\n"))
        except ValueError:
            pass  # closed with the session


class Subject:
    """One of the two programs, running in a session; watched, what it draws is known."""

    def __init__(self, kind, desktop, binaries, is_watched):
        self.kind = kind
        self.desktop = desktop
        desktop.is_watched = is_watched
        if kind == "quillmarsh":
            self.program = Quillmarsh(desktop, str(binaries / "quillmarsh"))
            self.process = self.program.process
            self.surfaces = desktop.surfaces
            return
        variables = dict(desktop.environment)
        desktop.watch(variables)
        self.surfaces = desktop.surfaces
        self.process = desktop.start([str(binaries / "floor_wayland")], env=variables,
                                     stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                     stderr=subprocess.PIPE, text=True)
        errors = Lines(self.process.stderr)
        errors.take = self.surfaces.read if is_watched else lambda _: False
        desktop.wait_for(lambda: "ready" in errors.lines, "the bare client")

    def ask(self, command):
        self.process.stdin.write(command + "\n")
        self.process.stdin.flush()
        return self.process.stdout.readline().rstrip("\n")

    def recorded(self):
        return int(self.ask("count")) if self.kind == "floor" else len(self.program.clips("pk"))

    def newest(self):
        if self.kind == "floor":
            return self.ask("last")
        return (self.program.clips() or [None])[0]

    def times(self, what):
        """When its window was drawn or hidden, which is known when it is watched."""
        windows = [window for name in HISTORY for window in self.surfaces.named(name)]
        return sorted(at for window in windows for at in getattr(window, what))

    def open(self):
        """Presses the shortcut; the bare client, which has none, is told by a signal."""
        pressed = now()
        if self.kind == "floor":
            self.process.send_signal(signal.SIGUSR1)
        else:
            self.desktop.keys("super+shift+v")
        return pressed

    def private_kib(self):
        told = pathlib.Path(f"/proc/{self.process.pid}/smaps_rollup").read_text()
        return sum(int(kib) for kib in re.findall(r"^Private_Dirty:\s+(\d+)", told, re.M))


class Target:
    """The window of another application, into which is pasted."""

    def __init__(self, desktop, binaries):
        self.desktop = desktop
        process = desktop.start([str(binaries / "wayland_probe"), "target"],
                                stdout=subprocess.PIPE, text=True)
        self.told = Lines(process.stdout)
        self.next("enter", 0)

    def times(self, what):
        return [int(line.split()[1]) for line in list(self.told.lines) if line.startswith(what)]

    def next(self, what, count):
        """The time of what it tells when it has told it `count` times already."""
        return self.desktop.wait_for(lambda: self.times(what)[count:count + 1], what, 5)[0]


class Figures:
    def __init__(self, options):
        self.options = options
        self.binaries = pathlib.Path(options.bin_dir).resolve()

    def probe(self, desktop, *words):
        return desktop.run([str(self.binaries / "wayland_probe"), *map(str, words)],
                           capture_output=True, text=True).stdout.strip()

    def each(self, name, measure, is_watched=False):
        """Measures both, each in a fresh session."""
        cells = []
        for kind in ("floor", "quillmarsh"):
            with session(self.options.session,
                         quillmarsh=str(self.binaries / "quillmarsh")) as desktop:
                try:
                    cells.append(measure(desktop, Subject(kind, desktop, self.binaries,
                                                          is_watched)))
                except (OSError, TimeoutError, ValueError) as problem:
                    cells.append(f"failed: {problem}")
        print(f"| {name} | " + " | ".join(map(str, cells)) + " |", flush=True)

    @staticmethod
    def milliseconds(values):
        values = sorted(values)
        return (f"{values[len(values) // 2]:.1f} ({values[-1]:.1f}) ms, {len(values)} times"
                if values else "none")

    def request(self):
        def measure(desktop, _):
            told = json.loads(self.probe(desktop, "request-latency", 100))
            return f"{told['median']:.2f} ({told['max']:.2f}) ms, {told['runs']} times"

        self.each("a copy → its text is asked for", measure)

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
                for what in (subject.newest, desktop.pasteboard):
                    try:
                        desktop.wait_for(lambda: what() == text, text, 1)
                    except TimeoutError:
                        continue
                    recorded += what == subject.newest
                    pasteable += what == desktop.pasteboard
            return f"{recorded} / {pasteable}"

        self.each("owner quits after 50 ms, 20 times: recorded / pasteable", measure)

    def _prepare(self, desktop, subject):
        desktop.copy("a clip to paste")
        desktop.wait_for(lambda: subject.newest() == "a clip to paste", "the clip")
        return Target(desktop, self.binaries)

    def _opened(self, desktop, subject, target):
        """Opens the window and waits until the target has lost the keyboard to it; answers when the
        shortcut was pressed and, of one that is watched, when the first content was shown."""
        leaves = len(target.times("leave"))
        drawn = len(subject.times("drawn")) if subject.surfaces else 0
        pressed = subject.open()
        target.next("leave", leaves)
        return pressed, self._drawn_next(desktop, subject, drawn)

    def opening(self):
        def measure(desktop, subject):
            target = self._prepare(desktop, subject)
            values = []
            for _ in range(self.options.runs):
                enters = len(target.times("enter"))
                values.append(since(*self._opened(desktop, subject, target)))
                desktop.keys("Escape")
                target.next("enter", enters)
            return self.milliseconds(values)

        self.each("shortcut → content (bare client: signal → content)", measure, True)

    def typing(self):
        def measure(desktop, subject):
            target = self._prepare(desktop, subject)
            self._opened(desktop, subject, target)
            values = []
            for _ in range(self.options.runs):
                self._settle(desktop, subject)
                drawn, pressed = len(subject.times("drawn")), now()
                desktop.keys("c")
                self._drawn_next(desktop, subject, drawn)
                values.append(since(pressed, self._settle(desktop, subject)))
            return self.milliseconds(values)

        self.each("letter → drawn for the last time", measure, True)

    @staticmethod
    def _drawn_next(desktop, subject, drawn):
        """When it was drawn after it had been so many times."""
        return subject.surfaces and desktop.wait_for(lambda: subject.times("drawn")[drawn:],
                                                     "the next picture", 5)[0]

    def _settle(self, desktop, subject):
        """When it was drawn last, once that is 200 ms ago: less than a cursor takes to blink."""
        desktop.wait_for(lambda: 200 < since(subject.times("drawn")[-1], now()) < 100000, "rest")
        return subject.times("drawn")[-1]

    def pasting(self):
        def measure(desktop, subject):
            if (subject.kind, desktop.kind) == ("floor", "kde"):
                return "is not let type"
            target = self._prepare(desktop, subject)
            values = []
            for turn in range(self.options.runs):
                self._opened(desktop, subject, target)
                pressed = now()
                desktop.keys("Return")
                values.append(since(pressed, target.next("text", turn)))
            return self.milliseconds(values)

        self.each("Return → text in hand at the target", measure)

    def returning(self):
        def measure(desktop, subject):
            target = self._prepare(desktop, subject)
            values = []
            for turn in range(self.options.runs):
                enters = len(target.times("enter"))
                self._opened(desktop, subject, target)
                desktop.keys("Escape")
                back = target.next("enter", enters)
                hidden = desktop.wait_for(lambda: subject.times("hidden")[turn:], "its end")[0]
                values.append(since(hidden, back))
            return self.milliseconds(values)

        self.each("hidden → the target has the keyboard", measure, True)

    def memory(self):
        def measure(desktop, subject):
            target = self._prepare(desktop, subject)
            leaves, enters = len(target.times("leave")), len(target.times("enter"))
            subject.open()
            target.next("leave", leaves)
            desktop.keys("c", "Escape")
            if subject.kind == "floor":
                desktop.keys("Escape")
            target.next("enter", enters)
            time.sleep(2)
            return f"{subject.private_kib() / 1024:.1f} MiB"

        self.each("private memory", measure)


def main():
    names = ["request", "burst", "short_owner", "opening", "typing", "pasting", "returning",
             "memory"]
    parser = argparse.ArgumentParser()
    parser.add_argument("bin_dir")
    parser.add_argument("session")
    parser.add_argument("--runs", type=int, default=20)
    parser.add_argument("--only", default=",".join(names))
    options = parser.parse_args()
    become_ordinary()
    print(f"load average at start: {os.getloadavg()[0]:.2f}")
    print(f"| {options.session} | bare Wayland client | Quillmarsh |")
    print("|---|---|---|")
    figures = Figures(options)
    for name in options.only.split(","):
        getattr(figures, name)()


if __name__ == "__main__":
    main()
