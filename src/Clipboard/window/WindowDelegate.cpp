#include "Clipboard/window/WindowDelegate.h"

#include "Clipboard/window/ClipTableView.h"
#include "Clipboard/window/ClipboardView.h"
#include "Clipboard/window/ClipboardWindow.h"
#include "Clipboard/window/FileViewController.h"
#include "Clipboard/window/SearchField.h"
#include "Clipboard/window/ViewController.h"
#include "Clipboard/window/WindowsBeside.h"
#include "looks/PaneButton.h"
#include "platform/FrontApplication.h"
#include "platform/KeySender.h"
#include "platform/ModifierFlags.h"
#include "platform/WindowSpace.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace {

constexpr std::chrono::milliseconds kRecheckInterval{50};

} // namespace

WindowDelegate::WindowDelegate(std::unique_ptr<ViewController> viewController,
                               WindowSpace &windowSpace, FrontApplication &frontApplication,
                               KeySender &keySender)
    : m_windowSpace(windowSpace), m_frontApplication(frontApplication), m_keySender(keySender),
      m_window(std::make_unique<ClipboardWindow>(windowSpace)),
      m_windowsBeside(std::make_unique<WindowsBeside>(*m_window)),
      m_viewController(std::move(viewController)), m_hiding(windowSpace)
{
    m_window->setContentView(m_viewController->mainView());
    m_window->installEventFilter(this);
    const FileViewController &filePane = m_viewController->fileViewController();
    filePane.openButton()->installEventFilter(this);
    filePane.revealInFinderButton()->installEventFilter(this);
    connect(m_window.get(), &ClipboardWindow::themeChanged, m_viewController.get(),
            &ViewController::applyTheme);
    connect(m_windowsBeside.get(), &WindowsBeside::wantKeyboardChanged, this,
            &WindowDelegate::shareKeyboard);
    connect(&windowSpace, &WindowSpace::outsideClicked, this, [this] {
        if (m_window->isVisible() && m_viewController->isWindowKey())
            windowDidResignKey();
    });

    m_recheckTimer.setInterval(kRecheckInterval);
    connect(&m_recheckTimer, &QTimer::timeout, this, &WindowDelegate::windowDeactivated);
}

WindowDelegate::~WindowDelegate()
{
    m_window->removeEventFilter(this);
}

void WindowDelegate::prepare()
{
    if (m_window->isVisible())
        return;
    m_viewController->clipTableView()->reloadData();
    m_window->grab();
}

void WindowDelegate::showWindow()
{
    if (!m_window->isVisible()) {
        Q_EMIT opens();
        takeAim();
    }
    if (!m_isPrepared) {
        m_window->winId();
        m_windowSpace.prepareUtilityWindow(m_window->windowHandle());
        // Another screen may have another scale, for which the icons are drawn anew.
        connect(m_window->windowHandle(), &QWindow::screenChanged, m_viewController.get(),
                &ViewController::applyTheme);
        m_isPrepared = true;
    }
    const QSize size(m_window->frame().width(), qRound(ClipboardWindow::windowHeight));
    m_window->setFrame(m_windowSpace.placeUtilityWindow(m_window->windowHandle(), size,
                                                        m_window->shadowMargins()));
    m_viewController->setIsWindowKey(true);
    m_window->show();
    m_keySender.keepTypedAhead(m_window->windowHandle());
    m_window->raise();
    m_frontApplication.activate(m_window->windowHandle());
    Q_EMIT shown();
}

void WindowDelegate::takeAim()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto covered = std::find_if(windows.begin(), windows.end(), [&](const QWidget *window) {
        const QWidget *focused = window->focusWidget();
        return window->isVisible() && window->windowHandle() && focused &&
               focused->testAttribute(Qt::WA_InputMethodEnabled) &&
               m_frontApplication.isInFront(*window->windowHandle());
    });
    m_coveredWindow = covered == windows.end() ? nullptr : *covered;
    m_frontApplication.setOwnTarget(m_coveredWindow ? m_coveredWindow->windowHandle() : nullptr);
}

