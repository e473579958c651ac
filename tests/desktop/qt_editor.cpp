// A small Qt text window, the Qt counterpart of tests/support/gtk_editor.py: writes its text to
// the file named first on every change and "ready" to standard output once it has the keyboard.
// The second argument is its first text; with --select all of it is selected.

#include <QApplication>
#include <QPlainTextEdit>
#include <QSaveFile>
#include <QTextStream>

#include <cstdio>

namespace {

class Editor : public QPlainTextEdit
{
protected:
    void focusInEvent(QFocusEvent *event) override
    {
        QPlainTextEdit::focusInEvent(event);
        std::puts("ready");
        std::fflush(stdout);
    }
};

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QStringList arguments = QCoreApplication::arguments().mid(1);
    const bool isSelected = arguments.removeAll(QStringLiteral("--select")) > 0;
    const QString path = arguments.value(0);

    Editor editor;
    editor.setWindowTitle(QStringLiteral("Qt editor"));
    editor.resize(420, 240);
    const auto write = [&] {
        QSaveFile file(path);
        if (file.open(QIODevice::WriteOnly)) {
            file.write(editor.toPlainText().toUtf8());
            file.commit();
        }
    };
    QObject::connect(&editor, &QPlainTextEdit::textChanged, &editor, write);
    editor.setPlainText(arguments.value(1));
    if (isSelected)
        editor.selectAll();
    write();
    editor.show();
    return QApplication::exec();
}
