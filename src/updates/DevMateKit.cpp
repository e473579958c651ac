#include "updates/DevMateKit.h"

#include "platform/FrontApplication.h"
#include "updates/crashes/CrashReporter.h"
#include "updates/crashes/IssueReportDialog.h"
#include "updates/feedback/FeedbackDelivery.h"
#include "updates/feedback/FeedbackDialog.h"
#include "updates/feedback/FeedbackMessage.h"

#include <QApplication>
#include <QEvent>

#include <utility>

namespace {

QString productLine(const Info &info)
{
    return QStringLiteral("Quillmarsh ") + info.bundleShortVersionString.value_or(QString());
}

} // namespace

DevMateKit::DevMateKit(Workspace &workspace, FrontApplication &frontApplication, Info info,
                       QString folder)
    : m_workspace(workspace), m_frontApplication(frontApplication), m_info(std::move(info)),
      m_folder(std::move(folder)), m_reports(m_folder + QStringLiteral("/crashes"))
{
}

DevMateKit::~DevMateKit() = default;

void DevMateKit::sendTrackingReport()
{
    if (m_info.feedbackUrl.isEmpty())
        return;
    FeedbackMessage message;
    message.kind = FeedbackMessage::Kind::Usage;
    message.text = productLine(m_info);
    m_usage = std::make_unique<FeedbackDelivery>(m_info, m_workspace, m_folder);
    m_usage->deliver(message);
}

void DevMateKit::setupIssuesController(UnhandledIssues unhandledIssues)
{
    if (unhandledIssues == UnhandledIssues::Reported)
        m_crashReporter = std::make_unique<CrashReporter>(m_reports.folder(), productLine(m_info));
    // Later, so that no window delays the start.
    QMetaObject::invokeMethod(this, &DevMateKit::offerWhatIsLeft, Qt::QueuedConnection);
}

void DevMateKit::showFeedbackDialog(FeedbackMode)
{
    FeedbackDialog &dialog = feedbackDialog();
    dialog.prepare();
    dialog.setAttribute(Qt::WA_ShowWithoutActivating, false);
    dialog.show();
    dialog.raise();
    m_frontApplication.activate(dialog.windowHandle());
}

FeedbackDialog &DevMateKit::feedbackDialog()
{
    if (!m_feedbackDialog) {
        m_feedbackDialog = std::make_unique<FeedbackDialog>(m_info, m_workspace, m_folder);
        qApp->installEventFilter(this);
    }
    return *m_feedbackDialog;
}

void DevMateKit::offerWhatIsLeft()
{
    m_reports.tidy();
    if (m_reports.count() > 0) {
        m_issueDialog =
            std::make_unique<IssueReportDialog>(m_info, m_workspace, m_folder, m_reports);
        qApp->installEventFilter(this);
        m_issueDialog->show();
    }
    if (FeedbackDialog::isRefusedTextIn(m_folder) && !feedbackDialog().isVisible()) {
        feedbackDialog().prepare();
        feedbackDialog().setAttribute(Qt::WA_ShowWithoutActivating);
        feedbackDialog().show();
    }
}

bool DevMateKit::eventFilter(QObject *watched, QEvent *event)
{
    // The application's end closes every window: closing the one would be an answer, and the other
    // one might refuse.
    if (watched == qApp && event->type() == QEvent::Quit) {
        if (m_issueDialog)
            m_issueDialog->hide();
        if (m_feedbackDialog)
            m_feedbackDialog->setEnding();
    }
    return QObject::eventFilter(watched, event);
}
