"""The applications that are tried, and how a person starts, fills, copies and reads each."""

import itertools
import os
import subprocess

from quillmarsh import contents

COLUMNS = ["copy_text", "copy_rich", "copy_files", "close_after_copy", "paste", "paste_upper",
           "paste_lower", "swop"]
TEXT = "Heron in the reeds"
OTHER = "Bittern Booms"


# Why a cell has no trial, by the name of the note that says so.
NOTES = {
    "rtf": "It offers no RTF, the one rich format that the history keeps. Other formats, such as a"
           " browser's HTML, are kept for pasting until something else is copied, also when the"
           " application has closed.",
    "files": "It has no files to copy.",
    "names": "Its copies are files, which have neither upper case nor lower case and are not"
             " exchanged for a selection.",
    "selection": "It has no key for the clipboard unless it is configured to: what is marked there"
                 " is the PRIMARY selection, which the history leaves alone. A swop takes it from"
                 " there.",
    "shot": "It takes a picture and ends; there is no text and no place to paste.",
}
# Where it has another name than the application.
PACKAGES = {
    "xfsettingsd beside mousepad": "xfce4-settings", "clipman beside mousepad": "xfce4-clipman",
    "parcellite beside mousepad": "parcellite", "urxvt": "rxvt-unicode", "GVim": "vim-gtk3",
    "Emacs": "emacs-gtk",
}


class Application:
    """What is common to all; a method named as a column is that column's trial."""

    select_all = "ctrl+a"
    copy_keys = ("ctrl+c",)
    save_keys = ("ctrl+s",)
    beside = ()
    # The note by the column that makes no sense here.
    absent = {"copy_rich": "rtf", "copy_files": "files"}

    def __init__(self, name, command, window_class, recorded=None, **differing):
        self.name = name
        self.command = command
        self.window_class = window_class
        self.recorded = recorded or name
        self.package = PACKAGES.get(name, name.lower().replace(" ", "-"))
        for key, value in differing.items():
            setattr(self, key, value)

    def start(self, desk, text):
        return desk.desktop.start([*self.command, desk.file("document.txt", text)], quiet=True)

    def settle(self, desk):
        """What has to be done before keys reach the document."""

    def select(self, desk):
        desk.key(self.select_all)

    def copy_all(self, desk):
        self.select(desk)
        desk.key(*self.copy_keys)

    def check_name(self, desk):
        """By which the user would have it ignored."""
        name = desk.newest("strValue, applicationName")[1]
        if name != self.recorded:
            raise AssertionError(f"recorded as {name!r}")

    def end(self, desk):
        """Closes it as the end of a session does."""
        desk.end()

    @staticmethod
    def quit(desk):
        """Closes it as a person does, so that it may save what it has on the clipboard."""
        desk.key("ctrl+q")
        desk.process.wait(60)

    def read(self, desk):
        """The document's text, as the application saves it."""
        desk.key(*self.save_keys)
        return (contents(desk.file("document.txt", None)) or "").removesuffix("\n")


class Editor(Application):
    def copy_text(self, desk):
        desk.start(TEXT)
        desk.copy_until_recorded(TEXT)
        self.check_name(desk)

    def close_after_copy(self, desk):
        desk.start(TEXT)
        desk.copy_until_recorded(TEXT)
        self.end(desk)
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
        self.select(desk)
        desk.key("super+shift+x")
        desk.app.wait_until_active(desk.app.window())
        desk.key("Return")
        desk.app.wait_until_hidden()
        desk.app.wait_for_clip(TEXT)
        desk.wait_for_text(OTHER)


class Vim(Editor):
    """Tried in its normal mode, in which it starts."""

    copy_keys = ("quotedbl", "plus", "y")
    save_keys = ("Escape", "Escape", "colon", "w", "Return")

    def select(self, desk):
        # Without the end of the line, which is no character of the text.
        desk.key("Escape", "g", "g", "v", "G", "g", "underscore")


