#include "looks/WindowKeys.h"

#include "platform/KeyboardLayout.h"
#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <QWindow>

#include <utility>

namespace {

/// The one to close; null for menus and their like, and for what is no widget's window.
QWidget *windowOf(QObject &watched)
{
    QWidget *window = nullptr;
    if (watched.isWidgetType())
        window = static_cast<QWidget &>(watched).window();
    else if (watched.isWindowType())
        window = QWidget::find(static_cast<QWindow &>(watched).winId());
    return window && window->windowType() != Qt::Popup ? window : nullptr;
}

} // namespace

WindowKeys::WindowKeys(const KeyboardLayout &layout, std::function<void()> quit, QObject *parent)
    : QObject(parent), m_layout(layout), m_quit(std::move(quit))
{
    qApp->installEventFilter(this);
}

/// By what is printed on the key: in the layout in effect, else, where that has no Latin letters,
/// in the one that names keys.
bool WindowKeys::isLetter(const QKeyEvent &event, Qt::Key letter) const
{
    if (event.key() <= Qt::Key_AsciiTilde)
        return event.key() == letter;
    const quint64 keyCode = VirtualKey::ofEvent(event);
    return keyCode != VirtualKey::kNotFound &&
           m_layout.asciiCapableName(static_cast<quint32>(keyCode)).toUpper() == QChar(letter);
}

bool WindowKeys::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::ShortcutOverride && event->type() != QEvent::KeyPress)
        return false;
    const auto &keyEvent = static_cast<const QKeyEvent &>(*event);
    if (ModifierFlags::ofEvent(keyEvent) != ModifierFlags::kCommand)
        return false;
    const bool quits = isLetter(keyEvent, Qt::Key_Q);
    QWidget *closed = isLetter(keyEvent, Qt::Key_W) ? windowOf(*watched) : nullptr;
    if (!quits && !closed)
        return false;
    // Claimed before any shortcut of a window, it comes as a press.
    event->accept();
    if (event->type() == QEvent::KeyPress && !keyEvent.isAutoRepeat())
        quits ? m_quit() : static_cast<void>(closed->close());
    return true;
}
