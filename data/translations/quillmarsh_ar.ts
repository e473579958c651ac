<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ar" sourcelanguage="en">
<context>
    <name>AppDelegate</name>
    <message>
        <source>Nothing is recorded</source>
        <translation>لا يُسجَّل شيء</translation>
    </message>
    <message>
        <source>The history in %1 cannot be written.</source>
        <translation>تتعذر الكتابة في السجل الموجود في %1.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln clips to be pasted</source>
        <translation>
            <numerusform>%Ln قصاصة للصق</numerusform>
            <numerusform>%Ln قصاصة للصق</numerusform>
            <numerusform>%Ln قصاصتان للصق</numerusform>
            <numerusform>%Ln قصاصات للصق</numerusform>
            <numerusform>%Ln قصاصة للصق</numerusform>
            <numerusform>%Ln قصاصة للصق</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln clips are still to be pasted; Esc ends that</source>
        <translation>
            <numerusform>بقيت %Ln قصاصة للصق؛ Esc ينهي ذلك</numerusform>
            <numerusform>بقيت %Ln قصاصة للصق؛ Esc ينهي ذلك</numerusform>
            <numerusform>بقيت %Ln قصاصتان للصق؛ Esc ينهي ذلك</numerusform>
            <numerusform>بقيت %Ln قصاصات للصق؛ Esc ينهي ذلك</numerusform>
            <numerusform>بقيت %Ln قصاصة للصق؛ Esc ينهي ذلك</numerusform>
            <numerusform>بقيت %Ln قصاصة للصق؛ Esc ينهي ذلك</numerusform>
        </translation>
    </message>
    <message>
        <source>Ask the Desktop...</source>
        <translation>سؤال سطح المكتب...</translation>
    </message>
</context>
<context>
    <name>ApplicationChooser</name>
    <message>
        <source>&amp;Other…</source>
        <translation>أخرى…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>إلغاء</translation>
    </message>
    <message>
        <source>&amp;Choose</source>
        <translation>اختيار</translation>
    </message>
    <message>
        <source>Choose Application</source>
        <translation>اختيار تطبيق</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>تصفية</translation>
    </message>
    <message>
        <source>Filter applications</source>
        <translation>تصفية التطبيقات</translation>
    </message>
    <message>
        <source>Applications</source>
        <translation>التطبيقات</translation>
    </message>
    <message>
        <source>“%1” is not an application.</source>
        <translation>«%1» ليس تطبيقًا.</translation>
    </message>
</context>
<context>
    <name>ApplicationsPaneView</name>
    <message>
        <source>%1 and %2</source>
        <translation>%1 و%2</translation>
    </message>
    <message>
        <source>Ignored applications</source>
        <translation>التطبيقات المتجاهَلة</translation>
    </message>
    <message>
        <source>Add application</source>
        <translation>إضافة تطبيق</translation>
    </message>
    <message>
        <source>Remove application</source>
        <translation>إزالة التطبيق</translation>
    </message>
    <message numerus="yes">
        <source>Ignore %Ln password managers</source>
        <translation>
            <numerusform>تجاهل %Ln مدير كلمات مرور</numerusform>
            <numerusform>تجاهل مدير كلمات مرور واحد (%Ln)</numerusform>
            <numerusform>تجاهل مديري كلمات مرور (%Ln)</numerusform>
            <numerusform>تجاهل %Ln مديري كلمات مرور</numerusform>
            <numerusform>تجاهل %Ln مديرَ كلمات مرور</numerusform>
            <numerusform>تجاهل %Ln مدير كلمات مرور</numerusform>
        </translation>
    </message>
    <message>
        <source>Ignore %1</source>
        <translation>تجاهل %1</translation>
    </message>
    <message>
        <source>Add an application whose copies shall stay private.</source>
        <translation>أضف تطبيقًا ينبغي أن تبقى نسخه خاصة.</translation>
    </message>
    <message>
        <source>What is copied from %1 is recorded like any other text. You may want to keep passwords out of the history.</source>
        <translation>ما يُنسخ من %1 يُسجَّل كأي نص آخر. قد ترغب في إبقاء كلمات المرور خارج السجل.</translation>
    </message>
    <message>
        <source>No application is ignored</source>
        <translation>لا يوجد تطبيق متجاهَل</translation>
    </message>
    <message>
        <source>What is copied while one of these applications is in front is never recorded.</source>
        <translation>ما يُنسخ أثناء وجود أحد هذه التطبيقات في المقدمة لا يُسجَّل أبدًا.</translation>
    </message>
</context>
<context>
    <name>ArchiveExtraction</name>
    <message>
        <source>There is not enough room on the disk.</source>
        <translation>لا توجد مساحة كافية على القرص.</translation>
    </message>
    <message>
        <source>A file could not be written: %1.</source>
        <translation>تعذّرت كتابة ملف: %1.</translation>
    </message>
    <message>
        <source>The update is damaged.</source>
        <translation>التحديث تالف.</translation>
    </message>
    <message>
        <source>The update holds files that do not belong into it.</source>
        <translation>يحوي التحديث ملفات لا تنتمي إليه.</translation>
    </message>
    <message>
        <source>The update was cancelled.</source>
        <translation>أُلغي التحديث.</translation>
    </message>
</context>
<context>
    <name>ByteCount</name>
    <message>
        <source>1 byte</source>
        <translation>بايت واحد</translation>
    </message>
    <message>
        <source>bytes</source>
        <translation>بايت</translation>
    </message>
    <message>
        <source>KB</source>
        <translation>ك.ب</translation>
    </message>
    <message>
        <source>MB</source>
        <translation>م.ب</translation>
    </message>
    <message>
        <source>GB</source>
        <translation>ج.ب</translation>
    </message>
    <message>
        <source>TB</source>
        <translation>ت.ب</translation>
    </message>
    <message>
        <source>PB</source>
        <translation>ب.ب</translation>
    </message>
    <message>
        <source>EB</source>
        <translation>إ.ب</translation>
    </message>
</context>
<context>
    <name>CCNPreferencesWindowController</name>
    <message>
        <source>Preferences</source>
        <translation>التفضيلات</translation>
    </message>
</context>
<context>
    <name>Capabilities</name>
    <message>
        <source>This desktop lets no program type, so clips are put on the clipboard only.</source>
        <translation>لا يسمح سطح المكتب هذا لأي برنامج بالكتابة، لذلك توضع القصاصات في الحافظة فقط.</translation>
    </message>
    <message>
        <source>KDE has not allowed Quillmarsh to type, so clips are put on the clipboard only.</source>
        <translation>لم يسمح KDE لـ Quillmarsh بالكتابة، لذلك توضع القصاصات في الحافظة فقط.</translation>
    </message>
    <message>
        <source>This desktop lets no program set shortcuts.</source>
        <translation>لا يسمح سطح المكتب هذا لأي برنامج بتعيين اختصارات.</translation>
    </message>
    <message>
        <source>Have its configuration start Quillmarsh for a key.</source>
        <translation>اجعل إعداداته تشغّل Quillmarsh عند ضغط مفتاح.</translation>
    </message>
    <message>
        <source>Quillmarsh runs through Xwayland here and sees only what X11 applications copy.</source>
        <translation>يعمل Quillmarsh هنا عبر Xwayland ولا يرى إلا ما تنسخه تطبيقات X11.</translation>
    </message>
    <message>
        <source>Install the package qt6-wayland, and start Quillmarsh again.</source>
        <translation>ثبّت الحزمة qt6-wayland، ثم أعد تشغيل Quillmarsh.</translation>
    </message>
    <message>
        <source>They may do nothing while a native Wayland window is in front.</source>
        <translation>قد لا تفعل شيئًا ما دامت في المقدمة نافذة Wayland أصلية.</translation>
    </message>
    <message>
        <source>Have the desktop run “quillmarsh launch” for a key.</source>
        <translation>اجعل سطح المكتب ينفّذ «quillmarsh launch» عند ضغط مفتاح.</translation>
    </message>
    <message>
        <source>Only X11 applications can be pasted into.</source>
        <translation>لا يمكن اللصق إلا في تطبيقات X11.</translation>
    </message>
    <message>
        <source>Install the package, or save these lines as ~/.local/share/applications/quillmarsh-program.desktop. Then start Quillmarsh again.</source>
        <translation>ثبّت الحزمة، أو احفظ هذه الأسطر باسم ~/.local/share/applications/quillmarsh-program.desktop. ثم أعد تشغيل Quillmarsh.</translation>
    </message>
    <message>
        <source>Have Quillmarsh ask for it, and tick every box of the desktop’s question.</source>
        <translation>دع Quillmarsh يطلب ذلك، وحدِّد كل الخانات في سؤال سطح المكتب.</translation>
    </message>
    <message>
        <source>This desktop lets a program see copies and paste only as remote control.</source>
        <translation>لا يسمح سطح المكتب هذا لبرنامج برؤية ما يُنسخ وباللصق إلا بوصفه تحكمًا عن بُعد.</translation>
    </message>
    <message>
        <source>The desktop is asking whether Quillmarsh may.</source>
        <translation>يسأل سطح المكتب الآن إن كان يُسمح لـ Quillmarsh بذلك.</translation>
    </message>
    <message>
        <source>The desktop’s question was answered with no.</source>
        <translation>أُجيب عن سؤال سطح المكتب بالرفض.</translation>
    </message>
    <message>
        <source>The remote control by Quillmarsh has been ended.</source>
        <translation>أُنهي تحكم Quillmarsh عن بُعد.</translation>
    </message>
    <message>
        <source>The desktop’s portals do not answer, or do not offer remote control.</source>
        <translation>بوابات سطح المكتب لا تجيب، أو لا تقدم التحكم عن بُعد.</translation>
    </message>
    <message>
        <source>Remote interaction was not allowed, so clips are put on the clipboard only.</source>
        <translation>لم يُسمح بالتفاعل عن بُعد، لذلك توضع القصاصات في الحافظة فقط.</translation>
    </message>
