#pragma once

#include "platform/KeySender.h"
#include "platform/typing/KnownKeys.h"
#include "platform/wayland/Toplevels.h"
#include "platform/wayland/Typist.h"
#include "platform/wayland/WaylandTypeAhead.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>
#include <utility>

class ApplicationNames;

/// Types by a keyboard that the compositor takes for one, what the application in front takes. No
/// program can keep back what the user types into another one's window: of the keys that follow a
/// Return only those are kept back that come to our own.
class WaylandKeySender : public QObject, public KeySender
{
    Q_OBJECT

public:
    /// What is done with the selections for a keystroke.
    struct Selections
    {
        /// A paste is about to be typed.
        std::function<void()> expectPaste;
        /// Makes the pasteboard's text the primary selection. Null where there is none, like the
        /// next.
        std::function<void()> offerPrimary;
        /// Takes the primary selection as a copy, if it was marked while `window` was in front.
        std::function<void(Toplevels::Id window)> publishPrimary;
    };

    /// `names` must outlive this object.
    WaylandKeySender(std::unique_ptr<Typist> typist, std::shared_ptr<const Toplevels> toplevels,
                     const ApplicationNames &names, Selections selections,
                     KnownKeys::UsersTable usersTable = {});

    // ^KeySender
    bool isAvailable() const override { return m_typist->isAvailable(); }
    bool isKeyHeld() const override { return false; }
    [[nodiscard]] Outcome sendCommand(quint32 keyCode) override;
    [[nodiscard]] Outcome sendPasteOverCopied() override;
    void setGivenUp(std::function<void()> givenUp) override { m_givenUp = std::move(givenUp); }
    void keepTypedAhead(QWindow *) override {}

    /// The target has read what was pasted.
    void letTypedAheadGo() { m_typeAhead.letGo(); }

private:
    Toplevels::Id inFront() const;
    ApplicationKeys keysOfFront();
    Outcome copy(const ApplicationKeys &keys);
    Outcome paste(const ApplicationKeys &keys, KeySequence sequence);
    void pasteTakenOver(Toplevels::Id target, const KeySequence &sequence);
    Outcome typePaste(const KeySequence &sequence);

    const std::unique_ptr<Typist> m_typist;
    const std::shared_ptr<const Toplevels> m_toplevels;
    const ApplicationNames &m_names;
    const Selections m_selections;
    KnownKeys m_knownKeys;
    std::function<void()> m_givenUp;
    WaylandTypeAhead m_typeAhead;
    QTimer m_journey; ///< Of the clip to another computer.
};
