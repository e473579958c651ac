#include "updates/feedback/FeedbackDialog.h"

#include "updates/UpdatesLog.h"
#include "updates/feedback/FeedbackForm.h"
#include "updates/feedback/FeedbackMessage.h"
#include "updates/feedback/SystemLine.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include <chrono>

namespace {

using namespace std::chrono_literals;

QString draftPathIn(const QString &folder)
{
    return folder + QStringLiteral("/feedback-draft.json");
}

bool isMailAddress(const QString &text)
{
    const qsizetype at = text.indexOf(u'@');
    return at > 0 && at == text.lastIndexOf(u'@') && at < text.size() - 1 && !text.contains(u' ');
}

} // namespace

FeedbackDialog::FeedbackDialog(const Info &info, Workspace &workspace, const QString &folder)
    : m_draftPath(draftPathIn(folder)), m_systemLine(systemLine(info)),
      m_delivery(info, workspace, folder + QStringLiteral("/feedback")),
      m_form(new FeedbackForm(m_systemLine, m_delivery, this))
{
    setWindowTitle(tr("Send Feedback"));
    setSizeGripEnabled(false);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_form);

    m_draftTimer.setSingleShot(true);
    m_draftTimer.setInterval(1s);
    connect(&m_draftTimer, &QTimer::timeout, this, &FeedbackDialog::keepDraft);
    connect(m_form->text, &QPlainTextEdit::textChanged, this, &FeedbackDialog::textChanged);
    connect(m_form->send, &QPushButton::clicked, this, &FeedbackDialog::send);
    connect(m_form->close, &QPushButton::clicked, this, &QDialog::reject);
    connect(&m_delivery, &FeedbackDelivery::delivered, this, &FeedbackDialog::showDelivered);
    connect(&m_delivery, &FeedbackDelivery::failed, this, &FeedbackDialog::showFailed);
    for (const QKeySequence &keys :
         {QKeySequence(Qt::CTRL | Qt::Key_Return), QKeySequence(Qt::CTRL | Qt::Key_Enter)})
        connect(new QShortcut(keys, this), &QShortcut::activated, m_form->send,
                &QPushButton::click);
    setState(State::Writing);
}

FeedbackDialog::~FeedbackDialog()
{
    if (isVisible())
        keepDraftAtEnd();
}

bool FeedbackDialog::isRefusedTextIn(const QString &folder)
{
    return FeedbackDraft::load(draftPathIn(folder)).isRefused;
}

void FeedbackDialog::prepare()
{
    if (isVisible() && m_state != State::Done)
        return;
    const FeedbackDraft draft = FeedbackDraft::load(m_draftPath);
    m_form->text->setPlainText(draft.text);
    m_form->text->moveCursor(QTextCursor::End);
    m_form->mail->setText(draft.mail);
    m_form->system->setChecked(draft.isSystemWanted);
    m_form->text->setFocus();
    m_hasWarnedOfLoss = false;
    m_isEnding = false;
    setState(State::Writing);
    if (draft.isRefused)
        say(tr("This has not been sent yet."));
    else if (!draft.isEmpty())
        say(tr("Kept from last time."));
    // Shown is shown: it does not come up by itself again.
    m_isRefused = false;
    if (draft.isRefused)
        keepDraft();
}

void FeedbackDialog::reject()
{
    m_delivery.cancel();
    if (m_isEnding) {
        keepDraftAtEnd();
    } else if (m_state != State::Done && !keepDraft() && !m_hasWarnedOfLoss) {
        m_hasWarnedOfLoss = true;
        setState(State::Writing);
        say(tr("The text cannot be kept for later. Copy it elsewhere; closing again discards it."));
        return;
    }
    m_draftTimer.stop();
    QDialog::reject();
}

void FeedbackDialog::setState(State state)
{
    m_state = state;
    for (QWidget *input :
         {static_cast<QWidget *>(m_form->text), static_cast<QWidget *>(m_form->mail),
          static_cast<QWidget *>(m_form->system)})
        input->setEnabled(state == State::Writing);
    m_form->close->setText(state == State::Sending ? tr("Cancel") : tr("Close"));
    m_form->send->setVisible(state != State::Done);
    say({});
    textChanged();
}

void FeedbackDialog::say(const QString &sentence)
{
    m_form->status->setText(sentence);
}

void FeedbackDialog::textChanged()
{
    // The document counts an end of its own.
    const int length = m_form->text->document()->characterCount() - 1;
    const bool isTooLong = length > FeedbackForm::kMaxCharacters;
    m_form->send->setEnabled(m_state == State::Writing && !draft().isEmpty() && !isTooLong);
    if (m_state != State::Writing)
        return;
    say(isTooLong ? tr("Too long: %1 of at most %2 characters.")
                        .arg(length)
                        .arg(FeedbackForm::kMaxCharacters)
                  : QString());
    m_draftTimer.start();
}

void FeedbackDialog::send()
{
    FeedbackMessage message;
    message.text = m_form->text->toPlainText();
    if (const QString mail = m_form->mail->text().trimmed(); !mail.isEmpty()) {
        if (!isMailAddress(mail)) {
            say(tr("This does not look like a mail address."));
            m_form->mail->setFocus();
            return;
        }
        message.mail = mail;
    }
    if (m_form->system->isChecked())
        message.system = m_systemLine;
    // Beforehand, so that it outlives an end of the program on the way.
    m_isRefused = true;
    keepDraft();
    setState(State::Sending);
    say(tr("Sending…"));
    m_delivery.deliver(message);
}

void FeedbackDialog::showDelivered(const QString &outcome)
{
    m_isRefused = false;
    m_form->text->clear();
    keepDraft();
    setState(State::Done);
    say(outcome);
    m_form->close->setFocus();
}

void FeedbackDialog::showFailed(const QString &reason)
{
    setState(State::Writing);
    say(tr("%1 Your text is kept.").arg(reason));
    m_form->send->setFocus();
}

FeedbackDraft FeedbackDialog::draft() const
{
    return {m_form->text->toPlainText(), m_form->mail->text(), m_form->system->isChecked(),
            m_isRefused};
}

bool FeedbackDialog::keepDraft()
{
    m_draftTimer.stop();
    return draft().save(m_draftPath);
}

/// Nobody is there to be asked any more.
void FeedbackDialog::keepDraftAtEnd()
{
    if (m_state != State::Done && !keepDraft())
        qCWarning(lcUpdates, "unsaved: a feedback text of %lld characters",
                  qlonglong(m_form->text->toPlainText().size()));
}
