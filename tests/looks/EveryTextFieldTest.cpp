#include "Clipboard/preferences/ApplicationChooser.h"
#include "Clipboard/preferences/DamagedSettingsQuestion.h"
#include "Clipboard/preferences/GeneralPaneView.h"
#include "Clipboard/preferences/PictureChoice.h"
#include "Clipboard/preview/TextBody.h"
#include "Clipboard/window/ClipTextView.h"
#include "Clipboard/window/PathLabel.h"
#include "Clipboard/window/RichTextView.h"
#include "Clipboard/window/SearchField.h"
#include "hotkey/HotKeyTextField.h"
#include "looks/FieldPasteboard.h"
#include "looks/ToolkitClipboard.h"
#include "platform/Info.h"
#include "platform/memory/MemoryPlatform.h"
#include "updates/crashes/CrashReports.h"
#include "updates/crashes/IssueReportDialog.h"
#include "updates/feedback/FeedbackDialog.h"
#include "updates/updater/UpdateWindow.h"

#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>

#include <gtest/gtest.h>

namespace {

/// What a window is made of.
struct Parts
{
    MemoryPlatform platform;
    Info info;
    QTemporaryDir folder;
};

template <typename Field>
std::unique_ptr<QWidget> filled()
{
    auto field = std::make_unique<Field>();
    field->setText(QStringLiteral("some words"));
    return field;
}

std::unique_ptr<QWidget> readOnlyLine()
{
    auto field = std::make_unique<QLineEdit>(QStringLiteral("some words"));
    field->setReadOnly(true);
    return field;
}

std::unique_ptr<QWidget> plainEdit(bool isReadOnly)
{
    auto field = std::make_unique<QPlainTextEdit>(QStringLiteral("some words\nand more"));
    field->setReadOnly(isReadOnly);
    return field;
}

std::unique_ptr<QWidget> selectableLabel()
{
    auto label = std::make_unique<QLabel>(QStringLiteral("some words"));
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    label->setFocusPolicy(Qt::StrongFocus);
    return label;
}

std::unique_ptr<QWidget> editableCombo()
{
    auto combo = std::make_unique<QComboBox>();
    combo->setEditable(true);
    combo->setEditText(QStringLiteral("some words"));
    return combo;
}

std::unique_ptr<QWidget> itemEditor()
{
    auto list = std::make_unique<QListWidget>();
    auto *item = new QListWidgetItem(QStringLiteral("some words"), list.get());
    item->setFlags(item->flags() | Qt::ItemIsEditable);
    list->openPersistentEditor(item);
    return list;
}

std::unique_ptr<QWidget> message(std::unique_ptr<QMessageBox> box)
{
    box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return box;
}

std::unique_ptr<QWidget> fileDialog()
{
    auto dialog = std::make_unique<QFileDialog>();
    dialog->setOption(QFileDialog::DontUseNativeDialog);
    return dialog;
}

std::unique_ptr<QWidget> clipText()
{
    auto view = std::make_unique<ClipTextView>();
    view->setString(QStringLiteral("some words"));
    return view;
}

std::unique_ptr<QWidget> path()
{
    auto label = std::make_unique<PathLabel>();
    label->setPath(QStringLiteral("/some/path of words"));
    return label;
}

std::unique_ptr<QWidget> fileText(TextContent::Form form)
{
    return std::make_unique<TextBody>(TextContent(QStringLiteral("some words"), form, false),
                                      nullptr);
}

std::unique_ptr<QWidget> update(bool isElsewhere)
{
    auto window = std::make_unique<UpdateWindow>(QStringLiteral("Quillmarsh"));
    if (isElsewhere)
        window->showElsewhere(QStringLiteral("Not here."), QStringLiteral("some command"));
    else
        window->showFound(QStringLiteral("2"), QStringLiteral("1"), QStringLiteral("Some notes."));
    return window;
}

std::unique_ptr<QWidget> report(Parts &parts)
{
    auto dialog =
        std::make_unique<IssueReportDialog>(parts.info, *parts.platform.platform.workspace,
                                            parts.folder.path(), CrashReports(parts.folder.path()));
    auto *text = dialog->findChild<QPlainTextEdit *>();
    text->setPlainText(QStringLiteral("some words"));
    text->show();
    return dialog;
}

using K = QKeySequence;

struct Row
{
    const char *name;
    std::function<std::unique_ptr<QWidget>(Parts &)> make;
};

class EveryTextField : public testing::TestWithParam<Row>
{
protected:
    void press(QWidget &widget, QKeySequence::StandardKey key)
    {
        for (const QKeySequence &keys : QKeySequence::keyBindings(key)) {
            const QKeyCombination combination = keys[0];
            QTest::keyClick(&widget, combination.key(), combination.keyboardModifiers());
            EXPECT_TRUE(m_toolkit.isUntouched()) << qUtf8Printable(keys.toString());
        }
    }

