#pragma once

#include "platform/SharedClips.h"

#include <QDBusArgument>
#include <QVariantMap>

/// How the clips are told on the bus: the types of the interface org.quillmarsh.Clips, and what
/// its errors are called.
namespace ClipMessages {

/// One clip; what it lacks is left out. Texts are bytes of UTF-8, because a text of the bus has no
/// place for every character: "id" (x), "text" (ay), "files" (as), "application" (s), "copied" (d,
/// seconds since 1970), "pastes" (i), and its formats by their attributes (ay).
using Map = QVariantMap;
using Maps = QList<QVariantMap>;
using Lines = QList<SharedClips::Line>;
using Ids = QList<qlonglong>;

inline constexpr const char *kInterface = "org.quillmarsh.Clips";

Map toMap(const SharedClip &clip);
SharedClip fromMap(const Map &map);

/// The name of the error that tells a fault; that of an unknown error is Nobody's.
QString errorName(SharedClips::Fault fault);
SharedClips::Fault faultOf(const QString &errorName);

/// So that the bus library knows the types; once, before the first call in either direction.
void registerTypes();

} // namespace ClipMessages

Q_DECLARE_METATYPE(SharedClips::Line)

QDBusArgument &operator<<(QDBusArgument &argument, const SharedClips::Line &line);
const QDBusArgument &operator>>(const QDBusArgument &argument, SharedClips::Line &line);