class Emacs(Editor):
    copy_keys = ("alt+w",)
    save_keys = ("ctrl+x", "ctrl+s")

    def select(self, desk):
        desk.key("ctrl+x", "h")


class CopyReader(Editor):
    """Saves what it holds in a format of its own, or not at all."""

    is_filled = False

    def start(self, desk, text):
        self.is_filled = text != ""
        return super().start(desk, text)

    def settle(self, desk):
        """Its window is there long before it hears keys: until it copies what is typed."""
        def is_copied():
            self.type_one(desk)
            self.copy_all(desk)
            try:
                desk.wait_for(lambda: set(desk.pasteboard() or "") == {"1"}, "", 2)
                return True
            except TimeoutError:
                return False
        if not self.is_filled:
            desk.wait_for(is_copied, "its attention", 60)
            desk.key(self.select_all, "Delete")

    def type_one(self, desk):
        desk.app.type("1")

    def read(self, desk):
        """By its own copy and a reader that is not ours."""
        before = desk.pasteboard("TIMESTAMP")
        self.copy_all(desk)
        try:
            desk.wait_for(lambda: desk.pasteboard("TIMESTAMP") != before, "a copy", 2)
        except TimeoutError:
            return None
        return (desk.pasteboard() or "").removesuffix("\n")


class RichEditor(CopyReader):
    absent = {"copy_files": "files"}

    def copy_rich(self, desk):
        desk.start(TEXT)
        desk.copy_until_recorded(TEXT)
        rtf = desk.newest("strValue, rtfValue")[1]
        if not rtf or not rtf.startswith("{\\rtf"):
            raise AssertionError(f"no RTF: {str(rtf)[:20]!r}")

    def end(self, desk):
        self.quit(desk)

    def close_after_copy(self, desk):
        super().close_after_copy(desk)
        for kind, beginning in [("text/rtf", "{\\rtf"), ("text/html", "<!DOCTYPE html")]:
            kept = desk.pasteboard(kind)
            if not kept or not kept.startswith(beginning):
                raise AssertionError(f"no {kind}: {str(kept)[:20]!r}")


class Spreadsheet(RichEditor):
    """One cell of a sheet, in the flat format, which needs no dialogue to be opened."""

    select_all = "ctrl+Home"
    SHEET = """<?xml version="1.0" encoding="UTF-8"?>
<office:document office:version="1.2" office:mimetype="application/vnd.oasis.opendocument.spreadsheet"
 xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0"
 xmlns:table="urn:oasis:names:tc:opendocument:xmlns:table:1.0"
 xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0"><office:body><office:spreadsheet>
<table:table table:name="Birds"><table:table-row><table:table-cell office:value-type="string"><text:p>{}</text:p>
</table:table-cell></table:table-row></table:table></office:spreadsheet></office:body></office:document>
"""

    def start(self, desk, text):
        self.is_filled = text != ""
        sheet = desk.file("document.fods", self.SHEET.format(text))
        return desk.desktop.start([*self.command, sheet], quiet=True)

    def type_one(self, desk):
        desk.app.type("1\n")


