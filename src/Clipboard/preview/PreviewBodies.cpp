#include "Clipboard/preview/PreviewBodies.h"

#include "Clipboard/preview/FontBody.h"
#include "Clipboard/preview/ImageBody.h"
#include "Clipboard/preview/ListBody.h"
#include "Clipboard/preview/PdfBody.h"
#include "Clipboard/preview/TextBody.h"

PreviewBody *PreviewBodies::make(const PreviewContent &content, const QString &path,
                                 PreviewRegistry &registry, QWidget *parent)
{
    if (const auto *image = dynamic_cast<const ImageContent *>(&content))
        return new ImageBody(image->frames(), parent);
    if (const auto *list = dynamic_cast<const ListContent *>(&content))
        return new ListBody(*list, parent);
    if (const auto *document = dynamic_cast<const PdfContent *>(&content))
        return new PdfBody(*document, path, registry, parent);
    if (const auto *font = dynamic_cast<const FontContent *>(&content))
        return new FontBody(*font, parent);
    return new TextBody(dynamic_cast<const TextContent &>(content), parent);
}
