#include "platform/PropertyList.h"

#include "platform/BinaryPropertyListCheck.h"

#include <QDateTime>
#include <QTimeZone>

#include <plist/plist.h>

#include <limits>

namespace {

constexpr qsizetype kMaxDocument = 16 * 1024 * 1024;
/// Each level of XML nesting needs an opening tag of its own, so this bounds the depth as well,
/// whatever comments and quotes do to make the nesting look other than it is.
constexpr qsizetype kMaxXmlContainers = 10'000;
constexpr int kMaxVariantDepth = 64;
/// libplist counts dates from 2001-01-01 UTC.
constexpr qint64 kDateEpoch = 978'307'200;

using PropertyList::Tree;

bool isSafeXml(const QByteArray &bytes)
{
    return !bytes.contains('\0') &&
           bytes.count("<array") + bytes.count("<dict") <= kMaxXmlContainers;
}

QString text(void *node)
{
    uint64_t length = 0;
    const char *characters = plist_get_string_ptr(node, &length);
    return QString::fromUtf8(characters, static_cast<qsizetype>(length));
}

QByteArray carriable(const QString &text)
{
    QString kept = text;
    for (QChar &character : kept) {
        const char16_t unit = character.unicode();
        const bool isControl = unit < 0x20 && unit != u'\t' && unit != u'\n' && unit != u'\r';
        if (isControl || unit == 0xFFFE || unit == 0xFFFF)
            character = QChar::ReplacementCharacter;
    }
    return kept.toUtf8();
}

QVariant toVariantAt(void *node, int depth);

QVariant listOf(void *node, int depth)
{
    QVariantList list;
    for (void *item : PropertyList::items(node)) {
        list.append(toVariantAt(item, depth + 1));
        if (!list.last().isValid())
            return {};
    }
    return list;
}

QVariant mapOf(void *node, int depth)
{
    QVariantMap map;
    for (const auto &[key, item] : PropertyList::entries(node)) {
        const QVariant value = toVariantAt(item, depth + 1);
        if (!value.isValid())
            return {};
        map.insert(key, value);
    }
    return map;
}

QVariant dateOf(void *node)
{
    int32_t seconds = 0;
    int32_t microseconds = 0;
    plist_get_date_val(node, &seconds, &microseconds);
    // What lies beyond the range of these comes as their end, and could not be written again.
    if (seconds == std::numeric_limits<int32_t>::min())
        return {};
    const qint64 milliseconds = (kDateEpoch + seconds) * 1000 + microseconds / 1000;
    return QDateTime::fromMSecsSinceEpoch(milliseconds, QTimeZone::utc());
}

QVariant toVariantAt(void *node, int depth)
{
    if (!node || depth > kMaxVariantDepth)
        return {};
    switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
        uint8_t value = 0;
        plist_get_bool_val(node, &value);
        return value != 0;
    }
    case PLIST_UINT: {
        uint64_t value = 0;
        plist_get_uint_val(node, &value);
        // A negative number is kept in two's complement.
        return static_cast<qlonglong>(value);
    }
    case PLIST_REAL: {
        double value = 0;
        plist_get_real_val(node, &value);
        return value;
    }
    case PLIST_STRING:
        return text(node);
    case PLIST_DATA: {
        uint64_t length = 0;
        const char *bytes = plist_get_data_ptr(node, &length);
        return QByteArray(bytes, static_cast<qsizetype>(length));
    }
    case PLIST_DATE:
        return dateOf(node);
    case PLIST_ARRAY:
        return listOf(node, depth);
    case PLIST_DICT:
        return mapOf(node, depth);
    default:
        return {};
    }
}

/// Whole seconds: the XML form carries no fractions, and a value must not change by being kept.
Tree dateTree(const QDateTime &date)
{
    const qint64 seconds = date.toSecsSinceEpoch() - kDateEpoch;
    if (!date.isValid() || seconds < std::numeric_limits<int32_t>::min() ||
        seconds > std::numeric_limits<int32_t>::max())
        return nullptr;
    return Tree(plist_new_date(static_cast<int32_t>(seconds), 0));
}

Tree treeAt(const QVariant &value, int depth);

Tree arrayTree(const QVariantList &list, int depth)
{
    Tree array(plist_new_array());
    for (const QVariant &item : list) {
        Tree tree = treeAt(item, depth + 1);
        if (!tree)
            return nullptr;
        plist_array_append_item(array.get(), tree.release());
    }
    return array;
}

