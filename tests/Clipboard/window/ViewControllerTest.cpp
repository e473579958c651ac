#include "Clipboard/window/ClipboardView.h"
#include "Clipboard/window/EmptyStateView.h"
#include "Clipboard/window/FileViewController.h"
#include "Clipboard/window/HistoryActions.h"
#include "Clipboard/window/NoticeLine.h"
#include "Clipboard/window/PreviewPane.h"
#include "Clipboard/window/SplitViewDelegate.h"
#include "WindowRig.h"
#include "history/SwopState.h"

#include <QApplication>
#include <QLabel>
#include <QSplitter>
#include <QWindow>

#include <ostream>

static std::ostream &operator<<(std::ostream &out, const QString &text)
{
    return out << text.toStdString();
}

namespace {

using ViewControllerTest = WindowRig;

const QStringList kThree{QStringLiteral("c"), QStringLiteral("b"), QStringLiteral("a")};

TEST_F(ViewControllerTest, theListIsNewestFirstWithRunningNumbers)
{
    addAll(kThree);
    open();
    EXPECT_EQ(listed(),
              (QStringList{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}));
    EXPECT_EQ(table->model()->index(0, 0).data().toString(), QStringLiteral("  1"));
    EXPECT_EQ(table->model()->index(2, 0).data().toString(), QStringLiteral("  3"));
    EXPECT_EQ(selected(), QStringLiteral("a"));
    EXPECT_TRUE(field->hasFocus());
}

TEST_F(ViewControllerTest, rowsOutsideTheListAreClampedAndNothingWraps)
{
    addAll(kThree);
    delegate.launch();
    controller->previous();
    EXPECT_EQ(table->selectedIdx(), 0);
    controller->selectRow(99);
    EXPECT_EQ(table->selectedIdx(), 2);
    controller->next();
    EXPECT_EQ(table->selectedIdx(), 2);
    controller->selectRow(-7);
    EXPECT_EQ(table->selectedIdx(), 0);
    EXPECT_EQ(controller->tableView(ViewController::TableColumn::Value, 3), std::nullopt);
    EXPECT_EQ(controller->tableView(ViewController::TableColumn::Value, -1), std::nullopt);
}

TEST_F(ViewControllerTest, anEmptyHistoryShowsItsStateAndNoPreview)
{
    delegate.launch();
    EXPECT_EQ(table->selectedIdx(), -1);
    EXPECT_EQ(delegate.getSelectedItem(), nullptr);
    EXPECT_TRUE(controller->textView()->toPlainText().isEmpty());
    EXPECT_FALSE(controller->fileViewController().view()->isVisible());
    const EmptyStateView &state = *controller->emptyStateView();
    EXPECT_TRUE(state.isVisible());
    EXPECT_TRUE(state.hint().contains(QStringLiteral("⇧⌘V (Super + Shift + V)"))) << state.hint();
    // No key of the list may fail on nothing.
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageDown, Qt::Key_End})
        QTest::keyClick(field, key);
    QTest::keyClick(field, Qt::Key_Backspace, Qt::MetaModifier);
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_TRUE(delegate.window()->isVisible());
    EXPECT_TRUE(memory.keySender.sent().isEmpty());
}

TEST_F(ViewControllerTest, aSearchWithoutResultsSaysWhatWasSoughtInFull)
{
    addAll(kThree);
    delegate.launch();
    QTest::keyClicks(field, QStringLiteral("xyz"));
    EXPECT_TRUE(controller->emptyStateView()->isVisible());
    EXPECT_TRUE(controller->emptyStateView()->title().contains(QStringLiteral("xyz")));
    QFont large = QApplication::font();
    large.setPointSizeF(large.pointSizeF() * 3);
    controller->emptyStateView()->setFont(large);
    QCoreApplication::processEvents();
    for (const QLabel *label : controller->emptyStateView()->findChildren<QLabel *>())
        EXPECT_GE(label->height(), label->heightForWidth(label->width())) << "cut";
    field->replaceText(QString());
    EXPECT_FALSE(controller->emptyStateView()->isVisible());
    EXPECT_EQ(listed().size(), 3);
}

struct Deletion
{
    const char *name;
    int count;
    int row;
    int newRow;
};

TEST_F(ViewControllerTest, deletingMovesTheSelectionByItsRule)
{
    const Deletion kRows[] = {
        {"the first of several stays at the first row", 4, 0, 0},
        {"one in the middle gives its row to the next", 4, 1, 1},
        {"the last gives way to the one before", 4, 3, 2},
        {"the second of two gives way to the first", 2, 1, 0},
        {"the only one leaves nothing", 1, 0, -1},
    };
    for (const Deletion &row : kRows) {
        delegate.clearAll();
        QStringList texts;
        for (int i = 0; i < row.count; ++i)
            texts.prepend(QString::number(i));
        addAll(texts);
        delegate.launch();
        controller->selectRow(row.row);
        controller->deleteItem();
        QStringList left = texts;
        std::reverse(left.begin(), left.end());
        left.removeAt(row.row);
        EXPECT_EQ(listed(), left) << row.name;
        EXPECT_EQ(selected(), row.newRow < 0 ? QStringLiteral("(none)") : left.value(row.newRow))
            << row.name;
        controller->hide();
    }
    EXPECT_TRUE(controller->textView()->toPlainText().isEmpty());
}