class PasswordSafe(CopyReader):
    """A safe with one entry."""

    PASSWORD = "Mute Swans"
    SETTINGS = "[General]\nUpdateCheckMessageShown=true\n[GUI]\nCheckForUpdates=false\n"

    def start(self, desk, text):
        self.text = text
        safe = desk.file("safe.kdbx", None)
        for command, answers in [(["db-create", "-p"], ["heron", "heron"]),
                                 (["add", "-u", "marsh", "-p"], ["heron", self.PASSWORD])]:
            words = [*command, safe] + (["reeds"] if command[0] == "add" else [])
            desk.desktop.run(["keepassxc-cli", *words], input="\n".join([*answers, ""]), text=True,
                             capture_output=True).check_returncode()
        process = desk.desktop.start(
            [*self.command, "--config", desk.file("safe.ini", self.SETTINGS), "--pw-stdin", safe],
            quiet=True, stdin=subprocess.PIPE)
        process.stdin.write(b"heron\n")
        process.stdin.close()
        return process

    def settle(self, desk):
        self.wait_until_open(desk)
        self.write(desk, self.text)

    @staticmethod
    def wait_until_open(desk):
        desk.wait_for(lambda: (title := desk.tell("xdotool", "getactivewindow", "getwindowname"))
                      and "safe" in title and "Locked" not in title, "the open safe", 60)

    def type_one(self, desk):
        desk.key("ctrl+n")
        super().type_one(desk)

    def write(self, desk, text):
        """In the title of a new entry."""
        self.is_filled = False
        super().settle(desk)
        desk.app.type(text)

    def copy_text(self, desk):
        self.start(desk, "")
        desk.wait_until_in_front(self.window_class)
        self.wait_until_open(desk)

        def is_copied():
            desk.key("Down", "ctrl+c")
            try:
                desk.wait_for(lambda: desk.pasteboard() == self.PASSWORD, "", 2)
                return True
            except TimeoutError:
                return False
        desk.wait_for(is_copied, "the copied password", 30)
        # Changes are examined in order, so this one tells that the password was.
        self.write(desk, TEXT)
        desk.copy_until_recorded(TEXT)
        self.check_name(desk)
        if self.PASSWORD in desk.app.clips():
            raise AssertionError("recorded a password")
        return "✓, a password is left alone"


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
        desk.key("super+shift+x")
        desk.app.wait_until_active(desk.app.window())
        desk.key("Return")
        desk.app.wait_until_hidden()
        desk.app.wait_for_clip(TEXT.split()[0])
        desk.wait_for_text(OTHER)


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

        def is_recorded():
            next(keystrokes)(desk)
            try:
                desk.wait_for(lambda: [path] == [row[1] for row in
                                                 desk.app.clips("strValue, filepath")[:1]], "", 2)
                return True
            except TimeoutError:
                return False
        desk.wait_for(is_recorded, "the copy", 120)
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
        desk.process = desk.desktop.start([*self.command, desk.file("to/", None)],
                                                         quiet=True)
        desk.wait_until_in_front(self.window_class)
        copied = desk.file("to/report.txt", None)

        def is_pasted():
            self.click_ground(desk)
            desk.paste_from_history("Return")
            try:
                desk.wait_for(lambda: contents(copied) == TEXT, "", 3)
                return True
            except TimeoutError:
                return False
        desk.wait_for(is_pasted, "the pasted file", 30)
        assert os.path.exists(path)


def is_picture_kept(desk):
    return desk.tell("sh", "-c", "timeout 5 xclip -o -selection clipboard -t image/png"
                     " | head -c 4 | xxd -p") == "89504e47"


class PaintProgram(CopyReader):
    """Pictures, which the history does not record and must not lose either; and its text tool."""

    def start(self, desk, text):
        self.is_filled = False
        self.text = text
        picture = desk.file("heron.png", None)
        subprocess.run(["convert", "-size", "640x480", "xc:teal", "PNG24:" + picture], check=True)
        return desk.desktop.start([*self.command, picture], quiet=True)

    @staticmethod
    def wait_until_open(desk):
        desk.wait_for(lambda: "heron" in desk.tell("xdotool", "getactivewindow", "getwindowname"),
                      "the picture", 90)

    def settle(self, desk):
        self.wait_until_open(desk)
        super().settle(desk)
        desk.app.type(self.text)

    def type_one(self, desk):
        desk.key("Escape", "t")
        desk.click(600, 400)
        super().type_one(desk)

    def close_after_copy(self, desk):
        desk.process = self.start(desk, "")
        desk.wait_until_in_front(self.window_class)
        self.wait_until_open(desk)

        def is_copied():
            desk.key(*self.copy_keys)
            try:
                desk.wait_for(lambda: "image/png" in (desk.pasteboard("TARGETS") or ""), "", 2)
                return True
            except TimeoutError:
                return False
        desk.wait_for(is_copied, "the copied picture", 90)
        self.quit(desk)
        desk.wait_for(lambda: is_picture_kept(desk), "the closed application's picture")
        return "✓, the picture"


