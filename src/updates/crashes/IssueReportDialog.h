#pragma once

#include "updates/crashes/CrashReports.h"
#include "updates/feedback/FeedbackDelivery.h"

#include <QDialog>

class QLabel;
class QPlainTextEdit;
class QPushButton;
class PaneNote;

/// Asks whether the reports of crashes may be sent, and shows what they say. Owned by DevMateKit.
/// Whoever declines or closes it is not asked again: the reports are deleted, as they are once
/// sent. Reports that could not be sent stay for the next start.
class IssueReportDialog : public QDialog
{
    Q_OBJECT

public:
    /// `folder` is the application's data folder.
    IssueReportDialog(const Info &info, Workspace &workspace, const QString &folder,
                      const CrashReports &reports);
    ~IssueReportDialog() override;

    // ^QDialog
    void reject() override;

private:
    void layOut();
    void toggleReport();
    void send();
    void showDelivered(const QString &outcome);
    void showFailed(const QString &reason);

    CrashReports m_reports;
    FeedbackDelivery m_delivery;
    QLabel *m_headline;
    PaneNote *m_explanation;
    QPlainTextEdit *m_report;
    QLabel *m_status;
    QPushButton *m_show;
    QPushButton *m_decline;
    QPushButton *m_send;
    bool m_isWanted = false; ///< The user has said yes; it only has not arrived.
};
