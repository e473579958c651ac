#include "hotkey/HotKeyTextFieldEditor.h"

#include "hotkey/HotKey.h"
#include "hotkey/HotKeyTextField.h"
#include "platform/HotKeys.h"
#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include <utility>

namespace {

/// Function is among them, although a Linux keyboard keeps that key to itself.
constexpr quint64 kModifierMask = ModifierFlags::kShortcutMask | ModifierFlags::kFunction;

bool hasModifiers(const QKeyEvent &event)
{
    return ModifierFlags::ofEvent(event) & kModifierMask;
}

bool isNewline(const QKeyEvent &event)
{
    const QString text = event.text();
    return !text.isEmpty() && QStringView(u"\n\v\f\r\u0085\u2028\u2029").contains(text.front());
}

bool isEscape(const QKeyEvent &event)
{
    return VirtualKey::ofEvent(event) == VirtualKey::kEscape;
}

} // namespace

HotKeyTextField *HotKeyTextFieldEditor::hotKeyField() const
{
    return m_hotKeyField;
}

void HotKeyTextFieldEditor::setHotKeyField(HotKeyTextField *field)
{
    m_hotKeyField = field;
    m_originalHotKey = field ? field->hotKey() : nullptr;
    m_hasSeenKeyDown = false;
}

void HotKeyTextFieldEditor::becomeFirstResponder()
{
    const HotKeyTextField *const field = m_hotKeyField;
    if (!field)
        return;
    HotKeys *const hotKeys = field->hotKeys();
    if (hotKeys)
        hotKeys->setSuspended(true);
    m_suspended = hotKeys;
    qApp->installEventFilter(this);
}

void HotKeyTextFieldEditor::resignFirstResponder()
{
    setHotKeyField(nullptr);
    if (qApp)
        qApp->removeEventFilter(this);
    if (HotKeys *const hotKeys = std::exchange(m_suspended, nullptr))
        hotKeys->setSuspended(false);
}

bool HotKeyTextFieldEditor::eventFilter(QObject *, QEvent *event)
{
    const QEvent::Type type = event->type();
    // Claimed, a press is not stolen by a shortcut of the application.
    const bool isClaim = type == QEvent::ShortcutOverride;
    const bool isKeyDown = type == QEvent::KeyPress;
    const bool isKeyUp = type == QEvent::KeyRelease;
    if (!isClaim && !isKeyDown && !isKeyUp)
        return false;
    const auto &keyEvent = static_cast<const QKeyEvent &>(*event);
    if (isKeyUp && !ModifierFlags::isModifierKey(keyEvent))
        return false;
    if (!isClaim)
        processHotkeyEvent(keyEvent);
    // Unaccepted, it would come back once for each parent of the field.
    event->accept();
    return true;
}

void HotKeyTextFieldEditor::processHotkeyEvent(const QKeyEvent &event)
{
    // A key that is merely held says nothing new.
    if (!m_hotKeyField || event.isAutoRepeat())
        return;
    if (!ModifierFlags::isModifierKey(event))
        processKeyDown(event);
    else if (!m_hasSeenKeyDown && hasModifiers(event))
        record(event);
}

void HotKeyTextFieldEditor::processKeyDown(const QKeyEvent &event)
{
    m_hasSeenKeyDown = true;
    if (hasModifiers(event)) {
        record(event);
    } else if (isEscape(event)) {
        m_hotKeyField->setHotKey(m_originalHotKey);
        endEditing();
    } else if (isNewline(event)) {
        endEditing();
    }
}

void HotKeyTextFieldEditor::record(const QKeyEvent &event)
{
    const quint64 keyCode = VirtualKey::ofEvent(event);
    // Such a key could not be registered.
    if (keyCode == VirtualKey::kNotFound)
        return;
    m_hotKeyField->setHotKey(std::make_shared<HotKey>(
        static_cast<quint16>(keyCode), ModifierFlags::ofEventWithCapsLock(event),
        m_originalHotKey ? m_originalHotKey->task() : HotKey::Task()));
}

void HotKeyTextFieldEditor::endEditing()
{
    // The window's first responder is cleared; resigning follows from it.
    m_hotKeyField->clearFocus();
}
