#include "updates/updater/UpdateDownload.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

#include <utility>

namespace {

constexpr qint64 kMinBytesAStall = 16 * 1024;

HttpsExchange::Limits limitsFor(const UpdateItem &item)
{
    HttpsExchange::Limits limits;
    limits.maxBytes = item.size;
    // A slow line may take its time as long as something comes.
    limits.total = std::chrono::milliseconds::zero();
    limits.minProgress = kMinBytesAStall;
    return limits;
}

/// Another signature is another file, so no attempt goes on where one for another file stopped.
QString nameFor(const UpdateItem &item)
{
    const QByteArray id =
        QCryptographicHash::hash(item.signature, QCryptographicHash::Sha256).toHex().left(16);
    return item.version + u'-' + QString::fromLatin1(id) + QStringLiteral(".part");
}

} // namespace

UpdateDownload::UpdateDownload(UpdateItem item, const QString &folder,
                               const QByteArray &authorities, QObject *parent)
    : QObject(parent), m_item(std::move(item)), m_folder(folder),
      m_file(folder + u'/' + nameFor(m_item)), m_exchange(authorities, limitsFor(m_item))
{
    connect(&m_exchange, &HttpsExchange::received, this, &UpdateDownload::receive);
    connect(&m_exchange, &HttpsExchange::succeeded, this, &UpdateDownload::finish);
    connect(&m_exchange, &HttpsExchange::failed, this, &UpdateDownload::fail);
}

void UpdateDownload::start()
{
    if (!open()) {
        QMetaObject::invokeMethod(
            this, [this] { fail(tr("There is no place to download to.")); }, Qt::QueuedConnection);
        return;
    }
    m_offset = m_file.size();
    if (m_offset == m_item.size) {
        QMetaObject::invokeMethod(this, &UpdateDownload::finish, Qt::QueuedConnection);
        return;
    }
    if (m_offset > 0)
        m_exchange.setHeader("Range", "bytes=" + QByteArray::number(m_offset) + '-');
    m_exchange.get(m_item.url);
}

bool UpdateDownload::open()
{
    if (!QDir().mkpath(m_folder))
        return false;
    QFile::setPermissions(m_folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    // Attempts for other items are never gone on with.
    for (const QFileInfo &old : QDir(m_folder).entryInfoList({QStringLiteral("*.part")})) {
        if (old.fileName() != QFileInfo(m_file).fileName())
            QFile::remove(old.filePath());
    }
    if (m_file.size() > m_item.size)
        m_file.remove();
    return m_file.open(QIODevice::ReadWrite | QIODevice::Unbuffered) && m_file.seek(m_file.size());
}

/// A server that cannot go on begins anew, and one that goes on with another file is of no use.
bool UpdateDownload::beginAnswer()
{
    m_hasAnswer = true;
    if (m_offset == 0)
        return true;
    if (m_exchange.status() != 206) {
        m_offset = 0;
        return m_file.resize(0) && m_file.seek(0);
    }
    const QByteArray expected = "bytes " + QByteArray::number(m_offset) + '-' +
                                QByteArray::number(m_item.size - 1) + '/' +
                                QByteArray::number(m_item.size);
    return m_exchange.header("Content-Range").trimmed() == expected;
}

void UpdateDownload::receive(const QByteArray &bytes)
{
    if (m_isOver)
        return;
    if (!m_hasAnswer && !beginAnswer()) {
        m_file.remove();
        fail(tr("The server has another file than before. Try again."));
        return;
    }
    if (m_file.pos() + bytes.size() > m_item.size) {
        m_file.remove();
        fail(tr("The server sends more than was announced."));
        return;
    }
    if (m_file.write(bytes) != bytes.size()) {
        m_file.remove();
        fail(tr("The download could not be written: %1.").arg(m_file.errorString()));
        return;
    }
    Q_EMIT progressed(m_file.pos(), m_item.size);
}

void UpdateDownload::finish()
{
    if (m_isOver)
        return;
    const bool isWhole = m_file.size() == m_item.size;
    if (!isWhole) {
        m_file.remove();
        fail(tr("The server sent less than was announced."));
        return;
    }
    m_isOver = true;
    m_file.close();
    Q_EMIT succeeded();
}

void UpdateDownload::fail(const QString &reason)
{
    if (std::exchange(m_isOver, true))
        return;
    m_file.close();
    Q_EMIT failed(reason);
}
