"""A copy in another application is in the history."""

import pathlib
import plistlib
import signal
import subprocess

from journey import BINARY, BUNDLE, Journey, Quillmarsh, made_in, pasteboard


class CopyJourney(Journey):
    @made_in()
    def test_a_copy_is_recorded_with_the_application_it_came_from(self):
        self.editor("gtk", "a reed in the wind", "--select")
        self.app.key("ctrl+c")
        self.app.wait_for_clip("a reed in the wind")
        self.editor("qt", "a bittern booms", "--select")
        self.app.key("ctrl+c")
        self.app.wait_for_clip("a bittern booms")
        names = [name for _, name in self.app.clips("strValue, applicationName")]
        self.assertEqual([name.lower() for name in names], ["qt_editor", "editor"])

    @made_in()
    def test_a_burst_is_recorded_whole_and_in_order(self):
        self.owner("burst", 100, 5)
        self.app.wait_for_clip("burst copy 99")
        self.assertEqual(self.app.clips(),
                         [f"burst copy {i}" for i in reversed(range(100))]
                         + ["before the burst"])

    @made_in()
    def test_a_dead_owners_copy_stays_recorded_and_pasteable(self):
        self.owner("brief", 50, "gone but not forgotten").wait(5)
        self.app.wait_for_clip("gone but not forgotten")
        self.wait_for(lambda: pasteboard(self.desktop) == "gone but not forgotten",
                      "the adopted text")

    @made_in("sway")
    def test_a_display_that_stands_still_for_a_while_takes_nothing_away(self):
        self.copy("before")
        display = self.desktop.compositor
        display.send_signal(signal.SIGSTOP)
        # What needs no display is answered all the while.
        listed = self.desktop.run([BINARY, "list"], stdout=subprocess.PIPE, timeout=10)
        copying = self.desktop.start([BINARY, "copy"], stdin=subprocess.PIPE, text=True)
        copying.stdin.write("meanwhile")
        copying.stdin.close()
        launching = self.desktop.start([BINARY, "launch"])
        launching.wait(10)
        display.send_signal(signal.SIGCONT)
        self.assertEqual(listed.stdout, b"c1\tbefore\n")
        self.assertEqual(copying.wait(10), 0)
        self.app.window()
        self.app.close()
        self.assertEqual(self.app.clips(), ["meanwhile", "before"])
        self.assertEqual(pasteboard(self.desktop), "meanwhile")
        self.copy("after")

    @made_in()
    def test_a_secret_is_not_recorded(self):
        self.owner("secret", "hunter2")
        self.copy("after")
        self.assertEqual(self.app.clips(), ["after"])
        self.assertNotIn("hunter2", "\n".join(self.app.log))


class KeptPictureJourney(Journey):
    starts_app = False

    def test_a_copied_picture_is_kept_pasted_as_one_and_gone_with_its_clip(self):
        settings = pathlib.Path(self.desktop.environment["XDG_CONFIG_HOME"], BUNDLE + ".plist")
        settings.parent.mkdir(parents=True, exist_ok=True)
        settings.write_bytes(plistlib.dumps({"welcomeWindowShown": True, "keepPictures": True}))
        self.app = Quillmarsh(self.desktop, BINARY)
        picture = self.file("reeds.png")
        self.desktop.run(["convert", "-size", "80x60", "gradient:red-blue", picture])
        self.desktop.run(["xclip", "-selection", "clipboard", "-t", "image/png", "-i", picture],
                         stdout=subprocess.DEVNULL)
        self.app.wait_for_clip("Picture 80 × 60")
        self.copy("newer")
        self.editor("gtk")
        self.app.open_history()
        self.app.type("80 ")
        self.app.key("Return")
        self.app.wait_until_hidden()
        self.app.wait_for_clip("Picture 80 × 60")
        pasted = self.desktop.run(["xclip", "-selection", "clipboard", "-t", "image/png", "-o"],
                                  capture_output=True).stdout
        self.assertEqual(pasted, pathlib.Path(picture).read_bytes())
        kept = self.app.store.parent / "Pictures"
        self.assertEqual([file.stat().st_mode & 0o777 for file in kept.iterdir()], [0o600])
        self.app.open_history()
        self.app.key("super+BackSpace")
        self.wait_for(lambda: not list(kept.iterdir()), "the picture to go with its clip")