</context>
<context>
    <name>CapabilityTable</name>
    <message>
        <source>Recording:</source>
        <translation>التسجيل:</translation>
    </message>
    <message>
        <source>Shortcuts:</source>
        <translation>الاختصارات:</translation>
    </message>
    <message>
        <source>Pasting:</source>
        <translation>اللصق:</translation>
    </message>
    <message>
        <source>Window’s place:</source>
        <translation>موضع النافذة:</translation>
    </message>
    <message>
        <source>works</source>
        <translation>يعمل</translation>
    </message>
    <message>
        <source>needs a step of yours</source>
        <translation>يحتاج إلى خطوة منك</translation>
    </message>
    <message>
        <source>withheld</source>
        <translation>ممنوع</translation>
    </message>
    <message>
        <source>Copy all lines for the configuration</source>
        <translation>نسخ كل أسطر الإعدادات</translation>
    </message>
    <message>
        <source>Have the Desktop &amp;Ask…</source>
        <translation>اجعل سطح المكتب &amp;يسأل…</translation>
    </message>
</context>
<context>
    <name>ClipHistory</name>
    <message>
        <source>Picture %1 × %2</source>
        <translation>صورة %1 × %2</translation>
    </message>
</context>
<context>
    <name>ClipInfoLine</name>
    <message>
        <source>not pasted yet</source>
        <translation>لم يُلصق بعد</translation>
    </message>
    <message>
        <source>pasted once</source>
        <translation>أُلصق مرة واحدة</translation>
    </message>
    <message numerus="yes">
        <source>pasted %Ln times</source>
        <translation>
            <numerusform>أُلصق %Ln مرة</numerusform>
            <numerusform>أُلصق مرة واحدة (%Ln)</numerusform>
            <numerusform>أُلصق مرتين (%Ln)</numerusform>
            <numerusform>أُلصق %Ln مرات</numerusform>
            <numerusform>أُلصق %Ln مرةً</numerusform>
            <numerusform>أُلصق %Ln مرة</numerusform>
        </translation>
    </message>
    <message>
        <source>1 character</source>
        <translation>محرف واحد</translation>
    </message>
    <message numerus="yes">
        <source>%Ln characters</source>
        <translation>
            <numerusform>%Ln محرف</numerusform>
            <numerusform>محرف واحد (%Ln)</numerusform>
            <numerusform>محرفان (%Ln)</numerusform>
            <numerusform>%Ln محارف</numerusform>
            <numerusform>%Ln محرفًا</numerusform>
            <numerusform>%Ln محرف</numerusform>
        </translation>
    </message>
    <message>
        <source>Copied on %1</source>
        <translation>نُسخ في %1</translation>
    </message>
    <message>
        <source>just now</source>
        <translation>الآن</translation>
    </message>
    <message>
        <source>1 minute ago</source>
        <translation>قبل دقيقة</translation>
    </message>
    <message numerus="yes">
        <source>%Ln minutes ago</source>
        <translation>
            <numerusform>قبل %Ln دقيقة</numerusform>
            <numerusform>قبل دقيقة واحدة (%Ln)</numerusform>
            <numerusform>قبل دقيقتين (%Ln)</numerusform>
            <numerusform>قبل %Ln دقائق</numerusform>
            <numerusform>قبل %Ln دقيقةً</numerusform>
            <numerusform>قبل %Ln دقيقة</numerusform>
        </translation>
    </message>
    <message>
        <source>1 hour ago</source>
        <translation>قبل ساعة</translation>
    </message>
    <message numerus="yes">
        <source>%Ln hours ago</source>
        <translation>
            <numerusform>قبل %Ln ساعة</numerusform>
            <numerusform>قبل ساعة واحدة (%Ln)</numerusform>
            <numerusform>قبل ساعتين (%Ln)</numerusform>
            <numerusform>قبل %Ln ساعات</numerusform>
            <numerusform>قبل %Ln ساعةً</numerusform>
            <numerusform>قبل %Ln ساعة</numerusform>
        </translation>
    </message>
    <message>
        <source>yesterday at %1</source>
        <translation>أمس في %1</translation>
    </message>
    <message numerus="yes">
        <source>%Ln days ago</source>
        <translation>
            <numerusform>قبل %Ln يوم</numerusform>
            <numerusform>قبل يوم واحد (%Ln)</numerusform>
            <numerusform>قبل يومين (%Ln)</numerusform>
            <numerusform>قبل %Ln أيام</numerusform>
            <numerusform>قبل %Ln يومًا</numerusform>
            <numerusform>قبل %Ln يوم</numerusform>
        </translation>
    </message>
    <message>
        <source>d MMM yyyy</source>
        <translation>d MMM yyyy</translation>
    </message>
    <message numerus="yes">
        <source>%Ln marked</source>
        <translation>
            <numerusform>لا شيء محدد (%Ln)</numerusform>
            <numerusform>قصاصة واحدة محددة (%Ln)</numerusform>
            <numerusform>قصاصتان محددتان (%Ln)</numerusform>
            <numerusform>%Ln قصاصات محددة</numerusform>
            <numerusform>%Ln قصاصةً محددة</numerusform>
            <numerusform>%Ln قصاصة محددة</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ClipMenu</name>
    <message>
        <source>Paste</source>
        <translation>لصق</translation>
    </message>
    <message numerus="yes">
        <source>Paste all %Ln files</source>
        <translation>
            <numerusform>لصق كل الملفات (%Ln)</numerusform>
            <numerusform>لصق الملف (%Ln)</numerusform>
            <numerusform>لصق الملفين (%Ln)</numerusform>
            <numerusform>لصق كل الملفات وعددها %Ln</numerusform>
            <numerusform>لصق كل الملفات وعددها %Ln</numerusform>
            <numerusform>لصق كل الملفات وعددها %Ln</numerusform>
        </translation>
    </message>
    <message>
        <source>Paste as Plain Text</source>
        <translation>لصق كنص عادي</translation>
    </message>
    <message>
        <source>Paste in Upper Case</source>
        <translation>لصق بأحرف كبيرة</translation>
    </message>
    <message>
        <source>Paste in Lower Case</source>
        <translation>لصق بأحرف صغيرة</translation>
    </message>
    <message>
        <source>Copy Without Pasting</source>
        <translation>نسخ دون لصق</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>فتح</translation>
    </message>
    <message>
        <source>Reveal in File Manager</source>
        <translation>إظهار في مدير الملفات</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>حذف</translation>
    </message>
    <message>
        <source>Actions for the clip</source>
        <translation>إجراءات القصاصة</translation>
    </message>
    <message>
        <source>Unpin</source>
        <translation>إلغاء التثبيت</translation>
    </message>
    <message>
        <source>Pin</source>
        <translation>تثبيت</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Return</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Backspace</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Super</translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation>Ctrl</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Shift</translation>
    </message>
</context>
<context>
    <name>ClipPaster</name>
    <message>
        <source>The clip is on the clipboard</source>
        <translation>القصاصة على الحافظة</translation>
    </message>
    <message>
        <source>The previous window could not be activated.</source>
        <translation>تعذّر تنشيط النافذة السابقة.</translation>
    </message>
    <message>
        <source>File no longer exists</source>
        <translation>الملف لم يعد موجودًا</translation>
    </message>
    <message>
        <source>The file no longer exists at the copied location.</source>
        <translation>لم يعد الملف موجودًا في الموضع المنسوخ.</translation>
    </message>
    <message>
        <source>The clip was not pasted</source>
        <translation>لم تُلصق القصاصة</translation>
    </message>
    <message>
        <source>The clipboard could not be written.</source>
        <translation>تعذّرت الكتابة إلى الحافظة.</translation>
    </message>
    <message>
        <source>The replaced text is not on the clipboard</source>
        <translation>النص المستبدل ليس على الحافظة</translation>
    </message>
    <message>
        <source>What is selected in %1 cannot be copied safely. Paste the clip there yourself; the middle mouse button does it, too.</source>
        <translation>لا يمكن نسخ المحدَّد في %1 بأمان. ألصق القصاصة هناك بنفسك؛ زر الفأرة الأوسط يفعل ذلك أيضًا.</translation>
    </message>
    <message>
        <source>No keys are known that paste into %1. Paste it there yourself; the middle mouse button does it, too.</source>
        <translation>لا تُعرف مفاتيح تلصق في %1. ألصقها هناك بنفسك؛ زر الفأرة الأوسط يفعل ذلك أيضًا.</translation>
    </message>
    <message>
        <source>this application</source>
        <translation>هذا التطبيق</translation>
    </message>
    <message>
        <source>%1 did not take the clip over to the computer that it shows, so nothing was pasted there. The middle mouse button pastes the clip, too.</source>
        <translation>لم ينقل %1 القصاصة إلى الحاسوب الذي يعرضه، لذا لم يُلصق شيء هناك. زر الفأرة الأوسط يلصق القصاصة أيضًا.</translation>
    </message>
    <message>
        <source>A key was held down, so nothing was typed into %1. Paste it there yourself; the middle mouse button does it, too.</source>
        <translation>كان أحد المفاتيح مضغوطًا، لذلك لم يُكتب شيء في %1. ألصق القصاصة هناك بنفسك؛ زر الفأرة الأوسط يفعل ذلك أيضًا.</translation>
    </message>
    <message>
        <source>Quillmarsh is not able to type into %1. Paste it there yourself; the middle mouse button does it, too.</source>
        <translation>لا يستطيع Quillmarsh الكتابة في %1. ألصق القصاصة هناك بنفسك؛ زر الفأرة الأوسط يفعل ذلك أيضًا.</translation>
    </message>
    <message>
        <source>The clip was not copied</source>
        <translation>لم تُنسخ القصاصة</translation>
    </message>
