"""One application beside Quillmarsh on a desktop of its own, and what a person does there."""

import os
import pathlib
import signal
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "support"))
from desktop import Desktop  # noqa: E402
from quillmarsh import Quillmarsh, copy, pasteboard  # noqa: E402

BINARY = os.environ.get("QUILLMARSH_BINARY", "/usr/bin/quillmarsh")
# Office suites take their time to start.
START = 90
SOON = 15


class Trial:
    """`with Trial(application) as desk`: Quillmarsh runs, unless the application is to be tried
    without it, and the application does not yet."""

    def __init__(self, application, with_history=True):
        self.application = application
        self.with_history = with_history
        self.app = None
        self.desktop = Desktop(screen="1400x1000")
        self.process = None

    def __enter__(self):
        self.desktop.__enter__()
        try:
            environment = self.desktop.environment
            # What desktops start for their applications.
            environment.pop("NO_AT_BRIDGE", None)
            environment.update(XDG_CURRENT_DESKTOP="XFCE", GTK_A11Y="none", LANG="C.UTF-8",
                               LIBGL_ALWAYS_SOFTWARE="1", SHELL="/bin/sh", MOZ_DISABLE_CONTENT_SANDBOX="1")
            self.desktop.start(["dunst"], quiet=True)
            for beside in self.application.beside:
                self.desktop.start(beside, quiet=True)
            if self.with_history:
                self.app = Quillmarsh(self.desktop, BINARY)
        except BaseException:
            self.desktop.close()
            raise
        return self

    def __exit__(self, *_):
        self.desktop.close()

    # The screen

    def tell(self, *command):
        return self.desktop.ask(*command)

    def picture(self, name):
        path = pathlib.Path("pictures", f"{name}.png").absolute()
        path.parent.mkdir(exist_ok=True)
        self.tell("import", "-window", "root", str(path))

    def active(self):
        """Id and class of the window in front."""
        window = self.desktop.active()
        return window, self.tell("xprop", "-id", window, "WM_CLASS") if window else ""

    def title(self):
        """Of the window in front."""
        return self.tell("xdotool", "getactivewindow", "getwindowname")

    def wait_for(self, condition, what, seconds=SOON):
        return self.desktop.wait_for(condition, what, seconds)

    def wait_until_in_front(self, window_class, seconds=START):
        self.wait_for(lambda: window_class.lower() in self.active()[1].lower(),
                      f"{window_class} in front", seconds)

    def click(self, x, y, *more):
        """In the window in front, in pixels from its corner."""
        self.desktop.click(self.desktop.active(), x, y, *more)

    # The application

    def start(self, text=""):
        """Opens the application on a document of that text, and waits until it has the keyboard."""
        self.process = self.application.start(self, text)
        try:
            self.wait_until_in_front(self.application.window_class)
        except TimeoutError:
            # PCManFM-Qt shows no window once in a dozen starts, with us or without.
            print(f"{self.application.name} is started again", flush=True)
            self.end()
            self.process = self.application.start(self, text)
            self.wait_until_in_front(self.application.window_class)
        self.application.settle(self)

    def end(self):
        """Closes the application as the end of a session does."""
        self.process.send_signal(signal.SIGTERM)
        try:
            self.process.wait(SOON)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.wait()

    def file(self, name, content=""):
        path = pathlib.Path(self.desktop.home, name)
        path.parent.mkdir(parents=True, exist_ok=True)
        if content is not None:
            path.write_text(content, encoding="utf-8")
        return str(path)

    # What a person does

    def key(self, *keys):
        self.tell("xdotool", "key", "--clearmodifiers", *keys)

    def type(self, text):
        self.tell("xdotool", "type", "--delay", "5", text)

    def copy_elsewhere(self, text):
        copy(self.desktop, text)
        self.app.wait_for_clip(text)

    def copy_until_recorded(self, text):
        """Copies by the application's own keys, as often as a person would while it still loads."""
        self.desktop.repeat(lambda: self.application.copy_all(self),
                            lambda: self.app.clips()[:1] == [text], f"the copy of {text!r}",
                            each=1.5, seconds=START)

    def paste_from_history(self, *keys):
        self.app.open_history()
        self.app.key(*keys)
        self.app.wait_until_hidden()

    def wait_for_text(self, text):
        """Until the application's document reads `text`."""
        read = []

        def is_there():
            read[:] = [self.application.read(self)]
            return read[0] == text
        try:
            self.wait_for(is_there, "")
        except TimeoutError:
            raise AssertionError(f"reads {read[0]!r} instead of {text!r}") from None

    def pasteboard(self, target="UTF8_STRING"):
        return pasteboard(self.desktop, target)

    def newest(self, columns):
        return self.app.clips(columns)[0]
