"""Browsers, terminals and file managers."""

import itertools
import os

from application import OTHER, TEXT, Application
from editors import Editor
from quillmarsh import contents


class Browser(Editor):
    """A page with one text field; what stands in it is the title, too."""

    PAGE = ("<!doctype html><meta charset=utf-8><title>empty</title>"
            "<textarea id=t autofocus rows=20 cols=80>{}</textarea>"
            "<script>t.oninput=()=>document.title='['+t.value+']';t.focus()</script>")

    def start(self, desk, text):
        page = desk.file("page.html", self.PAGE.format(text))
        return desk.desktop.start([*self.command, "file://" + page], quiet=True)

    def settle(self, desk):
        desk.wait_for(lambda: "empty" in desk.title(), "the page", 60)
        desk.click(60, 250)

    def read(self, desk):
        title = desk.title()
        return title[1:title.rfind("]")] if title.startswith("[") else title


class Firefox(Browser):
    SETTINGS = "".join(f'user_pref("{key}", {value});\n' for key, value in {
        "browser.aboutwelcome.enabled": "false", "browser.shell.checkDefaultBrowser": "false",
        "browser.startup.homepage_override.mstone": '"ignore"',
        "datareporting.policy.dataSubmissionEnabled": "false",
        "termsofuse.bypassNotification": "true"}.items())

    def start(self, desk, text):
        settings = desk.file("firefox/user.js", self.SETTINGS)
        self.command = ["firefox-esr", "--no-remote", "--profile", os.path.dirname(settings)]
        return super().start(desk, text)


class Terminal(Application):
    """cat into a file; the first line is what it echoes."""

    copy_keys = ("ctrl+shift+c",)

    def start(self, desk, text):
        script = desk.file("script.sh", f"echo {text.split()[0] if text else ''}\n"
                           f"cat > {desk.file('typed.txt', None)}\n")
        return desk.desktop.start([*self.command, "sh", script], quiet=True)

    def settle(self, desk):
        desk.wait_for(lambda: contents(desk.file("typed.txt", None)) is not None, "the shell", 60)

    def read(self, desk):
        desk.key("Return")
        return (contents(desk.file("typed.txt", None)) or "").strip("\n")

    # Where the first word is shown, in pixels from the window's corner.
    first_word = (22, 8)

    def select_first_word(self, desk):
        # Another click within three seconds would be a third one to it, which takes the selection away.
        desk.desktop.repeat(
            lambda: desk.click(*self.first_word, 2),
            lambda: desk.tell("timeout", "2", "xclip", "-o", "-selection", "primary")
            == TEXT.split()[0], "the selected word", each=3)

    def _copy(self, desk):
        desk.start(TEXT)
        self.select_first_word(desk)
        desk.key(*self.copy_keys)
        desk.app.wait_for_clip(TEXT.split()[0])

    def copy_text(self, desk):
        self._copy(desk)
        self.check_name(desk)

    def close_after_copy(self, desk):
        self._copy(desk)
        self.end(desk)
        desk.wait_for(lambda: desk.pasteboard() == TEXT.split()[0], "the closed terminal's copy")

    def swop(self, desk):
        desk.copy_elsewhere(OTHER)
        desk.start(TEXT)
        self.select_first_word(desk)
        self.swop_selected(desk, TEXT.split()[0])


class FileManager(Application):
    absent = {"copy_text": "names", "copy_rich": "names", "paste_upper": "names",
              "paste_lower": "names", "swop": "names"}

    def start(self, desk, text):
        desk.file("from/report.txt", TEXT)
        return desk.desktop.start([*self.command, desk.file("from/", None)], quiet=True)

    def click_ground(self, desk):
        """It may still show something else when it comes to the front, so each time again."""
        desk.click(500, 400)

    def copy_all(self, desk):
        self.click_ground(desk)
        super().copy_all(desk)

    def copy_again(self, desk):
        """Some think about what is selected before they can copy it."""
        desk.key(*self.copy_keys)

    def _copy(self, desk):
        desk.start()
        path = desk.file("from/report.txt", None)
        keystrokes = itertools.cycle([self.copy_all, *[self.copy_again] * 4])
        desk.desktop.repeat(lambda: next(keystrokes)(desk), lambda: [path] == [
            row[1] for row in desk.app.clips("strValue, filepath")[:1]], "the copy", seconds=120)
        return path

    def copy_files(self, desk):
        self._copy(desk)
        self.check_name(desk)

    def close_after_copy(self, desk):
        path = self._copy(desk)
        self.end(desk)
        desk.wait_for(lambda: path in (desk.pasteboard("text/uri-list") or ""),
                      "the closed application's file")

    def paste(self, desk):
        path = self._copy(desk)
        self.end(desk)
        os.mkdir(desk.file("to", None))
        desk.process = desk.desktop.start([*self.command, desk.file("to/", None)], quiet=True)
        desk.wait_until_in_front(self.window_class)
        copied = desk.file("to/report.txt", None)
        def paste_again():
            self.click_ground(desk)
            desk.paste_from_history("Return")
        desk.desktop.repeat(paste_again, lambda: contents(copied) == TEXT, "the pasted file", each=3)
        assert os.path.exists(path)