</context>
<context>
    <name>ClipRowDelegate</name>
    <message>
        <source>(blank)</source>
        <translation>(فراغ)</translation>
    </message>
</context>
<context>
    <name>ClipTableModel</name>
    <message>
        <source>%1 of %2</source>
        <translation>%1 من %2</translation>
    </message>
    <message>
        <source>%1 of %2, pinned</source>
        <translation>%1 من %2، مثبّتة</translation>
    </message>
</context>
<context>
    <name>ClipTableView</name>
    <message>
        <source>Clips</source>
        <translation>القصاصات</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files</source>
        <translation>
            <numerusform>%Ln ملف</numerusform>
            <numerusform>ملف واحد (%Ln)</numerusform>
            <numerusform>ملفان (%Ln)</numerusform>
            <numerusform>%Ln ملفات</numerusform>
            <numerusform>%Ln ملفًا</numerusform>
            <numerusform>%Ln ملف</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ClipTextView</name>
    <message>
        <source>Clip text preview</source>
        <translation>معاينة نص القصاصة</translation>
    </message>
    <message numerus="yes">
        <source>… and %Ln more characters, pasted in full</source>
        <translation>
            <numerusform>… و%Ln محرف آخر، ويُلصق النص كاملًا</numerusform>
            <numerusform>… ومحرف آخر (%Ln)، ويُلصق النص كاملًا</numerusform>
            <numerusform>… ومحرفان آخران (%Ln)، ويُلصق النص كاملًا</numerusform>
            <numerusform>… و%Ln محارف أخرى، ويُلصق النص كاملًا</numerusform>
            <numerusform>… و%Ln محرفًا آخر، ويُلصق النص كاملًا</numerusform>
            <numerusform>… و%Ln محرف آخر، ويُلصق النص كاملًا</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ClipboardCapture</name>
    <message>
        <source>The copied text was not recorded</source>
        <translation>لم يُسجَّل النص المنسوخ</translation>
    </message>
    <message>
        <source>The text is too large.</source>
        <translation>النص أكبر من المسموح.</translation>
    </message>
    <message>
        <source>The copied picture was not kept</source>
        <translation>لم تُحفظ الصورة المنسوخة</translation>
    </message>
    <message>
        <source>The picture is too large.</source>
        <translation>الصورة أكبر من المسموح.</translation>
    </message>
</context>
<context>
    <name>ConfigurationLine</name>
    <message>
        <source>Copy</source>
        <translation>نسخ</translation>
    </message>
</context>
<context>
    <name>ConsentNotice</name>
    <message>
        <source>Nothing is recorded. %1</source>
        <translation>لا يُسجَّل شيء. %1</translation>
    </message>
</context>
<context>
    <name>ConsentWords</name>
    <message>
        <source>This desktop shows copies to a program, and lets it paste, only as remote control. It asks you once: switch on “Allow Remote Interaction”, leave the other two on, and choose “Share”. A sharing sign then stays in the top bar; ending it there ends recording.</source>
        <translation>لا يُري سطح المكتب هذا النسخَ لبرنامج ولا يدعه يلصق إلا بصفة تحكّم عن بعد. سيسألك مرة واحدة: فعّل «اسمح بالتفاعل عن بعد»، واترك الخيارين الآخرين مفعّلين، ثم اختر «شارك». تبقى بعدها علامة مشاركة في الشريط العلوي، وإنهاؤها هناك ينهي التسجيل.</translation>
    </message>
</context>
<context>
    <name>DMHelperAppDelegate</name>
    <message>
        <source>Update in background</source>
        <translation>التحديث في الخلفية</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>إنهاء</translation>
    </message>
    <message>
        <source>Updating process is in progress.</source>
        <translation>عملية التحديث جارية.</translation>
    </message>
    <message>
        <source>Main application bundle could not be located</source>
        <translation>تعذّر العثور على التطبيق الرئيسي</translation>
    </message>
    <message>
        <source>Main application is running. It should update itself.</source>
        <translation>التطبيق الرئيسي يعمل، وينبغي أن يحدّث نفسه.</translation>
    </message>
</context>
<context>
    <name>DM_SUUpdater</name>
    <message>
        <source>This Quillmarsh has no address to look for updates at. Updates come from where you got it.</source>
        <translation>لا يعرف Quillmarsh هذا عنوانًا للبحث عن التحديثات. تأتي التحديثات من حيث حصلت عليه.</translation>
    </message>
</context>
<context>
    <name>DamagedSettingsQuestion</name>
    <message>
        <source>Your settings could not be read</source>
        <translation>تعذّرت قراءة إعداداتك</translation>
    </message>
    <message>
        <source>They were set aside beside %1. The list of ignored applications was among them, so nothing is recorded until you decide.</source>
        <translation>نُقلت جانبًا بجوار %1. كانت قائمة التطبيقات المتجاهَلة من ضمنها، لذا لن يُسجَّل شيء حتى تقرر.</translation>
    </message>
    <message>
        <source>Start with fresh settings</source>
        <translation>البدء بإعدادات جديدة</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>إنهاء</translation>
    </message>
    <message>
        <source>Damaged Settings</source>
        <translation>إعدادات تالفة</translation>
    </message>
    <message>
        <source>Nothing is recorded: your settings could not be read, and the list of ignored applications was among them. Answer the question about them first.</source>
        <translation>لا يُسجَّل شيء: تعذّرت قراءة إعداداتك، وكانت قائمة التطبيقات المتجاهَلة من بينها. أجب أولًا عن السؤال المتعلق بها.</translation>
    </message>
</context>
<context>
    <name>DesktopShortcut</name>
    <message>
        <source>Change in Settings…</source>
        <translation>غيّر في الإعدادات…</translation>
    </message>
</context>
<context>
    <name>EmptyStateView</name>
    <message>
        <source>Nothing copied yet</source>
        <translation>لم يُنسخ شيء بعد</translation>
    </message>
    <message>
        <source>Whatever you copy appears here.</source>
        <translation>كل ما تنسخه يظهر هنا.</translation>
    </message>
    <message>
        <source>Whatever you copy appears here.
Press %1 to come back to it.</source>
        <translation>كل ما تنسخه يظهر هنا.
اضغط %1 للعودة إليه.</translation>
    </message>
    <message>
        <source>Nothing matches “%1”</source>
        <translation>لا شيء يطابق «%1»</translation>
    </message>
    <message>
        <source>* stands for any text and ? for one character;
file: lists copied files.</source>
        <translation>تعني * أي نص وتعني ? محرفًا واحدًا؛
وتعرض file: الملفات المنسوخة.</translation>
    </message>
    <message>
        <source>Nothing pinned yet</source>
        <translation>لم يُثبَّت شيء بعد</translation>
    </message>
    <message>
        <source>Ctrl+D pins the selected clip, so that it stays;
Ctrl+Shift+D lists all clips again.</source>
        <translation>‏Ctrl+D يثبّت القصاصة المحددة لتبقى؛
‏Ctrl+Shift+D يعرض كل القصاصات من جديد.</translation>
    </message>
</context>
<context>
    <name>FeedbackDelivery</name>
    <message>
        <source>Sent. Thank you.</source>
        <translation>أُرسل. شكرًا لك.</translation>
    </message>
    <message>
        <source>No file could be written in %1.</source>
        <translation>تعذّرت كتابة ملف في %1.</translation>
    </message>
    <message>
        <source>&amp;Send</source>
        <translation>إرسال</translation>
    </message>
    <message>
        <source>&amp;Save and Mail…</source>
        <translation>حفظ وإرسال بالبريد…</translation>
    </message>
    <message>
        <source>This build knows no address to send to: the text is saved in %1, and your mail program opens so that you can attach it.</source>
        <translation>لا تعرف هذه النسخة عنوانًا للإرسال: يُحفظ النص في %1 ويُفتح برنامج البريد لديك لترفقه.</translation>
    </message>
    <message>
        <source>Saved as %1. Attach it to the mail that opens; if none does, send the file.</source>
        <translation>حُفظ باسم %1. أرفقه بالرسالة التي تُفتح؛ وإن لم تُفتح أي رسالة فأرسل الملف.</translation>
    </message>
