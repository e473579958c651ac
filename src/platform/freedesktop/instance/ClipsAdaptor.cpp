#include "platform/freedesktop/instance/ClipsAdaptor.h"

#include <QDBusConnection>

namespace {

using Fault = SharedClips::Fault;

QString sentenceOf(Fault fault)
{
    switch (fault) {
    case Fault::NoSuchClip:
        return QStringLiteral("There is no such clip.");
    case Fault::NotText:
        return QStringLiteral("This is no text in UTF-8.");
    case Fault::TooLarge:
        return QStringLiteral("This is larger than what is taken.");
    case Fault::Unwritable:
        return QStringLiteral("This cannot be written.");
    case Fault::None:
    case Fault::Unable:
    case Fault::Nobody:
        break;
    }
    return QStringLiteral("This cannot be done now.");
}

} // namespace

ClipsAdaptor::ClipsAdaptor(QObject *parent) : QDBusAbstractAdaptor(parent)
{
    ClipMessages::registerTypes();
}

void ClipsAdaptor::refuse(const QDBusMessage &call, Fault fault) const
{
    // The reply that Qt sends by itself would say that it was done.
    call.setDelayedReply(true);
    QDBusConnection::sessionBus().send(
        call.createErrorReply(ClipMessages::errorName(fault), sentenceOf(fault)));
}

/// What `ask` gets of the clips; the error's reply is under way when there is nothing to get.
template <typename Ask>
auto ClipsAdaptor::answer(const QDBusMessage &call, Ask ask)
{
    auto answer = m_clips ? ask(*m_clips) : decltype(ask(*m_clips)){{}, Fault::Unable};
    if (answer.fault != Fault::None)
        refuse(call, answer.fault);
    return answer.value;
}

QList<qlonglong> ClipsAdaptor::Find(const QString &term, const QDBusMessage &call)
{
    return answer(call, [&term](SharedClips &clips) { return clips.find(term); });
}

ClipMessages::Lines ClipsAdaptor::Lines(const QList<qlonglong> &ids, const QDBusMessage &call)
{
    return answer(call, [&ids](SharedClips &clips) { return clips.lines(ids); });
}

ClipMessages::Maps ClipsAdaptor::Clips(const QList<qlonglong> &ids, const QDBusMessage &call)
{
    const QList<SharedClip> found = answer(call, [&ids](SharedClips &clips) {
        auto sent = clips.clips(ids);
        // The bus takes no array beyond its limit, and drops whoever sends one.
        if (sent.value.size() == 1 && sent.value.first().bytes() > SharedClips::kMaxHandedOver)
            sent = {{}, Fault::TooLarge};
        return sent;
    });
    ClipMessages::Maps maps;
    for (const SharedClip &clip : found)
        maps.append(ClipMessages::toMap(clip));
    return maps;
}

void ClipsAdaptor::Copy(const QByteArray &text, const QDBusMessage &call)
{
    const Fault fault = m_clips ? m_clips->copy(text) : Fault::Unable;
    if (fault != Fault::None)
        refuse(call, fault);
}

void ClipsAdaptor::Paste(qlonglong id, const QDBusMessage &call)
{
    const Fault fault = m_clips ? m_clips->paste(id) : Fault::Unable;
    if (fault != Fault::None)
        refuse(call, fault);
}

qlonglong ClipsAdaptor::Delete(const QList<qlonglong> &ids, const QDBusMessage &call)
{
    return answer(call, [&ids](SharedClips &clips) { return clips.remove(ids); });
}

qlonglong ClipsAdaptor::Room(const QDBusMessage &call, qlonglong &limit, qlonglong &largestText)
{
    const SharedClips::Room room = answer(call, [](SharedClips &clips) { return clips.room(); });
    limit = room.limit;
    largestText = room.largestText;
    return room.clips;
}

qlonglong ClipsAdaptor::Add(const QList<QVariantMap> &clips, bool onlyCount,
                            const QDBusMessage &call, qlonglong &known, qlonglong &tooLarge,
                            qlonglong &noRoom)
{
    QList<SharedClip> offered;
    for (const ClipMessages::Map &map : clips)
        offered.append(ClipMessages::fromMap(map));
    const SharedClips::Added result =
        answer(call, [&](SharedClips &shared) { return shared.add(offered, onlyCount); });
    known = result.known;
    tooLarge = result.tooLarge;
    noRoom = result.noRoom;
    return result.added;
}
