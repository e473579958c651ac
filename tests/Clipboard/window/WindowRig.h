#pragma once

#include "Clipboard/ApplicationRig.h"
#include "Clipboard/window/ClipTableView.h"
#include "Clipboard/window/ClipTextView.h"
#include "Clipboard/window/ClipboardWindow.h"
#include "Clipboard/window/SearchField.h"
#include "Clipboard/window/ViewController.h"
#include "history/ClipHistory.h"

#include <QTest>

/// The real application with its history window, on a platform of fakes.
class WindowRig : public ApplicationRig
{
protected:
    /// Opens the history and waits until it has the keyboard.
    void open()
    {
        delegate.launch();
        EXPECT_TRUE(QTest::qWaitForWindowActive(delegate.window()));
    }

    /// Records a copy made a second after the last one; a file's when `path` is given.
    void add(const QString &text, const std::optional<QString> &path = {})
    {
        memory.clock.advance(std::chrono::seconds(1));
        Clip clip;
        clip.text = text;
        clip.applicationName = QStringLiteral("Editor");
        if (path)
            clip.fileNames.append(*path);
        delegate.history().addToClipList(clip);
    }

    /// Records the texts, the last of them newest.
    void addAll(const QStringList &texts)
    {
        for (const QString &text : texts)
            add(text);
    }

    /// What Return would paste, checked to be what is highlighted and previewed as well.
    QString selected() const
    {
        const std::shared_ptr<ClipItem> item = delegate.getSelectedItem();
        if (!item)
            return QStringLiteral("(none)");
        const QModelIndexList rows = table->selectionModel()->selectedRows();
        EXPECT_EQ(rows.size(), 1);
        EXPECT_EQ(rows.value(0).row(), table->selectedIdx());
        if (!item->filepath()) {
            EXPECT_EQ(controller->textView()->toPlainText(), item->strValue());
        }
        return item->strValue().value_or(QString());
    }

    QStringList listed() const
    {
        QStringList texts;
        for (int row = 0; row < table->model()->rowCount(); ++row)
            texts.append(table->model()->index(row, 1).data().toString());
        return texts;
    }

    AppDelegate &delegate = start();
    ViewController *controller = delegate.viewController();
    ClipTableView *table = controller->clipTableView();
    SearchField *field = controller->searchTextField();
};
