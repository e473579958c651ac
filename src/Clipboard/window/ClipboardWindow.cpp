#include "Clipboard/window/ClipboardWindow.h"

#include "Clipboard/window/ClipboardView.h"

#include <QMouseEvent>

ClipboardWindow::ClipboardWindow(WindowSpace &space)
    : FramelessWindow(space, Qt::WindowStaysOnTopHint)
{
    setWindowTitle(QStringLiteral("Quillmarsh"));
    setAccessibleName(windowTitle());
    setFrame(QRect(0, 0, 780, qRound(windowHeight)));
}

void ClipboardWindow::setContentView(ClipboardView *view)
{
    m_contentView = view;
    setContentWidget(view);
}

void ClipboardWindow::mousePressEvent(QMouseEvent *event)
{
    // What the user sees under the pointer in the shadow is another window.
    if (!contentRect().contains(event->position().toPoint()))
        close();
}
