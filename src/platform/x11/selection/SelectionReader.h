#pragma once

#include "platform/pasteboard/PasteboardLimits.h"
#include "platform/x11/selection/FetchedSelection.h"
#include "platform/x11/selection/IncomingConversion.h"

#include <QHash>
#include <QList>

#include <chrono>
#include <optional>

#include <xcb/xcb.h>

/// Reads a selection, one format after the other, because many owners muddle up two transfers to
/// the same window: the list of formats first, then text, other formats and files. The text comes
/// first, so that it is there when the owner does not live long. A text that was listed and refused
/// is asked for again, a little later, before the reading ends. Owned by the pasteboard's service,
/// one a selection; service thread only. It never waits for the owner: events and the clock drive
/// it.
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

    /// Begins with the contents that were there at `time`, reading at most `maxTextBytes` of
    /// text. Only when nothing is being read.
    void begin(xcb_atom_t selection, xcb_timestamp_t time, qint64 maxTextBytes,
               Wish wish = Wish::Copy);

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
    enum class Part { Targets, Text, Format, Files, CutMark };
    struct Request
    {
        Part part;
        xcb_atom_t target;
        const CopyFormat *format = nullptr; ///< Of a Format.
    };

    void askNext();
    void goOn();
    void useAnswer();
    void useTargets();
    void useText();
    void useFiles();
    void planFormats(const QList<xcb_atom_t> &offered);
    void dropOthersLike(const Request &had);
    bool waitToAskAgain();
    void finish();
    /// Empty for an atom that the server does not know.
    QStringList namesOf(const QList<xcb_atom_t> &atoms);

    SelectionConnection &m_connection;
    const PasteboardLimits &m_limits;
    IncomingConversion m_conversion;
    bool m_isReading = false;
    bool m_isFinished = false;
    xcb_atom_t m_selection = XCB_ATOM_NONE;
    xcb_timestamp_t m_time = XCB_CURRENT_TIME;
    qint64 m_maxTextBytes = 0;
    Wish m_wish = Wish::Copy;
    TimePoint m_begun;
    TimePoint m_lastProgress;
    QList<Request> m_requests;    ///< The first one is under way.
    QList<Request> m_texts;       ///< To be asked again if all are refused.
    bool m_mayHaveNoText = false; ///< Although one is listed.
    bool m_isTextRefused = false;
    std::size_t m_timesAskedAgain = 0;
    std::optional<TimePoint> m_askAgainAt; ///< While nothing is under way but the wait for it.
    FetchedSelection m_fetched;
    QHash<xcb_atom_t, QString> m_names; ///< Asked of the server once each.
};
