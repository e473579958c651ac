<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>AppDelegate</name>
    <message>
        <source>Nothing is recorded</source>
        <translation>何も記録されません</translation>
    </message>
    <message>
        <source>The history in %1 cannot be written.</source>
        <translation>%1の履歴に書き込めません。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln clips to be pasted</source>
        <translation>
            <numerusform>貼り付け待ち: %Ln件</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln clips are still to be pasted; Esc ends that</source>
        <translation>
            <numerusform>貼り付け待ちのクリップが%Ln件あります。Escで終了します</numerusform>
        </translation>
    </message>
    <message>
        <source>Ask the Desktop...</source>
        <translation>デスクトップに許可を求める...</translation>
    </message>
</context>
<context>
    <name>ApplicationChooser</name>
    <message>
        <source>&amp;Other…</source>
        <translation>その他(&amp;O)…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>&amp;Choose</source>
        <translation>選択(&amp;C)</translation>
    </message>
    <message>
        <source>Choose Application</source>
        <translation>アプリケーションの選択</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>絞り込み</translation>
    </message>
    <message>
        <source>Filter applications</source>
        <translation>アプリケーションを絞り込む</translation>
    </message>
    <message>
        <source>Applications</source>
        <translation>アプリケーション</translation>
    </message>
    <message>
        <source>“%1” is not an application.</source>
        <translation>「%1」はアプリケーションではありません。</translation>
    </message>
</context>
<context>
    <name>ApplicationsPaneView</name>
    <message>
        <source>%1 and %2</source>
        <translation>%1と%2</translation>
    </message>
    <message>
        <source>Ignored applications</source>
        <translation>無視するアプリケーション</translation>
    </message>
    <message>
        <source>Add application</source>
        <translation>アプリケーションを追加</translation>
    </message>
    <message>
        <source>Remove application</source>
        <translation>アプリケーションを削除</translation>
    </message>
    <message numerus="yes">
        <source>Ignore %Ln password managers</source>
        <translation>
            <numerusform>%Ln個のパスワードマネージャーを無視</numerusform>
        </translation>
    </message>
    <message>
        <source>Ignore %1</source>
        <translation>%1を無視</translation>
    </message>
    <message>
        <source>Add an application whose copies shall stay private.</source>
        <translation>コピーを記録したくないアプリケーションを追加してください。</translation>
    </message>
    <message>
        <source>What is copied from %1 is recorded like any other text. You may want to keep passwords out of the history.</source>
        <translation>%1からコピーした内容も、ほかのテキストと同じように記録されます。パスワードは履歴に残さないことをおすすめします。</translation>
    </message>
    <message>
        <source>No application is ignored</source>
        <translation>無視するアプリケーションはありません</translation>
    </message>
    <message>
        <source>What is copied while one of these applications is in front is never recorded.</source>
        <translation>これらのアプリケーションが最前面にあるときのコピーは記録されません。</translation>
    </message>
</context>
<context>
    <name>ArchiveExtraction</name>
    <message>
        <source>There is not enough room on the disk.</source>
        <translation>ディスクの空き容量が足りません。</translation>
    </message>
    <message>
        <source>A file could not be written: %1.</source>
        <translation>ファイルを書き込めませんでした: %1。</translation>
    </message>
    <message>
        <source>The update is damaged.</source>
        <translation>アップデートが壊れています。</translation>
    </message>
    <message>
        <source>The update holds files that do not belong into it.</source>
        <translation>アップデートに含まれるべきでないファイルがあります。</translation>
    </message>
    <message>
        <source>The update was cancelled.</source>
        <translation>アップデートはキャンセルされました。</translation>
    </message>
</context>
<context>
    <name>ByteCount</name>
    <message>
        <source>1 byte</source>
        <translation>1バイト</translation>
    </message>
    <message>
        <source>bytes</source>
        <translation>バイト</translation>
    </message>
    <message>
        <source>KB</source>
        <translation>KB</translation>
    </message>
    <message>
        <source>MB</source>
        <translation>MB</translation>
    </message>
    <message>
        <source>GB</source>
        <translation>GB</translation>
    </message>
    <message>
        <source>TB</source>
        <translation>TB</translation>
    </message>
    <message>
        <source>PB</source>
        <translation>PB</translation>
    </message>
    <message>
        <source>EB</source>
        <translation>EB</translation>
    </message>
</context>
<context>
    <name>CCNPreferencesWindowController</name>
    <message>
        <source>Preferences</source>
        <translation>環境設定</translation>
    </message>
</context>
<context>
    <name>Capabilities</name>
    <message>
        <source>This desktop lets no program type, so clips are put on the clipboard only.</source>
        <translation>このデスクトップではプログラムからの入力ができないため、クリップはクリップボードに置くだけになります。</translation>
    </message>
    <message>
        <source>KDE has not allowed Quillmarsh to type, so clips are put on the clipboard only.</source>
        <translation>KDEがQuillmarshに入力を許可していないため、クリップはクリップボードに置くだけになります。</translation>
    </message>
    <message>
        <source>This desktop lets no program set shortcuts.</source>
        <translation>このデスクトップではプログラムがショートカットを設定できません。</translation>
    </message>
    <message>
        <source>Have its configuration start Quillmarsh for a key.</source>
        <translation>デスクトップの設定で、キーからQuillmarshを起動するようにしてください。</translation>
    </message>
    <message>
        <source>Quillmarsh runs through Xwayland here and sees only what X11 applications copy.</source>
        <translation>ここではXwayland経由で動作しているため、X11アプリケーションのコピーだけを記録します。</translation>
    </message>
    <message>
        <source>Install the package qt6-wayland, and start Quillmarsh again.</source>
        <translation>パッケージqt6-waylandをインストールし、Quillmarshを起動し直してください。</translation>
    </message>
    <message>
        <source>They may do nothing while a native Wayland window is in front.</source>
        <translation>ネイティブのWaylandウインドウが前面にある間は、反応しないことがあります。</translation>
    </message>
    <message>
        <source>Have the desktop run “quillmarsh launch” for a key.</source>
        <translation>デスクトップの設定で、キーから「quillmarsh launch」を実行するようにしてください。</translation>
    </message>
    <message>
        <source>Only X11 applications can be pasted into.</source>
        <translation>貼り付けできるのはX11アプリケーションだけです。</translation>
    </message>
    <message>
        <source>Install the package, or save these lines as ~/.local/share/applications/quillmarsh-program.desktop. Then start Quillmarsh again.</source>
        <translation>パッケージをインストールするか、これらの行を ~/.local/share/applications/quillmarsh-program.desktop として保存してから、Quillmarshを起動し直してください。</translation>
    </message>
    <message>
        <source>Have Quillmarsh ask for it, and tick every box of the desktop’s question.</source>
        <translation>Quillmarsh から許可を求め、デスクトップの質問のすべての項目にチェックを入れてください。</translation>
    </message>
    <message>
        <source>This desktop lets a program see copies and paste only as remote control.</source>
        <translation>このデスクトップでは、プログラムはリモートコントロールとしてのみコピーの内容を見たりペーストしたりできます。</translation>
    </message>
    <message>
        <source>The desktop is asking whether Quillmarsh may.</source>
        <translation>Quillmarsh に許可するかどうか、デスクトップが確認しています。</translation>
    </message>
    <message>
        <source>The desktop’s question was answered with no.</source>
        <translation>デスクトップの質問に「いいえ」と答えました。</translation>
    </message>
    <message>
        <source>The remote control by Quillmarsh has been ended.</source>
        <translation>Quillmarsh によるリモートコントロールは終了しました。</translation>
    </message>
    <message>
        <source>The desktop’s portals do not answer, or do not offer remote control.</source>
        <translation>デスクトップのポータルが応答しないか、リモートコントロールを提供していません。</translation>
    </message>
    <message>
        <source>Remote interaction was not allowed, so clips are put on the clipboard only.</source>
        <translation>リモート操作が許可されなかったため、クリップはクリップボードに入るだけです。</translation>
    </message>
