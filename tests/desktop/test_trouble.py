"""What goes wrong around the program does not take it or its clips along."""

import os
import pathlib
import sqlite3
import time

from journey import BINARY, Journey, Quillmarsh


class FileTrouble(Journey):
    starts_app = False

    def test_the_question_about_damaged_settings_leaves_the_keyboard_where_it_is(self):
        settings = Quillmarsh.settings.fget(self)
        settings.parent.mkdir(parents=True)
        settings.write_bytes(b"no settings")
        editor = self.editor("gtk")
        self.app = Quillmarsh(self.desktop, BINARY)
        self.app.window("Damaged Settings")
        self.app.type("typed on")
        self.wait_for_text(editor, "typed on")

    def test_a_data_folder_that_hangs_does_not_stop_the_start(self):
        folder = self.file("far")
        applications = pathlib.Path(folder, "applications")
        applications.mkdir(parents=True)
        (applications / "reed.desktop").write_text(
            "[Desktop Entry]\nType=Application\nName=Reed Editor\nStartupWMClass=qt_editor\n",
            encoding="utf-8")
        pathlib.Path(folder + ".mounts").touch()
        pathlib.Path(folder + ".hung").touch()
        self.app = Quillmarsh(self.desktop, BINARY, {
            "LD_PRELOAD": os.environ["HUNG_FILES"], "HUNG_FOLDER": folder,
            "XDG_DATA_DIRS": f"{folder}:/usr/share", "ASAN_OPTIONS": "verify_asan_link_order=0"})
        self.copy("recorded all the same")
        self.editor("qt", "before", "--select")
        self.app.key("ctrl+c")
        self.app.wait_for_clip("before")
        pathlib.Path(folder + ".hung").unlink()
        # Noticed when it is asked for the next time.
        self.wait_for(lambda: self.copied_from() == "Reed Editor", "the entry that came late", 20)
        self.assertEqual([line for line in self.app.log if "main thread asked" in line], [])

    def copied_from(self):
        """The application that the next copy counts as one of, after it has come to the front."""
        self.app.open_history()
        self.app.close()
        self.copy(f"copied at {time.monotonic()}")
        return self.app.clips("strValue, applicationName")[0][1]


class HungOwners(Journey):
    def windows(self):
        """Our windows that can be seen, menus too."""
        return self.desktop.ask("xdotool", "search", "--onlyvisible", "--class", "quillmarsh").split()

    def test_pasting_from_a_hung_program_into_the_search_holds_up_nothing(self):
        self.copy("alpha")
        self.copy("beta")
        self.owner("hang")
        editor = self.editor("qt")
        window = self.app.open_history()
        self.app.key("ctrl+v", "shift+Insert")
        self.desktop.run(["xdotool", "mousemove", "--sync", "--window", window, "300", "27",
                          "click", "2", "click", "3"])
        self.wait_for(lambda: len(self.windows()) > 1, "the context menu")
        self.app.key("Escape")
        self.wait_for(lambda: self.windows() == [window], "the end of the menu")
        self.app.type("alp")
        self.app.key("Return")
        self.app.wait_until_hidden()
        self.wait_for_text(editor, "alpha")


class BareDesktops(Journey):
    starts_app = False

    def test_without_a_window_manager(self):
        self.enter(wm="none")
        self.app = Quillmarsh(self.desktop, BINARY)
        self.copy("works all the same")
        self.app.key("super+shift+v")
        self.app.window()
        self.app.close()

    def test_the_end_of_the_display_ends_the_program_and_loses_nothing(self):
        self.app = Quillmarsh(self.desktop, BINARY)
        self.copy("kept")
        store = self.app.store
        self.desktop.processes[0].kill()
        self.assertIsNotNone(self.app.process.wait(10))
        with sqlite3.connect(store) as database:
            self.assertEqual(database.execute("SELECT strValue FROM ClipItem").fetchall(),
                             [("kept",)])
            self.assertEqual(database.execute("PRAGMA integrity_check").fetchone(), ("ok",))
        database.close()
