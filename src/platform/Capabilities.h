#pragma once

#include <QList>
#include <QObject>
#include <QString>

/// What becomes of one thing that Quillmarsh does, in the session at hand.
struct Capability
{
    enum class Kind {
        Recording,  ///< Copies of other programs are seen.
        Shortcuts,  ///< Hot keys work wherever the keyboard is.
        Pasting,    ///< Clips are typed into the application in front.
        WindowPlace ///< The history opens where it belongs, above all else.
    };
    enum class State {
        Works,
        WorksAfter, ///< Works once the user has done what `remedy` says.
        Withheld    ///< The session gives no program a way.
    };

    Kind kind = Kind::Recording;
    State state = State::Works;
    /// Why it does not work, and what to do about it: a sentence each, in English, known to the
    /// catalogues in the context "Capabilities" (QT_TRANSLATE_NOOP). Null when there is none.
    const char *reason = nullptr;
    const char *remedy = nullptr;
    /// Lines for the user to add to the desktop's configuration; empty when there are none.
    QString configuration = {};

    bool operator==(const Capability &other) const;
};

/// What the session lets us do, one entry a kind. Owned by Platform and filled by the loader and
/// the adapters, who tell again when something changes; the log has a line of each. Used from the
/// main thread.
class Capabilities : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Ordered by kind.
    const QList<Capability> &all() const { return m_all; }
    /// Whether there is nothing to tell the user.
    bool doAllWork() const;

    /// In the user's language; empty when there is none.
    static QString reasonOf(const Capability &capability);
    static QString remedyOf(const Capability &capability);

    /// In place of what was told of its kind before.
    void tell(const Capability &capability);

Q_SIGNALS:
    void changed();

private:
    QList<Capability> m_all;
};