</context>
<context>
    <name>CapabilityTable</name>
    <message>
        <source>Recording:</source>
        <translation>記録:</translation>
    </message>
    <message>
        <source>Shortcuts:</source>
        <translation>ショートカット:</translation>
    </message>
    <message>
        <source>Pasting:</source>
        <translation>貼り付け:</translation>
    </message>
    <message>
        <source>Window’s place:</source>
        <translation>ウインドウの位置:</translation>
    </message>
    <message>
        <source>works</source>
        <translation>使えます</translation>
    </message>
    <message>
        <source>needs a step of yours</source>
        <translation>設定が必要です</translation>
    </message>
    <message>
        <source>withheld</source>
        <translation>許可されていません</translation>
    </message>
    <message>
        <source>Copy all lines for the configuration</source>
        <translation>設定に加える行をすべてコピー</translation>
    </message>
    <message>
        <source>Have the Desktop &amp;Ask…</source>
        <translation>デスクトップに確認させる(&amp;A)…</translation>
    </message>
</context>
<context>
    <name>ClipHistory</name>
    <message>
        <source>Picture %1 × %2</source>
        <translation>画像 %1 × %2</translation>
    </message>
</context>
<context>
    <name>ClipInfoLine</name>
    <message>
        <source>not pasted yet</source>
        <translation>まだ貼り付けていません</translation>
    </message>
    <message>
        <source>pasted once</source>
        <translation>1回貼り付け</translation>
    </message>
    <message numerus="yes">
        <source>pasted %Ln times</source>
        <translation>
            <numerusform>%Ln回貼り付け</numerusform>
        </translation>
    </message>
    <message>
        <source>1 character</source>
        <translation>1文字</translation>
    </message>
    <message numerus="yes">
        <source>%Ln characters</source>
        <translation>
            <numerusform>%Ln文字</numerusform>
        </translation>
    </message>
    <message>
        <source>Copied on %1</source>
        <translation>%1にコピー</translation>
    </message>
    <message>
        <source>just now</source>
        <translation>たった今</translation>
    </message>
    <message>
        <source>1 minute ago</source>
        <translation>1分前</translation>
    </message>
    <message numerus="yes">
        <source>%Ln minutes ago</source>
        <translation>
            <numerusform>%Ln分前</numerusform>
        </translation>
    </message>
    <message>
        <source>1 hour ago</source>
        <translation>1時間前</translation>
    </message>
    <message numerus="yes">
        <source>%Ln hours ago</source>
        <translation>
            <numerusform>%Ln時間前</numerusform>
        </translation>
    </message>
    <message>
        <source>yesterday at %1</source>
        <translation>昨日 %1</translation>
    </message>
    <message numerus="yes">
        <source>%Ln days ago</source>
        <translation>
            <numerusform>%Ln日前</numerusform>
        </translation>
    </message>
    <message>
        <source>d MMM yyyy</source>
        <translation>yyyy年M月d日</translation>
    </message>
    <message numerus="yes">
        <source>%Ln marked</source>
        <translation>
            <numerusform>%Ln件を選択中</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ClipMenu</name>
    <message>
        <source>Paste</source>
        <translation>貼り付け</translation>
    </message>
    <message numerus="yes">
        <source>Paste all %Ln files</source>
        <translation>
            <numerusform>%Ln個のファイルをすべて貼り付け</numerusform>
        </translation>
    </message>
    <message>
        <source>Paste as Plain Text</source>
        <translation>プレーンテキストとして貼り付け</translation>
    </message>
    <message>
        <source>Paste in Upper Case</source>
        <translation>大文字で貼り付け</translation>
    </message>
    <message>
        <source>Paste in Lower Case</source>
        <translation>小文字で貼り付け</translation>
    </message>
    <message>
        <source>Copy Without Pasting</source>
        <translation>貼り付けずにコピー</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>開く</translation>
    </message>
    <message>
        <source>Reveal in File Manager</source>
        <translation>ファイルマネージャーで表示</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>Actions for the clip</source>
        <translation>クリップの操作</translation>
    </message>
    <message>
        <source>Unpin</source>
        <translation>固定を解除</translation>
    </message>
    <message>
        <source>Pin</source>
        <translation>固定</translation>
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
        <translation>クリップはクリップボードにあります</translation>
    </message>
    <message>
        <source>The previous window could not be activated.</source>
        <translation>前のウィンドウをアクティブにできませんでした。</translation>
    </message>
    <message>
        <source>File no longer exists</source>
        <translation>ファイルはもうありません</translation>
    </message>
    <message>
        <source>The file no longer exists at the copied location.</source>
        <translation>コピーした場所にファイルがもうありません。</translation>
    </message>
    <message>
        <source>The clip was not pasted</source>
        <translation>クリップは貼り付けられませんでした</translation>
    </message>
    <message>
        <source>The clipboard could not be written.</source>
        <translation>クリップボードに書き込めませんでした。</translation>
    </message>
    <message>
        <source>The replaced text is not on the clipboard</source>
        <translation>置き換えたテキストはクリップボードにありません</translation>
    </message>
    <message>
        <source>What is selected in %1 cannot be copied safely. Paste the clip there yourself; the middle mouse button does it, too.</source>
        <translation>%1で選択されているものは安全にコピーできません。クリップはそこでご自身で貼り付けてください。マウスの中ボタンでも貼り付けられます。</translation>
    </message>
    <message>
        <source>No keys are known that paste into %1. Paste it there yourself; the middle mouse button does it, too.</source>
        <translation>%1に貼り付けるキーがわかりません。そこでご自身で貼り付けてください。マウスの中ボタンでも貼り付けられます。</translation>
    </message>
    <message>
        <source>this application</source>
        <translation>このアプリケーション</translation>
    </message>
    <message>
        <source>%1 did not take the clip over to the computer that it shows, so nothing was pasted there. The middle mouse button pastes the clip, too.</source>
        <translation>%1は表示しているコンピュータにクリップを引き渡さなかったため、そこには何も貼り付けられませんでした。クリップはマウスの中ボタンでも貼り付けられます。</translation>
    </message>
    <message>
        <source>A key was held down, so nothing was typed into %1. Paste it there yourself; the middle mouse button does it, too.</source>
        <translation>キーが押されたままだったため、%1には何も入力しませんでした。そこでご自身で貼り付けてください。マウスの中ボタンでも貼り付けられます。</translation>
    </message>
    <message>
        <source>Quillmarsh is not able to type into %1. Paste it there yourself; the middle mouse button does it, too.</source>
        <translation>Quillmarshは%1に入力できません。そこでご自身で貼り付けてください。マウスの中ボタンでも貼り付けられます。</translation>
    </message>
    <message>
        <source>The clip was not copied</source>
        <translation>クリップはコピーされませんでした</translation>
    </message>
</context>
<context>
    <name>ClipRowDelegate</name>
    <message>
        <source>(blank)</source>
        <translation>（空白）</translation>
    </message>
