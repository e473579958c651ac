#include "Clipboard/HistoryPanel.h"

#include "Clipboard/window/ClipboardWindow.h"
#include "Clipboard/window/ViewController.h"
#include "Clipboard/window/WindowDelegate.h"

#include <QApplication>

#include <utility>

HistoryPanel::HistoryPanel() = default;
HistoryPanel::~HistoryPanel() = default;

void HistoryPanel::load(std::unique_ptr<WindowDelegate> windowController)
{
    m_windowController = std::move(windowController);
    m_window = m_windowController->window();
    m_viewController = m_windowController->getViewController();
}

bool HistoryPanel::isWorkedIn() const
{
    m_windowController->noticeLostKeyboard();
    return m_viewController->isWindowKey();
}

void HistoryPanel::setWindowVisible()
{
    if (!m_window->isVisible())
        Q_EMIT opens();
    m_windowController->showWindow();
    Q_EMIT shown();
}

void HistoryPanel::hide()
{
    m_window->close();
}

void HistoryPanel::forgetCoveredWindow()
{
    m_windowController->forgetCoveredWindow();
}

void HistoryPanel::unhide()
{
    m_hiding.unhide();
}

bool HistoryPanel::isOursInFront() const
{
    return m_viewController->isWindowKey() || QApplication::activeWindow();
}

void HistoryPanel::hideApp()
{
    m_windowController->makeWay();
    m_hiding.hide(m_windowController->coveredWindow());
}

void HistoryPanel::makeWhole()
{
    m_windowController->makeWhole();
}
