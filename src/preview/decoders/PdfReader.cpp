#include "preview/decoders/PdfReader.h"

#include "platform/FileQuestions.h"
#include "preview/PdfContent.h"
#include "preview/PreviewFile.h"

#include <QPainter>
#include <QPdfDocument>

#include <algorithm>

namespace {

constexpr qreal kMaxPoints = 1e6;

QImage rendered(QPdfDocument &document, int page, int width)
{
    const QSizeF points = document.pagePointSize(page);
    if (points.width() < 1 || points.height() < 1)
        return {};
    const qreal ratio = std::min(points.height() / points.width(), PdfContent::kMaxRatio);
    const QImage drawn = document.render(page, QSize(width, qMax(1, qRound(width * ratio))));
    // The page is transparent where nothing is printed; paper is white in either scheme.
    QImage paper(drawn.size(), QImage::Format_RGB32);
    paper.fill(Qt::white);
    QPainter(&paper).drawImage(0, 0, drawn);
    return paper;
}

bool load(QPdfDocument &document, PreviewFile &file)
{
    document.load(&file);
    return document.status() == QPdfDocument::Status::Ready && document.pageCount() > 0;
}

} // namespace

bool PdfReader::accepts(const PreviewType &type) const
{
    return type.inherits(QLatin1String("application/pdf"));
}

std::shared_ptr<const PreviewContent> PdfReader::read(PreviewFile &file, const PreviewType &,
                                                      QSize pixels, const Patience &patience) const
{
    QPdfDocument document;
    if (!load(document, file))
        return nullptr;
    std::vector<QSizeF> sizes;
    for (int page = 0;
         page < std::min(document.pageCount(), PdfContent::kMaxPages) && !patience.isOver();
         ++page) {
        const QSizeF size = document.pagePointSize(page);
        const bool isPage = size.width() >= 1 && size.width() <= kMaxPoints && size.height() >= 1 &&
                            size.height() <= kMaxPoints;
        sizes.push_back(isPage ? size : QSizeF(1, 1));
    }
    const QImage first = rendered(document, 0, pixels.width());
    if (first.isNull() || sizes.empty())
        return nullptr;
    return std::make_shared<PdfContent>(std::move(sizes), document.pageCount(), first);
}

QImage PdfReader::page(PreviewFile &file, int page, int width)
{
    QPdfDocument document;
    if (!load(document, file) || page < 0 || page >= document.pageCount())
        return {};
    return rendered(document, page, width);
}
