"""The applications that are tried, and how a person starts, fills, copies and reads each."""

import os
import subprocess
import time

from quillmarsh import contents

COLUMNS = ["copy_text", "copy_rich", "copy_files", "close_after_copy", "paste", "paste_upper",
           "paste_lower", "swop"]
TEXT = "Heron in the reeds"
OTHER = "Bittern Booms"


class Application:
    """What is common to all; a method named as a column is that column's trial."""

    select_all = "ctrl+a"
    copy_keys = ("ctrl+c",)
    save_keys = ("ctrl+s",)
    note = ""
    beside = ()

    def __init__(self, name, command, window_class, recorded=None, **differing):
        self.name = name
        self.command = command
        self.window_class = window_class
        self.recorded = recorded
        for key, value in differing.items():
            setattr(self, key, value)

    def start(self, desk, text):
        return desk.desktop.start([*self.command, desk.file("document.txt", text)], quiet=True)

    def settle(self, desk):
        """What has to be done before keys reach the document."""

    def copy_all(self, desk):
        desk.key(self.select_all)
        desk.key(*self.copy_keys)

    def read(self, desk):
        """The document's text, as the application saves it."""
        desk.key(*self.save_keys)
        return (contents(desk.file("document.txt", None)) or "").removesuffix("\n")


class Editor(Application):
    def copy_text(self, desk):
        desk.start(TEXT)
        desk.copy_until_recorded(TEXT)
        name = desk.newest("strValue, applicationName")[1]
        if self.recorded and name != self.recorded:
            raise AssertionError(f"recorded as {name!r}")

    def close_after_copy(self, desk):
        desk.start(TEXT)
        desk.copy_until_recorded(TEXT)
        desk.end()
        desk.wait_for(lambda: desk.pasteboard() == TEXT, "the closed application's copy")

    def _paste(self, desk, key, expected):
        desk.start()
        desk.copy_elsewhere(OTHER)
        desk.paste_from_history(key)
        desk.wait_for_text(expected)

    def paste(self, desk):
        self._paste(desk, "Return", OTHER)

    def paste_upper(self, desk):
        self._paste(desk, "shift+Return", OTHER.upper())

    def paste_lower(self, desk):
        self._paste(desk, "alt+Return", OTHER.lower())

    def swop(self, desk):
        desk.copy_elsewhere(OTHER)
        desk.start(TEXT)
        desk.copy_until_recorded(TEXT)
        desk.copy_elsewhere(OTHER)
        desk.key(self.select_all)
        desk.key("super+shift+x")
        desk.app.wait_until_active(desk.app.window())
        desk.key("Return")
        desk.app.wait_until_hidden()
        desk.app.wait_for_clip(TEXT)
        desk.wait_for_text(OTHER)


class RichEditor(Editor):
    def read(self, desk):
        """By its own copy and a reader that is not ours; it would save in a format of its own."""
        before = desk.pasteboard("TIMESTAMP")
        self.copy_all(desk)
        try:
            desk.wait_for(lambda: desk.pasteboard("TIMESTAMP") != before, "a copy", 2)
        except TimeoutError:
            return None
        return (desk.pasteboard() or "").removesuffix("\n")

    def copy_rich(self, desk):
        desk.start(TEXT)
        desk.copy_until_recorded(TEXT)
        rtf = desk.newest("strValue, rtfValue")[1]
        if not rtf or not rtf.startswith("{\\rtf"):
            raise AssertionError(f"no RTF: {str(rtf)[:20]!r}")


