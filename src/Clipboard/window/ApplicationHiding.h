#pragma once

#include <QPoint>
#include <QPointer>
#include <QWidget>

#include <vector>

/// Hides the windows of the application for the time of a paste, so that the keyboard goes straight
/// to the window that is pasted into, and brings them back where they were. Their user has not left
/// them meanwhile, so neither they nor what stands in them hears of it. Owned by WindowDelegate.
class ApplicationHiding
{
public:
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

    std::vector<Hidden> m_hidden;
};
