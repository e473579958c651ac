#pragma once

#include "Clipboard/preview/PreviewReader.h"

#include <QPainterPath>

#include <vector>

/// Fonts: a specimen in several sizes. The font is not made known to the rest of the process.
class FontReader : public PreviewReader
{
public:
    // ^PreviewReader
    bool accepts(const QMimeType &type) const override;
    std::shared_ptr<const PreviewContent> read(PreviewFile &file, const QMimeType &type,
                                               QSize pixels,
                                               const Patience &patience) const override;
};

/// The outlines of a specimen's lines.
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

    FontContent(QString family, std::vector<Line> lines);

    const QString &family() const { return m_family; }
    const std::vector<Line> &lines() const { return m_lines; }

    // ^PreviewContent
    PreviewBody *makeBody(FileQuestions &questions, QWidget *parent) const override;
    qint64 byteCount() const override;

private:
    const QString m_family;
    const std::vector<Line> m_lines;
};
