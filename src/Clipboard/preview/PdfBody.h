#pragma once

#include "Clipboard/preview/PreviewBody.h"
#include "looks/ClipColors.h"
#include "platform/FileQuestions.h"
#include "preview/PdfContent.h"

#include <QPixmap>

#include <map>
#include <set>

class PreviewRegistry;
class QScrollBar;

/// Shows a document's pages below each other. A page is drawn when it comes into sight, and let go
/// when it has been out of sight for some pages.
class PdfBody : public PreviewBody
{
    Q_OBJECT

public:
    /// Of the document at `path`. `registry` must outlive the body.
    PdfBody(const PdfContent &content, QString path, PreviewRegistry &registry, QWidget *parent);

    /// Whether the page, counted from 0, is drawn.
    bool isDrawn(int page) const { return m_pages.contains(page); }

    // ^PreviewBody
    void setColors(const ClipColors &colors) override;
    QScrollBar *scrollBar() const override { return m_scrollBar; }

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    int columnWidth() const;
    int columnPixels() const;
    void layOut();
    void readNextInSight();
    /// First and one past the last page in sight.
    std::pair<int, int> inSight() const;

    const QString m_path;
    const std::vector<QSizeF> m_pageSizes;
    const int m_pageCount;
    PreviewRegistry &m_registry;
    std::vector<QRect> m_rects; ///< Of the pages, scrolled to the top.
    std::map<int, QPixmap> m_pages;
    std::set<int> m_failed; ///< Pages that cannot be drawn.
    FileTicket m_ticket;    ///< Of the page that is being drawn.
    bool m_isReading = false;
    QScrollBar *m_scrollBar;
    ClipColors m_colors;
};