</context>
<context>
    <name>FeedbackDialog</name>
    <message>
        <source>Send Feedback</source>
        <translation>إرسال ملاحظات</translation>
    </message>
    <message>
        <source>This has not been sent yet.</source>
        <translation>لم يُرسل هذا بعد.</translation>
    </message>
    <message>
        <source>Kept from last time.</source>
        <translation>محفوظ من المرة السابقة.</translation>
    </message>
    <message>
        <source>The text cannot be kept for later. Copy it elsewhere; closing again discards it.</source>
        <translation>لا يمكن حفظ النص لوقت لاحق. انسخه إلى مكان آخر؛ الإغلاق مرة أخرى يتخلص منه.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>إلغاء</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>إغلاق</translation>
    </message>
    <message>
        <source>This does not look like a mail address.</source>
        <translation>لا يبدو هذا عنوان بريد.</translation>
    </message>
    <message>
        <source>Sending…</source>
        <translation>جارٍ الإرسال…</translation>
    </message>
    <message>
        <source>%1 Your text is kept.</source>
        <translation>%1 نصك محفوظ.</translation>
    </message>
    <message>
        <source>Too long: %1 of at most %2 characters.</source>
        <translation>طويل جدًا: %1 من %2 محرف على الأكثر.</translation>
    </message>
</context>
<context>
    <name>FeedbackForm</name>
    <message>
        <source>Close</source>
        <translation>إغلاق</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>الرسالة</translation>
    </message>
    <message>
        <source>Mail address</source>
        <translation>عنوان البريد</translation>
    </message>
    <message>
        <source>optional, for an answer</source>
        <translation>اختياري، للرد عليك</translation>
    </message>
    <message>
        <source>Send version and desktop</source>
        <translation>إرسال الإصدار وسطح المكتب</translation>
    </message>
    <message>
        <source>Ctrl + Return</source>
        <translation>Ctrl + Return</translation>
    </message>
    <message>
        <source>&amp;Message:</source>
        <translation>الرسالة:</translation>
    </message>
    <message>
        <source>Mail &amp;address:</source>
        <translation>عنوان البريد:</translation>
    </message>
    <message>
        <source>Only what you see here is sent, never a clip.</source>
        <translation>لا يُرسل إلا ما تراه هنا، ولا تُرسل قصاصة أبدًا.</translation>
    </message>
    <message>
        <source>Add the &amp;line “%1”</source>
        <translation>إضافة السطر «%1»</translation>
    </message>
</context>
<context>
    <name>FieldMenu</name>
    <message>
        <source>&amp;Copy</source>
        <translation>ا&amp;نسخ</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>حدد ال&amp;كل</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>ت&amp;راجع</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>أ&amp;عد</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;قص</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>أ&amp;لصق</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>ا&amp;حذف</translation>
    </message>
</context>
<context>
    <name>FileCard</name>
    <message>
        <source>Changed %1</source>
        <translation>عُدِّل في %1</translation>
    </message>
    <message>
        <source>Links to %1</source>
        <translation>رابط إلى %1</translation>
    </message>
    <message>
        <source>File of an unknown kind</source>
        <translation>ملف من نوع غير معروف</translation>
    </message>
    <message>
        <source>Created %1</source>
        <translation>أُنشئ في %1</translation>
    </message>
    <message>
        <source>The preview failed unexpectedly</source>
        <translation>فشلت المعاينة على نحو غير متوقع</translation>
    </message>
    <message>
        <source>The preview took too long</source>
        <translation>استغرقت المعاينة وقتًا طويلًا</translation>
    </message>
    <message>
        <source>The preview needed too much memory</source>
        <translation>احتاجت المعاينة إلى ذاكرة كبيرة</translation>
    </message>
    <message>
        <source>No previews: they cannot be isolated here</source>
        <translation>لا معاينات: لا يمكن عزلها هنا</translation>
    </message>
    <message>
        <source>No previews: Quillmarsh is incomplete</source>
        <translation>لا معاينات: Quillmarsh غير مكتمل</translation>
    </message>
    <message>
        <source>Previews pause for a minute after failures</source>
        <translation>تتوقف المعاينات دقيقة بعد الإخفاقات</translation>
    </message>
</context>
<context>
    <name>FileViewController</name>
    <message>
        <source>Open</source>
        <translation>فتح</translation>
    </message>
    <message>
        <source>Reveal in File Manager</source>
        <translation>إظهار في مدير الملفات</translation>
    </message>
    <message>
        <source>The file no longer exists.</source>
        <translation>لم يعد الملف موجودًا.</translation>
    </message>
    <message>
        <source>File preview</source>
        <translation>معاينة الملف</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files were copied; Return pastes the first</source>
        <translation>
            <numerusform>نُسخ %Ln ملف؛ مفتاح الإدخال يلصق الأول</numerusform>
            <numerusform>نُسخ ملف واحد (%Ln)؛ مفتاح الإدخال يلصقه</numerusform>
            <numerusform>نُسخ ملفان (%Ln)؛ مفتاح الإدخال يلصق الأول</numerusform>
            <numerusform>نُسخت %Ln ملفات؛ مفتاح الإدخال يلصق الأول</numerusform>
            <numerusform>نُسخ %Ln ملفًا؛ مفتاح الإدخال يلصق الأول</numerusform>
            <numerusform>نُسخ %Ln ملف؛ مفتاح الإدخال يلصق الأول</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>FontBody</name>
    <message>
        <source>Specimen of the font %1</source>
        <translation>نموذج الخط %1</translation>
    </message>
</context>
<context>
    <name>FreedesktopNotifications</name>
    <message>
        <source>Open</source>
        <translation>فتح</translation>
    </message>
