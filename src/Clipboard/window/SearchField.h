#pragma once

#include "looks/ClipColors.h"

#include <QLineEdit>
#include <QPixmap>

class QPainter;
class QToolButton;

/// The generous search field at the top of the history window, with its magnifier, its clear button
/// and the switch that limits the list to pinned clips. Owned by the content view.
class SearchField : public QLineEdit
{
    Q_OBJECT

public:
    explicit SearchField(QWidget *parent = nullptr);

    /// Replaces the whole text as if the user had done it: Undo brings the old text back.
    void replaceText(const QString &text);

    bool isPinnedOnly() const;
    void setPinnedOnly(bool isOn);
    QToolButton *pinnedSwitch() const { return m_pinnedSwitch; }

    /// Takes on the colours, and the desktop's font.
    void setColors(const ClipColors &colors);

    QSize sizeHint() const override;

Q_SIGNALS:
    void pinnedOnlyChanged(bool isOn);

protected:
    void inputMethodEvent(QInputMethodEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void makeClearButton();
    void makePinnedSwitch();
    void tellPinnedOnly(bool isOn);
    void placeText();
    void drawEmojiInColor();
    void updateFont();
    void updateIcons();
    void drawPlaceholder(QPainter &painter);

    ClipColors m_colors;
    QToolButton *m_clearButton;
    QToolButton *m_pinnedSwitch;
    QPixmap m_magnifier;
    bool m_isComposing = false; ///< An input method shows a text that is not in the field yet.
};
