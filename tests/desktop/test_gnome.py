"""On GNOME, where the user lets the program see copies and paste by one answer to one question of the
desktop's, and may end that at any time."""

from journey import BINARY, Journey, Quillmarsh, made_in

QUESTION = "Remote Desktop"
# Whoever ends it clicks the sign that stands in the top bar all the while.
SIGN = """
(() => { const sign = Main.panel.statusArea.screenSharing;
         if (!sign || !sign.visible) return null;
         const [x, y] = sign.get_transformed_position();
         return [Math.round(x + sign.width / 2), Math.round(y + sign.height / 2)]; })()
"""


class GnomeJourney(Journey):
    def await_recording(self, told="recording: works"):
        """Until that is the last that the log says of it."""
        self.wait_for(lambda: [line for line in self.app.log if "recording: " in line][-1].endswith(
            told), told, 30)


class AgreedJourney(GnomeJourney):
    def setUp(self):
        super().setUp()
        self.await_consent()

    def await_consent(self):
        self.await_recording()
        self.app.wait_for_log("the desktop's keys for swopShortCut", seconds=30)

    def copy_in(self, kind, text):
        """Types the chord for a copy in an editor that has the text selected."""
        self.editor(kind, text, "--select")
        self.app.key("ctrl+c")
        self.app.wait_for_clip(text)

    @made_in("gnome")
    def test_copies_are_recorded_while_nothing_of_ours_is_shown(self):
        for kind in ("gtk", "qt"):
            with self.subTest(kind):
                self.copy_in(kind, f"a bittern booms in {kind}")

    @made_in("gnome")
    def test_a_burst_is_recorded_whole_and_in_order(self):
        self.editor("gtk", "burst", "--select", "--burst", "100")
        self.app.key("ctrl+c")
        self.app.wait_for_clip("burst 99", seconds=30)
        self.assertEqual(self.app.clips()[:100], [f"burst {i}" for i in reversed(range(100))])

    @made_in("gnome")
    def test_return_pastes_into_gtk_and_qt(self):
        self.copy("the heron waits")
        for kind in ("qt", "gtk"):
            with self.subTest(kind):
                path = self.editor(kind)
                self.paste_with("Return", filter_text="heron")
                self.wait_for_text(path, "the heron waits")

    @made_in("gnome")
    def test_the_selection_is_exchanged(self):
        for kind in ("gtk", "qt"):
            with self.subTest(kind):
                self.copy("new words")
                path = self.editor(kind, "old words", "--select")
                self.app.open_swop()
                self.app.key("Return")
                self.wait_for_text(path, "new words")
                self.app.wait_for_clip("old words")

    @made_in("gnome")
    def test_ending_it_in_the_top_bar_ends_the_recording_until_the_user_wants_it_again(self):
        self.copy("before")
        self.desktop.keep_picture()
        place = self.wait_for(lambda: self.desktop.shell.run(SIGN), "the sign in the top bar")
        self.desktop.click_at(*place)
        self.app.wait_for_log("has been ended")
        self.wait_for(lambda: self.desktop.shell.run(SIGN) is None, "the sign to go")
        self.desktop.copy("unseen")
        # What the clipboard holds when recording goes on is seen then.
        self.desktop.copy("left there")
        self.open_own("preferences", "Preferences")
        self.desktop.keep_picture()
        self.assertIsNone(self.app.window(QUESTION, wait=False))
        self.app.key("alt+a")
        # The user's record has it already, and no dialog is shown.
        self.await_recording()
        self.app.close("Preferences")
        self.copy("after")
        self.assertNotIn("unseen", self.app.clips())

    @made_in("gnome")
    def test_nobody_is_asked_again_at_the_next_start(self):
        self.copy("kept")
        self.assertEqual(self.app.quit(), 0)
        self.app = Quillmarsh(self.desktop, BINARY)
        self.await_consent()
        self.assertEqual(self.desktop.windows(), [])
        self.copy("new")
        self.assertEqual(self.app.clips()[:2], ["new", "kept"])


class AskedJourney(GnomeJourney):
    desktop_options = {"consents": False}

    @made_in("gnome")
    def test_the_question_can_be_refused_and_answered_later(self):
        self.app.wait_for_log("recording: works after")
        self.desktop.copy("unseen")
        for agrees in (False, True):
            self.assertIsNone(self.app.window(QUESTION, wait=False))
            self.open_own("preferences", "Preferences")
            self.desktop.keep_picture()
            self.app.key("alt+a")
            question = self.app.window(QUESTION)
            self.app.wait_until_active(question)
            self.desktop.keep_picture()
            self.app.key("alt+i" if agrees else "Escape")
            if agrees:
                self.desktop.keep_picture()
                # The button that shares stands in the window's corner.
                self.desktop.click(question, self.desktop.place(question)[2] - 43, 23)
                self.await_recording()
            else:
                self.app.wait_for_log("answered with no")
            self.app.close("Preferences")
        self.copy("seen")
        self.assertEqual(self.app.clips(), ["seen"])
