#include "platform/pasteboard/DataClient.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <unistd.h>

#include <array>
#include <cerrno>

DataClient::DataClient() : m_connection(WaylandConnection::open())
{
    // A reader that has given up is an error of the write here, too.
    signal(SIGPIPE, SIG_IGN);
    m_control = DataControl::make(*m_connection,
                                  {[this](Selection selection, std::shared_ptr<DataOffer> offer) {
                                       m_offers[selection] = std::move(offer);
                                   },
                                   [] {}});
    pump();
}

DataClient::~DataClient()
{
    die();
}

void DataClient::own(Selection selection, const Formats &formats)
{
    DataSource::Listeners listeners;
    listeners.asked = [this, formats](const QString &name, int fd, const DataSource::Given &) {
        send(name, formats, fd);
    };
    listeners.replaced = [this, selection] {
        if (const auto owned = m_owned.find(selection); owned != m_owned.end()) {
            m_replaced.push_back(std::move(owned->second));
            m_owned.erase(owned);
        }
    };
    // The one before is kept, so that requests on their way to it are answered.
    if (const auto owned = m_owned.find(selection); owned != m_owned.end()) {
        m_replaced.push_back(std::move(owned->second));
        m_owned.erase(owned);
    }
    auto source = m_control->own(selection, formats.keys(), std::move(listeners));
    wl_display_flush(m_connection->display());
    // Not before the word that the one before is replaced has come.
    pump();
    m_owned[selection] = std::move(source);
}

void DataClient::copy(const QByteArray &utf8)
{
    own(Selection::Clipboard, {{QStringLiteral("text/plain;charset=utf-8"), utf8}});
}

void DataClient::empty(Selection selection)
{
    m_control->empty(selection);
    pump();
}

QStringList DataClient::offered(Selection selection) const
{
    const auto offer = m_offers.find(selection);
    return offer == m_offers.end() || !offer->second ? QStringList() : offer->second->names();
}

void DataClient::ask(Selection selection, const QString &name)
{
    m_answer.reset();
    m_incoming.clear();
    m_answerEnd = ReadingEnd();
    if (!offered(selection).contains(name))
        return;
    m_offers[selection]->open(name, [this](ReadingEnd end) { m_answerEnd = std::move(end); });
    wl_display_flush(m_connection->display());
}

void DataClient::pump()
{
    if (!m_connection)
        return;
    if (!m_connection->roundTrip()) {
        die();
        return;
    }
    m_replaced.clear();
    writeOn();
    readOn();
}

void DataClient::die()
{
    for (const Sending &sending : m_sending)
        close(sending.fd);
    m_sending.clear();
    m_answerEnd = ReadingEnd();
    m_offers.clear();
    m_owned.clear();
    m_replaced.clear();
    m_control.reset();
    m_connection.reset();
}

void DataClient::send(const QString &name, const Formats &formats, int fd)
{
    m_requests.append(name);
    fcntl(fd, F_SETFL, O_NONBLOCK);
    QByteArray bytes = formats.value(name);
    if (manners.refusals > 0) {
        --manners.refusals;
        bytes.clear();
    }
    m_sending.push_back({fd, bytes, 0, name == manners.hangsOn});
}

void DataClient::writeOn()
{
    for (auto sending = m_sending.begin(); sending != m_sending.end();) {
        qsizetype most = sending->bytes.size();
        if (manners.stallsAfter >= 0)
            most = std::min(most, manners.stallsAfter);
        bool isGone = false;
        while (!sending->isHung && sending->sent < most) {
            const ssize_t written = write(sending->fd, sending->bytes.constData() + sending->sent,
                                          size_t(most - sending->sent));
            isGone = written < 0 && errno != EAGAIN;
            if (written <= 0)
                break;
            sending->sent += written;
            m_sentBytes += written;
        }
        if (isGone || (!sending->isHung && sending->sent == sending->bytes.size())) {
            close(sending->fd);
            sending = m_sending.erase(sending);
        } else {
            ++sending;
        }
    }
}

void DataClient::readOn()
{
    std::array<char, 65536> piece{};
    while (m_answerEnd.fd() >= 0 && !manners.takesNothing) {
        const ssize_t got = read(m_answerEnd.fd(), piece.data(), piece.size());
        if (got < 0)
            return;
        m_incoming.append(piece.data(), got);
        if (got > 0)
            continue;
        m_answerEnd = ReadingEnd();
        m_answer = m_incoming;
    }
}

bool pumpUntil(const QList<DataClient *> &clients, const std::function<bool()> &isReached)
{
    const QDeadlineTimer limit(10'000);
    for (;;) {
        QCoreApplication::processEvents();
        for (DataClient *client : clients)
            client->pump();
        if (isReached())
            return true;
        if (limit.hasExpired())
            return false;
        // Pumping is a round trip; pipes and the main thread's events are looked at between them.
        poll(nullptr, 0, clients.isEmpty() ? 1 : 0);
    }
}
