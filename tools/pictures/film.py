#!/usr/bin/python3
"""The moving picture of the README: the main job on a virtual desktop, with the keys that are pressed.
Writes main-job.gif, and history.png as a still of it without the keys.

usage: film.py QUILLMARSH FOLDER
"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

import gi

gi.require_version("GdkPixbuf", "2.0")
from gi.repository import GdkPixbuf  # noqa: E402

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parents[1] / "tests/support"))
from desktop import Desktop  # noqa: E402
from quillmarsh import Quillmarsh, contents, copy  # noqa: E402

SCENE = HERE / "marsh.svg"
WIDTH, HEIGHT = 1000, 667
LETTER = "Dear Ada,\n\non Saturday we meet at "
COPIES = [
    "git rebase --onto main topic~3 topic",
    "The bittern booms at dusk; you hear it long before you see it.",
    "12 Reed Lane, Marshton",
    "#6f8f86",
    "https://herons.example.org/nesting?year=2026",
    "the boathouse",
    "Reed warbler, bittern, marsh harrier",
    "for path in *.svg; do rsvg-convert \"$path\"; done",
    "Meeting moved to Thursday, 14:30",
]


class Film:
    def __init__(self, desktop, binary, folder, pictures):
        self.desktop = desktop
        self.pictures = pathlib.Path(pictures)
        self.folder = pathlib.Path(folder)
        self.home = pathlib.Path(desktop.home)
        self.letter = str(self.home / "letter.txt")
        self.frames = []
        # With a panel there is nothing to tell about a missing one.
        desktop.helper("panel.py", is_ready=False, stdout=subprocess.DEVNULL)
        self.app = Quillmarsh(desktop, binary)

    def captured(self):
        return self.desktop.run(["import", "-silent", "-window", "root", "png:-"],
                                capture_output=True).stdout

    def settled(self):
        last = self.captured()
        while True:
            time.sleep(0.15)
            now = self.captured()
            if now == last:
                return now
            last = now

    def shoot(self, seconds, words, *keys):
        """A frame as long as that, with the keys and what they do along the lower edge."""
        path = self.home / f"frame-{len(self.frames):02}.png"
        path.write_bytes(self.settled())
        y = HEIGHT - 52
        drawing = ["-gravity", "NorthWest", "-fill", "#14262bd8", "-draw",
                   f"rectangle 0,{y} {WIDTH},{HEIGHT}",
                   "-font", "DejaVu-Sans-Bold", "-pointsize", "16"]
        x = 28
        for key in keys:
            width = 22 + 11 * len(key)
            drawing += ["-fill", "#f6f1e4", "-draw",
                        f"roundrectangle {x},{y + 11} {x + width},{y + 41} 6,6",
                        "-fill", "#1d3035", "-draw", f"text {x + 11},{y + 17} '{key}'"]
            x += width + 8
        drawing += ["-font", "DejaVu-Sans", "-fill", "white", "-draw",
                    f"text {x + (8 if keys else 0)},{y + 16} '{words}'"]
        subprocess.run(["convert", path, *drawing, path], check=True)
        self.frames.append((round(seconds * 100), path))

    def shoot_still(self, name):
        (self.folder / name).write_bytes(self.settled())

    def walk(self):
        self.decorate()
        self.write_letter()
        self.copy_all()
        self.shoot(1.6, "Copy as you always do. Quillmarsh keeps every clip.")
        self.app.open_history()
        self.shoot(1.8, "opens the history over any application", "Super", "Shift", "V")
        for count, letter in enumerate("reed"):
            self.app.type(letter)
            self.shoot(0.4, "typing narrows it", *"reed"[:count + 1])
        self.app.key("Down")
        self.shoot(1.4, "chooses", "Down")
        self.app.key("Return")
        self.desktop.wait_for(lambda: contents(self.letter) == LETTER + COPIES[2], "the paste")
        self.shoot(1.8, "pastes where you were typing", "Return")
        self.app.open_history()
        self.app.key("Down")
        self.shoot_still("history.png")
        self.shoot(2, "and a copied file shows itself", "Down")
        self.app.close()
        self.swop()
        self.app.quit()
        self.assemble()

    def decorate(self):
        scene = GdkPixbuf.Pixbuf.new_from_file_at_scale(str(SCENE), WIDTH, HEIGHT, False)
        scene.savev(str(self.home / "scene.png"), "png", [], [])
        self.desktop.run(["display", "-window", "root", str(self.home / "scene.png")])

    def copy_all(self):
        for text in COPIES[:6]:
            copy(self.desktop, text)
            self.app.wait_for_clip(text)
        picture = self.pictures / "Marsh at dusk.svg"
        shutil.copy(SCENE, picture)
        for text in COPIES[6:]:
            copy(self.desktop, text)
            self.app.wait_for_clip(text)
        copy(self.desktop, picture.as_uri() + "\r\n", "text/uri-list")
        self.app.wait_for_clip(str(picture))

    def write_letter(self):
        self.desktop.helper("gtk_editor.py", self.letter, LETTER)
        self.desktop.run(["xdotool", "search", "--name", "GTK editor", "windowsize", "--sync",
                          "640", "380", "windowmove", "180", "120", "set_window", "--name",
                          "letter.txt"])
        self.app.key("ctrl+End")

    def swop(self):
        self.app.key(*["ctrl+shift+Left"] * 4)
        self.shoot(1.6, "Changed your mind? Select it …", "Shift", "Left")
        self.app.open_swop()
        self.app.type("boat")
        self.shoot(1.6, "… and swop it with a clip", "Super", "Shift", "X")
        self.app.key("Return")
        self.desktop.wait_for(lambda: contents(self.letter) == LETTER + COPIES[5], "the swop")
        self.app.wait_for_clip(COPIES[2])
        self.app.wait_until_hidden()
        self.shoot(1.8, "The clip is in its place, and the selection is your newest clip", "Return")

    def assemble(self):
        arguments = [word for delay, path in self.frames
                     for word in ("-delay", str(delay), str(path))]
        subprocess.run(["convert", *arguments, "-loop", "0", "-dither", "None", "-colors", "200",
                        "-layers", "Optimize", str(self.folder / "main-job.gif")], check=True)


def main():
    binary, folder = sys.argv[1:]
    os.makedirs(folder, exist_ok=True)
    with (Desktop(screen=f"{WIDTH}x{HEIGHT}") as desktop,
          tempfile.TemporaryDirectory(prefix="ada-") as pictures):
        Film(desktop, os.path.abspath(binary), folder, pictures).walk()


if __name__ == "__main__":
    main()
