#pragma once

class HotKeyTextField;
class HotKeyTextFieldEditor;

/// What a hot-key field asks for its editor, as its member. There is one editor for all fields,
/// because there is one keyboard.
class HotKeyTextFieldCell
{
public:
    /// The shared editor, made when it is first asked for, with its field set to `field`.
    HotKeyTextFieldEditor &fieldEditor(HotKeyTextField &field) const;
};