</context>
<context>
    <name>GeneralPaneView</name>
    <message>
        <source>Open Quillmarsh at &amp;login</source>
        <translation>فتح Quillmarsh عند تسجيل الدخول</translation>
    </message>
    <message>
        <source>Show &amp;notifications</source>
        <translation>إظهار الإشعارات</translation>
    </message>
    <message>
        <source>clips</source>
        <translation>قصاصة</translation>
    </message>
    <message>
        <source>Open at login</source>
        <translation>فتح عند تسجيل الدخول</translation>
    </message>
    <message>
        <source>Show notifications</source>
        <translation>إظهار الإشعارات</translation>
    </message>
    <message>
        <source>Maximum number of items</source>
        <translation>أقصى عدد للعناصر</translation>
    </message>
    <message>
        <source>Maximum text size in bytes</source>
        <translation>أقصى حجم للنص بالبايت</translation>
    </message>
    <message>
        <source>Open history shortcut</source>
        <translation>اختصار فتح السجل</translation>
    </message>
    <message>
        <source>Swop shortcut</source>
        <translation>اختصار المبادلة</translation>
    </message>
    <message>
        <source>The stored size cannot be used. No clip is removed until you choose one.</source>
        <translation>لا يمكن استخدام الحجم المخزَّن. لن تُزال أي قصاصة حتى تختار حجمًا.</translation>
    </message>
    <message>
        <source>The stored size is larger than this slider reaches. It holds until you move the slider.</source>
        <translation>الحجم المخزَّن أكبر من مدى هذا المنزلق. يبقى ساريًا حتى تحرّكه.</translation>
    </message>
    <message>
        <source>The oldest clip will be removed when you leave this page.</source>
        <translation>ستُزال أقدم قصاصة عند مغادرة هذه الصفحة.</translation>
    </message>
    <message numerus="yes">
        <source>The %Ln oldest clips will be removed when you leave this page.</source>
        <translation>
            <numerusform>ستُزال %Ln قصاصة قديمة عند مغادرة هذه الصفحة.</numerusform>
            <numerusform>ستُزال أقدم قصاصة (%Ln) عند مغادرة هذه الصفحة.</numerusform>
            <numerusform>ستُزال أقدم قصاصتين (%Ln) عند مغادرة هذه الصفحة.</numerusform>
            <numerusform>ستُزال أقدم %Ln قصاصات عند مغادرة هذه الصفحة.</numerusform>
            <numerusform>ستُزال أقدم %Ln قصاصةً عند مغادرة هذه الصفحة.</numerusform>
            <numerusform>ستُزال أقدم %Ln قصاصة عند مغادرة هذه الصفحة.</numerusform>
        </translation>
    </message>
    <message>
        <source>When the history is full, each new copy replaces the oldest clip.</source>
        <translation>عندما يمتلئ السجل تحل كل نسخة جديدة محل أقدم قصاصة.</translation>
    </message>
    <message>
        <source>Nothing is recorded.</source>
        <translation>لا يُسجَّل شيء.</translation>
    </message>
    <message>
        <source>Still waiting for a key. A combination that the desktop keeps for itself never gets here; choose another one.</source>
        <translation>ما زال الانتظار لمفتاح. التركيبة التي يحتفظ بها سطح المكتب لنفسه لا تصل إلى هنا؛ اختر غيرها.</translation>
    </message>
    <message>
        <source>Swop pastes a clip over the selected text and keeps that text as the newest clip.</source>
        <translation>تلصق المبادلة قصاصة فوق النص المحدد وتحتفظ به كأحدث قصاصة.</translation>
    </message>
    <message>
        <source>Start-up:</source>
        <translation>بدء التشغيل:</translation>
    </message>
    <message>
        <source>Messages:</source>
        <translation>الرسائل:</translation>
    </message>
    <message>
        <source>Tell you when a copy was too large to be recorded. Turned off, they stay off until Quillmarsh quits.</source>
        <translation>تخبرك عندما تكون النسخة أكبر من أن تُسجَّل. إذا أُوقفت بقيت كذلك حتى إنهاء Quillmarsh.</translation>
    </message>
    <message>
        <source>&amp;History size:</source>
        <translation>حجم السجل:</translation>
    </message>
    <message>
        <source>Largest &amp;text:</source>
        <translation>أكبر نص:</translation>
    </message>
    <message>
        <source>bytes</source>
        <translation>بايت</translation>
    </message>
    <message>
        <source>A longer copy is not recorded.</source>
        <translation>النسخة الأطول لا تُسجَّل.</translation>
    </message>
    <message>
        <source>&amp;Open history:</source>
        <translation>فتح السجل:</translation>
    </message>
    <message>
        <source>S&amp;wop:</source>
        <translation>المبادلة:</translation>
    </message>
    <message>
        <source>The desktop’s list of start-up programs could not be written.</source>
        <translation>تعذّرت الكتابة في قائمة برامج بدء التشغيل لسطح المكتب.</translation>
    </message>
    <message>
        <source>Switched off in the desktop’s own list. Tick it anew to switch it on.</source>
        <translation>معطَّل في قائمة سطح المكتب. أعد وضع العلامة لتفعيله.</translation>
    </message>
    <message>
        <source>Missing in the desktop’s own list. Tick it anew to put it there.</source>
        <translation>غير موجود في قائمة سطح المكتب. أعد وضع العلامة لإضافته.</translation>
    </message>
    <message>
        <source>The desktop opens it all the same.</source>
        <translation>يفتحه سطح المكتب مع ذلك.</translation>
    </message>
    <message>
        <source>A shortcut needs Ctrl or Super with another key, or is a function key.</source>
        <translation>يتكون الاختصار من Ctrl أو Super مع مفتاح آخر، أو من مفتاح وظيفي.</translation>
    </message>
    <message>
        <source>Have the desktop’s configuration run these commands for keys of your choice.</source>
        <translation>اجعل إعدادات سطح المكتب تنفّذ هذين الأمرين بمفاتيح من اختيارك.</translation>
    </message>
    <message>
        <source>Add these lines to the desktop’s configuration, with other keys if you like.</source>
        <translation>أضف هذين السطرين إلى إعدادات سطح المكتب، بمفاتيح أخرى إن شئت.</translation>
    </message>
    <message>
        <source>Pictures:</source>
        <translation>الصور:</translation>
    </message>
    <message>
        <source>MB at most</source>
        <translation>م.ب على الأكثر</translation>
    </message>
    <message>
        <source>Copies of nothing but a picture, as files in the data folder.</source>
        <translation>النسخ التي ليس فيها إلا صورة، ملفاتٍ في مجلد البيانات.</translation>
    </message>
</context>
<context>
    <name>GlobalShortcuts</name>
    <message>
        <source>Cut</source>
        <translation>قص</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>نسخ</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>لصق</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Super</translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation>Ctrl</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Shift</translation>
    </message>
</context>
<context>
    <name>HistoryFooter</name>
    <message>
        <source>Deleted · Ctrl+Z brings it back</source>
        <translation>حُذفت · Ctrl+Z يعيدها</translation>
    </message>
    <message numerus="yes">
        <source>%Ln deleted clips did not fit: the history keeps %1 at most</source>
        <translation>
            <numerusform>لم تتسع %Ln قصاصة محذوفة: يحتفظ السجل بـ %1 على الأكثر</numerusform>
            <numerusform>لم تتسع %Ln قصاصة محذوفة: يحتفظ السجل بـ %1 على الأكثر</numerusform>
            <numerusform>لم تتسع %Ln قصاصتين محذوفتين: يحتفظ السجل بـ %1 على الأكثر</numerusform>
            <numerusform>لم تتسع %Ln قصاصات محذوفة: يحتفظ السجل بـ %1 على الأكثر</numerusform>
            <numerusform>لم تتسع %Ln قصاصة محذوفة: يحتفظ السجل بـ %1 على الأكثر</numerusform>
            <numerusform>لم تتسع %Ln قصاصة محذوفة: يحتفظ السجل بـ %1 على الأكثر</numerusform>
        </translation>
    </message>
    <message>
        <source>Deleted for good · too large for Ctrl+Z</source>
        <translation>حُذفت نهائيًا · أكبر من أن يعيدها Ctrl+Z</translation>
    </message>
    <message>
        <source>Deleted · Ctrl+Z brings back all but the largest pictures</source>
        <translation>حُذفت · Ctrl+Z يعيد كل شيء عدا أكبر الصور</translation>
    </message>
</context>
<context>
    <name>HistoryNotices</name>
    <message numerus="yes">
        <source>A copy of %Ln bytes was not recorded; the limit is %1</source>
        <translation>
            <numerusform>لم تُسجَّل نسخة من %Ln بايت؛ الحد الأقصى %1</numerusform>
            <numerusform>لم تُسجَّل نسخة من بايت واحد (%Ln)؛ الحد الأقصى %1</numerusform>
            <numerusform>لم تُسجَّل نسخة من بايتين (%Ln)؛ الحد الأقصى %1</numerusform>
            <numerusform>لم تُسجَّل نسخة من %Ln بايتات؛ الحد الأقصى %1</numerusform>
            <numerusform>لم تُسجَّل نسخة من %Ln بايتًا؛ الحد الأقصى %1</numerusform>
            <numerusform>لم تُسجَّل نسخة من %Ln بايت؛ الحد الأقصى %1</numerusform>
        </translation>
    </message>
    <message>
        <source>A copy was not recorded; it is larger than the limit of %1 bytes</source>
        <translation>لم تُسجَّل نسخة؛ فهي أكبر من الحد الأقصى البالغ %1 بايت</translation>
    </message>
    <message>
        <source>The copied picture is replaced</source>
        <translation>استُبدلت الصورة المنسوخة</translation>
    </message>
    <message>
        <source>What was copied is replaced</source>
        <translation>استُبدل ما كان منسوخًا</translation>
    </message>
</context>
<context>
    <name>HttpsExchange</name>
    <message>
        <source>The server redirects to an address that is not secure.</source>
        <translation>يعيد الخادم التوجيه إلى عنوان غير آمن.</translation>
    </message>
    <message>
        <source>The server could not prove who it is, or the connection is not secure.</source>
        <translation>تعذّر على الخادم إثبات هويته، أو أن الاتصال غير آمن.</translation>
    </message>
    <message>
        <source>The server %1 was not found. Are you connected to the internet?</source>
        <translation>لم يُعثر على الخادم %1. هل أنت متصل بالإنترنت؟</translation>
    </message>
    <message>
        <source>The server %1 cannot be reached.</source>
        <translation>لا يمكن الوصول إلى الخادم %1.</translation>
    </message>
    <message>
        <source>The server ended the connection.</source>
        <translation>أنهى الخادم الاتصال.</translation>
    </message>
    <message>
        <source>The server does not have the file.</source>
        <translation>الملف غير موجود على الخادم.</translation>
    </message>
    <message>
        <source>The server answered with error %1.</source>
        <translation>رد الخادم بالخطأ %1.</translation>
    </message>
    <message>
        <source>The connection failed: %1.</source>
        <translation>فشل الاتصال: %1.</translation>
    </message>
    <message>
        <source>The server took too long to answer.</source>
        <translation>استغرق الخادم وقتًا طويلًا في الرد.</translation>
    </message>
    <message>
        <source>The address is not a secure one (https).</source>
        <translation>العنوان ليس آمنًا (https).</translation>
    </message>
    <message>
        <source>The server sends more than was announced.</source>
        <translation>يرسل الخادم أكثر مما أعلن عنه.</translation>
    </message>
    <message>
        <source>The server answered with status %1.</source>
        <translation>رد الخادم بالحالة %1.</translation>
    </message>
    <message>
        <source>The server stopped answering.</source>
        <translation>توقف الخادم عن الرد.</translation>
    </message>
</context>
<context>
    <name>IgnoredApplicationsModel</name>
    <message>
        <source>%1 (recognised by this name only)</source>
        <translation>%1 (يُتعرَّف عليه بهذا الاسم فقط)</translation>
    </message>
</context>
<context>
    <name>ImageBody</name>
    <message>
        <source>Picture</source>
        <translation>صورة</translation>
    </message>
