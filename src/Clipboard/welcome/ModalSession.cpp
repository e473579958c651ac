#include "Clipboard/welcome/ModalSession.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QWindow>

#include <algorithm>
#include <array>
#include <utility>

namespace {

bool isInput(QEvent::Type type)
{
    constexpr std::array kInput{QEvent::MouseButtonPress,
                                QEvent::MouseButtonRelease,
                                QEvent::MouseButtonDblClick,
                                QEvent::Wheel,
                                QEvent::KeyPress,
                                QEvent::KeyRelease,
                                QEvent::TouchBegin,
                                QEvent::TouchUpdate,
                                QEvent::TouchEnd,
                                QEvent::TabletPress,
                                QEvent::TabletRelease,
                                QEvent::ContextMenu,
                                QEvent::DragEnter,
                                QEvent::Drop};
    return std::find(kInput.begin(), kInput.end(), type) != kInput.end();
}

} // namespace

void ModalSession::run(QWidget &window)
{
    QEventLoop loop;
    m_window = &window;
    m_loop = &loop;
    QCoreApplication::instance()->installEventFilter(this);
    loop.exec();
    QCoreApplication::instance()->removeEventFilter(this);
    // The application's end is not told by stop().
    m_loop = nullptr;
}

void ModalSession::stop()
{
    if (m_loop)
        std::exchange(m_loop, nullptr)->quit();
}

bool ModalSession::eventFilter(QObject *watched, QEvent *event)
{
    if (!m_loop || !isInput(event->type()) || !watched->isWindowType())
        return false;
    if (!isBlocked(*static_cast<QWindow *>(watched)))
        return false;
    if (event->type() == QEvent::MouseButtonPress && m_window) {
        m_window->raise();
        m_window->activateWindow();
    }
    return true;
}

bool ModalSession::isBlocked(const QWindow &window) const
{
    const QWindow *own = m_window ? m_window->windowHandle() : nullptr;
    // Menus and tool tips come up over everything, and a status item's window is part of the panel.
    const bool isOverlay = window.type() == Qt::Popup || window.type() == Qt::ToolTip ||
                           window.flags().testFlag(Qt::BypassWindowManagerHint);
    return own && &window != own && !isOverlay && !window.isModal() &&
           !own->isAncestorOf(&window, QWindow::IncludeTransients);
}
