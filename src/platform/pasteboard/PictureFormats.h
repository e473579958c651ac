#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

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

/// Absent when the picture cannot be read after all.
std::optional<QByteArray> convert(const QByteArray &picture, const QString &name);

} // namespace PictureFormats
