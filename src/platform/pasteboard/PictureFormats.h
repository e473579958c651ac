#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

/// Encodings of one and the same picture. Drawings are none: what they are made of is lost in a
/// picture.
namespace PictureFormats {

const QString kPng = QStringLiteral("image/png");

/// Those of the names that are encodings of a picture, the best to keep first.
QStringList inOrder(const QStringList &names);

/// Those of the names under which a picture, encoded in any way, can be given. Looks no further
/// than into its header.
QStringList writable(const QByteArray &picture, const QStringList &names);

/// One more encoding in which a picture is offered.
struct Encoding
{
    QString name;
    QByteArray picture; ///< As it was kept.
    /// Makes of it what is asked for.
    std::function<std::optional<QByteArray>(const QByteArray &picture)> convert;
};

/// Programs paste the first encoding of their own list that is offered. So those of the `listed`
/// names that an owner made from its picture go on being offered, and PNG, made from the best that
/// `kept` has the bytes of; it tells absent for a name that it has not. Empty without a picture.
QList<Encoding> othersOf(const QStringList &listed,
                         const std::function<std::optional<QByteArray>(const QString &name)> &kept);

/// Absent when the picture cannot be read after all.
std::optional<QByteArray> convert(const QByteArray &picture, const QString &name);

} // namespace PictureFormats
