#pragma once

#include "Clipboard/window/ClipColors.h"

#include <QPlainTextEdit>

class QLabel;

/// The read-only text preview. Owned by the preview pane. However large a clip is, only a bounded
/// beginning of it is laid out; a line below it then says how much more there is.
class ClipTextView : public QPlainTextEdit
{
    Q_OBJECT

public:
    /// More than anybody reads in a preview, and laid out within a frame.
    static constexpr qsizetype kShownCharacters = 20'000;
    static constexpr qsizetype kShownLines = 2'000;
    /// Nothing after so many characters without a line break: the time to break a line grows with
    /// the square of its length.
    static constexpr qsizetype kShownOfLine = 4'000;

    explicit ClipTextView(QWidget *parent = nullptr);

    /// Shows `text` from its beginning.
    void setString(const QString &text);

    void setColors(const ClipColors &colors);

    /// The line that says how much of the clip is not shown; hidden when all of it is.
    QLabel *moreLabel() const { return m_moreLabel; }

Q_SIGNALS:
    /// A key that is neither for reading nor for copying from the preview.
    void otherKeyPressed(const QKeyEvent &event);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void placeMoreLabel();

    QLabel *m_moreLabel;
};
