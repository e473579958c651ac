#include "Clipboard/window/ClipInfoLine.h"
#include "Clipboard/window/PreviewPane.h"
#include "WindowRig.h"

namespace {

/// Six clips, "f" the oldest.
class ClipMarksTest : public WindowRig
{
protected:
    ClipMarksTest()
    {
        addAll({QStringLiteral("f"), QStringLiteral("e"), QStringLiteral("d"), QStringLiteral("c"),
                QStringLiteral("b"), QStringLiteral("a")});
        open();
    }

    QString marked() const
    {
        QStringList texts;
        for (const auto &item : controller->markedClips())
            texts.append(item->strValue().value_or(QString()));
        return texts.join(QString());
    }

    QString shown() const { return controller->textView()->toPlainText(); }

    void click(int row, Qt::KeyboardModifiers modifiers)
    {
        QTest::mouseClick(table->viewport(), Qt::LeftButton, modifiers,
                          table->visualRect(table->model()->index(row, 1)).center());
    }
};

struct Step
{
    enum Kind { Up, Down, ShiftUp, ShiftDown, Click, CtrlClick, Type } kind;
    int row = 0;
};

struct Marking
{
    const char *name;
    int from;
    QList<Step> steps;
    const char *marked;
    const char *shown; ///< The selected one.
};

TEST_F(ClipMarksTest, keysAndClicksMarkInTheirOrder)
{
    using S = Step;
    const Marking kRows[] = {
        {"nothing", 1, {}, "b", "b"},
        {"downwards", 1, {{S::ShiftDown}, {S::ShiftDown}}, "bcd", "d"},
        {"upwards", 3, {{S::ShiftUp}, {S::ShiftUp}}, "dcb", "b"},
        {"back by one", 1, {{S::ShiftDown}, {S::ShiftDown}, {S::ShiftUp}}, "bc", "c"},
        {"back to where it began", 1, {{S::ShiftDown}, {S::ShiftUp}}, "b", "b"},
        {"beyond where it began", 1, {{S::ShiftDown}, {S::ShiftUp}, {S::ShiftUp}}, "ba", "a"},
        {"beyond the end", 4, {{S::ShiftDown}, {S::ShiftDown}}, "ef", "f"},
        {"beyond the beginning alone", 0, {{S::ShiftUp}}, "a", "a"},
        {"by clicks", 0, {{S::CtrlClick, 4}, {S::CtrlClick, 2}}, "aec", "c"},
        {"a click takes a mark",
         0,
         {{S::CtrlClick, 4}, {S::CtrlClick, 2}, {S::CtrlClick, 4}},
         "ac",
         "c"},
        {"of two a click leaves one", 0, {{S::CtrlClick, 4}, {S::CtrlClick, 0}}, "e", "e"},
        {"on the selected one it does nothing", 2, {{S::CtrlClick, 2}}, "c", "c"},
        {"both ways", 0, {{S::CtrlClick, 3}, {S::ShiftDown}}, "ade", "e"},
        {"across a marked one", 0, {{S::CtrlClick, 2}, {S::ShiftUp}, {S::ShiftUp}}, "acb", "a"},
        {"an arrow ends it", 1, {{S::ShiftDown}, {S::Down}}, "d", "d"},
        {"so does a click", 1, {{S::ShiftDown}, {S::Click, 0}}, "a", "a"},
        {"and a search", 1, {{S::ShiftDown}, {S::Type}}, "e", "e"},
    };
    for (const Marking &row : kRows) {
        for (QWidget *keyboard : std::initializer_list<QWidget *>{field, table}) {
            controller->clearSearch();
            controller->selectRow(row.from);
            for (const Step &step : row.steps) {
                switch (step.kind) {
                case S::Up:
                case S::Down:
                    QTest::keyClick(keyboard, step.kind == S::Up ? Qt::Key_Up : Qt::Key_Down);
                    break;
                case S::ShiftUp:
                case S::ShiftDown:
                    QTest::keyClick(keyboard, step.kind == S::ShiftUp ? Qt::Key_Up : Qt::Key_Down,
                                    Qt::ShiftModifier);
                    break;
                case S::Click:
                case S::CtrlClick:
                    click(step.row, step.kind == S::Click ? Qt::NoModifier : Qt::ControlModifier);
                    break;
                case S::Type:
                    QTest::keyClick(field, Qt::Key_E);
                    break;
                }
            }
            EXPECT_EQ(marked(), QLatin1String(row.marked)) << row.name;
            EXPECT_EQ(shown(), QLatin1String(row.shown)) << row.name;
            const auto count = static_cast<int>(marked().size());
            EXPECT_EQ(controller->markCount(), count > 1 ? count : 0) << row.name;
            EXPECT_EQ(table->selectionModel()->selectedRows().size(), count) << row.name;
        }
    }
}

TEST_F(ClipMarksTest, returnPastesTheMarkedOnesInTheirOrder)
{
    controller->selectRow(2);
    controller->markPrevious();
    controller->toggleMark(4);
    EXPECT_TRUE(
        controller->textFieldView()->infoLine()->text().startsWith(QStringLiteral("3 marked")));
    const std::vector<std::shared_ptr<ClipItem>> clips = controller->markedClips();
    QTest::keyClick(field, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(memory.pasteboard.contents()->text, QStringLiteral("C\nB\nE"));
    EXPECT_EQ(memory.keySender.sent().size(), 1);
    for (const auto &item : clips)
        EXPECT_EQ(item->pasteCount(), 0);
    EXPECT_EQ(controller->markCount(), 0) << "the next opening is fresh";
}

TEST_F(ClipMarksTest, theMarkedOnesAreDeletedAtOnceAndFollowTheirClips)
{
    controller->selectRow(3);
    controller->markPrevious();
    controller->toggleMark(5);
    add(QStringLiteral("new"));
    EXPECT_EQ(marked(), QStringLiteral("dcf")) << "a copy arrives";
    delegate.deleteItem(controller->markedClips().front());
    EXPECT_EQ(marked(), QStringLiteral("cf")) << "one goes";
    QTest::keyClick(field, Qt::Key_Backspace, Qt::MetaModifier);
    EXPECT_EQ(listed(), (QStringList{QStringLiteral("new"), QStringLiteral("a"),
                                     QStringLiteral("b"), QStringLiteral("e")}));
    EXPECT_EQ(selected(), QStringLiteral("e")) << "where the first of them was";
}

} // namespace