    /// Marks by mouse in every way, and pastes with it.
    void useMouse(QWidget &target)
    {
        const QPoint left(3, target.height() > 40 ? 10 : target.height() / 2);
        const QPoint right(40, left.y());
        QTest::mouseDClick(&target, Qt::LeftButton, {}, left);
        QTest::mouseRelease(&target, Qt::LeftButton, {}, left);
        QTest::mouseClick(&target, Qt::LeftButton, {}, left);
        EXPECT_TRUE(m_toolkit.isUntouched()) << "a triple click";
        QTest::mouseClick(&target, Qt::LeftButton, {}, left);
        QTest::mousePress(&target, Qt::LeftButton, {}, left);
        QMouseEvent move(QEvent::MouseMove, right, target.mapToGlobal(right), Qt::NoButton,
                         Qt::LeftButton, {});
        QCoreApplication::sendEvent(&target, &move);
        QTest::mouseRelease(&target, Qt::LeftButton, {}, right);
        EXPECT_TRUE(m_toolkit.isUntouched()) << "marking";
        QTest::mouseClick(&target, Qt::LeftButton, Qt::ShiftModifier, right);
        EXPECT_TRUE(m_toolkit.isUntouched()) << "marking with Shift";
        QTest::mouseRelease(&target, Qt::MiddleButton, {}, left);
        EXPECT_TRUE(m_toolkit.isUntouched()) << "the middle button";
    }

    /// Everything its menu offers.
    void useMenu(QWidget &target)
    {
        QStringList done;
        for (bool isMore = true; isMore;) {
            isMore = false;
            QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(3, 3),
                                    target.mapToGlobal(QPoint(3, 3)));
            QCoreApplication::sendEvent(&target, &event);
            EXPECT_TRUE(m_toolkit.isUntouched()) << "opening the menu";
            auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            if (!menu)
                return;
            for (QAction *action : menu->actions()) {
                if (isMore || !action->isEnabled() || done.contains(action->text()))
                    continue;
                done.append(action->text());
                action->trigger();
                EXPECT_TRUE(m_toolkit.isUntouched()) << qUtf8Printable(action->text());
                isMore = true;
            }
            menu->close();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }

    void use(QWidget &widget)
    {
        widget.setFocus();
        auto *area = qobject_cast<QAbstractScrollArea *>(&widget);
        QWidget &target = area ? *area->viewport() : widget;
        useMouse(target);
        useMenu(target);
        const auto pressAll = [&](std::initializer_list<K::StandardKey> keys) {
            for (const K::StandardKey key : keys)
                press(widget, key);
        };
        pressAll({K::SelectAll, K::SelectEndOfLine, K::Copy, K::Paste});
        pressAll({K::SelectStartOfLine, K::Cut, K::Paste});
        for (int key = K::SelectNextChar; key <= K::SelectEndOfDocument; ++key)
            press(widget, K::StandardKey(key));
        pressAll({K::Deselect, K::DeleteStartOfWord, K::DeleteEndOfWord, K::DeleteEndOfLine});
        pressAll({K::Paste, K::DeleteCompleteLine, K::Undo, K::Redo});
        // Keys that do nothing, while something is marked.
        press(widget, K::SelectAll);
        for (const Qt::Key key : {Qt::Key_Control, Qt::Key_F5, Qt::Key_Up})
            QTest::keyClick(&widget, key);
        EXPECT_TRUE(m_toolkit.isUntouched()) << "keys that do nothing";
    }

