"""What goes wrong around the program does not take it or its clips along."""

import os
import pathlib
import sqlite3
import subprocess
import time
import unittest

from journey import BINARY, BUNDLE, Desktop, Journey, Quillmarsh, copy, pasteboard

FATAL = ("Unresolved error ", "YOUR_ERROR_DOMAIN", "9999",
         "Failed to initialize the application's saved data")


class StoreTrouble(Journey):
    starts_app = False

    def store(self):
        folder = pathlib.Path(self.desktop.environment["XDG_DATA_HOME"], BUNDLE)
        folder.mkdir(parents=True, mode=0o700)
        return folder / "Quillmarsh.sqlite"

    def assert_fatal(self, store):
        before = store.read_bytes()
        ended = subprocess.run([BINARY], env=self.desktop.environment, capture_output=True,
                               text=True, timeout=20, check=False)
        self.assertLess(ended.returncode, 0, "aborted")
        for text in FATAL:
            self.assertIn(text, ended.stderr)
        self.assertEqual(store.read_bytes(), before)

    def test_garbage_in_the_stores_place_is_fatal_and_left_alone(self):
        store = self.store()
        store.write_bytes(b"this is no database, " * 100)
        self.assert_fatal(store)

    def test_a_store_from_the_future_is_fatal_and_left_alone(self):
        store = self.store()
        with sqlite3.connect(store) as database:
            database.execute("CREATE TABLE ClipItem (pk INTEGER PRIMARY KEY, strValue TEXT)")
            database.execute("PRAGMA user_version = 2147483647")
        database.close()
        self.assert_fatal(store)

    def test_a_malformed_settings_file_is_set_aside_and_nothing_is_recorded_before_the_answer(self):
        settings = pathlib.Path(self.desktop.environment["XDG_CONFIG_HOME"], BUNDLE + ".plist")
        settings.parent.mkdir(parents=True)
        settings.write_bytes(b"<plist><dict><key>maxItems</key><integer>")
        self.app = Quillmarsh(self.desktop, BINARY)
        copy(self.desktop, "a secret of an ignored application")
        aside = settings.with_name(settings.name + ".damaged-1")
        self.assertTrue(aside.exists())
        question = self.app.window("Damaged Settings")
        self.desktop.run(["xdotool", "windowactivate", question])
        self.app.wait_until_active(question)
        self.app.key("alt+F4")
        self.app.wait_until_hidden("Damaged Settings")
        self.app.open_history()
        question = self.app.window("Damaged Settings")
        self.desktop.run(["xdotool", "windowactivate", question])
        self.app.wait_until_active(question)
        self.app.key("Return")  # the question's default button: start with fresh settings
        self.wait_for(settings.exists, "fresh settings")
        self.copy("after the answer")
        self.assertEqual(self.app.clips(), ["after the answer"])

    def test_the_question_about_damaged_settings_leaves_the_keyboard_where_it_is(self):
        settings = pathlib.Path(self.desktop.environment["XDG_CONFIG_HOME"], BUNDLE + ".plist")
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
        self.app.key("Escape")
        self.app.wait_until_hidden()
        self.copy(f"copied at {time.monotonic()}")
        return self.app.clips("strValue, applicationName")[0][1]


class HungOwners(Journey):
    def windows(self):
        """Our windows that can be seen, menus too."""
        return self.desktop.run(["xdotool", "search", "--onlyvisible", "--class", "quillmarsh"],
                                capture_output=True, text=True).stdout.split()

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

    def main_job(self):
        self.app = Quillmarsh(self.desktop, BINARY)
        copy(self.desktop, "works all the same")
        self.app.wait_for_clip("works all the same")
        self.app.key("super+shift+v")
        self.app.window()

    def on(self, **options):
        self.desktop.close()
        self.desktop = Desktop(**options)
        self.desktop.__enter__()
        self.addCleanup(self.desktop.close)

    def test_without_a_bus(self):
        self.on(bus=False)
        self.main_job()
        second = self.desktop.run([BINARY], capture_output=True)
        self.assertEqual(second.returncode, 0)

    def test_without_a_window_manager(self):
        self.on(wm="none")
        self.main_job()
        self.app.key("Escape")
        self.app.wait_until_hidden()

    def test_without_a_display(self):
        variables = dict(self.desktop.environment)
        del variables["DISPLAY"]
        ended = subprocess.run([BINARY], env=variables, capture_output=True, text=True, timeout=10,
                               check=False)
        self.assertEqual(ended.returncode, 1)
        self.assertIn("DISPLAY", ended.stderr)

    def test_a_shortcut_that_another_program_holds_leaves_the_rest_working(self):
        holder = self.desktop.start(
            ["/usr/bin/python3", "-c",
             "from Xlib import X, display; d = display.Display();"
             "d.screen().root.grab_key(55, X.Mod4Mask | X.ShiftMask, 1, X.GrabModeAsync,"
             " X.GrabModeAsync); d.sync(); print('held', flush=True); d.next_event()"],
            stdout=subprocess.PIPE, text=True)
        holder.stdout.readline()
        self.app = Quillmarsh(self.desktop, BINARY)
        self.copy("still recorded")
        self.editor("gtk")
        self.app.key("super+shift+x")
        self.app.window()

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

    def test_a_kill_in_a_burst_leaves_an_intact_store(self):
        self.app = Quillmarsh(self.desktop, BINARY)
        owner = self.owner("burst", 100, 5, wait=False)
        self.wait_for(lambda: len(self.app.clips()) > 20, "some of the burst")
        self.app.process.kill()
        self.app.process.wait()
        with sqlite3.connect(self.app.store) as database:
            self.assertEqual(database.execute("PRAGMA integrity_check").fetchone(), ("ok",))
        database.close()
        self.assertEqual(os.stat(self.app.store).st_mode & 0o777, 0o600)
        # The rest of the burst would wait a second for each copy that nobody fetches.
        owner.kill()
        owner.wait()
        self.app = Quillmarsh(self.desktop, BINARY)
        self.copy("after the kill")
        self.assertIsNotNone(pasteboard(self.desktop))


if __name__ == "__main__":
    unittest.main()
