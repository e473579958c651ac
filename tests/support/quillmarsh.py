"""The real program on a private desktop, and what a test asks of it."""

import os
import pathlib
import plistlib
import sqlite3
import subprocess
import threading

BUNDLE = "org.quillmarsh.Quillmarsh"


class Quillmarsh:
    """Starts the program on `desktop` and waits until it is ready. Its log is in `log`. Its user has
    completed the welcome, unless `welcomed` is false or there are settings already."""

    def __init__(self, desktop, binary, environment=None, wait=True, welcomed=True,
                 words=()):
        self.desktop = desktop
        self.binary = binary
        self.log = []
        self._has_ended = False
        self._log_grew = threading.Condition()
        if welcomed and not self.settings.exists():
            self.settings.parent.mkdir(parents=True, exist_ok=True)
            self.settings.write_bytes(plistlib.dumps({"welcomeWindowShown": True}))
        variables = dict(desktop.environment, QUILLMARSH_TRACE="1", **(environment or {}))
        # Where compositors do not tell of its windows, the program's own log does.
        self.take = desktop.watch(variables)
        self.process = desktop.start([binary, *words], env=variables, stdout=subprocess.PIPE,
                                     stderr=subprocess.STDOUT)
        threading.Thread(target=self._read, daemon=True).start()
        if wait:
            self.wait_for_log("devmate setup complete", seconds=30)
            desktop.await_shortcuts()

    def _read(self):
        try:
            for line in self.process.stdout:
                text = line.decode("utf-8", "replace").rstrip("\n")
                if self.take and self.take(text):
                    continue
                with self._log_grew:
                    self.log.append(text)
                    self._log_grew.notify_all()
        except ValueError:
            pass  # closed with the desktop
        with self._log_grew:
            self._has_ended = True
            self._log_grew.notify_all()

    def wait_for_log(self, text, count=1, seconds=10):
        def seen():
            return sum(text in line for line in self.log) >= count

        with self._log_grew:
            if self._log_grew.wait_for(lambda: seen() or self._has_ended, seconds):
                if not seen():
                    raise AssertionError("Quillmarsh ended:\n" + "\n".join(self.log))
                return
        raise TimeoutError(f"the log line '{text}' did not come within {seconds:g} s")

    @property
    def settings(self):
        return pathlib.Path(self.desktop.environment["XDG_CONFIG_HOME"], BUNDLE + ".plist")

    def setting(self, key):
        """The stored value under `key`; None when there is none."""
        return plistlib.loads(self.settings.read_bytes()).get(key)

    @property
    def store(self):
        return pathlib.Path(self.desktop.environment["XDG_DATA_HOME"], BUNDLE, "Quillmarsh.sqlite")

    def clips(self, columns="strValue"):
        """The stored clips, newest first: texts, or tuples when several columns are asked for."""
        if not self.store.exists():
            return []
        with sqlite3.connect(f"file:{self.store}?mode=ro", uri=True, timeout=5) as store:
            rows = store.execute(
                f"SELECT {columns} FROM ClipItem ORDER BY createDate DESC").fetchall()
        store.close()
        return [row[0] for row in rows] if "," not in columns else rows

    def wait_for_clip(self, text, seconds=10):
        self.desktop.wait_for(lambda: self.clips()[:1] == [text], f"the newest clip {text!r}",
                              seconds)

    def window(self, name="Quillmarsh", wait=True):
        """Id of our visible window of that name; None when it is not shown and `wait` is false."""
        def find():
            return self.desktop.window(name)

        return self.desktop.wait_for(find, f"the window {name}") if wait else find()

    def wait_until_hidden(self, name="Quillmarsh"):
        self.desktop.wait_for(lambda: self.window(name, wait=False) is None,
                              f"the window {name} to close")

    def wait_until_active(self, window):
        self.desktop.wait_for(lambda: self.desktop.has_keyboard(window),
                              f"window {window} to become active")

    def open_history(self, keys="super+shift+v", name="Quillmarsh"):
        """Presses the shortcut and returns once the history, or what comes in its place, has the
        keyboard."""
        self.key(keys)
        window = self.window(name)
        self.wait_until_active(window)
        self.desktop.keep_picture()
        return window

    def open_swop(self):
        return self.open_history("super+shift+x")

    def close(self, name="Quillmarsh", keys=("Escape",)):
        """Presses what closes the window in front, and waits until it has gone."""
        self.key(*keys)
        self.wait_until_hidden(name)

    def key(self, *keys):
        self.desktop.keys(*keys)

    def type(self, text):
        self.desktop.type(text)

    def screenshot(self, path):
        os.makedirs(os.path.dirname(path), exist_ok=True)
        self.desktop.picture(path)

    def quit(self):
        """Asks the program to end as a session does, and returns its exit code."""
        self.process.terminate()
        return self.process.wait(10)


def copy(desktop, text, target=None):
    return desktop.copy(text, target)


def pasteboard(desktop, target=None):
    """What a paste would give now."""
    return desktop.pasteboard(target)


def contents(path):
    return pathlib.Path(path).read_text(encoding="utf-8") if os.path.exists(path) else None
