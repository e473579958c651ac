#include "platform/pasteboard/WaylandStage.h"

#include "platform/pasteboard/CopyQuestions.h"
#include "platform/pasteboard/FileUris.h"
#include "platform/pasteboard/SelectionText.h"

#include <gtest/gtest.h>

#include <sys/socket.h>

#include <algorithm>

WaylandStage::WaylandStage(const PasteboardLimits &limits, const ControlOf &controlOf)
    : m_connection(WaylandConnection::open())
{
    // Of the tests before this one nothing is to be left.
    m_client.empty(Selection::Clipboard);
    m_client.empty(Selection::Primary);
    m_pasteboard = std::make_unique<WaylandPasteboard>(
        m_connection, [this] { return m_front; }, measured(limits),
        controlOf ? controlOf(m_connection) : nullptr);
    m_connection->start();
    // Only then is every copy that a test makes a change of its own.
    advance(std::chrono::milliseconds(0));
}

WaylandStage::~WaylandStage()
{
    m_pasteboard.reset();
    m_connection.reset();
}

PasteboardLimits WaylandStage::measured(PasteboardLimits limits) const
{
    limits.now = [this] { return m_time.now(); };
    return limits;
}

void WaylandStage::setFront(const WaylandPasteboard::Front &front)
{
    EXPECT_TRUE(m_connection->run([&] { m_front = front; }));
}

void WaylandStage::advance(std::chrono::milliseconds time)
{
    // What has arrived by now was there before; deadlines are kept between two tasks.
    const auto waitForTurn = [this] {
        EXPECT_TRUE(m_connection->run([this] { EXPECT_TRUE(m_connection->roundTrip()); }));
    };
    waitForTurn();
    m_time.advance(time);
    waitForTurn();
    waitForTurn();
}

void WaylandStage::loseCompositor()
{
    shutdown(wl_display_get_fd(m_connection->display()), SHUT_RDWR);
}

bool WaylandStage::reaches(qint64 count, const QList<DataClient *> &clients)
{
    return pumpUntil(clients, [&] { return m_pasteboard->changeCount() == count; });
}

PasteboardContents WaylandStage::change(qint64 count, const QList<DataClient *> &clients)
{
    EXPECT_TRUE(pumpUntil(clients, [&] { return m_pasteboard->changeCount() >= count; }));
    const QList<PasteboardContents> changes = m_pasteboard->changesAfter(count - 1);
    return changes.isEmpty() ? PasteboardContents() : changes.first();
}

std::optional<QByteArray> WaylandStage::paste(const QString &name, Selection selection)
{
    DataClient requestor;
    requestor.ask(selection, name);
    if (!requestor.offered(selection).contains(name))
        return std::nullopt;
    pumpUntil({&requestor, &m_client}, [&] { return requestor.answer().has_value(); });
    return requestor.answer();
}

bool WaylandStage::isOurs(Selection selection) const
{
    const QStringList offered = m_client.offered(selection);
    return std::any_of(offered.begin(), offered.end(), [](const QString &name) {
        return name.startsWith(QStringLiteral("application/x-quillmarsh-copy"));
    });
}

bool WaylandStage::isServed(const QByteArray &bytes, const QString &name)
{
    return pumpUntil({&m_client}, [this] { return isOurs(); }) && paste(name) == bytes;
}

void WaylandStage::copyElsewhere(const PasteboardContents &contents)
{
    DataClient::Formats formats;
    if (contents.text)
        formats[QStringLiteral("text/plain;charset=utf-8")] = SelectionText::toUtf8(*contents.text);
    if (contents.rtf)
        formats[QStringLiteral("text/rtf")] = contents.rtf->toLatin1();
    if (contents.html)
        formats[QStringLiteral("text/html")] = contents.html->toLatin1();
    if (!contents.fileNames.isEmpty())
        formats[FileUris::kUriList] = FileUris::uriList(contents.fileNames);
    if (!contents.picture.isEmpty())
        formats[QStringLiteral("image/png")] = contents.picture;
    if (contents.isConcealed)
        formats[CopyQuestions::kSecretMark] = "secret";
    const qint64 before = m_pasteboard->changeCount();
    bool isAnnounced = false;
    const auto connection =
        QObject::connect(m_pasteboard.get(), &Pasteboard::changed, [&] { isAnnounced = true; });
    m_client.own(Selection::Clipboard, formats);
    pumpUntil({&m_client},
              [&] { return isAnnounced && m_pasteboard->changeCount() == before + 1; });
    QObject::disconnect(connection);
}

Copy WaylandStage::pasteElsewhere()
{
    Copy item;
    if (const auto text = paste(QStringLiteral("text/plain;charset=utf-8")))
        item.text = SelectionText::fromUtf8(*text);
    if (const auto rtf = paste(QStringLiteral("text/rtf")))
        item.rtf = QString::fromLatin1(*rtf);
    if (const auto html = paste(QStringLiteral("text/html")))
        item.html = QString::fromLatin1(*html);
    item.picture = paste(QStringLiteral("image/png")).value_or(QByteArray());
    item.fileNames = FileUris::filesOfUriList(paste(FileUris::kUriList).value_or(QByteArray()));
    return item;
}

void WaylandStage::markElsewhere(const QString &text)
{
    m_client.own(Selection::Primary,
                 {{QStringLiteral("UTF8_STRING"), SelectionText::toUtf8(text)}});
}

std::optional<QString> WaylandStage::markedElsewhere()
{
    const auto text = paste(QStringLiteral("UTF8_STRING"), Selection::Primary);
    return text ? std::optional(SelectionText::fromUtf8(*text)) : std::nullopt;
}

bool WaylandStage::workUntil(const std::function<bool()> &isReached)
{
    return pumpUntil({&m_client}, isReached);
}
