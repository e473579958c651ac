"""Qt's own rich-text editor:  qt_editor.py RUNS [PAGE.html]
Writes what stands in its document to the file RUNS after each change, as JSON."""

import json
import os
import pathlib
import sys

from PyQt6.QtGui import QTextCursor
from PyQt6.QtWidgets import QApplication, QTextEdit


def runs(document):
    block = document.begin()
    while block.isValid():
        cursor = QTextCursor(block)
        part = block.begin()
        while not part.atEnd():
            looks = part.fragment().charFormat()
            yield {
                "text": part.fragment().text(), "bold": looks.fontWeight() >= 600,
                "colour": looks.foreground().color().name(), "link": looks.anchorHref(),
                "heading": block.blockFormat().headingLevel() > 0,
                "list": block.textList() is not None, "cell": cursor.currentTable() is not None,
            }
            part += 1
        block = block.next()


def main():
    target, *page = map(pathlib.Path, sys.argv[1:])
    application = QApplication(sys.argv)
    editor = QTextEdit()
    editor.setWindowTitle("editor")
    if page:
        editor.setHtml(page[0].read_text(encoding="utf-8"))

    def tell():
        document = editor.document()
        written = target.with_suffix(".new")
        written.write_text(json.dumps({"runs": list(runs(document)), "source": document.toHtml()}))
        os.replace(written, target)

    editor.textChanged.connect(tell)
    editor.resize(800, 600)
    editor.show()
    sys.exit(application.exec())


main()
