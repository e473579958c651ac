"""What the journeys share: a fresh desktop and a running Quillmarsh for each test, and the
applications around it. On a failure the screen is kept beside the test's log, or in PICTURES.

QUILLMARSH_SESSION names the desktop: x11, or a Wayland session of support/session.py, where only
those journeys are made that are marked for it."""

import contextlib
import os
import pathlib
import sys
import unittest

import dbus.bus

SUPPORT = pathlib.Path(__file__).resolve().parent.parent / "support"
sys.path.insert(0, str(SUPPORT))
from desktop import Desktop  # noqa: E402
from held_keys import HeldKeys  # noqa: E402, F401
from quillmarsh import BUNDLE, Quillmarsh, contents, copy, pasteboard  # noqa: E402, F401
import gnome  # noqa: E402, F401
from session import HAS_LAYERS, KINDS, become_ordinary, session  # noqa: E402, F401

BINARY = os.path.abspath(os.environ.get("QUILLMARSH_BINARY", "build/dev/bin/quillmarsh"))
QT_EDITOR = os.path.abspath(os.environ.get("QT_EDITOR", "build/dev/tests/desktop/qt_editor"))
PICTURES = os.environ.get("PICTURES", "")
SESSION = os.environ.get("QUILLMARSH_SESSION", "x11")
# Where compositors have protocols of their own for what a journey does.
WITH_PROTOCOLS = ("sway", "labwc", "kde")


def made_in(*kinds):
    """Marks a journey for these Wayland sessions, all of them by default, beside X11."""
    def mark(test):
        test.sessions = {*kinds} if kinds == ("gnome",) else {"x11", *(kinds or WITH_PROTOCOLS)}
        return test

    return mark


class Journey(unittest.TestCase):
    """`self.desktop` and `self.app`; a class that wants to start the program itself sets
    `starts_app` to False, and one for a user who has never seen the welcome `welcomed`."""

    starts_app = True
    welcomed = True
    desktop_options = {}

    def setUp(self):
        self._problems_before = self._problems()
        self.enter(**self.desktop_options)
        self.addCleanup(self._keep_screen)
        if self.starts_app:
            self.app = Quillmarsh(self.desktop, BINARY, welcomed=self.welcomed)

    def enter(self, **options):
        """Goes to a desktop of that kind, from the one before it."""
        if hasattr(self, "desktop"):
            self.desktop.close()
        self.desktop = (Desktop(**options) if SESSION == "x11" else
                        session(SESSION, quillmarsh=BINARY, **options))
        self.addCleanup(self.desktop.close)
        if os.environ.get("KEEP_PICTURES"):
            self.desktop.kept = os.path.join(PICTURES, f"{SESSION}-{self._testMethodName}")
        self.desktop.__enter__()

    def _problems(self):
        return len(self._outcome.result.errors) + len(self._outcome.result.failures)

    def _keep_screen(self):
        if self._problems() > self._problems_before:
            with contextlib.suppress(unittest.SkipTest):
                self.desktop.picture(os.path.join(PICTURES, f"{SESSION}-{self.id()}.png"))
            for line in getattr(self, "app", None) and self.app.log or []:
                print("  quillmarsh:", line)

    def file(self, name):
        return os.path.join(self.desktop.home, name)

    def wait_for(self, condition, what, seconds=10):
        return self.desktop.wait_for(condition, what, seconds)

    def copy(self, text, target=None):
        """Copies as another program, and waits until it is recorded."""
        copy(self.desktop, text, target)
        self.app.wait_for_clip(text)

    def owner(self, *arguments, wait=True):
        """Starts a clipboard owner that behaves as the arguments tell; support/owner.py has them."""
        return self.desktop.start_owner(*arguments, is_ready=wait)

    def editor(self, kind, *arguments):
        """A text window of our own ("gtk" or "qt") with the keyboard; returns the path of the
        file that holds its text."""
        path = self.file(f"{kind}.txt")
        process = (self.desktop.helper("gtk_editor.py", path, *arguments) if kind == "gtk" else
                   self.desktop.start([QT_EDITOR, path, *arguments], quiet=True))
        # The window manager gives the keyboard first and says so afterwards.
        self.wait_for(lambda: self.desktop.is_in_front(process, "editor" if kind == "gtk" else
                                                       "qt_editor"), f"the {kind} editor in front")
        return path

    def open_own(self, word, name):
        """Has the running program open the window that a word on the command line is for."""
        self.assertEqual(self.desktop.run([BINARY, word]).returncode, 0)
        window = self.app.window(name)
        self.app.wait_until_active(window)
        return window

    def notifications(self):
        """Starts a notification server; the answer tells all that it has been sent."""
        told = self.file("bus.txt")
        with open(told, "wb") as log:
            self.desktop.start(["dbus-monitor", "--session",
                                "interface='org.freedesktop.Notifications',member='Notify'"],
                               stdout=log)
        self.desktop.start(["dunst"], quiet=True)
        self.wait_for(lambda: dbus.bus.BusConnection(
            self.desktop.environment["DBUS_SESSION_BUS_ADDRESS"]).name_has_owner(
                "org.freedesktop.Notifications"), "a notification server")
        return lambda: pathlib.Path(told).read_text(encoding="utf-8", errors="replace")

    def terminal(self):
        """A terminal running cat into a file, with the keyboard; returns that file's path."""
        path = self.file("terminal.txt")
        program = "xterm" if SESSION == "x11" else "foot"
        process = self.desktop.start([program, "-e", "sh", "-c", f"cat > {path}"], quiet=True)
        self.wait_for(lambda: self.desktop.is_in_front(process, program) and os.path.exists(path),
                      f"{program} in front")
        return path

    def wait_for_text(self, path, text):
        try:
            self.wait_for(lambda: contents(path) == text, f"{text!r} in {path}")
        except TimeoutError as problem:
            raise AssertionError(f"{problem}; it holds {contents(path)!r}") from None

    def paste_with(self, *keys, filter_text=None):
        """Opens the history, narrows it, and presses keys."""
        self.app.open_history()
        if filter_text:
            self.app.type(filter_text)
        self.app.key(*keys)
        self.app.wait_until_hidden()


def made_here(suite):
    """The tests of a suite that are for this session."""
    for test in suite:
        if isinstance(test, unittest.TestSuite):
            yield from made_here(test)
        elif SESSION in getattr(getattr(test, test._testMethodName), "sessions", {"x11"}):
            yield test


def main(names):
    """`names` tell journeys: journey.py test_copy test_paste.PasteJourney"""
    if SESSION != "x11":
        become_ordinary(*([PICTURES] if PICTURES else []))
    tests = unittest.TestSuite(made_here(unittest.defaultTestLoader.loadTestsFromNames(names)))
    result = unittest.TextTestRunner(verbosity=2).run(tests)
    return 0 if result.wasSuccessful() and result.testsRun else 1


if __name__ == "__main__":
    sys.exit(main([name for name in sys.argv[1:] if not name.startswith("-")]))
