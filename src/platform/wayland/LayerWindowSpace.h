#pragma once

#include "platform/wayland/PlainWindowSpace.h"

#include <QMargins>
#include <QPointer>
#include <QSize>
#include <QTimer>
#include <QWindow>

#include <memory>

namespace LayerShellQt {
class Window;
}

/// Where the compositor has layers for what belongs to the desktop: a utility window stands above
/// all others on the output where the keyboard is, one third down, and keeps the keyboard to
/// itself, so that a click elsewhere would do nothing. Such clicks are caught by an invisible
/// window below it. All other windows are plain ones.
class LayerWindowSpace : public PlainWindowSpace
{
    Q_OBJECT

public:
    explicit LayerWindowSpace(std::function<bool()> areAnimationsWanted, QObject *parent = nullptr);
    ~LayerWindowSpace() override;

    // ^WindowSpace
    void prepareUtilityWindow(QWindow *window) override;
    QRect placeUtilityWindow(QWindow *window, const QSize &size, const QMargins &shadow) override;
    void setSharesKeyboard(QWindow *window, bool shares) override;

    // ^QObject
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void putInLayer(QWindow &window);
    void layOut(const QWindow &window) const;
    void forget(const QScreen *gone);
    void showCatcher();
    void removeCatcher();

    QPointer<QWindow> m_window;
    QPointer<LayerShellQt::Window> m_layer; ///< Of that; it lives as long.
    QSize m_size;                           ///< Of what is seen of it, in points.
    QMargins m_shadow;
    std::unique_ptr<QWindow> m_catcher;
    QTimer m_catcherDelay;
};
