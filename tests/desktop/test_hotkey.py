"""The hot-key center and its recording field under real keys, in a small program of their own."""

import os
import subprocess
import threading
import time
import unittest

from journey import HeldKeys, Journey, contents

HOTKEY_WINDOW = os.environ.get("HOTKEY_WINDOW", "build/dev/tests/desktop/hotkey_window")
V, X = "released 9", "released 7"


class HotKeyJourney(Journey):
    starts_app = False

    def setUp(self):
        super().setUp()
        self.keys = HeldKeys(self.desktop.environment)
        self.lines = []
        self.process = self.desktop.start([HOTKEY_WINDOW], stdout=subprocess.PIPE, text=True)
        threading.Thread(target=self._read, daemon=True).start()
        self.wait_for_line("ready")

    def _read(self):
        try:
            for line in self.process.stdout:
                self.lines.append(line.rstrip("\n"))
        except ValueError:
            pass  # closed with the desktop

    def wait_for_line(self, line):
        """Waits until it was told, and takes everything up to it."""
        try:
            self.wait_for(lambda: line in self.lines, repr(line))
        except TimeoutError as problem:
            raise AssertionError(f"{problem}; told were {self.lines}") from None
        position = self.lines.index(line) + 1
        taken, self.lines[:position] = self.lines[:position], []
        return taken

    def hold(self, *names):
        self.keys.press(*names)
        self.keys.release(*names)


class PressedElsewhere(HotKeyJourney):
    def setUp(self):
        super().setUp()
        self.path = self.editor("gtk")
        self.wait_for_line("idle")

    def released(self):
        """What was told up to the release of the other hot key, which comes after all else."""
        self.hold("super", "shift", "x")
        return self.wait_for_line(X)[:-2]

    def test_it_runs_once_on_release_however_long_it_is_held(self):
        self.desktop.run(["xset", "r", "rate", "50", "50"])
        begin = time.monotonic()
        self.keys.press("x")
        self.wait_for(lambda: len(contents(self.path)) > 5, "a key that repeats")
        self.keys.release("x")
        repeats = time.monotonic() - begin

        self.keys.press("super", "shift", "v")
        self.wait_for_line("pressed")
        begin = time.monotonic()
        self.wait_for(lambda: time.monotonic() - begin > 2 * repeats, "as many repeats")
        self.assertEqual(self.lines, [])
        self.keys.release("super", "shift", "v")
        self.assertEqual(self.released(), [V])
        self.assertEqual(set(contents(self.path)), {"x"})

    def test_locks_and_layouts_do_not_matter(self):
        self.desktop.run(["setxkbmap", "-layout", "us,ru"])
        for group in (0, 1):
            self.keys.lock_group(group)
            for lock in ("num lock", "caps lock", "num lock", "caps lock"):
                with self.subTest(group=group, lock=lock):
                    self.keys.tap(lock)
                    self.hold("super", "shift", "v")
                    self.assertEqual(self.released(), ["pressed", V])
        self.assertEqual(contents(self.path), "")


class Recorded(HotKeyJourney):
    def setUp(self):
        super().setUp()
        self.window = self.desktop.run(["xdotool", "search", "--name", "^Hot key$"],
                                       capture_output=True, text=True).stdout.split()[-1]
        self.keys.tap("escape")
        self.wait_for_line("idle")

    def begin(self):
        self.desktop.run(["xdotool", "mousemove", "--window", self.window, "60", "25",
                          "click", "1"])
        self.wait_for_line("ready")

    def record(self, *names):
        """Presses the keys together, lets go of them the other way round, and ends with Return.
        What was told meanwhile."""
        self.begin()
        self.hold(*names)
        self.keys.tap("return")
        return self.wait_for_line("idle")[:-1]

    def picture(self):
        """Of the text alone: the field's frame shows where the keyboard is."""
        return self.desktop.run(["import", "-window", self.window, "-crop", "100x14+16+16",
                                 "rgb:-"], capture_output=True).stdout

    def test_combinations_and_modifiers_alone_are_recorded_from_a_keyboard(self):
        for names, told in (
                (["super"], ["recorded 55 100000 ⌘"]),
                (["control", "alt", "x"], ["recorded 59 40000 ⌃", "recorded 58 c0000 ⌃⌥",
                                           "recorded 7 c0000 ⌃⌥X"]),
                (["shift", "alt"], ["recorded 56 20000 ⇧", "recorded 58 a0000 ⌥⇧",
                                    "recorded 58 20000 ⇧"]),
                (["shift", "1"], ["recorded 56 20000 ⇧", "recorded 18 20000 ⇧!"]),
                # A hot key of this very program.
                (["super", "shift", "v"], ["recorded 55 100000 ⌘", "recorded 56 120000 ⇧⌘",
                                           "recorded 9 120000 ⇧⌘V"]),
                (["v"], [])):
            with self.subTest(names):
                self.assertEqual(self.record(*names), told)

    def test_caps_lock_is_recorded_and_the_layout_names_the_key(self):
        self.desktop.run(["setxkbmap", "-layout", "us,ru"])
        self.keys.lock_group(1)
        self.keys.tap("caps lock")
        self.assertEqual(self.record("control", "v")[-1], "recorded 9 50000 ⌃М")
        self.keys.tap("caps lock")
        self.assertEqual(self.record("control", "v")[-1], "recorded 9 40000 ⌃М")

    def test_what_is_seen_is_what_was_recorded_and_escape_brings_it_back(self):
        original = self.picture()
        self.record("super", "v")
        self.wait_for(lambda: self.picture() != original, "the new name to be seen")
        recorded = self.picture()
        self.begin()
        self.hold("alt", "x")
        self.keys.tap("escape")
        self.assertEqual(self.wait_for_line("idle")[-2], "recorded 9 100000 ⌘V")
        self.wait_for(lambda: self.picture() == recorded, "the old name to be seen again")


if __name__ == "__main__":
    unittest.main()
