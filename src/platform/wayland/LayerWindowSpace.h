#pragma once

#include "platform/wayland/PlainWindowSpace.h"

#include <QMargins>
#include <QPointer>
#include <QSize>
#include <QWindow>

#include <memory>

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
    void layOut(QWindow &window) const;
    void showCatcher();

    QPointer<QWindow> m_window;
    QSize m_size; ///< Of what is seen of it, in points.
    QMargins m_shadow;
    std::unique_ptr<QWindow> m_catcher;
};
