#include "looks/FieldPasteboard.h"
#include "looks/FieldMenu.h"

#include "looks/ToolkitClipboard.h"
#include "platform/memory/MemoryPasteboard.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace {

using Selection = Pasteboard::Selection;

struct KindRow
{
    const char *name;
    std::function<QWidget *(const QString &)> make;
    std::function<QString(const QWidget &)> text;
};

const KindRow kLine{
    "line", [](const QString &text) { return new QLineEdit(text); },
    [](const QWidget &widget) { return static_cast<const QLineEdit &>(widget).text(); }};
const KindRow kEdit{"edit", [](const QString &text) { return new QPlainTextEdit(text); },
                    [](const QWidget &widget) {
                        return static_cast<const QPlainTextEdit &>(widget).toPlainText();
                    }};

class FieldPasteboardTest : public testing::TestWithParam<KindRow>
{
protected:
    void open(const QString &text)
    {
        m_widget.reset(GetParam().make(text));
        m_widget->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(m_widget.get()));
    }
    QString text() const { return GetParam().text(*m_widget); }
    std::unique_ptr<TextField> field() const { return TextField::of(m_widget.get()); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier)
    {
        QTest::keyClick(m_widget.get(), key, modifiers);
    }
    void copyElsewhere(const QString &text) { m_pasteboard.copyFromOutside({{text}}); }
    QWidget *target() const
    {
        auto *area = qobject_cast<QAbstractScrollArea *>(m_widget.get());
        return area ? area->viewport() : m_widget.get();
    }
    QPoint middle() const { return {12, target()->height() > 60 ? 12 : target()->height() / 2}; }

    MemoryPasteboard m_pasteboard;
    FieldPasteboard m_fields{m_pasteboard};
    ToolkitClipboard m_toolkit;
    std::unique_ptr<QWidget> m_widget;
};

TEST_P(FieldPasteboardTest, copiesCutsAndPastesByEveryKey)
{
    open(QStringLiteral("one two"));
    field()->select({4, 7});
    press(Qt::Key_C);
    EXPECT_EQ(m_pasteboard.contents()->text, QStringLiteral("two"));
    press(Qt::Key_Delete, Qt::ShiftModifier);
    EXPECT_EQ(text(), QStringLiteral("one "));
    copyElsewhere(QStringLiteral("three"));
    press(Qt::Key_V);
    press(Qt::Key_Insert, Qt::ShiftModifier);
    EXPECT_EQ(text(), QStringLiteral("one threethree"));
    m_pasteboard.markOutside(QStringLiteral("!"));
    press(Qt::Key_Insert, Qt::ShiftModifier | Qt::ControlModifier);
    EXPECT_EQ(text(), QStringLiteral("one threethree!"));
    EXPECT_EQ(m_pasteboard.writes().size(), 2);
}

TEST_P(FieldPasteboardTest, aPasteIsAStepOfUndoOfItsOwn)
{
    open({});
    QTest::keyClicks(m_widget.get(), QStringLiteral("ab"));
    copyElsewhere(QStringLiteral("cd"));
    press(Qt::Key_V);
    press(Qt::Key_Z);
    EXPECT_EQ(text(), QStringLiteral("ab"));
}

TEST_P(FieldPasteboardTest, aHungOwnerHoldsUpNothingAndALateAnswerIsPastedOnce)
{
    open(QStringLiteral("a"));
    m_pasteboard.setOwnersHang(true);
    press(Qt::Key_End, Qt::NoModifier);
    press(Qt::Key_V);
    QTest::keyClicks(m_widget.get(), QStringLiteral("b"));
    EXPECT_EQ(text(), QStringLiteral("ab"));
    m_pasteboard.answerNow(QStringLiteral("late"));
    EXPECT_EQ(text(), QStringLiteral("ablate"));
    press(Qt::Key_V);
    m_pasteboard.answerNow(std::nullopt);
    EXPECT_EQ(text(), QStringLiteral("ablate"));
    // Whoever has closed the window wants nothing in it any more.
    press(Qt::Key_V);
    m_widget->hide();
    m_pasteboard.answerNow(QStringLiteral("too late"));
    EXPECT_EQ(text(), QStringLiteral("ablate"));
    EXPECT_TRUE(m_toolkit.isUntouched());
}

TEST_P(FieldPasteboardTest, whatIsMarkedByMouseIsOfferedAndTheMiddleButtonPastesIt)
{
    open(QStringLiteral("word and more"));
    QTest::mouseDClick(target(), Qt::LeftButton, {}, middle());
    QTest::mouseRelease(target(), Qt::LeftButton, {}, middle());
    EXPECT_EQ(m_pasteboard.markedText(), QStringLiteral("word"));
    EXPECT_EQ(field()->selectedText(), QStringLiteral("word"));
    // The third click of a triple one marks the line.
    QTest::mouseClick(target(), Qt::LeftButton, {}, middle());
    EXPECT_EQ(m_pasteboard.markedText(), QStringLiteral("word and more"));

    m_pasteboard.markOutside(QStringLiteral("theirs "));
    QTest::mouseRelease(target(), Qt::MiddleButton, {}, QPoint(1, middle().y()));
    EXPECT_EQ(text(), QStringLiteral("theirs word and more"));
    EXPECT_TRUE(m_toolkit.isUntouched());
}

