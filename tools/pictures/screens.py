#!/usr/bin/python3
"""Pictures of every window of Quillmarsh: light and dark, at 1x and 2x, in several languages. Each
view is shown once and switched between light and dark while it is open, as a desktop does it.

usage: screens.py QUILLMARSH FOLDER [--scales 1,2] [--languages en,ar] [--accent R,G,B]
                  [--contrast] [--only WORD] [--test-build QUILLMARSH_UPDATABLE]

--contrast also measures each text of the dialogs and windows that assistive technology knows, prints
the least of each view at 2x, and fails when one is below 4.5:1. The dialog that sends a report needs the
program that knows a test's address, build/dev/tests/desktop/quillmarsh_updatable.
"""

import argparse
import hashlib
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests/support"))
from accessible import Accessible  # noqa: E402
from contrast import Picture, contrast_of_writing  # noqa: E402
from desktop import Desktop  # noqa: E402
from quillmarsh import Quillmarsh, copy  # noqa: E402

PREVIEWS = ROOT / "tests/data/preview"
LEAST = 4.5
LEAST_OF_SIGNS = 3
SIZE = (1100, 720)
COPIES = [
    "git rebase --onto main topic~3 topic",
    "12 Reed Lane, Marshton",
    "The bittern booms at dusk; you hear it long before you see it.",
    "#6f8f86",
    "Quills were cut from the five outer feathers of the left wing.\n\nA left-handed writer "
    "preferred those of the right.",
    "https://herons.example.org/nesting?year=2026",
    "مرحبا بالعالم، هذا نص عربي",
    "Reed warbler, bittern, marsh harrier",
    "for path in *.svg; do rsvg-convert \"$path\"; done",
    "Meeting moved to Thursday, 14:30",
]
# The entries of the status item's menu that open a window.
MENU = {"en": ("Check For Updates...", "Send Feedback..."),
        "ar": ("التحقق من التحديثات...", "إرسال ملاحظات...")}


