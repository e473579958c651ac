#include "Clipboard/exchange/BoltFile.h"

#include <QIODevice>

namespace {

constexpr quint32 kMagic = 0xED0CDAED;
constexpr quint16 kBranch = 0x01;
constexpr quint16 kLeaf = 0x02;
constexpr quint16 kMeta = 0x04;
constexpr quint32 kIsBucket = 0x01;
constexpr qsizetype kHeader = 16;
constexpr qsizetype kElement = 16;
/// Deeper trees, or more pages than the file has, are loops.
constexpr int kMaxDepth = 32;

template <typename T>
T at(const QByteArray &bytes, qsizetype offset)
{
    // Little endian; the library's reader makes the optimiser see an empty array here.
    quint64 value = 0;
    for (auto i = static_cast<qsizetype>(sizeof(T)); i-- > 0;)
        value = value << 8 | static_cast<uchar>(bytes.at(offset + i));
    return static_cast<T>(value);
}

} // namespace

BoltFile::BoltFile(QIODevice &file) : m_file(file) {}

/// One of the two heads of the file; the one of the later transaction counts.
bool BoltFile::readMeta(qint64 offset)
{
    constexpr qsizetype kMetaSize = 64;
    if (offset + kHeader + kMetaSize > m_file.size() || !m_file.seek(offset))
        return false;
    const QByteArray bytes = m_file.read(kHeader + kMetaSize);
    if (bytes.size() < kHeader + kMetaSize || (at<quint16>(bytes, 8) & kMeta) == 0 ||
        at<quint32>(bytes, kHeader) != kMagic)
        return false;
    const auto pageSize = at<quint32>(bytes, kHeader + 8);
    const auto transaction = at<quint64>(bytes, kHeader + 48);
    if (pageSize < 512 || pageSize > 65536)
        return false;
    if (m_pageSize != 0 && transaction < m_transaction)
        return true;
    m_pageSize = pageSize;
    m_transaction = transaction;
    m_root = at<quint64>(bytes, kHeader + 16);
    return true;
}

std::optional<BoltFile::Page> BoltFile::readPage(quint64 number, qint64 maxRun)
{
    const auto pages = static_cast<quint64>(m_file.size()) / m_pageSize;
    if (number >= pages || ++m_pagesRead > static_cast<qint64>(pages))
        return std::nullopt;
    const auto offset = static_cast<qint64>(number * m_pageSize);
    if (!m_file.seek(offset))
        return std::nullopt;
    QByteArray bytes = m_file.read(m_pageSize);
    if (bytes.size() < kHeader)
        return std::nullopt;
    const qint64 rest = static_cast<qint64>(at<quint32>(bytes, 12)) * m_pageSize;
    if (m_pageSize + rest > maxRun) {
        Page page;
        page.isLeaf = true;
        page.isTooLarge = true;
        return page;
    }
    bytes += m_file.read(rest);
    return parse(bytes);
}

std::optional<BoltFile::Page> BoltFile::parse(const QByteArray &bytes)
{
    Page page;
    const auto flags = at<quint16>(bytes, 8);
    const auto count = at<quint16>(bytes, 10);
    page.isLeaf = flags == kLeaf;
    if ((!page.isLeaf && flags != kBranch) || bytes.size() < kHeader + count * kElement)
        return std::nullopt;
    for (quint16 i = 0; i < count; ++i) {
        const qsizetype own = kHeader + i * kElement;
        Element element;
        // A leaf's: flags, position, sizes of key and value. A branch's: position, size, page.
        const quint32 position = at<quint32>(bytes, page.isLeaf ? own + 4 : own);
        const quint32 keySize = at<quint32>(bytes, page.isLeaf ? own + 8 : own + 4);
        const quint32 valueSize = page.isLeaf ? at<quint32>(bytes, own + 12) : 0;
        if (qint64(own) + position + keySize + valueSize > bytes.size())
            return std::nullopt;
        element.key = bytes.mid(own + position, keySize);
        element.value = bytes.mid(own + position + keySize, valueSize);
        if (page.isLeaf)
            element.flags = at<quint32>(bytes, own);
        else
            element.child = at<quint64>(bytes, own + 8);
        page.elements.append(element);
    }
    return page;
}

/// Visits the elements of all leaves below; null for a leaf that was too large. False ends it.
bool BoltFile::walkPage(const Page &page, qint64 maxRun, int depth,
                        const std::function<bool(const Element *)> &visit)
{
    if (page.isTooLarge)
        return visit(nullptr);
    for (const Element &element : page.elements) {
        if (page.isLeaf) {
            if (!visit(&element))
                return false;
            continue;
        }
        const std::optional<Page> below = readPage(element.child, maxRun);
        if (!below || depth >= kMaxDepth || !walkPage(*below, maxRun, depth + 1, visit))
            return false;
    }
    return true;
}

bool BoltFile::walk(const QByteArray &bucket, qint64 maxRun,
                    const std::function<void(const std::optional<QByteArray> &)> &visit)
{
    m_pagesRead = 0;
    // The second lies behind the first page, however large that is.
    if (readMeta(0))
        readMeta(m_pageSize);
    else if (!readMeta(4096))
        return false;
    const std::optional<Page> top = readPage(m_root, maxRun);
    std::optional<Page> found;
    const auto findBucket = [&](const Element *element) {
        constexpr qsizetype kBucketHead = 16;
        if (!element || element->key != bucket || (element->flags & kIsBucket) == 0 ||
            element->value.size() < kBucketHead)
            return true;
        // A small bucket lies in its own value.
        const auto root = at<quint64>(element->value, 0);
        if (root != 0)
            found = readPage(root, maxRun);
        else if (element->value.size() >= kBucketHead + kHeader)
            found = parse(element->value.mid(kBucketHead));
        return false;
    };
    if (!top)
        return false;
    walkPage(*top, maxRun, 0, findBucket);
    return found && walkPage(*found, maxRun, 0, [&visit](const Element *element) {
               visit(element ? std::optional(element->value) : std::nullopt);
               return true;
           });
}
