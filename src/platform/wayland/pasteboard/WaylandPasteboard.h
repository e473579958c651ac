#pragma once

#include "platform/pasteboard/PasteboardLimits.h"
#include "platform/pasteboard/PublishedPasteboard.h"
#include "platform/wayland/pasteboard/WaylandPasteboardService.h"

#include <memory>

class WaylandConnection;

/// The clipboard of a Wayland session as a pasteboard server, by the data-control protocols or what
/// the session has in their place. Owned
/// by Platform and used from the main thread; the work is done by a service on the connection's
/// thread, so that a hung program holds up nobody and everybody is answered while the main thread
/// is busy. When the compositor goes, what was published stays readable, writing is refused, and
/// nothing is served any more.
///
/// Of an owner that is gone nobody is told whether it ended or emptied the clipboard on purpose. It
/// is taken as ended, and what it left is served on; whoever empties that means it.
class WaylandPasteboard : public PublishedPasteboard
{
    Q_OBJECT

public:
    using Front = WaylandPasteboardService::Front;
    /// Says what is in front; on the connection's thread.
    using AskFront = std::function<Front()>;

    /// To be made before the connection is started, or while it runs. `makeControl` finds what the
    /// clipboard is followed by, on the connection's thread; null for the data-control protocols.
    explicit WaylandPasteboard(std::shared_ptr<WaylandConnection> connection, AskFront front,
                               const PasteboardLimits &limits = {},
                               DataControl::Make makeControl = {});
    ~WaylandPasteboard() override;

    /// `makeControl` may find something by now.
    void lookAgain();

    /// Owns PRIMARY too, with the text of the current contents, confirmed when it returns. For
    /// pasting into terminals; without a text nothing happens.
    void offerPrimary();

    /// Reads PRIMARY and publishes it as a change if it was marked while `window`, as AskFront
    /// numbers them, was in front; 0 stands for any. Otherwise nothing happens. Returns at once.
    /// This is "copy" in a terminal.
    void publishPrimary(quint64 window);

    /// To be called right before a paste is typed. Nobody is told who asks for what we serve, so
    /// isPasteRead() tells that it was read once more often than the clipboard managers did with
    /// what we wrote last that was not pasted.
    void expectPaste();

    // ^Pasteboard
    void acknowledge(qint64 changeCount) override;
    void discard(qint64 changeCount) override;
    void setFetchesTold(bool areTold) override;
    bool write(const Copy &copy) override;
    void clear() override;
    void markText(const QString &text) override;
    void shutDown() override;

protected:
    // ^PublishedPasteboard
    bool ask(Selection selection, Receiver receive) override;

private:
    void post(std::function<void()> task);

    PasteboardLimits m_limits;
    std::shared_ptr<WaylandConnection> m_connection; ///< Null after shutDown().
    std::unique_ptr<WaylandPasteboardService> m_service;
};
