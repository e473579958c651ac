#include "Clipboard/preferences/ApplicationDef.h"

#include <QFileInfo>

namespace {

// The module-qualified name that stored lists carry.
QString archivedClassName()
{
    return QStringLiteral("Quillmarsh.ApplicationDef");
}

QString nameKey()
{
    return QStringLiteral("name");
}

QString pathKey()
{
    return QStringLiteral("path");
}

} // namespace

bool ApplicationDef::isKnownByNameOnly() const
{
    return !path.isEmpty() && name == QFileInfo(path).fileName();
}

ArchivedObject ApplicationDef::encode() const
{
    return {archivedClassName(),
            {archivedClassName(), QStringLiteral("NSObject")},
            {{nameKey(), name}, {pathKey(), path}}};
}

std::optional<ApplicationDef> ApplicationDef::decode(const ArchivedObject &object)
{
    const QVariant name = object.fields.value(nameKey());
    const QVariant path = object.fields.value(pathKey());
    if (object.className != archivedClassName() || name.typeId() != QMetaType::QString ||
        path.typeId() != QMetaType::QString)
        return std::nullopt;
    return ApplicationDef{name.toString(), path.toString()};
}
