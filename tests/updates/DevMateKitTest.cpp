#include "updates/DevMateKit.h"
#include "platform/memory/MemoryPlatform.h"
#include "support/ExpectedWarnings.h"
#include "updates/feedback/FeedbackForm.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QUrlQuery>

#include <gtest/gtest.h>

namespace {

const QString kText = QStringLiteral("Größer & schöner\nplease");

class DevMateKitTest : public testing::Test
{
protected:
    DevMateKitTest() { restart(); }

    /// The application ends, in whatever state it is, and is started again.
    void restart()
    {
        m_kit.reset();
        Info info;
        info.bundleShortVersionString = QStringLiteral("7.8");
        m_kit = std::make_unique<DevMateKit>(m_platform.workspace, m_platform.frontApplication,
                                             info, folder());
    }

    QString folder() const { return m_folder.filePath(QStringLiteral("data")); }

    void open()
    {
        m_kit->showFeedbackDialog(DevMateKit::FeedbackMode::Dialog);
        // A real desktop gives the keyboard to the window that was asked for.
        m_platform.frontApplication.activatedWindow()->requestActivate();
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog()));
    }

    static QWidget *window(const QString &title)
    {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            if (widget->isVisible() && widget->windowTitle() == title)
                return widget;
        }
        return nullptr;
    }
    static QWidget *dialog() { return window(QStringLiteral("Send Feedback")); }
    static QPlainTextEdit &text() { return *dialog()->findChild<QPlainTextEdit *>(); }
    static QLineEdit &mail() { return *dialog()->findChild<QLineEdit *>(); }
    static QCheckBox &system() { return *dialog()->findChild<QCheckBox *>(); }
    static QString status(const QWidget *window)
    {
        return window->findChild<QLabel *>(QStringLiteral("status"))->text();
    }
    static QPushButton &button(QWidget *window, const QString &label)
    {
        for (QPushButton *button : window->findChildren<QPushButton *>()) {
            if (button->text() == label)
                return *button;
        }
        throw std::runtime_error("no such button");
    }
    static void send() { QTest::keyClick(&text(), Qt::Key_Return, Qt::ControlModifier); }
    static bool canSend()
    {
        return button(dialog(), QStringLiteral("&Save and Mail…")).isEnabled();
    }

    /// What the files that were made for a mail hold.
    QStringList mailed() const
    {
        QStringList texts;
        const QDir files(folder() + QStringLiteral("/feedback"));
        for (const QFileInfo &entry : files.entryInfoList(QDir::Files)) {
            QFile file(entry.filePath());
            EXPECT_TRUE(file.open(QIODevice::ReadOnly));
            EXPECT_EQ(file.permissions() & 0x0fff, QFile::ReadUser | QFile::WriteUser);
            texts.append(QString::fromUtf8(file.readAll()));
        }
        return texts;
    }
    QStringList mailedNames() const
    {
        return QDir(folder() + QStringLiteral("/feedback")).entryList(QDir::Files);
    }
    /// A field of the one mail that was opened.
    QString opened(const char *field) const
    {
        EXPECT_EQ(m_platform.workspace.opened().size(), 1);
        const QUrl url(m_platform.workspace.opened().value(0));
        EXPECT_EQ(url.scheme(), QStringLiteral("mailto"));
        return QUrlQuery(url).queryItemValue(QString::fromLatin1(field), QUrl::FullyDecoded);
    }

    QTemporaryDir m_folder;
    MemoryPlatform m_platform;
    std::unique_ptr<DevMateKit> m_kit;
};

TEST_F(DevMateKitTest, withoutAnAddressTheTextBecomesAPrivateFileThatAMailAttaches)
{
    m_kit->sendTrackingReport();
    open();
    text().setPlainText(kText);
    mail().setText(QStringLiteral("ada@example.org"));
    send();
    EXPECT_EQ(mailed(), QStringList(kText + QStringLiteral("\n\nada@example.org")));
    EXPECT_EQ(opened("attach"), folder() + QStringLiteral("/feedback/") + mailedNames().value(0));
    EXPECT_TRUE(opened("body").contains(opened("attach")));
    // Whoever lists the processes reads the address.
    const QString address = m_platform.workspace.opened().value(0);
    for (const char *secret : {"schöner", "sch%C3%B6ner", "please", "ada"})
        EXPECT_FALSE(address.contains(QString::fromUtf8(secret))) << secret;
    EXPECT_TRUE(status(dialog()).contains(folder() + QStringLiteral("/feedback/feedback-")));
    // The same window again, ready for another text.
    open();
    EXPECT_EQ(text().toPlainText(), QString());
    EXPECT_TRUE(text().isEnabled());
}

