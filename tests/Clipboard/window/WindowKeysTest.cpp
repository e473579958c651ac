#include "Clipboard/window/FileViewController.h"
#include "Clipboard/window/PathLabel.h"
#include "Clipboard/window/SearchFieldDelegate.h"
#include "WindowRig.h"
#include "looks/PaneButton.h"

#include <QKeyEvent>
#include <QSignalSpy>

namespace {

using WindowKeysTest = WindowRig;

constexpr Qt::KeyboardModifiers kNone = Qt::NoModifier;
constexpr Qt::KeyboardModifiers kShift = Qt::ShiftModifier;
constexpr Qt::KeyboardModifiers kAlt = Qt::AltModifier;
constexpr Qt::KeyboardModifiers kCtrl = Qt::ControlModifier;
constexpr Qt::KeyboardModifiers kSuper = Qt::MetaModifier;

struct PasteKey
{
    const char *name;
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    const char *fromField;
    const char *fromTable;
    quint32 nativeModifiers = 0;
    bool isPlain = false; ///< Without RTF and HTML.
};

/// The bit of the Lock modifier in an event of the X server.
constexpr quint32 kCapsLock = 0x2;

/// The two ways to paste differ on purpose; each row pastes "Two".
const PasteKey kPasteKeys[] = {
    {"Return", Qt::Key_Return, kNone, "Two", "Two"},
    {"keypad Enter", Qt::Key_Enter, Qt::KeypadModifier, "Two", "Two"},
    {"Shift-Return", Qt::Key_Return, kShift, "TWO", "TWO"},
    {"Shift and keypad Enter", Qt::Key_Enter, kShift | Qt::KeypadModifier, "TWO", "TWO"},
    {"Option-Return", Qt::Key_Return, kAlt, "two", "Two"},
    {"Shift-Option-Return", Qt::Key_Return, kShift | kAlt, "two", "two"},
    {"Shift-Control-Return", Qt::Key_Return, kShift | kCtrl, "Two", "TWO"},
    {"Shift-Command-Return", Qt::Key_Return, kShift | kSuper, "Two", "TWO"},
    {"Command-Return", Qt::Key_Return, kSuper, "Two", "Two"},
    {"Return with Caps Lock", Qt::Key_Return, kNone, "Two", "Two", kCapsLock},
    {"Shift-Return with Caps Lock", Qt::Key_Return, kShift, "Two", "TWO", kCapsLock},
    {"Option-Return with Caps Lock", Qt::Key_Return, kAlt, "two", "Two", kCapsLock},
    {"Control-Shift-V", Qt::Key_V, kCtrl | kShift, "Two", "Two", 0, true},
    {"Control-Shift-V with Caps Lock", Qt::Key_V, kCtrl | kShift, "Two", "Two", kCapsLock, true},
};

TEST_F(WindowKeysTest, returnPastesInTheCaseThatItsModifiersSay)
{
    addAll({QStringLiteral("Three"), QStringLiteral("Two"), QStringLiteral("One")});
    for (const PasteKey &row : kPasteKeys) {
        for (const bool isTable : {false, true}) {
            delegate.launch();
            // What was pasted last stands above it, in another case perhaps.
            for (int i = 0; i < 4 && selected() != u"Two"; ++i)
                controller->next();
            QKeyEvent press(QEvent::KeyPress, row.key, row.modifiers, 0, 0, row.nativeModifiers);
            QCoreApplication::sendEvent(isTable ? static_cast<QWidget *>(table) : field, &press);
            EXPECT_EQ(memory.pasteboard.contents()->text,
                      QLatin1String(isTable ? row.fromTable : row.fromField))
                << row.name << (isTable ? " in the table" : " in the field");
            EXPECT_EQ(memory.pasteboard.contents()->offer == Copy::Offer::PlainText, row.isPlain)
                << row.name;
            EXPECT_FALSE(delegate.window()->isVisible()) << row.name;
        }
    }
}

TEST_F(WindowKeysTest, aKeyBehindLettersActsOnWhatTheyFind)
{
    const QString found = QString(6'000'000, u'x') + QStringLiteral(" needle");
    addAll({found, QStringLiteral("newest")});
    struct
    {
        const char *letters;
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
    } const kKeys[] = {{"dle", Qt::Key_Return, kNone},
                       {"edle", Qt::Key_C, kCtrl},
                       {"eedle", Qt::Key_1, kAlt},
                       {"needle", Qt::Key_V, kCtrl | kShift}};
    for (const auto &row : kKeys) {
        add(QString::number(row.key));
        delegate.launch();
        const qsizetype count = listed().size();
        EXPECT_GT(count, 1);
        field->setText(QLatin1String(row.letters));
        EXPECT_EQ(listed().size(), count) << row.letters << " are still being sought";
        QKeyEvent press(QEvent::KeyPress, row.key, row.modifiers);
        QCoreApplication::sendEvent(field, &press);
        EXPECT_TRUE(memory.pasteboard.contents()->text == found) << row.letters;
    }
    delegate.launch();
    field->setText(QStringLiteral("x need"));
    EXPECT_GT(listed().size(), 1);
    QTRY_COMPARE(listed().size(), 1);
    EXPECT_TRUE(delegate.getSelectedItem()->strValue() == found);
    EXPECT_TRUE(controller->found() == FoundPlaces(QStringLiteral("x need")));
}

struct MoveKey
{
    const char *name;
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    int fromField; ///< Row after the key, starting from row 20 of 40.
    int fromTable;
};

TEST_F(WindowKeysTest, keysMoveTheSelectionAlike)
{
    for (int i = 40; i > 0; --i)
        add(QString::number(i));
    delegate.launch();
    const int page = table->rowsPerPage();
    ASSERT_GT(page, 5);
    const MoveKey kRows[] = {
        {"Up", Qt::Key_Up, kNone, 19, 19},
        {"Down", Qt::Key_Down, kNone, 21, 21},
        {"Shift-Down", Qt::Key_Down, kShift, 21, 21},
        {"Command-Up", Qt::Key_Up, kSuper, 19, 19},
        {"Ctrl-N", Qt::Key_N, kCtrl, 21, 21},
        {"Ctrl-P", Qt::Key_P, kCtrl, 19, 19},
        {"Page Down", Qt::Key_PageDown, kNone, 20 + page, 20 + page},
        {"Page Up", Qt::Key_PageUp, kNone, 20 - page, 20 - page},
        {"Home", Qt::Key_Home, kNone, 0, 0},
        {"Ctrl-End", Qt::Key_End, kCtrl, 39, 39},
        {"Shift-Home marks text", Qt::Key_Home, kShift, 20, 20},
    };
    for (const MoveKey &row : kRows) {
        for (const bool isTable : {false, true}) {
            controller->selectRow(20);
            QTest::keyClick(isTable ? static_cast<QWidget *>(table) : field, row.key,
                            row.modifiers);
            EXPECT_EQ(table->selectedIdx(), isTable ? row.fromTable : row.fromField)
                << row.name << (isTable ? " in the table" : " in the field");
        }
    }
}

struct DeleteKey
{
    const char *name;
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    bool fromField;
    bool fromTable;
};

TEST_F(WindowKeysTest, onlyCommandBackspaceDeletesAClip)
{
    const DeleteKey kRows[] = {
        {"Command-Backspace", Qt::Key_Backspace, kSuper, true, true},
        {"Backspace", Qt::Key_Backspace, kNone, false, false},
        {"Ctrl-Backspace", Qt::Key_Backspace, kCtrl, false, false},
        {"Shift-Delete", Qt::Key_Delete, kShift, false, false},
        {"Delete", Qt::Key_Delete, kNone, false, false},
        {"Command-Shift-Backspace", Qt::Key_Backspace, kSuper | kShift, true, true},
    };
    for (const DeleteKey &row : kRows) {
        for (const bool isTable : {false, true}) {
            delegate.clearAll();
            addAll({QStringLiteral("a"), QStringLiteral("b")});
            delegate.launch();
            QTest::keyClick(isTable ? static_cast<QWidget *>(table) : field, row.key,
                            row.modifiers);
            EXPECT_EQ(listed().size(), (isTable ? row.fromTable : row.fromField) ? 1 : 2)
                << row.name << (isTable ? " in the table" : " in the field");
            controller->hide();
        }
    }
}

TEST_F(WindowKeysTest, theFieldKeepsItsOwnEditingKeys)
{
    add(QStringLiteral("two words"));
    open();
    QTest::keyClicks(field, QStringLiteral("two words"));
    QTest::keyClick(field, Qt::Key_Backspace, kCtrl);
    EXPECT_EQ(field->text(), QStringLiteral("two "));
    QTest::keyClick(field, Qt::Key_Home);
    EXPECT_EQ(field->cursorPosition(), 0) << "Home edits while there is text";
    EXPECT_EQ(table->selectedIdx(), 0);
}

TEST_F(WindowKeysTest, aCommandIsTakenEvenWithoutAController)
{
    SearchFieldDelegate orphan(nullptr);
    for (const char *command : {"moveUp:", "moveDown:", "insertNewline:", "cancelOperation:",
                                "insertNewlineIgnoringFieldEditor:", "deleteToBeginningOfLine:"})
        EXPECT_TRUE(orphan.control(QLatin1String(command), 0)) << command;
    EXPECT_FALSE(orphan.control(QStringLiteral("deleteBackward:"), 0));
}

TEST_F(WindowKeysTest, escapeClosesFromEveryControl)
{
    add(QStringLiteral("a"));
    for (QWidget *control : std::initializer_list<QWidget *>{field, table, controller->textView(),
                                                             delegate.window()}) {
        delegate.launch();
        QTest::keyClicks(field, QStringLiteral("a"));
        QTest::keyClick(control, Qt::Key_Escape);
        EXPECT_FALSE(delegate.window()->isVisible());
        EXPECT_EQ(field->text(), QString());
        EXPECT_FALSE(controller->isWindowKey());
    }
}

TEST_F(WindowKeysTest, commandWClosesAndCommandQQuits)
{
    add(QStringLiteral("a"));
    open();
    QTest::keyClick(field, Qt::Key_W, kSuper);
    EXPECT_FALSE(delegate.window()->isVisible());
    open();
    QTimer::singleShot(0, field, [this] { QTest::keyClick(field, Qt::Key_Q, kSuper); });
    // Ends only because the key asks for it.
    EXPECT_EQ(QCoreApplication::exec(), 0);
}

TEST_F(WindowKeysTest, lettersTypedElsewhereGoToTheSearchField)
{
    addAll({QStringLiteral("apple"), QStringLiteral("pear")});
    open();
    table->setFocus();
    QTest::keyClick(table, Qt::Key_P);
    EXPECT_EQ(field->text(), QStringLiteral("p"));
    controller->textView()->setFocus();
    QTest::keyClick(controller->textView(), Qt::Key_E);
    EXPECT_EQ(field->text(), QStringLiteral("pe"));
    EXPECT_EQ(listed(), QStringList{QStringLiteral("pear")});
    EXPECT_TRUE(field->hasFocus());
}

TEST_F(WindowKeysTest, besideAFileTheKeysActAsInTheSearchField)
{
    memory.workspace.addFile(QStringLiteral("/tmp/a.txt"));
    add(QStringLiteral("below"));
    add(QStringLiteral("a.txt"), QStringLiteral("/tmp/a.txt"));
    const FileViewController &pane = controller->fileViewController();
    for (QWidget *control : std::initializer_list<QWidget *>{
             pane.filepathLabel(), pane.openButton(), pane.revealInFinderButton()}) {
        SCOPED_TRACE(control->accessibleName().toStdString());
        open();
        ASSERT_TRUE(QTest::qWaitFor([control] { return control->isVisible(); }));
        control->setFocus();
        QTest::keyClick(control, Qt::Key_B);
        EXPECT_EQ(field->text(), QStringLiteral("b"));
        EXPECT_TRUE(field->hasFocus());
        field->clear();
        control->setFocus();
        QTest::keyClick(control, Qt::Key_Down);
        EXPECT_EQ(selected(), QStringLiteral("below"));
        delegate.viewController()->hide();
    }
    open();
    pane.filepathLabel()->setFocus();
    QTest::keyClick(pane.filepathLabel(), Qt::Key_V, kCtrl | kShift);
    EXPECT_EQ(memory.pasteboard.contents()->fileNames, QStringList{QStringLiteral("/tmp/a.txt")});
    open();
    pane.filepathLabel()->setFocus();
    QTest::keyClick(pane.filepathLabel(), Qt::Key_Return);
    EXPECT_EQ(memory.pasteboard.contents()->text, QStringLiteral("a.txt"));
}

TEST_F(WindowKeysTest, theMouseSelectsAndADoubleClickPastes)
{
    addAll({QStringLiteral("c"), QStringLiteral("b"), QStringLiteral("a")});
    delegate.launch();
    const auto centre = [this](int row) {
        return table->visualRect(table->model()->index(row, 1)).center();
    };
    QTest::mouseClick(table->viewport(), Qt::LeftButton, kNone, centre(1));
    EXPECT_EQ(selected(), QStringLiteral("b"));
    const QPoint below(centre(2) + QPoint(0, 100));
    QTest::mouseClick(table->viewport(), Qt::LeftButton, kNone, below);
    QTest::mouseDClick(table->viewport(), Qt::LeftButton, kNone, below);
    EXPECT_EQ(selected(), QStringLiteral("b")) << "empty space below the last row";
    QTest::mousePress(table->viewport(), Qt::LeftButton, kNone, centre(1));
    QTest::mouseMove(table->viewport(), centre(0));
    QTest::mouseRelease(table->viewport(), Qt::LeftButton, kNone, centre(0));
    EXPECT_EQ(selected(), QStringLiteral("b")) << "a drag";
    QTest::mouseDClick(table->viewport(), Qt::LeftButton, kNone, centre(2));
    EXPECT_EQ(memory.pasteboard.contents()->text, QStringLiteral("c"));
    EXPECT_FALSE(delegate.window()->isVisible());
}

TEST_F(WindowKeysTest, tabStaysInTheWindow)
{
    addAll({QStringLiteral("b"), QStringLiteral("a")});
    open();
    for (int i = 0; i < 8; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        ASSERT_TRUE(QApplication::focusWidget());
        EXPECT_EQ(QApplication::focusWidget()->window(), delegate.window());
        EXPECT_EQ(table->selectedIdx(), 0);
    }
}

} // namespace