class Browser(Editor):
    """A page with one text field; what stands in it is the title, too."""

    PAGE = ("<!doctype html><meta charset=utf-8><title>empty</title>"
            "<textarea id=t autofocus rows=20 cols=80>{}</textarea>"
            "<script>t.oninput=()=>document.title='['+t.value+']';t.focus()</script>")

    def start(self, desk, text):
        page = desk.file("page.html", self.PAGE.format(text))
        return desk.desktop.start([*self.command, "file://" + page], quiet=True)

    def settle(self, desk):
        desk.wait_for(lambda: "empty" in desk.tell("xdotool", "getactivewindow", "getwindowname"),
                      "the page", 60)
        desk.click(60, 250)

    def read(self, desk):
        title = desk.tell("xdotool", "getactivewindow", "getwindowname")
        return title[1:title.rfind("]")] if title.startswith("[") else title

    def swop(self, desk):
        super().swop(desk)


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

    def paste(self, desk):
        desk.start()
        desk.copy_elsewhere(OTHER)
        desk.paste_from_history("Return")
        desk.wait_for_text(OTHER)

    def paste_upper(self, desk):
        desk.start()
        desk.copy_elsewhere(OTHER)
        desk.paste_from_history("shift+Return")
        desk.wait_for_text(OTHER.upper())

    def paste_lower(self, desk):
        desk.start()
        desk.copy_elsewhere(OTHER)
        desk.paste_from_history("alt+Return")
        desk.wait_for_text(OTHER.lower())

    def select_first_word(self, desk):
        def is_selected():
            desk.click(*self.first_word, "--repeat", "2", "--delay", "80")
            return desk.tell("timeout", "2", "xclip", "-o", "-selection", "primary") == TEXT.split()[0]
        desk.wait_for(is_selected, "the selected word")

    def copy_text(self, desk):
        desk.start(TEXT)
        self.select_first_word(desk)
        if not self.copy_keys:
            return "selects only"
        desk.key(*self.copy_keys)
        desk.app.wait_for_clip(TEXT.split()[0])

    def swop(self, desk):
        desk.copy_elsewhere(OTHER)
        desk.start(TEXT)
        self.select_first_word(desk)
        desk.key("super+shift+x")
        desk.app.wait_until_active(desk.app.window())
        desk.key("Return")
        desk.app.wait_until_hidden()
        desk.app.wait_for_clip(TEXT.split()[0])
        desk.wait_for_text(OTHER)


class FileManager(Application):
    def start(self, desk, text):
        desk.file("from/report.txt", TEXT)
        return desk.desktop.start([*self.command, desk.file("from/", None)], quiet=True)

    def settle(self, desk):
        desk.click(500, 400)

    def _copy(self, desk):
        desk.start()
        path = desk.file("from/report.txt", None)

        def is_recorded():
            self.copy_all(desk)
            try:
                desk.wait_for(lambda: desk.app.clips("strValue, filepath")[:1]
                              and desk.newest("strValue, filepath")[1] == path, "", 2)
                return True
            except TimeoutError:
                return False
        desk.wait_for(is_recorded, f"the copy, newest {desk.app.clips()[:1]}", 60)
        return path

    def copy_files(self, desk):
        self._copy(desk)

    def close_after_copy(self, desk):
        path = self._copy(desk)
        desk.end()
        desk.wait_for(lambda: path in (desk.pasteboard("text/uri-list") or ""),
                      "the closed application's file")

    def paste(self, desk):
        path = self._copy(desk)
        desk.end()
        os.mkdir(desk.file("to", None))
        self.process = desk.process = desk.desktop.start([*self.command, desk.file("to/", None)],
                                                         quiet=True)
        desk.wait_until_in_front(self.window_class)
        self.settle(desk)
        copied = desk.file("to/report.txt", None)

        def is_pasted():
            desk.paste_from_history("Return")
            try:
                desk.wait_for(lambda: contents(copied) == TEXT, "", 3)
                return True
            except TimeoutError:
                return False
        desk.wait_for(is_pasted, "the pasted file", 30)
        assert os.path.exists(path)


