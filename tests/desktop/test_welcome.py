"""The first minutes of a user: the welcome, the tour, and the entry that starts Quillmarsh at login."""

import json
import pathlib

from journey import BINARY, BUNDLE, Journey, Quillmarsh, copy

WELCOME = "Welcome to Quillmarsh"
MESSAGE = "Quillmarsh setup complete"


class WelcomeJourney(Journey):
    welcomed = False

    def show_welcome(self):
        return self.app.open_history(name=WELCOME)

    def to_the_last_page(self):
        self.app.key("Right", "Right", "Right")
        self.wait_for(lambda: self.app.setting("welcomeWindowShown"), "the last page")

    @property
    def autostart(self):
        return pathlib.Path(self.desktop.environment["XDG_CONFIG_HOME"], "autostart",
                            BUNDLE + ".desktop")


class FirstPress(WelcomeJourney):
    def test_copies_are_recorded_while_the_welcome_shows_and_the_second_press_opens_the_history(self):
        path = self.editor("gtk")
        self.show_welcome()
        self.assertIsNone(self.app.window(wait=False))
        self.copy("recorded meanwhile")
        self.to_the_last_page()
        self.app.wait_for_clip(MESSAGE)
        self.app.open_history()
        self.app.wait_until_hidden(WELCOME)
        self.app.key("Down", "Return")
        self.wait_for_text(path, "recorded meanwhile")
        self.assertEqual(self.app.clips(), [MESSAGE, "recorded meanwhile"])

    def test_pressed_again_meanwhile_the_shortcut_brings_the_welcome_back_to_the_front(self):
        window = self.show_welcome()
        self.editor("gtk")
        self.app.key("super+shift+v")
        self.app.wait_until_active(window)
        self.app.key("super+shift+x")
        self.desktop.run([BINARY])
        self.app.close(WELCOME)
        # One press, one session: nothing is left to come back.
        self.copy("over")
        self.assertIsNone(self.app.window(WELCOME, wait=False))
        self.assertIsNone(self.app.window(wait=False))


class Ends(WelcomeJourney):
    def test_a_quit_and_a_signal_during_it_are_clean(self):
        for end in ("key", "signal"):
            with self.subTest(end):
                self.show_welcome()
                self.copy(f"kept through {end}")
                if end == "key":
                    self.app.key("super+q")
                    code = self.app.process.wait(10)
                else:
                    code = self.app.quit()
                self.assertEqual(code, 0)
                self.wait_for(lambda: "Exit" in "\n".join(self.app.log), "the last line")
                self.assertEqual(self.app.clips()[0], f"kept through {end}")
                self.app = Quillmarsh(self.desktop, BINARY, welcomed=False)


class Login(WelcomeJourney):
    def test_the_entry_starts_it_without_a_window(self):
        self.show_welcome()
        self.to_the_last_page()
        self.assertEqual(self.app.quit(), 0)
        entry = self.autostart.read_text()
        command = [line for line in entry.splitlines() if line.startswith("Exec=")][0][5:]
        self.app = Quillmarsh(self.desktop, command)
        copy(self.desktop, "after login")
        self.app.wait_for_clip("after login")
        self.assertIsNone(self.app.window(wait=False))
        self.assertIsNone(self.app.window(WELCOME, wait=False))

class Tour(WelcomeJourney):
    def test_the_tour_is_offered_at_the_end_and_leaves_the_history_usable(self):
        path = self.editor("gtk")
        self.show_welcome()
        self.to_the_last_page()
        self.app.wait_for_clip(MESSAGE)
        self.app.key("shift+Tab", "Return")
        self.app.wait_until_hidden(WELCOME)
        self.app.wait_until_active(self.app.window())
        self.app.key("Return", "Right", "Return", "Return")  # Four popovers, then none.
        self.app.type("setup")
        self.app.key("Return")
        self.wait_for_text(path, MESSAGE)


class MovingIn(WelcomeJourney):
    starts_app = False

    def height(self, window):
        told = self.desktop.run(["xdotool", "getwindowgeometry", "--shell", str(window)],
                                capture_output=True, text=True).stdout
        return int(told.split("HEIGHT=")[1].split()[0])

    def test_who_comes_from_another_program_may_take_its_clips_along(self):
        old = [f"old {i}" for i in range(60)]
        plain = None
        for name, kept, keys, taken in (("nothing to take", [], [], []), ("declined", old, [], []),
                                        ("taken", old, ["alt+b"], old)):
            with self.subTest(name):
                self.enter()
                path = pathlib.Path(self.desktop.environment["XDG_DATA_HOME"], "clipman.json")
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(json.dumps(kept))
                self.app = Quillmarsh(self.desktop, BINARY, welcomed=False)
                window = self.show_welcome()
                plain = plain or self.height(window)
                if kept:
                    # The line for it makes the page taller.
                    self.wait_for(lambda: self.height(window) > plain, "the offer")
                self.assertEqual(self.app.clips(), [])
                if keys:
                    self.app.key(*keys)
                self.to_the_last_page()
                self.app.wait_for_clip(MESSAGE)
                self.wait_for(lambda: set(self.app.clips()) == {MESSAGE, *taken}, "the clips")
