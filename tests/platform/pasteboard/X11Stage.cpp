#include "platform/pasteboard/X11Stage.h"

#include "platform/pasteboard/FileUris.h"
#include "platform/pasteboard/SelectionText.h"

X11Stage::X11Stage(const PasteboardLimits &limits) : m_pasteboard(m_names, measured(limits))
{
    // Only then is every copy that a test makes a change of its own.
    pumpUntil({&m_client}, [this] { return m_client.owner("CLIPBOARD_MANAGER") != 0; });
}

PasteboardLimits X11Stage::measured(PasteboardLimits limits) const
{
    limits.now = [this] { return m_time.now(); };
    return limits;
}

void X11Stage::advance(std::chrono::milliseconds time)
{
    // It returns once its turn has come, after what was asked for before.
    const auto waitForTurn = [this] { m_pasteboard.expectPaste(XCB_WINDOW_NONE); };
    waitForTurn();
    m_time.advance(time);
    // Deadlines are kept between two turns.
    waitForTurn();
    waitForTurn();
}

bool X11Stage::reaches(qint64 count, const QList<XcbClient *> &clients)
{
    return pumpUntil(clients, [&] { return m_pasteboard.changeCount() == count; });
}

PasteboardContents X11Stage::change(qint64 count, const QList<XcbClient *> &clients)
{
    reaches(count, clients);
    const QList<PasteboardContents> changes = m_pasteboard.changesAfter(count - 1);
    return changes.isEmpty() ? PasteboardContents() : changes.first();
}

std::optional<QByteArray> X11Stage::paste(const QByteArray &target, const QByteArray &selection)
{
    XcbClient requestor;
    requestor.ask(selection, target);
    pumpUntil({&requestor, &m_client},
              [&] { return requestor.isRefused() || requestor.answer().has_value(); });
    return requestor.answer();
}

bool X11Stage::isServed(const QByteArray &bytes, const QByteArray &target)
{
    // A client of its own might get the id of the owner's window that has just gone.
    const auto isOurs = [this] {
        return m_client.owner("CLIPBOARD") == m_client.owner("CLIPBOARD_MANAGER");
    };
    return pumpUntil({&m_client}, isOurs) && paste(target) == bytes;
}

void X11Stage::copyElsewhere(const PasteboardContents &contents)
{
    XcbClient::Formats formats;
    if (contents.text)
        formats["UTF8_STRING"] = SelectionText::toUtf8(*contents.text);
    if (contents.rtf)
        formats["text/rtf"] = contents.rtf->toLatin1();
    if (contents.html)
        formats["text/html"] = contents.html->toLatin1();
    if (!contents.fileNames.isEmpty())
        formats["text/uri-list"] = FileUris::uriList(contents.fileNames);
    if (!contents.picture.isEmpty())
        formats["image/png"] = contents.picture;
    if (contents.isConcealed)
        formats["x-kde-passwordManagerHint"] = "secret";
    const qint64 before = m_pasteboard.changeCount();
    bool isAnnounced = false;
    const auto connection =
        QObject::connect(&m_pasteboard, &Pasteboard::changed, [&] { isAnnounced = true; });
    m_client.own("CLIPBOARD", formats);
    pumpUntil({&m_client}, [&] { return isAnnounced && m_pasteboard.changeCount() == before + 1; });
    QObject::disconnect(connection);
}

Copy X11Stage::pasteElsewhere()
{
    Copy item;
    if (const auto text = paste("UTF8_STRING"))
        item.text = SelectionText::fromUtf8(*text);
    if (const auto rtf = paste("text/rtf"))
        item.rtf = QString::fromLatin1(*rtf);
    if (const auto html = paste("text/html"))
        item.html = QString::fromLatin1(*html);
    item.picture = paste("image/png").value_or(QByteArray());
    item.fileNames = FileUris::filesOfUriList(paste("text/uri-list").value_or(QByteArray()));
    return item;
}

void X11Stage::markElsewhere(const QString &text)
{
    m_client.own("PRIMARY", {{"UTF8_STRING", SelectionText::toUtf8(text)}});
}

std::optional<QString> X11Stage::markedElsewhere()
{
    const auto text = paste("UTF8_STRING", "PRIMARY");
    return text ? std::optional(SelectionText::fromUtf8(*text)) : std::nullopt;
}

bool X11Stage::workUntil(const std::function<bool()> &isReached)
{
    return pumpUntil({&m_client}, isReached);
}
