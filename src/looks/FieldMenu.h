#pragma once

#include <QMenu>

#include <functional>

class TextField;

/// A text field's context menu. It offers Paste without asking anybody whether there is something
/// to paste: the owner of the pasteboard may hang. Deleted when it is closed.
class FieldMenu : public QMenu
{
    Q_OBJECT

public:
    /// A field with this property set has another menu for the keyboard, which it shows itself.
    static constexpr char kOwnKeyboardMenu[] = "ownKeyboardMenu";

    struct Operations
    {
        std::function<void()> cut;
        std::function<void()> copy;
        std::function<void()> paste;
    };

    /// The operations are performed on the field's widget, which owns the menu.
    FieldMenu(const TextField &field, Operations operations);

private:
    void add(const QString &text, const char *icon, QKeySequence::StandardKey key, bool isEnabled,
             std::function<void()> operation);
    void addForEditing(const TextField &field, const Operations &operations);
};
