#pragma once

#include "platform/SharedClips.h"

#include <QDBusConnection>
#include <QDBusMessage>

#include <memory>

/// The clips of the instance that runs, asked over the session bus, which the caller's thread waits
/// for: this is for programs of a moment. Needs no application object, and starts no instance.
class BusClips : public SharedClips
{
public:
    /// How long the instance has for each answer.
    static constexpr int kAnswerLimit = 10'000; ///< In milliseconds.

    /// On the session's bus; absent where there is none, or nobody runs there.
    static std::unique_ptr<BusClips> find();

    // ^SharedClips
    Answer<QList<qlonglong>> find(const QString &term) override;
    Answer<QList<Line>> lines(const QList<qlonglong> &ids) override;
    Answer<QList<SharedClip>> clips(const QList<qlonglong> &ids) override;
    Fault copy(const QByteArray &utf8) override;
    Fault paste(qint64 id) override;
    Answer<qint64> remove(const QList<qlonglong> &ids) override;
    Answer<Room> room() override;
    Answer<Added> add(const QList<SharedClip> &clips, bool onlyCount) override;

private:
    explicit BusClips(QDBusConnection bus);
    Answer<QDBusMessage> call(const char *method, const QVariantList &arguments) const;
    template <typename T>
    Answer<T> ask(const char *method, const QVariantList &arguments) const;

    QDBusConnection m_bus;
};
