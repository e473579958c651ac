#pragma once

#include <QStringView>
#include <QtGlobal>

#include <optional>
#include <vector>

/// One key with modifiers, named by what it gives rather than by its place, because that is what
/// applications go by.
struct KeyChord
{
    quint32 carbonModifiers = 0;
    quint32 symbol = 0; ///< An X key symbol, which every display system of ours names keys by.

    bool operator==(const KeyChord &) const = default;

    /// Whether it is a shortcut: those are looked up by the Latin letter of a key in every layout,
    /// where plain keys type what stands on them.
    bool isShortcut() const { return carbonModifiers != 0; }
};

/// Chords that are typed one after the other.
using KeySequence = std::vector<KeyChord>;

namespace KeySequences {

/// "Ctrl+x Ctrl+v", "Shift+Insert", "quotedbl plus P": chords apart by spaces, modifiers (Ctrl,
/// Shift, Alt, Super) before a plus, keys by the names of their symbols or as the character
/// itself. A letter with a modifier counts as a small one: Shift is said by its name. Absent for
/// anything else, for nothing, and for more chords than anybody needs.
std::optional<KeySequence> fromText(QStringView text);

} // namespace KeySequences
