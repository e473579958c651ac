#pragma once

#include "preview/PreviewContent.h"

#include <QImage>
#include <QSizeF>

#include <vector>

/// A document's first page and the sizes of its pages.
class PdfContent : public PreviewContent
{
public:
    static constexpr int kMaxPages = 5000; ///< Shown.
    static constexpr qreal kMaxRatio = 8;  ///< Of a drawn page's height to its width.

    /// `pageSizes` in points, of the pages that are shown; not empty.
    PdfContent(std::vector<QSizeF> pageSizes, int pageCount, QImage first)
        : m_pageSizes(std::move(pageSizes)), m_pageCount(pageCount), m_first(std::move(first))
    {
    }

    const std::vector<QSizeF> &pageSizes() const { return m_pageSizes; }
    /// Pages in all.
    int pageCount() const { return m_pageCount; }
    const QImage &first() const { return m_first; }

    // ^PreviewContent
    qint64 byteCount() const override { return m_first.sizeInBytes(); }

private:
    const std::vector<QSizeF> m_pageSizes;
    const int m_pageCount;
    const QImage m_first;
};
