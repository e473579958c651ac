#!/usr/bin/python3
"""Quillmarsh's main job on a virtual desktop, for a newcomer without a display: real applications,
real keys, one checked line a step, and a screenshot of each in the folder given.

usage: tour.py QUILLMARSH SCREENSHOT_FOLDER
"""

import os
import pathlib
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "support"))
from desktop import Desktop  # noqa: E402
from quillmarsh import Quillmarsh, contents, copy, pasteboard  # noqa: E402

QUOTE = "Quills were cut from the five outer feathers of the left wing."
COPIES = [
    "ssh marsh@heron.example.org",
    QUOTE,
    "Reed warbler, bittern, marsh harrier",
    "Meeting moved to Thursday, 14:30",
]


class Tour:
    def __init__(self, desktop, binary, screenshots):
        self.desktop = desktop
        self.binary = binary
        self.screenshots = screenshots
        self.steps = 0
        self.note = os.path.join(desktop.home, "note.txt")

    def step(self, told, picture=None):
        self.steps += 1
        print(f"  {self.steps}. {told}", flush=True)
        if picture:
            time.sleep(0.3)  # until it is drawn; what a step does is checked without
            self.app.screenshot(os.path.join(self.screenshots, f"{self.steps}-{picture}.png"))

    def check(self, condition, what):
        self.desktop.wait_for(condition, what)

    def walk(self):
        started = time.monotonic()
        self.app = Quillmarsh(self.desktop, self.binary, welcomed=False)
        self.step(f"Quillmarsh runs ({(time.monotonic() - started) * 1000:.0f} ms to ready)")
        self.welcome()
        self.copy_some()
        self.open_editor()
        self.paste()
        self.paste_upper()
        self.swop()
        self.app.quit()
        self.step("Quillmarsh saved its history and quit")

    def welcome(self):
        self.app.open_history(name="Welcome to Quillmarsh")
        self.step("The first Super+Shift+V brings the welcome", "welcome")
        self.app.key("Right", "Right", "Right")
        self.check(lambda: self.app.setting("welcomeWindowShown"), "the welcome's last page")
        self.app.close("Welcome to Quillmarsh", ["Return"])
        self.app.wait_for_clip("Quillmarsh setup complete")
        self.step("Its four pages are read, and it does not come again")

    def copy_some(self):
        for text in COPIES:
            copy(self.desktop, text)
            self.app.wait_for_clip(text)
        self.step(f"{len(COPIES)} copies made with xclip are in the history")

    def open_editor(self):
        self.desktop.helper("gtk_editor.py", self.note)
        self.step("A GTK editor has the keyboard", "editor")

    def paste(self):
        self.app.open_history()
        self.step("Super+Shift+V opened the history", "history")
        self.app.type("quills")
        self.step("Typing “quills” narrowed it", "filtered")
        self.app.key("Return")
        self.check(lambda: contents(self.note) == QUOTE, "the pasted text")
        self.app.wait_until_hidden()
        self.step("Return pasted the clip into the editor", "pasted")

    def paste_upper(self):
        self.app.key("Return")
        self.app.open_history()
        self.app.type("bittern")
        self.app.key("shift+Return")
        upper = f"{QUOTE}\nREED WARBLER, BITTERN, MARSH HARRIER"
        self.check(lambda: contents(self.note) == upper, "the text in upper case")
        self.step("Shift+Return pasted another one in upper case", "upper")

    def swop(self):
        self.app.wait_until_hidden()
        self.app.key("shift+Home")
        self.app.open_swop()
        self.app.type("thursday")
        self.app.key("Return")
        self.check(lambda: contents(self.note) == f"{QUOTE}\n{COPIES[3]}", "the exchanged text")
        held = "REED WARBLER, BITTERN, MARSH HARRIER"
        self.app.wait_for_clip(held)
        self.check(lambda: pasteboard(self.desktop) == held, "the replaced text on the clipboard")
        self.step("Super+Shift+X exchanged the selection with a clip", "swopped")


def main():
    binary, screenshots = sys.argv[1:]
    print("Quillmarsh on a virtual desktop:")
    with Desktop() as desktop:
        desktop.run(["xsetroot", "-solid", "#6f8f86"])
        try:
            Tour(desktop, binary, screenshots).walk()
        except (AssertionError, TimeoutError) as problem:
            print(f"  failed: {problem}")
            return 1
    print(f"Pictures of each step are in {screenshots}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
