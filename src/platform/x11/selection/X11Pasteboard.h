#pragma once

#include "platform/pasteboard/PasteboardLimits.h"
#include "platform/pasteboard/PublishedPasteboard.h"

#include <memory>

#include <xcb/xcb.h>

class ApplicationNames;
class PasteboardService;
class SelectionConnection;
class X11EventThread;

/// The CLIPBOARD selection as a pasteboard server. Owned by Platform and used from the main
/// thread; the work is done by a service with a thread and an X connection of its own, so that a
/// hung program holds up nobody and everybody is answered while the main thread is busy. When the
/// connection breaks it logs so once: what was published stays readable, writing is refused, and
/// nothing is served any more.
class X11Pasteboard : public PublishedPasteboard
{
    Q_OBJECT

public:
    /// `names` is not owned, must outlive this object and is asked on the service's thread.
    explicit X11Pasteboard(const ApplicationNames &names, const PasteboardLimits &limits = {});
    ~X11Pasteboard() override;

    /// Owns the PRIMARY selection too, with the text of the current contents, confirmed when it
    /// returns. For pasting into terminals; without a text nothing happens.
    void offerPrimary();

    /// Reads the PRIMARY selection and publishes it as a change if its owner is the client that
    /// `target` belongs to; otherwise nothing happens. Returns at once. This is "copy" in a
    /// terminal.
    void publishPrimary(xcb_window_t target);

    /// To be called right before a paste is typed into `target`: isPasteRead() tells of the client
    /// that it belongs to.
    void expectPaste(xcb_window_t target);

    /// Who has asked for what was written last, if only for its formats.
    std::vector<xcb_window_t> askers() const;

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
    PasteboardLimits m_limits;
    std::unique_ptr<SelectionConnection> m_connection;
    std::unique_ptr<PasteboardService> m_service;
    std::unique_ptr<X11EventThread> m_thread; ///< Last, so it ends first; null after shutDown().
};