class Screens:
    def __init__(self, options, scale, language):
        self.options = options
        self.scale = scale
        self.language = language
        self.failures = []

    def walk(self):
        screen = "x".join(str(int(side * self.scale)) for side in SIZE)
        with Desktop(screen=screen) as self.desktop:
            self.desktop.run(["xsetroot", "-solid", "#6f8f86"])
            self.portal = self.desktop.helper("portal.py")
            self.panel = self.desktop.helper("panel.py", is_ready=False, stdout=subprocess.DEVNULL)
            if self.options.accent:
                self.order("accent " + self.options.accent.replace(",", " "))
            self.order("scheme 1")
            self.accessible = Accessible(self.desktop) if self.options.contrast else None
            self.history()
            self.preferences()
            self.dialogs()
            self.app.quit()
            self.app.settings.unlink()
            self.welcome_and_tour()
            self.app.quit()
        return self.failures

    def order(self, line):
        print(line, file=self.portal.stdin, flush=True)

    def start(self, welcomed, binary=None):
        self.app = Quillmarsh(self.desktop, binary or self.options.binary, {
            "QUILLMARSH_TEST_FEEDBACK_URL": "https://127.0.0.1:9/",
            "LANGUAGE": self.language, "LC_ALL": "C.UTF-8", "QT_SCALE_FACTOR": f"{self.scale:g}",
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1" if self.options.contrast else "0",
        }, welcomed=welcomed)

    def words(self, *command):
        return self.desktop.ask("xdotool", *command).split()

    def active_window(self):
        """The window of ours that has the keyboard, whatever its title in this language."""
        def find():
            # The window manager may go on to name one that has closed.
            visible = self.words("search", "--onlyvisible", "--pid", str(self.app.process.pid))
            active = self.words("getactivewindow")
            return active[0] if active and active[0] in visible else None
        return self.desktop.wait_for(find, "a window of Quillmarsh in front")

    def captured(self):
        return self.desktop.run(["import", "-silent", "-window", "root", "-depth", "8", "ppm:-"],
                                capture_output=True).stdout

    def settled(self, before=None):
        """The screen once it is another one than `before` and two looks at it agree."""
        limit = time.monotonic() + 5
        last = self.captured()
        while time.monotonic() < limit:
            time.sleep(0.05)
            now = self.captured()
            if now == last and now != before:
                return now
            last = now
        return last

    def shoot(self, view):
        if self.options.only not in view:
            return
        window = self.active_window()
        shown = self.settled()
        for scheme in ("dark", "light"):
            if scheme == "light":
                self.order("scheme 2")
                shown = self.settled(before=shown)
            name = f"{view}-{scheme}-{self.scale:g}x-{self.language}"
            path = os.path.join(self.options.folder, name + ".png")
            self.desktop.run(["convert", "ppm:-", "-crop", self.place(window), "+repage", path],
                             input=shown)
            if self.accessible:
                self.measure(name, Picture(shown))
        self.order("scheme 1")
        self.settled(before=shown)

    def place(self, window):
        x, y, width, height = self.desktop.place(window)
        return f"{width}x{height}+{x}+{y}"

    def measure(self, name, picture):
        results, signs = [], []
        for node in self.accessible.find():
            text = node["name"] or node["text"]
            if not text or not node["box"] or "enabled" not in node["states"] or not node[
                    "in active window"]:
                continue
            if "multi_line" in node["states"] and not node["text"]:
                continue
            if node["role"] in ("frame", "filler", "panel", "table", "scroll pane", "window"):
                continue
            ratio = contrast_of_writing(picture, [int(side * self.scale) for side in node["box"]])
            if ratio:
                # The dots that stand for pages are signs, not writing.
                is_sign = node["role"] == "check box" and "focusable" not in node["states"]
                (signs if is_sign else results).append(
                    (round(ratio, 1), node["role"], text[:40].replace("\n", " ")))
        results.sort()
        # With fewer pixels the strokes of small letters are all blends with the ground.
        if self.scale == 1:
            return
        print(f"{name}: {len(results)} texts, least {results[:2] if results else '-'}", flush=True)
        self.failures += [(name, *result) for result in results if result[0] < LEAST]
        self.failures += [(name, *sign) for sign in signs if sign[0] < LEAST_OF_SIGNS]

    def hide(self):
        self.app.key("Escape")
        self.desktop.wait_for(
            lambda: not self.words("search", "--onlyvisible", "--pid", str(self.app.process.pid)),
            "all windows to close")

    def welcome_and_tour(self):
        self.start(welcomed=False)
        self.app.key("super+shift+v")
        self.active_window()
        for page in range(1, 5):
            self.shoot(f"welcome-{page}")
            self.app.key("Right")
        self.app.wait_for_clip("Quillmarsh setup complete")
        welcome = self.active_window()
        self.app.key("shift+Tab", "Return")
        self.desktop.wait_for(lambda: self.active_window() != welcome, "the tour")
        for step in range(1, 5):
            self.shoot(f"tour-{step}")
            self.app.key("Return")
        self.hide()

    def copy_all(self):
        for text in COPIES:
            copy(self.desktop, text)
            self.app.wait_for_clip(text)

    def path(self, name):
        return pathlib.Path(self.desktop.home, name)

    def sample(self, name):
        return shutil.copy(PREVIEWS / name, self.path(name))

    def film(self):
        """A film, or what passes for one, of which a file manager has made a thumbnail."""
        film = self.path("Harbour.mp4")
        film.write_bytes(bytes(4096))
        thumbnails = pathlib.Path(self.desktop.environment["XDG_CACHE_HOME"], "thumbnails/large")
        thumbnails.mkdir(parents=True)
        name = hashlib.md5(film.as_uri().encode()).hexdigest()
        subprocess.run(["convert", "-size", "256x144", "plasma:navy-orange", "-blur", "0x4", "-set",
                        "Thumb::MTime", str(int(film.stat().st_mtime)), thumbnails / f"{name}.png"],
                       check=True)
        return film

    def files(self):
        """A file of each kind, by the kind's name."""
        folder = self.path("Holiday")
        (folder / "Letters").mkdir(parents=True)
        for number in range(1, 13):
            (folder / f"Picture {number}.jpg").write_bytes(b"x" * 4000 * number)
        photo, clear = self.path("Meadow.jpg"), self.path("Glass.png")
        subprocess.run(["convert", "-size", "1600x1000", "plasma:seagreen-gold", "-blur", "0x9",
                        photo], check=True)
        subprocess.run(["convert", "-size", "300x200", "radial-gradient:red-transparent", clear],
                       check=True)
        letter = self.path("Letter.txt")
        letter.write_text("Dear reader,\n\n" + "this is a letter of some length. " * 40)
        blob = self.path("firmware.bin")
        blob.write_bytes(bytes(50_000))
        gone = self.path("Gone.txt")
        gone.touch()
        return {
            "photo": photo, "transparency": clear, "drawing": self.sample("drawing.svg"),
            "text": letter, "code": shutil.copy(__file__, self.path("screens.py")),
            "markdown": shutil.copy(ROOT / "README.md", self.path("README.md")),
            "page": self.sample("page.html"), "document": self.sample("pages.pdf"),
            "folder": folder, "archive": shutil.make_archive(
                self.path("Holiday"), "gztar", self.desktop.home, folder.name),
            "font": shutil.copy("/usr/share/fonts/truetype/dejavu/DejaVuSerif.ttf",
                                self.path("Serif.ttf")),
            "film": self.film(), "card": blob, "missing": gone}

    def open(self):
        self.app.key("super+shift+v")
        self.active_window()

    def history(self):
        self.start(welcomed=True)
        self.open()
        self.shoot("history-empty")
        self.hide()
        self.copy_all()
        self.open()
        self.app.key("Down", "Down", "Down", "Down", "Down")
        self.shoot("history")
        self.app.key("Up", "Up")
        self.shoot("history-arabic")
        self.app.type("bit")
        self.shoot("history-filtered")
        self.app.type("zz")
        self.shoot("history-nothing")
        self.hide()
        for kind, path in self.files().items():
            copy(self.desktop, pathlib.Path(path).as_uri() + "\r\n", "text/uri-list")
            self.desktop.wait_for(lambda: self.app.clips("filepath, strValue")[0][0] == str(path),
                                  f"the clip of {path}")
            if kind == "missing":
                path.unlink()
            self.open()
            self.shoot("preview-" + kind)
            self.hide()

    def preferences(self):
        self.desktop.start([self.options.binary, "preferences"], quiet=True).wait(10)
        window = self.active_window()
        self.shoot("preferences-general")
        self.app.key("Left" if self.language == "ar" else "Right")
        self.shoot("preferences-applications")
        self.app.key("Tab", "Tab", "space")
        self.desktop.wait_for(lambda: self.active_window() != window, "the list of applications")
        self.shoot("preferences-chooser")
        self.app.key("Escape")
        self.desktop.wait_for(lambda: self.active_window() == window, "the preferences again")
        self.hide()

    def dialogs(self):
        for view, title in zip(("updates", "feedback"), MENU.get(self.language, ())):
            print(self.app.process.pid, title, sep="\t", file=self.panel.stdin, flush=True)
            self.active_window()
            self.shoot("dialog-" + view)
            self.hide()
        if self.options.test_build:
            self.problem_report()

    def problem_report(self):
        self.app.quit()
        self.start(welcomed=True, binary=self.options.test_build)
        self.app.process.send_signal(signal.SIGSEGV)
        self.app.process.wait(10)
        self.start(welcomed=True, binary=self.options.test_build)
        dialog = self.words("search", "--sync", "--onlyvisible", "--pid", str(self.app.process.pid))[-1]
        self.desktop.run(["xdotool", "windowactivate", "--sync", dialog])
        self.active_window()
        self.shoot("dialog-problem-report")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("binary")
    parser.add_argument("folder")
    parser.add_argument("--scales", default="1,2")
    parser.add_argument("--languages", default="en,ar")
    parser.add_argument("--accent")
    parser.add_argument("--contrast", action="store_true")
    parser.add_argument("--only", default="")
    parser.add_argument("--test-build")
    options = parser.parse_args()
    os.makedirs(options.folder, exist_ok=True)
    failures = []
    for scale in map(float, options.scales.split(",")):
        for language in options.languages.split(","):
            failures += Screens(options, scale, language).walk()
    for failure in failures:
        print("too little contrast:", *failure)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