TEST_F(ViewControllerTest, theSelectionFollowsItsClip)
{
    addAll(kThree);
    delegate.launch();
    controller->next();
    ASSERT_EQ(selected(), QStringLiteral("b"));
    add(QStringLiteral("new"));
    EXPECT_EQ(selected(), QStringLiteral("b")) << "a copy arrives";
    EXPECT_EQ(table->selectedIdx(), 2);
    add(QStringLiteral("b"));
    EXPECT_EQ(selected(), QStringLiteral("b")) << "the selected clip itself is copied again";
    EXPECT_EQ(table->selectedIdx(), 0);
    controller->selectRow(3);
    delegate.maxItemsModified(2);
    EXPECT_EQ(table->selectedIdx(), 1) << "the selected clip has gone";
    EXPECT_EQ(selected(), QStringLiteral("new"));
    delegate.clearAll();
    EXPECT_EQ(selected(), QStringLiteral("(none)"));
}

TEST_F(ViewControllerTest, aSearchBeingTypedOutlivesACopy)
{
    addAll({QStringLiteral("pear"), QStringLiteral("apple"), QStringLiteral("plum")});
    delegate.launch();
    QTest::keyClicks(field, QStringLiteral("ap"));
    ASSERT_EQ(selected(), QStringLiteral("apple"));
    add(QStringLiteral("new"));
    EXPECT_EQ(listed(), QStringList{QStringLiteral("apple")});
    add(QStringLiteral("grape"));
    EXPECT_EQ(selected(), QStringLiteral("apple"));
    QTest::keyClicks(field, QStringLiteral("p"));
    EXPECT_EQ(field->text(), QStringLiteral("app"));
    EXPECT_EQ(listed(), QStringList{QStringLiteral("apple")});
    QTest::keyClick(field, Qt::Key_Backspace);
    EXPECT_EQ(listed(), (QStringList{QStringLiteral("grape"), QStringLiteral("apple")}));
    delegate.maxItemsModified(1);
    EXPECT_EQ(selected(), QStringLiteral("grape")) << "the selected clip has gone";
}

TEST_F(ViewControllerTest, clearingAllClearsWhatASearchHidesToo)
{
    addAll(kThree);
    delegate.launch();
    QTest::keyClicks(field, QStringLiteral("b"));
    delegate.clearAll();
    EXPECT_TRUE(delegate.window()->isVisible());
    EXPECT_EQ(field->text(), QString());
    EXPECT_EQ(listed(), QStringList());
    EXPECT_EQ(controller->emptyStateView()->title(), QStringLiteral("Nothing copied yet"));
    EXPECT_TRUE(controller->textView()->toPlainText().isEmpty());
}

TEST_F(ViewControllerTest, aSwopSaysWhetherItHoldsASelectionAndWhose)
{
    struct Row
    {
        std::optional<QString> copiedIn;
        QString notice;
    };
    const Row rows[] = {
        {std::nullopt, QStringLiteral("Swop: no selection is held, so the clip is only pasted")},
        {QStringLiteral("Editor"), QStringLiteral("Swop: the selection of Editor is held")},
        {QString(), QStringLiteral("Swop: the selection is held")},
    };
    const auto *notice = delegate.window()->findChild<NoticeLine *>();
    ASSERT_NE(notice, nullptr);
    open();
    EXPECT_FALSE(notice->isVisible());
    for (const Row &row : rows) {
        memory.keySender.setReaction([&](quint32) {
            if (row.copiedIn)
                memory.pasteboard.copyFromOutside({{QStringLiteral("selection")}, *row.copiedIn});
        });
        delegate.swop();
        EXPECT_EQ(notice->text(), row.notice);
        EXPECT_TRUE(notice->isVisible());
        delegate.history().clearAll();
        QCoreApplication::processEvents();
        const QWidget *empty = controller->emptyStateView();
        EXPECT_GE(empty->y(), notice->geometry().bottom());
        controller->hide();
        EXPECT_TRUE(notice->isHidden());
    }
}

TEST_F(ViewControllerTest, thePreviewIsMadeAnewOnlyForAnotherClipOrWhenForced)
{
    addAll(kThree);
    delegate.launch();
    // A scrolled or marked preview shows whether it was made anew.
    controller->textView()->selectAll();
    controller->selectRow(0);
    EXPECT_TRUE(controller->textView()->textCursor().hasSelection());
    controller->selectRow(0, true);
    EXPECT_FALSE(controller->textView()->textCursor().hasSelection());
}

