#pragma once

#include <QObject>

/// What some desktops let a program do only once their user has agreed, in a dialog of the
/// desktop's own: to see what is copied, and to type. Owned by Platform; used from the main thread.
class Consent : public QObject
{
    Q_OBJECT

public:
    enum class State {
        NotNeeded,  ///< This desktop asks nobody.
        NotAsked,   ///< Nor will anybody be, before ask().
        Asking,     ///< The desktop is being asked; its dialog may be open.
        Given,      ///< In force.
        Refused,    ///< The user has said no, or not to all of it.
        Ended,      ///< It was in force: the user or the desktop has ended it.
        Unavailable ///< The desktop cannot be asked.
    };

    using QObject::QObject;

    virtual State state() const = 0;

    /// Whether the user may be told to ask: nothing is in force, and it may come to that.
    bool isWanted() const
    {
        const State now = state();
        return now == State::NotAsked || now == State::Refused || now == State::Ended;
    }

    /// Has the desktop ask its user, which may open its dialog: only ever because the user wants
    /// that. Nothing while it is in force or being asked.
    virtual void ask() = 0;

Q_SIGNALS:
    void stateChanged();
};

/// Where nobody need be asked.
class NoConsent : public Consent
{
    Q_OBJECT

public:
    using Consent::Consent;

    // ^Consent
    State state() const override { return State::NotNeeded; }
    void ask() override {}
};
