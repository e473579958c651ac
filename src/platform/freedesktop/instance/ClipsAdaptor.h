#pragma once

#include "platform/freedesktop/instance/ClipMessages.h"

#include <QDBusAbstractAdaptor>
#include <QDBusMessage>

/// The interface org.quillmarsh.Clips on the bus, by which the shell, launchers and other programs
/// reach the clips. Owned by DBusSingleInstance; each call is answered by the clips that are
/// shared at that moment, and refused as Unable while none are.
class ClipsAdaptor : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.quillmarsh.Clips")

public:
    /// `parent` is the object on the bus.
    explicit ClipsAdaptor(QObject *parent);

    /// Null takes them back.
    void share(SharedClips *clips) { m_clips = clips; }

public Q_SLOTS: // The interface's own names.
    QList<qlonglong> Find(const QString &term, const QDBusMessage &call);
    ClipMessages::Lines Lines(const QList<qlonglong> &ids, const QDBusMessage &call);
    ClipMessages::Maps Clips(const QList<qlonglong> &ids, const QDBusMessage &call);
    void Copy(const QByteArray &text, const QDBusMessage &call);
    void Paste(qlonglong id, const QDBusMessage &call);
    qlonglong Delete(const QList<qlonglong> &ids, const QDBusMessage &call);
    qlonglong Room(const QDBusMessage &call, qlonglong &limit, qlonglong &largestText);
    qlonglong Add(const QList<QVariantMap> &clips, bool onlyCount, const QDBusMessage &call,
                  qlonglong &known, qlonglong &tooLarge, qlonglong &noRoom);

private:
    template <typename Ask>
    auto answer(const QDBusMessage &call, Ask ask);
    void refuse(const QDBusMessage &call, SharedClips::Fault fault) const;

    SharedClips *m_clips = nullptr;
};
