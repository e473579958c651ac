#pragma once

#include "platform/wayland/pasteboard/ReadingEnd.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

class WaylandConnection;

/// A copy that somebody offers. Of use, to ask its owner, until another one takes its place; asked
/// later it answers with nothing. On the connection's thread.
class DataOffer
{
public:
    using Opened = std::function<void(ReadingEnd end)>;

    virtual ~DataOffer() = default;

    /// The names of its formats, in its owner's order.
    const QStringList &names() const { return m_names; }

    /// Asks the owner for the contents. `opened` is told, at once or later, where it writes them;
    /// without a descriptor where there is nothing to be had.
    virtual void open(const QString &name, Opened opened) = 0;

protected:
    QStringList m_names;
};

/// What we own; given up with its end. On the connection's thread.
class DataSource
{
public:
    /// Told when the descriptor has been closed, and whether all was written; null where nobody
    /// wants to know.
    using Given = std::function<void(bool isWhole)>;

    struct Listeners
    {
        /// Somebody wants the contents written into the descriptor, which is the receiver's from
        /// now on.
        std::function<void(const QString &name, int fd, Given given)> asked;
        /// Somebody else owns the selection now, or nobody. Told before what has taken its place.
        std::function<void()> replaced;
    };

    virtual ~DataSource() = default;
};

/// The selections of a seat, followed and owned without a window: by ext_data_control, or the older
/// protocol of the same messages, or whatever else a session has for it. Owned by the pasteboard's
/// service; on the connection's thread.
class DataControl
{
public:
    enum class Selection { Clipboard, Primary };

    struct Listeners
    {
        /// Null when the selection is nobody's. Our own comes back in the same way.
        std::function<void(Selection selection, std::shared_ptr<DataOffer> offer)> changed;
        /// The compositor has ended it: nothing more is told and nothing can be owned.
        std::function<void()> finished;
    };

    /// Null where nothing of the kind is offered. Tells of what is there now with the next events.
    using Make = std::function<std::unique_ptr<DataControl>(Listeners listeners)>;

    /// By the protocols; null where the compositor offers neither, or no seat.
    static std::unique_ptr<DataControl> make(WaylandConnection &connection, Listeners listeners);
    virtual ~DataControl() = default;

    virtual bool hasPrimary() const = 0;

    /// Becomes the owner, once the compositor has read it.
    virtual std::unique_ptr<DataSource> own(Selection selection, const QStringList &names,
                                            DataSource::Listeners listeners) = 0;
    /// Leaves the selection without an owner.
    virtual void empty(Selection selection) = 0;

    /// Returns when what was asked before is done. What was told until then has been handled, in
    /// order. False when it cannot be known.
    [[nodiscard]] virtual bool roundTrip() = 0;
};
