#include "Clipboard/window/ClipMenu.h"
#include "Clipboard/window/ClipboardView.h"
#include "Clipboard/window/FileViewController.h"
#include "WindowRig.h"

#include <QContextMenuEvent>
#include <QFile>
#include <QKeyEvent>
#include <QScrollBar>

namespace {

class ClipMenuTest : public WindowRig
{
protected:
    ClipMenu *menu() const
    {
        const QList<ClipMenu *> menus = controller->mainView()->findChildren<ClipMenu *>();
        return menus.isEmpty() || !menus.last()->isVisible() ? nullptr : menus.last();
    }
    QString entries() const
    {
        QStringList names;
        for (const QAction *action : menu()->actions())
            if (!action->isSeparator())
                names.append(action->objectName());
        return names.join(u' ');
    }
    void trigger(const char *name) const
    {
        menu()->findChild<QAction *>(QLatin1String(name))->trigger();
        QCoreApplication::processEvents();
    }
    QPoint centre(int row) const
    {
        return table->visualRect(table->model()->index(row, 1)).center();
    }
    void clickRight(int row) const
    {
        QContextMenuEvent event(QContextMenuEvent::Mouse, centre(row),
                                table->viewport()->mapToGlobal(centre(row)));
        QCoreApplication::sendEvent(table->viewport(), &event);
    }
    /// Records a copy of files that exist.
    QStringList addFiles(const QStringList &names)
    {
        QStringList paths;
        for (const QString &name : names) {
            paths.append(folder.filePath(name));
            QFile file(paths.last());
            EXPECT_TRUE(file.open(QIODevice::WriteOnly));
            memory.workspace.addFile(paths.last());
        }
        add(paths.join(u'\n'), paths.first());
        return paths;
    }
};

const QString kOfText = QStringLiteral("paste pastePlain pasteUpper pasteLower copy pin delete");
const QString kOfFile = QStringLiteral("paste copy open reveal pin delete");

TEST_F(ClipMenuTest, everyWayOpensItForTheClipThatIsMeant)
{
    addAll({QStringLiteral("c"), QStringLiteral("b")});
    add(QStringLiteral("a.txt"), QStringLiteral("/tmp/a.txt"));
    open();
    for (QWidget *keyboard : std::initializer_list<QWidget *>{field, table}) {
        QTest::keyClick(keyboard, Qt::Key_F10, Qt::ShiftModifier);
        ASSERT_TRUE(menu());
        EXPECT_EQ(entries(), kOfFile);
        menu()->close();
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
        QCoreApplication::sendEvent(keyboard, &event);
        ASSERT_TRUE(menu());
        menu()->close();
    }
    clickRight(1);
    EXPECT_EQ(selected(), QStringLiteral("b"));
    ASSERT_TRUE(menu());
    EXPECT_EQ(entries(), kOfText);
    menu()->close();
    controller->toggleMark(0);
    clickRight(1);
    EXPECT_EQ(controller->markCount(), 2) << "a click on a marked one keeps the marks";
    EXPECT_EQ(entries(), kOfText);
    trigger("copy");
    EXPECT_EQ(memory.pasteboard.contents()->text, QStringLiteral("b\na.txt"));
    EXPECT_TRUE(memory.keySender.sent().isEmpty());
    EXPECT_FALSE(delegate.window()->isVisible());
    open();
    delegate.clearAll();
    QTest::keyClick(field, Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_FALSE(menu());
}

TEST_F(ClipMenuTest, itsEntriesDoWhatTheySayAndTellTheirKeys)
{
    struct Row
    {
        const char *name;
        const char *keys;
        const char *pasted; ///< Null when nothing is.
    };
    const Row kRows[] = {
        {"paste", "Return", "Two"},
        {"pastePlain", "Ctrl+Shift+V", "Two"},
        {"pasteUpper", "Shift+Return", "TWO"},
        {"pasteLower", "Alt+Return", "two"},
        {"copy", "Ctrl+C", nullptr},
        {"pin", "Ctrl+D", nullptr},
        {"delete", "Super+Backspace", nullptr},
    };
    for (const Row &row : kRows) {
        delegate.clearAll();
        add(QStringLiteral("Two"));
        open();
        const qsizetype typed = memory.keySender.sent().size();
        QTest::keyClick(field, Qt::Key_F10, Qt::ShiftModifier);
        ASSERT_TRUE(menu());
        const auto *action = menu()->findChild<QAction *>(QLatin1String(row.name));
        ASSERT_TRUE(action) << row.name;
        EXPECT_EQ(action->text().section(u'\t', 1), QLatin1String(row.keys));
        trigger(row.name);
        EXPECT_EQ(memory.keySender.sent().size() - typed, row.pasted ? 1 : 0) << row.name;
        if (row.pasted) {
            EXPECT_EQ(memory.pasteboard.contents()->text, QLatin1String(row.pasted)) << row.name;
        }
        controller->hide();
    }
}

TEST_F(ClipMenuTest, severalFilesArePastedTogetherOnlyWhenAllAreThere)
{
    const QStringList files = addFiles({QStringLiteral("a"), QStringLiteral("b")});
    open();
    EXPECT_EQ(controller->fileCount(0), 2);
    EXPECT_EQ(controller->fileViewController().copiedFiles()->toPlainText(), files.join(u'\n'));
    QTest::keyClick(field, Qt::Key_F10, Qt::ShiftModifier);
    const auto *all = menu()->findChild<QAction *>(QStringLiteral("pasteAllFiles"));
    ASSERT_TRUE(all);
    EXPECT_TRUE(QTest::qWaitFor([all] { return all->isEnabled(); }));
    EXPECT_TRUE(all->text().startsWith(QStringLiteral("Paste all 2 files")));
    trigger("pasteAllFiles");
    EXPECT_EQ(memory.pasteboard.contents()->fileNames, files);
    EXPECT_EQ(memory.pasteboard.contents()->text, files.join(u'\n'));

    open();
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(memory.pasteboard.contents()->fileNames, files.mid(0, 1)) << "the first alone";
    open();
    QTest::keyClick(field, Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(memory.pasteboard.contents()->fileNames, files) << "by the key";

    ASSERT_TRUE(QFile::remove(files.last()));
    open();
    bool isAnswered = false;
    controller->askCopiedFilesExist(controller, [&](bool exist) {
        isAnswered = true;
        EXPECT_FALSE(exist);
    });
    EXPECT_TRUE(QTest::qWaitFor([&] { return isAnswered; }));
    controller->hide();
    add(QStringLiteral("b"), QStringLiteral("/tmp/b"));
    open();
    EXPECT_TRUE(controller->fileViewController().copiedFiles()->isHidden());
}

TEST_F(ClipMenuTest, theCopyKeyCopiesTheClipUnlessTheFieldHasSomething)
{
    add(QStringLiteral("clip"));
    open();
    QTest::keyClicks(field, QStringLiteral("cl"));
    field->selectAll();
    QTest::keyClick(field, Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(delegate.window()->isVisible());
    EXPECT_EQ(memory.pasteboard.contents(), std::nullopt);
    field->deselect();
    QTest::keyClick(field, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(memory.pasteboard.contents()->text, QStringLiteral("clip"));
    EXPECT_FALSE(delegate.window()->isVisible());
    EXPECT_EQ(delegate.getClipItemArr().front()->pasteCount(), std::nullopt);
}

TEST_F(ClipMenuTest, digitsPasteTheRowsThatAreSeen)
{
    struct Row
    {
        const char *name;
        int key;
        Qt::KeyboardModifiers modifiers;
        int rowsScrolled;
        const char *pasted; ///< Null when nothing is.
        quint32 scanCode = 0;
    };
    const Row kRows[] = {
        {"the first", Qt::Key_1, Qt::AltModifier, 0, "1"},
        {"the tenth", Qt::Key_0, Qt::AltModifier, 0, "10"},
        {"by Ctrl", Qt::Key_3, Qt::ControlModifier, 0, "3"},
        {"on the keypad", Qt::Key_4, Qt::AltModifier | Qt::KeypadModifier, 0, "4"},
        {"scrolled", Qt::Key_2, Qt::AltModifier, 7, "9"},
        {"scrolled to the end", Qt::Key_1, Qt::AltModifier, 100, "the first that is seen"},
        {"a digit behind Shift", Qt::Key_Ampersand, Qt::AltModifier, 0, "1", 10},
        {"with more held", Qt::Key_1, Qt::AltModifier | Qt::ControlModifier, 0, nullptr},
        {"alone", Qt::Key_1, Qt::NoModifier, 0, nullptr},
    };
    for (const Row &row : kRows) {
        for (QWidget *keyboard : std::initializer_list<QWidget *>{field, table}) {
            // What was pasted last is recorded by now.
            open();
            delegate.clearAll();
            for (int i = 40; i > 0; --i)
                add(QString::number(i));
            controller->selectRow(0);
            table->verticalScrollBar()->setValue(row.rowsScrolled * table->rowHeight(0));
            QString expected = QLatin1String(row.pasted ? row.pasted : "");
            if (row.rowsScrolled == 100)
                expected = QString::number(40 - table->rowsPerPage() + 1);
            const qsizetype typed = memory.keySender.sent().size();
            QKeyEvent press(QEvent::KeyPress, row.key, row.modifiers, row.scanCode, 0, 0);
            QCoreApplication::sendEvent(keyboard, &press);
            EXPECT_EQ(memory.keySender.sent().size() - typed, row.pasted ? 1 : 0) << row.name;
            if (row.pasted) {
                EXPECT_EQ(memory.pasteboard.contents()->text, expected) << row.name;
            }
            controller->hide();
        }
    }
    open();
    delegate.maxItemsModified(1);
    QTest::keyClick(field, Qt::Key_2, Qt::AltModifier);
    EXPECT_TRUE(delegate.window()->isVisible()) << "no such row";
}

TEST_F(ClipMenuTest, rowsShowKeyCapsWhileAltIsHeldAndWhatIsFound)
{
    addAll({QStringLiteral("bittern"), QStringLiteral("a bittern here")});
    open();
    const auto picture = [this] { return table->viewport()->grab().toImage(); };
    const QImage plain = picture();
    QTest::keyPress(field, Qt::Key_Alt, Qt::AltModifier);
    EXPECT_NE(picture(), plain);
    QTest::keyRelease(field, Qt::Key_Alt);
    EXPECT_EQ(picture(), plain);
    QTest::keyPress(field, Qt::Key_Alt, Qt::AltModifier);
    controller->hide();
    open();
    EXPECT_EQ(picture(), plain) << "let go elsewhere";

    QTest::keyClicks(field, QStringLiteral("TERN"));
    const QImage found = picture();
    EXPECT_NE(found, plain);
    const QRgb ground = ClipColors::ofPalette(QApplication::palette()).match.rgb();
    int marked = 0;
    for (int y = 0; y < found.height(); ++y)
        for (int x = 0; x < found.width(); ++x)
            marked += found.pixel(x, y) == ground ? 1 : 0;
    EXPECT_GT(marked, 20);
    EXPECT_EQ(controller->textView()->extraSelections().size(), 1);
    field->clear();
    EXPECT_EQ(picture(), plain);
    EXPECT_TRUE(controller->textView()->extraSelections().isEmpty());
}

} // namespace
