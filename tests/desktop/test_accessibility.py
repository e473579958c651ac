"""The main job for somebody who hears the screen: what assistive technology is told of the windows,
and that the keys alone do everything."""


from journey import BINARY, Journey, Quillmarsh
from accessible import Accessible


class Accessibility(Journey):
    starts_app = False

    def start(self, **environment):
        # First, as on a real desktop: Qt may miss somebody who begins to listen while it starts.
        self.screen = Accessible(self.desktop)
        # Otherwise Qt waits until somebody says that a screen reader runs.
        self.app = Quillmarsh(self.desktop, BINARY,
                              {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", **environment})

    def found(self, role, name):
        return self.wait_for(lambda: self.screen.find(role, name), f"the {role} {name!r}")[0]

    def rows(self):
        """Text, position and whether it is selected, of each row that is heard."""
        return [(cell["name"], cell["description"], "selected" in cell["states"])
                for cell in self.screen.find("table cell") if cell["description"]]

    def test_the_list_tells_its_rows_and_their_choice_and_a_clip_is_pasted_by_keys_alone(self):
        self.start()
        for text in ("the bittern", "the heron", "  the harrier"):
            self.copy(text)
        path = self.editor("gtk")
        self.app.open_history()
        self.assertIn("focused", self.found("text", "Search clips")["states"])
        self.found("table", "Clips")
        self.assertEqual(self.rows(), [("the harrier", "1 of 3", True), ("the heron", "2 of 3", False),
                                       ("the bittern", "3 of 3", False)])
        self.screen.events()
        self.app.key("Down")
        heard = []

        def is_told():
            heard.extend(self.screen.events())
            return ["object:state-changed:selected", "table cell", "the heron", "2 of 3"] in heard
        self.wait_for(is_told, "the news of another selected row")
        # Where the keyboard is, the same is said.
        self.assertEqual(self.found("text", "Search clips")["description"], "2 of 3: the heron")
        self.assertEqual(self.found("text", "Clip text preview")["text"], "the heron")
        self.app.type("bitt")
        self.wait_for(lambda: self.rows() == [("the bittern", "1 of 1", True)], "the filtered rows")
        self.app.key("Return")
        self.wait_for_text(path, "the bittern")

    def test_every_control_of_the_preferences_has_a_name_and_the_recorder_tells_its_state(self):
        self.start()
        self.open_own("preferences", "Preferences")
        for role, name in (("check box", "Open at login"), ("check box", "Show notifications"),
                           ("slider", "Maximum number of items"),
                           ("text", "Maximum text size in bytes"), ("radio button", "General")):
            self.found(role, name)
        recorder = self.screen.find("", "Open history shortcut")[0]
        self.assertEqual(recorder["description"], "⇧⌘V")
        self.assertIn("Press", recorder["actions"])
        controls = [node for node in self.screen.find() if "focusable" in node["states"]]
        self.assertEqual([node for node in controls if not node["name"]], [])
        self.screen.events()
        self.assertTrue(self.screen.do("", "Open history shortcut"))
        heard = []

        def is_told():
            heard.extend(self.screen.events())
            return any((name, told) == ("Open history shortcut", "Type New Shortcut")
                       and "description" in kind for kind, _, name, told in heard)
        self.wait_for(is_told, "the news that the recorder waits")
        self.app.key("Escape")
        self.screen.do("radio button", "Applications")
        self.found("table", "Ignored applications")
        for name in ("Add application", "Remove application"):
            self.found("button", name)

    def test_the_words_are_those_of_the_session(self):
        for language, name in (("de", "Clips durchsuchen"), ("ar:en", "البحث في القصاصات"),
                               ("en_GB:de", "Search clips"), ("pt:fr", "Chercher dans les extraits")):
            with self.subTest(language):
                self.start(LANGUAGE=language)
                self.app.open_history()
                self.found("text", name)
                self.app.quit()
