#pragma once

#include <QByteArray>
#include <QVariant>

#include <memory>
#include <utility>
#include <vector>

/// Property lists of bytes that nobody vouches for, over libplist, which by itself recurses as
/// deep and expands as far as a file tells it to. Nodes are libplist's (`plist_t`), so that what a
/// QVariant cannot hold passes through a document unharmed.
namespace PropertyList {

struct Free
{
    void operator()(void *node) const;
};

/// Owns a whole tree; null means none.
using Tree = std::unique_ptr<void, Free>;

/// Reads XML or binary. Null for anything else, and for a list that is nested, expanded or
/// numerous beyond what any settings need.
Tree parse(const QByteArray &bytes);

/// The same for the binary form only.
Tree parseBinary(const QByteArray &bytes);

/// What stands in an array, in order.
std::vector<void *> items(void *array);
/// What stands in a dictionary, by its keys.
std::vector<std::pair<QString, void *>> entries(void *dictionary);

QByteArray toXml(void *node);
QByteArray toBinary(void *node);

/// The node as bool, qlonglong, double, QString, QByteArray, QDateTime, QVariantList or
/// QVariantMap; invalid when it is, or holds, something else.
QVariant toVariant(void *node);

/// A new tree for a value of the types above (other numbers and string lists are converted);
/// null when the value is, or holds, anything else. Dates lose their fraction of a second,
/// characters that XML cannot carry become U+FFFD.
Tree fromVariant(const QVariant &value);

} // namespace PropertyList
