#pragma once

#include "Clipboard/welcome/KeyCaps.h"
#include "Clipboard/welcome/WelcomeStage.h"

class QPainter;

/// Before and after a swop: a document and the newest clips beside it, whose marked texts change
/// places.
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

    void drawState(QPainter &painter, const QRectF &place, const State &state) const;
    qreal lineHeight() const;
    qreal stateHeight() const;
    void placeKeys();

    KeyCaps *m_keys;
};
