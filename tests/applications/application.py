"""What is common to all applications that are tried: the columns of the page, its notes, and what a
person does with each."""

from quillmarsh import contents

COLUMNS = ["copy_text", "copy_rich", "copy_files", "close_after_copy", "paste", "paste_upper",
           "paste_lower", "swop"]
TEXT = "Heron in the reeds"
OTHER = "Bittern Booms"


# Why a cell has no trial, by the name of the note that says so.
NOTES = {
    "rtf": "What it copies here has no formatting; [rich text](rich-text.md) is tried apart.",
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

        def has_ended():
            if "Save" in desk.title():
                # Office programs count an unchanged document as changed now and then.
                desk.key("alt+d", "alt+n")
            return desk.process.poll() is not None
        desk.wait_for(has_ended, "the end", 60)

    def read(self, desk):
        """The document's text, as the application saves it."""
        desk.key(*self.save_keys)
        return (contents(desk.file("document.txt", None)) or "").removesuffix("\n")

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

    @staticmethod
    def swop_selected(desk, text):
        """Exchanges the selection, which is that text, for the clip."""
        desk.app.open_swop()
        desk.key("Return")
        desk.app.wait_until_hidden()
        desk.app.wait_for_clip(text)
        desk.wait_for_text(OTHER)
