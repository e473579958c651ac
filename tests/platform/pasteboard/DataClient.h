#pragma once

#include "platform/wayland/WaylandConnection.h"
#include "platform/wayland/pasteboard/DataControl.h"

#include <QByteArray>
#include <QList>
#include <QMap>

#include <functional>
#include <list>
#include <map>
#include <memory>
#include <optional>

/// Another program of the session, as well or badly behaved as a test wants it: it owns selections
/// and asks for them. It does nothing but in pump(), so a client that is not pumped hangs.
class DataClient
{
public:
    using Selection = DataControl::Selection;
    /// Contents by name.
    using Formats = QMap<QString, QByteArray>;

    struct Manners
    {
        int refusals = 0;           ///< So many requests are answered with nothing first.
        QString hangsOn = {};       ///< What is asked for under this name is never written.
        qsizetype stallsAfter = -1; ///< Writes so many bytes, then nothing.
        bool takesNothing = false;  ///< As a requestor.
    };

    DataClient();
    ~DataClient();
    DataClient(const DataClient &) = delete;
    DataClient &operator=(const DataClient &) = delete;

    Manners manners;

    void own(Selection selection, const Formats &formats);
    void copy(const QByteArray &utf8);
    /// Leaves the selection without an owner, whoever it was.
    void empty(Selection selection);
    /// What is offered now; empty when it is nobody's.
    QStringList offered(Selection selection) const;
    bool owns(Selection selection) const { return m_owned.contains(selection); }

    /// Asks the owner; the answer comes with pump().
    void ask(Selection selection, const QString &name);
    /// The whole of what was asked last, once it is there.
    const std::optional<QByteArray> &answer() const { return m_answer; }

    /// What it was asked for as an owner, in order.
    const QStringList &requests() const { return m_requests; }
    qsizetype sentBytes() const { return m_sentBytes; }
    /// Whether nothing that it was asked for waits to be written.
    bool isIdle() const { return m_sending.empty(); }

    /// Handles what has arrived.
    void pump();
    /// Closes the connection, as the end of a process does.
    void die();

private:
    struct Sending
    {
        int fd;
        QByteArray bytes;
        qsizetype sent = 0;
        bool isHung = false;
    };

    void send(const QString &name, const Formats &formats, int fd);
    void writeOn();
    void readOn();

    std::shared_ptr<WaylandConnection> m_connection;
    std::unique_ptr<DataControl> m_control;
    std::map<Selection, std::shared_ptr<DataOffer>> m_offers;
    std::map<Selection, std::unique_ptr<DataSource>> m_owned;
    std::list<std::unique_ptr<DataSource>> m_replaced; ///< Until none of their events runs.
    std::list<Sending> m_sending;
    qsizetype m_sentBytes = 0;
    QStringList m_requests;
    ReadingEnd m_answerEnd;
    QByteArray m_incoming;
    std::optional<QByteArray> m_answer;
};

/// Has the clients and the main thread's events work until `isReached`; false after 10 seconds.
bool pumpUntil(const QList<DataClient *> &clients, const std::function<bool()> &isReached);
