#pragma once

#include "platform/pasteboard/CopyOffer.h"
#include "platform/pasteboard/CopyQuestions.h"
#include "platform/pasteboard/PasteboardLimits.h"
#include "platform/wayland/WaylandConnection.h"
#include "platform/wayland/pasteboard/DataControl.h"

#include <QList>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

/// Reads what somebody offers, each format through a pipe. What is of use of a copy is asked for
/// all at once, the text first: an owner goes on writing when another copy has taken the place of
/// its own, but cannot be asked any more. Nothing at all is an empty text as well as a refusal; so
/// where every text is empty they are asked for again, a little later. It never waits for the
/// owner: pipes and the clock drive it. On the connection's thread.
class OfferReader
{
public:
    using TimePoint = WaylandConnection::TimePoint;
    struct Result : FetchedCopy
    {
        /// What else was read of it, as its owner gave it.
        QList<CopyOffer::Format> rest;
    };
    enum class Wish {
        Copy, ///< Everything that is of use of a copy; nothing of a secret.
        Text, ///< The text alone, also of a secret: the user pastes it.
    };

    /// Neither is owned; both must outlive this object. `finished` is told when a reading has ended
    /// because of its owner, and may end this object.
    OfferReader(WaylandConnection &connection, const PasteboardLimits &limits,
                std::function<void()> finished);
    OfferReader(const OfferReader &) = delete;
    OfferReader &operator=(const OfferReader &) = delete;
    ~OfferReader() { stop(); }

    /// Begins to read what is of use. Only when nothing is being read.
    void begin(std::shared_ptr<DataOffer> offer, const CopyQuestions::Useful &useful,
               Wish wish = Wish::Copy);

    /// Begins with the rest of a copy, one format after the other, and reads at most `maxBytes` in
    /// all: of each list of `alternatives` the first format that can be had. Only when nothing is
    /// being read.
    void beginRest(std::shared_ptr<DataOffer> offer, const QList<QStringList> &alternatives,
                   qint64 maxBytes);

    bool isReading() const { return m_isReading; }

    /// Something else has taken the place of the offer: what was asked for may still come, but
    /// soon.
    void outdate();

    /// Gives up an owner that is too slow; `finished` is not told of that.
    void checkClock(TimePoint now);
    std::optional<TimePoint> deadline() const;

    /// What was read, once, when the reading has ended by itself.
    std::optional<Result> takeFinished();

    /// Ends the reading and gives what has arrived whole so far.
    Result abandon();

private:
    struct Request
    {
        CopyQuestions::Question question;
        std::optional<qsizetype> restRow = {}; ///< Among the alternatives of the rest.

        bool isText() const;
        bool isLike(const Request &other) const;
    };
    struct Pipe
    {
        quint64 number;
        Request request;
        ReadingEnd end = {}; ///< Without a descriptor until it is opened.
        QByteArray bytes = {};
        bool isTooLarge = false;
    };
    using Pipes = std::vector<Pipe>;
    struct Answer
    {
        Request request;
        QByteArray bytes;
    };

    void restart(std::shared_ptr<DataOffer> offer, qint64 maxBytes,
                 std::chrono::milliseconds patience);
    void askNext();
    bool isReady(const Request &request) const;
    void ask(const Request &request);
    void handleOpened(quint64 number, ReadingEnd end);
    void handleReady(quint64 number);
    void go(const Pipes::iterator &pipe);
    bool readSome(Pipe &pipe) const;
    void useAnswer(const Pipes::iterator &pipe);
    Pipes::iterator find(quint64 number);
    void useText(const Pipe &pipe);
    void useRest(const Pipe &pipe);
    bool isTextAwaited() const;
    qint64 maxBytes(const Request &request) const;
    void dropOthersLike(const Request &had);
    bool waitToAskAgain();
    Pipe take(const Pipes::iterator &pipe);
    void stop();
    void finish();

    WaylandConnection &m_connection;
    const PasteboardLimits &m_limits;
    std::function<void()> m_finished;
    bool m_isReading = false;
    bool m_isFinished = false;
    bool m_isAsking = false;
    bool m_isOutdated = false;
    std::shared_ptr<DataOffer> m_offer;
    qint64 m_maxBytes = 0; ///< Of the text, or of all the rest that is still to come.
    Wish m_wish = Wish::Copy;
    TimePoint m_end; ///< When the owner is given up at the latest.
    TimePoint m_lastProgress;
    QList<Request> m_texts;   ///< To be asked again if all are empty.
    QList<Request> m_waiting; ///< Not asked yet.
    quint64 m_pipesMade = 0;
    Pipes m_pipes;
    QList<Answer> m_formats; ///< What they may weigh is known when the text is.
    std::size_t m_timesAskedAgain = 0;
    std::optional<TimePoint> m_askAgainAt; ///< While nothing is under way but the wait for it.
    Result m_fetched;
    const std::shared_ptr<bool> m_life = std::make_shared<bool>(); ///< Of those who ask.
};
