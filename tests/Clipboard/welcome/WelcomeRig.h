#pragma once

#include "Clipboard/AppDelegate.h"
#include "Clipboard/settings/SettingsKeys.h"
#include "Clipboard/welcome/WelcomePage1Controller.h"
#include "Clipboard/welcome/WelcomeWindow.h"
#include "Clipboard/welcome/WelcomeWindowController.h"
#include "Clipboard/welcome/WelcomeWindowView.h"
#include "Clipboard/window/ClipboardWindow.h"
#include "history/ClipItem.h"
#include "platform/memory/MemoryPlatform.h"

#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

/// The real application of a user who has never seen the welcome, on a platform of fakes.
class WelcomeRig : public testing::Test
{
protected:
    WelcomeRig()
        : delegate(memory.platform, {QStringLiteral("org.example.Test"), QStringLiteral("1"), {}},
                   folder.path()),
          welcome(delegate.welcomeWindowController())
    {
        delegate.applicationDidFinishLaunching();
    }

    /// Presses the open shortcut and does `steps` while the welcome runs modally. Returns when the
    /// press is over; a session that the steps leave running is ended.
    void launchAnd(const std::function<void()> &steps)
    {
        QTimer::singleShot(0, &welcome, [&] {
            EXPECT_TRUE(welcome.isModal());
            EXPECT_TRUE(QTest::qWaitForWindowActive(welcome.window()));
            steps();
            if (welcome.isModal())
                welcome.closeWindow();
        });
        delegate.launch();
    }

    /// Through to the last page.
    void complete()
    {
        launchAnd([this] {
            for (int page = 0; page < 3; ++page)
                welcome.nextClicked();
        });
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(welcome.window()->windowHandle(), key, modifiers);
    }

    void copy(const QString &text)
    {
        PasteboardContents contents;
        contents.text = text;
        contents.applicationName = QStringLiteral("Editor");
        memory.pasteboard.copyFromOutside(contents);
    }

    QStringList clips() const
    {
        QStringList texts;
        for (const auto &item : delegate.getClipItemArr())
            texts.append(item->strValue().value_or(QString()));
        return texts;
    }

    QTemporaryDir folder;
    MemoryPlatform memory;
    AppDelegate delegate;
    WelcomeWindowController &welcome;
};