    MemoryPlatform m_platform;
    FieldPasteboard m_fields{m_platform.pasteboard};
    Parts m_parts;
    ToolkitClipboard m_toolkit;
};

TEST_P(EveryTextField, neverReachesTheToolkitsClipboard)
{
    m_platform.pasteboard.copyFromOutside({{QStringLiteral("copied")}});
    m_platform.pasteboard.markOutside(QStringLiteral("marked"));
    const std::unique_ptr<QWidget> window = GetParam().make(m_parts);
    window->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    int used = 0;
    QList<QPointer<QWidget>> widgets{window.get()};
    for (QWidget *child : window->findChildren<QWidget *>())
        widgets.append(child);
    for (const QPointer<QWidget> &remembered : widgets) {
        QWidget *widget = remembered.data();
        if (!widget)
            continue;
        const bool isField = widget->isVisible() && TextField::of(widget);
        const bool copies =
            qobject_cast<QMessageBox *>(widget) || qobject_cast<QAbstractItemView *>(widget);
        if (isField)
            use(*widget);
        else if (copies)
            press(*widget, QKeySequence::Copy);
        used += isField ? 1 : 0;
    }
    EXPECT_GT(used, 0);
}

const Row kRows[] = {
    {"line", [](Parts &) { return filled<QLineEdit>(); }},
    {"readOnlyLine", [](Parts &) { return readOnlyLine(); }},
    {"plainEdit", [](Parts &) { return plainEdit(false); }},
    {"readOnlyPlainEdit", [](Parts &) { return plainEdit(true); }},
    {"edit", [](Parts &) { return filled<QTextEdit>(); }},
    {"browser", [](Parts &) { return filled<QTextBrowser>(); }},
    {"label", [](Parts &) { return selectableLabel(); }},
    {"spinBox", [](Parts &) { return std::make_unique<QSpinBox>(); }},
    {"comboBox", [](Parts &) { return editableCombo(); }},
    {"itemEditor", [](Parts &) { return itemEditor(); }},
    {"inputDialog", [](Parts &) { return std::make_unique<QInputDialog>(); }},
    {"fileDialog", [](Parts &) { return fileDialog(); }},
    {"messageBox",
     [](Parts &) {
         return message(std::make_unique<QMessageBox>(QMessageBox::Warning, QString(),
                                                      QStringLiteral("some words")));
     }},
    {"damagedSettings",
     [](Parts &parts) {
         auto box = std::make_unique<DamagedSettingsQuestion>(*parts.platform.platform.settings);
         box->setAttribute(Qt::WA_DeleteOnClose, false);
         return message(std::move(box));
     }},
    {"search", [](Parts &) { return filled<SearchField>(); }},
    {"clipText", [](Parts &) { return clipText(); }},
    {"clipRichText", [](Parts &) { return filled<RichTextView>(); }},
    {"path", [](Parts &) { return path(); }},
    {"fileAsText", [](Parts &) { return fileText(TextContent::Form::Prose); }},
    {"fileAsMarkdown", [](Parts &) { return fileText(TextContent::Form::Markdown); }},
    {"generalPane",
     [](Parts &parts) {
         SettingsStore &settings = *parts.platform.platform.settings;
         return std::make_unique<GeneralPaneView>(settings, nullptr, PictureChoice(settings));
     }},
    {"applicationChooser",
     [](Parts &parts) {
         return std::make_unique<ApplicationChooser>(*parts.platform.platform.installedApplications,
                                                     nullptr);
     }},
    {"feedback",
     [](Parts &parts) {
         return std::make_unique<FeedbackDialog>(parts.info, *parts.platform.platform.workspace,
                                                 parts.folder.path());
     }},
    {"report", [](Parts &parts) { return report(parts); }},
    {"updateNotes", [](Parts &) { return update(false); }},
    {"updateCommand", [](Parts &) { return update(true); }},
    {"hotKey",
     [](Parts &parts) {
         return std::make_unique<HotKeyTextField>(*parts.platform.platform.hotKeys,
                                                  *parts.platform.platform.keyboardLayout);
     }},
};

INSTANTIATE_TEST_SUITE_P(All, EveryTextField, testing::ValuesIn(kRows),
                         [](const auto &row) { return std::string(row.param.name); });

} // namespace
