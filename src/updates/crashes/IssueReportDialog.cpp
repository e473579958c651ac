#include "updates/crashes/IssueReportDialog.h"

#include "looks/Looks.h"
#include "looks/PaneParts.h"
#include "updates/feedback/FeedbackMessage.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int kMargin = Looks::kPageMargin;
constexpr int kCharactersAcross = 76;
constexpr int kLinesOfReport = 14;

} // namespace

IssueReportDialog::IssueReportDialog(const Info &info, Workspace &workspace, const QString &folder,
                                     const CrashReports &reports)
    : m_reports(reports), m_delivery(info, workspace, folder + QStringLiteral("/feedback")),
      m_headline(new QLabel), m_explanation(new PaneNote), m_report(new QPlainTextEdit),
      m_status(makeWrappedLabel()), m_show(new QPushButton(tr("Show &Report"))),
      m_decline(new QPushButton(tr("&Do Not Send"))),
      m_send(new QPushButton(m_delivery.actionInWords()))
{
    setWindowTitle(tr("Problem Report"));
    setSizeGripEnabled(false);
    // It comes up by itself; the keyboard stays where the user types.
    setAttribute(Qt::WA_ShowWithoutActivating);
    QFont bold = m_headline->font();
    bold.setBold(true);
    m_headline->setFont(bold);
    m_headline->setText(tr("Quillmarsh ended unexpectedly"));
    QString explanation =
        tr("May the report be sent, so that the fault can be found? It says which version failed, "
           "how, and at which place in the program. It holds no clip and no other text of yours. "
           "If you do not send it, it is deleted.");
    if (const QString way = m_delivery.wayInWords(); !way.isEmpty())
        explanation += u' ' + way;
    m_explanation->setText(explanation);
    m_report->setAccessibleName(tr("Report"));
    m_report->setReadOnly(true);
    m_report->setTabChangesFocus(true);
    m_report->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_report->setPlainText(m_reports.text());
    m_report->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_report->setMinimumHeight(kLinesOfReport * m_report->fontMetrics().lineSpacing());
    m_report->hide();
    m_status->setObjectName(QStringLiteral("status"));
    m_status->hide();
    m_send->setDefault(true);
    layOut();

    connect(m_show, &QPushButton::clicked, this, &IssueReportDialog::toggleReport);
    connect(m_decline, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_send, &QPushButton::clicked, this, &IssueReportDialog::send);
    connect(&m_delivery, &FeedbackDelivery::delivered, this, &IssueReportDialog::showDelivered);
    connect(&m_delivery, &FeedbackDelivery::failed, this, &IssueReportDialog::showFailed);
}

IssueReportDialog::~IssueReportDialog() = default;

void IssueReportDialog::layOut()
{
    m_explanation->setMinimumWidth(kCharactersAcross * fontMetrics().averageCharWidth());
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_show);
    buttons->addStretch();
    buttons->addWidget(m_decline);
    buttons->addWidget(m_send);
    auto *column = new QVBoxLayout(this);
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin - 4);
    column->setSpacing(10);
    column->addWidget(m_headline);
    column->addWidget(m_explanation);
    column->addWidget(m_report);
    column->addWidget(m_status);
    column->addSpacing(6);
    column->addLayout(buttons);
}

void IssueReportDialog::toggleReport()
{
    m_report->setVisible(!m_report->isVisible());
    m_show->setText(m_report->isVisible() ? tr("Hide &Report") : tr("Show &Report"));
}

void IssueReportDialog::send()
{
    m_isWanted = true;
    m_send->setEnabled(false);
    m_decline->setText(tr("Cancel"));
    m_status->setText(tr("Sending…"));
    m_status->show();
    FeedbackMessage message;
    message.kind = FeedbackMessage::Kind::Issue;
    message.text = m_report->toPlainText();
    m_delivery.deliver(message);
}

void IssueReportDialog::showDelivered(const QString &outcome)
{
    m_reports.discard();
    m_status->setText(outcome);
    m_send->hide();
    m_decline->setText(tr("Close"));
    m_decline->setFocus();
}

void IssueReportDialog::showFailed(const QString &reason)
{
    m_status->setText(
        tr("%1 The report is kept, and you will be asked at the next start.").arg(reason));
    m_send->setText(tr("Try Again"));
    m_send->setEnabled(true);
    m_decline->setText(tr("Close"));
}

void IssueReportDialog::reject()
{
    m_delivery.cancel();
    if (!m_isWanted)
        m_reports.discard();
    QDialog::reject();
}
