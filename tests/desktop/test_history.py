"""The history window: finding, choosing, deleting, and where it opens."""

import pathlib

from Xlib import display, error
from Xlib.ext import shape  # noqa: F401, adds its requests to windows

from journey import BINARY, HAS_LAYERS, Journey, Quillmarsh, made_in


class HistoryJourney(Journey):
    @made_in()
    def test_a_click_elsewhere_closes_it_and_a_double_click_pastes(self):
        self.copy("second row")
        self.copy("first row")
        path = self.editor("gtk")
        self.desktop.move(self.desktop.active(), 10, 30)
        self.app.open_history()
        # The compositor gives it the keyboard a little before the program knows of that.
        self.desktop.repeat(lambda: self.desktop.click_at(40, 80),
                            lambda: not self.app.window(wait=False), "its end")
        window = self.app.open_history()
        # The window's shadow is a part of it where something draws it.
        shadow = (self.desktop.place(window)[2] - 780) // 2
        self.desktop.click(window, shadow + 120, shadow + 98, count=2)
        self.app.wait_until_hidden()
        self.wait_for_text(path, "second row")

    # In a layer the history keeps the keyboard that a window which opens would be given.
    @made_in(*(["kde"] if HAS_LAYERS else []))
    def test_another_application_taking_the_keyboard_closes_it(self):
        self.copy("x")
        self.app.open_history()
        self.editor("qt")
        self.app.wait_until_hidden()

    @made_in()
    def test_the_history_outlives_a_quit_and_a_kill(self):
        self.copy("before quitting")
        self.assertEqual(self.app.quit(), 0)
        self.assertIn("Exit", "\n".join(self.app.log))
        self.app = Quillmarsh(self.desktop, self.app.binary)
        self.copy("before the kill")
        self.app.process.kill()
        self.app.process.wait()
        self.app = Quillmarsh(self.desktop, self.app.binary)
        self.assertEqual(self.app.clips(), ["before the kill", "before quitting"])

    def test_a_deletion_is_taken_back_with_its_pin_and_is_in_no_file_meanwhile(self):
        self.copy("kept")
        self.copy("needle")
        self.app.open_history()
        self.app.key("ctrl+d", "super+BackSpace")
        self.desktop.wait_for(lambda: self.app.clips() == ["kept"], "the deletion")
        files = [path for path in pathlib.Path(self.desktop.home).rglob("*") if path.is_file()]
        self.assertIn(self.app.store, files)
        # Who reads the store at that moment, as this test does, keeps its log from being emptied.
        self.desktop.wait_for(lambda: not any(b"needle" in path.read_bytes() for path in files
                                              if path.exists()), "the files to be without it")
        self.app.key("ctrl+z")
        self.desktop.wait_for(lambda: self.app.clips() == ["needle", "kept"], "the clip again")
        self.assertEqual(self.app.clips("strValue, pk IN (SELECT clip FROM ClipPin)"),
                         [("needle", 1), ("kept", 0)])

    def test_the_window_belongs_to_the_desktop_entry_and_not_to_the_taskbar(self):
        told = self.desktop.ask("xprop", "-id", self.app.open_history(), "WM_CLASS", "_NET_WM_STATE")
        self.assertIn('"quillmarsh", "Quillmarsh"', told)
        self.assertIn("_NET_WM_STATE_SKIP_TASKBAR, _NET_WM_STATE_SKIP_PAGER", told)


