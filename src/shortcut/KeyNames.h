#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

class KeyboardLayout;

/// Names keys for people: by a fixed table, else by what the current keyboard layout prints on
/// them. A shortcut is a plain value and asks current(), which the application connects to the
/// keyboard once, before any shortcut is shown. Used from the main thread.
class KeyNames : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// The names every shortcut uses.
    static KeyNames &current();

    /// `layout` is not owned. Null: only keys of the fixed table have names.
    void setKeyboardLayout(KeyboardLayout *layout);

    /// Whether the layout tells any key at all: not so on a server without a keyboard extension.
    bool isLayoutKnown() const;

    /// The display name of a virtual key; empty when it has none.
    QString name(quint64 keyCode) const;

Q_SIGNALS:
    /// The keyboard layout changed; names told before may be out of date.
    void changed();

private:
    QString translatedName(quint64 keyCode) const;

    QPointer<KeyboardLayout> m_layout;
};