void WindowDelegate::shareKeyboard(bool shares)
{
    m_windowSpace.setSharesKeyboard(m_window->windowHandle(), shares);
}

void WindowDelegate::forgetCoveredWindow()
{
    m_coveredWindow = nullptr;
    m_frontApplication.setOwnTarget(nullptr);
}

void WindowDelegate::cancelOperation()
{
    m_viewController->endQueue();
    m_window->hide();
}

bool WindowDelegate::isOursInFront() const
{
    return m_viewController->isWindowKey() || QApplication::activeWindow();
}

void WindowDelegate::hideApp()
{
    const QScopedValueRollback<bool> makesWay(m_makesWay, true);
    m_window->hide();
    m_hiding.hide(m_coveredWindow);
}

void WindowDelegate::makeWhole()
{
    if (std::exchange(m_isMadeWay, false))
        m_viewController->makeWhole();
}

void WindowDelegate::windowDidResignKey()
{
    m_recheckTimer.stop();
    m_isMadeWay = m_makesWay;
    // Closed in any case, which destroys the display system's window: a window manager that learns
    // late of one that was hidden would take down the one that is shown next.
    if (m_makesWay)
        m_window->close();
    else
        m_viewController->hide();
    m_viewController->setIsWindowKey(false);
}

void WindowDelegate::noticeLostKeyboard()
{
    // A window that is about to get the keyboard is not in front either.
    const bool hadKeyboard = m_window->isActiveWindow() || m_recheckTimer.isActive();
    if (m_window->isVisible() && m_viewController->isWindowKey() && hadKeyboard && !keepsKey())
        windowDidResignKey();
}

/// Keys that no control of the window uses, and the arrows with which buttons would pass on the
/// keyboard, act as in the search field.
bool WindowDelegate::isForSearchField(const QObject &watched, const QKeyEvent &event) const
{
    const int key = event.key();
    if (m_window->focusWidget() == m_viewController->searchTextField() ||
        ModifierFlags::isModifierKey(event) || key == Qt::Key_Tab || key == Qt::Key_Backtab)
        return false;
    const bool presses = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
    return &watched == m_window.get() || (!presses && key != Qt::Key_Escape);
}

bool WindowDelegate::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_window.get() && event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::Show:
        m_viewController->viewDidAppear();
        break;
    case QEvent::Hide:
        // Ordered out by whatever way, the window is not key any more.
        if (m_viewController->isWindowKey())
            windowDidResignKey();
        break;
    case QEvent::WindowActivate:
        m_recheckTimer.stop();
        break;
    case QEvent::WindowDeactivate:
        windowDeactivated();
        break;
    case QEvent::KeyRelease:
        if (static_cast<QKeyEvent *>(event)->key() == Qt::Key_Alt)
            m_viewController->followAlt(false);
        break;
    case QEvent::KeyPress:
        m_viewController->followAlt(static_cast<QKeyEvent *>(event)->key() == Qt::Key_Alt);
        if (static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
            cancelOperation();
            return true;
        }
        if (isForSearchField(*watched, *static_cast<QKeyEvent *>(event))) {
            m_viewController->typeIntoSearchField(*static_cast<QKeyEvent *>(event));
            return true;
        }
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

bool WindowDelegate::hasFocusInOwnDialog() const
{
    const QWidget *focused = QApplication::activePopupWidget();
    if (!focused)
        focused = QApplication::activeWindow();
    while (focused && focused != m_window.get() && focused->parentWidget() != m_window.get())
        focused = focused->parentWidget();
    return focused && focused != m_window.get();
}

bool WindowDelegate::keepsKey() const
{
    return hasFocusInOwnDialog() || m_windowsBeside->hasMenuJustClosed() ||
           m_frontApplication.isInFront(*m_window->windowHandle());
}

void WindowDelegate::windowDeactivated()
{
    if (!m_window->isVisible() || !m_viewController->isWindowKey())
        return;
    // A grab of the keyboard, by our own hot key or another program's, looks like a loss of focus.
    // The end of it may leave the window without the keyboard, and nothing tells, so that is looked
    // after until either is known.
    if (keepsKey())
        m_recheckTimer.start();
    else
        windowDidResignKey();
}