class Pictures(Application):
    """Copies a picture, which the history does not record and must not lose either."""

    def start(self, desk, text):
        picture = desk.file("heron.png", None)
        subprocess.run(["convert", "-size", "64x48", "xc:teal", picture], check=True)
        return desk.desktop.start([*self.command, picture], quiet=True)

    def close_after_copy(self, desk):
        desk.start()

        def is_copied():
            self.copy_all(desk)
            try:
                desk.wait_for(lambda: "image/png" in (desk.pasteboard("TARGETS") or ""), "", 2)
                return True
            except TimeoutError:
                return False
        desk.wait_for(is_copied, "the copied picture", 90)
        # Kept once its owner has been at rest.
        time.sleep(1)
        desk.end()
        desk.wait_for(lambda: desk.tell("sh", "-c",
                      "timeout 5 xclip -o -selection clipboard -t image/png | head -c 4 | xxd -p")
                      == "89504e47", "the closed application's picture")


class Screenshooter(Application):
    def close_after_copy(self, desk):
        desk.process = desk.desktop.start(self.command, quiet=True)
        desk.process.wait(30)
        desk.wait_for(lambda: desk.tell("sh", "-c",
                      "timeout 5 xclip -o -selection clipboard -t image/png | head -c 4 | xxd -p")
                      == "89504e47", "the screenshot")


FIREFOX = ["firefox-esr", "--no-remote", "--new-instance", "--profile", "/tmp/firefox"]
CHROMIUM = ["chromium", "--no-sandbox", "--disable-gpu", "--no-first-run", "--disable-quic",
            "--disable-background-networking", "--disable-component-update", "--disable-sync",
            "--password-store=basic", "--user-data-dir=/tmp/chromium"]
OFFICE = ["libreoffice", "--norestore", "--nologo", "--nofirststartwizard"]

APPLICATIONS = [
    Editor("mousepad", ["mousepad", "--disable-server"], "mousepad", "Mousepad"),
    Editor("gedit", ["gedit", "--standalone"], "gedit"),
    Editor("kate", ["kate", "--new"], "kate", "Kate"),
    Editor("featherpad", ["featherpad", "--standalone"], "featherpad", "FeatherPad"),
    Editor("xfsettingsd beside mousepad", ["mousepad", "--disable-server"], "mousepad",
           beside=[["xfsettingsd", "--no-daemon"]]),
    Editor("clipman beside mousepad", ["mousepad", "--disable-server"], "mousepad",
           beside=[["xfce4-clipman"]]),
    Editor("parcellite beside mousepad", ["mousepad", "--disable-server"], "mousepad",
           beside=[["parcellite", "--no-icon"]]),
    Terminal("xterm", ["xterm", "-e"], "xterm", copy_keys=()),
    Terminal("xfce4-terminal", ["xfce4-terminal", "--disable-server", "--hide-menubar", "-x"],
             "xfce4-terminal"),
    Terminal("konsole", ["konsole", "--hide-menubar", "--hide-tabbar", "-e"], "konsole",
             first_word=(22, 48)),
    Terminal("kitty", ["kitty"], "kitty"),
    Terminal("urxvt", ["urxvt", "-e"], "urxvt", copy_keys=()),
    FileManager("thunar", ["thunar"], "thunar"),
    FileManager("pcmanfm-qt", ["pcmanfm-qt"], "pcmanfm-qt"),
    FileManager("dolphin", ["dolphin", "--new-window"], "dolphin"),
    FileManager("nautilus", ["nautilus", "--new-window"], "nautilus"),
    Browser("Firefox ESR", FIREFOX, "firefox"),
    Browser("Chromium", CHROMIUM, "chromium"),
    RichEditor("LibreOffice Writer", [*OFFICE, "--writer"], "libreoffice"),
    RichEditor("LibreOffice Calc", [*OFFICE, "--calc"], "libreoffice"),
    Editor("GVim", ["gvim", "-f", "-u", "NONE"], "gvim"),
    Editor("Emacs", ["emacs", "-Q"], "emacs"),
    Pictures("GIMP", ["gimp", "--no-splash", "--new-instance"], "gimp"),
    Screenshooter("xfce4-screenshooter", ["xfce4-screenshooter", "--fullscreen", "--clipboard"], ""),
]