</context>
<context>
    <name>ClipTableModel</name>
    <message>
        <source>%1 of %2</source>
        <translation>%1/%2</translation>
    </message>
    <message>
        <source>%1 of %2, pinned</source>
        <translation>%2 件中 %1 件目、固定</translation>
    </message>
</context>
<context>
    <name>ClipTableView</name>
    <message>
        <source>Clips</source>
        <translation>クリップ</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files</source>
        <translation>
            <numerusform>%Ln個のファイル</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ClipTextView</name>
    <message>
        <source>Clip text preview</source>
        <translation>クリップのテキストのプレビュー</translation>
    </message>
    <message numerus="yes">
        <source>… and %Ln more characters, pasted in full</source>
        <translation>
            <numerusform>…ほか%Ln文字。貼り付けるときは全文です</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ClipboardCapture</name>
    <message>
        <source>The copied text was not recorded</source>
        <translation>コピーしたテキストは記録されませんでした</translation>
    </message>
    <message>
        <source>The text is too large.</source>
        <translation>テキストが大きすぎます。</translation>
    </message>
    <message>
        <source>The copied picture was not kept</source>
        <translation>コピーした画像は保存されませんでした</translation>
    </message>
    <message>
        <source>The picture is too large.</source>
        <translation>画像が大きすぎます。</translation>
    </message>
</context>
<context>
    <name>ConfigurationLine</name>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
</context>
<context>
    <name>ConsentNotice</name>
    <message>
        <source>Nothing is recorded. %1</source>
        <translation>何も記録されていません。%1</translation>
    </message>
</context>
<context>
    <name>ConsentWords</name>
    <message>
        <source>This desktop shows copies to a program, and lets it paste, only as remote control. It asks you once: switch on “Allow Remote Interaction”, leave the other two on, and choose “Share”. A sharing sign then stays in the top bar; ending it there ends recording.</source>
        <translation>このデスクトップでは、プログラムはリモート操作としてしかコピーを見たり貼り付けたりできません。一度だけ確認されます。「Allow Remote Interaction」をオンにし、ほかの二つはオンのままにして、「共有」を選んでください。その後、上部バーに共有中の印が残ります。そこで終了すると記録も終わります。</translation>
    </message>
</context>
<context>
    <name>DMHelperAppDelegate</name>
    <message>
        <source>Update in background</source>
        <translation>バックグラウンドで更新</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>終了</translation>
    </message>
    <message>
        <source>Updating process is in progress.</source>
        <translation>アップデートを実行中です。</translation>
    </message>
    <message>
        <source>Main application bundle could not be located</source>
        <translation>本体のアプリケーションが見つかりません</translation>
    </message>
    <message>
        <source>Main application is running. It should update itself.</source>
        <translation>本体のアプリケーションが起動しています。自身で更新されます。</translation>
    </message>
</context>
<context>
    <name>DM_SUUpdater</name>
    <message>
        <source>This Quillmarsh has no address to look for updates at. Updates come from where you got it.</source>
        <translation>このQuillmarshにはアップデートの確認先がありません。入手元から更新してください。</translation>
    </message>
</context>
<context>
    <name>DamagedSettingsQuestion</name>
    <message>
        <source>Your settings could not be read</source>
        <translation>設定を読み込めませんでした</translation>
    </message>
    <message>
        <source>They were set aside beside %1. The list of ignored applications was among them, so nothing is recorded until you decide.</source>
        <translation>設定は%1の隣に退避しました。無視するアプリケーションの一覧も含まれていたため、選択するまで何も記録しません。</translation>
    </message>
    <message>
        <source>Start with fresh settings</source>
        <translation>新しい設定で始める</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>終了</translation>
    </message>
    <message>
        <source>Damaged Settings</source>
        <translation>破損した設定</translation>
    </message>
    <message>
        <source>Nothing is recorded: your settings could not be read, and the list of ignored applications was among them. Answer the question about them first.</source>
        <translation>何も記録されません。設定を読み込めず、無視するアプリケーションの一覧もその中にありました。先に設定についての質問に答えてください。</translation>
    </message>
</context>
<context>
    <name>DesktopShortcut</name>
    <message>
        <source>Change in Settings…</source>
        <translation>設定で変更…</translation>
    </message>
</context>
<context>
    <name>EmptyStateView</name>
    <message>
        <source>Nothing copied yet</source>
        <translation>まだ何もコピーしていません</translation>
    </message>
    <message>
        <source>Whatever you copy appears here.</source>
        <translation>コピーしたものがここに表示されます。</translation>
    </message>
    <message>
        <source>Whatever you copy appears here.
Press %1 to come back to it.</source>
        <translation>コピーしたものがここに表示されます。
%1を押すといつでも開けます。</translation>
    </message>
    <message>
        <source>Nothing matches “%1”</source>
        <translation>「%1」に一致するものはありません</translation>
    </message>
    <message>
        <source>* stands for any text and ? for one character;
file: lists copied files.</source>
        <translation>* は任意の文字列、? は任意の1文字を表します。
file: でコピーしたファイルだけを表示します。</translation>
    </message>
    <message>
        <source>Nothing pinned yet</source>
        <translation>固定したものはまだありません</translation>
    </message>
    <message>
        <source>Ctrl+D pins the selected clip, so that it stays;
Ctrl+Shift+D lists all clips again.</source>
        <translation>Ctrl+D で選択中のクリップを固定すると、残り続けます。
Ctrl+Shift+D ですべてのクリップの表示に戻ります。</translation>
    </message>