class TwoMonitors(Journey):
    desktop_options = {"screen": "1600x900"}
    starts_app = False

    def test_it_opens_on_the_monitor_under_the_pointer_one_third_from_the_top(self):
        self.assert_places("1")

    def test_it_does_so_on_monitors_of_different_scale(self):
        self.assert_places("2")

    def assert_places(self, scale_of_right):
        for name, geometry in (("left", "800/300x900/300+0+0"), ("right", "800/300x900/300+800+0")):
            self.desktop.run(["xrandr", "--setmonitor", name, geometry,
                              "screen" if name == "left" else "none"])
        self.app = Quillmarsh(self.desktop, BINARY, {
            "QT_SCREEN_SCALE_FACTORS": f"left=1;right={scale_of_right}"})
        for pointer, left in ((300, 0), (1300, 800), (300, 0)):
            with self.subTest(pointer=pointer):
                self.desktop.run(["xdotool", "mousemove", str(pointer), "450"])
                window = self.app.open_history()
                x, y, width, height = self.desktop.place(window)
                self.assertEqual(x, left + (800 - width) // 2)
                self.assertAlmostEqual(y, (900 - height) / 3, delta=1)
                self.app.close()


class Looks(Journey):
    starts_app = False

    def colors_of(self, window):
        told = self.desktop.ask("convert", "x:" + window, "-depth", "8", "-unique-colors", "txt:-")
        return {pixel.split()[2] for pixel in told.splitlines()[1:]}

    def test_the_open_window_follows_the_desktops_scheme_and_accent(self):
        portal = self.desktop.helper("portal.py")
        print("scheme 1", file=portal.stdin, flush=True)
        self.app = Quillmarsh(self.desktop, BINARY)
        self.copy("x")
        window = self.app.open_history()
        rows = [("scheme 1", {"#1E1F22", "#2A6FCF"}), ("scheme 2", {"#FFFFFF", "#0069D8"}),
                ("accent 0.5 0 0.6", {"#FFFFFF", "#800099"}), ("scheme 1", {"#1E1F22", "#800099"}),
                ("accent -1 -1 -1", {"#1E1F22", "#2A6FCF"}), ("scheme 0", {"#FFFFFF", "#0069D8"})]
        for order, colors in rows:
            with self.subTest(order):
                print(order, file=portal.stdin, flush=True)
                self.wait_for(lambda: colors <= self.colors_of(window), f"the colours {colors}")


class CompositorJourney(Journey):
    """With a compositor the window has a shadow of its own, without one it is cut to its frame, and
    so is what the window manager puts around it."""

    def switch_compositor(self, is_on):
        if is_on:
            self.compositor = self.desktop.start(
                ["picom", "--backend", "xrender", "--config", "/dev/null"], quiet=True)
        else:
            self.compositor.terminate()
            self.compositor.wait(10)

    def sizes(self, window):
        """Of our window and of all that lies around it: the whole and what can be seen of it."""
        server = display.Display(self.desktop.environment["DISPLAY"])
        try:
            shown = server.create_resource_object("window", int(window))
            told = set()
            while shown != server.screen().root:
                whole, seen = shown.get_geometry(), shown.shape_query_extents()
                told |= {(whole.width, whole.height), (seen.bounding_shape_extents_width,
                                                       seen.bounding_shape_extents_height)}
                shown = shown.query_tree().parent
            return told
        except error.BadWindow:
            return set()
        finally:
            server.close()

    def test_the_window_has_the_shape_for_the_compositor_whenever_that_comes_or_goes(self):
        self.copy("x")
        with_shadow = {(832, 538)}
        without = {(780, 486)}
        window = self.app.open_history()
        self.wait_for(lambda: self.sizes(window) == without, f"the size {without}")
        for is_on, is_shown in ((True, True), (False, True), (True, False), (False, False),
                                (True, False), (False, True)):
            if not is_shown:
                self.app.close()
            self.switch_compositor(is_on)
            self.wait_for(lambda: self.is_composited() == is_on, "the switched compositor")
            window = self.app.window() if is_shown else self.app.open_history()
            expected = with_shadow if is_on else without
            with self.subTest(is_on=is_on, is_shown=is_shown):
                self.wait_for(lambda: self.sizes(window) == expected, f"the size {expected}", 3)

    def is_composited(self):
        server = display.Display(self.desktop.environment["DISPLAY"])
        try:
            return bool(server.get_selection_owner(server.intern_atom("_NET_WM_CM_S0")))
        finally:
            server.close()


class Xfwm4CompositorJourney(CompositorJourney):
    desktop_options = {"wm": "xfwm4"}

    def setUp(self):
        super().setUp()
        self.switch_compositor(False)
        self.wait_for(lambda: not self.is_composited(), "the compositor's end")

    def switch_compositor(self, is_on):
        self.desktop.run(["xfconf-query", "-c", "xfwm4", "-p", "/general/use_compositing", "-n",
                          "-t", "bool", "-s", str(is_on).lower()])
