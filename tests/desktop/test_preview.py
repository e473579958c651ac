"""Copied files in the history window: each kind looked at, found, opened, and missed when gone."""

import os
import pathlib
import shutil
import subprocess
import unittest
import urllib.parse

from journey import BINARY, Journey, Quillmarsh, copy

SAMPLES = pathlib.Path(__file__).resolve().parent.parent / "data" / "preview"
SCREENSHOTS = os.environ.get("QUILLMARSH_SCREENSHOTS")
PAPER_PART = (320, 60, 380, 290)  # of the window: within the preview, above its separator
BUTTONS_PART = (325, 410, 300, 40)  # the warning or the buttons
WARNING = "C96A00"


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
        self.desktop.run(["import", "-window", window, path])
        return path

    def colours(self, window, part=PAPER_PART):
        """The colours seen in the preview, as a set of RRGGBB."""
        x, y, width, height = part
        told = self.desktop.run(
            ["convert", self.picture(window, "seen"), "-crop", f"{width}x{height}+{x}+{y}",
             "-depth", "8", "-unique-colors", "txt:-"], capture_output=True, text=True).stdout
        return {part.split()[0] for part in told.split("#")[1:]}

    def wait_for_colour(self, window, colour, part=PAPER_PART):
        self.wait_for(lambda: any(seen.startswith(colour) for seen in self.colours(window, part)),
                      f"the colour {colour} in the preview")

    def test_each_kind_shows_itself(self):
        for name, colour in (("drawing.svg", "FF0000"), ("pages.pdf", "0000FF"),
                             ("clear.png", "FF8080")):
            with self.subTest(name=name):
                self.copy_file(self.sample(name))
                window = self.app.open_history()
                self.wait_for_colour(window, colour)
                self.app.key("Escape")
                self.app.wait_until_hidden()

    def test_a_file_deleted_while_it_is_shown_is_missed(self):
        path = self.sample("drawing.svg")
        self.copy_file(path)
        window = self.app.open_history()
        self.wait_for_colour(window, "FF0000")
        os.remove(path)
        self.wait_for(lambda: "FF0000" not in self.colours(window), "the drawing gone")

    def test_a_mount_that_hangs_keeps_only_its_own_preview_back(self):
        mount = self.file("mount")
        os.mkdir(mount)
        shutil.copy(SAMPLES / "pages.pdf", mount)
        self.app.quit()
        self.app = Quillmarsh(self.desktop, BINARY, {"LD_PRELOAD": os.environ["HUNG_FILES"],
                                                     "HUNG_FOLDER": mount})
        self.copy_file(self.sample("drawing.svg"))
        self.copy_file(os.path.join(mount, "pages.pdf"))
        window = self.app.open_history()
        self.wait_for_colour(window, "0000FF")
        pathlib.Path(mount + ".hung").touch()
        self.app.key("Down")
        self.wait_for_colour(window, "FF0000")
        self.app.key("Up")
        self.wait_for_colour(window, WARNING, BUTTONS_PART)
        self.app.key("Down")
        self.wait_for_colour(window, "FF0000")
        self.assertEqual([line for line in self.app.log if "main thread asked" in line], [])

    def test_a_search_for_files_finds_only_files(self):
        self.copy_file(self.sample("drawing.svg"))
        self.copy("drawing on paper")
        editor = self.editor("gtk")
        self.paste_with("Return", filter_text="file:drawing")
        self.wait_for_text(editor, "drawing.svg")

    @unittest.skipUnless(SCREENSHOTS, "only for those who want pictures")
    def test_pictures_of_every_kind(self):
        folder = pathlib.Path(self.file("Holiday"))
        (folder / "Letters").mkdir(parents=True)
        for number in range(1, 13):
            (folder / f"Picture {number}.jpg").write_bytes(b"x" * 4000 * number)
        code = shutil.copy(SAMPLES.parent.parent / "desktop" / "journey.py", self.file("journey.py"))
        font = shutil.copy("/usr/share/fonts/truetype/dejavu/DejaVuSerif.ttf", self.file("serif.ttf"))
        photo = self.file("photo.jpg")
        subprocess.run(["convert", "-size", "1600x1000", "plasma:seagreen-gold", photo], check=True)
        binary = pathlib.Path(self.file("archive.bin"))
        binary.write_bytes(bytes(50_000))
        for path in (photo, code, self.sample("notes.md"), self.sample("pages.pdf"),
                     self.sample("clear.png"), folder, font, binary):
            self.copy_file(path)
            window = self.app.open_history()
            self.wait_for(lambda: len(self.colours(window)) > 3, "something to look at")
            name = pathlib.Path(path).suffix.lstrip(".") or "folder"
            shutil.copy(self.picture(window, name), pathlib.Path(SCREENSHOTS, f"preview-{name}.png"))
            self.app.key("Escape")
            self.app.wait_until_hidden()


if __name__ == "__main__":
    unittest.main()
