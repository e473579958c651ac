#pragma once

#include "platform/typing/Xkb.h"

#include <QString>

/// What is printed on the keys of a keymap, in the terms of KeyboardLayout, for the layouts of all
/// display systems. A null keymap has no names.
class KeymapNames
{
public:
    QString asciiCapableName(xkb_keymap *keymap, xkb_layout_index_t group, quint32 keyCode) const;
    static QString characters(xkb_keymap *keymap, xkb_layout_index_t group, quint32 keyCode,
                              quint32 carbonModifiers);

private:
    xkb_keymap *usKeymap() const;

    mutable XkbPointer<xkb_keymap> m_us; ///< Made when no group of a keymap types ASCII.
};
