#pragma once

#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"

#include <QByteArray>
#include <QHashFunctions>
#include <QMetaType>
#include <QString>

#include <cstddef>
#include <optional>

class QKeyEvent;

/// One key with the modifiers to be held: what a recorder records, the settings store and the
/// hot-key monitor registers. An immutable value; no shortcut is std::nullopt. Only the modifiers
/// of ModifierFlags::kShortcutMask are ever kept, except by unarchive().
class MASShortcut
{
public:
    /// `keyCode` is a virtual key code or VirtualKey::kNotFound; `modifierFlags` are bits of
    /// ModifierFlags, of which Caps Lock, Function and other bits are dropped.
    MASShortcut(quint64 keyCode, quint64 modifierFlags)
        : m_keyCode(keyCode), m_modifierFlags(modifierFlags & ModifierFlags::kShortcutMask)
    {
    }

    /// The shortcut of a key press or of a change of modifiers.
    static MASShortcut shortcutWithEvent(const QKeyEvent &event);

    /// Decodes what archive() wrote; absent when the bytes are no such archive. Keeps modifier
    /// bits beyond the four, deliberately: an archive is taken as it is.
    static std::optional<MASShortcut> unarchive(const QByteArray &data);

    /// The keyed archive that the settings hold.
    QByteArray archive() const;

    /// A new shortcut of the same two values, without modifier bits beyond the four.
    MASShortcut copy() const { return {m_keyCode, m_modifierFlags}; }

    quint64 keyCode() const { return m_keyCode; }
    quint64 modifierFlags() const { return m_modifierFlags; }

    /// The key code as the hot-key service takes it: 0 when no key is set.
    quint32 carbonKeyCode() const;
    /// The modifiers in bits of CarbonModifiers.
    quint32 carbonFlags() const { return CarbonModifiers::ofFlags(m_modifierFlags); }

    /// The key's display name, by the current keyboard layout where it depends on it; empty when
    /// the key has none.
    QString keyCodeString() const;

    /// The character that a menu item carries as its key equivalent for this key; empty when
    /// there is none.
    QString keyCodeStringForKeyEquivalent() const;

    /// Glyphs of the modifiers in the order Control, Option, Shift, Command.
    QString modifierFlagsString() const;

    /// Modifiers and key as people read them, "⇧⌘K".
    QString description() const { return modifierFlagsString() + keyCodeString(); }

    size_t hash() const { return m_keyCode + m_modifierFlags; }

    bool operator==(const MASShortcut &) const = default;

private:
    quint64 m_keyCode;
    quint64 m_modifierFlags;
};

inline size_t qHash(const MASShortcut &shortcut, size_t seed = 0)
{
    return qHash(shortcut.hash(), seed);
}

Q_DECLARE_METATYPE(MASShortcut)
