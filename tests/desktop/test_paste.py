"""A clip chosen in the history stands in the application that was in front."""

import time

from journey import SESSION, Journey, made_in, pasteboard

HTML = "<meta charset=\"utf-8\"><p>a <b>Bold</b> {heron} ü\\"


class PasteJourney(Journey):
    @made_in()
    def test_return_pastes_into_gtk_and_qt(self):
        self.copy("the heron waits")
        self.copy("newer")
        for kind in ("qt", "gtk"):
            with self.subTest(kind):
                path = self.editor(kind)
                self.paste_with("Return", filter_text="heron")
                self.wait_for_text(path, "the heron waits")
        self.wait_for(lambda: self.app.clips("strValue, applicationName")[0]
                      == ("the heron waits", "qt_editor"),
                      "the clip to come from where it was first pasted")

    @made_in()
    def test_a_queue_gives_each_paste_the_next_clip_whatever_a_manager_reads(self):
        for text in ("one ", "two ", "three "):
            self.copy(text)
        path = self.editor("gtk")
        self.desktop.start(["sh", "-c", "while xclip -selection clipboard -o; do :; done"]
                           if SESSION == "x11" else ["wl-paste", "--watch", "cat"], quiet=True)
        self.app.open_history()
        self.app.key("shift+Down", "shift+Down", "ctrl+Return")
        self.app.wait_until_hidden()
        for text, following in (("three ", "two "), ("three two ", "one "),
                                ("three two one ", "one ")):
            if SESSION != "x11":
                time.sleep(1)  # who pastes at once passes for a manager
            self.app.key("ctrl+v")
            self.wait_for_text(path, text)
            # Where nobody is told who asks, to look at the clipboard would be a paste as well.
            if SESSION == "x11":
                self.wait_for(lambda: pasteboard(self.desktop) == following, "the next clip")
            else:
                self.wait_for(lambda: len(self.app.clips("pasteCount")) - self.app.clips(
                    "pasteCount").count(None) == len(text.split()), "the next clip")
        self.assertEqual(pasteboard(self.desktop), "one ")

    @made_in("sway", "labwc")
    def test_return_pastes_into_a_terminal(self):
        self.copy("the heron waits")
        path = self.terminal()
        self.paste_with("Return")
        self.app.key("Return")
        self.wait_for_text(path, "the heron waits\n")

    @made_in()
    def test_what_was_copied_formatted_is_pasted_formatted_unless_its_text_is_changed(self):
        owner = self.owner("html", HTML, "a Bold heron")
        self.app.wait_for_clip("a Bold heron")
        self.wait_for(lambda: self.app.clips("rtfValue")[0], "the HTML in the record")
        owner.kill()
        self.editor("gtk")
        for key, text, html in (("Return", "a Bold heron", HTML),
                                ("shift+Return", "A BOLD HERON", None)):
            with self.subTest(key):
                self.copy("newer")
                self.paste_with(key, filter_text="bold")
                self.wait_for(lambda: pasteboard(self.desktop) == text, "the paste")
                self.assertEqual(pasteboard(self.desktop, "text/html"), html)
                self.assertIn(r"\b ", pasteboard(self.desktop, "text/rtf"))

    @made_in("sway", "labwc")
    def test_the_modifier_still_held_from_shift_return_does_not_reach_the_target(self):
        self.copy("held")
        path = self.editor("gtk")
        self.app.open_history()
        self.desktop.hold("shift")
        self.desktop.tap("return")
        self.app.wait_until_hidden()
        self.wait_for_text(path, "HELD")
        self.desktop.release("shift")
        self.app.key("a")
        self.wait_for_text(path, "HELDa")

    @made_in("kde")
    def test_shift_is_let_go_first_where_it_would_reach_the_target(self):
        self.copy("held")
        path = self.editor("qt")
        self.app.open_history()
        self.desktop.hold("shift")
        self.desktop.tap("return")
        self.desktop.release("shift")
        self.wait_for_text(path, "HELD")
        self.app.key("a")
        self.wait_for_text(path, "HELDa")

    def test_what_is_typed_right_after_return_follows_the_clip(self):
        self.copy("clip ")
        self.copy("other")
        for kind in ("gtk", "qt"):
            path = self.editor(kind)
            expected = ""
            for turn in range(8):
                with self.subTest(kind, turn=turn):
                    self.app.open_history()
                    # All at once, far quicker than any hand.
                    self.desktop.keys("c", "l", "i", "Return", "a", "X", "b", "Return",
                                      at_once=True)
                    expected += "clip aXb\n"
                    self.wait_for_text(path, expected)
                    self.app.wait_until_hidden()
