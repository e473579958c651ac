"""The selection of the application in front is exchanged with a clip."""

import unittest

from journey import HeldKeys, Journey, contents, copy, pasteboard


class SwopJourney(Journey):
    def wait_for_window(self):
        self.app.wait_until_active(self.app.window())

    def test_the_exchange_leaves_the_replaced_selection_newest_and_on_the_clipboard(self):
        for kind in ("gtk", "qt"):
            with self.subTest(kind):
                self.copy("new words")
                path = self.editor(kind, "old words", "--select")
                self.app.key("super+shift+x")
                self.wait_for_window()
                self.app.key("Return")
                self.wait_for_text(path, "new words")
                self.app.wait_for_clip("old words")
                self.assertEqual(self.app.clips()[:2], ["old words", "new words"])
                self.wait_for(lambda: pasteboard(self.desktop) == "old words", "the old words")

    def test_it_works_while_fingers_are_still_on_the_keys(self):
        self.copy("typed with held keys")
        path = self.editor("gtk", "selected", "--select")
        keys = HeldKeys(self.desktop.environment)
        keys.press("super", "shift", "x")
        self.wait_for_window()
        keys.release("x")
        keys.tap("return")
        self.wait_for(lambda: contents(path) != "selected", "the exchange")
        keys.release("super", "shift")
        # Shift was held with Return: the exchange pastes in upper case only for Shift alone.
        self.wait_for_text(path, "typed with held keys")
        self.app.wait_for_clip("selected")
        self.app.key("a")
        self.wait_for_text(path, "typed with held keysa")

    def test_escape_keeps_the_selection_and_recording_goes_on(self):
        self.copy("clip")
        path = self.editor("gtk", "precious", "--select")
        self.app.key("super+shift+x")
        self.wait_for_window()
        self.app.key("Escape")
        self.app.wait_until_hidden()
        self.app.wait_for_clip("precious")
        self.assertEqual(contents(path), "precious")
        self.copy("recorded later")

    def test_in_a_terminal_the_selected_text_is_the_selection_and_nothing_is_interrupted(self):
        self.copy("clip")
        path = self.terminal()
        self.app.type("word\n")
        self.wait_for_text(path, "word\n")
        # A double click selects the word that cat echoed in the first line.
        window = self.desktop.run(["xdotool", "getactivewindow"], capture_output=True,
                                  text=True).stdout.strip()
        self.desktop.run(["xdotool", "mousemove", "--window", window, "14", "8",
                          "click", "--repeat", "2", "--delay", "60", "1"])
        self.wait_for(lambda: self.desktop.run(
            ["xclip", "-o", "-selection", "primary"], capture_output=True).stdout == b"word",
            "the terminal's selection")
        self.app.key("super+shift+x")
        self.wait_for_window()
        self.app.key("Return")
        self.app.wait_until_hidden()
        self.app.wait_for_clip("word")
        self.app.key("Return")
        self.wait_for_text(path, "word\nclip\n")

    def test_the_clipboard_answers_during_the_waits(self):
        self.copy("served throughout")
        self.editor("gtk", "x", "--select")
        self.app.key("super+shift+x")
        self.wait_for_window()
        self.app.key("Return")
        # The completion blocks the main thread for 0.4 s right after the paste.
        self.wait_for(lambda: pasteboard(self.desktop) == "served throughout", "an answer", 0.4)
        self.app.wait_for_clip("x")

    def test_a_slow_target_is_given_the_clip_and_not_its_own_selection(self):
        """It takes 250 ms to copy, when our own window is in front, and so long to paste that the
        usual wait is over."""
        for delay in (250, 900):
            with self.subTest(delay):
                clip, selection = f"clip {delay}", f"slow words {delay}"
                self.copy(clip)
                path = self.editor("gtk", selection, "--select", "--slow", str(delay))
                self.app.key("super+shift+x")
                self.wait_for_window()
                self.wait_for(lambda: pasteboard(self.desktop) == selection, "the slow copy")
                self.app.key("Return")
                self.wait_for_text(path, clip)
                self.app.wait_for_clip(selection)
                self.assertEqual(self.app.clips("strValue, applicationName")[0],
                                 (selection, "Editor"))
                self.wait_for(lambda: pasteboard(self.desktop) == selection, "the selection back")

    def test_the_selection_goes_back_though_nobody_asks_for_the_clip(self):
        self.copy("clip")
        self.editor("gtk", "held words", "--select", "--slow", "5000")
        copied = self.owner("serve", "held words")
        self.app.wait_for_clip("held words")
        self.app.key("super+shift+x")
        self.wait_for_window()
        copied.terminate()
        self.copy_while_held("held words")
        self.app.type("clip")
        self.app.key("Return")
        self.app.wait_for_clip("held words")
        self.assertEqual(pasteboard(self.desktop), "clip")
        self.wait_for(lambda: pasteboard(self.desktop) == "held words", "the selection back", 4)

    def test_nothing_of_the_selection_is_lost(self):
        """One that is too large to be recorded, and one that a later copy replaces."""
        large = "large " * 3000
        for later in (None, "a later copy"):
            with self.subTest(later=later):
                self.copy("clip")
                path = self.editor("gtk", large if not later else "earlier words", "--select")
                self.app.key("super+shift+x")
                self.wait_for_window()
                if later:
                    self.copy_while_held(later)
                self.app.key("Return")
                self.wait_for_text(path, "clip")
                left = later or large
                self.wait_for(lambda: pasteboard(self.desktop) == left, "what is left")
                self.wait_for(lambda: self.app.clips()[:3] == ["a later copy", "clip",
                                                               "earlier words"]
                              if later else self.app.clips() == ["clip"], "the history")

    def test_with_the_history_open_it_copies_in_the_target(self):
        self.copy("clip")
        path = self.editor("gtk", "chosen words", "--select")
        self.app.open_history()
        self.app.key("super+shift+x")
        self.wait_for(lambda: pasteboard(self.desktop) == "chosen words", "the selection")
        self.wait_for_window()
        self.app.key("Return")
        self.wait_for_text(path, "clip")
        self.app.wait_for_clip("chosen words")

    def copy_while_held(self, text):
        copy(self.desktop, text)
        self.wait_for(lambda: pasteboard(self.desktop) == text, "the copy")

    def test_an_empty_selection_makes_it_an_ordinary_paste(self):
        copy(self.desktop, "plain")
        self.app.wait_for_clip("plain")
        path = self.editor("gtk")
        self.app.key("super+shift+x")
        self.wait_for_window()
        self.app.key("Return")
        self.wait_for_text(path, "plain")
        self.copy("recorded after")


if __name__ == "__main__":
    unittest.main()
