#pragma once

#include "preview/PreviewContent.h"

#include <QPainterPath>
#include <QString>

#include <vector>

/// The outlines of a font specimen's lines.
class FontContent : public PreviewContent
{
public:
    struct Line
    {
        QPainterPath outline; ///< From the left end of its base line.
        qreal width = 0;      ///< In points, as `height` and `ascent`.
        qreal height = 0;
        qreal ascent = 0;
    };

    static constexpr size_t kMaxLines = 16;
    /// Of all lines, so that they are painted within a frame or a few.
    static constexpr qsizetype kMaxElements = 200'000;

    FontContent(QString family, std::vector<Line> lines);

    const QString &family() const { return m_family; }
    const std::vector<Line> &lines() const { return m_lines; }

    // ^PreviewContent
    qint64 byteCount() const override;

private:
    const QString m_family;
    const std::vector<Line> m_lines;
};
