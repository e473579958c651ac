#pragma once

#include "Clipboard/preview/PreviewBody.h"
#include "looks/ClipColors.h"
#include "preview/FontContent.h"

/// Shows a font's specimen.
class FontBody : public PreviewBody
{
    Q_OBJECT

public:
    FontBody(const FontContent &content, QWidget *parent);

    // ^PreviewBody
    void setColors(const ClipColors &colors) override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    const std::vector<FontContent::Line> m_lines;
    ClipColors m_colors;
};
