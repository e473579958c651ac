#pragma once

#include "platform/typing/KeyChord.h"

#include <QObject>
#include <QTimer>

class QKeyEvent;
class Typist;

/// What the user types right behind a key that pastes. Until the compositor has given the keyboard
/// back it comes to our window, which is hidden by then and would take it for its next showing. It
/// is kept until the paste has been read, and then typed into the target. What comes to a hidden
/// window otherwise is nobody's. Main thread only.
class WaylandTypeAhead : public QObject
{
    Q_OBJECT

public:
    /// The typist must outlive this object.
    explicit WaylandTypeAhead(Typist &typist);

    /// A paste has been typed.
    void begin();
    /// It has been read.
    void letGo();

    // ^QObject
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void take(const QKeyEvent &press);
    void typeKept();

    Typist &m_typist;
    QTimer m_limit; ///< Runs while what is kept may be wanted.
    bool m_isPasted = false;
    bool m_isRead = false;
    KeySequence m_kept;
};
