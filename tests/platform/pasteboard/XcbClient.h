#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>

#include <functional>
#include <optional>
#include <vector>

#include <xcb/xcb.h>

/// Another program on the display, as well or badly behaved as a test wants it: it owns selections
/// and asks for them. It does nothing but in pump(), so a client that is not pumped hangs.
class XcbClient
{
public:
    /// Data by target; each is told under its target as type.
    using Formats = QMap<QByteArray, QByteArray>;

    struct Manners
    {
        bool listsTargets = true;
        int refusals = 0;                    ///< So many requests for contents are refused first.
        QByteArray hangsOn;                  ///< A request for this target is never answered.
        qsizetype pieceBytes = 64'000;       ///< Larger data goes in such pieces.
        int stallsAfterPieces = -1;          ///< Sends so many, then nothing.
        int diesAfterPieces = -1;            ///< Sends so many, then quits.
        std::optional<quint32> claimedBytes; ///< Announced instead of the true size.
        int takesPieces = -1;                ///< As a requestor: takes so many, then none.
    };

    XcbClient();
    ~XcbClient();

    XcbClient(const XcbClient &) = delete;
    XcbClient &operator=(const XcbClient &) = delete;

    Manners manners;
    /// Called instead of answering a SAVE_TARGETS; the answer is given when it returns true.
    std::function<bool()> save;

    xcb_connection_t *xcb() const { return m_connection; }
    xcb_window_t window() const { return m_window; }
    xcb_atom_t atom(const QByteArray &name);

    void own(const QByteArray &selection, const Formats &formats);
    void copy(const QByteArray &utf8) { own("CLIPBOARD", {{"UTF8_STRING", utf8}}); }
    /// Leaves a selection without an owner, on purpose.
    void disown(const QByteArray &selection);
    /// None when nobody does.
    xcb_window_t owner(const QByteArray &selection);

    /// Asks the owner; the answer comes with pump(). The same property may be asked again.
    void ask(const QByteArray &selection, const QByteArray &target,
             const QByteArray &property = "ANSWER");
    /// Puts the pairs into the property and asks for MULTIPLE.
    void askMultiple(const QList<QByteArray> &targetsAndProperties);
    void setProperty(const QByteArray &property, const QList<quint32> &atoms);

    bool isAnswered() const { return m_isAnswered; }
    bool isRefused() const { return m_isAnswered && !m_isGranted; }
    /// The whole of what was asked last, once it is there.
    const std::optional<QByteArray> &answer() const { return m_answer; }
    QByteArray answerType() const { return m_answerType; }
    /// What a property of our window holds now, INCR or not.
    QByteArray property(const QByteArray &name);
    QList<QByteArray> atomNames(const QByteArray &atoms);

    /// Whether another client is told of what becomes of our window, as an owner is that sends to
    /// it.
    bool isWatchedByOthers();

    /// Takes the piece that was left lying, after `manners` said to take no more.
    void resume() { takePiece(); }

    /// What it was asked for as an owner, in order.
    const QList<QByteArray> &requests() const { return m_requests; }

    /// Handles what has arrived.
    void pump();
    /// Closes the connection, as the end of a process does.
    void die();

    qsizetype sentBytes() const { return m_sentBytes; }
    /// Whether it has sent so much and no transfer is under way.
    bool hasSent(qsizetype bytes) const { return m_sentBytes == bytes && m_sending.empty(); }

private:
    struct Sending
    {
        xcb_window_t requestor;
        xcb_atom_t property;
        xcb_atom_t type;
        QByteArray data;
        qsizetype sent = 0;
        int pieces = 0;
    };

    void serve(const xcb_selection_request_event_t &request);
    bool put(const xcb_selection_request_event_t &request);
    void sendPiece(const xcb_property_notify_event_t &event);
    void takeAnswer(const xcb_selection_notify_event_t &event);
    void takePiece();
    QByteArray read(xcb_atom_t property, bool isRemoved);

    xcb_connection_t *m_connection = nullptr;
    xcb_window_t m_window = XCB_WINDOW_NONE;
    QMap<QByteArray, xcb_atom_t> m_atoms;
    QMap<xcb_atom_t, Formats> m_owned;
    std::vector<Sending> m_sending;
    qsizetype m_sentBytes = 0;
    QList<QByteArray> m_requests;
    xcb_atom_t m_asked = XCB_ATOM_NONE;
    bool m_isAnswered = false;
    bool m_isGranted = false;
    bool m_isGrowing = false;
    int m_takenPieces = 0;
    xcb_atom_t m_readType = XCB_ATOM_NONE;
    QByteArray m_answerType;
    QByteArray m_grown;
    std::optional<QByteArray> m_answer;
};

/// Has the clients and the main thread's events work until `isReached`; false after `seconds`.
bool pumpUntil(const QList<XcbClient *> &clients, const std::function<bool()> &isReached,
               double seconds = 10);
