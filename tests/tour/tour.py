#!/usr/bin/python3
"""Quillmarsh's main job on a virtual desktop, for a newcomer without a display: real applications,
real keys, one checked line a step, a screenshot of each in the folder given, and all of them in one
moving picture.

usage: tour.py QUILLMARSH SCREENSHOT_FOLDER
"""

import os
import pathlib
import subprocess
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "support"))
from desktop import Desktop  # noqa: E402
from quillmarsh import Quillmarsh, contents, copy, pasteboard  # noqa: E402

SUPPORT = pathlib.Path(__file__).resolve().parent.parent / "support"
QUOTE = "Quills were cut from the five outer feathers of the left wing."
COPIES = [
    "https://herons.example.org/nesting?year=2026",
    "12 Reed Lane, Marshton",
    "ssh marsh@heron.example.org",
    QUOTE,
    "for path in *.svg; do rsvg-convert \"$path\"; done",
    "#6f8f86",
    "Reed warbler, bittern, marsh harrier",
    "Meeting moved to Thursday, 14:30",
]
# Below the history window, so that both are seen; and where to cut the moving picture.
SCREEN, EDITOR, CUT = "1280x900", ("250", "650", "780", "150"), "820x720+230+118"


class Tour:
    def __init__(self, desktop, binary, screenshots):
        self.desktop = desktop
        self.binary = binary
        self.screenshots = screenshots
        self.steps = 0
        self.frames = []
        self.note = os.path.join(desktop.home, "note.txt")

    def step(self, told, picture=None):
        self.steps += 1
        print(f"  {self.steps}. {told}", flush=True)
        if picture:
            time.sleep(0.3)  # until it is drawn; what a step does is checked without
            self.frames.append(os.path.join(self.screenshots, f"{self.steps}-{picture}.png"))
            self.app.screenshot(self.frames[-1])

    def check(self, condition, what):
        self.desktop.wait_for(condition, what)

    def walk(self):
        started = time.monotonic()
        self.app = Quillmarsh(self.desktop, self.binary, welcomed=False)
        self.step(f"Quillmarsh runs ({(time.monotonic() - started) * 1000:.0f} ms to ready)")
        self.welcome()
        self.open_editor()
        self.copy_some()
        self.paste()
        self.paste_upper()
        self.swop()
        self.make_moving_picture()
        self.app.quit()
        self.step("Quillmarsh saved its history and quit")

    def welcome(self):
        self.app.key("super+shift+v")
        window = self.app.window("Welcome to Quillmarsh")
        self.app.wait_until_active(window)
        self.step("The first Super+Shift+V brings the welcome", "welcome")
        self.app.key("Right", "Right", "Right")
        self.check(lambda: self.app.setting("welcomeWindowShown"), "the welcome's last page")
        self.app.key("Return")
        self.app.wait_until_hidden("Welcome to Quillmarsh")
        self.app.wait_for_clip("Quillmarsh setup complete")
        self.step("Its four pages are read, and it does not come again")

    def copy_some(self):
        for text in COPIES:
            copy(self.desktop, text)
            self.app.wait_for_clip(text)
        self.step(f"{len(COPIES)} copies made with xclip are in the history")

    def open_editor(self):
        editor = self.desktop.start(
            ["/usr/bin/python3", str(SUPPORT / "gtk_editor.py"), self.note],
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        editor.stdout.readline()
        window = self.desktop.run(["xdotool", "search", "--sync", "--name", "^GTK editor$"],
                                  capture_output=True, text=True).stdout.split()[-1]
        self.desktop.run(["xdotool", "windowmove", window, *EDITOR[:2],
                          "windowsize", window, *EDITOR[2:]])
        self.app.wait_until_active(window)
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
        self.step("A line is selected", "selected")
        self.app.key("super+shift+x")
        self.app.wait_until_active(self.app.window())
        self.app.type("thursday")
        self.step("Super+Shift+X opened the history for it", "swop")
        self.app.key("Return")
        self.check(lambda: contents(self.note) == f"{QUOTE}\n{COPIES[-1]}", "the exchanged text")
        held = "REED WARBLER, BITTERN, MARSH HARRIER"
        self.app.wait_for_clip(held)
        self.check(lambda: pasteboard(self.desktop) == held, "the replaced text on the clipboard")
        self.step("Return exchanged the line with the clip", "swopped")

    def make_moving_picture(self):
        # Without the welcome, which comes once.
        self.desktop.run(["convert", "-delay", "160", "-loop", "0", *self.frames[1:-1],
                          "-delay", "320", self.frames[-1], "-crop", CUT, "+repage",
                          "+dither", "-layers", "Optimize",
                          os.path.join(self.screenshots, "tour.gif")])


def main():
    binary, screenshots = sys.argv[1:]
    print("Quillmarsh on a virtual desktop:")
    with Desktop(screen=SCREEN) as desktop:
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
