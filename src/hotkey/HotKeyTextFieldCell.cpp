#include "hotkey/HotKeyTextFieldCell.h"

#include "hotkey/HotKeyTextFieldEditor.h"

HotKeyTextFieldEditor &HotKeyTextFieldCell::fieldEditor(HotKeyTextField &field) const
{
    static HotKeyTextFieldEditor editor;
    editor.setHotKeyField(&field);
    return editor;
}
