"""Copied files in the history window: each kind looked at, found, opened, and missed when gone."""

import os
import pathlib
import shutil
import sqlite3
import urllib.parse

from journey import BINARY, Journey, Quillmarsh, copy, made_in

SAMPLES = pathlib.Path(__file__).resolve().parent.parent / "data" / "preview"
PAPER_PART = (320, 60, 380, 290)  # of the window: within the preview, above its separator
BUTTONS_PART = (325, 410, 300, 40)  # the warning or the buttons
WARNING = "A85700"


class PreviewJourney(Journey):
    def copy_file(self, path):
        copy(self.desktop, "file://" + urllib.parse.quote(str(path)) + "\r\n", "text/uri-list")
        self.wait_for(lambda: (self.app.clips("filepath, strValue") or [("",)])[0][0] == str(path),
                      f"the clip of {path}")

    def sample(self, name):
        return shutil.copy(SAMPLES / name, self.file(name))

    def picture(self, window, name):
        """The window as it is seen, as a file."""
        path = self.file(f"{name}.png")
        self.desktop.picture(path, window)
        return path

    def colours(self, window, part=PAPER_PART):
        """The colours seen in the preview, as a set of RRGGBB."""
        x, y, width, height = part
        told = self.desktop.ask("convert", self.picture(window, "seen"), "-crop",
                                f"{width}x{height}+{x}+{y}", "-depth", "8", "-unique-colors", "txt:-")
        return {part.split()[0] for part in told.split("#")[1:]}

    def wait_for_colour(self, window, colour, part=PAPER_PART):
        self.wait_for(lambda: any(seen.startswith(colour) for seen in self.colours(window, part)),
                      f"the colour {colour} in the preview")

    def test_a_mount_that_hangs_keeps_only_its_own_preview_back(self):
        mount = self.file("mount")
        os.mkdir(mount)
        files = [os.path.join(mount, f"{number}.pdf") for number in range(12)]
        for file in files:
            shutil.copy(SAMPLES / "pages.pdf", file)
        mounts = pathlib.Path("/proc/self/mountinfo").read_text()
        pathlib.Path(mount + ".mounts").write_text(f"{mounts}9 1 0:9 / {mount} rw - nfs far rw\n")
        self.app.quit()
        # The address sanitizer wants to come first, and does without.
        self.app = Quillmarsh(self.desktop, BINARY, {"LD_PRELOAD": os.environ["HUNG_FILES"],
                                                     "HUNG_FOLDER": mount,
                                                     "ASAN_OPTIONS": "verify_asan_link_order=0"})
        self.copy_file(self.sample("drawing.svg"))
        for file in files:
            self.copy_file(file)
        window = self.app.open_history()
        self.wait_for_colour(window, "0000FF")
        pathlib.Path(mount + ".hung").touch()
        for _ in files[1:]:
            self.app.key("Down")
            self.wait_for(lambda: "0000FF" not in self.colours(window), "no page")
            self.wait_for_colour(window, WARNING, BUTTONS_PART)
        self.app.key("Down")
        self.wait_for_colour(window, "FF0000")
        self.assertEqual([line for line in self.app.log if "main thread asked" in line], [])

    def file_manager(self, folder):
        """Thunar showing `folder`, with the keyboard."""
        self.desktop.start(["thunar", folder], quiet=True)
        window = self.wait_for(lambda: self.desktop.window(os.path.basename(folder) + ".*"),
                               f"the file manager at {folder}")
        self.desktop.activate(window)
        self.app.wait_until_active(window)

    @made_in()
    def test_files_copied_in_a_file_manager_are_pasted_into_another_folder(self):
        source, target = self.file("Source"), self.file("Target")
        os.mkdir(source)
        os.mkdir(target)
        for name in ("drawing.svg", "clear.png"):
            shutil.copy(SAMPLES / name, source)
        self.file_manager(source)
        self.desktop.repeat(lambda: self.app.key("ctrl+a", "ctrl+c"),
                            lambda: self.app.clips("filepath, strValue")[:1], "the copied files")
        # Of several files the first is kept, and the names of all.
        path, text = self.app.clips("filepath, strValue")[0]
        names = sorted(os.listdir(source))
        self.assertIn(os.path.basename(path), names)
        self.assertEqual(sorted(map(os.path.basename, text.split("\n"))), names)
        self.file_manager(target)
        self.app.open_history()
        self.app.key("Return")
        self.app.wait_until_hidden()
        pasted = os.path.join(target, os.path.basename(path))
        self.wait_for(lambda: os.path.exists(pasted) and os.path.getsize(pasted), "the pasted file")
        self.assertEqual(pathlib.Path(pasted).read_bytes(), pathlib.Path(path).read_bytes())
        self.assertEqual(os.listdir(target), [os.path.basename(path)])
        self.assertEqual(sorted(os.listdir(source)), names)

    @made_in()
    def test_a_held_key_steps_through_a_hundred_files(self):
        self.app.quit()
        samples = [name for name in sorted(os.listdir(SAMPLES)) if name != "drawing.svg"]
        clips = []
        for number in range(100):
            name = samples[number % len(samples)] if number else "drawing.svg"
            clips.append((name, shutil.copy(SAMPLES / name, self.file(f"{number}-{name}")),
                          "Files", 1000.0 + number))
        with sqlite3.connect(self.app.store) as store:
            store.executemany("INSERT INTO ClipItem (strValue, filepath, applicationName, "
                              "createDate) VALUES (?, ?, ?, ?)", clips)
        store.close()
        self.app = Quillmarsh(self.desktop, BINARY)
        window = self.app.open_history()
        self.desktop.hold("down")
        self.wait_for_colour(window, "FF0000")
        self.desktop.release("down")
        self.app.close()
        self.assertEqual(self.app.quit(), 0)
