#pragma once

#include <QPoint>
#include <QPointer>
#include <QWidget>

#include <vector>

class WindowSpace;

/// Hides the windows of the application for the time of a paste, so that the keyboard goes straight
/// to the window that is pasted into, and brings them back where they were. Their user has not left
/// them meanwhile, so neither they nor what stands in them hears of it. Where a window cannot come
/// back without the keyboard they all stay. Owned by WindowDelegate.
class ApplicationHiding
{
public:
    /// `windowSpace` must outlive this object.
    explicit ApplicationHiding(const WindowSpace &windowSpace) : m_windowSpace(windowSpace) {}

    /// Hides every window but `stays`, which may be null; those hidden before stay hidden. Menus
    /// and their like, which the window manager gives no keyboard, are left alone.
    void hide(const QWidget *stays);

    /// Brings back what was hidden, without the keyboard.
    void unhide();

private:
    struct Hidden
    {
        QPointer<QWidget> window;
        QPoint position;
    };

    const WindowSpace &m_windowSpace;
    std::vector<Hidden> m_hidden;
};
