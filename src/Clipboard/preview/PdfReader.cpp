#include "Clipboard/preview/PdfReader.h"

#include "Clipboard/preview/PdfBody.h"
#include "Clipboard/preview/PreviewFile.h"
#include "platform/FileQuestions.h"

#include <QMimeType>
#include <QPainter>
#include <QPdfDocument>

#include <algorithm>

namespace {

constexpr qreal kMaxRatio = 8; ///< Of a page's height to its width.

QImage rendered(QPdfDocument &document, int page, int width)
{
    const QSizeF points = document.pagePointSize(page);
    if (points.width() < 1 || points.height() < 1)
        return {};
    const qreal ratio = std::min(points.height() / points.width(), kMaxRatio);
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

bool PdfReader::accepts(const QMimeType &type) const
{
    return type.inherits(QStringLiteral("application/pdf"));
}

std::shared_ptr<const PreviewContent> PdfReader::read(PreviewFile &file, const QMimeType &,
                                                      QSize pixels, const Patience &patience) const
{
    QPdfDocument document;
    if (!load(document, file))
        return nullptr;
    std::vector<QSizeF> sizes;
    for (int page = 0; page < std::min(document.pageCount(), kMaxPages) && !patience.isOver();
         ++page) {
        const QSizeF size = document.pagePointSize(page);
        sizes.push_back(size.isEmpty() ? QSizeF(1, 1) : size);
    }
    const QImage first = rendered(document, 0, pixels.width());
    if (first.isNull() || sizes.empty())
        return nullptr;
    return std::make_shared<PdfContent>(file.path(), std::move(sizes), document.pageCount(), first);
}

PdfContent::PdfContent(QString path, std::vector<QSizeF> pageSizes, int pageCount, QImage first)
    : m_path(std::move(path)), m_pageSizes(std::move(pageSizes)), m_pageCount(pageCount),
      m_first(std::move(first))
{
}

QImage PdfContent::page(const QString &path, int page, int width, const Patience &patience)
{
    PreviewFile file(path, patience);
    QPdfDocument document;
    if (!file.openRegular() || !load(document, file) || page >= document.pageCount())
        return {};
    return rendered(document, page, width);
}

PreviewBody *PdfContent::makeBody(FileQuestions &questions, QWidget *parent) const
{
    return new PdfBody(*this, questions, parent);
}
