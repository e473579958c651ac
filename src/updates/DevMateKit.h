#pragma once

#include "platform/Info.h"
#include "updates/crashes/CrashReports.h"

#include <QObject>
#include <QString>

#include <memory>

class CrashReporter;
class FeedbackDelivery;
class FeedbackDialog;
class FrontApplication;
class IssueReportDialog;
class QDialog;
class Workspace;

/// What goes back to those who make the program: feedback, crash reports, and the usage report.
/// Owned by AppDelegate. Nothing leaves the computer without an address built in, and no clip ever
/// does.
class DevMateKit : public QObject
{
    Q_OBJECT

public:
    enum class FeedbackMode {
        Dialog = 0, ///< A window of its own.
    };
    enum class UnhandledIssues {
        Left,     ///< Crashes end the program and leave nothing behind.
        Reported, ///< Crashes leave a report, about which the next start asks.
    };

    /// Drafts and reports are kept in `folder`, the application's data folder. The ports must
    /// outlive this object.
    DevMateKit(Workspace &workspace, FrontApplication &frontApplication, Info info, QString folder);
    ~DevMateKit() override;

    /// Tells the address that was built in that this version runs; without one nothing is sent.
    /// A failure is only logged.
    void sendTrackingReport();
    /// Begins to catch crashes, and asks about those of earlier runs once the event loop turns.
    /// Run once.
    void setupIssuesController(UnhandledIssues unhandledIssues);
    /// Opens the feedback dialog, or brings it to the front.
    void showFeedbackDialog(FeedbackMode mode);

    // ^QObject
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    FeedbackDialog &feedbackDialog();
    void offerWhatIsLeft();

    Workspace &m_workspace;
    FrontApplication &m_frontApplication;
    const Info m_info;
    const QString m_folder;
    const CrashReports m_reports;
    std::unique_ptr<CrashReporter> m_crashReporter;
    std::unique_ptr<FeedbackDelivery> m_usage;
    std::unique_ptr<FeedbackDialog> m_feedbackDialog;
    std::unique_ptr<IssueReportDialog> m_issueDialog;
};
