#pragma once

#include "Clipboard/ApplicationRig.h"
#include "Clipboard/welcome/WelcomePage1Controller.h"
#include "Clipboard/welcome/WelcomeWindow.h"
#include "Clipboard/welcome/WelcomeWindowController.h"
#include "Clipboard/welcome/WelcomeWindowView.h"
#include "Clipboard/window/ClipboardWindow.h"

#include <QTest>
#include <QTimer>

/// The real application of a user who has never seen the welcome, on a platform of fakes.
class WelcomeRig : public ApplicationRig
{
protected:
    WelcomeRig() : ApplicationRig(User::Newcomer) {}

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

    AppDelegate &delegate = start();
    WelcomeWindowController &welcome = delegate.welcomeWindowController();
};
