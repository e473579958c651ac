#include "Clipboard/window/FileViewController.h"
#include "Clipboard/preview/FileCard.h"
#include "Clipboard/preview/FilePreview.h"
#include "Clipboard/window/ListedFolders.h"
#include "Clipboard/window/PathLabel.h"
#include "WindowRig.h"
#include "looks/PaneButton.h"

#include <QFile>
#include <QFrame>
#include <QLabel>
#include <QPointer>

namespace {

class FileViewControllerTest : public WindowRig
{
protected:
    FileViewControllerTest() : pane(controller->fileViewController()) {}

    /// Makes a clip of the file and lets the workspace know it.
    QString addFile(const QString &name, const QByteArray &content = "content")
    {
        const QString path = folder.filePath(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        memory.workspace.addFile(path);
        add(name, path);
        return path;
    }

    /// "buttons", "warning", both or nothing, as the pane shows them.
    QString shown() const
    {
        QStringList parts;
        if (pane.openButton()->isVisible() && pane.revealInFinderButton()->isVisible())
            parts.append(QStringLiteral("buttons"));
        if (pane.warningImageView()->isVisible() && pane.fileDoesNotExistLabel()->isVisible())
            parts.append(QStringLiteral("warning"));
        return parts.join(u'+');
    }

    bool waitFor(const QString &state) const
    {
        return QTest::qWaitFor([&] { return shown() == state; });
    }

    FileViewController &pane;
};

TEST_F(FileViewControllerTest, anExistingFileHasButtonsAndAMissingOneAWarning)
{
    const QString missing = QStringLiteral("/nowhere/a/very/long/folder/missing.txt");
    add(QStringLiteral("missing.txt"), missing);
    const QString there = addFile(QStringLiteral("there.txt"));
    delegate.launch();
    EXPECT_TRUE(waitFor(QStringLiteral("buttons")));
    EXPECT_EQ(pane.filepathLabel()->text(), there);
    controller->next();
    EXPECT_NE(shown(), QStringLiteral("warning")) << "nothing is claimed before the answer";
    EXPECT_TRUE(waitFor(QStringLiteral("warning")));
    EXPECT_EQ(pane.filepathLabel()->text(), missing);
    EXPECT_TRUE(pane.filepathLabel()->toolTip().contains(missing));
    EXPECT_EQ(pane.fileDoesNotExistLabel()->text(), QStringLiteral("The file no longer exists."));
    controller->previous();
    EXPECT_TRUE(waitFor(QStringLiteral("buttons")));
}

TEST_F(FileViewControllerTest, aLateAnswerAboutAnotherFileIsVoid)
{
    const QString there = addFile(QStringLiteral("there.txt"));
    delegate.launch();
    ASSERT_TRUE(waitFor(QStringLiteral("buttons")));
    // The first question is still open when the second is asked; answers come in order.
    pane.setPreviewItem(QStringLiteral("/nowhere/missing"));
    pane.setPreviewItem(there);
    bool hasWarned = false;
    ASSERT_TRUE(QTest::qWaitFor([&] {
        hasWarned = hasWarned || pane.warningImageView()->isVisible();
        return pane.previewView()->body() != nullptr;
    }));
    EXPECT_FALSE(hasWarned);
    EXPECT_EQ(shown(), QStringLiteral("buttons"));
}

TEST_F(FileViewControllerTest, eachFileGetsAViewOfItsOwn)
{
    addFile(QStringLiteral("first.txt"));
    addFile(QStringLiteral("second.bin"), QByteArray(2048, 'x'));
    delegate.launch();
    const QPointer<FilePreview> first = pane.previewView();
    controller->next();
    EXPECT_TRUE(first.isNull());
    EXPECT_TRUE(pane.previewView()->isVisible());
}

TEST_F(FileViewControllerTest, theCardOfAnUnreadableKindTellsKindAndSize)
{
    addFile(QStringLiteral("data.bin"), QByteArray(2048, '\0'));
    delegate.launch();
    const FileCard *card = pane.previewView()->card();
    ASSERT_TRUE(QTest::qWaitFor([&] { return card->isVisible(); }));
    ASSERT_GE(card->lines().size(), 3); // Not every file system knows when a file was created.
    EXPECT_EQ(card->lines().at(1), QLocale().formattedDataSize(2048));
    EXPECT_TRUE(card->lines().back().startsWith(QStringLiteral("Changed ")));
}

TEST_F(FileViewControllerTest, aFileDeletedWhileItIsShownBringsTheWarning)
{
    const QString path = addFile(QStringLiteral("there.txt"));
    delegate.launch();
    ASSERT_TRUE(QTest::qWaitFor([&] { return pane.previewView()->body() != nullptr; }));
    memory.workspace.removeFile(path);
    ASSERT_TRUE(QFile::remove(path));
    EXPECT_TRUE(waitFor(QStringLiteral("warning")));
}

TEST_F(FileViewControllerTest, theListFindsOutWhichFilesAreFolders)
{
    const QString file = addFile(QStringLiteral("there"));
    int found = 0;
    FileQuestions questions;
    ListedFolders folders(questions, [&found] { ++found; });
    for (const QString &path : {folder.path(), file, QStringLiteral("/nowhere")})
        EXPECT_FALSE(folders.contains(path)) << "not before the answer";
    EXPECT_TRUE(QTest::qWaitFor([&] { return folders.contains(folder.path()); }));
    EXPECT_FALSE(folders.contains(file));
    EXPECT_EQ(found, 1);
}

TEST_F(FileViewControllerTest, aClickOnThePathSelectsTheWholeOfIt)
{
    const QString path = addFile(QStringLiteral("there.txt"));
    open();
    QTest::mouseClick(pane.filepathLabel(), Qt::LeftButton);
    EXPECT_EQ(pane.filepathLabel()->selectedText(), path);
    field->setFocus();
    EXPECT_FALSE(pane.filepathLabel()->hasSelectedText());
}

TEST_F(FileViewControllerTest, thePreviewFillsThePaneDownToThreePointsAboveTheSeparator)
{
    addFile(QStringLiteral("there.txt"));
    delegate.launch();
    for (const QSize size : {QSize(280, 300), QSize(500, 400)}) {
        pane.resizeView(QRect(QPoint(0, 0), size));
        const QRect preview = pane.previewView()->geometry();
        EXPECT_EQ(preview, QRect(0, 0, size.width(), pane.separatorLine()->y() - 3));
        EXPECT_GT(pane.filepathLabel()->y(), pane.separatorLine()->y());
        EXPECT_TRUE(pane.view()->rect().contains(pane.revealInFinderButton()->geometry()));
    }
}

TEST_F(FileViewControllerTest, openClosesTheWindowAndRevealDoesNot)
{
    const QString path = addFile(QStringLiteral("there.txt"));
    delegate.launch();
    ASSERT_TRUE(waitFor(QStringLiteral("buttons")));
    EXPECT_EQ(pane.openButton()->accessibleName(), QStringLiteral("Open"));
    EXPECT_EQ(pane.revealInFinderButton()->accessibleName(),
              QStringLiteral("Reveal in File Manager"));
    pane.revealInFinderButton()->click();
    EXPECT_TRUE(delegate.window()->isVisible());
    ASSERT_EQ(memory.workspace.selected().size(), 1);
    EXPECT_EQ(memory.workspace.selected().at(0).first, path);
    QTest::keyClick(pane.openButton(), Qt::Key_Return);
    EXPECT_FALSE(delegate.window()->isVisible());
    EXPECT_EQ(memory.workspace.opened(), QStringList{path});
}

} // namespace
