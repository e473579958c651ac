#pragma once

#include <QObject>
#include <QString>

class Capabilities;
class Consent;

/// What the history's foot and the status item say while nothing is recorded for want of the
/// user's consent to the desktop, and the one way on from there. Never asks by itself. Owned by
/// the application delegate.
class ConsentNotice : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive this object.
    ConsentNotice(Consent &consent, const Capabilities &capabilities);

    /// Whether it can come to that on this desktop.
    bool canConcern() const;

    /// A sentence or two; empty while there is nothing to say.
    QString text() const;

    /// Whether there is something to ask for; then ask() has the desktop ask its user.
    bool canAsk() const;
    void ask();

Q_SIGNALS:
    void changed();

private:
    Consent &m_consent;
    const Capabilities &m_capabilities;
};
