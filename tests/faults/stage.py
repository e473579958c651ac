"""Where faults are made: the real program on a private desktop, what it has committed, and how long
its main thread lets others wait."""

import os
import pathlib
import plistlib
import select
import sqlite3
import sys
import threading
import time

from Xlib import X, display
from Xlib.error import CatchError
from Xlib.protocol import event

SUPPORT = pathlib.Path(__file__).resolve().parent.parent / "support"
sys.path.insert(0, str(SUPPORT))
from desktop import Desktop  # noqa: E402
from quillmarsh import BUNDLE, Quillmarsh  # noqa: E402

BINARY = os.path.abspath(os.environ.get("QUILLMARSH_BINARY", "build/dev/bin/quillmarsh"))
QT_EDITOR = os.path.abspath(os.environ.get("QT_EDITOR", "build/dev/tests/desktop/qt_editor"))
PATIENCE = 6


class Stage(Desktop):
    """A desktop on which the program can be started, also again. Settings are given by name."""

    def __init__(self, settings=None, **options):
        super().__init__(**options)
        self.data = pathlib.Path(self.environment["XDG_DATA_HOME"], BUNDLE)
        config = pathlib.Path(self.environment["XDG_CONFIG_HOME"])
        config.mkdir(parents=True)
        (config / f"{BUNDLE}.plist").write_bytes(
            plistlib.dumps({"welcomeWindowShown": True, **(settings or {})}))
        self.app = None

    @staticmethod
    def wait_for(condition, what, seconds=10.0):
        # A machine that has much else to do is no fault.
        return Desktop.wait_for(condition, what, seconds * PATIENCE)

    def start_app(self, environment=None, **options):
        self.app = Quillmarsh(self, BINARY, environment, **options)
        return self.app

    def copy_new(self, text):
        """A copy of a text that the program has to have, at once or later."""
        if self.copy(text).returncode:
            raise AssertionError("nobody could copy")

    def clips(self):
        """Stored ones, newest first; none while the store is being made."""
        try:
            return self.app.clips()
        except sqlite3.OperationalError:
            return []

    def wait_for_texts(self, texts, seconds):
        """Until the store's file has all of them, as another connection reads it."""
        wanted = set(texts)
        try:
            self.wait_for(lambda: wanted <= set(self.clips()), "the copies in the store", seconds)
        except TimeoutError:
            missing = wanted - set(self.clips())
            raise AssertionError(f"{len(missing)} of {len(wanted)} copies are not in the store: "
                                 f"{sorted(text[:40] for text in missing)[:5]}") from None

    def check_store(self, texts=()):
        """Whole, and with these texts."""
        check_store(self.app.store, texts)

    def editor(self):
        """A bare window of the same toolkit, whose answers tell how busy the machine is."""
        self.start([QT_EDITOR, os.path.join(self.home, "editor.txt")], quiet=True)
        return self.wait_for(lambda: self.window("Qt editor"), "the editor")


def check_store(file, texts=()):
    store = sqlite3.connect(file, timeout=10)
    try:
        told = store.execute("PRAGMA integrity_check").fetchall()
        if told != [("ok",)]:
            raise AssertionError(f"the store is broken: {told}")
        there = {row[0] for row in store.execute("SELECT strValue FROM ClipItem")}
    finally:
        store.close()
    missing = set(texts) - there
    if missing:
        raise AssertionError(f"{len(missing)} committed clips are gone")


class Pulse:
    """Asks windows again and again whether their programs are there, as window managers do, and keeps
    the longest time in which the answer came: the main thread's longest pause, and what there is of
    the machine's own. `with Pulse(stage, window) as pulse: ...; pulse.longest[window]` in ms."""

    def __init__(self, stage, *windows):
        self.display = display.Display(stage.environment["DISPLAY"])
        self.windows = [int(window) for window in windows]
        self.longest = {str(window): 0.0 for window in windows}
        self._ends = False
        self._thread = threading.Thread(target=self._run, daemon=True)

    def __enter__(self):
        root = self.display.screen().root
        root.change_attributes(event_mask=X.SubstructureNotifyMask | X.StructureNotifyMask)
        self._protocols = self.display.intern_atom("WM_PROTOCOLS")
        self._ping = self.display.intern_atom("_NET_WM_PING")
        self._thread.start()
        return self

    def __exit__(self, *_):
        self._ends = True
        self._thread.join(30)
        self.display.close()

    def _run(self):
        number = 0
        while not self._ends:
            for window in self.windows:
                number += 1
                self._ask(window, number)
            time.sleep(0.004)

    def _ask(self, window, number):
        asked = time.monotonic()
        target = self.display.create_resource_object("window", window)
        target.send_event(event.ClientMessage(
            window=target, client_type=self._protocols,
            data=(32, [self._ping, number, window, 0, 0])), onerror=CatchError())
        self.display.flush()
        while not self._has_answered(number):
            if self._ends and time.monotonic() > asked + 10:
                break
            select.select([self.display.fileno()], [], [], 0.5)
        took = (time.monotonic() - asked) * 1000
        self.longest[str(window)] = max(self.longest[str(window)], took)

    def _has_answered(self, number):
        while self.display.pending_events():
            told = self.display.next_event()
            if (told.type & 0x7F) == X.ClientMessage and told.client_type == self._protocols and \
                    told.data[1][1] == number:
                return True
        return False
