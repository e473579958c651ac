#include "preview/PreviewType.h"

#include <QMimeDatabase>
#include <QMimeType>

PreviewType::PreviewType(const QMimeType &type) : m_names(type.name())
{
    m_names += type.aliases();
    const QMimeDatabase types;
    for (const QString &general : type.allAncestors())
        m_names += QStringList(general) + types.mimeTypeForName(general).aliases();
    m_names.resize(qMin(m_names.size(), kMaxNames));
}
