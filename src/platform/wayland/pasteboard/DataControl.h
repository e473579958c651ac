#pragma once

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
    virtual ~DataOffer() = default;

    /// The names of its formats, in its owner's order.
    const QStringList &names() const { return m_names; }

    /// Asks the owner to write the contents into the descriptor, which stays the caller's and is to
    /// be closed at once.
    virtual void receive(const QString &name, int fd) = 0;

protected:
    QStringList m_names;
};

/// What we own; given up with its end. On the connection's thread.
class DataSource
{
public:
    struct Listeners
    {
        /// Somebody wants the contents written into the descriptor, which is the receiver's from
        /// now on.
        std::function<void(const QString &name, int fd)> asked;
        /// Somebody else owns the selection now, or nobody. Told before what has taken its place.
        std::function<void()> replaced;
    };

    virtual ~DataSource() = default;
};

/// The selections of a seat, followed and owned without a window: by ext_data_control, or the older
/// protocol of the same messages. Owned by the pasteboard's service; on the connection's thread.
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

    /// Null where the compositor offers neither protocol, or no seat. Tells of what is there now
    /// with the next events.
    static std::unique_ptr<DataControl> make(WaylandConnection &connection, Listeners listeners);
    virtual ~DataControl() = default;

    virtual bool hasPrimary() const = 0;

    /// Becomes the owner, once the compositor has read it.
    virtual std::unique_ptr<DataSource> own(Selection selection, const QStringList &names,
                                            DataSource::Listeners listeners) = 0;
    /// Leaves the selection without an owner.
    virtual void empty(Selection selection) = 0;
};
