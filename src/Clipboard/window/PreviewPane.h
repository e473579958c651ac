#pragma once

#include "looks/ClipColors.h"

#include <QWidget>

class ClipInfoLine;
class ClipTextView;
class Clock;

/// The preview side of the history window: the text preview above the line that describes the
/// clip. The file preview is put into it by the view controller. Owned by the split view.
class PreviewPane : public QWidget
{
    Q_OBJECT

public:
    /// `clock` must outlive the pane.
    explicit PreviewPane(Clock &clock, QWidget *parent = nullptr);

    ClipTextView *textView() const { return m_textView; }
    ClipInfoLine *infoLine() const { return m_infoLine; }

    void setColors(const ClipColors &colors);

Q_SIGNALS:
    void resized();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    ClipTextView *m_textView;
    ClipInfoLine *m_infoLine;
    ClipColors m_colors;
};