</context>
<context>
    <name>Installation</name>
    <message>
        <source>Quillmarsh was installed by your system&apos;s package manager, which also updates it.</source>
        <translation>ثبّت مدير الحزم في نظامك Quillmarsh، وهو الذي يحدّثه أيضًا.</translation>
    </message>
    <message>
        <source>Quillmarsh was not installed in a way that it could update itself. Updates come from where you got it.</source>
        <translation>لم يُثبَّت Quillmarsh على نحو يمكّنه من تحديث نفسه. تأتي التحديثات من حيث حصلت عليه.</translation>
    </message>
    <message>
        <source>The folder %1 cannot be written to.</source>
        <translation>لا يمكن الكتابة في المجلد %1.</translation>
    </message>
    <message>
        <source>%1 was replaced while Quillmarsh was running. Restart Quillmarsh to use what is there now.</source>
        <translation>استُبدل %1 بينما كان Quillmarsh يعمل. أعد تشغيل Quillmarsh لاستخدام ما هو موجود هناك الآن.</translation>
    </message>
</context>
<context>
    <name>IssueReportDialog</name>
    <message>
        <source>Show &amp;Report</source>
        <translation>إظهار التقرير</translation>
    </message>
    <message>
        <source>&amp;Do Not Send</source>
        <translation>عدم الإرسال</translation>
    </message>
    <message>
        <source>Problem Report</source>
        <translation>تقرير مشكلة</translation>
    </message>
    <message>
        <source>Quillmarsh ended unexpectedly</source>
        <translation>انتهى Quillmarsh على نحو غير متوقع</translation>
    </message>
    <message>
        <source>May the report be sent, so that the fault can be found? It says which version failed, how, and at which place in the program. It holds no clip and no other text of yours. If you do not send it, it is deleted.</source>
        <translation>هل يمكن إرسال التقرير لكي يُعثر على الخلل؟ يذكر أي إصدار فشل وكيف وفي أي موضع من البرنامج. لا يحوي أي قصاصة ولا أي نص آخر لك. إذا لم ترسله حُذف.</translation>
    </message>
    <message>
        <source>Report</source>
        <translation>التقرير</translation>
    </message>
    <message>
        <source>Hide &amp;Report</source>
        <translation>إخفاء التقرير</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>إلغاء</translation>
    </message>
    <message>
        <source>Sending…</source>
        <translation>جارٍ الإرسال…</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>إغلاق</translation>
    </message>
    <message>
        <source>%1 The report is kept, and you will be asked at the next start.</source>
        <translation>%1 التقرير محفوظ، وستُسأل عند التشغيل التالي.</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>المحاولة مجددًا</translation>
    </message>
</context>
<context>
    <name>ListBody</name>
    <message>
        <source>1 entry</source>
        <translation>عنصر واحد</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1، %2</translation>
    </message>
    <message>
        <source>%1, %2 or more</source>
        <translation>%1، %2 أو أكثر</translation>
    </message>
    <message>
        <source>Entries</source>
        <translation>العناصر</translation>
    </message>
    <message numerus="yes">
        <source>%Ln entries</source>
        <translation>
            <numerusform>%Ln عنصر</numerusform>
            <numerusform>عنصر واحد (%Ln)</numerusform>
            <numerusform>عنصران (%Ln)</numerusform>
            <numerusform>%Ln عناصر</numerusform>
            <numerusform>%Ln عنصرًا</numerusform>
            <numerusform>%Ln عنصر</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MASShortcut</name>
    <message>
        <source>Space</source>
        <translation>مسافة</translation>
    </message>
</context>
<context>
    <name>MASShortcutValidator</name>
    <message>
        <source>This combination cannot be used because it is already used by a system-wide keyboard shortcut.
If you really want to use this key combination, most shortcuts can be changed in the Keyboard &amp; Mouse panel in System Preferences.</source>
        <translation>لا يمكن استخدام هذه التركيبة لأنها مستخدمة بالفعل في اختصار لوحة مفاتيح على مستوى النظام.
إذا أردت حقًا استخدام هذه التركيبة، فيمكن تغيير معظم الاختصارات في لوحة المفاتيح والفأرة ضمن تفضيلات النظام.</translation>
    </message>
    <message>
        <source>This shortcut cannot be used because it is already used by the menu item ‘%1’.</source>
        <translation>لا يمكن استخدام هذا الاختصار لأنه مستخدم بالفعل في عنصر القائمة «%1».</translation>
    </message>
</context>
<context>
    <name>MASShortcutView</name>
    <message>
        <source>Shortcut</source>
        <translation>الاختصار</translation>
    </message>
    <message>
        <source>The key combination %1 cannot be used</source>
        <translation>لا يمكن استخدام تركيبة المفاتيح %1</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>حسنًا</translation>
    </message>
    <message>
        <source>Record Shortcut</source>
        <translation>تسجيل اختصار</translation>
    </message>
    <message>
        <source>Use Old Shortcut</source>
        <translation>استخدام الاختصار القديم</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>إلغاء</translation>
    </message>
    <message>
        <source>Type New Shortcut</source>
        <translation>اضغط الاختصار الجديد</translation>
    </message>
    <message>
        <source>Type Shortcut</source>
        <translation>اضغط الاختصار</translation>
    </message>
    <message>
        <source>Delete shortcut</source>
        <translation>حذف الاختصار</translation>
    </message>
    <message>
        <source>Click to record new shortcut</source>
        <translation>انقر لتسجيل اختصار جديد</translation>
    </message>
</context>
<context>
    <name>MailHandOver</name>
    <message>
        <source>(Please attach the file %1)</source>
        <translation>(يُرجى إرفاق الملف %1)</translation>
    </message>
</context>
<context>
    <name>MovingIn</name>
    <message numerus="yes">
        <source>&amp;Bring along the newest %Ln clips of %1</source>
        <translation>
            <numerusform>جلب أحدث %Ln قصاصة من %1</numerusform>
            <numerusform>جلب أحدث قصاصة (%Ln) من %1</numerusform>
            <numerusform>جلب أحدث قصاصتين (%Ln) من %1</numerusform>
            <numerusform>جلب أحدث %Ln قصاصات من %1</numerusform>
            <numerusform>جلب أحدث %Ln قصاصة من %1</numerusform>
            <numerusform>جلب أحدث %Ln قصاصة من %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>&amp;Bring along %Ln clips of %1</source>
        <translation>
            <numerusform>جلب %Ln قصاصة من %1</numerusform>
            <numerusform>جلب قصاصة واحدة (%Ln) من %1</numerusform>
            <numerusform>جلب قصاصتين (%Ln) من %1</numerusform>
            <numerusform>جلب %Ln قصاصات من %1</numerusform>
            <numerusform>جلب %Ln قصاصة من %1</numerusform>
            <numerusform>جلب %Ln قصاصة من %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PathLabel</name>
    <message>
        <source>Path of the file</source>
        <translation>مسار الملف</translation>
    </message>
</context>
<context>
    <name>PdfBody</name>
    <message numerus="yes">
        <source>Document of %n pages</source>
        <translation>
            <numerusform>مستند من %n صفحة</numerusform>
            <numerusform>مستند من صفحة واحدة (%n)</numerusform>
            <numerusform>مستند من صفحتين (%n)</numerusform>
            <numerusform>مستند من %n صفحات</numerusform>
            <numerusform>مستند من %n صفحةً</numerusform>
            <numerusform>مستند من %n صفحة</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PictureChoice</name>
    <message>
        <source>&amp;Keep copied pictures</source>
        <translation>الاحتفاظ بالصور المنسوخة</translation>
    </message>
    <message>
        <source>Keep copied pictures</source>
        <translation>الاحتفاظ بالصور المنسوخة</translation>
    </message>
    <message>
        <source>Maximum picture size in megabytes</source>
        <translation>أقصى حجم للصورة بالميغابايت</translation>
    </message>
</context>
<context>
    <name>PortalHotKeys</name>
    <message>
        <source>No keys</source>
        <translation>بلا مفاتيح</translation>
    </message>
</context>
<context>
    <name>PreferencesApplicationViewController</name>
    <message>
        <source>Applications</source>
        <translation>التطبيقات</translation>
    </message>
</context>
<context>
    <name>PreferencesGeneralViewController</name>
    <message>
        <source>General</source>
        <translation>عام</translation>
    </message>
    <message>
        <source>No limit</source>
        <translation>بلا حد</translation>
    </message>
    <message>
        <source>Show clipboard history</source>
        <translation>إظهار سجل الحافظة</translation>
    </message>
    <message>
        <source>Swop selection with a clip</source>
        <translation>مبادلة التحديد بقصاصة</translation>
    </message>
</context>
<context>
    <name>SearchField</name>
    <message>
        <source>Search clips</source>
        <translation>البحث في القصاصات</translation>
    </message>
    <message>
        <source>Clear search</source>
        <translation>مسح البحث</translation>
    </message>
    <message>
        <source>Pinned clips only</source>
        <translation>القصاصات المثبّتة فقط</translation>
    </message>
    <message>
        <source>Pinned clips only (Ctrl+Shift+D)</source>
        <translation>القصاصات المثبّتة فقط (Ctrl+Shift+D)</translation>
    </message>
    <message>
        <source>Search pinned clips</source>
        <translation>البحث في القصاصات المثبّتة</translation>
    </message>
