#include "Clipboard/welcome/WelcomeWindow.h"

#include <QKeyEvent>

WelcomeWindow::WelcomeWindow(WindowSpace &space) : FramelessWindow(space)
{
    setObjectName(QStringLiteral("WelcomeWindow"));
    setWindowTitle(tr("Welcome to Quillmarsh"));
    setAccessibleName(windowTitle());
}

void WelcomeWindow::closeEvent(QCloseEvent *event)
{
    FramelessWindow::closeEvent(event);
    Q_EMIT willClose();
}

void WelcomeWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        Q_EMIT returnPressed();
    else
        FramelessWindow::keyPressEvent(event);
}