def take_screenshot(desk):
    desk.desktop.start(SCREENSHOOTER, quiet=True).wait(30)
    desk.wait_for(lambda: is_picture_kept(desk), "the screenshot")


class Screenshooter(Application):
    absent = {column: "shot" for column in COLUMNS if column != "close_after_copy"}

    def close_after_copy(self, desk):
        take_screenshot(desk)
        return "✓, the picture"


class Neighbour(Editor):
    """The editor, while another program has a part in the clipboard or would like to."""

    def close_after_copy(self, desk):
        super().close_after_copy(desk)
        take_screenshot(desk)
        return "✓, a screenshot too"


SCREENSHOOTER = ["xfce4-screenshooter", "--fullscreen", "--clipboard"]
MOUSEPAD = ["mousepad", "--disable-server"]
CHROMIUM = ["chromium", "--no-sandbox", "--disable-gpu", "--no-first-run", "--disable-quic",
            "--disable-background-networking", "--disable-component-update", "--disable-sync",
            "--password-store=basic", "--user-data-dir=/tmp/chromium"]
OFFICE = ["libreoffice", "--norestore", "--nologo", "--nofirststartwizard"]

APPLICATIONS = [
    Editor("mousepad", MOUSEPAD, "mousepad", "Mousepad"),
    Editor("gedit", ["gedit", "--standalone"], "gedit"),
    Editor("kate", ["kate", "--new"], "kate", "Kate"),
    Editor("featherpad", ["featherpad", "--standalone"], "featherpad", "FeatherPad"),
    Neighbour("xfsettingsd beside mousepad", MOUSEPAD, "mousepad", "Mousepad",
              beside=[["xfsettingsd", "--no-daemon"]]),
    Neighbour("clipman beside mousepad", MOUSEPAD, "mousepad", "Mousepad",
              beside=[["xfce4-clipman"]]),
    Neighbour("parcellite beside mousepad", MOUSEPAD, "mousepad", "Mousepad",
              beside=[["parcellite", "--no-icon"]]),
    Terminal("xterm", ["xterm", "-e"], "xterm",
             absent=dict(Terminal.absent, copy_text="selection", close_after_copy="selection")),
    Terminal("xfce4-terminal", ["xfce4-terminal", "--disable-server", "--hide-menubar", "-x"],
             "xfce4-terminal", "Xfce Terminal"),
    Terminal("konsole", ["konsole", "--hide-menubar", "--hide-tabbar", "-e"], "konsole",
             "Konsole", first_word=(22, 48)),
    Terminal("kitty", ["kitty"], "kitty"),
    Terminal("urxvt", ["urxvt", "-e"], "urxvt", "Rxvt Color Unicode Terminal",
             copy_keys=("ctrl+alt+c",)),
    FileManager("thunar", ["thunar"], "thunar", "Thunar File Manager"),
    FileManager("pcmanfm-qt", ["pcmanfm-qt"], "pcmanfm-qt", "PCManFM-Qt File Manager"),
    FileManager("dolphin", ["dolphin", "--new-window"], "dolphin", "Dolphin"),
    FileManager("nautilus", ["nautilus", "--new-window"], "nautilus", "Files"),
    Firefox("Firefox ESR", [], "firefox"),
    Browser("Chromium", CHROMIUM, "chromium", "Chromium Web Browser"),
    RichEditor("LibreOffice Writer", [*OFFICE, "--writer"], "libreoffice"),
    Spreadsheet("LibreOffice Calc", [*OFFICE, "--calc"], "libreoffice"),
    Vim("GVim", ["gvim", "-f", "-u", "NONE"], "gvim"),
    Emacs("Emacs", ["emacs", "-Q"], "emacs", "Emacs (GUI)"),
    PasswordSafe("KeePassXC", ["keepassxc"], "keepassxc"),
    PaintProgram("GIMP", ["gimp", "--no-splash", "--new-instance"], "gimp",
                 "GNU Image Manipulation Program"),
    Screenshooter("xfce4-screenshooter", SCREENSHOOTER, ""),
]
