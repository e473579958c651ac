#include "Clipboard/window/ApplicationHiding.h"

#include "platform/WindowSpace.h"

#include <QApplication>
#include <QEvent>
#include <QWindow>

#include <utility>

namespace {

/// Keeps from the widgets that they are hidden and shown. Leaving a pane has consequences that a
/// paste must not have.
class Discretion : public QObject
{
public:
    Discretion() { qApp->installEventFilter(this); }

    // ^QObject
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        return watched->isWidgetType() &&
               (event->type() == QEvent::Hide || event->type() == QEvent::Show);
    }
};

bool isOrdinary(const QWidget &window)
{
    return window.isVisible() && window.windowHandle() &&
           (window.windowType() == Qt::Window || window.windowType() == Qt::Dialog) &&
           !window.windowFlags().testFlag(Qt::BypassWindowManagerHint);
}

} // namespace

void ApplicationHiding::hide(const QWidget *stays)
{
    if (!m_windowSpace.canShowWithoutKeyboard())
        return;
    const Discretion discretion;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (window == stays || !isOrdinary(*window))
            continue;
        m_hidden.push_back({window, window->pos()});
        // Not as a dialog, which takes it for an answer.
        window->QWidget::setVisible(false);
    }
}

void ApplicationHiding::unhide()
{
    const Discretion discretion;
    for (const Hidden &hidden : std::exchange(m_hidden, {})) {
        QWidget *const window = hidden.window;
        if (!window || window->isVisible())
            continue;
        // Read by Qt when the window is shown. The widget's attribute of that meaning is looked at
        // only when the native window is made.
        QWindow *const native = window->windowHandle();
        constexpr const char *kWithoutActivating = "_q_showWithoutActivating";
        const QVariant before = native->property(kWithoutActivating);
        native->setProperty(kWithoutActivating, true);
        window->move(hidden.position);
        window->QWidget::setVisible(true);
        native->setProperty(kWithoutActivating, before);
    }
}
