#pragma once

#include <QObject>
#include <QPointer>

#include <memory>

class HotKey;
class HotKeyTextField;
class HotKeys;
class QKeyEvent;

/// Records combinations into the hot-key field that has the keyboard. Made by HotKeyTextFieldCell,
/// shared by all fields, and theirs one at a time. While it is the first responder no key reaches
/// anything else in the application, and no hot key of ours fires: the combination that is typed
/// may be one. Its text is what the field shows. Used from the main thread.
class HotKeyTextFieldEditor : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;
    ~HotKeyTextFieldEditor() override { resignFirstResponder(); }

    /// Null when no field is edited.
    HotKeyTextField *hotKeyField() const;
    /// What it holds becomes the original; null ends the editing.
    void setHotKeyField(HotKeyTextField *field);

    /// The field's record when editing began; null when it had none.
    const std::shared_ptr<HotKey> &originalHotKey() const { return m_originalHotKey; }
    /// Whether a key that is no modifier went down since editing began.
    bool hasSeenKeyDown() const { return m_hasSeenKeyDown; }

    /// Starts and stops to monitor the keys for the field.
    void becomeFirstResponder();
    void resignFirstResponder();

    /// Takes in a key press, or the press or release of a modifier key.
    void processHotkeyEvent(const QKeyEvent &event);

    // ^QObject
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void processKeyDown(const QKeyEvent &event);
    void record(const QKeyEvent &event);
    void endEditing();

    QPointer<HotKeyTextField> m_hotKeyField;
    std::shared_ptr<HotKey> m_originalHotKey;
    bool m_hasSeenKeyDown = false;
    QPointer<HotKeys> m_suspended;
};
