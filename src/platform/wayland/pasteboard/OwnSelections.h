#pragma once

#include "platform/pasteboard/CopyOffer.h"
#include "platform/pasteboard/PasteboardLimits.h"
#include "platform/wayland/pasteboard/DataControl.h"
#include "platform/wayland/pasteboard/PipeWriters.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>

/// Takes selections, serves those who ask for what we own, and gives selections up. What is ours is
/// known by a format of its own when it comes back. Owned by the pasteboard's service; on the
/// connection's thread.
class OwnSelections
{
public:
    using TimePoint = WaylandConnection::TimePoint;
    using Selection = DataControl::Selection;

    /// The references must outlive this object. `pasteRead` is told once for each expectPaste(),
    /// when what was pasted has been asked for. `given` is told each time that somebody has asked
    /// for what is on the clipboard, later than other clipboard managers do.
    OwnSelections(WaylandConnection &connection, const PasteboardLimits &limits,
                  std::function<void()> pasteRead, std::function<void()> given);

    /// Becomes the owner, and serves `offer` from now on. What the compositor has told until it
    /// confirms it was handled when this returns. False when somebody else owns it by then, or
    /// nobody.
    [[nodiscard]] bool claim(DataControl &control, Selection selection,
                             std::shared_ptr<const CopyOffer> offer);

    /// The selection was told to be that of `offer`, null for nobody's. True when that is ours.
    bool confirm(Selection selection, const std::shared_ptr<DataOffer> &offer);
    /// The selection was told to be somebody else's or nobody's. True when it was ours until then.
    bool release(Selection selection);
    /// Gives it up, or all of them.
    void giveUp(Selection selection) { m_own.erase(selection); }
    void giveUpAll();

    /// Null when the selection is not ours.
    std::shared_ptr<const CopyOffer> offer(Selection selection) const;

    /// From now on it is looked out for somebody to ask for what is on the clipboard, or for
    /// PRIMARY where that is pasted.
    void expectPaste();

    /// Drops stalled readers and says when the next will be.
    std::optional<TimePoint> keepDeadlines(TimePoint now) { return m_writers.keepDeadlines(now); }

private:
    struct Own
    {
        std::unique_ptr<DataSource> source;
        std::shared_ptr<const CopyOffer> offer;
        QString mark;    ///< Among its formats.
        TimePoint since; ///< From when on others can read it, as far as is known.
        bool isConfirmed = false;
        int timesRead = 0;
        bool isPasted = false; ///< While it was ours a paste was expected.

        void confirm(TimePoint now)
        {
            since = isConfirmed ? since : now;
            isConfirmed = true;
        }
    };

    DataSource::Listeners listenersOf(Selection selection, const QString &mark,
                                      const std::shared_ptr<const CopyOffer> &offer);
    Own *find(Selection selection, const QString &mark);
    Own take(Selection selection);
    void noteRead(Selection selection, const QString &mark);

    const PasteboardLimits &m_limits;
    std::function<void()> m_pasteRead;
    std::function<void()> m_given;
    PipeWriters m_writers;
    std::map<Selection, Own> m_own;
    std::set<Selection> m_replaced; ///< Until it is told what took the place of ours.
    int m_marksMade = 0;
    bool m_isPasteAwaited = false;
    int m_readsOfPaste = 0;      ///< As many as one of them must be the paste.
    int m_readsWithoutPaste = 0; ///< Of what we wrote last that was not pasted: by managers.
};
