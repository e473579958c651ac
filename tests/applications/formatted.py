"""The programs with rich text: how each is given the sample document and an empty one, and how what
stands in it is read back."""

import itertools
import json
import pathlib
import shutil
import xml.etree.ElementTree as xml

from editors import Editor, Spreadsheet
from page_server import DOCUMENTS, PageServer
from programs import Firefox
from readers import AbiWordDocument, OpenDocument

LAST_WORD = "Willow"
PAGES = PageServer()
# For documents and profiles, so that two of the same program know nothing of each other.
NUMBERS = itertools.count()


class FormattedEditor(Editor):
    """Keeps its document in a file. The sample is there when the document has a text."""

    sample = ""
    empty = ""
    reader = None
    # What it has no notion of, so neither as the source nor as the target.
    lacks = ()

    def start(self, desk, text):
        self.is_filled = text != ""
        self.number = next(NUMBERS)
        name = f"document-{self.number}{pathlib.Path(self.sample).suffix}"
        self.document = pathlib.Path(desk.file(name, self.empty))
        if text:
            shutil.copy(DOCUMENTS / self.sample, self.document)
        profile = desk.file(f"profile-{self.number}/", None)
        command = [word.format(profile=profile) for word in self.command]
        return desk.desktop.start([*command, str(self.document)], quiet=True)

    def source(self, desk):
        """The document as the program would show it to a programmer."""
        return self.document.read_text(encoding="utf-8")

    def runs(self, desk):
        self.save(desk)
        try:
            return self.reader(self.document).runs()
        except (xml.ParseError, FileNotFoundError):
            return []  # being written

    def save(self, desk):
        """Once and no more, as an office program that is asked again meanwhile never ends it."""
        def written():
            return self.document.stat().st_mtime_ns if self.document.exists() else 0

        before = written()
        desk.key(*self.save_keys)
        try:
            desk.wait_for(lambda: written() > before, "", 3)
        except TimeoutError:
            pass  # nothing to be saved

    def read(self, desk):
        return "".join(run["text"] for run in self.runs(desk)).strip()


class OfficeText(FormattedEditor):
    sample = "birds.fodt"
    reader = OpenDocument
    empty = """<?xml version="1.0" encoding="UTF-8"?>
<office:document office:version="1.2" office:mimetype="application/vnd.oasis.opendocument.text"
 xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0"><office:body><office:text/>
</office:body></office:document>
"""

    def end(self, desk):
        self.quit(desk)


class OfficeSheet(OfficeText):
    sample = "birds.fods"
    empty = Spreadsheet.SHEET.format("")
    lacks = ("heading", "list")
    select_all = "ctrl+Home"

    def copy_all(self, desk):
        self.select(desk)
        desk.key("ctrl+shift+End", *self.copy_keys)

    def save(self, desk):
        if "Import" in desk.title():
            desk.key("Return")  # asks how to read what is pasted
        super().save(desk)

    def type_one(self, desk):
        desk.type("1\n")


class AbiWord(FormattedEditor):
    sample = "birds.abw"
    reader = AbiWordDocument
    empty = """<?xml version="1.0" encoding="UTF-8"?>
<abiword xmlns="http://www.abisource.com/awml.dtd"><section><p style="Normal"></p></section></abiword>
"""


class QtEditor(FormattedEditor):
    sample = "birds.html"

    def start(self, desk, text):
        self.is_filled = text != ""
        self.written = pathlib.Path(desk.file(f"document-{next(NUMBERS)}.json", None))
        page = [str(DOCUMENTS / self.sample)] if text else []
        return desk.desktop.start([*self.command, str(DOCUMENTS / "qt_editor.py"),
                                   str(self.written), *page], quiet=True)

    def told(self, part, default):
        if not self.written.exists():
            return default
        return json.loads(self.written.read_text(encoding="utf-8"))[part]

    def source(self, desk):
        return self.told("source", "")

    def runs(self, desk):
        return self.told("runs", [])


class Page(FormattedEditor):
    sample = "birds.html"
    settings = ""

    def start(self, desk, text):
        self.is_filled = text != ""
        self.title = "birds" if text else "editor"
        settings = desk.file(f"profile-{next(NUMBERS)}/user.js", self.settings)
        command = [word.format(profile=pathlib.Path(settings).parent) for word in self.command]
        page = PAGES.address(f"{self.title}.html")
        return desk.desktop.start([*command, page], quiet=True)

    def settle(self, desk):
        desk.wait_for(lambda: self.title in desk.title(), "the page", 60)
        desk.click(700, 500)
        super().settle(desk)

    def source(self, desk):
        return PAGES.document["source"] if PAGES.document else ""

    def runs(self, desk):
        return PAGES.document["runs"] if PAGES.document else []


class FirefoxPage(Page):
    settings = Firefox.SETTINGS


OFFICE = ["libreoffice", "-env:UserInstallation=file://{profile}", "--norestore", "--nologo",
          "--nofirststartwizard"]
PROGRAMS = [
    FirefoxPage("Firefox ESR", ["firefox-esr", "--no-remote", "--profile", "{profile}"], "firefox"),
    Page("Chromium", ["chromium", "--no-sandbox", "--disable-gpu", "--no-first-run",
                      "--disable-quic", "--disable-background-networking",
                      "--disable-component-update", "--disable-sync", "--password-store=basic",
                      "--user-data-dir={profile}"], "chromium"),
    OfficeText("LibreOffice Writer", [*OFFICE, "--writer"], "libreoffice"),
    OfficeSheet("LibreOffice Calc", [*OFFICE, "--calc"], "libreoffice"),
    AbiWord("AbiWord", ["abiword"], "abiword"),
    QtEditor("QTextEdit", ["/usr/bin/python3", "-B"], "qt_editor", package="libqt6widgets6"),
]
