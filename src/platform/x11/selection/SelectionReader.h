#pragma once

#include "platform/pasteboard/CopyQuestions.h"
#include "platform/pasteboard/PasteboardLimits.h"
#include "platform/x11/selection/FetchedSelection.h"
#include "platform/x11/selection/IncomingConversion.h"

#include <QList>

#include <chrono>
#include <optional>

#include <xcb/xcb.h>

/// Reads a selection, one format after the other, because many owners muddle up two transfers to
/// the same window: the list of formats first, then text, other formats and files. The text comes
/// first, so that it is there when the owner does not live long. A text that was listed and refused
/// is asked for again, a little later, before the reading ends. What else there is of a copy is
/// read in the same way. Owned by the pasteboard's service, one a selection; service thread only.
/// It never waits for the owner: events and the clock drive it.
class SelectionReader
{
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    /// Neither is owned; both must outlive this object.
    SelectionReader(SelectionConnection &connection, PropertyPool &pool,
                    const PasteboardLimits &limits);

    enum class Wish {
        Copy, ///< Everything that is of use of a copy; nothing of a secret.
        Text, ///< The text alone, also of a secret: the user pastes it.
    };

    /// Begins with the contents that were there at `time`, reading no more than is of use. Only
    /// when nothing is being read.
    void begin(xcb_atom_t selection, xcb_timestamp_t time, const CopyQuestions::Useful &useful,
               Wish wish = Wish::Copy);

    /// Begins with the rest of a copy that was made at `time`, and reads at most `maxBytes` in all:
    /// of each list of `alternatives` the first format that can be had. Only when nothing is being
    /// read.
    void beginRest(xcb_atom_t selection, xcb_timestamp_t time,
                   const QList<QList<xcb_atom_t>> &alternatives, qint64 maxBytes);

    bool isReading() const { return m_isReading; }

    /// True when the event belonged to this reading.
    bool handle(const xcb_generic_event_t &event);

    /// Gives up an owner that is too slow.
    void checkClock(TimePoint now);
    std::optional<TimePoint> deadline() const;

    /// What was read, once, when the reading has ended by itself.
    std::optional<FetchedSelection> takeFinished();

    /// Ends the reading and gives what has arrived whole so far.
    FetchedSelection abandon();

private:
    struct Request
    {
        enum class Part { Targets, Contents, Rest };

        Part part;
        xcb_atom_t target;
        CopyQuestions::Question question = {}; ///< Of Contents.
        qsizetype row = 0;                     ///< Among the alternatives of the Rest.

        bool isText() const;
        bool isLike(const Request &other) const;
    };

    struct Texts
    {
        QList<Request> requests; ///< To be asked again if all are refused.
        bool mayBeNone = false;  ///< Although one is listed.
        bool isRefused = false;
        std::size_t timesAskedAgain = 0;
    };

    void restart(xcb_atom_t selection, xcb_timestamp_t time, qint64 maxBytes,
                 std::chrono::milliseconds patience);
    void askNext();
    void goOn();
    void useAnswer();
    void useTargets();
    void useText(const Request &request, bool isHad);
    void useRest(const Request &request);
    void useContents(const Request &request, bool isHad);
    void planFormats(const QList<xcb_atom_t> &offered);
    void dropOthersLike(const Request &had);
    bool waitToAskAgain();
    void finish();

    SelectionConnection &m_connection;
    const PasteboardLimits &m_limits;
    IncomingConversion m_conversion;
    bool m_isReading = false;
    bool m_isFinished = false;
    xcb_atom_t m_selection = XCB_ATOM_NONE;
    xcb_timestamp_t m_time = XCB_CURRENT_TIME;
    qint64 m_maxBytes = 0; ///< Of the text, or of all the rest that is still to come.
    Wish m_wish = Wish::Copy;
    CopyQuestions::Useful m_useful;
    TimePoint m_end; ///< When the owner is given up at the latest.
    TimePoint m_lastProgress;
    QList<Request> m_requests; ///< The first one is under way.
    Texts m_texts;
    std::optional<TimePoint> m_askAgainAt; ///< While nothing is under way but the wait for it.
    FetchedSelection m_fetched;
};
