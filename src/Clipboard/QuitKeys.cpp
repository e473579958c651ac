#include "Clipboard/QuitKeys.h"

#include "platform/ModifierFlags.h"
#include "shortcut/MASShortcut.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include <utility>

namespace {

/// By what is printed on the key: in the layout in effect, else, where that has no Latin letters,
/// in the one that names keys.
bool isQuit(const QKeyEvent &event)
{
    return ModifierFlags::ofEvent(event) == ModifierFlags::kCommand &&
           (event.key() == Qt::Key_Q ||
            (event.key() > Qt::Key_AsciiTilde &&
             MASShortcut::shortcutWithEvent(event).keyCodeStringForKeyEquivalent() == u"q"));
}

} // namespace

QuitKeys::QuitKeys(std::function<void()> quit, QObject *parent)
    : QObject(parent), m_quit(std::move(quit))
{
    qApp->installEventFilter(this);
}

bool QuitKeys::eventFilter(QObject *, QEvent *event)
{
    if (event->type() != QEvent::ShortcutOverride && event->type() != QEvent::KeyPress)
        return false;
    const auto &keyEvent = static_cast<const QKeyEvent &>(*event);
    if (!isQuit(keyEvent))
        return false;
    // Claimed before any shortcut of a window, it comes as a press.
    event->accept();
    if (event->type() == QEvent::KeyPress && !keyEvent.isAutoRepeat())
        m_quit();
    return true;
}
