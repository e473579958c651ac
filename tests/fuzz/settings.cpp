/// What is read of the settings: property lists, and the keyed archives in them. What was read is
/// the same when it has been written and is read again. Kept inputs: tests/data/fuzz/settings.

#include "fuzz/Demand.h"
#include "platform/KeyedArchive.h"
#include "platform/PropertyList.h"

#include <algorithm>

namespace {

/// QVariant finds no number that is not one equal to itself.
bool isSame(const QVariant &one, const QVariant &other)
{
    if (one.typeId() != other.typeId())
        return false;
    switch (one.typeId()) {
    case QMetaType::Double:
        return qIsNaN(one.toDouble()) ? qIsNaN(other.toDouble()) : one == other;
    case QMetaType::QVariantList: {
        const QVariantList left = one.toList();
        const QVariantList right = other.toList();
        return std::equal(left.begin(), left.end(), right.begin(), right.end(), isSame);
    }
    case QMetaType::QVariantMap: {
        const QVariantMap left = one.toMap();
        const QVariantMap right = other.toMap();
        return left.keys() == right.keys() &&
               std::all_of(left.keyBegin(), left.keyEnd(),
                           [&](const QString &key) { return isSame(left[key], right[key]); });
    }
    default:
        return one == other;
    }
}

bool isSameObject(const ArchivedObject &one, const ArchivedObject &other)
{
    return one.className == other.className && isSame(one.fields, other.fields);
}

void checkList(const QByteArray &bytes)
{
    const PropertyList::Tree read = PropertyList::parse(bytes);
    const QVariant value = read ? PropertyList::toVariant(read.get()) : QVariant();
    if (!value.isValid())
        return;
    // As a setting would hold it, from when it is kept.
    const PropertyList::Tree kept = PropertyList::fromVariant(value);
    demand(kept != nullptr, "a value that was read can be kept");
    const QVariant held = PropertyList::toVariant(kept.get());
    const PropertyList::Tree xml = PropertyList::parse(PropertyList::toXml(kept.get()));
    demand(xml && isSame(PropertyList::toVariant(xml.get()), held), "XML gives back what it took");
    const PropertyList::Tree binary = PropertyList::parseBinary(PropertyList::toBinary(kept.get()));
    demand(binary && isSame(PropertyList::toVariant(binary.get()), held),
           "the binary form gives back what it took");
}

/// As above; characters that no list can carry are replaced when it is written first.
void checkArchive(const QByteArray &bytes)
{
    if (const auto object = KeyedArchive::unarchiveObject(bytes)) {
        const auto kept = KeyedArchive::unarchiveObject(KeyedArchive::archive(*object));
        demand(kept.has_value(), "an object comes back from its archive");
        const auto again = KeyedArchive::unarchiveObject(KeyedArchive::archive(*kept));
        demand(again && isSameObject(*again, *kept), "and as the same");
    }
    if (const auto objects = KeyedArchive::unarchiveArray(bytes)) {
        const auto kept = KeyedArchive::unarchiveArray(KeyedArchive::archive(*objects));
        demand(kept.has_value(), "objects come back from their archive");
        const auto again = KeyedArchive::unarchiveArray(KeyedArchive::archive(*kept));
        demand(again && std::equal(kept->begin(), kept->end(), again->begin(), again->end(),
                                   isSameObject),
               "and as the same ones");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes = Input(data, size).rest();
    checkList(bytes);
    checkArchive(bytes);
    return 0;
}
