#include "Clipboard/window/SearchFieldDelegate.h"

#include "Clipboard/window/HistoryKeys.h"
#include "Clipboard/window/SearchField.h"
#include "Clipboard/window/ViewController.h"
#include "looks/FieldMenu.h"
#include "platform/ModifierFlags.h"

#include <QContextMenuEvent>
#include <QKeyEvent>

namespace {

/// Modifier flags without the bits that tell the left from the right key.
constexpr quint64 kDeviceIndependentMask = 0xFFFF0000;

} // namespace

SearchFieldDelegate::SearchFieldDelegate(ViewController *theViewController)
    : QObject(theViewController), m_viewController(theViewController)
{
}

void SearchFieldDelegate::attach(SearchField *field)
{
    field->installEventFilter(this);
    connect(field, &QLineEdit::textChanged, this, &SearchFieldDelegate::controlTextDidChange);
}

bool SearchFieldDelegate::control(const QString &command, quint64 modifierFlags)
{
    ViewController *const controller = m_viewController;
    const auto perform = [controller](auto operation) {
        if (controller)
            operation(*controller);
        return true;
    };
    if (command == QLatin1String("moveUp:"))
        return perform([](ViewController &target) { target.previous(); });
    if (command == QLatin1String("moveDown:"))
        return perform([](ViewController &target) { target.next(); });
    if (command == QLatin1String("moveUpAndModifySelection:"))
        return perform([](ViewController &target) { target.markPrevious(); });
    if (command == QLatin1String("moveDownAndModifySelection:"))
        return perform([](ViewController &target) { target.markNext(); });
    if (command == QLatin1String("insertNewline:")) {
        // Shift and nothing else: with any further modifier, Caps Lock among them, the clip is
        // pasted unchanged.
        if ((modifierFlags & kDeviceIndependentMask) == ModifierFlags::kShift)
            return perform([](ViewController &target) { target.paste(QStringLiteral("upper")); });
        if ((modifierFlags & kDeviceIndependentMask) == ModifierFlags::kControl)
            return perform([](ViewController &target) { target.queue(); });
        return perform([](ViewController &target) { target.paste(); });
    }
    if (command == QLatin1String("insertNewlineIgnoringFieldEditor:"))
        return perform([](ViewController &target) { target.paste(QStringLiteral("lower")); });
    if (command == QLatin1String("cancelOperation:"))
        return perform([](ViewController &target) { target.cancel(); });
    if (command == QLatin1String("deleteToBeginningOfLine:"))
        return perform([](ViewController &target) { target.deleteItem(); });
    return false;
}

void SearchFieldDelegate::controlTextDidChange(const QString &stringValue)
{
    if (m_viewController)
        m_viewController->filterDataArray(stringValue);
}

std::optional<QString> SearchFieldDelegate::commandForKey(const QKeyEvent &event)
{
    const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
    switch (event.key()) {
    case Qt::Key_Up:
        return held == Qt::ShiftModifier ? QStringLiteral("moveUpAndModifySelection:")
                                         : QStringLiteral("moveUp:");
    case Qt::Key_Down:
        return held == Qt::ShiftModifier ? QStringLiteral("moveDownAndModifySelection:")
                                         : QStringLiteral("moveDown:");
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return held & Qt::AltModifier ? QStringLiteral("insertNewlineIgnoringFieldEditor:")
                                      : QStringLiteral("insertNewline:");
    case Qt::Key_Escape:
        return QStringLiteral("cancelOperation:");
    case Qt::Key_Backspace:
        // Ctrl-Backspace deletes a word in every text field, whatever else is held.
        return held & Qt::MetaModifier && !(held & Qt::ControlModifier)
                   ? std::optional(QStringLiteral("deleteToBeginningOfLine:"))
                   : std::nullopt;
    default:
        return std::nullopt;
    }
}

/// What is marked in the field is copied from it.
bool SearchFieldDelegate::actByKey(const QKeyEvent &event) const
{
    ViewController *const controller = m_viewController;
    if (!controller)
        return false;
    const bool copiesText =
        event.matches(QKeySequence::Copy) && controller->searchTextField()->hasSelectedText();
    return !copiesText && HistoryKeys::act(*controller, event);
}

bool SearchFieldDelegate::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ContextMenu && m_viewController &&
        static_cast<QContextMenuEvent *>(event)->reason() == QContextMenuEvent::Keyboard &&
        watched->property(FieldMenu::kOwnKeyboardMenu).toBool()) {
        m_viewController->showMenu();
        return true;
    }
    // The field keeps a release to itself.
    if (event->type() == QEvent::KeyRelease && m_viewController &&
        static_cast<QKeyEvent *>(event)->key() == Qt::Key_Alt)
        m_viewController->followAlt(false);
    if (event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    auto *key = static_cast<QKeyEvent *>(event);
    if (const std::optional<QString> command = commandForKey(*key))
        return control(*command, ModifierFlags::ofEventWithCapsLock(*key));
    return actByKey(*key);
}
