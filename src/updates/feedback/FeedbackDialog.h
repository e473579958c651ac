#pragma once

#include "updates/feedback/FeedbackDelivery.h"
#include "updates/feedback/FeedbackDraft.h"

#include <QDialog>
#include <QTimer>

class FeedbackForm;

/// Takes a message to those who make the program: a text, a mail address if the user wants an
/// answer, and one line about version and desktop if the user ticks it. Owned by DevMateKit and
/// used again. A text that is written is never lost: closing, quitting, and a server that cannot
/// be reached keep it in a draft, which the next opening shows.
class FeedbackDialog : public QDialog
{
    Q_OBJECT

public:
    /// `folder` is the application's data folder.
    FeedbackDialog(const Info &info, Workspace &workspace, const QString &folder);
    ~FeedbackDialog() override;

    /// Whether a text that was to be sent waits in `folder` and has not been shown since.
    static bool isRefusedTextIn(const QString &folder);
    /// The program ends: from now on the dialog closes without a question. A text that cannot be
    /// kept is logged as unsaved.
    void setEnding() { m_isEnding = true; }
    /// Shows the draft, if there is one. Does nothing to a dialog in which something is being
    /// written or sent.
    void prepare();

    // ^QDialog
    void reject() override;

private:
    enum class State { Writing, Sending, Done };

    void setState(State state);
    void say(const QString &sentence);
    void textChanged();
    void send();
    void showDelivered(const QString &outcome);
    void showFailed(const QString &reason);
    FeedbackDraft draft() const;
    bool keepDraft();
    void keepDraftAtEnd();

    const QString m_draftPath;
    const QString m_systemLine;
    FeedbackDelivery m_delivery;
    FeedbackForm *m_form;
    State m_state = State::Writing;
    bool m_isRefused = false;
    bool m_hasWarnedOfLoss = false;
    bool m_isEnding = false;
    QTimer m_draftTimer;
};
