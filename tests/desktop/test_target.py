"""Where the keyboard goes when windows of ours come and go: a paste lands in the application that
was in front last."""

import unittest

from journey import BINARY, Journey, contents, pasteboard


class TargetJourney(Journey):
    def say(self, word):
        self.assertEqual(self.desktop.run([BINARY, word]).returncode, 0)

    def active(self):
        return self.desktop.run(["xdotool", "getactivewindow"], capture_output=True,
                                text=True).stdout.strip()

    def activate(self, window):
        self.desktop.run(["xdotool", "windowactivate", window])
        self.wait_for(lambda: self.active() == window, f"window {window} in front")

    def open_own(self, word, name):
        self.say(word)
        window = self.app.window(name)
        self.app.wait_until_active(window)
        return window

    def place(self, window):
        told = self.desktop.run(["xwininfo", "-id", window], capture_output=True, text=True).stdout
        return [line for line in told.splitlines() if "Absolute" in line or "Map State" in line]


class Target(TargetJourney):
    def test_a_window_of_ours_in_between_does_not_bring_back_an_earlier_target(self):
        self.copy("clip")
        first = self.editor("qt")
        self.paste_with("Return")
        self.wait_for_text(first, "clip")
        second = self.editor("gtk")
        editor = self.active()
        expected = ""
        for word, name in (("check-for-updates", "Software Update"),
                           ("preferences", "Preferences"), ("preferences", "Preferences")):
            with self.subTest(word):
                self.activate(editor)
                self.open_own(word, name)
                self.paste_with("Return")
                expected += "clip"
                self.wait_for_text(second, expected)
                self.assertEqual(contents(first), "clip")

    def test_our_windows_make_way_for_a_paste_and_come_back_where_they_were(self):
        self.copy("clip")
        path = self.editor("gtk")
        editor = self.active()
        windows = [self.open_own("preferences", "Preferences"),
                   self.open_own("check-for-updates", "Software Update")]
        places = [self.place(window) for window in windows]
        self.assertIn("IsViewable", places[0][-1])
        self.activate(editor)
        for text in ("clip", "clipclip"):
            self.paste_with("Return")
            self.wait_for_text(path, text)
            self.wait_for(lambda: [self.place(window) for window in windows] == places,
                          "the windows where they were")
            self.assertEqual(self.active(), editor)

    def test_a_text_field_of_ours_under_the_history_is_pasted_into(self):
        self.copy("clip")
        path = self.editor("gtk")
        preferences = self.open_own("preferences", "Preferences")
        place = self.place(preferences)
        feedback = self.open_own("feedback", "Send Feedback")
        self.app.type("this ")
        self.paste_with("Return")
        self.app.wait_until_active(feedback)
        self.wait_for(lambda: self.place(preferences) == place, "the other window")

        def text_of_the_field():
            self.app.key("ctrl+a", "ctrl+c")
            return pasteboard(self.desktop)

        self.wait_for(lambda: text_of_the_field() == "this clip", "the clip in the field")
        self.assertEqual(contents(path), "")


if __name__ == "__main__":
    unittest.main()
