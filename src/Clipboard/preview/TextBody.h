#pragma once

#include "Clipboard/preview/PreviewBody.h"
#include "preview/TextContent.h"

class QAbstractScrollArea;
class QLabel;

/// Shows the beginning of a text; says below it when the file holds more.
class TextBody : public PreviewBody
{
    Q_OBJECT

public:
    TextBody(const TextContent &content, QWidget *parent);

    /// What is read in it, without markup.
    QString plainText() const;

    // ^PreviewBody
    void setColors(const ClipColors &colors) override;
    QScrollBar *scrollBar() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    QAbstractScrollArea *m_view;
    QLabel *m_moreLabel;
};