</context>
<context>
    <name>FeedbackDelivery</name>
    <message>
        <source>Sent. Thank you.</source>
        <translation>送信しました。ありがとうございます。</translation>
    </message>
    <message>
        <source>No file could be written in %1.</source>
        <translation>%1にファイルを書き込めませんでした。</translation>
    </message>
    <message>
        <source>&amp;Send</source>
        <translation>送信(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Save and Mail…</source>
        <translation>保存してメール(&amp;S)…</translation>
    </message>
    <message>
        <source>This build knows no address to send to: the text is saved in %1, and your mail program opens so that you can attach it.</source>
        <translation>このビルドには送信先がありません。文章は %1 に保存され、添付できるようにメールソフトが開きます。</translation>
    </message>
    <message>
        <source>Saved as %1. Attach it to the mail that opens; if none does, send the file.</source>
        <translation>%1 として保存しました。開いたメールに添付してください。開かない場合は、このファイルを送ってください。</translation>
    </message>
</context>
<context>
    <name>FeedbackDialog</name>
    <message>
        <source>Send Feedback</source>
        <translation>フィードバックの送信</translation>
    </message>
    <message>
        <source>This has not been sent yet.</source>
        <translation>これはまだ送信されていません。</translation>
    </message>
    <message>
        <source>Kept from last time.</source>
        <translation>前回の内容です。</translation>
    </message>
    <message>
        <source>The text cannot be kept for later. Copy it elsewhere; closing again discards it.</source>
        <translation>文章を保存できません。別の場所にコピーしてください。もう一度閉じると破棄されます。</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>This does not look like a mail address.</source>
        <translation>メールアドレスではないようです。</translation>
    </message>
    <message>
        <source>Sending…</source>
        <translation>送信中…</translation>
    </message>
    <message>
        <source>%1 Your text is kept.</source>
        <translation>%1文章は保存されています。</translation>
    </message>
    <message>
        <source>Too long: %1 of at most %2 characters.</source>
        <translation>長すぎます: %1文字(最大%2文字)。</translation>
    </message>
</context>
<context>
    <name>FeedbackForm</name>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>メッセージ</translation>
    </message>
    <message>
        <source>Mail address</source>
        <translation>メールアドレス</translation>
    </message>
    <message>
        <source>optional, for an answer</source>
        <translation>任意(返信用)</translation>
    </message>
    <message>
        <source>Send version and desktop</source>
        <translation>バージョンとデスクトップを送信</translation>
    </message>
    <message>
        <source>Ctrl + Return</source>
        <translation>Ctrl + Return</translation>
    </message>
    <message>
        <source>&amp;Message:</source>
        <translation>メッセージ(&amp;M):</translation>
    </message>
    <message>
        <source>Mail &amp;address:</source>
        <translation>メールアドレス(&amp;A):</translation>
    </message>
    <message>
        <source>Only what you see here is sent, never a clip.</source>
        <translation>送信されるのはここに見えるものだけで、クリップは決して送信されません。</translation>
    </message>
    <message>
        <source>Add the &amp;line “%1”</source>
        <translation>「%1」の行を追加(&amp;L)</translation>
    </message>
</context>
<context>
    <name>FieldMenu</name>
    <message>
        <source>&amp;Copy</source>
        <translation>コピー(&amp;C)</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>すべてを選択(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>元に戻す(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>やり直す(&amp;R)</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>切り取り(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>貼り付け(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>削除(&amp;D)</translation>
    </message>
</context>
<context>
    <name>FileCard</name>
    <message>
        <source>Changed %1</source>
        <translation>変更日時: %1</translation>
    </message>
    <message>
        <source>Links to %1</source>
        <translation>リンク先: %1</translation>
    </message>
    <message>
        <source>File of an unknown kind</source>
        <translation>不明な種類のファイル</translation>
    </message>
    <message>
        <source>Created %1</source>
        <translation>作成日時: %1</translation>
    </message>
    <message>
        <source>The preview failed unexpectedly</source>
        <translation>プレビューが予期せず失敗しました</translation>
    </message>
    <message>
        <source>The preview took too long</source>
        <translation>プレビューに時間がかかりすぎました</translation>
    </message>
    <message>
        <source>The preview needed too much memory</source>
        <translation>プレビューに必要なメモリが多すぎました</translation>
    </message>
    <message>
        <source>No previews: they cannot be isolated here</source>
        <translation>プレビューなし：ここでは隔離できません</translation>
    </message>
    <message>
        <source>No previews: Quillmarsh is incomplete</source>
        <translation>プレビューなし：Quillmarsh が不完全です</translation>
    </message>
    <message>
        <source>Previews pause for a minute after failures</source>
        <translation>失敗が続いたため、プレビューを 1 分間休みます</translation>
    </message>
</context>
<context>
    <name>FileViewController</name>
    <message>
        <source>Open</source>
        <translation>開く</translation>
    </message>
    <message>
        <source>Reveal in File Manager</source>
        <translation>ファイルマネージャーで表示</translation>
    </message>
    <message>
        <source>The file no longer exists.</source>
        <translation>ファイルはもうありません。</translation>
    </message>
    <message>
        <source>File preview</source>
        <translation>ファイルのプレビュー</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files were copied; Return pastes the first</source>
        <translation>
            <numerusform>%Ln個のファイルがコピーされました。Enterキーで最初のファイルを貼り付けます</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>FontBody</name>
    <message>
        <source>Specimen of the font %1</source>
        <translation>フォント%1の見本</translation>
    </message>
</context>
<context>
    <name>FreedesktopNotifications</name>
    <message>
        <source>Open</source>
        <translation>開く</translation>
    </message>
</context>
<context>
    <name>GeneralPaneView</name>
    <message>
        <source>Open Quillmarsh at &amp;login</source>
        <translation>ログイン時にQuillmarshを開く(&amp;L)</translation>
    </message>
    <message>
        <source>Show &amp;notifications</source>
        <translation>通知を表示(&amp;N)</translation>
    </message>
    <message>
        <source>clips</source>
        <translation>件</translation>
    </message>
    <message>
        <source>Open at login</source>
        <translation>ログイン時に開く</translation>
    </message>
    <message>
        <source>Show notifications</source>
        <translation>通知を表示</translation>
    </message>
    <message>
        <source>Maximum number of items</source>
        <translation>項目の最大数</translation>
    </message>
    <message>
        <source>Maximum text size in bytes</source>
        <translation>テキストの最大サイズ(バイト)</translation>
    </message>
    <message>
        <source>Open history shortcut</source>
        <translation>履歴を開くショートカット</translation>
    </message>
    <message>
        <source>Swop shortcut</source>
        <translation>入れ替えのショートカット</translation>
    </message>
    <message>
        <source>The stored size cannot be used. No clip is removed until you choose one.</source>
        <translation>保存されているサイズは使えません。選び直すまでクリップは削除されません。</translation>
    </message>
    <message>
        <source>The stored size is larger than this slider reaches. It holds until you move the slider.</source>
        <translation>保存されているサイズはこのスライダーの範囲を超えています。動かすまで有効です。</translation>
    </message>
    <message>
        <source>The oldest clip will be removed when you leave this page.</source>
        <translation>このページを離れると、最も古いクリップが削除されます。</translation>
    </message>
    <message numerus="yes">
        <source>The %Ln oldest clips will be removed when you leave this page.</source>
        <translation>
            <numerusform>このページを離れると、古いものから%Ln件のクリップが削除されます。</numerusform>
        </translation>
    </message>
    <message>
        <source>When the history is full, each new copy replaces the oldest clip.</source>
        <translation>履歴がいっぱいになると、新しいコピーが最も古いクリップと入れ替わります。</translation>
    </message>
    <message>
        <source>Nothing is recorded.</source>
        <translation>何も記録されません。</translation>
    </message>
    <message>
        <source>Still waiting for a key. A combination that the desktop keeps for itself never gets here; choose another one.</source>
        <translation>キーを待っています。デスクトップが専有する組み合わせはここに届きません。別の組み合わせを選んでください。</translation>
    </message>
    <message>
        <source>Swop pastes a clip over the selected text and keeps that text as the newest clip.</source>
        <translation>入れ替えは、選択したテキストの上にクリップを貼り付け、元のテキストを最新のクリップとして残します。</translation>
    </message>
    <message>
        <source>Start-up:</source>
        <translation>起動:</translation>
    </message>
    <message>
        <source>Messages:</source>
        <translation>メッセージ:</translation>
    </message>
    <message>
        <source>Tell you when a copy was too large to be recorded. Turned off, they stay off until Quillmarsh quits.</source>
        <translation>コピーが大きすぎて記録できなかったときにお知らせします。オフにすると、Quillmarshを終了するまでオフのままです。</translation>
    </message>
    <message>
        <source>&amp;History size:</source>
        <translation>履歴のサイズ(&amp;H):</translation>
    </message>
    <message>
        <source>Largest &amp;text:</source>
        <translation>テキストの上限(&amp;T):</translation>
    </message>
    <message>
        <source>bytes</source>
        <translation>バイト</translation>
    </message>
    <message>
        <source>A longer copy is not recorded.</source>
        <translation>これより長いコピーは記録されません。</translation>
    </message>
    <message>
        <source>&amp;Open history:</source>
        <translation>履歴を開く(&amp;O):</translation>
    </message>
    <message>
        <source>S&amp;wop:</source>
        <translation>入れ替え(&amp;W):</translation>
    </message>
    <message>
        <source>The desktop’s list of start-up programs could not be written.</source>
        <translation>デスクトップの自動起動リストに書き込めませんでした。</translation>
    </message>
    <message>
        <source>Switched off in the desktop’s own list. Tick it anew to switch it on.</source>
        <translation>デスクトップの一覧でオフになっています。チェックし直すとオンになります。</translation>
    </message>
    <message>
        <source>Missing in the desktop’s own list. Tick it anew to put it there.</source>
        <translation>デスクトップの一覧にありません。チェックし直すと追加されます。</translation>
    </message>
    <message>
        <source>The desktop opens it all the same.</source>
        <translation>それでもデスクトップが開きます。</translation>
    </message>
    <message>
        <source>A shortcut needs Ctrl or Super with another key, or is a function key.</source>
        <translation>ショートカットには Ctrl か Super とほかのキーの組み合わせ、またはファンクションキーが必要です。</translation>
    </message>
    <message>
        <source>Have the desktop’s configuration run these commands for keys of your choice.</source>
        <translation>デスクトップの設定で、お好みのキーからこれらのコマンドを実行するようにしてください。</translation>
    </message>
    <message>
        <source>Add these lines to the desktop’s configuration, with other keys if you like.</source>
        <translation>これらの行をデスクトップの設定に追加してください。キーは変えてもかまいません。</translation>
    </message>
    <message>
        <source>Pictures:</source>
        <translation>画像:</translation>
    </message>
    <message>
        <source>MB at most</source>
        <translation>MBまで</translation>
    </message>
    <message>
        <source>Copies of nothing but a picture, as files in the data folder.</source>
        <translation>画像だけのコピーを、データフォルダーにファイルとして残します。</translation>
    </message>
</context>
<context>
    <name>GlobalShortcuts</name>
    <message>
        <source>Cut</source>
        <translation>切り取り</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>貼り付け</translation>
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
        <translation>削除しました · Ctrl+Z で元に戻せます</translation>
    </message>
    <message numerus="yes">
        <source>%Ln deleted clips did not fit: the history keeps %1 at most</source>
        <translation>
            <numerusform>削除した %Ln 件のクリップは入りませんでした: 履歴に残せるのは %1 件までです</numerusform>
        </translation>
    </message>
    <message>
        <source>Deleted for good · too large for Ctrl+Z</source>
        <translation>完全に削除しました · 大きすぎて Ctrl+Z では戻せません</translation>
    </message>
    <message>
        <source>Deleted · Ctrl+Z brings back all but the largest pictures</source>
        <translation>削除しました · Ctrl+Z で最も大きい画像以外を元に戻せます</translation>
    </message>
</context>
<context>
    <name>HistoryNotices</name>
    <message numerus="yes">
        <source>A copy of %Ln bytes was not recorded; the limit is %1</source>
        <translation>
            <numerusform>%Lnバイトのコピーは記録されませんでした。上限は%1です</numerusform>
        </translation>
    </message>
    <message>
        <source>A copy was not recorded; it is larger than the limit of %1 bytes</source>
        <translation>コピーは記録されませんでした。上限の%1バイトを超えています</translation>
    </message>
    <message>
        <source>The copied picture is replaced</source>
        <translation>コピーした画像は置き換えられました</translation>
    </message>
    <message>
        <source>What was copied is replaced</source>
        <translation>コピーした内容は置き換えられました</translation>
    </message>
</context>
<context>
    <name>HttpsExchange</name>
    <message>
        <source>The server redirects to an address that is not secure.</source>
        <translation>サーバーが安全でないアドレスへ転送しようとしました。</translation>
    </message>
    <message>
        <source>The server could not prove who it is, or the connection is not secure.</source>
        <translation>サーバーの身元を確認できないか、接続が安全ではありません。</translation>
    </message>
    <message>
        <source>The server %1 was not found. Are you connected to the internet?</source>
        <translation>サーバー%1が見つかりません。インターネットに接続していますか?</translation>
    </message>
    <message>
        <source>The server %1 cannot be reached.</source>
        <translation>サーバー%1に接続できません。</translation>
    </message>
    <message>
        <source>The server ended the connection.</source>
        <translation>サーバーが接続を切断しました。</translation>
    </message>
    <message>
        <source>The server does not have the file.</source>
        <translation>サーバーにファイルがありません。</translation>
    </message>
    <message>
        <source>The server answered with error %1.</source>
        <translation>サーバーがエラー%1を返しました。</translation>
    </message>
    <message>
        <source>The connection failed: %1.</source>
        <translation>接続に失敗しました: %1。</translation>
    </message>
    <message>
        <source>The server took too long to answer.</source>
        <translation>サーバーの応答に時間がかかりすぎました。</translation>
    </message>
    <message>
        <source>The address is not a secure one (https).</source>
        <translation>アドレスが安全なもの(https)ではありません。</translation>
    </message>
    <message>
        <source>The server sends more than was announced.</source>
        <translation>サーバーが予告より多くのデータを送信しています。</translation>
    </message>
    <message>
        <source>The server answered with status %1.</source>
        <translation>サーバーがステータス%1を返しました。</translation>
    </message>
    <message>
        <source>The server stopped answering.</source>
        <translation>サーバーが応答しなくなりました。</translation>
    </message>
</context>
<context>
    <name>IgnoredApplicationsModel</name>
    <message>
        <source>%1 (recognised by this name only)</source>
        <translation>%1（この名前だけで識別）</translation>
    </message>
</context>
<context>
    <name>ImageBody</name>
    <message>
        <source>Picture</source>
        <translation>画像</translation>
    </message>
</context>
<context>
    <name>Installation</name>
    <message>
        <source>Quillmarsh was installed by your system&apos;s package manager, which also updates it.</source>
        <translation>Quillmarshはシステムのパッケージマネージャーでインストールされており、更新もそこから行われます。</translation>
    </message>
    <message>
        <source>Quillmarsh was not installed in a way that it could update itself. Updates come from where you got it.</source>
        <translation>このQuillmarshは自分で更新できる形でインストールされていません。入手元から更新してください。</translation>
    </message>
    <message>
        <source>The folder %1 cannot be written to.</source>
        <translation>フォルダー%1に書き込めません。</translation>
    </message>
    <message>
        <source>%1 was replaced while Quillmarsh was running. Restart Quillmarsh to use what is there now.</source>
        <translation>Quillmarshの実行中に%1が置き換えられました。現在のものを使うには、Quillmarshを再起動してください。</translation>
    </message>
</context>
<context>
    <name>IssueReportDialog</name>
    <message>
        <source>Show &amp;Report</source>
        <translation>レポートを表示(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Do Not Send</source>
        <translation>送信しない(&amp;D)</translation>
    </message>
    <message>
        <source>Problem Report</source>
        <translation>問題のレポート</translation>
    </message>
    <message>
        <source>Quillmarsh ended unexpectedly</source>
        <translation>Quillmarshが予期せず終了しました</translation>
    </message>
    <message>
        <source>May the report be sent, so that the fault can be found? It says which version failed, how, and at which place in the program. It holds no clip and no other text of yours. If you do not send it, it is deleted.</source>
        <translation>不具合の原因を見つけるため、レポートを送信してもよろしいですか? レポートには、バージョン、状況、プログラム内の場所だけが書かれています。クリップやその他の文章は含まれません。送信しない場合は削除されます。</translation>
    </message>
    <message>
        <source>Report</source>
        <translation>レポート</translation>
    </message>
    <message>
        <source>Hide &amp;Report</source>
        <translation>レポートを隠す(&amp;R)</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Sending…</source>
        <translation>送信中…</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>%1 The report is kept, and you will be asked at the next start.</source>
        <translation>%1レポートは保存され、次回起動時に再び確認します。</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>再試行</translation>
    </message>
</context>
<context>
    <name>ListBody</name>
    <message>
        <source>1 entry</source>
        <translation>1項目</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1、%2</translation>
    </message>
    <message>
        <source>%1, %2 or more</source>
        <translation>%1、%2以上</translation>
    </message>
    <message>
        <source>Entries</source>
        <translation>項目</translation>
    </message>
    <message numerus="yes">
        <source>%Ln entries</source>
        <translation>
            <numerusform>%Ln項目</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MASShortcut</name>
    <message>
        <source>Space</source>
        <translation>スペース</translation>
    </message>
</context>
<context>
    <name>MASShortcutValidator</name>
    <message>
        <source>This combination cannot be used because it is already used by a system-wide keyboard shortcut.
If you really want to use this key combination, most shortcuts can be changed in the Keyboard &amp; Mouse panel in System Preferences.</source>
        <translation>この組み合わせは、システム全体のキーボードショートカットで使われているため使用できません。
どうしても使いたい場合は、システム環境設定の「キーボード &amp; マウス」でほとんどのショートカットを変更できます。</translation>
    </message>
    <message>
        <source>This shortcut cannot be used because it is already used by the menu item ‘%1’.</source>
        <translation>このショートカットは、メニュー項目「%1」で使われているため使用できません。</translation>
    </message>
</context>
<context>
    <name>MASShortcutView</name>
    <message>
        <source>Shortcut</source>
        <translation>ショートカット</translation>
    </message>
    <message>
        <source>The key combination %1 cannot be used</source>
        <translation>キーの組み合わせ%1は使用できません</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Record Shortcut</source>
        <translation>ショートカットを記録</translation>
    </message>
    <message>
        <source>Use Old Shortcut</source>
        <translation>元のショートカットを使う</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Type New Shortcut</source>
        <translation>新しいキーを押してください</translation>
    </message>
    <message>
        <source>Type Shortcut</source>
        <translation>キーを押してください</translation>
    </message>
    <message>
        <source>Delete shortcut</source>
        <translation>ショートカットを削除</translation>
    </message>
    <message>
        <source>Click to record new shortcut</source>
        <translation>クリックして新しいショートカットを記録</translation>
    </message>
</context>
<context>
    <name>MailHandOver</name>
    <message>
        <source>(Please attach the file %1)</source>
        <translation>(ファイル%1を添付してください)</translation>
    </message>
</context>
<context>
    <name>MovingIn</name>
    <message numerus="yes">
        <source>&amp;Bring along the newest %Ln clips of %1</source>
        <translation>
            <numerusform>%1 の最新のクリップ %Ln 件を引き継ぐ(&amp;B)</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>&amp;Bring along %Ln clips of %1</source>
        <translation>
            <numerusform>%1 のクリップ %Ln 件を引き継ぐ(&amp;B)</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PathLabel</name>
    <message>
        <source>Path of the file</source>
        <translation>ファイルのパス</translation>
    </message>
</context>
<context>
    <name>PdfBody</name>
    <message numerus="yes">
        <source>Document of %n pages</source>
        <translation>
            <numerusform>%nページの文書</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PictureChoice</name>
    <message>
        <source>&amp;Keep copied pictures</source>
        <translation>コピーした画像を残す(&amp;K)</translation>
    </message>
    <message>
        <source>Keep copied pictures</source>
        <translation>コピーした画像を残す</translation>
    </message>
    <message>
        <source>Maximum picture size in megabytes</source>
        <translation>画像の最大サイズ(メガバイト)</translation>
    </message>
</context>
<context>
    <name>PortalHotKeys</name>
    <message>
        <source>No keys</source>
        <translation>キーなし</translation>
    </message>
</context>
<context>
    <name>PreferencesApplicationViewController</name>
    <message>
        <source>Applications</source>
        <translation>アプリケーション</translation>
    </message>
</context>
<context>
    <name>PreferencesGeneralViewController</name>
    <message>
        <source>General</source>
        <translation>一般</translation>
    </message>
    <message>
        <source>No limit</source>
        <translation>制限なし</translation>
    </message>
    <message>
        <source>Show clipboard history</source>
        <translation>クリップボード履歴を表示</translation>
    </message>
    <message>
        <source>Swop selection with a clip</source>
        <translation>選択範囲をクリップと入れ替える</translation>
    </message>
</context>
<context>
    <name>SearchField</name>
    <message>
        <source>Search clips</source>
        <translation>クリップを検索</translation>
    </message>
    <message>
        <source>Clear search</source>
        <translation>検索をクリア</translation>
    </message>
    <message>
        <source>Pinned clips only</source>
        <translation>固定したクリップのみ</translation>
    </message>
    <message>
        <source>Pinned clips only (Ctrl+Shift+D)</source>
        <translation>固定したクリップのみ (Ctrl+Shift+D)</translation>
    </message>
    <message>
        <source>Search pinned clips</source>
        <translation>固定したクリップを検索</translation>
    </message>
</context>
<context>
    <name>ShortcutNote</name>
    <message>
        <source>Used by another program</source>
        <translation>別のプログラムが使用中です</translation>
    </message>
    <message>
        <source>Used by the other shortcut</source>
        <translation>もう一方のショートカットが使用中です</translation>
    </message>
    <message>
        <source>Not possible as a shortcut</source>
        <translation>ショートカットにはできません</translation>
    </message>
    <message>
        <source>%1 in the desktop’s settings</source>
        <translation>デスクトップの設定では %1</translation>
    </message>
</context>
<context>
    <name>StatusMenu</name>
    <message>
        <source>Check For Updates...</source>
        <translation>アップデートを確認...</translation>
    </message>
    <message>
        <source>Preferences...</source>
        <translation>環境設定...</translation>
    </message>
    <message>
        <source>Launch...</source>
        <translation>履歴を開く...</translation>
    </message>
    <message>
        <source>Clear All</source>
        <translation>すべて消去</translation>
    </message>
    <message>
        <source>Help...</source>
        <translation>ヘルプ...</translation>
    </message>
    <message>
        <source>Send Feedback...</source>
        <translation>フィードバックを送信...</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>終了</translation>
    </message>
    <message>
        <source>Allow Recording...</source>
        <translation>記録を許可...</translation>
    </message>
</context>
<context>
    <name>SwopPicture</name>
    <message>
        <source>Monday</source>
        <translation>月曜日</translation>
    </message>
    <message>
        <source>Thursday</source>
        <translation>木曜日</translation>
    </message>
    <message>
        <source>at half past two</source>
        <translation>2時半に</translation>
    </message>
    <message>
        <source>Reed Lane 7</source>
        <translation>葦の小道7番地</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>前</translation>
    </message>
    <message>
        <source>After</source>
        <translation>後</translation>
    </message>
    <message>
        <source>See you on</source>
        <translation>次は</translation>
    </message>
    <message>
        <source>by the old mill.</source>
        <translation>古い水車小屋で。</translation>
    </message>
</context>
<context>
    <name>TextBody</name>
    <message>
        <source>… the file goes on</source>
        <translation>…ファイルは続きます</translation>
    </message>
    <message>
        <source>Beginning of the text</source>
        <translation>テキストの冒頭</translation>
    </message>
</context>
<context>
    <name>TourGuide</name>
    <message>
        <source>Find</source>
        <translation>探す</translation>
    </message>
    <message>
        <source>Start typing as soon as the window opens. * stands for any text, ? for one character, and file: lists copied files.</source>
        <translation>ウィンドウが開いたらすぐに入力できます。* は任意の文字列、? は1文字、file: はコピーしたファイルを表します。</translation>
    </message>
    <message>
        <source>Choose</source>
        <translation>選ぶ</translation>
    </message>
    <message>
        <source>Your copies, newest first. Move with the arrow keys, or press the open shortcut again to step down.</source>
        <translation>コピーが新しい順に並びます。矢印キーで移動するか、開くショートカットをもう一度押すと下へ進みます。</translation>
    </message>
    <message>
        <source>Look</source>
        <translation>見る</translation>
    </message>
    <message>
        <source>The whole clip, or the copied file itself, before you paste it.</source>
        <translation>貼り付ける前に、クリップの全文やコピーしたファイルそのものを確認できます。</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>貼り付ける</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Return</translation>
    </message>
    <message>
        <source>paste</source>
        <translation>貼り付け</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Shift</translation>
    </message>
    <message>
        <source>UPPER CASE</source>
        <translation>大文字で</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>lower case</source>
        <translation>小文字で</translation>
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
        <translation>削除</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1/%2</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>次へ</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>完了</translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation>Ctrl</translation>
    </message>
    <message>
        <source>plain text</source>
        <translation>書式なしで</translation>
    </message>
    <message>
        <source>rows 1 to 10</source>
        <translation>1～10行目</translation>
    </message>
</context>
<context>
    <name>TraylessHint</name>
    <message>
        <source>Quillmarsh is running</source>
        <translation>Quillmarshは起動しています</translation>
    </message>
    <message>
        <source>Press %1 to open the history, or start Quillmarsh again.</source>
        <translation>%1を押すか、もう一度Quillmarshを起動すると履歴が開きます。</translation>
    </message>
    <message>
        <source>Start Quillmarsh again to open the history.</source>
        <translation>もう一度Quillmarshを起動すると履歴が開きます。</translation>
    </message>
</context>
<context>
    <name>UpdateDownload</name>
    <message>
        <source>There is no place to download to.</source>
        <translation>ダウンロード先がありません。</translation>
    </message>
    <message>
        <source>The server has another file than before. Try again.</source>
        <translation>サーバーのファイルが前と異なります。もう一度お試しください。</translation>
    </message>
    <message>
        <source>The server sends more than was announced.</source>
        <translation>サーバーが予告より多くのデータを送信しています。</translation>
    </message>
    <message>
        <source>The download could not be written: %1.</source>
        <translation>ダウンロードを書き込めませんでした: %1。</translation>
    </message>
    <message>
        <source>The server sent less than was announced.</source>
        <translation>サーバーから届いたデータが予告より少ないです。</translation>
    </message>
</context>
<context>
    <name>UpdateFeed</name>
    <message>
        <source>The list of updates cannot be used.</source>
        <translation>アップデートの一覧を使用できません。</translation>
    </message>
    <message>
        <source>It is not a list of updates.</source>
        <translation>アップデートの一覧ではありません。</translation>
    </message>
    <message>
        <source>Version %1 has no file.</source>
        <translation>バージョン%1にはファイルがありません。</translation>
    </message>
    <message>
        <source>It is too long.</source>
        <translation>長すぎます。</translation>
    </message>
    <message>
        <source>It is damaged in line %1.</source>
        <translation>%1行目が壊れています。</translation>
    </message>
    <message>
        <source>It offers a version that is not a number: “%1”.</source>
        <translation>番号ではないバージョンが示されています: 「%1」。</translation>
    </message>
    <message>
        <source>Version %1 has no known channel.</source>
        <translation>バージョン%1のチャンネルは不明です。</translation>
    </message>
    <message>
        <source>Version %1 asks for an unknown system.</source>
        <translation>バージョン%1は不明なシステムを要求しています。</translation>
    </message>
    <message>
        <source>Version %1 is not at a secure address (https).</source>
        <translation>バージョン%1は安全なアドレス(https)にありません。</translation>
    </message>
    <message>
        <source>Version %1 has no possible size.</source>
        <translation>バージョン%1のサイズがあり得ない値です。</translation>
    </message>
    <message>
        <source>Version %1 is not signed.</source>
        <translation>バージョン%1は署名されていません。</translation>
    </message>
    <message>
        <source>Version %1 has an impossible name.</source>
        <translation>バージョン%1の名前があり得ない値です。</translation>
    </message>
</context>
<context>
    <name>UpdateInstaller</name>
    <message>
        <source>There is not enough room on the disk.</source>
        <translation>ディスクの空き容量が足りません。</translation>
    </message>
    <message>
        <source>The update could not be put in its place: %1.</source>
        <translation>アップデートを配置できませんでした: %1。</translation>
    </message>
    <message>
        <source>The downloaded file is gone.</source>
        <translation>ダウンロードしたファイルがなくなりました。</translation>
    </message>
    <message>
        <source>The downloaded file has not the size that was announced.</source>
        <translation>ダウンロードしたファイルのサイズが予告と異なります。</translation>
    </message>
    <message>
        <source>The signature of the downloaded file is not the publisher&apos;s. It was not installed.</source>
        <translation>ダウンロードしたファイルの署名が発行元のものではないため、インストールしませんでした。</translation>
    </message>
    <message>
        <source>The update was cancelled.</source>
        <translation>アップデートはキャンセルされました。</translation>
    </message>
    <message>
        <source>The update could not be written correctly.</source>
        <translation>アップデートを正しく書き込めませんでした。</translation>
    </message>
    <message>
        <source>This version is installed already. It starts the next time.</source>
        <translation>このバージョンはインストール済みです。次回から起動します。</translation>
    </message>
    <message>
        <source>The update holds no program.</source>
        <translation>アップデートにプログラムが含まれていません。</translation>
    </message>
    <message>
        <source>Version %1 is running. Quit it first.</source>
        <translation>バージョン%1が実行中です。先に終了してください。</translation>
    </message>
</context>
<context>
    <name>UpdateRun</name>
    <message>
        <source>Another update of Quillmarsh is under way.</source>
        <translation>別のQuillmarshのアップデートが進行中です。</translation>
    </message>
    <message>
        <source>Signatures cannot be checked, so nothing is installed.</source>
        <translation>署名を確認できないため、何もインストールしません。</translation>
    </message>
</context>
<context>
    <name>UpdateWindow</name>
    <message>
        <source>Look for updates once a &amp;day</source>
        <translation>1日1回アップデートを確認(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Skip This Version</source>
        <translation>このバージョンをスキップ(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>後で(&amp;L)</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>&amp;Install</source>
        <translation>インストール(&amp;I)</translation>
    </message>
    <message>
        <source>Software Update</source>
        <translation>ソフトウェアアップデート</translation>
    </message>
    <message>
        <source>Release notes</source>
        <translation>リリースノート</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>コマンド</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>進行状況</translation>
    </message>
    <message>
        <source>Looking for updates…</source>
        <translation>アップデートを確認中…</translation>
    </message>
    <message>
        <source>You have the newest version</source>
        <translation>最新バージョンです</translation>
    </message>
    <message>
        <source>%1 %2 is up to date.</source>
        <translation>%1 %2は最新です。</translation>
    </message>
    <message>
        <source>%1 %2 is available</source>
        <translation>%1 %2が利用できます</translation>
    </message>
    <message>
        <source>You have version %1. %2 restarts when the update is installed; your history and your settings stay as they are.</source>
        <translation>現在のバージョンは%1です。アップデート後に%2は再起動します。履歴と設定はそのまま残ります。</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1/%2</translation>
    </message>
    <message>
        <source>Downloading the update</source>
        <translation>アップデートをダウンロード中</translation>
    </message>
    <message>
        <source>Installing the update</source>
        <translation>アップデートをインストール中</translation>
    </message>
    <message>
        <source>Its signature is checked first.</source>
        <translation>まず署名を確認します。</translation>
    </message>
    <message>
        <source>The update is installed</source>
        <translation>アップデートをインストールしました</translation>
    </message>
    <message>
        <source>%1 uses it from its next start.</source>
        <translation>%1は次回の起動からこれを使用します。</translation>
    </message>
    <message>
        <source>%1 could not be updated</source>
        <translation>%1を更新できませんでした</translation>
    </message>
    <message>
        <source>%1 does not update itself here</source>
        <translation>ここでは%1は自分で更新されません</translation>
    </message>
    <message>
        <source>Version %1 needs a newer system</source>
        <translation>バージョン%1にはより新しいシステムが必要です</translation>
    </message>
    <message>
        <source>%1 %2 is the newest version that this system can run.</source>
        <translation>%1 %2は、このシステムで動作する最新のバージョンです。</translation>
    </message>
</context>
<context>
    <name>ViewController</name>
    <message>
        <source>%1 of %2: %3</source>
        <translation>%1/%2: %3</translation>
    </message>
    <message>
        <source>Swop: no selection is held, so the clip is only pasted</source>
        <translation>入れ替え: 選択範囲は保持されていないため、クリップを貼り付けるだけです</translation>
    </message>
    <message>
        <source>Swop: the selection of %1 is held</source>
        <translation>入れ替え: %1 の選択範囲を保持しています</translation>
    </message>
    <message>
        <source>Swop: the selection is held</source>
        <translation>入れ替え: 選択範囲を保持しています</translation>
    </message>
    <message>
        <source>Nothing is recorded: the history cannot be written</source>
        <translation>何も記録されません：履歴に書き込めません</translation>
    </message>
    <message>
        <source>%1 of %2, pinned: %3</source>
        <translation>%2 件中 %1 件目、固定: %3</translation>
    </message>
</context>
<context>
    <name>WelcomePage1Controller</name>
    <message>
        <source>Everything you copy, at hand</source>
        <translation>コピーしたものをいつでも手元に</translation>
    </message>
    <message>
        <source>Quillmarsh keeps each text and each file you copy, and pastes any of them again wherever you are typing.</source>
        <translation>Quillmarshは、コピーしたテキストやファイルをすべて保存し、入力中の場所にいつでも貼り付けます。</translation>
    </message>
    <message>
        <source>Open Quillmarsh at &amp;login</source>
        <translation>ログイン時にQuillmarshを開く(&amp;L)</translation>
    </message>
    <message>
        <source>Check for &amp;updates</source>
        <translation>アップデートを確認(&amp;U)</translation>
    </message>
    <message>
        <source>Open at login</source>
        <translation>ログイン時に開く</translation>
    </message>
    <message>
        <source>Check for updates</source>
        <translation>アップデートを確認</translation>
    </message>
    <message>
        <source>Have the &amp;desktop ask when I go on</source>
        <translation>次へ進むときにデスクトップに確認させる(&amp;D)</translation>
    </message>
</context>
<context>
    <name>WelcomePages</name>
    <message>
        <source>opens the history over any application</source>
        <translation>どのアプリケーション上でも履歴を開きます</translation>
    </message>
    <message>
        <source>typing narrows it: part of a word is enough</source>
        <translation>入力すると絞り込みます。単語の一部で十分です</translation>
    </message>
    <message>
        <source>choose a clip</source>
        <translation>クリップを選びます</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Return</translation>
    </message>
    <message>
        <source>pastes it where you were typing</source>
        <translation>入力していた場所に貼り付けます</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Shift</translation>
    </message>
    <message>
        <source>pastes it IN UPPER CASE</source>
        <translation>大文字（ABC）にして貼り付けます</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>pastes it in lower case</source>
        <translation>小文字（abc）にして貼り付けます</translation>
    </message>
    <message>
        <source>Open, find, paste</source>
        <translation>開く、探す、貼り付ける</translation>
    </message>
    <message>
        <source>Your hands stay on the keyboard, and the text goes into the window you came from.</source>
        <translation>キーボードから手を離さずに、元のウィンドウへテキストが入ります。</translation>
    </message>
    <message>
        <source>Swop a selection for a clip</source>
        <translation>選択範囲とクリップを入れ替える</translation>
    </message>
    <message>
        <source>Select a text, press the keys, choose a clip. The clip takes the selection’s place, and the selection becomes your newest clip.</source>
        <translation>テキストを選択し、キーを押し、クリップを選びます。クリップが選択範囲に入り、選択していたテキストは最新のクリップになります。</translation>
    </message>
    <message>
        <source>The history is one file that only you can read, in
%1.</source>
        <translation>履歴はあなただけが読める1つのファイルです。場所:
%1</translation>
    </message>
    <message>
        <source>Never recorded: what a password manager marks as secret, and copies from the applications that you list in Preferences.</source>
        <translation>記録されないもの: パスワードマネージャーが秘密と印を付けたものと、環境設定で指定したアプリケーションからのコピー。</translation>
    </message>
    <message>
        <source>To delete a clip for good, press Super + Backspace in the history. To delete them all, choose “Clear All” in the menu.</source>
        <translation>クリップを完全に削除するには、履歴でSuper + Backspaceを押します。すべて削除するには、メニューの「すべて消去」を選びます。</translation>
    </message>
    <message>
        <source>Yours alone</source>
        <translation>あなただけのもの</translation>
    </message>
    <message>
        <source>Your clips never leave this computer.</source>
        <translation>クリップがこのコンピューターの外に出ることはありません。</translation>
    </message>
    <message>
        <source>(turned off)</source>
        <translation>（オフ）</translation>
    </message>
</context>
<context>
    <name>WelcomeWindow</name>
    <message>
        <source>Welcome to Quillmarsh</source>
        <translation>Quillmarshへようこそ</translation>
    </message>
</context>
<context>
    <name>WelcomeWindowController</name>
    <message>
        <source>Open your history at any time: %1</source>
        <translation>いつでも履歴を開けます: %1</translation>
    </message>
    <message>
        <source>Open your history at any time: %1. The default is %2.</source>
        <translation>いつでも履歴を開けます: %1。標準は%2です。</translation>
    </message>
    <message>
        <source>The shortcut that opens the history, by default %1, is turned off.</source>
        <translation>履歴を開くショートカット(標準は%1)はオフになっています。</translation>
    </message>
    <message>
        <source>This desktop lets no program set shortcuts. Preferences has the line that its configuration needs.</source>
        <translation>このデスクトップではプログラムがショートカットを設定できません。設定に加える行は環境設定にあります。</translation>
    </message>
</context>
<context>
    <name>WelcomeWindowView</name>
    <message>
        <source>Previous</source>
        <translation>戻る</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>次へ</translation>
    </message>
    <message>
        <source>Take the tour</source>
        <translation>ツアーを始める</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>完了</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>%1/%2ページ</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
</context>
</TS>