TEST_F(ViewControllerTest, aFileClipShowsItsFileEvenIfItHasText)
{
    add(QStringLiteral("text"));
    add(QStringLiteral("photo.png"), QStringLiteral("/nowhere/photo.png"));
    delegate.launch();
    EXPECT_TRUE(controller->fileViewController().view()->isVisible());
    EXPECT_FALSE(controller->textView()->isVisible());
    controller->next();
    EXPECT_FALSE(controller->fileViewController().view()->isVisible());
    EXPECT_TRUE(controller->textView()->isVisible());
}

TEST_F(ViewControllerTest, theDividerStaysWithinItsLimitsAndBothSidesFollowIt)
{
    add(QStringLiteral("photo.png"), QStringLiteral("/nowhere/photo.png"));
    delegate.launch();
    QSplitter &split = *controller->splitView();
    for (const auto &[asked, given] : {std::pair(20, 100), {250, 250}, {700, 500}}) {
        split.setSizes({asked, split.width() - asked});
        controller->splitViewDidResizeSubviews();
        EXPECT_EQ(table->width(), given);
        EXPECT_EQ(table->columnWidth(0) + table->columnWidth(1), table->viewport()->width());
        const QRect file = controller->fileViewController().view()->geometry();
        EXPECT_EQ(file.width(), split.width() - given - 1);
        EXPECT_EQ(file.height(), controller->textView()->height());
    }
    EXPECT_EQ(SplitViewDelegate().constrainMaxCoordinate(1000), 699.0);
}

TEST_F(ViewControllerTest, aPasteTypesBeforeTheHistoryIsMadeWhole)
{
    addAll({QStringLiteral("apple"), QStringLiteral("pear")});
    open();
    QTest::keyClicks(field, QStringLiteral("app"));
    int keystrokes = 0;
    memory.keySender.setReaction([&](quint32) {
        ++keystrokes;
        EXPECT_FALSE(delegate.window()->isVisible());
        EXPECT_FALSE(delegate.window()->windowHandle()->handle()) << "it is not only hidden";
        EXPECT_EQ(field->text(), QStringLiteral("app"));
        EXPECT_EQ(delegate.getClipItemArr().size(), 1U);
    });
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(keystrokes, 1);
    EXPECT_EQ(field->text(), QString());
    EXPECT_EQ(delegate.getClipItemArr().size(), 2U);
    EXPECT_FALSE(controller->isWindowKey());
}

/// The actions of an application that has no clips and is asked for one thing after the other.
class TestActions : public HistoryActions
{
public:
    // ^HistoryActions
    const std::vector<std::shared_ptr<ClipItem>> &getClipItemArr() const override { return clips; }
    void filterClipItemArr(const std::optional<QString> &text) override
    {
        asked.append(QStringLiteral("filter ") + text.value_or(QString()));
    }
    bool beginSearch(const QString &text) override
    {
        filterClipItemArr(text);
        return true;
    }
    void finishSearch() override {}
    void deleteItem(const std::shared_ptr<ClipItem> &) override {}
    void deleteItems(const std::vector<std::shared_ptr<ClipItem>> &) override {}
    int heldDeletions() const override { return 0; }
    DeletedClips::Latest latestDeletion() const override { return DeletedClips::Latest::Held; }
    BroughtBack bringBack() override { return {}; }
    void setPinned(const std::vector<std::shared_ptr<ClipItem>> &, bool) override {}
    void setPinnedOnly(bool) override {}
    bool isReadOnly() const override { return true; }
    void performPaste(int row, const std::optional<QString> &format) override
    {
        asked.append(QStringLiteral("paste %1 ").arg(row) + format.value_or(QString()));
    }
    void pasteItems(const std::vector<std::shared_ptr<ClipItem>> &,
                    const std::optional<QString> &) override
    {
    }
    void copyItems(const std::vector<std::shared_ptr<ClipItem>> &) override {}
    void queueItems(const std::vector<std::shared_ptr<ClipItem>> &) override {}
    void endQueue() override {}
    void openFile() override { asked.append(QStringLiteral("open")); }
    void revealInFinder() override { asked.append(QStringLiteral("reveal")); }
    void hide() override { asked.append(QStringLiteral("hide")); }

    std::vector<std::shared_ptr<ClipItem>> clips;
    QStringList asked;
};

TEST(ViewControllerAlone, asksForWhatItsUserDoes)
{
    MemoryPlatform memory;
    TestActions actions;
    const SwopState swopState;
    ViewController controller(actions, swopState, memory.workspace, *memory.platform.fileQuestions,
                              memory.clock);
    controller.viewDidAppear();
    EXPECT_TRUE(controller.mainView()->findChild<NoticeLine *>()->text().contains(
        QStringLiteral("cannot be written")));
    QTest::keyClicks(controller.searchTextField(), QStringLiteral("x"));
    controller.paste(3, QStringLiteral("upper"));
    controller.fileViewController().openClicked();
    controller.fileViewController().revealClicked();
    controller.hide();
    EXPECT_EQ(actions.asked,
              (QStringList{QStringLiteral("filter x"), QStringLiteral("paste 3 upper"),
                           QStringLiteral("open"), QStringLiteral("reveal"), QStringLiteral("hide"),
                           QStringLiteral("filter ")}));
}

} // namespace
