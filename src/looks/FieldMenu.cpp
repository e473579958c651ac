#include "looks/FieldMenu.h"

#include "looks/TextField.h"

#include <QAction>
#include <QIcon>

#include <utility>

namespace {

/// The operation on the widget's field.
std::function<void()> on(QWidget &widget, void (TextField::*operation)())
{
    return [&widget, operation] {
        if (const auto field = TextField::of(&widget))
            (*field.*operation)();
    };
}

} // namespace

FieldMenu::FieldMenu(const TextField &field, Operations operations) : QMenu(&field.widget())
{
    setAttribute(Qt::WA_DeleteOnClose);
    if (field.isEditable()) {
        addForEditing(field, operations);
    } else {
        add(tr("&Copy"), "edit-copy", QKeySequence::Copy, !field.selectedText().isEmpty(),
            std::move(operations.copy));
    }
    addSeparator();
    add(tr("Select &All"), "edit-select-all", QKeySequence::SelectAll, !field.isEmpty(),
        on(field.widget(), &TextField::selectAll));
}

void FieldMenu::addForEditing(const TextField &field, const Operations &operations)
{
    const bool isMarked = !field.selection().isEmpty();
    const bool mayLeave = isMarked && field.isReadable();
    QWidget &widget = field.widget();
    add(tr("&Undo"), "edit-undo", QKeySequence::Undo, field.canUndo(),
        on(widget, &TextField::undo));
    add(tr("&Redo"), "edit-redo", QKeySequence::Redo, field.canRedo(),
        on(widget, &TextField::redo));
    addSeparator();
    add(tr("Cu&t"), "edit-cut", QKeySequence::Cut, mayLeave, operations.cut);
    add(tr("&Copy"), "edit-copy", QKeySequence::Copy, mayLeave, operations.copy);
    add(tr("&Paste"), "edit-paste", QKeySequence::Paste, true, operations.paste);
    add(tr("&Delete"), "edit-delete", QKeySequence::UnknownKey, isMarked,
        on(widget, &TextField::removeSelection));
}

void FieldMenu::add(const QString &text, const char *icon, QKeySequence::StandardKey key,
                    bool isEnabled, std::function<void()> operation)
{
    // The key is the field's own, so it is only told.
    const QString keys = QKeySequence(key).toString(QKeySequence::NativeText);
    QAction *action = addAction(QIcon::fromTheme(QString::fromLatin1(icon)),
                                keys.isEmpty() ? text : text + u'\t' + keys);
    action->setObjectName(QString::fromLatin1(icon));
    action->setEnabled(isEnabled);
    connect(action, &QAction::triggered, this, std::move(operation));
}
