#pragma once

#include "hotkey/HotKey.h"
#include "hotkey/HotKeyTextFieldCell.h"
#include "platform/HotKeys.h"

#include <QLineEdit>
#include <QPointer>

#include <memory>

class HotKeyTextFieldEditor;
class KeyboardLayout;

/// A text field into which the user types a combination of keys. It shows the combination's name;
/// while it has the keyboard, the shared editor records what is pressed. Owned by its parent
/// widget. It is read-only as a line edit: no text comes in by mouse, drop or input method, and it
/// shows no caret. Its accessible name is for the owner to set.
class HotKeyTextField : public QLineEdit
{
    Q_OBJECT

public:
    /// Neither is owned: the hot keys that are held back while the field records, and the layout
    /// that names keys.
    HotKeyTextField(HotKeys &hotKeys, const KeyboardLayout &layout, QWidget *parent = nullptr);
    ~HotKeyTextField() override { endEditing(); }

    /// Null when there is none.
    const std::shared_ptr<HotKey> &hotKey() const { return m_hotKey; }
    /// Stores the record, which may be null, and shows its name.
    void setHotKey(const std::shared_ptr<HotKey> &hotKey);

    /// The bare text: works, and is logged as a mistake.
    QString stringValue() const;
    void setStringValue(const QString &string);

    /// Null when it is gone.
    HotKeys *hotKeys() const { return m_hotKeys; }

    /// The editor while the field has the keyboard, else null.
    HotKeyTextFieldEditor *currentEditor() const { return m_currentEditor; }

Q_SIGNALS:
    /// Another record was stored, by the user or by the program.
    void hotKeyChanged();

protected:
    // ^QWidget
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void showName();
    void endEditing();

    QPointer<HotKeys> m_hotKeys;
    QPointer<const KeyboardLayout> m_layout;
    HotKeyTextFieldCell m_cell;
    HotKeyTextFieldEditor *m_currentEditor = nullptr;
    std::shared_ptr<HotKey> m_hotKey;
    QString m_shownName;
};
