"""The two shortcuts through every change: exchanged, held by another program, and chosen in the
desktop's own settings."""

import plistlib

import dbus
import dbus.bus
from Xlib import X, display

from journey import BINARY, BUNDLE, Journey, Quillmarsh, contents

# Qt's modifiers, as Plasma writes them.
META, CONTROL, SHIFT = 0x10000000, 0x04000000, 0x02000000
V = 55  # the key's code on every X server of this century


class ShortcutJourney(Journey):
    starts_app = False

    def start(self, **settings):
        path = Quillmarsh.settings.fget(self)
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(plistlib.dumps({"welcomeWindowShown": True, **settings}))
        self.app = Quillmarsh(self.desktop, BINARY)

    def hold_super_shift_v(self):
        """Another program, without a window, that has the combination until it is closed."""
        program = display.Display(self.desktop.environment["DISPLAY"])
        program.screen().root.grab_key(V, X.Mod4Mask | X.ShiftMask, False, X.GrabModeAsync,
                                       X.GrabModeAsync)
        program.sync()
        return program

    def record(self, recorder, *keys):
        """Records in the recorder with that mnemonic."""
        self.open_own("preferences", "Preferences")
        key = {"o": "openShortCut", "w": "swopShortCut"}[recorder]
        before = self.app.setting(key)
        # A window may be in front for a moment before it takes keys.
        self.desktop.repeat(lambda: self.app.key("alt+" + recorder, "space", *keys),
                            lambda: self.app.setting(key) != before, "the recorded shortcut")
        self.app.close("Preferences")

    def opens(self, keys):
        """Presses the keys, and waits for the history and for its end."""
        self.app.open_history(keys)
        self.app.close()

    def test_exchanged_shortcuts_both_work(self):
        self.start()
        self.record("w", "ctrl+alt+k")
        self.record("o", "super+shift+x")
        self.record("w", "super+shift+v")
        editor = self.editor("qt", "selected", "--select")
        self.opens("super+shift+x")
        self.assertEqual(self.app.clips(), [])
        self.opens("super+shift+v")  # a swop, which keeps the selection
        self.app.wait_for_clip("selected")
        self.assertEqual(contents(editor), "selected")

    def test_a_shortcut_of_another_program_is_told_and_works_when_that_program_has_ended(self):
        told = self.notifications()
        other = self.hold_super_shift_v()
        self.start()
        self.app.wait_for_log("Another program holds ⇧⌘V")
        self.wait_for(lambda: "Start Quillmarsh again to open the history" in told(), "the hint")
        other.close()
        self.app.wait_for_log("⇧⌘V works now")
        self.assertEqual(sum("Another program" in line for line in self.app.log), 1)
        self.opens("super+shift+v")

    def test_recording_and_the_settings_of_plasma_set_the_same_shortcuts(self):
        self.start()
        bus = dbus.bus.BusConnection(self.desktop.environment["DBUS_SESSION_BUS_ADDRESS"])
        plasma = dbus.Interface(bus.get_object("org.kde.kglobalaccel", "/kglobalaccel"),
                                "org.kde.KGlobalAccel")
        action = [BUNDLE, "openShortCut", "Quillmarsh", "Show clipboard history"]
        self.record("o", "super+ctrl+k")
        self.opens("super+ctrl+k")
        self.assertEqual(list(plasma.shortcut(action)), [META | CONTROL | ord("K")])

        before = self.app.setting("openShortCut")
        plasma.setForeignShortcut(action, dbus.Array([META | SHIFT | ord("U")], "i"))
        self.wait_for(lambda: self.app.setting("openShortCut") != before, "the choice")
        self.opens("super+shift+u")
        # While it does not run.
        self.assertEqual(self.app.quit(), 0)
        plasma.setForeignShortcut(action, dbus.Array([META | SHIFT | ord("J")], "i"))
        self.app = Quillmarsh(self.desktop, BINARY)
        self.wait_for(lambda: META | SHIFT | ord("J") in plasma.shortcut(action), "the choice")
        self.opens("super+shift+j")
        bus.close()

    test_recording_and_the_settings_of_plasma_set_the_same_shortcuts.sessions = {"kde"}
