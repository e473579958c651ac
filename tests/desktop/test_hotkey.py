"""The recording field of hot keys under real keys, in a small program of their own."""

import os
import subprocess
import threading

from journey import HeldKeys, Journey

HOTKEY_WINDOW = os.environ.get("HOTKEY_WINDOW", "build/dev/tests/desktop/hotkey_window")


class HotKeyJourney(Journey):
    starts_app = False

    def setUp(self):
        super().setUp()
        self.keys = HeldKeys(self.desktop.environment)
        self.lines = []
        self.process = self.desktop.start([HOTKEY_WINDOW], stdout=subprocess.PIPE, text=True)
        threading.Thread(target=self._read, daemon=True).start()
        self.wait_for_line("ready")
        self.window = self.desktop.ask("xdotool", "search", "--name", "^Hot key$").split()[-1]
        self.keys.tap("escape")
        self.wait_for_line("idle")

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

    def begin(self):
        self.desktop.click(self.window, 60, 25)
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
