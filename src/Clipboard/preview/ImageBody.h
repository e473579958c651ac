#pragma once

#include "Clipboard/preview/PreviewBody.h"
#include "looks/ClipColors.h"
#include "preview/ImageContent.h"

#include <QTimer>

/// Shows a picture in the middle, never enlarged, on a checkerboard where it is transparent; an
/// animation plays without end.
class ImageBody : public PreviewBody
{
    Q_OBJECT

public:
    ImageBody(std::vector<ImageContent::Frame> frames, QWidget *parent);

    /// Number of the frame that is shown, from 0.
    size_t frame() const { return m_frame; }

    // ^PreviewBody
    void setColors(const ClipColors &colors) override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void showNextFrame();

    const std::vector<ImageContent::Frame> m_frames;
    size_t m_frame = 0;
    QTimer m_timer;
    ClipColors m_colors;
};
