#include "preview/ClosedDocument.h"

#include <QImage>

QVariant ClosedDocument::loadResource(int type, const QUrl &)
{
    if (type != ImageResource)
        return {};
    // Without any picture a broken one would be shown.
    QImage nothing(1, 1, QImage::Format_ARGB32_Premultiplied);
    nothing.fill(Qt::transparent);
    return nothing;
}
