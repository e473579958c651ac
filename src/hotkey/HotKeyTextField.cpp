#include "hotkey/HotKeyTextField.h"

#include "hotkey/HotKeyLog.h"
#include "hotkey/HotKeyName.h"
#include "hotkey/HotKeyTextFieldEditor.h"
#include "platform/KeyboardLayout.h"

#include <utility>

HotKeyTextField::HotKeyTextField(HotKeys &hotKeys, const KeyboardLayout &layout, QWidget *parent)
    : QLineEdit(parent), m_hotKeys(&hotKeys), m_layout(&layout)
{
    setReadOnly(true);
    connect(&layout, &KeyboardLayout::changed, this, [this] {
        // A text that was set bare has nothing to do with the layout.
        if (text() == m_shownName)
            showName();
    });
}

void HotKeyTextField::setHotKey(const std::shared_ptr<HotKey> &hotKey)
{
    const bool isOther = hotKey != m_hotKey;
    m_hotKey = hotKey;
    showName();
    if (isOther)
        Q_EMIT hotKeyChanged();
}

QString HotKeyTextField::stringValue() const
{
    qCWarning(lcHotKey, "-[HotKeyTextField stringValue] is not what you want. "
                        "Use -[HotKeyTextField hotKey] instead.");
    return text();
}

void HotKeyTextField::setStringValue(const QString &string)
{
    qCWarning(lcHotKey, "-[HotKeyTextField setStringValue:] is not what you want. "
                        "Use -[HotKeyTextField setHotKey:] instead.");
    setText(string);
}

void HotKeyTextField::focusInEvent(QFocusEvent *event)
{
    QLineEdit::focusInEvent(event);
    m_currentEditor = &m_cell.fieldEditor(*this);
    m_currentEditor->becomeFirstResponder();
}

void HotKeyTextField::focusOutEvent(QFocusEvent *event)
{
    endEditing();
    QLineEdit::focusOutEvent(event);
}

void HotKeyTextField::showName()
{
    m_shownName =
        m_hotKey
            ? HotKeyName::of(m_hotKey->keyCode(), m_hotKey->modifierFlags(), m_layout).toUpper()
            : QString();
    setText(m_shownName);
}

void HotKeyTextField::endEditing()
{
    HotKeyTextFieldEditor *const editor = std::exchange(m_currentEditor, nullptr);
    if (editor && editor->hotKeyField() == this)
        editor->resignFirstResponder();
}
