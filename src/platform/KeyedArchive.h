#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <optional>

/// One archived object: its class and its encoded fields. Fields hold qlonglong, quint64, double,
/// bool, QString or QByteArray; integers that were read are always qlonglong.
struct ArchivedObject
{
    QString className;
    /// The class and its bases, most derived first, as `$classes` lists them.
    QStringList classes;
    QVariantMap fields;

    /// Whether the object is of the class `name` or of one derived from it, with or without the
    /// module's name before it ("Quillmarsh.ApplicationDef").
    bool isKindOf(QStringView name) const;
};

/// The binary property list that keyed archivers write: `$version` 100000, `$archiver`
/// "NSKeyedArchiver", `$top` {root: UID}, `$objects` ["$null", ...] with `$class` records
/// ($classname, $classes). Reading is total: any bytes give an archive or nothing, never a crash,
/// whatever cycle, depth or size they claim.
namespace KeyedArchive {

QByteArray archive(const ArchivedObject &root);
QByteArray archive(const QList<ArchivedObject> &rootArray);

/// The root object; absent when the bytes are no keyed archive of a single object.
std::optional<ArchivedObject> unarchiveObject(const QByteArray &data);

/// The objects of a root array; absent when the bytes are no keyed archive of an array of objects.
std::optional<QList<ArchivedObject>> unarchiveArray(const QByteArray &data);

} // namespace KeyedArchive