TEST_P(FieldPasteboardTest, whatIsMarkedByKeysIsOffered)
{
    struct Row
    {
        const char *name;
        TextField::Range before;
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        QString marked;
    };
    open(QStringLiteral("one two three"));
    for (const Row &row :
         {Row{"a letter", {4, 4}, Qt::Key_Right, Qt::ShiftModifier, QStringLiteral("t")},
          Row{"another one", {4, 5}, Qt::Key_Right, Qt::ShiftModifier, QStringLiteral("tw")},
          Row{"back", {4, 4}, Qt::Key_Left, Qt::ShiftModifier, QStringLiteral(" ")},
          Row{"a word",
              {4, 4},
              Qt::Key_Right,
              Qt::ShiftModifier | Qt::ControlModifier,
              QStringLiteral("two ")},
          Row{"to the begin", {4, 4}, Qt::Key_Home, Qt::ShiftModifier, QStringLiteral("one ")},
          Row{"to the end", {8, 8}, Qt::Key_End, Qt::ShiftModifier, QStringLiteral("three")},
          Row{"all", {0, 0}, Qt::Key_A, Qt::ControlModifier, QStringLiteral("one two three")}}) {
        SCOPED_TRACE(row.name);
        field()->select(row.before);
        press(row.key, row.modifiers);
        EXPECT_EQ(field()->selectedText(), row.marked);
        EXPECT_EQ(m_pasteboard.markedText(), row.marked);
    }
    EXPECT_TRUE(m_toolkit.isUntouched());
}

TEST_P(FieldPasteboardTest, aClickIntoWhatIsMarkedUnmarksIt)
{
    open(QStringLiteral("word"));
    field()->selectAll();
    QTest::mouseClick(target(), Qt::LeftButton, {}, middle());
    EXPECT_EQ(field()->selectedText(), QString());
    EXPECT_EQ(m_pasteboard.markedText(), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(All, FieldPasteboardTest, testing::Values(kLine, kEdit),
                         [](const auto &row) { return std::string(row.param.name); });

TEST(FieldPasteboard, keysThatItHasNoUseForAreLeftToTheField)
{
    struct Filter : QObject
    {
        int copies = 0;
        int menus = 0;
        bool eventFilter(QObject *, QEvent *event) override
        {
            copies += event->type() == QEvent::KeyPress &&
                              static_cast<QKeyEvent *>(event)->matches(QKeySequence::Copy)
                          ? 1
                          : 0;
            menus += event->type() == QEvent::ContextMenu ? 1 : 0;
            return event->type() == QEvent::ContextMenu;
        }
    };
    MemoryPasteboard pasteboard;
    const FieldPasteboard fields(pasteboard);
    QLineEdit line(QStringLiteral("text"));
    Filter filter;
    line.installEventFilter(&filter);
    line.setProperty(FieldMenu::kOwnKeyboardMenu, true);
    QTest::keyClick(&line, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(filter.copies, 1) << "nothing is marked";
    line.selectAll();
    QTest::keyClick(&line, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(filter.copies, 1);
    EXPECT_EQ(pasteboard.contents()->text, QStringLiteral("text"));
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QCoreApplication::sendEvent(&line, &byKey);
    EXPECT_EQ(filter.menus, 1);
}

TEST(FieldPasteboard, aFieldsOwnUndoIsLeftToIt)
{
    MemoryPasteboard pasteboard;
    const FieldPasteboard fields(pasteboard);
    // As whoever takes the key would.
    class Taker : public QObject
    {
        bool eventFilter(QObject *, QEvent *event) override
        {
            return event->type() == QEvent::KeyPress &&
                   static_cast<QKeyEvent *>(event)->matches(QKeySequence::Undo);
        }
    } taker;
    QLineEdit line;
    line.installEventFilter(&taker);
    QTest::keyClicks(&line, QStringLiteral("text"));
    line.setProperty(FieldPasteboard::kOwnUndo, true);
    QTest::keyClick(&line, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(line.text(), QStringLiteral("text"));
    line.setProperty(FieldPasteboard::kOwnUndo, false);
    QTest::keyClick(&line, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(line.text(), QString());
}

TEST(FieldPasteboard, hiddenTextNeverLeaves)
{
    MemoryPasteboard pasteboard;
    const FieldPasteboard fields(pasteboard);
    QLineEdit password(QStringLiteral("hunter2"));
    password.setEchoMode(QLineEdit::Password);
    password.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&password));
    password.selectAll();
    QTest::keyClick(&password, Qt::Key_C, Qt::ControlModifier);
    QTest::keyClick(&password, Qt::Key_X, Qt::ControlModifier);
    QTest::mouseDClick(&password, Qt::LeftButton, {}, QPoint(12, password.height() / 2));
    QTest::mouseRelease(&password, Qt::LeftButton, {}, QPoint(12, password.height() / 2));
    EXPECT_EQ(pasteboard.writes().size(), 0);
    EXPECT_EQ(pasteboard.markedText(), std::nullopt);
    EXPECT_EQ(password.text(), QStringLiteral("hunter2"));
}

} // namespace
