#include "platform/wayland/pasteboard/OwnSelections.h"

#include <QCoreApplication>

#include <unistd.h>

#include <algorithm>
#include <utility>

namespace {

// Other clipboard managers have read by then what they will read.
constexpr std::chrono::milliseconds kManagersRead{100};
// Few, because each becomes an atom of the X server where there is one beside.
constexpr int kMarks = 4;

} // namespace

OwnSelections::OwnSelections(WaylandConnection &connection, const PasteboardLimits &limits,
                             std::function<void()> pasteRead, std::function<void()> given)
    : m_limits(limits), m_pasteRead(std::move(pasteRead)), m_given(std::move(given)),
      m_writers(connection, limits.now, limits.requestorStall)
{
}

bool OwnSelections::claim(DataControl &control, Selection selection,
                          std::shared_ptr<const CopyOffer> offer)
{
    const QString mark = QStringLiteral("application/x-quillmarsh-copy;process=%1;number=%2")
                             .arg(QCoreApplication::applicationPid())
                             .arg(++m_marksMade % kMarks);
    auto source = control.own(selection, offer->names() + QStringList{mark},
                              listenersOf(selection, mark, offer));
    if (!source)
        return false;
    // Until the compositor has read it, requests that come are meant for what was ours before.
    const Own former = take(selection);
    m_own[selection] = {std::move(source), std::move(offer), mark, m_limits.now()};
    if (!control.roundTrip())
        return false;
    Own *own = find(selection, mark);
    // A compositor that is busy tells the managers late.
    if (own)
        own->confirm(m_limits.now());
    return own;
}

DataSource::Listeners OwnSelections::listenersOf(Selection selection, const QString &mark,
                                                 const std::shared_ptr<const CopyOffer> &offer)
{
    DataSource::Listeners listeners;
    listeners.asked = [this, selection, mark, offer](const QString &name, int fd,
                                                     DataSource::Given given) {
        const auto bytes = offer->convert(name);
        if (!bytes) {
            close(fd);
            if (given)
                given(false);
            return;
        }
        m_writers.send(fd, *bytes, std::move(given));
        noteRead(selection, mark);
    };
    listeners.replaced = [this, selection, mark] {
        if (!find(selection, mark))
            return;
        m_replaced.insert(selection);
        take(selection);
    };
    return listeners;
}

bool OwnSelections::confirm(Selection selection, const std::shared_ptr<DataOffer> &offer)
{
    const auto own = m_own.find(selection);
    if (!offer || own == m_own.end() || !offer->names().contains(own->second.mark))
        return false;
    own->second.confirm(m_limits.now());
    m_replaced.erase(selection);
    return true;
}

bool OwnSelections::release(Selection selection)
{
    const bool wasReplaced = m_replaced.erase(selection) > 0;
    const auto own = m_own.find(selection);
    // What is told before ours is confirmed came before ours.
    if (own == m_own.end() || !own->second.isConfirmed)
        return wasReplaced;
    take(selection);
    return true;
}

void OwnSelections::giveUpAll()
{
    m_own.clear();
    m_replaced.clear();
}

std::shared_ptr<const CopyOffer> OwnSelections::offer(Selection selection) const
{
    const auto own = m_own.find(selection);
    return own == m_own.end() ? nullptr : own->second.offer;
}

void OwnSelections::expectPaste()
{
    m_isPasteAwaited = true;
    int timesRead = 0;
    if (const auto own = m_own.find(Selection::Clipboard); own != m_own.end()) {
        own->second.isPasted = true;
        timesRead = own->second.timesRead;
    }
    m_readsOfPaste = std::max(timesRead, m_readsWithoutPaste) + 1;
}

OwnSelections::Own *OwnSelections::find(Selection selection, const QString &mark)
{
    const auto own = m_own.find(selection);
    return own != m_own.end() && own->second.mark == mark ? &own->second : nullptr;
}

OwnSelections::Own OwnSelections::take(Selection selection)
{
    const auto own = m_own.find(selection);
    if (own == m_own.end())
        return {};
    Own taken = std::move(own->second);
    m_own.erase(own);
    if (selection == Selection::Clipboard && !taken.isPasted &&
        m_limits.now() - taken.since >= kManagersRead)
        m_readsWithoutPaste = taken.timesRead;
    return taken;
}

void OwnSelections::noteRead(Selection selection, const QString &mark)
{
    Own *own = find(selection, mark);
    if (!own)
        return;
    ++own->timesRead;
    if (selection == Selection::Clipboard && own->isConfirmed &&
        m_limits.now() - own->since >= kManagersRead)
        m_given();
    own = find(selection, mark);
    if (!own)
        return;
    // PRIMARY is ours for what pastes that, and managers leave it alone.
    const int readsOfPaste = selection == Selection::Clipboard ? m_readsOfPaste : 1;
    if (!m_isPasteAwaited || own->timesRead < readsOfPaste)
        return;
    m_isPasteAwaited = false;
    m_pasteRead();
}
