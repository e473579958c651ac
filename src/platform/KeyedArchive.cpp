#include "platform/KeyedArchive.h"

#include "platform/PropertyList.h"

#include <QHash>

#include <plist/plist.h>

#include <algorithm>
#include <vector>

namespace {

using PropertyList::Tree;

constexpr quint64 kVersion = 100'000;
const QString kArchiver = QStringLiteral("NSKeyedArchiver");

/// Builds `$objects`, each object once.
class Archiver
{
public:
    Archiver() : m_objects(plist_new_array()) { append(plist_new_string("$null")); }

    quint64 add(const ArchivedObject &object);
    quint64 add(const QList<ArchivedObject> &array);
    QByteArray finish(quint64 root);

private:
    quint64 append(void *node)
    {
        plist_array_append_item(m_objects.get(), node);
        return m_count++;
    }
    quint64 addClass(const QString &name, const QStringList &classes);
    void *field(const QVariant &value);

    Tree m_objects;
    quint64 m_count = 0;
    QHash<QString, quint64> m_classes;
};

quint64 Archiver::addClass(const QString &name, const QStringList &classes)
{
    const QStringList chain = classes.isEmpty() ? QStringList{name} : classes;
    const QString identity = name + u'\n' + chain.join(u'\n');
    if (const auto known = m_classes.constFind(identity); known != m_classes.constEnd())
        return *known;
    const QVariantMap record{{QStringLiteral("$classname"), name},
                             {QStringLiteral("$classes"), chain}};
    return m_classes[identity] = append(PropertyList::fromVariant(record).release());
}

/// Numbers and truth values stand in the object itself, texts and data are objects of their own.
void *Archiver::field(const QVariant &value)
{
    Tree tree = PropertyList::fromVariant(value);
    if (!tree)
        return plist_new_uid(0);
    const plist_type type = plist_get_node_type(tree.get());
    if (type == PLIST_STRING || type == PLIST_DATA)
        return plist_new_uid(append(tree.release()));
    return tree.release();
}

quint64 Archiver::add(const ArchivedObject &object)
{
    void *record = plist_new_dict();
    const quint64 index = append(record);
    for (auto entry = object.fields.begin(); entry != object.fields.end(); ++entry)
        plist_dict_set_item(record, entry.key().toUtf8().constData(), field(entry.value()));
    plist_dict_set_item(record, "$class",
                        plist_new_uid(addClass(object.className, object.classes)));
    return index;
}

quint64 Archiver::add(const QList<ArchivedObject> &array)
{
    void *record = plist_new_dict();
    const quint64 index = append(record);
    void *references = plist_new_array();
    plist_dict_set_item(record, "NS.objects", references);
    for (const ArchivedObject &object : array)
        plist_array_append_item(references, plist_new_uid(add(object)));
    const QStringList classes{QStringLiteral("NSArray"), QStringLiteral("NSObject")};
    plist_dict_set_item(record, "$class", plist_new_uid(addClass(classes.first(), classes)));
    return index;
}

QByteArray Archiver::finish(quint64 root)
{
    const Tree archive(plist_new_dict());
    void *top = plist_new_dict();
    plist_dict_set_item(top, "root", plist_new_uid(root));
    plist_dict_set_item(archive.get(), "$version", plist_new_uint(kVersion));
    plist_dict_set_item(archive.get(), "$archiver", plist_new_string("NSKeyedArchiver"));
    plist_dict_set_item(archive.get(), "$top", top);
    plist_dict_set_item(archive.get(), "$objects", m_objects.release());
    return PropertyList::toBinary(archive.get());
}

bool isType(void *node, plist_type type)
{
    return node && plist_get_node_type(node) == type;
}

/// Follows references within `$objects`. What was read once is shared afterwards, so an archive
/// that repeats one object a million times costs one object.
class Unarchiver
{
public:
    explicit Unarchiver(const QByteArray &data);

    std::optional<ArchivedObject> rootObject();
    std::optional<QList<ArchivedObject>> rootArray();

private:
    void *target(void *reference) const;
    std::optional<ArchivedObject> object(void *node);
    std::optional<ArchivedObject> makeObject(void *node);
    QVariant field(void *node);
    QVariant shared(void *node);
    void *rootNode() const;