TEST_F(DevMateKitTest, whatIsWrittenOutlivesEveryWayToLeaveTheDialog)
{
    struct Way
    {
        const char *name;
        std::function<void()> leave;
    };
    const Way ways[] = {
        {"Escape", [] { QTest::keyClick(dialog(), Qt::Key_Escape); }},
        {"the window's button", [] { dialog()->close(); }},
        {"the application's end", [this] { restart(); }},
    };
    for (const Way &way : ways) {
        SCOPED_TRACE(way.name);
        open();
        const QString written = QString::fromLatin1(way.name);
        text().setPlainText(written);
        mail().setText(QStringLiteral("ada@example.org"));
        system().setChecked(true);
        way.leave();
        EXPECT_EQ(dialog(), nullptr);
        restart();
        open();
        EXPECT_EQ(text().toPlainText(), written);
        EXPECT_EQ(mail().text(), QStringLiteral("ada@example.org"));
        EXPECT_TRUE(system().isChecked());
    }
    EXPECT_EQ(mailed(), QStringList());
}

TEST_F(DevMateKitTest, aTextThatCannotBeKeptIsNotClosedAwayUnsaid)
{
    QFile inTheWay(folder());
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    open();
    text().setPlainText(kText);
    ExpectedWarnings::expect(QStringLiteral("feedback-draft.json could not be written"));
    QTest::keyClick(dialog(), Qt::Key_Escape);
    ASSERT_NE(dialog(), nullptr);
    EXPECT_TRUE(status(dialog()).contains(QStringLiteral("cannot be kept")));
    ExpectedWarnings::expect(QStringLiteral("feedback-draft.json could not be written"));
    QTest::keyClick(dialog(), Qt::Key_Escape);
    EXPECT_EQ(dialog(), nullptr);
}

TEST_F(DevMateKitTest, aTextThatCannotBeKeptDoesNotHoldUpTheEnd)
{
    QFile inTheWay(folder());
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    open();
    text().setPlainText(QStringLiteral("a secret"));
    ExpectedWarnings::expect(QStringLiteral("feedback-draft.json could not be written"));
    ExpectedWarnings::expect(QStringLiteral("unsaved: a feedback text of 8 characters"));
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    // The loop ends in any case; it is the dialog that tells whether the end was refused.
    QMetaObject::invokeMethod(
        qApp, [] { QCoreApplication::exit(); }, Qt::QueuedConnection);
    QApplication::exec();
    EXPECT_EQ(dialog(), nullptr);
    EXPECT_FALSE(ExpectedWarnings::messages().join(u'\n').contains(QStringLiteral("secret")));
}

TEST_F(DevMateKitTest, badInputIsNotSentAndSaysWhy)
{
    open();
    EXPECT_FALSE(canSend());
    text().setPlainText(QStringLiteral(" \n"));
    EXPECT_FALSE(canSend());
    QApplication::clipboard()->setText(QString(FeedbackForm::kMaxCharacters * 2, u'x'));
    text().paste();
    EXPECT_EQ(text().toPlainText().size(), FeedbackForm::kMaxCharacters);
    EXPECT_TRUE(canSend());
    QTest::keyClicks(&text(), QStringLiteral("yy"));
    EXPECT_FALSE(canSend());
    EXPECT_EQ(status(dialog()), QStringLiteral("Too long: 10002 of at most 10000 characters."));
    text().setPlainText(kText);
    for (const char *address : {"ada", "@example.org", "ada@", "a@b@c", "a b@c"}) {
        mail().setText(QString::fromLatin1(address));
        send();
        EXPECT_EQ(status(dialog()), QStringLiteral("This does not look like a mail address."));
    }
    EXPECT_EQ(mailed(), QStringList());
}

TEST_F(DevMateKitTest, aReportOfACrashWaitsForAnAnswerAndGoesByMailToo)
{
    ASSERT_TRUE(QDir().mkpath(folder() + QStringLiteral("/crashes")));
    QFile report(folder() + QStringLiteral("/crashes/crash-1700000000-1.txt"));
    ASSERT_TRUE(report.open(QIODevice::WriteOnly));
    report.write("Quillmarsh 7.7\nSIGSEGV\n");
    report.close();
    m_kit->setupIssuesController(DevMateKit::UnhandledIssues::Left);
    QCoreApplication::processEvents();
    ASSERT_NE(window(QStringLiteral("Problem Report")), nullptr);
    // The application ends before the user says anything.
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    QApplication::exec();
    EXPECT_TRUE(report.exists());

    restart();
    m_kit->setupIssuesController(DevMateKit::UnhandledIssues::Left);
    QCoreApplication::processEvents();
    QWidget *question = window(QStringLiteral("Problem Report"));
    ASSERT_NE(question, nullptr);
    button(question, QStringLiteral("Show &Report")).click();
    EXPECT_EQ(question->findChild<QPlainTextEdit *>()->toPlainText(),
              QStringLiteral("Quillmarsh 7.7\nSIGSEGV"));
    button(question, QStringLiteral("&Save and Mail…")).click();
    EXPECT_EQ(mailed(), QStringList(QStringLiteral("Quillmarsh 7.7\nSIGSEGV\n")));
    EXPECT_FALSE(report.exists());
}

} // namespace
