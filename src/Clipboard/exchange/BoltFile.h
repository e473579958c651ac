#pragma once

#include <QByteArray>
#include <QList>

#include <functional>
#include <optional>

class QIODevice;

/// Reads one bucket of a file of the key-value store bbolt, page by page. A broken file ends the
/// walk; it never takes more memory than its largest page run that is read.
class BoltFile
{
public:
    /// `file` is open and can be read anywhere; it must outlive this object.
    explicit BoltFile(QIODevice &file);

    /// Gives each value of the bucket in the order of the keys; what is in runs of more than
    /// `maxRun` bytes is told by its absence. False when the file was not understood to its end.
    bool walk(const QByteArray &bucket, qint64 maxRun,
              const std::function<void(const std::optional<QByteArray> &)> &visit);

private:
    struct Element
    {
        quint32 flags = 0; ///< 1: the value is a bucket.
        QByteArray key;
        QByteArray value;
        quint64 child = 0; ///< Of a branch: the page below.
    };
    struct Page
    {
        bool isLeaf = false;
        bool isTooLarge = false;
        QList<Element> elements;
    };

    bool readMeta(qint64 at);
    std::optional<Page> readPage(quint64 number, qint64 maxRun);
    static std::optional<Page> parse(const QByteArray &bytes);
    bool walkPage(const Page &page, qint64 maxRun, int depth,
                  const std::function<bool(const Element *)> &visit);

    QIODevice &m_file;
    quint32 m_pageSize = 0;
    quint64 m_transaction = 0;
    quint64 m_root = 0; ///< Page of the buckets.
    qint64 m_pagesRead = 0;
};