</context>
<context>
    <name>ShortcutNote</name>
    <message>
        <source>Used by another program</source>
        <translation>يستخدمه برنامج آخر</translation>
    </message>
    <message>
        <source>Used by the other shortcut</source>
        <translation>يستخدمه الاختصار الآخر</translation>
    </message>
    <message>
        <source>Not possible as a shortcut</source>
        <translation>لا يصلح اختصارًا</translation>
    </message>
    <message>
        <source>%1 in the desktop’s settings</source>
        <translation>%1 في إعدادات سطح المكتب</translation>
    </message>
</context>
<context>
    <name>StatusMenu</name>
    <message>
        <source>Check For Updates...</source>
        <translation>التحقق من التحديثات...</translation>
    </message>
    <message>
        <source>Preferences...</source>
        <translation>التفضيلات...</translation>
    </message>
    <message>
        <source>Launch...</source>
        <translation>فتح السجل...</translation>
    </message>
    <message>
        <source>Clear All</source>
        <translation>مسح الكل</translation>
    </message>
    <message>
        <source>Help...</source>
        <translation>المساعدة...</translation>
    </message>
    <message>
        <source>Send Feedback...</source>
        <translation>إرسال ملاحظات...</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>إنهاء</translation>
    </message>
    <message>
        <source>Allow Recording...</source>
        <translation>السماح بالتسجيل...</translation>
    </message>
</context>
<context>
    <name>SwopPicture</name>
    <message>
        <source>Monday</source>
        <translation>الاثنين</translation>
    </message>
    <message>
        <source>Thursday</source>
        <translation>الخميس</translation>
    </message>
    <message>
        <source>at half past two</source>
        <translation>في الثانية والنصف</translation>
    </message>
    <message>
        <source>Reed Lane 7</source>
        <translation>درب القصب ٧</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>قبل</translation>
    </message>
    <message>
        <source>After</source>
        <translation>بعد</translation>
    </message>
    <message>
        <source>See you on</source>
        <translation>نلتقي يوم</translation>
    </message>
    <message>
        <source>by the old mill.</source>
        <translation>عند الطاحونة القديمة.</translation>
    </message>
</context>
<context>
    <name>TextBody</name>
    <message>
        <source>… the file goes on</source>
        <translation>… للملف بقية</translation>
    </message>
    <message>
        <source>Beginning of the text</source>
        <translation>بداية النص</translation>
    </message>
</context>
<context>
    <name>TourGuide</name>
    <message>
        <source>Find</source>
        <translation>البحث</translation>
    </message>
    <message>
        <source>Start typing as soon as the window opens. * stands for any text, ? for one character, and file: lists copied files.</source>
        <translation>ابدأ الكتابة حالما تُفتح النافذة. تعني * أي نص، وتعني ? محرفًا واحدًا، وتعرض file: الملفات المنسوخة.</translation>
    </message>
    <message>
        <source>Choose</source>
        <translation>الاختيار</translation>
    </message>
    <message>
        <source>Your copies, newest first. Move with the arrow keys, or press the open shortcut again to step down.</source>
        <translation>نسخك، الأحدث أولًا. تنقّل بمفاتيح الأسهم، أو اضغط اختصار الفتح مجددًا للنزول.</translation>
    </message>
    <message>
        <source>Look</source>
        <translation>المعاينة</translation>
    </message>
    <message>
        <source>The whole clip, or the copied file itself, before you paste it.</source>
        <translation>القصاصة كاملة، أو الملف المنسوخ نفسه، قبل أن تلصقه.</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>اللصق</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Return</translation>
    </message>
    <message>
        <source>paste</source>
        <translation>لصق</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Shift</translation>
    </message>
    <message>
        <source>UPPER CASE</source>
        <translation>بأحرف كبيرة</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>lower case</source>
        <translation>بأحرف صغيرة</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Super</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Backspace</translation>
    </message>
    <message>
        <source>delete</source>
        <translation>حذف</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>close</source>
        <translation>إغلاق</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 من %2</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>التالي</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>تم</translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation>Ctrl</translation>
    </message>
    <message>
        <source>plain text</source>
        <translation>نصًا عاديًا</translation>
    </message>
    <message>
        <source>rows 1 to 10</source>
        <translation>الصفوف 1 إلى 10</translation>
    </message>
</context>
<context>
    <name>TraylessHint</name>
    <message>
        <source>Quillmarsh is running</source>
        <translation>Quillmarsh يعمل</translation>
    </message>
    <message>
        <source>Press %1 to open the history, or start Quillmarsh again.</source>
        <translation>اضغط %1 لفتح السجل، أو شغّل Quillmarsh مجددًا.</translation>
    </message>
    <message>
        <source>Start Quillmarsh again to open the history.</source>
        <translation>شغّل Quillmarsh مجددًا لفتح السجل.</translation>
    </message>
</context>
<context>
    <name>UpdateDownload</name>
    <message>
        <source>There is no place to download to.</source>
        <translation>لا مكان للتنزيل إليه.</translation>
    </message>
    <message>
        <source>The server has another file than before. Try again.</source>
        <translation>لدى الخادم ملف غير السابق. حاول مجددًا.</translation>
    </message>
    <message>
        <source>The server sends more than was announced.</source>
        <translation>يرسل الخادم أكثر مما أعلن عنه.</translation>
    </message>
    <message>
        <source>The download could not be written: %1.</source>
        <translation>تعذّرت كتابة الملف المنزَّل: %1.</translation>
    </message>
    <message>
        <source>The server sent less than was announced.</source>
        <translation>أرسل الخادم أقل مما أعلن عنه.</translation>
    </message>
</context>
<context>
    <name>UpdateFeed</name>
    <message>
        <source>The list of updates cannot be used.</source>
        <translation>لا يمكن استخدام قائمة التحديثات.</translation>
    </message>
    <message>
        <source>It is not a list of updates.</source>
        <translation>ليست قائمة تحديثات.</translation>
    </message>
    <message>
        <source>Version %1 has no file.</source>
        <translation>لا ملف للإصدار %1.</translation>
    </message>
    <message>
        <source>It is too long.</source>
        <translation>إنها طويلة جدًا.</translation>
    </message>
    <message>
        <source>It is damaged in line %1.</source>
        <translation>إنها تالفة في السطر %1.</translation>
    </message>
    <message>
        <source>It offers a version that is not a number: “%1”.</source>
        <translation>تعرض إصدارًا ليس رقمًا: «%1».</translation>
    </message>
    <message>
        <source>Version %1 has no known channel.</source>
        <translation>ليس للإصدار %1 قناة معروفة.</translation>
    </message>
    <message>
        <source>Version %1 asks for an unknown system.</source>
        <translation>يطلب الإصدار %1 نظامًا غير معروف.</translation>
    </message>
    <message>
        <source>Version %1 is not at a secure address (https).</source>
        <translation>الإصدار %1 ليس في عنوان آمن (https).</translation>
    </message>
    <message>
        <source>Version %1 has no possible size.</source>
        <translation>ليس للإصدار %1 حجم ممكن.</translation>
    </message>
    <message>
        <source>Version %1 is not signed.</source>
        <translation>الإصدار %1 غير موقَّع.</translation>
    </message>
    <message>
        <source>Version %1 has an impossible name.</source>
        <translation>للإصدار %1 اسم غير ممكن.</translation>
    </message>
</context>
<context>
    <name>UpdateInstaller</name>
    <message>
        <source>There is not enough room on the disk.</source>
        <translation>لا توجد مساحة كافية على القرص.</translation>
    </message>
    <message>
        <source>The update could not be put in its place: %1.</source>
        <translation>تعذّر وضع التحديث في مكانه: %1.</translation>
    </message>
    <message>
        <source>The downloaded file is gone.</source>
        <translation>اختفى الملف المنزَّل.</translation>
    </message>
    <message>
        <source>The downloaded file has not the size that was announced.</source>
        <translation>ليس للملف المنزَّل الحجم المعلَن.</translation>
    </message>
    <message>
        <source>The signature of the downloaded file is not the publisher&apos;s. It was not installed.</source>
        <translation>توقيع الملف المنزَّل ليس توقيع الناشر. لم يُثبَّت.</translation>
    </message>
    <message>
        <source>The update was cancelled.</source>
        <translation>أُلغي التحديث.</translation>
    </message>
    <message>
        <source>The update could not be written correctly.</source>
        <translation>تعذّرت كتابة التحديث كتابة صحيحة.</translation>
    </message>
    <message>
        <source>This version is installed already. It starts the next time.</source>
        <translation>هذا الإصدار مثبَّت بالفعل. يبدأ في المرة القادمة.</translation>
    </message>
    <message>
        <source>The update holds no program.</source>
        <translation>لا يحوي التحديث برنامجًا.</translation>
    </message>
    <message>
        <source>Version %1 is running. Quit it first.</source>
        <translation>الإصدار %1 قيد التشغيل. أنهه أولًا.</translation>
    </message>
</context>
<context>
    <name>UpdateRun</name>
    <message>
        <source>Another update of Quillmarsh is under way.</source>
        <translation>تحديث آخر لـ Quillmarsh جارٍ الآن.</translation>
    </message>
    <message>
        <source>Signatures cannot be checked, so nothing is installed.</source>
        <translation>لا يمكن التحقق من التواقيع، لذا لا يُثبَّت شيء.</translation>
    </message>
