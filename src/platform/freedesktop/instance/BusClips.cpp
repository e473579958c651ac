#include "platform/freedesktop/instance/BusClips.h"

#include "platform/Info.h"
#include "platform/freedesktop/instance/ClipMessages.h"
#include "platform/freedesktop/instance/SessionBus.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusReply>

#include <utility>

namespace {

const auto kPath = QStringLiteral("/org/quillmarsh/Quillmarsh");

} // namespace

std::unique_ptr<BusClips> BusClips::find()
{
    const QDBusConnection bus = SessionBus::find();
    if (!bus.isConnected())
        return nullptr;
    const QDBusReply<bool> runs =
        bus.interface()->isServiceRegistered(Info::main().bundleIdentifier);
    if (!runs.isValid() || !runs.value())
        return nullptr;
    ClipMessages::registerTypes();
    return std::unique_ptr<BusClips>(new BusClips(bus));
}

BusClips::BusClips(QDBusConnection bus) : m_bus(std::move(bus)) {}

SharedClips::Answer<QDBusMessage> BusClips::call(const char *method,
                                                 const QVariantList &arguments) const
{
    auto message = QDBusMessage::createMethodCall(Info::main().bundleIdentifier, kPath,
                                                  QLatin1String(ClipMessages::kInterface),
                                                  QLatin1String(method));
    // What the bus started would not know more than the store.
    message.setAutoStartService(false);
    message.setArguments(arguments);
    QDBusMessage reply = m_bus.call(message, QDBus::Block, kAnswerLimit);
    const bool isReply = reply.type() == QDBusMessage::ReplyMessage;
    const Fault fault = isReply ? Fault::None : ClipMessages::faultOf(reply.errorName());
    return {std::move(reply), fault};
}

template <typename T>
SharedClips::Answer<T> BusClips::ask(const char *method, const QVariantList &arguments) const
{
    const Answer<QDBusMessage> reply = call(method, arguments);
    if (reply.fault != Fault::None || reply.value.arguments().isEmpty())
        return {T(), reply.fault == Fault::None ? Fault::Nobody : reply.fault};
    return {qdbus_cast<T>(reply.value.arguments().constFirst())};
}

SharedClips::Answer<QList<qlonglong>> BusClips::find(const QString &term)
{
    return ask<ClipMessages::Ids>("Find", {term});
}

SharedClips::Answer<QList<SharedClips::Line>> BusClips::lines(const QList<qlonglong> &ids)
{
    return ask<ClipMessages::Lines>("Lines", {QVariant::fromValue(ids)});
}

SharedClips::Answer<QList<SharedClip>> BusClips::clips(const QList<qlonglong> &ids)
{
    const auto maps = ask<ClipMessages::Maps>("Clips", {QVariant::fromValue(ids)});
    QList<SharedClip> clips;
    for (const ClipMessages::Map &map : maps.value)
        clips.append(ClipMessages::fromMap(map));
    return {clips, maps.fault};
}

SharedClips::Fault BusClips::copy(const QByteArray &utf8)
{
    return call("Copy", {utf8}).fault;
}

SharedClips::Fault BusClips::paste(qint64 id)
{
    return call("Paste", {id}).fault;
}

SharedClips::Answer<qint64> BusClips::remove(const QList<qlonglong> &ids)
{
    return ask<qint64>("Delete", {QVariant::fromValue(ids)});
}

SharedClips::Answer<SharedClips::Room> BusClips::room()
{
    const Answer<QDBusMessage> reply = call("Room", {});
    const QVariantList told = reply.value.arguments();
    if (reply.fault != Fault::None)
        return {{}, reply.fault};
    return {{told.value(0).toLongLong(), told.value(1).toLongLong(), told.value(2).toLongLong()}};
}

SharedClips::Answer<SharedClips::Added> BusClips::add(const QList<SharedClip> &clips,
                                                      bool onlyCount)
{
    ClipMessages::Maps maps;
    for (const SharedClip &clip : clips)
        maps.append(ClipMessages::toMap(clip));
    const Answer<QDBusMessage> reply = call("Add", {QVariant::fromValue(maps), onlyCount});
    const QVariantList told = reply.value.arguments();
    if (reply.fault != Fault::None)
        return {{}, reply.fault};
    return {{told.value(0).toLongLong(), told.value(1).toLongLong(), told.value(2).toLongLong(),
             told.value(3).toLongLong()}};
}
