<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>AppDelegate</name>
    <message numerus="yes">
        <source>%Ln clips to be pasted</source>
        <translation>
            <numerusform>%Ln clip to be pasted</numerusform>
            <numerusform>%Ln clips to be pasted</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln clips are still to be pasted; Esc ends that</source>
        <translation>
            <numerusform>%Ln clip is still to be pasted; Esc ends that</numerusform>
            <numerusform>%Ln clips are still to be pasted; Esc ends that</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ApplicationsPaneView</name>
    <message numerus="yes">
        <source>Ignore %Ln password managers</source>
        <translation>
            <numerusform>Ignore %Ln password manager</numerusform>
            <numerusform>Ignore %Ln password managers</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ClipInfoLine</name>
    <message numerus="yes">
        <source>pasted %Ln times</source>
        <translation>
            <numerusform>pasted %Ln time</numerusform>
            <numerusform>pasted %Ln times</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln characters</source>
        <translation>
            <numerusform>%Ln character</numerusform>
            <numerusform>%Ln characters</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln minutes ago</source>
        <translation>
            <numerusform>%Ln minute ago</numerusform>
            <numerusform>%Ln minutes ago</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln hours ago</source>
        <translation>
            <numerusform>%Ln hour ago</numerusform>
            <numerusform>%Ln hours ago</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln days ago</source>
        <translation>
            <numerusform>%Ln day ago</numerusform>
            <numerusform>%Ln days ago</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln marked</source>
        <translation>
            <numerusform>%Ln marked</numerusform>
            <numerusform>%Ln marked</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ClipMenu</name>
    <message numerus="yes">
        <source>Paste all %Ln files</source>
        <translation>
            <numerusform>Paste all %Ln files</numerusform>
            <numerusform>Paste all %Ln files</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ClipTableView</name>
    <message numerus="yes">
        <source>%Ln files</source>
        <translation>
            <numerusform>%Ln file</numerusform>
            <numerusform>%Ln files</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ClipTextView</name>
    <message numerus="yes">
        <source>… and %Ln more characters, pasted in full</source>
        <translation>
            <numerusform>… and %Ln more character, pasted in full</numerusform>
            <numerusform>… and %Ln more characters, pasted in full</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>FileViewController</name>
    <message numerus="yes">
        <source>%Ln files were copied; Return pastes the first</source>
        <translation>
            <numerusform>%Ln file was copied; Return pastes the first</numerusform>
            <numerusform>%Ln files were copied; Return pastes the first</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>GeneralPaneView</name>
    <message numerus="yes">
        <source>The %Ln oldest clips will be removed when you leave this page.</source>
        <translation>
            <numerusform>The %Ln oldest clip will be removed when you leave this page.</numerusform>
            <numerusform>The %Ln oldest clips will be removed when you leave this page.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HistoryFooter</name>
    <message numerus="yes">
        <source>%Ln deleted clips did not fit: the history keeps %1 at most</source>
        <translation>
            <numerusform>%Ln deleted clip did not fit: the history keeps %1 at most</numerusform>
            <numerusform>%Ln deleted clips did not fit: the history keeps %1 at most</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HistoryNotices</name>
    <message numerus="yes">
        <source>A copy of %Ln bytes was not recorded; the limit is %1</source>
        <translation>
            <numerusform>A copy of %Ln byte was not recorded; the limit is %1</numerusform>
            <numerusform>A copy of %Ln bytes was not recorded; the limit is %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ListBody</name>
    <message numerus="yes">
        <source>%Ln entries</source>
        <translation>
            <numerusform>%Ln entry</numerusform>
            <numerusform>%Ln entries</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MovingIn</name>
    <message numerus="yes">
        <source>&amp;Bring along the newest %Ln clips of %1</source>
        <translation>
            <numerusform>&amp;Bring along the newest %Ln clip of %1</numerusform>
            <numerusform>&amp;Bring along the newest %Ln clips of %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>&amp;Bring along %Ln clips of %1</source>
        <translation>
            <numerusform>&amp;Bring along %Ln clip of %1</numerusform>
            <numerusform>&amp;Bring along %Ln clips of %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PdfBody</name>
    <message numerus="yes">
        <source>Document of %n pages</source>
        <translation>
            <numerusform>Document of %n page</numerusform>
            <numerusform>Document of %n pages</numerusform>
        </translation>
    </message>
</context>
</TS>
