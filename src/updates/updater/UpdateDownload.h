#pragma once

#include "updates/HttpsExchange.h"
#include "updates/updater/UpdateItem.h"

#include <QByteArray>
#include <QFile>
#include <QObject>
#include <QString>

/// Fetches one item's file into a folder of downloads, and goes on where an earlier attempt for the
/// same item stopped. What it has fetched is not checked here beyond its size. Owned by the run
/// that wants it; main thread; used once. Destroying it stops and keeps what has come.
class UpdateDownload : public QObject
{
    Q_OBJECT

public:
    /// `folder` is made when it is missing; `authorities` as HttpsExchange takes them.
    UpdateDownload(UpdateItem item, const QString &folder, const QByteArray &authorities,
                   QObject *parent = nullptr);

    void start();

    /// Where the file is, or will be.
    QString path() const { return m_file.fileName(); }

Q_SIGNALS:
    /// Both in bytes.
    void progressed(qint64 done, qint64 size);
    void succeeded();
    /// `reason` is a sentence for the user.
    void failed(const QString &reason);

private:
    bool open();
    bool beginAnswer();
    void receive(const QByteArray &bytes);
    void finish();
    void fail(const QString &reason);

    const UpdateItem m_item;
    const QString m_folder;
    QFile m_file;
    HttpsExchange m_exchange;
    qint64 m_offset = 0; ///< Where the request began.
    bool m_hasAnswer = false;
    bool m_isOver = false;
};