</context>
<context>
    <name>UpdateWindow</name>
    <message>
        <source>Look for updates once a &amp;day</source>
        <translation>البحث عن تحديثات مرة كل يوم</translation>
    </message>
    <message>
        <source>&amp;Skip This Version</source>
        <translation>تخطي هذا الإصدار</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>لاحقًا</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>إلغاء</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>إغلاق</translation>
    </message>
    <message>
        <source>&amp;Install</source>
        <translation>تثبيت</translation>
    </message>
    <message>
        <source>Software Update</source>
        <translation>تحديث البرنامج</translation>
    </message>
    <message>
        <source>Release notes</source>
        <translation>ملاحظات الإصدار</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>الأمر</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>التقدم</translation>
    </message>
    <message>
        <source>Looking for updates…</source>
        <translation>جارٍ البحث عن تحديثات…</translation>
    </message>
    <message>
        <source>You have the newest version</source>
        <translation>لديك أحدث إصدار</translation>
    </message>
    <message>
        <source>%1 %2 is up to date.</source>
        <translation>%1 %2 محدَّث.</translation>
    </message>
    <message>
        <source>%1 %2 is available</source>
        <translation>%1 %2 متاح</translation>
    </message>
    <message>
        <source>You have version %1. %2 restarts when the update is installed; your history and your settings stay as they are.</source>
        <translation>لديك الإصدار %1. يُعاد تشغيل %2 بعد تثبيت التحديث، ويبقى سجلك وإعداداتك كما هي.</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 من %2</translation>
    </message>
    <message>
        <source>Downloading the update</source>
        <translation>جارٍ تنزيل التحديث</translation>
    </message>
    <message>
        <source>Installing the update</source>
        <translation>جارٍ تثبيت التحديث</translation>
    </message>
    <message>
        <source>Its signature is checked first.</source>
        <translation>يُتحقق من توقيعه أولًا.</translation>
    </message>
    <message>
        <source>The update is installed</source>
        <translation>ثُبّت التحديث</translation>
    </message>
    <message>
        <source>%1 uses it from its next start.</source>
        <translation>يستخدمه %1 بدءًا من تشغيله التالي.</translation>
    </message>
    <message>
        <source>%1 could not be updated</source>
        <translation>تعذّر تحديث %1</translation>
    </message>
    <message>
        <source>%1 does not update itself here</source>
        <translation>لا يحدّث %1 نفسه هنا</translation>
    </message>
    <message>
        <source>Version %1 needs a newer system</source>
        <translation>الإصدار %1 يحتاج إلى نظام أحدث</translation>
    </message>
    <message>
        <source>%1 %2 is the newest version that this system can run.</source>
        <translation>%1 %2 هو أحدث إصدار يمكن لهذا النظام تشغيله.</translation>
    </message>
</context>
<context>
    <name>ViewController</name>
    <message>
        <source>%1 of %2: %3</source>
        <translation>%1 من %2: %3</translation>
    </message>
    <message>
        <source>Swop: no selection is held, so the clip is only pasted</source>
        <translation>المبادلة: لا تحديد محفوظ، لذا تُلصق القصاصة فقط</translation>
    </message>
    <message>
        <source>Swop: the selection of %1 is held</source>
        <translation>المبادلة: تحديد %1 محفوظ</translation>
    </message>
    <message>
        <source>Swop: the selection is held</source>
        <translation>المبادلة: التحديد محفوظ</translation>
    </message>
    <message>
        <source>Nothing is recorded: the history cannot be written</source>
        <translation>لا يُسجَّل شيء: تتعذر الكتابة في السجل</translation>
    </message>
    <message>
        <source>%1 of %2, pinned: %3</source>
        <translation>%1 من %2، مثبّتة: %3</translation>
    </message>
</context>
<context>
    <name>WelcomePage1Controller</name>
    <message>
        <source>Everything you copy, at hand</source>
        <translation>كل ما تنسخه في متناول يدك</translation>
    </message>
    <message>
        <source>Quillmarsh keeps each text and each file you copy, and pastes any of them again wherever you are typing.</source>
        <translation>يحتفظ Quillmarsh بكل نص وكل ملف تنسخه، ويلصق أيًا منها مجددًا حيثما تكتب.</translation>
    </message>
    <message>
        <source>Open Quillmarsh at &amp;login</source>
        <translation>فتح Quillmarsh عند تسجيل الدخول</translation>
    </message>
    <message>
        <source>Check for &amp;updates</source>
        <translation>التحقق من التحديثات</translation>
    </message>
    <message>
        <source>Open at login</source>
        <translation>فتح عند تسجيل الدخول</translation>
    </message>
    <message>
        <source>Check for updates</source>
        <translation>التحقق من التحديثات</translation>
    </message>
    <message>
        <source>Have the &amp;desktop ask when I go on</source>
        <translation>اجعل سطح المكتب يسأل عندما أ&amp;تابع</translation>
    </message>
</context>
<context>
    <name>WelcomePages</name>
    <message>
        <source>opens the history over any application</source>
        <translation>يفتح السجل فوق أي تطبيق</translation>
    </message>
    <message>
        <source>typing narrows it: part of a word is enough</source>
        <translation>الكتابة تضيّقه: يكفي جزء من كلمة</translation>
    </message>
    <message>
        <source>choose a clip</source>
        <translation>اختيار قصاصة</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Return</translation>
    </message>
    <message>
        <source>pastes it where you were typing</source>
        <translation>يلصقها حيث كنت تكتب</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Shift</translation>
    </message>
    <message>
        <source>pastes it IN UPPER CASE</source>
        <translation>يلصقها بأحرف كبيرة (ABC)</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>pastes it in lower case</source>
        <translation>يلصقها بأحرف صغيرة (abc)</translation>
    </message>
    <message>
        <source>Open, find, paste</source>
        <translation>افتح، ابحث، الصق</translation>
    </message>
    <message>
        <source>Your hands stay on the keyboard, and the text goes into the window you came from.</source>
        <translation>تبقى يداك على لوحة المفاتيح، ويذهب النص إلى النافذة التي جئت منها.</translation>
    </message>
    <message>
        <source>Swop a selection for a clip</source>
        <translation>مبادلة التحديد بقصاصة</translation>
    </message>
    <message>
        <source>Select a text, press the keys, choose a clip. The clip takes the selection’s place, and the selection becomes your newest clip.</source>
        <translation>حدد نصًا، واضغط المفاتيح، واختر قصاصة. تحل القصاصة محل التحديد، ويصبح التحديد أحدث قصاصاتك.</translation>
    </message>
    <message>
        <source>The history is one file that only you can read, in
%1.</source>
        <translation>السجل ملف واحد لا يقرؤه سواك، في
%1.</translation>
    </message>
    <message>
        <source>Never recorded: what a password manager marks as secret, and copies from the applications that you list in Preferences.</source>
        <translation>لا يُسجَّل أبدًا: ما يعلّمه مدير كلمات المرور سريًا، والنسخ من التطبيقات التي تدرجها في التفضيلات.</translation>
    </message>
    <message>
        <source>To delete a clip for good, press Super + Backspace in the history. To delete them all, choose “Clear All” in the menu.</source>
        <translation>لحذف قصاصة نهائيًا اضغط Super + Backspace في السجل. ولحذفها كلها اختر «مسح الكل» من القائمة.</translation>
    </message>
    <message>
        <source>Yours alone</source>
        <translation>لك وحدك</translation>
    </message>
    <message>
        <source>Your clips never leave this computer.</source>
        <translation>لا تغادر قصاصاتك هذا الحاسوب أبدًا.</translation>
    </message>
    <message>
        <source>(turned off)</source>
        <translation>(معطَّل)</translation>
    </message>
</context>
<context>
    <name>WelcomeWindow</name>
    <message>
        <source>Welcome to Quillmarsh</source>
        <translation>مرحبًا بك في Quillmarsh</translation>
    </message>
</context>
<context>
    <name>WelcomeWindowController</name>
    <message>
        <source>Open your history at any time: %1</source>
        <translation>افتح سجلك في أي وقت: %1</translation>
    </message>
    <message>
        <source>Open your history at any time: %1. The default is %2.</source>
        <translation>افتح سجلك في أي وقت: %1. الافتراضي هو %2.</translation>
    </message>
    <message>
        <source>The shortcut that opens the history, by default %1, is turned off.</source>
        <translation>الاختصار الذي يفتح السجل، وهو افتراضيًا %1، معطَّل.</translation>
    </message>
    <message>
        <source>This desktop lets no program set shortcuts. Preferences has the line that its configuration needs.</source>
        <translation>لا يسمح سطح المكتب هذا لأي برنامج بتعيين اختصارات. تجد في التفضيلات السطر الذي تحتاجه إعداداته.</translation>
    </message>
</context>
<context>
    <name>WelcomeWindowView</name>
    <message>
        <source>Previous</source>
        <translation>السابق</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>التالي</translation>
    </message>
    <message>
        <source>Take the tour</source>
        <translation>ابدأ الجولة</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>تم</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>الصفحة %1 من %2</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>إغلاق</translation>
    </message>
</context>
</TS>
