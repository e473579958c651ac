#pragma once

#include "platform/Copy.h"

#include <QList>
#include <QObject>
#include <QString>

#include <functional>
#include <optional>

/// What somebody put on the pasteboard, and the circumstances, as they stood when its change was
/// published. A format that was not offered, or did not arrive whole, is absent.
struct PasteboardContents : Copy
{
    /// What the owner offered, of use here or not.
    enum class Media {
        None,    ///< At most what tells about the copy.
        Picture, ///< A picture, whatever else.
        Other,
    };

    /// Name of the application in front when the change happened, by the rule of
    /// ApplicationNames; the empty text when it could not be told.
    QString applicationName = {};
    /// The change that brought these contents; 0 only for a pasteboard nobody ever wrote.
    qint64 changeCount = 0;
    Media media = Media::None;
    /// One of our own windows was in front when the change happened, so that `applicationName` is
    /// our own although another application may have made the change.
    bool isOursInFront = false;
    /// Reading stopped because the text passed the size set with setLargestUsefulText; there is
    /// nothing of the copy then.
    bool isTextTooLarge = false;
    /// Size in bytes of UTF-8 of a text that is too large; absent when reading stopped before it
    /// was known.
    std::optional<qint64> tooLargeBytes = {};
    /// The owner marked the copy as a secret. Such contents are never fetched: every format is
    /// absent.
    bool isConcealed = false;
    /// Reading stopped because the picture passed the size set with setLargestUsefulPicture.
    bool isPictureTooLarge = false;
    /// Written through this pasteboard's own write().
    bool isOwnWrite = false;
};

/// The system pasteboard with the semantics of a pasteboard server: it counts changes, keeps
/// contents after their owner exits, and answers at once whatever the main thread does. Owned by
/// Platform; used from the main thread only. No operation blocks on another program;
/// write() and clear() wait for the display server's confirmation (below a millisecond).
///
/// Changes of other clients are kept, in order, until they are examined, so none is lost between
/// two looks; of own writes only the latest is kept. Ownership is never taken because something
/// was copied: only to write, and to keep serving what a dead owner left behind.
class Pasteboard : public QObject
{
    Q_OBJECT

public:
    /// What a text field pastes from.
    enum class Selection {
        Clipboard, ///< What was copied.
        Primary    ///< What was marked last, in whatever program; pasted by the middle button.
    };
    /// Absent when there is no text, or its owner did not give it in time.
    using TextAnswer = std::function<void(const std::optional<QString> &text)>;

    using QObject::QObject;

    /// Rises by one with each change, once its contents are published. Existing contents at start
    /// are change 1.
    virtual qint64 changeCount() const = 0;

    /// The changes after `changeCount` that were not examined yet, oldest first.
    virtual QList<PasteboardContents> changesAfter(qint64 changeCount) const = 0;

    /// The current contents; absent when the pasteboard is empty or its contents were discarded.
    virtual std::optional<PasteboardContents> contents() const = 0;

    /// Say that a change was examined: acknowledged, it may be served on after its owner's death;
    /// discarded, it is forgotten, neither kept in memory nor served after its owner's death. A
    /// change number that is no longer known is ignored.
    virtual void acknowledge(qint64 changeCount) = 0;
    virtual void discard(qint64 changeCount) = 0;

    /// Size in bytes of UTF-8 beyond which a text is of no use to the caller. Reading a larger one
    /// stops early and publishes it with `isTextTooLarge`.
    virtual void setLargestUsefulText(qint64 bytes) = 0;

    /// Size in bytes of PNG beyond which a picture is of no use to the caller; 0, as at first, when
    /// none is. Pictures are read only of copies without a text and without files.
    virtual void setLargestUsefulPicture(qint64 bytes) = 0;

    /// Replaces the contents and becomes the owner. Absent formats are not offered, but files
    /// without a text offer their paths as text. The change count has risen when it returns. False
    /// when the display server did not confirm the ownership; nothing has changed then.
    [[nodiscard]] virtual bool write(const Copy &copy) = 0;

    /// Whether the application into which KeySender has typed the latest paste has asked for what
    /// is on the pasteboard since. What others ask for does not count.
    virtual bool isPasteRead() const = 0;

    /// While they are told, fetched() says when the application in front asks for what we have
    /// written. At first they are not.
    virtual void setFetchesTold(bool areTold) = 0;

    /// Empties the pasteboard; nothing is served or adopted until somebody copies again.
    virtual void clear() = 0;

    /// Asks for the text that a text field of ours is to paste, also one that is no use to the
    /// history: a secret, one that was discarded, one that is too large. `answer` is called on the
    /// main thread, before this returns where the text is at hand, else once its owner has given
    /// it or was given up; never after `context` is gone or after shutDown().
    virtual void askText(Selection selection, QObject *context, TextAnswer answer) = 0;

    /// Offers a text as Selection::Primary, as if it had been marked in a field of ours.
    virtual void markText(const QString &text) = 0;

    /// Hands the contents to another clipboard manager if there is one, then stops serving.
    /// Called once, at quit; bounded in time.
    virtual void shutDown() = 0;

Q_SIGNALS:
    /// Another client's change was published. Own writes do not emit it.
    void changed(qint64 changeCount);
    /// isPasteRead() has become true.
    void pasteRead();
    /// The application in front has asked for what we wrote as change `changeCount`, in one of the
    /// formats that it takes of it; so one paste may be told several times. That other clipboard
    /// managers ask is not told.
    void fetched(qint64 changeCount);
};