Tree dictionaryTree(const QVariantMap &map, int depth)
{
    Tree dictionary(plist_new_dict());
    for (auto entry = map.begin(); entry != map.end(); ++entry) {
        Tree tree = treeAt(entry.value(), depth + 1);
        if (!tree)
            return nullptr;
        plist_dict_set_item(dictionary.get(), carriable(entry.key()).constData(), tree.release());
    }
    return dictionary;
}

/// Older versions of libplist have one kind of integer and write a huge one as negative; newer ones
/// tell the two apart, and would store -3 as 18446744073709551613 if it came as unsigned.
Tree integerTree(qint64 value)
{
#ifdef QUILLMARSH_PLIST_HAS_SIGNED_INTEGERS
    return Tree(plist_new_int(value));
#else
    return Tree(plist_new_uint(static_cast<uint64_t>(value)));
#endif
}

Tree treeAt(const QVariant &value, int depth)
{
    if (depth > kMaxVariantDepth)
        return nullptr;
    switch (value.typeId()) {
    case QMetaType::Bool:
        return Tree(plist_new_bool(value.toBool() ? 1 : 0));
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
        return integerTree(value.toLongLong());
    case QMetaType::ULongLong:
        return Tree(plist_new_uint(value.toULongLong()));
    case QMetaType::Double:
    case QMetaType::Float:
        return Tree(plist_new_real(value.toDouble()));
    case QMetaType::QString:
        return Tree(plist_new_string(carriable(value.toString()).constData()));
    case QMetaType::QByteArray: {
        const QByteArray bytes = value.toByteArray();
        // constData() of an empty array is not null, which libplist would take for no data.
        return Tree(plist_new_data(bytes.constData(), static_cast<uint64_t>(bytes.size())));
    }
    case QMetaType::QDateTime:
        return dateTree(value.toDateTime());
    case QMetaType::QStringList:
    case QMetaType::QVariantList:
        return arrayTree(value.toList(), depth);
    case QMetaType::QVariantMap:
        return dictionaryTree(value.toMap(), depth);
    default:
        return nullptr;
    }
}

QByteArray taken(char *bytes, uint32_t length)
{
    QByteArray copy(bytes, static_cast<qsizetype>(length));
    free(bytes);
    return copy;
}

} // namespace

void PropertyList::Free::operator()(void *node) const
{
    plist_free(node);
}

Tree PropertyList::parse(const QByteArray &bytes)
{
    if (bytes.startsWith("bplist"))
        return parseBinary(bytes);
    if (bytes.size() > kMaxDocument || !isSafeXml(bytes))
        return nullptr;
    // libplist leaves its results alone when it fails, so they start as null everywhere here.
    plist_t node = nullptr;
    plist_from_xml(bytes.constData(), static_cast<uint32_t>(bytes.size()), &node);
    return Tree(node);
}

Tree PropertyList::parseBinary(const QByteArray &bytes)
{
    if (bytes.size() > kMaxDocument || !isSafeBinaryPropertyList(bytes))
        return nullptr;
    plist_t node = nullptr;
    plist_from_bin(bytes.constData(), static_cast<uint32_t>(bytes.size()), &node);
    return Tree(node);
}

std::vector<void *> PropertyList::items(void *array)
{
    std::vector<void *> items;
    plist_array_iter iterator = nullptr;
    plist_array_new_iter(array, &iterator);
    void *item = nullptr;
    for (plist_array_next_item(array, iterator, &item); item;
         plist_array_next_item(array, iterator, &item))
        items.push_back(item);
    free(iterator);
    return items;
}

std::vector<std::pair<QString, void *>> PropertyList::entries(void *dictionary)
{
    std::vector<std::pair<QString, void *>> entries;
    plist_dict_iter iterator = nullptr;
    plist_dict_new_iter(dictionary, &iterator);
    for (;;) {
        char *key = nullptr;
        void *item = nullptr;
        plist_dict_next_item(dictionary, iterator, &key, &item);
        if (item)
            entries.emplace_back(QString::fromUtf8(key), item);
        free(key);
        if (!item)
            break;
    }
    free(iterator);
    return entries;
}

QByteArray PropertyList::toXml(void *node)
{
    char *bytes = nullptr;
    uint32_t length = 0;
    plist_to_xml(node, &bytes, &length);
    return taken(bytes, length);
}

QByteArray PropertyList::toBinary(void *node)
{
    char *bytes = nullptr;
    uint32_t length = 0;
    plist_to_bin(node, &bytes, &length);
    return taken(bytes, length);
}

QVariant PropertyList::toVariant(void *node)
{
    return toVariantAt(node, 0);
}

Tree PropertyList::fromVariant(const QVariant &value)
{
    return treeAt(value, 0);
}
