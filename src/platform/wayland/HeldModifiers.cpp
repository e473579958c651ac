#include "platform/wayland/HeldModifiers.h"

#include "platform/wayland/QtWaylandRequests.h"

#include <QEventLoop>
#include <QGuiApplication>
#include <QPainter>
#include <QRasterWindow>
#include <QTimer>

namespace {

using Steady = std::chrono::steady_clock;

/// Has the keyboard to hear what is held.
class Ear : public QRasterWindow
{
public:
    explicit Ear(QEventLoop &loop) : m_loop(loop)
    {
        QSurfaceFormat format;
        format.setAlphaBufferSize(8);
        setFormat(format);
        setFlags(Qt::Tool | Qt::FramelessWindowHint);
        setTitle(QStringLiteral("Quillmarsh keys"));
        resize(1, 1);
        connect(&m_look, &QTimer::timeout, this, &Ear::look);
    }

protected:
    // ^QRasterWindow
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(QRect(QPoint(), size()), Qt::transparent);
    }
    // ^QWindow
    void focusInEvent(QFocusEvent *) override { m_look.start(1); }

private:
    /// From time to time: the toolkit tells of keys, not of what they do to the modifiers, which
    /// the compositor says behind them, and behind the focus.
    void look()
    {
        if (isActive() && QGuiApplication::queryKeyboardModifiers() == Qt::NoModifier)
            m_loop.quit();
    }

    QEventLoop &m_loop;
    QTimer m_look;
};

} // namespace

bool HeldModifiers::awaitReleased(Toplevels &toplevels, Toplevels::TimePoint deadline)
{
    // What was held at the last key or click in a window of ours that had the keyboard until now.
    if (toplevels.isTargetHeld() && QGuiApplication::keyboardModifiers() == Qt::NoModifier)
        return true;
    const std::optional<Toplevels::Window> front = toplevels.front();
    bool isTimedOut = false;
    QEventLoop loop;
    {
        Ear ear(loop);
        ear.show();
        toplevels.activateOwn(ear.title(), deadline);
        QTimer::singleShot(std::chrono::ceil<std::chrono::milliseconds>(deadline - Steady::now()),
                           &loop, [&] {
                               isTimedOut = true;
                               loop.quit();
                           });
        loop.exec(QEventLoop::ExcludeUserInputEvents);
        toplevels.leaveOwn();
    }
    finishQtWaylandRequests();
    if (isTimedOut || !front || !toplevels.isComplete())
        return !isTimedOut;
    return toplevels.awaitFront(front->id, deadline) == Toplevels::Place::InFront;
}
