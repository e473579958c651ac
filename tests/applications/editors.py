"""Editors, office programs and a password safe: whatever shows a text that can be read back."""

import subprocess

from application import OTHER, TEXT, Application


class Editor(Application):
    # Whether the document had a text when it was opened.
    is_filled = False

    def start(self, desk, text):
        self.is_filled = text != ""
        return super().start(desk, text)

    def settle(self, desk):
        """Many bring their window to the front again once they have read the document, so an empty
        one is waited for until it takes what is typed."""
        if not self.is_filled:
            desk.desktop.repeat(lambda: self.type_one(desk), lambda: self.is_heard(desk),
                                "its attention", seconds=60)
            desk.key(self.select_all, "Delete")

    def type_one(self, desk):
        desk.type("1")

    def is_heard(self, desk):
        return set(self.read(desk)) == {"1"}

    def copy_text(self, desk):
        desk.start(TEXT)
        desk.copy_until_recorded(TEXT)
        self.check_name(desk)

    def close_after_copy(self, desk):
        desk.start(TEXT)
        desk.copy_until_recorded(TEXT)
        self.end(desk)
        desk.wait_for(lambda: desk.pasteboard() == TEXT, "the closed application's copy")

    def swop(self, desk):
        desk.copy_elsewhere(OTHER)
        desk.start(TEXT)
        desk.copy_until_recorded(TEXT)
        desk.copy_elsewhere(OTHER)
        self.select(desk)
        self.swop_selected(desk, TEXT)


class Modal(Editor):
    """One that takes letters for commands, and is ready when its title says so."""

    def settle(self, desk):
        desk.wait_for(lambda: "document" in desk.title(), "the document", 60)


class Vim(Modal):
    """Tried in its normal mode, in which it starts."""

    copy_keys = ("quotedbl", "plus", "y")
    save_keys = ("Escape", "Escape", "colon", "w", "Return")

    def select(self, desk):
        # Without the end of the line, which is no character of the text.
        desk.key("Escape", "g", "g", "v", "G", "g", "underscore")


class Emacs(Modal):
    copy_keys = ("alt+w",)
    save_keys = ("ctrl+x", "ctrl+s")

    def select(self, desk):
        desk.key("ctrl+x", "h")


class CopyReader(Editor):
    """Saves what it holds in a format of its own, or not at all."""

    def type_one(self, desk):
        super().type_one(desk)
        self.copy_all(desk)

    def is_heard(self, desk):
        return set(desk.pasteboard() or "") == {"1"}

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
        desk.type("1\n")
        self.copy_all(desk)


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
        desk.wait_for(lambda: "safe" in (title := desk.title()) and "Locked" not in title,
                      "the open safe", 60)

    def type_one(self, desk):
        desk.key("ctrl+n")
        super().type_one(desk)

    def write(self, desk, text):
        """In the title of a new entry."""
        self.is_filled = False
        super().settle(desk)
        desk.type(text)

    def copy_text(self, desk):
        self.start(desk, "")
        desk.wait_until_in_front(self.window_class)
        self.wait_until_open(desk)
        desk.desktop.repeat(lambda: desk.key("Down", "ctrl+c"),
                            lambda: desk.pasteboard() == self.PASSWORD, "the copied password")
        # Changes are examined in order, so this one tells that the password was.
        self.write(desk, TEXT)
        desk.copy_until_recorded(TEXT)
        self.check_name(desk)
        if self.PASSWORD in desk.app.clips():
            raise AssertionError("recorded a password")
        return "✓, a password is left alone"
