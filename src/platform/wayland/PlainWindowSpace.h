#pragma once

#include "platform/WindowSpace.h"

#include <functional>

/// Windows on a compositor, which places them itself and tells neither the pointer nor where a
/// window stands. All it needs of a window is its size, which stays by the limits that Qt hands on.
class PlainWindowSpace : public WindowSpace
{
    Q_OBJECT

public:
    /// `areAnimationsWanted` is what the desktop's settings say; asked each time.
    explicit PlainWindowSpace(std::function<bool()> areAnimationsWanted, QObject *parent = nullptr);

    // ^WindowSpace
    std::optional<QPoint> pointerPosition() const override { return std::nullopt; }
    QRect visibleFrame(const QScreen &screen) const override;
    bool isCompositing() const override { return true; }
    bool areAnimationsEnabled() const override { return m_areAnimationsWanted(); }
    void prepareUtilityWindow(QWindow *) override {}
    QRect placeUtilityWindow(QWindow *window, const QSize &size, const QMargins &shadow) override;
    void setSharesKeyboard(QWindow *, bool) override {}
    bool canShowWithoutKeyboard() const override { return false; }
    bool prepareFixedWindow(QWindow *) override { return false; }

private:
    const std::function<bool()> m_areAnimationsWanted;
};
