"""The selection of the application in front is exchanged with a clip."""


from journey import Journey, contents, made_in, pasteboard


class SwopJourney(Journey):
    @made_in()
    def test_the_exchange_leaves_the_replaced_selection_newest_and_on_the_clipboard(self):
        for kind in ("gtk", "qt"):
            with self.subTest(kind):
                self.copy("new words")
                path = self.editor(kind, "old words", "--select")
                self.app.open_swop()
                self.app.key("Return")
                self.wait_for_text(path, "new words")
                self.app.wait_for_clip("old words")
                self.assertEqual(self.app.clips()[:2], ["old words", "new words"])
                self.wait_for(lambda: pasteboard(self.desktop) == "old words", "the old words")

    @made_in("sway", "labwc")
    def test_it_works_while_fingers_are_still_on_the_keys(self):
        self.copy("typed with held keys")
        path = self.editor("gtk", "selected", "--select")
        self.desktop.hold("super", "shift", "x")
        self.app.wait_until_active(self.app.window())
        self.desktop.release("x")
        self.desktop.tap("return")
        self.wait_for(lambda: contents(path) != "selected", "the exchange")
        self.desktop.release("super", "shift")
        # Shift was held with Return: the exchange pastes in upper case only for Shift alone.
        self.wait_for_text(path, "typed with held keys")
        self.app.wait_for_clip("selected")
        self.app.key("a")
        self.wait_for_text(path, "typed with held keysa")

    @made_in("sway")
    def test_in_a_terminal_the_selected_text_is_the_selection_and_nothing_is_interrupted(self):
        self.copy("clip")
        path = self.terminal()
        self.app.type("word\n")
        self.wait_for_text(path, "word\n")
        # A double click selects the word that cat echoed in the first line, once it is drawn.
        terminal = self.desktop.active()
        self.desktop.repeat(lambda: self.desktop.click(terminal, 14, 8, count=2),
                            lambda: self.desktop.pasteboard(is_primary=True) == "word",
                            "the terminal's selection")
        self.app.open_swop()
        self.app.key("Return")
        self.app.wait_until_hidden()
        self.app.wait_for_clip("word")
        self.app.key("Return")
        self.wait_for_text(path, "word\nclip\n")

    @made_in("sway", "labwc")
    def test_a_slow_target_is_given_the_clip_and_not_its_own_selection(self):
        """It takes 250 ms to copy, when our own window is in front, and so long to paste that the
        usual wait is over."""
        for delay in (250, 900):
            with self.subTest(delay):
                clip, selection = f"clip {delay}", f"slow words {delay}"
                self.copy(clip)
                path = self.editor("gtk", selection, "--select", "--slow", str(delay))
                self.app.open_swop()
                self.wait_for(lambda: pasteboard(self.desktop) == selection, "the slow copy")
                self.app.key("Return")
                self.wait_for_text(path, clip)
                self.app.wait_for_clip(selection)
                text, name = self.app.clips("strValue, applicationName")[0]
                self.assertEqual((text, name.lower()), (selection, "editor"))
                self.wait_for(lambda: pasteboard(self.desktop) == selection, "the selection back")

    @made_in()
    def test_with_the_history_open_it_copies_in_the_target(self):
        self.copy("clip")
        path = self.editor("gtk", "chosen words", "--select")
        self.app.open_history()
        self.app.key("super+shift+x")
        self.wait_for(lambda: pasteboard(self.desktop) == "chosen words", "the selection")
        self.app.wait_until_active(self.app.window())
        self.app.key("Return")
        self.wait_for_text(path, "clip")
        self.app.wait_for_clip("chosen words")
