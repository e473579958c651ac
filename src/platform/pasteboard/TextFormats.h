#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

/// The names that programs offer their texts under, and what the bytes behind each mean.
namespace TextFormats {

/// Those of the offered names that a text can be read under, best first.
QStringList inOrder(const QStringList &offered);

/// Whether the only text among the names is one that drawing programs list for objects, too, so
/// that there may well be none.
bool mayHoldNone(const QStringList &offered);

/// UTF-8 of a text that was asked for as `name`, one of those above, and which its owner calls
/// `type`. A text in UTF-8 stays byte for byte, broken or not.
QByteArray toUtf8(const QByteArray &bytes, const QString &name, const QString &type);

} // namespace TextFormats
