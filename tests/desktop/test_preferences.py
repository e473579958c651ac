"""What is set in the preferences window counts at once, and still after a restart."""

import os
import pathlib
import shutil
import subprocess

from journey import BINARY, QT_EDITOR, Journey, Quillmarsh, made_in


class PreferencesJourney(Journey):
    starts_app = False

    def setUp(self):
        super().setUp()
        folder = pathlib.Path(self.desktop.environment["XDG_DATA_HOME"], "applications")
        folder.mkdir(parents=True, exist_ok=True)
        (folder / "reed.desktop").write_text(
            "[Desktop Entry]\nType=Application\nName=Reed.Editor\nStartupWMClass=qt_editor\n"
            f"Exec={QT_EDITOR}\n", encoding="utf-8")
        self.app = Quillmarsh(self.desktop, BINARY)

    def open_preferences(self):
        return self.open_own("preferences", "Preferences")

    def open_applications(self):
        window = self.open_preferences()
        self.desktop.click(window, self.desktop.place(window)[2] // 2 + 50, 20)

        # It has its width before its height, and a click in between misses what it is for.
        def has_arrived():
            width, height = self.desktop.place(window)[2:]
            return width == 480 and height < 390

        self.wait_for(has_arrived, "the Applications pane")
        return window

    def copy_in_editor(self, text):
        self.editor("qt", text, "--select")
        self.app.key("ctrl+c")

    @made_in("sway")
    def test_an_application_in_the_list_is_not_recorded_until_it_is_taken_out(self):
        window = self.open_applications()
        for keys in (["super+w"], ["r", "e", "e", "d", "Return"]):
            self.desktop.click(window, 38, self.desktop.place(window)[3] - 34)
            self.app.wait_until_active(self.app.window("Choose Application"))
            self.app.key(*keys)
            self.app.wait_until_hidden("Choose Application")
        self.wait_for(lambda: self.app.setting("applicationsToIgnore"), "the stored list")
        self.app.close("Preferences")
        self.copy_in_editor("private")
        self.app.wait_for_log("ignoring copy from Reed.Editor")
        self.assertEqual(self.app.clips(), [])

        window = self.open_applications()
        self.desktop.click(window, 60, 95)
        before = self.app.setting("applicationsToIgnore")
        self.app.key("Delete")
        self.wait_for(lambda: self.app.setting("applicationsToIgnore") != before, "the empty list")
        self.app.close("Preferences")
        self.copy_in_editor("public")
        self.app.wait_for_clip("public")

    def test_a_program_that_is_chosen_as_a_file_is_not_recorded(self):
        # Without an entry, and its windows' class is not the name of its file.
        program, link = self.file("marsh_pad"), self.file("pad")
        shutil.copy(QT_EDITOR, program)
        os.symlink(program, link)
        pad = self.desktop.start(["Marsh", self.file("pad.txt"), "private", "--select"],
                                 executable=program, stdout=subprocess.PIPE, text=True)
        self.assertEqual(pad.stdout.readline(), "ready\n")

        pad_window = self.wait_for(self.desktop.active, "the editor's window")
        window = self.open_applications()
        self.desktop.click(window, 38, self.desktop.place(window)[3] - 34)
        chooser = self.app.window("Choose Application")
        self.app.wait_until_active(chooser)
        self.app.key("alt+o")
        files = self.wait_for(
            lambda: {self.desktop.active()}.difference(("", window, chooser)), "the files").pop()
        self.app.wait_until_active(files)
        self.app.type(link)
        self.app.key("Return")
        self.app.wait_until_hidden("Choose Application")
        self.wait_for(lambda: self.app.setting("applicationsToIgnore"), "the stored list")
        # Which gets the keyboard back from the dialog.
        self.app.wait_until_active(window)
        self.desktop.run(["xdotool", "windowactivate", "--sync", pad_window])
        self.app.wait_until_active(pad_window)
        self.app.key("ctrl+c")
        self.app.wait_for_log("ignoring copy from Marsh")
        self.assertEqual(self.app.clips(), [])
