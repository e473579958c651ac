"""What is set in the preferences window counts at once, and still after a restart."""

import os
import pathlib
import plistlib
import shutil
import subprocess
import unittest

import dbus

from journey import BINARY, BUNDLE, QT_EDITOR, Journey, Quillmarsh, copy


class PreferencesJourney(Journey):
    starts_app = False

    def setUp(self):
        super().setUp()
        folder = pathlib.Path(self.desktop.environment["XDG_DATA_HOME"], "applications")
        folder.mkdir(parents=True)
        (folder / "reed.desktop").write_text(
            "[Desktop Entry]\nType=Application\nName=Reed.Editor\nStartupWMClass=qt_editor\n"
            f"Exec={QT_EDITOR}\n", encoding="utf-8")
        self.app = Quillmarsh(self.desktop, BINARY)

    def setting(self, key):
        path = pathlib.Path(self.desktop.environment["XDG_CONFIG_HOME"], BUNDLE + ".plist")
        return plistlib.loads(path.read_bytes()).get(key)

    def open_preferences(self):
        bus = dbus.bus.BusConnection(self.desktop.environment["DBUS_SESSION_BUS_ADDRESS"])
        door = bus.get_object(BUNDLE, "/" + BUNDLE.replace(".", "/"))
        door.ActivateAction("preferences", dbus.Array([], "v"), dbus.Dictionary({}, "sv"),
                            dbus_interface="org.freedesktop.Application")
        bus.close()
        window = self.app.window("Preferences")
        self.app.wait_until_active(window)
        return window

    def size(self, window):
        told = self.desktop.run(["xdotool", "getwindowgeometry", "--shell", window],
                                capture_output=True, text=True).stdout
        fields = dict(line.split("=") for line in told.split())
        return int(fields["WIDTH"]), int(fields["HEIGHT"])

    def click(self, window, x, y):
        self.desktop.run(["xdotool", "mousemove", "--sync", "--window", window, str(x), str(y),
                          "click", "1"])

    def open_applications(self):
        window = self.open_preferences()
        before = self.size(window)
        self.click(window, before[0] // 2 + 50, 20)
        self.wait_for(lambda: self.size(window)[0] == 480, "the Applications pane")
        return window

    def copy_in_editor(self, text):
        self.editor("qt", text, "--select")
        self.app.key("ctrl+c")

    def test_a_smaller_history_costs_clips_only_when_its_window_closes(self):
        for text in ("first", "second", "third"):
            self.copy(text)
        self.open_preferences()
        self.app.key("alt+h", "Home")
        self.wait_for(lambda: self.setting("maxItems") == 1, "the stored size")
        self.assertEqual(self.app.clips(), ["third", "second", "first"])
        self.app.key("super+w")
        self.app.wait_until_hidden("Preferences")
        self.wait_for(lambda: self.app.clips() == ["third"], "the smaller history")

    def test_a_longer_text_than_the_size_typed_is_not_recorded(self):
        self.open_preferences()
        self.app.key("alt+t", "ctrl+a")
        self.app.type("5x")
        self.wait_for(lambda: self.setting("maxStringSize") == 5, "the stored size")
        self.app.key("Escape")
        self.app.wait_until_hidden("Preferences")
        copy(self.desktop, "sedges")
        self.copy("reeds")
        self.assertEqual(self.app.clips(), ["reeds"])

    def test_a_recorded_shortcut_opens_the_history_at_once_and_after_a_restart(self):
        self.open_preferences()
        self.app.key("alt+o", "space", "ctrl+alt+k", "Escape")
        self.app.wait_until_hidden("Preferences")
        self.app.key("ctrl+alt+k")
        self.app.wait_until_active(self.app.window())
        self.assertEqual(self.app.quit(), 0)
        self.app = Quillmarsh(self.desktop, BINARY)
        self.app.key("ctrl+alt+k")
        self.app.wait_until_active(self.app.window())

    def record(self, *keys):
        """Records in the open shortcut's recorder."""
        self.app.key("alt+o", "space", *keys)

    def test_a_combination_of_the_desktop_or_of_copying_is_refused_and_recording_goes_on(self):
        self.assertEqual(self.app.quit(), 0)
        shortcuts = pathlib.Path(self.desktop.environment["XDG_CONFIG_HOME"], "kglobalshortcutsrc")
        shortcuts.write_text("[kwin]\nOverview=Ctrl+Alt+J,none,Toggle Overview\n")
        self.app = Quillmarsh(self.desktop, BINARY, {"XDG_CURRENT_DESKTOP": "KDE"})
        before = self.setting("openShortCut")
        self.open_preferences()
        self.record("a")  # a letter alone only beeps
        for taken in ("ctrl+alt+j", "ctrl+c"):
            self.app.key(taken)
            alert = self.app.window("Shortcut")
            self.app.wait_until_active(alert)
            self.app.key("Return")
            self.app.wait_until_hidden("Shortcut")
            self.assertEqual(self.setting("openShortCut"), before)
            self.app.wait_until_active(self.app.window("Preferences"))
        self.app.key("ctrl+alt+m")
        self.wait_for(lambda: self.setting("openShortCut") != before, "the next combination")

    def test_a_recorder_is_cancelled_cleared_and_gives_way_to_the_other(self):
        before = self.setting("openShortCut"), self.setting("swopShortCut")
        window = self.open_preferences()
        self.record("Escape")
        self.app.wait_until_active(window)
        self.assertEqual((self.setting("openShortCut"), self.setting("swopShortCut")), before)
        self.record()
        self.click(window, 190, 373)  # the swop recorder, below
        self.app.key("ctrl+alt+m")
        self.wait_for(lambda: self.setting("swopShortCut") != before[1], "the recorded shortcut")
        self.assertEqual(self.setting("openShortCut"), before[0])
        self.record("BackSpace")
        self.wait_for(lambda: self.setting("openShortCut") != before[0], "no shortcut")
        self.app.key("Escape")
        self.app.wait_until_hidden("Preferences")
        self.app.key("super+shift+v")
        self.copy("in between")
        self.assertIsNone(self.app.window(wait=False))

    def test_super_w_and_super_q_go_through_a_recording(self):
        self.open_preferences()
        self.record("super+w")
        self.app.wait_until_hidden("Preferences")
        self.open_preferences()
        self.record("super+q")
        self.assertEqual(self.app.process.wait(10), 0)
        self.app.wait_for_log("Exit")

    def test_unticked_notifications_are_silent_now_and_back_after_a_restart(self):
        told = self.notifications()

        def warnings():
            return told().count("The text is too large.")

        copy(self.desktop, "a" * 10001)
        self.wait_for(lambda: warnings() == 1, "the first warning")
        # With the mouse: a box that its mnemonic presses stays pressed for a moment, and an Escape
        # meanwhile takes that back.
        self.click(self.open_preferences(), 121, 108)
        self.app.key("Escape")
        self.app.wait_until_hidden("Preferences")
        copy(self.desktop, "b" * 10001)
        self.copy("recorded after the large one")
        self.assertEqual(warnings(), 1)
        self.assertEqual(self.app.quit(), 0)
        self.app = Quillmarsh(self.desktop, BINARY)
        copy(self.desktop, "c" * 10001)
        self.wait_for(lambda: warnings() == 2, "a warning after the restart")

    def test_an_application_in_the_list_is_not_recorded_until_it_is_taken_out(self):
        window = self.open_applications()
        for keys in (["super+w"], ["r", "e", "e", "d", "Return"]):
            self.click(window, 38, self.size(window)[1] - 34)
            self.app.wait_until_active(self.app.window("Choose Application"))
            self.app.key(*keys)
            self.app.wait_until_hidden("Choose Application")
        self.wait_for(lambda: self.setting("applicationsToIgnore"), "the stored list")
        self.app.key("Escape")
        self.app.wait_until_hidden("Preferences")
        self.copy_in_editor("private")
        self.app.wait_for_log("ignoring copy from Reed.Editor")
        self.assertEqual(self.app.clips(), [])

        window = self.open_applications()
        self.click(window, 60, 95)
        before = self.setting("applicationsToIgnore")
        self.app.key("Delete")
        self.wait_for(lambda: self.setting("applicationsToIgnore") != before, "the empty list")
        self.app.key("Escape")
        self.app.wait_until_hidden("Preferences")
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

        def active():
            return self.desktop.run(["xdotool", "getactivewindow"], capture_output=True,
                                    text=True).stdout.strip()

        pad_window = active()
        window = self.open_applications()
        self.click(window, 38, self.size(window)[1] - 34)
        chooser = self.app.window("Choose Application")
        self.app.wait_until_active(chooser)
        self.app.key("alt+o")
        def files():
            return next((one for one in [active()] if one not in ("", window, chooser)), None)

        self.app.wait_until_active(self.desktop.wait_for(files, "the files"))
        self.app.type(link)
        self.app.key("Return")
        self.app.wait_until_hidden("Choose Application")
        self.wait_for(lambda: self.setting("applicationsToIgnore"), "the stored list")
        self.app.wait_until_active(window)
        self.app.key("Escape")
        self.app.wait_until_hidden("Preferences")
        self.desktop.run(["xdotool", "windowactivate", "--sync", pad_window])
        self.app.wait_until_active(pad_window)
        self.app.key("ctrl+c")
        self.app.wait_for_log("ignoring copy from Marsh")
        self.assertEqual(self.app.clips(), [])

    def test_an_ignore_list_that_cannot_be_read_stops_the_start_and_stays(self):
        self.assertEqual(self.app.quit(), 0)
        path = pathlib.Path(self.desktop.environment["XDG_CONFIG_HOME"], BUNDLE + ".plist")
        settings = plistlib.loads(path.read_bytes())
        settings["applicationsToIgnore"] = b"no archive"
        path.write_bytes(plistlib.dumps(settings))
        stored = path.read_bytes()
        app = Quillmarsh(self.desktop, BINARY, wait=False)
        self.assertNotEqual(app.process.wait(10), 0)
        self.wait_for(lambda: any("applicationsToIgnore" in line and str(path) in line
                                  for line in app.log), "the line that names key and file")
        self.assertEqual(path.read_bytes(), stored)


if __name__ == "__main__":
    unittest.main()
