#include "Clipboard/window/WindowsBeside.h"

#include <QApplication>
#include <QEvent>

#include <algorithm>
#include <chrono>
#include <utility>

namespace {

constexpr std::chrono::milliseconds kGivenBack{100};

bool isMenu(const QObject &object)
{
    const auto *window = qobject_cast<const QWidget *>(&object);
    return window && window->windowType() == Qt::Popup;
}

bool takesKeyboard(const QObject &object)
{
    const auto *window = qobject_cast<const QWidget *>(&object);
    return window && window->isWindow() && window->isVisible() &&
           (window->windowType() == Qt::Window || window->windowType() == Qt::Dialog);
}

} // namespace

WindowsBeside::WindowsBeside(QWidget &window) : m_window(window)
{
    m_window.installEventFilter(this);
}

WindowsBeside::~WindowsBeside()
{
    m_window.removeEventFilter(this);
    qApp->removeEventFilter(this);
}

bool WindowsBeside::eventFilter(QObject *watched, QEvent *event)
{
    const bool hides = event->type() == QEvent::Hide;
    if (hides && isMenu(*watched))
        m_menuJustClosed.setRemainingTime(kGivenBack);
    if (watched == &m_window && (hides || event->type() == QEvent::Show))
        follow(!hides);
    else if (hides)
        note(*watched, false);
    // Raised, in case it was there already.
    else if (event->type() == QEvent::Show || event->type() == QEvent::ZOrderChange)
        note(*watched, takesKeyboard(*watched));
    return QObject::eventFilter(watched, event);
}

bool WindowsBeside::hasMenuJustClosed() const
{
    return !m_menuJustClosed.hasExpired();
}

void WindowsBeside::follow(bool follows)
{
    qApp->removeEventFilter(this);
    if (follows)
        qApp->installEventFilter(this);
    else if (!std::exchange(m_others, {}).empty())
        Q_EMIT wantKeyboardChanged(false);
}

void WindowsBeside::note(const QObject &window, bool wantsKeyboard)
{
    const auto found = std::find(m_others.begin(), m_others.end(), &window);
    const bool wantedBefore = found != m_others.end();
    if (&window == &m_window || wantsKeyboard == wantedBefore)
        return;
    if (wantsKeyboard)
        m_others.push_back(&window);
    else
        m_others.erase(found);
    if (m_others.size() == (wantsKeyboard ? 1 : 0))
        Q_EMIT wantKeyboardChanged(wantsKeyboard);
}
