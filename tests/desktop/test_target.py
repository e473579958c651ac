"""Where the keyboard goes when windows of ours come and go: a paste lands in the application that
was in front last, and no key that is pressed on the way is lost."""

import time

from journey import HeldKeys, Journey, contents, made_in, pasteboard


class TargetJourney(Journey):
    def activate(self, window):
        self.desktop.activate(window)
        self.wait_for(lambda: self.desktop.active() == window, f"window {window} in front")

    def place(self, window):
        told = self.desktop.ask("xwininfo", "-id", window)
        return [line for line in told.splitlines() if "Absolute" in line or "Map State" in line]


class Target(TargetJourney):
    @made_in()
    def test_a_window_of_ours_in_between_does_not_bring_back_an_earlier_target(self):
        self.copy("clip")
        first = self.editor("qt")
        self.paste_with("Return")
        self.wait_for_text(first, "clip")
        second = self.editor("gtk")
        editor = self.desktop.active()
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
        editor = self.desktop.active()
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
            self.assertEqual(self.desktop.active(), editor)

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


class Keys(TargetJourney):
    def setUp(self):
        super().setUp()
        self.keys = HeldKeys(self.desktop.environment)

    def test_keys_pressed_while_the_shortcut_is_down_reach_the_history_in_order(self):
        for text in ("other", "vixen", "newest"):
            self.copy(text)
        path = self.editor("gtk")
        # Not waiting for the window, as quick fingers do not.
        self.keys.press("super", "shift", "v")
        self.keys.release("super", "shift")
        self.keys.tap("x")
        self.keys.tap("return")
        self.keys.release("v")
        self.wait_for_text(path, "vixen")
        self.app.wait_until_hidden()

        self.keys.press("super", "shift", "v")
        self.app.wait_until_active(self.app.window())
        self.keys.tap("down")
        self.keys.tap("return")
        self.keys.release("super", "shift", "v")
        self.wait_for_text(path, "vixennewest")

    def test_a_shortcut_that_is_held_repeats_nowhere(self):
        self.copy("what a second press would choose")
        self.copy("clip")
        path = self.editor("gtk")
        self.desktop.run(["xset", "r", "rate", "50", "100"])
        begin = time.monotonic()
        self.keys.press("x")
        self.wait_for(lambda: len(contents(path)) > 20, "a key that repeats")
        self.keys.release("x")
        repeats = time.monotonic() - begin
        self.app.key("ctrl+a", "BackSpace")
        self.wait_for_text(path, "")

        def hold():
            begin = time.monotonic()
            self.wait_for(lambda: time.monotonic() - begin > repeats, "as many repeats")

        self.keys.press("super", "shift", "v")
        self.app.wait_until_active(self.app.window())
        hold()
        self.keys.release("super", "shift")
        hold()
        # The history would find nothing if it had been typed into.
        self.keys.tap("return")
        self.wait_for_text(path, "clip")
        hold()
        self.keys.release("v")
        self.keys.tap("x")
        self.wait_for_text(path, "clipx")
