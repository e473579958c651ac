"""A copy in another application is in the history."""

import time
import unittest

from journey import Journey, copy, pasteboard


class CopyJourney(Journey):
    def test_a_copy_is_recorded_with_the_application_it_came_from(self):
        self.editor("gtk", "a reed in the wind", "--select")
        self.app.key("ctrl+c")
        self.app.wait_for_clip("a reed in the wind")
        self.editor("qt", "a bittern booms", "--select")
        self.app.key("ctrl+c")
        self.app.wait_for_clip("a bittern booms")
        names = [name for _, name in self.app.clips("strValue, applicationName")]
        self.assertEqual(names[0].lower(), "qt_editor")
        self.assertEqual(names[1], "Editor")

    def test_a_repeat_changes_nothing_and_a_return_moves_to_the_top(self):
        for text in ("A", "B", "A"):
            self.copy(text)
        copy(self.desktop, "A")
        self.copy("C")
        self.assertEqual(self.app.clips(), ["C", "A", "B"])

    def test_rtf_and_a_copied_file_are_kept_with_their_text(self):
        self.owner("serve", "--rtf", r"{\rtf1 \b bold}", "bold")
        self.app.wait_for_clip("bold")
        path = self.file("notes für später.txt")
        copy(self.desktop, "file://" + path.replace("ü", "%C3%BC").replace("ä", "%C3%A4")
             .replace(" ", "%20") + "\r\n", "text/uri-list")
        self.wait_for(lambda: len(self.app.clips()) == 2, "the file's clip")
        rows = self.app.clips("strValue, rtfValue, filepath")
        self.assertEqual(rows[0], (path, None, path))
        self.assertEqual(rows[1], ("bold", r"{\rtf1 \b bold}", None))

    def test_files_of_one_name_are_clips_of_their_own(self):
        paths = ["/tmp/one/report.txt", "/tmp/two/report.txt"]
        for path in paths:
            copy(self.desktop, f"file://{path}\r\n", "text/uri-list")
            self.app.wait_for_clip(path)
        self.assertEqual(self.app.clips("strValue, filepath"),
                         [(path, path) for path in reversed(paths)])

    def test_a_burst_is_recorded_whole_and_in_order(self):
        self.owner("burst", 100, 5)
        self.app.wait_for_clip("burst copy 99")
        self.assertEqual(self.app.clips(),
                         [f"burst copy {i}" for i in reversed(range(100))]
                         + ["before the burst"])

    def test_a_dead_owners_copy_stays_recorded_and_pasteable(self):
        self.owner("brief", 50, "gone but not forgotten").wait(5)
        self.app.wait_for_clip("gone but not forgotten")
        self.wait_for(lambda: pasteboard(self.desktop) == "gone but not forgotten",
                      "the adopted text")

    def test_owners_that_hang_stall_or_die_disturb_nobody(self):
        for mode in ("hang", "stall", "die"):
            with self.subTest(mode):
                owner = self.owner(mode)
                started = time.monotonic()
                self.app.open_history()
                self.assertLess(time.monotonic() - started, 1.0)
                self.app.key("Escape")
                self.app.wait_until_hidden()
                self.copy(f"after {mode}")
                owner.kill()
                owner.wait()
        self.assertEqual(len(self.app.clips()), 3)

    def test_a_secret_and_a_huge_text_are_not_recorded(self):
        self.owner("serve", "--secret", "hunter2")
        self.copy("between")
        self.owner("large", 50_000_000)
        self.app.open_history()
        self.app.key("Escape")
        self.app.wait_until_hidden()
        self.copy("after")
        self.assertEqual(self.app.clips(), ["after", "between"])
        self.assertNotIn("hunter2", "\n".join(self.app.log))

    def test_any_text_survives(self):
        cases = {
            "emoji and right to left": "👩‍🚒 שלום عربى",
            "many lines": "\n".join(str(i) for i in range(1900)),
            "blanks": " \t ",
        }
        for name, text in cases.items():
            with self.subTest(name):
                self.copy(text)
        self.owner("raw", "61ff62")
        self.wait_for(lambda: (self.app.clips()[0] or "").startswith("a"), "broken UTF-8")
        self.owner("serve", "--latin1", "caf\u00e9")
        self.app.wait_for_clip("caf\u00e9")


if __name__ == "__main__":
    unittest.main()
