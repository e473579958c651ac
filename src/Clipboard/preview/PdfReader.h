#pragma once

#include "Clipboard/preview/PreviewReader.h"

#include <QImage>
#include <QSizeF>

#include <vector>

/// PDF documents: the first page at once, the others when they are scrolled to.
class PdfReader : public PreviewReader
{
public:
    static constexpr int kMaxPages = 5000; ///< Shown.

    // ^PreviewReader
    bool accepts(const QMimeType &type) const override;
    std::shared_ptr<const PreviewContent> read(PreviewFile &file, const QMimeType &type,
                                               QSize pixels,
                                               const Patience &patience) const override;
};

/// A document's first page and the sizes of its pages.
class PdfContent : public PreviewContent
{
public:
    /// `pageSizes` in points, of the pages that are shown; not empty.
    PdfContent(QString path, std::vector<QSizeF> pageSizes, int pageCount, QImage first);

    const QString &path() const { return m_path; }
    const std::vector<QSizeF> &pageSizes() const { return m_pageSizes; }
    /// Pages in all.
    int pageCount() const { return m_pageCount; }
    const QImage &first() const { return m_first; }

    /// The page of the document at `path` in `width` pixels, read anew; null when it cannot be.
    /// On a helper thread.
    static QImage page(const QString &path, int page, int width, const Patience &patience);

    // ^PreviewContent
    PreviewBody *makeBody(FileQuestions &questions, QWidget *parent) const override;
    qint64 byteCount() const override { return m_first.sizeInBytes(); }

private:
    const QString m_path;
    const std::vector<QSizeF> m_pageSizes;
    const int m_pageCount;
    const QImage m_first;
};
