#pragma once

#include "platform/freedesktop/instance/InstanceSocket.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QTimer>

class SharedClips;

/// The list of clips for another start, which it gets as a file in memory: no bus and no toolkit
/// stand between the two. Written in slices, so that the main thread is never held up for long;
/// deletes itself once it has replied. Owned by DBusSingleInstance. Ended early, it replies Nobody:
/// whoever asked then asks the store.
class ClipListing : public QObject
{
    Q_OBJECT

public:
    /// `clips` must outlive this object.
    ClipListing(SharedClips &clips, const QString &term, InstanceSocket::Reply reply,
                QObject *parent);
    ~ClipListing() override;

private:
    void writeSlice();
    bool write(const QByteArray &bytes) const;
    void end(InstanceSocket::Answer meaning);

    SharedClips &m_clips;
    InstanceSocket::Reply m_reply; ///< None once it has been given.
    QList<qlonglong> m_ids;
    qsizetype m_next = 0; ///< Of m_ids, the first that is not written.
    int m_file = -1;
    QTimer m_timer;
};