    Tree m_archive;
    std::vector<void *> m_objects;
    QHash<void *, std::optional<ArchivedObject>> m_read;
    QHash<void *, QVariant> m_values;
};

Unarchiver::Unarchiver(const QByteArray &data) : m_archive(PropertyList::parseBinary(data))
{
    if (!isType(m_archive.get(), PLIST_DICT))
        return;
    const auto header = [this](const char *key) {
        return PropertyList::toVariant(plist_dict_get_item(m_archive.get(), key));
    };
    void *objects = plist_dict_get_item(m_archive.get(), "$objects");
    if (header("$archiver") == kArchiver && header("$version").toULongLong() == kVersion &&
        isType(objects, PLIST_ARRAY))
        m_objects = PropertyList::items(objects);
}

/// The object that a UID names; null when the node is no UID or points at nothing.
void *Unarchiver::target(void *reference) const
{
    if (!isType(reference, PLIST_UID))
        return nullptr;
    uint64_t index = 0;
    plist_get_uid_val(reference, &index);
    return index < m_objects.size() ? m_objects[index] : nullptr;
}

void *Unarchiver::rootNode() const
{
    if (m_objects.empty())
        return nullptr;
    void *top = plist_dict_get_item(m_archive.get(), "$top");
    return isType(top, PLIST_DICT) ? target(plist_dict_get_item(top, "root")) : nullptr;
}

QVariant Unarchiver::shared(void *node)
{
    if (!m_values.contains(node))
        m_values.insert(node, PropertyList::toVariant(node));
    return m_values.value(node);
}

/// Absent for a reference to "$null", to another object, or to nothing at all.
QVariant Unarchiver::field(void *node)
{
    const bool isInline = isType(node, PLIST_BOOLEAN) || isType(node, PLIST_UINT) ||
                          isType(node, PLIST_REAL) || isType(node, PLIST_STRING) ||
                          isType(node, PLIST_DATA);
    if (isInline)
        return PropertyList::toVariant(node);
    void *object = target(node);
    const bool isValue = isType(object, PLIST_STRING) || isType(object, PLIST_DATA);
    return isValue && object != m_objects.front() ? shared(object) : QVariant();
}

std::optional<ArchivedObject> Unarchiver::makeObject(void *node)
{
    if (!isType(node, PLIST_DICT))
        return std::nullopt;
    void *classNode = target(plist_dict_get_item(node, "$class"));
    if (!isType(classNode, PLIST_DICT))
        return std::nullopt;
    const QVariantMap record = shared(classNode).toMap();
    ArchivedObject object;
    object.className = record.value(QStringLiteral("$classname")).toString();
    object.classes = record.value(QStringLiteral("$classes")).toStringList();
    if (object.className.isEmpty())
        return std::nullopt;
    for (const auto &[name, item] : PropertyList::entries(node)) {
        const QVariant value = name == u"$class" ? QVariant() : field(item);
        if (value.isValid())
            object.fields.insert(name, value);
    }
    return object;
}

std::optional<ArchivedObject> Unarchiver::object(void *node)
{
    if (!m_read.contains(node))
        m_read.insert(node, makeObject(node));
    return m_read.value(node);
}

std::optional<ArchivedObject> Unarchiver::rootObject()
{
    void *node = rootNode();
    if (!isType(node, PLIST_DICT) || plist_dict_get_item(node, "NS.objects"))
        return std::nullopt;
    return object(node);
}

std::optional<QList<ArchivedObject>> Unarchiver::rootArray()
{
    void *node = rootNode();
    if (!isType(node, PLIST_DICT))
        return std::nullopt;
    void *references = plist_dict_get_item(node, "NS.objects");
    if (!isType(references, PLIST_ARRAY))
        return std::nullopt;
    QList<ArchivedObject> array;
    for (void *reference : PropertyList::items(references)) {
        const auto element = object(target(reference));
        if (!element)
            return std::nullopt;
        array.append(*element);
    }
    return array;
}

} // namespace

bool ArchivedObject::isKindOf(QStringView name) const
{
    const auto isNamed = [name](const QString &candidate) {
        return candidate == name ||
               (candidate.endsWith(name) && candidate[candidate.size() - name.size() - 1] == u'.');
    };
    return isNamed(className) || std::any_of(classes.begin(), classes.end(), isNamed);
}

QByteArray KeyedArchive::archive(const ArchivedObject &root)
{
    Archiver archiver;
    return archiver.finish(archiver.add(root));
}

QByteArray KeyedArchive::archive(const QList<ArchivedObject> &rootArray)
{
    Archiver archiver;
    return archiver.finish(archiver.add(rootArray));
}

std::optional<ArchivedObject> KeyedArchive::unarchiveObject(const QByteArray &data)
{
    return Unarchiver(data).rootObject();
}

std::optional<QList<ArchivedObject>> KeyedArchive::unarchiveArray(const QByteArray &data)
{
    return Unarchiver(data).rootArray();
}
