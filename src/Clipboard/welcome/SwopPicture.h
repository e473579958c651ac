#pragma once

#include "Clipboard/welcome/KeyCaps.h"
#include "Clipboard/welcome/WelcomeStage.h"

class QPainter;

/// Before and after a swop: a document and the newest clips below it, whose marked texts change
/// places. The words are of the user's language and font, the rest is drawn to the size of these.
class SwopPicture : public WelcomeStage
{
    Q_OBJECT

public:
    explicit SwopPicture(QWidget *parent = nullptr);

    /// The keys between the two states, and what is said in their place while there are none.
    KeyCaps *keys() const { return m_keys; }
    void setKeys(const QStringList &keys);

    // ^WelcomeStage
    void setColors(const ClipColors &colors) override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    struct State
    {
        QString heading;
        QString inDocument; ///< The marked text.
        QStringList clips;  ///< Newest first.
        int marked;         ///< The clip that is highlighted.
    };

    /// In `middle` points from the picture's middle.
    void drawState(QPainter &painter, qreal middle, qreal scale, const State &state) const;
    qreal textScale() const;
    void placeKeys();

    KeyCaps *m_keys;
};
