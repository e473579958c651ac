#include "Clipboard/preferences/HistorySizeSlider.h"
#include "Clipboard/preferences/PreferencesGeneralViewController.h"
#include "Clipboard/window/EmptyStateView.h"
#include "WindowRig.h"
#include "looks/FieldPasteboard.h"

#include <QLabel>
#include <QToolButton>

#include <ostream>

static std::ostream &operator<<(std::ostream &out, const QString &text)
{
    return out << text.toStdString();
}

namespace {

class HistoryChangesTest : public WindowRig
{
protected:
    /// Presses Ctrl and a key, by turns in each control that has keys of the list.
    void press(Qt::Key key, Qt::KeyboardModifiers more = Qt::NoModifier)
    {
        QWidget *const controls[] = {field, table, controller->textView()};
        QWidget *const control = controls[m_presses++ % 3];
        control->setFocus();
        QTest::keyClick(control, key, Qt::ControlModifier | more);
    }
    void deleteSelected() { QTest::keyClick(field, Qt::Key_Backspace, Qt::MetaModifier); }
    QString list() const { return listed().join(u' '); }
    QString footer() const
    {
        const auto *label = delegate.window()->findChild<QLabel *>(QStringLiteral("footer"));
        return label->isVisible() ? label->text() : QString();
    }

    /// Stands before the window's own keys in the real program.
    const FieldPasteboard m_fields{memory.pasteboard};
    const QString kOffer = QStringLiteral("Deleted · Ctrl+Z brings it back");

private:
    int m_presses = 0;
};

const QStringList kThree{QStringLiteral("c"), QStringLiteral("b"), QStringLiteral("a")};

TEST_F(HistoryChangesTest, controlDPinsAndTheSwitchListsPinnedClipsOnly)
{
    addAll(kThree);
    open();
    const auto told = [this](int row) {
        return table->model()->index(row, 1).data(Qt::AccessibleDescriptionRole).toString();
    };
    press(Qt::Key_D, Qt::ShiftModifier);
    EXPECT_EQ(controller->emptyStateView()->title(), QStringLiteral("Nothing pinned yet"));
    field->pinnedSwitch()->click();
    controller->selectRow(1);
    press(Qt::Key_D);
    EXPECT_TRUE(controller->isPinned(1));
    EXPECT_EQ(told(1), QStringLiteral("2 of 3, pinned"));
    EXPECT_EQ(told(0), QStringLiteral("1 of 3"));
    press(Qt::Key_D, Qt::ShiftModifier);
    EXPECT_TRUE(field->isPinnedOnly());
    EXPECT_EQ(list(), QStringLiteral("b"));
    EXPECT_EQ(selected(), QStringLiteral("b"));
    QTest::keyClicks(field, QStringLiteral("a"));
    EXPECT_EQ(controller->emptyStateView()->title(), QStringLiteral("Nothing matches “a”"));
    field->clear();
    add(QStringLiteral("new"));
    EXPECT_EQ(list(), QStringLiteral("b")) << "a copy arrives";
    press(Qt::Key_D);
    EXPECT_EQ(list(), QString());
    press(Qt::Key_D, Qt::ShiftModifier);
    EXPECT_EQ(list(), QStringLiteral("new a b c"));

    controller->markNext();
    press(Qt::Key_D);
    press(Qt::Key_D, Qt::ShiftModifier);
    EXPECT_EQ(list(), QStringLiteral("new a")) << "all that is marked";
    controller->hide();
    open();
    EXPECT_EQ(list(), QStringLiteral("new a b c")) << "the history opens whole";
    EXPECT_FALSE(field->isPinnedOnly());
    press(Qt::Key_D, Qt::ShiftModifier);
    delegate.clearAll();
    EXPECT_EQ(controller->emptyStateView()->title(), QStringLiteral("Nothing copied yet"));
}

TEST_F(HistoryChangesTest, controlZTakesBackWhatWasDoneLast)
{
    addAll(kThree);
    open();
    QTest::keyClicks(field, QStringLiteral("b"));
    deleteSelected();
    EXPECT_EQ(footer(), kOffer);
    press(Qt::Key_Z);
    EXPECT_EQ(list(), QStringLiteral("b"));
    EXPECT_EQ(selected(), QStringLiteral("b"));
    EXPECT_EQ(footer(), QString());
    press(Qt::Key_Z);
    EXPECT_EQ(field->text(), QString()) << "the field's own undo";
    EXPECT_EQ(list(), QStringLiteral("a b c"));

    deleteSelected();
    deleteSelected();
    EXPECT_EQ(list(), QStringLiteral("c"));
    QTest::keyClicks(field, QStringLiteral("x"));
    EXPECT_EQ(footer(), QString()) << "typing was done last";
    press(Qt::Key_Z);
    EXPECT_EQ(field->text(), QString());
    press(Qt::Key_Z);
    EXPECT_EQ(list(), QStringLiteral("b c"));
    EXPECT_EQ(selected(), QStringLiteral("b"));
    EXPECT_EQ(footer(), kOffer) << "there is one more";
    controller->hide();
    open();
    EXPECT_EQ(footer(), kOffer);
    press(Qt::Key_Z);
    EXPECT_EQ(list(), QStringLiteral("a b c"));

    controller->markNext();
    deleteSelected();
    EXPECT_EQ(list(), QStringLiteral("c"));
    press(Qt::Key_Z);
    EXPECT_EQ(list(), QStringLiteral("a b c")) << "several are one deletion";
}

TEST_F(HistoryChangesTest, clearAllIsTakenBackAsFarAsItFits)
{
    for (int i = 0; i < 12; ++i)
        add(QString::number(i));
    delegate.clearAll();
    delegate.generalPane().maxItemsSlider->setValue(10);
    ASSERT_EQ(delegate.generalPane().getMaxItems(), 10);
    open();
    EXPECT_EQ(footer(), kOffer);
    press(Qt::Key_Z);
    EXPECT_EQ(listed().size(), 10);
    EXPECT_EQ(selected(), QStringLiteral("11"));
    EXPECT_EQ(footer(),
              QStringLiteral("2 deleted clips did not fit: the history keeps 10 at most"));
    QTest::keyClicks(field, QStringLiteral("1"));
    EXPECT_EQ(footer(), QString());

    delegate.history().deletedClips().setMostBytes(0);
    deleteSelected();
    EXPECT_EQ(footer(), QStringLiteral("Deleted for good · too large for Ctrl+Z"));
    QTest::keyClicks(field, QStringLiteral("0"));
    EXPECT_EQ(footer(), QString());
}

} // namespace
