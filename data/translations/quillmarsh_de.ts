<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AppDelegate</name>
    <message>
        <source>Nothing is recorded</source>
        <translation>Es wird nichts aufgezeichnet</translation>
    </message>
    <message>
        <source>The history in %1 cannot be written.</source>
        <translation>Der Verlauf in %1 lässt sich nicht schreiben.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln clips to be pasted</source>
        <translation>
            <numerusform>%Ln Clip einzufügen</numerusform>
            <numerusform>%Ln Clips einzufügen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln clips are still to be pasted; Esc ends that</source>
        <translation>
            <numerusform>%Ln Clip ist noch einzufügen; Esc beendet das</numerusform>
            <numerusform>%Ln Clips sind noch einzufügen; Esc beendet das</numerusform>
        </translation>
    </message>
    <message>
        <source>Ask the Desktop...</source>
        <translation>Den Desktop fragen …</translation>
    </message>
</context>
<context>
    <name>ApplicationChooser</name>
    <message>
        <source>&amp;Other…</source>
        <translation>&amp;Andere …</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>&amp;Choose</source>
        <translation>A&amp;uswählen</translation>
    </message>
    <message>
        <source>Choose Application</source>
        <translation>Anwendung auswählen</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtern</translation>
    </message>
    <message>
        <source>Filter applications</source>
        <translation>Anwendungen filtern</translation>
    </message>
    <message>
        <source>Applications</source>
        <translation>Anwendungen</translation>
    </message>
    <message>
        <source>“%1” is not an application.</source>
        <translation>„%1“ ist keine Anwendung.</translation>
    </message>
</context>
<context>
    <name>ApplicationsPaneView</name>
    <message>
        <source>%1 and %2</source>
        <translation>%1 und %2</translation>
    </message>
    <message>
        <source>Ignored applications</source>
        <translation>Ignorierte Anwendungen</translation>
    </message>
    <message>
        <source>Add application</source>
        <translation>Anwendung hinzufügen</translation>
    </message>
    <message>
        <source>Remove application</source>
        <translation>Anwendung entfernen</translation>
    </message>
    <message numerus="yes">
        <source>Ignore %Ln password managers</source>
        <translation>
            <numerusform>%Ln Passwortverwaltung ignorieren</numerusform>
            <numerusform>%Ln Passwortverwaltungen ignorieren</numerusform>
        </translation>
    </message>
    <message>
        <source>Ignore %1</source>
        <translation>%1 ignorieren</translation>
    </message>
    <message>
        <source>Add an application whose copies shall stay private.</source>
        <translation>Fügen Sie eine Anwendung hinzu, deren Kopien privat bleiben sollen.</translation>
    </message>
    <message>
        <source>What is copied from %1 is recorded like any other text. You may want to keep passwords out of the history.</source>
        <translation>Was aus %1 kopiert wird, wird wie jeder andere Text aufgezeichnet. Vielleicht möchten Sie Passwörter aus dem Verlauf heraushalten.</translation>
    </message>
    <message>
        <source>No application is ignored</source>
        <translation>Keine Anwendung wird ignoriert</translation>
    </message>
    <message>
        <source>What is copied while one of these applications is in front is never recorded.</source>
        <translation>Was kopiert wird, während eine dieser Anwendungen vorn ist, wird nie aufgezeichnet.</translation>
    </message>
</context>
<context>
    <name>ArchiveExtraction</name>
    <message>
        <source>There is not enough room on the disk.</source>
        <translation>Auf dem Datenträger ist nicht genug Platz.</translation>
    </message>
    <message>
        <source>A file could not be written: %1.</source>
        <translation>Eine Datei konnte nicht geschrieben werden: %1.</translation>
    </message>
    <message>
        <source>The update is damaged.</source>
        <translation>Die Aktualisierung ist beschädigt.</translation>
    </message>
    <message>
        <source>The update holds files that do not belong into it.</source>
        <translation>Die Aktualisierung enthält Dateien, die nicht hineingehören.</translation>
    </message>
    <message>
        <source>The update was cancelled.</source>
        <translation>Die Aktualisierung wurde abgebrochen.</translation>
    </message>
</context>
<context>
    <name>ByteCount</name>
    <message>
        <source>1 byte</source>
        <translation>1 Byte</translation>
    </message>
    <message>
        <source>bytes</source>
        <translation>Byte</translation>
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
        <translation>Einstellungen</translation>
    </message>
</context>
<context>
    <name>Capabilities</name>
    <message>
        <source>This desktop lets no program type, so clips are put on the clipboard only.</source>
        <translation>Dieser Desktop lässt kein Programm tippen; Clips kommen deshalb nur in die Zwischenablage.</translation>
    </message>
    <message>
        <source>KDE has not allowed Quillmarsh to type, so clips are put on the clipboard only.</source>
        <translation>KDE hat Quillmarsh nicht erlaubt zu tippen; Clips kommen deshalb nur in die Zwischenablage.</translation>
    </message>
    <message>
        <source>This desktop lets no program set shortcuts.</source>
        <translation>Dieser Desktop lässt kein Programm Kurzbefehle festlegen.</translation>
    </message>
    <message>
        <source>Have its configuration start Quillmarsh for a key.</source>
        <translation>Lassen Sie seine Konfiguration Quillmarsh auf einen Tastendruck starten.</translation>
    </message>
    <message>
        <source>Quillmarsh runs through Xwayland here and sees only what X11 applications copy.</source>
        <translation>Quillmarsh läuft hier über Xwayland und sieht nur, was X11-Anwendungen kopieren.</translation>
    </message>
    <message>
        <source>Install the package qt6-wayland, and start Quillmarsh again.</source>
        <translation>Installieren Sie das Paket qt6-wayland, und starten Sie Quillmarsh neu.</translation>
    </message>
    <message>
        <source>They may do nothing while a native Wayland window is in front.</source>
        <translation>Sie tun womöglich nichts, solange ein natives Wayland-Fenster vorn ist.</translation>
    </message>
    <message>
        <source>Have the desktop run “quillmarsh launch” for a key.</source>
        <translation>Lassen Sie den Desktop „quillmarsh launch“ auf einen Tastendruck ausführen.</translation>
    </message>
    <message>
        <source>Only X11 applications can be pasted into.</source>
        <translation>Eingefügt werden kann nur in X11-Anwendungen.</translation>
    </message>
    <message>
        <source>Install the package, or save these lines as ~/.local/share/applications/quillmarsh-program.desktop. Then start Quillmarsh again.</source>
        <translation>Installieren Sie das Paket, oder speichern Sie diese Zeilen als ~/.local/share/applications/quillmarsh-program.desktop. Starten Sie Quillmarsh dann neu.</translation>
    </message>
    <message>
        <source>Have Quillmarsh ask for it, and tick every box of the desktop’s question.</source>
        <translation>Lassen Sie Quillmarsh darum bitten, und kreuzen Sie in der Frage des Desktops alles an.</translation>
    </message>
    <message>
        <source>This desktop lets a program see copies and paste only as remote control.</source>
        <translation>Dieser Desktop lässt ein Programm nur als Fernsteuerung sehen, was kopiert wird, und einfügen.</translation>
    </message>
    <message>
        <source>The desktop is asking whether Quillmarsh may.</source>
        <translation>Der Desktop fragt gerade, ob Quillmarsh das darf.</translation>
    </message>
    <message>
        <source>The desktop’s question was answered with no.</source>
        <translation>Die Frage des Desktops wurde mit Nein beantwortet.</translation>
    </message>
    <message>
        <source>The remote control by Quillmarsh has been ended.</source>
        <translation>Die Fernsteuerung durch Quillmarsh wurde beendet.</translation>
    </message>
    <message>
        <source>The desktop’s portals do not answer, or do not offer remote control.</source>
        <translation>Die Portale des Desktops antworten nicht oder bieten keine Fernsteuerung.</translation>
    </message>
    <message>
        <source>Remote interaction was not allowed, so clips are put on the clipboard only.</source>
        <translation>Die Fernbedienung wurde nicht erlaubt; Clips kommen daher nur in die Zwischenablage.</translation>
    </message>
</context>
<context>
    <name>CapabilityTable</name>
    <message>
        <source>Recording:</source>
        <translation>Aufzeichnen:</translation>
    </message>
    <message>
        <source>Shortcuts:</source>
        <translation>Kurzbefehle:</translation>
    </message>
    <message>
        <source>Pasting:</source>
        <translation>Einfügen:</translation>
    </message>
    <message>
        <source>Window’s place:</source>
        <translation>Platz des Fensters:</translation>
    </message>
    <message>
        <source>works</source>
        <translation>funktioniert</translation>
    </message>
    <message>
        <source>needs a step of yours</source>
        <translation>Schritt nötig</translation>
    </message>
    <message>
        <source>withheld</source>
        <translation>verwehrt</translation>
    </message>
    <message>
        <source>Copy all lines for the configuration</source>
        <translation>Alle Zeilen für die Konfiguration kopieren</translation>
    </message>
    <message>
        <source>Have the Desktop &amp;Ask…</source>
        <translation>Arbeitsumgebung &amp;fragen lassen …</translation>
    </message>
</context>
<context>
    <name>ClipHistory</name>
    <message>
        <source>Picture %1 × %2</source>
        <translation>Bild %1 × %2</translation>
    </message>
</context>
<context>
    <name>ClipInfoLine</name>
    <message>
        <source>not pasted yet</source>
        <translation>noch nicht eingefügt</translation>
    </message>
    <message>
        <source>pasted once</source>
        <translation>einmal eingefügt</translation>
    </message>
    <message numerus="yes">
        <source>pasted %Ln times</source>
        <translation>
            <numerusform>%Ln-mal eingefügt</numerusform>
            <numerusform>%Ln-mal eingefügt</numerusform>
        </translation>
    </message>
    <message>
        <source>1 character</source>
        <translation>1 Zeichen</translation>
    </message>
    <message numerus="yes">
        <source>%Ln characters</source>
        <translation>
            <numerusform>%Ln Zeichen</numerusform>
            <numerusform>%Ln Zeichen</numerusform>
        </translation>
    </message>
    <message>
        <source>Copied on %1</source>
        <translation>Kopiert am %1</translation>
    </message>
    <message>
        <source>just now</source>
        <translation>gerade eben</translation>
    </message>
    <message>
        <source>1 minute ago</source>
        <translation>vor 1 Minute</translation>
    </message>
    <message numerus="yes">
        <source>%Ln minutes ago</source>
        <translation>
            <numerusform>vor %Ln Minute</numerusform>
            <numerusform>vor %Ln Minuten</numerusform>
        </translation>
    </message>
    <message>
        <source>1 hour ago</source>
        <translation>vor 1 Stunde</translation>
    </message>
    <message numerus="yes">
        <source>%Ln hours ago</source>
        <translation>
            <numerusform>vor %Ln Stunde</numerusform>
            <numerusform>vor %Ln Stunden</numerusform>
        </translation>
    </message>
    <message>
        <source>yesterday at %1</source>
        <translation>gestern um %1</translation>
    </message>
    <message numerus="yes">
        <source>%Ln days ago</source>
        <translation>
            <numerusform>vor %Ln Tag</numerusform>
            <numerusform>vor %Ln Tagen</numerusform>
        </translation>
    </message>
    <message>
        <source>d MMM yyyy</source>
        <translation>d. MMM yyyy</translation>
    </message>
    <message numerus="yes">
        <source>%Ln marked</source>
        <translation>
            <numerusform>%Ln markiert</numerusform>
            <numerusform>%Ln markiert</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ClipMenu</name>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message numerus="yes">
        <source>Paste all %Ln files</source>
        <translation>
            <numerusform>Alle %Ln Dateien einfügen</numerusform>
            <numerusform>Alle %Ln Dateien einfügen</numerusform>
        </translation>
    </message>
    <message>
        <source>Paste as Plain Text</source>
        <translation>Als reinen Text einfügen</translation>
    </message>
    <message>
        <source>Paste in Upper Case</source>
        <translation>In Großbuchstaben einfügen</translation>
    </message>
    <message>
        <source>Paste in Lower Case</source>
        <translation>In Kleinbuchstaben einfügen</translation>
    </message>
    <message>
        <source>Copy Without Pasting</source>
        <translation>Kopieren, ohne einzufügen</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Reveal in File Manager</source>
        <translation>In der Dateiverwaltung zeigen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Actions for the clip</source>
        <translation>Aktionen für den Clip</translation>
    </message>
    <message>
        <source>Unpin</source>
        <translation>Lösen</translation>
    </message>
    <message>
        <source>Pin</source>
        <translation>Anheften</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Rücktaste</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Super</translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation>Strg</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Umschalt</translation>
    </message>
</context>
<context>
    <name>ClipPaster</name>
    <message>
        <source>The clip is on the clipboard</source>
        <translation>Der Clip liegt in der Zwischenablage</translation>
    </message>
    <message>
        <source>The previous window could not be activated.</source>
        <translation>Das vorherige Fenster konnte nicht aktiviert werden.</translation>
    </message>
    <message>
        <source>File no longer exists</source>
        <translation>Datei existiert nicht mehr</translation>
    </message>
    <message>
        <source>The file no longer exists at the copied location.</source>
        <translation>Die Datei ist nicht mehr an dem Ort, von dem sie kopiert wurde.</translation>
    </message>
    <message>
        <source>The clip was not pasted</source>
        <translation>Der Clip wurde nicht eingefügt</translation>
    </message>
    <message>
        <source>The clipboard could not be written.</source>
        <translation>Die Zwischenablage konnte nicht beschrieben werden.</translation>
    </message>
    <message>
        <source>The replaced text is not on the clipboard</source>
        <translation>Der ersetzte Text liegt nicht in der Zwischenablage</translation>
    </message>
    <message>
        <source>What is selected in %1 cannot be copied safely. Paste the clip there yourself; the middle mouse button does it, too.</source>
        <translation>Was in %1 markiert ist, lässt sich nicht gefahrlos kopieren. Fügen Sie den Clip dort selbst ein; die mittlere Maustaste tut es auch.</translation>
    </message>
    <message>
        <source>No keys are known that paste into %1. Paste it there yourself; the middle mouse button does it, too.</source>
        <translation>Es sind keine Tasten bekannt, die in %1 einfügen. Fügen Sie ihn dort selbst ein; die mittlere Maustaste tut es auch.</translation>
    </message>
    <message>
        <source>this application</source>
        <translation>dieser Anwendung</translation>
    </message>
    <message>
        <source>%1 did not take the clip over to the computer that it shows, so nothing was pasted there. The middle mouse button pastes the clip, too.</source>
        <translation>%1 hat den Clip nicht auf den gezeigten Computer übernommen, darum wurde dort nichts eingefügt. Die mittlere Maustaste fügt den Clip ebenfalls ein.</translation>
    </message>
    <message>
        <source>A key was held down, so nothing was typed into %1. Paste it there yourself; the middle mouse button does it, too.</source>
        <translation>Eine Taste war gedrückt, deshalb wurde in %1 nichts getippt. Fügen Sie den Clip dort selbst ein; die mittlere Maustaste tut es auch.</translation>
    </message>
    <message>
        <source>Quillmarsh is not able to type into %1. Paste it there yourself; the middle mouse button does it, too.</source>
        <translation>Quillmarsh kann nicht in %1 tippen. Fügen Sie den Clip dort selbst ein; die mittlere Maustaste tut es auch.</translation>
    </message>
    <message>
        <source>The clip was not copied</source>
        <translation>Der Clip wurde nicht kopiert</translation>
    </message>
</context>
<context>
    <name>ClipRowDelegate</name>
    <message>
        <source>(blank)</source>
        <translation>(leer)</translation>
    </message>
</context>
<context>
    <name>ClipTableModel</name>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>%1 of %2, pinned</source>
        <translation>%1 von %2, angeheftet</translation>
    </message>
</context>
<context>
    <name>ClipTableView</name>
    <message>
        <source>Clips</source>
        <translation>Clips</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files</source>
        <translation>
            <numerusform>%Ln Datei</numerusform>
            <numerusform>%Ln Dateien</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ClipTextView</name>
    <message>
        <source>Clip text preview</source>
        <translation>Textvorschau des Clips</translation>
    </message>
    <message numerus="yes">
        <source>… and %Ln more characters, pasted in full</source>
        <translation>
            <numerusform>… und %Ln weiteres Zeichen; eingefügt wird alles</numerusform>
            <numerusform>… und %Ln weitere Zeichen; eingefügt wird alles</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ClipboardCapture</name>
    <message>
        <source>The copied text was not recorded</source>
        <translation>Der kopierte Text wurde nicht aufgezeichnet</translation>
    </message>
    <message>
        <source>The text is too large.</source>
        <translation>Der Text ist zu groß.</translation>
    </message>
    <message>
        <source>The copied picture was not kept</source>
        <translation>Das kopierte Bild wurde nicht behalten</translation>
    </message>
    <message>
        <source>The picture is too large.</source>
        <translation>Das Bild ist zu groß.</translation>
    </message>
</context>
<context>
    <name>ConfigurationLine</name>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
</context>
<context>
    <name>ConsentNotice</name>
    <message>
        <source>Nothing is recorded. %1</source>
        <translation>Es wird nichts aufgezeichnet. %1</translation>
    </message>
</context>
<context>
    <name>ConsentWords</name>
    <message>
        <source>This desktop shows copies to a program, and lets it paste, only as remote control. It asks you once: switch on “Allow Remote Interaction”, leave the other two on, and choose “Share”. A sharing sign then stays in the top bar; ending it there ends recording.</source>
        <translation>Diese Arbeitsumgebung zeigt einem Programm Kopien nur als Fernsteuerung und lässt es nur so einfügen. Sie fragt Sie einmal: Schalten Sie „Fernzugriff zulassen“ ein, lassen Sie die beiden anderen an und wählen Sie „Freigeben“. Danach bleibt ein Freigabezeichen in der oberen Leiste; wer es dort beendet, beendet das Aufzeichnen.</translation>
    </message>
</context>
<context>
    <name>DMHelperAppDelegate</name>
    <message>
        <source>Update in background</source>
        <translation>Im Hintergrund aktualisieren</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Updating process is in progress.</source>
        <translation>Die Aktualisierung läuft.</translation>
    </message>
    <message>
        <source>Main application bundle could not be located</source>
        <translation>Die Hauptanwendung wurde nicht gefunden</translation>
    </message>
    <message>
        <source>Main application is running. It should update itself.</source>
        <translation>Die Hauptanwendung läuft. Sie sollte sich selbst aktualisieren.</translation>
    </message>
</context>
<context>
    <name>DM_SUUpdater</name>
    <message>
        <source>This Quillmarsh has no address to look for updates at. Updates come from where you got it.</source>
        <translation>Dieses Quillmarsh kennt keine Adresse für Aktualisierungen. Sie kommen von dort, wo Sie es herhaben.</translation>
    </message>
</context>
<context>
    <name>DamagedSettingsQuestion</name>
    <message>
        <source>Your settings could not be read</source>
        <translation>Ihre Einstellungen konnten nicht gelesen werden</translation>
    </message>
    <message>
        <source>They were set aside beside %1. The list of ignored applications was among them, so nothing is recorded until you decide.</source>
        <translation>Sie wurden neben %1 beiseitegelegt. Die Liste der ignorierten Anwendungen gehörte dazu; deshalb wird nichts aufgezeichnet, bis Sie entscheiden.</translation>
    </message>
    <message>
        <source>Start with fresh settings</source>
        <translation>Mit neuen Einstellungen beginnen</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Damaged Settings</source>
        <translation>Beschädigte Einstellungen</translation>
    </message>
    <message>
        <source>Nothing is recorded: your settings could not be read, and the list of ignored applications was among them. Answer the question about them first.</source>
        <translation>Es wird nichts aufgezeichnet: Ihre Einstellungen konnten nicht gelesen werden, und die Liste der ignorierten Anwendungen gehörte dazu. Beantworten Sie zuerst die Frage danach.</translation>
    </message>
</context>
<context>
    <name>DesktopShortcut</name>
    <message>
        <source>Change in Settings…</source>
        <translation>In den Einstellungen ändern …</translation>
    </message>
</context>
<context>
    <name>EmptyStateView</name>
    <message>
        <source>Nothing copied yet</source>
        <translation>Noch nichts kopiert</translation>
    </message>
    <message>
        <source>Whatever you copy appears here.</source>
        <translation>Was Sie kopieren, erscheint hier.</translation>
    </message>
    <message>
        <source>Whatever you copy appears here.
Press %1 to come back to it.</source>
        <translation>Was Sie kopieren, erscheint hier.
Mit %1 kommen Sie darauf zurück.</translation>
    </message>
    <message>
        <source>Nothing matches “%1”</source>
        <translation>Nichts passt auf „%1“</translation>
    </message>
    <message>
        <source>* stands for any text and ? for one character;
file: lists copied files.</source>
        <translation>* steht für beliebigen Text und ? für ein Zeichen;
file: zeigt kopierte Dateien.</translation>
    </message>
    <message>
        <source>Nothing pinned yet</source>
        <translation>Noch nichts angeheftet</translation>
    </message>
    <message>
        <source>Ctrl+D pins the selected clip, so that it stays;
Ctrl+Shift+D lists all clips again.</source>
        <translation>Strg+D heftet den gewählten Clip an, damit er bleibt;
Strg+Umschalt+D zeigt wieder alle Clips.</translation>
    </message>
</context>
<context>
    <name>FeedbackDelivery</name>
    <message>
        <source>Sent. Thank you.</source>
        <translation>Gesendet. Vielen Dank.</translation>
    </message>
    <message>
        <source>No file could be written in %1.</source>
        <translation>In %1 konnte keine Datei geschrieben werden.</translation>
    </message>
    <message>
        <source>&amp;Send</source>
        <translation>&amp;Senden</translation>
    </message>
    <message>
        <source>&amp;Save and Mail…</source>
        <translation>&amp;Speichern und mailen …</translation>
    </message>
    <message>
        <source>This build knows no address to send to: the text is saved in %1, and your mail program opens so that you can attach it.</source>
        <translation>Diese Fassung kennt keine Adresse zum Senden: Der Text wird in %1 gespeichert, und Ihr Mailprogramm öffnet sich, damit Sie ihn anhängen können.</translation>
    </message>
    <message>
        <source>Saved as %1. Attach it to the mail that opens; if none does, send the file.</source>
        <translation>Als %1 gespeichert. Hängen Sie die Datei an die Mail an, die sich öffnet; öffnet sich keine, senden Sie die Datei.</translation>
    </message>
</context>
<context>
    <name>FeedbackDialog</name>
    <message>
        <source>Send Feedback</source>
        <translation>Rückmeldung senden</translation>
    </message>
    <message>
        <source>This has not been sent yet.</source>
        <translation>Dies wurde noch nicht gesendet.</translation>
    </message>
    <message>
        <source>Kept from last time.</source>
        <translation>Vom letzten Mal aufbewahrt.</translation>
    </message>
    <message>
        <source>The text cannot be kept for later. Copy it elsewhere; closing again discards it.</source>
        <translation>Der Text kann nicht aufbewahrt werden. Kopieren Sie ihn anderswohin; erneutes Schließen verwirft ihn.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>This does not look like a mail address.</source>
        <translation>Das sieht nicht nach einer Mailadresse aus.</translation>
    </message>
    <message>
        <source>Sending…</source>
        <translation>Wird gesendet …</translation>
    </message>
    <message>
        <source>%1 Your text is kept.</source>
        <translation>%1 Ihr Text bleibt erhalten.</translation>
    </message>
    <message>
        <source>Too long: %1 of at most %2 characters.</source>
        <translation>Zu lang: %1 von höchstens %2 Zeichen.</translation>
    </message>
</context>
<context>
    <name>FeedbackForm</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Nachricht</translation>
    </message>
    <message>
        <source>Mail address</source>
        <translation>Mailadresse</translation>
    </message>
    <message>
        <source>optional, for an answer</source>
        <translation>freiwillig, für eine Antwort</translation>
    </message>
    <message>
        <source>Send version and desktop</source>
        <translation>Version und Desktop senden</translation>
    </message>
    <message>
        <source>Ctrl + Return</source>
        <translation>Strg + Eingabe</translation>
    </message>
    <message>
        <source>&amp;Message:</source>
        <translation>&amp;Nachricht:</translation>
    </message>
    <message>
        <source>Mail &amp;address:</source>
        <translation>Mail&amp;adresse:</translation>
    </message>
    <message>
        <source>Only what you see here is sent, never a clip.</source>
        <translation>Gesendet wird nur, was Sie hier sehen, nie ein Clip.</translation>
    </message>
    <message>
        <source>Add the &amp;line “%1”</source>
        <translation>Die &amp;Zeile „%1“ anfügen</translation>
    </message>
</context>
<context>
    <name>FieldMenu</name>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>&amp;Alles auswählen</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
</context>
<context>
    <name>FileCard</name>
    <message>
        <source>Changed %1</source>
        <translation>Geändert %1</translation>
    </message>
    <message>
        <source>Links to %1</source>
        <translation>Verweist auf %1</translation>
    </message>
    <message>
        <source>File of an unknown kind</source>
        <translation>Datei unbekannter Art</translation>
    </message>
    <message>
        <source>Created %1</source>
        <translation>Erstellt %1</translation>
    </message>
    <message>
        <source>The preview failed unexpectedly</source>
        <translation>Die Vorschau ist unerwartet abgebrochen</translation>
    </message>
    <message>
        <source>The preview took too long</source>
        <translation>Die Vorschau hat zu lange gedauert</translation>
    </message>
    <message>
        <source>The preview needed too much memory</source>
        <translation>Die Vorschau brauchte zu viel Speicher</translation>
    </message>
    <message>
        <source>No previews: they cannot be isolated here</source>
        <translation>Keine Vorschau: Sie lässt sich hier nicht abschotten</translation>
    </message>
    <message>
        <source>No previews: Quillmarsh is incomplete</source>
        <translation>Keine Vorschau: Quillmarsh ist unvollständig</translation>
    </message>
    <message>
        <source>Previews pause for a minute after failures</source>
        <translation>Nach Fehlern pausiert die Vorschau eine Minute</translation>
    </message>
</context>
<context>
    <name>FileViewController</name>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Reveal in File Manager</source>
        <translation>In der Dateiverwaltung zeigen</translation>
    </message>
    <message>
        <source>The file no longer exists.</source>
        <translation>Die Datei existiert nicht mehr.</translation>
    </message>
    <message>
        <source>File preview</source>
        <translation>Dateivorschau</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files were copied; Return pastes the first</source>
        <translation>
            <numerusform>%Ln Datei wurde kopiert; die Eingabetaste fügt die erste ein</numerusform>
            <numerusform>%Ln Dateien wurden kopiert; die Eingabetaste fügt die erste ein</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>FontBody</name>
    <message>
        <source>Specimen of the font %1</source>
        <translation>Muster der Schrift %1</translation>
    </message>
</context>
<context>
    <name>FreedesktopNotifications</name>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
</context>
<context>
    <name>GeneralPaneView</name>
    <message>
        <source>Open Quillmarsh at &amp;login</source>
        <translation>Quillmarsh beim An&amp;melden öffnen</translation>
    </message>
    <message>
        <source>Show &amp;notifications</source>
        <translation>&amp;Benachrichtigungen zeigen</translation>
    </message>
    <message>
        <source>clips</source>
        <translation>Clips</translation>
    </message>
    <message>
        <source>Open at login</source>
        <translation>Beim Anmelden öffnen</translation>
    </message>
    <message>
        <source>Show notifications</source>
        <translation>Benachrichtigungen zeigen</translation>
    </message>
    <message>
        <source>Maximum number of items</source>
        <translation>Höchstzahl der Einträge</translation>
    </message>
    <message>
        <source>Maximum text size in bytes</source>
        <translation>Höchstgröße eines Textes in Byte</translation>
    </message>
    <message>
        <source>Open history shortcut</source>
        <translation>Kurzbefehl zum Öffnen des Verlaufs</translation>
    </message>
    <message>
        <source>Swop shortcut</source>
        <translation>Kurzbefehl zum Tauschen</translation>
    </message>
    <message>
        <source>The stored size cannot be used. No clip is removed until you choose one.</source>
        <translation>Die gespeicherte Größe ist unbrauchbar. Es wird kein Clip entfernt, bis Sie eine wählen.</translation>
    </message>
    <message>
        <source>The stored size is larger than this slider reaches. It holds until you move the slider.</source>
        <translation>Die gespeicherte Größe liegt über dem Bereich des Reglers. Sie gilt, bis Sie ihn bewegen.</translation>
    </message>
    <message>
        <source>The oldest clip will be removed when you leave this page.</source>
        <translation>Der älteste Clip wird entfernt, wenn Sie diese Seite verlassen.</translation>
    </message>
    <message numerus="yes">
        <source>The %Ln oldest clips will be removed when you leave this page.</source>
        <translation>
            <numerusform>Der älteste Clip (%Ln) wird entfernt, wenn Sie diese Seite verlassen.</numerusform>
            <numerusform>Die %Ln ältesten Clips werden entfernt, wenn Sie diese Seite verlassen.</numerusform>
        </translation>
    </message>
    <message>
        <source>When the history is full, each new copy replaces the oldest clip.</source>
        <translation>Ist der Verlauf voll, ersetzt jede neue Kopie den ältesten Clip.</translation>
    </message>
    <message>
        <source>Nothing is recorded.</source>
        <translation>Es wird nichts aufgezeichnet.</translation>
    </message>
    <message>
        <source>Still waiting for a key. A combination that the desktop keeps for itself never gets here; choose another one.</source>
        <translation>Es fehlt noch eine Taste. Eine Kombination, die der Desktop für sich behält, kommt hier nie an; wählen Sie eine andere.</translation>
    </message>
    <message>
        <source>Swop pastes a clip over the selected text and keeps that text as the newest clip.</source>
        <translation>Tauschen fügt einen Clip über dem ausgewählten Text ein und behält diesen als neuesten Clip.</translation>
    </message>
    <message>
        <source>Start-up:</source>
        <translation>Start:</translation>
    </message>
    <message>
        <source>Messages:</source>
        <translation>Meldungen:</translation>
    </message>
    <message>
        <source>Tell you when a copy was too large to be recorded. Turned off, they stay off until Quillmarsh quits.</source>
        <translation>Sie sagen Ihnen, wenn eine Kopie zu groß zum Aufzeichnen war. Ausgeschaltet bleiben sie es, bis Quillmarsh beendet wird.</translation>
    </message>
    <message>
        <source>&amp;History size:</source>
        <translation>&amp;Verlaufsgröße:</translation>
    </message>
    <message>
        <source>Largest &amp;text:</source>
        <translation>Größter &amp;Text:</translation>
    </message>
    <message>
        <source>bytes</source>
        <translation>Byte</translation>
    </message>
    <message>
        <source>A longer copy is not recorded.</source>
        <translation>Eine längere Kopie wird nicht aufgezeichnet.</translation>
    </message>
    <message>
        <source>&amp;Open history:</source>
        <translation>Verlauf ö&amp;ffnen:</translation>
    </message>
    <message>
        <source>S&amp;wop:</source>
        <translation>Tausc&amp;hen:</translation>
    </message>
    <message>
        <source>The desktop’s list of start-up programs could not be written.</source>
        <translation>Die Autostart-Liste der Arbeitsumgebung konnte nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>Switched off in the desktop’s own list. Tick it anew to switch it on.</source>
        <translation>In der Autostart-Liste aus. Neu ankreuzen schaltet es ein.</translation>
    </message>
    <message>
        <source>Missing in the desktop’s own list. Tick it anew to put it there.</source>
        <translation>Fehlt in der Autostart-Liste. Neu ankreuzen trägt es ein.</translation>
    </message>
    <message>
        <source>The desktop opens it all the same.</source>
        <translation>Die Arbeitsumgebung öffnet es trotzdem.</translation>
    </message>
    <message>
        <source>A shortcut needs Ctrl or Super with another key, or is a function key.</source>
        <translation>Ein Kurzbefehl braucht Strg oder Super mit einer weiteren Taste oder ist eine Funktionstaste.</translation>
    </message>
    <message>
        <source>Have the desktop’s configuration run these commands for keys of your choice.</source>
        <translation>Lassen Sie die Konfiguration des Desktops diese Befehle auf Tasten Ihrer Wahl ausführen.</translation>
    </message>
    <message>
        <source>Add these lines to the desktop’s configuration, with other keys if you like.</source>
        <translation>Fügen Sie der Konfiguration des Desktops diese Zeilen hinzu, gern mit anderen Tasten.</translation>
    </message>
    <message>
        <source>Pictures:</source>
        <translation>Bilder:</translation>
    </message>
    <message>
        <source>MB at most</source>
        <translation>MB höchstens</translation>
    </message>
    <message>
        <source>Copies of nothing but a picture, as files in the data folder.</source>
        <translation>Kopien, die nur aus einem Bild bestehen, als Dateien im Datenordner.</translation>
    </message>
</context>
<context>
    <name>GlobalShortcuts</name>
    <message>
        <source>Cut</source>
        <translation>Ausschneiden</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Super</translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation>Strg</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Umschalt</translation>
    </message>
</context>
<context>
    <name>HistoryFooter</name>
    <message>
        <source>Deleted · Ctrl+Z brings it back</source>
        <translation>Gelöscht · Strg+Z holt es zurück</translation>
    </message>
    <message numerus="yes">
        <source>%Ln deleted clips did not fit: the history keeps %1 at most</source>
        <translation>
            <numerusform>%Ln gelöschter Clip passte nicht: Der Verlauf behält höchstens %1</numerusform>
            <numerusform>%Ln gelöschte Clips passten nicht: Der Verlauf behält höchstens %1</numerusform>
        </translation>
    </message>
    <message>
        <source>Deleted for good · too large for Ctrl+Z</source>
        <translation>Endgültig gelöscht · zu groß für Strg+Z</translation>
    </message>
    <message>
        <source>Deleted · Ctrl+Z brings back all but the largest pictures</source>
        <translation>Gelöscht · Strg+Z holt alles außer den größten Bildern zurück</translation>
    </message>
</context>
<context>
    <name>HistoryNotices</name>
    <message numerus="yes">
        <source>A copy of %Ln bytes was not recorded; the limit is %1</source>
        <translation>
            <numerusform>Eine Kopie von %Ln Byte wurde nicht aufgezeichnet; die Grenze liegt bei %1</numerusform>
            <numerusform>Eine Kopie von %Ln Byte wurde nicht aufgezeichnet; die Grenze liegt bei %1</numerusform>
        </translation>
    </message>
    <message>
        <source>A copy was not recorded; it is larger than the limit of %1 bytes</source>
        <translation>Eine Kopie wurde nicht aufgezeichnet; sie ist größer als die Grenze von %1 Byte</translation>
    </message>
    <message>
        <source>The copied picture is replaced</source>
        <translation>Das kopierte Bild ist ersetzt</translation>
    </message>
    <message>
        <source>What was copied is replaced</source>
        <translation>Das zuvor Kopierte ist ersetzt</translation>
    </message>
</context>
<context>
    <name>HttpsExchange</name>
    <message>
        <source>The server redirects to an address that is not secure.</source>
        <translation>Der Server leitet auf eine unsichere Adresse um.</translation>
    </message>
    <message>
        <source>The server could not prove who it is, or the connection is not secure.</source>
        <translation>Der Server konnte sich nicht ausweisen, oder die Verbindung ist nicht sicher.</translation>
    </message>
    <message>
        <source>The server %1 was not found. Are you connected to the internet?</source>
        <translation>Der Server %1 wurde nicht gefunden. Sind Sie mit dem Internet verbunden?</translation>
    </message>
    <message>
        <source>The server %1 cannot be reached.</source>
        <translation>Der Server %1 ist nicht erreichbar.</translation>
    </message>
    <message>
        <source>The server ended the connection.</source>
        <translation>Der Server hat die Verbindung beendet.</translation>
    </message>
    <message>
        <source>The server does not have the file.</source>
        <translation>Der Server hat die Datei nicht.</translation>
    </message>
    <message>
        <source>The server answered with error %1.</source>
        <translation>Der Server antwortete mit Fehler %1.</translation>
    </message>
    <message>
        <source>The connection failed: %1.</source>
        <translation>Die Verbindung ist gescheitert: %1.</translation>
    </message>
    <message>
        <source>The server took too long to answer.</source>
        <translation>Der Server hat zu lange nicht geantwortet.</translation>
    </message>
    <message>
        <source>The address is not a secure one (https).</source>
        <translation>Die Adresse ist keine sichere (https).</translation>
    </message>
    <message>
        <source>The server sends more than was announced.</source>
        <translation>Der Server sendet mehr als angekündigt.</translation>
    </message>
    <message>
        <source>The server answered with status %1.</source>
        <translation>Der Server antwortete mit Status %1.</translation>
    </message>
    <message>
        <source>The server stopped answering.</source>
        <translation>Der Server antwortet nicht mehr.</translation>
    </message>
</context>
<context>
    <name>IgnoredApplicationsModel</name>
    <message>
        <source>%1 (recognised by this name only)</source>
        <translation>%1 (nur an diesem Namen erkannt)</translation>
    </message>
</context>
<context>
    <name>ImageBody</name>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
</context>
<context>
    <name>Installation</name>
    <message>
        <source>Quillmarsh was installed by your system&apos;s package manager, which also updates it.</source>
        <translation>Quillmarsh wurde von der Paketverwaltung Ihres Systems installiert, die es auch aktualisiert.</translation>
    </message>
    <message>
        <source>Quillmarsh was not installed in a way that it could update itself. Updates come from where you got it.</source>
        <translation>Quillmarsh wurde nicht so installiert, dass es sich selbst aktualisieren könnte. Aktualisierungen kommen von dort, wo Sie es herhaben.</translation>
    </message>
    <message>
        <source>The folder %1 cannot be written to.</source>
        <translation>In den Ordner %1 kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>%1 was replaced while Quillmarsh was running. Restart Quillmarsh to use what is there now.</source>
        <translation>%1 wurde ersetzt, während Quillmarsh lief. Starten Sie Quillmarsh neu, um zu verwenden, was jetzt dort ist.</translation>
    </message>
</context>
<context>
    <name>IssueReportDialog</name>
    <message>
        <source>Show &amp;Report</source>
        <translation>&amp;Bericht zeigen</translation>
    </message>
    <message>
        <source>&amp;Do Not Send</source>
        <translation>&amp;Nicht senden</translation>
    </message>
    <message>
        <source>Problem Report</source>
        <translation>Fehlerbericht</translation>
    </message>
    <message>
        <source>Quillmarsh ended unexpectedly</source>
        <translation>Quillmarsh wurde unerwartet beendet</translation>
    </message>
    <message>
        <source>May the report be sent, so that the fault can be found? It says which version failed, how, and at which place in the program. It holds no clip and no other text of yours. If you do not send it, it is deleted.</source>
        <translation>Darf der Bericht gesendet werden, damit der Fehler gefunden werden kann? Er nennt die Version, was geschah und die Stelle im Programm. Er enthält keinen Clip und keinen anderen Text von Ihnen. Senden Sie ihn nicht, wird er gelöscht.</translation>
    </message>
    <message>
        <source>Report</source>
        <translation>Bericht</translation>
    </message>
    <message>
        <source>Hide &amp;Report</source>
        <translation>&amp;Bericht verbergen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Sending…</source>
        <translation>Wird gesendet …</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>%1 The report is kept, and you will be asked at the next start.</source>
        <translation>%1 Der Bericht bleibt erhalten; beim nächsten Start werden Sie wieder gefragt.</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>Erneut versuchen</translation>
    </message>
</context>
<context>
    <name>ListBody</name>
    <message>
        <source>1 entry</source>
        <translation>1 Eintrag</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>%1, %2 or more</source>
        <translation>%1, %2 oder mehr</translation>
    </message>
    <message>
        <source>Entries</source>
        <translation>Einträge</translation>
    </message>
    <message numerus="yes">
        <source>%Ln entries</source>
        <translation>
            <numerusform>%Ln Eintrag</numerusform>
            <numerusform>%Ln Einträge</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MASShortcut</name>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
</context>
<context>
    <name>MASShortcutValidator</name>
    <message>
        <source>This combination cannot be used because it is already used by a system-wide keyboard shortcut.
If you really want to use this key combination, most shortcuts can be changed in the Keyboard &amp; Mouse panel in System Preferences.</source>
        <translation>Diese Kombination kann nicht verwendet werden, weil sie bereits ein systemweiter Kurzbefehl ist.
Wenn Sie diese Tastenkombination wirklich verwenden möchten: Die meisten Kurzbefehle lassen sich in den Systemeinstellungen unter Tastatur &amp; Maus ändern.</translation>
    </message>
    <message>
        <source>This shortcut cannot be used because it is already used by the menu item ‘%1’.</source>
        <translation>Dieser Kurzbefehl kann nicht verwendet werden, weil ihn bereits der Menüpunkt „%1“ verwendet.</translation>
    </message>
</context>
<context>
    <name>MASShortcutView</name>
    <message>
        <source>Shortcut</source>
        <translation>Kurzbefehl</translation>
    </message>
    <message>
        <source>The key combination %1 cannot be used</source>
        <translation>Die Tastenkombination %1 kann nicht verwendet werden</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Record Shortcut</source>
        <translation>Kurzbefehl aufnehmen</translation>
    </message>
    <message>
        <source>Use Old Shortcut</source>
        <translation>Alten Kurzbefehl nehmen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Type New Shortcut</source>
        <translation>Neuen Kurzbefehl drücken</translation>
    </message>
    <message>
        <source>Type Shortcut</source>
        <translation>Kurzbefehl drücken</translation>
    </message>
    <message>
        <source>Delete shortcut</source>
        <translation>Kurzbefehl löschen</translation>
    </message>
    <message>
        <source>Click to record new shortcut</source>
        <translation>Klicken, um einen neuen Kurzbefehl aufzunehmen</translation>
    </message>
</context>
<context>
    <name>MailHandOver</name>
    <message>
        <source>(Please attach the file %1)</source>
        <translation>(Bitte fügen Sie die Datei %1 bei)</translation>
    </message>
</context>
<context>
    <name>MovingIn</name>
    <message numerus="yes">
        <source>&amp;Bring along the newest %Ln clips of %1</source>
        <translation>
            <numerusform>Den neuesten Clip (%Ln) aus %1 ü&amp;bernehmen</numerusform>
            <numerusform>Die neuesten %Ln Clips aus %1 ü&amp;bernehmen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>&amp;Bring along %Ln clips of %1</source>
        <translation>
            <numerusform>%Ln Clip aus %1 ü&amp;bernehmen</numerusform>
            <numerusform>%Ln Clips aus %1 ü&amp;bernehmen</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PathLabel</name>
    <message>
        <source>Path of the file</source>
        <translation>Pfad der Datei</translation>
    </message>
</context>
<context>
    <name>PdfBody</name>
    <message numerus="yes">
        <source>Document of %n pages</source>
        <translation>
            <numerusform>Dokument mit %n Seite</numerusform>
            <numerusform>Dokument mit %n Seiten</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PictureChoice</name>
    <message>
        <source>&amp;Keep copied pictures</source>
        <translation>&amp;Kopierte Bilder behalten</translation>
    </message>
    <message>
        <source>Keep copied pictures</source>
        <translation>Kopierte Bilder behalten</translation>
    </message>
    <message>
        <source>Maximum picture size in megabytes</source>
        <translation>Höchstgröße eines Bildes in Megabyte</translation>
    </message>
</context>
<context>
    <name>PortalHotKeys</name>
    <message>
        <source>No keys</source>
        <translation>Keine Tasten</translation>
    </message>
</context>
<context>
    <name>PreferencesApplicationViewController</name>
    <message>
        <source>Applications</source>
        <translation>Anwendungen</translation>
    </message>
</context>
<context>
    <name>PreferencesGeneralViewController</name>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>No limit</source>
        <translation>Keine Grenze</translation>
    </message>
    <message>
        <source>Show clipboard history</source>
        <translation>Zwischenablageverlauf zeigen</translation>
    </message>
    <message>
        <source>Swop selection with a clip</source>
        <translation>Auswahl gegen einen Clip tauschen</translation>
    </message>
</context>
<context>
    <name>SearchField</name>
    <message>
        <source>Search clips</source>
        <translation>Clips durchsuchen</translation>
    </message>
    <message>
        <source>Clear search</source>
        <translation>Suche leeren</translation>
    </message>
    <message>
        <source>Pinned clips only</source>
        <translation>Nur angeheftete Clips</translation>
    </message>
    <message>
        <source>Pinned clips only (Ctrl+Shift+D)</source>
        <translation>Nur angeheftete Clips (Strg+Umschalt+D)</translation>
    </message>
    <message>
        <source>Search pinned clips</source>
        <translation>Angeheftete Clips durchsuchen</translation>
    </message>
</context>
<context>
    <name>ShortcutNote</name>
    <message>
        <source>Used by another program</source>
        <translation>Von einem anderen Programm belegt</translation>
    </message>
    <message>
        <source>Used by the other shortcut</source>
        <translation>Vom anderen Kurzbefehl belegt</translation>
    </message>
    <message>
        <source>Not possible as a shortcut</source>
        <translation>Als Kurzbefehl nicht möglich</translation>
    </message>
    <message>
        <source>%1 in the desktop’s settings</source>
        <translation>%1 in den Einstellungen des Desktops</translation>
    </message>
</context>
<context>
    <name>StatusMenu</name>
    <message>
        <source>Check For Updates...</source>
        <translation>Nach Aktualisierungen suchen …</translation>
    </message>
    <message>
        <source>Preferences...</source>
        <translation>Einstellungen …</translation>
    </message>
    <message>
        <source>Launch...</source>
        <translation>Verlauf öffnen …</translation>
    </message>
    <message>
        <source>Clear All</source>
        <translation>Alles löschen</translation>
    </message>
    <message>
        <source>Help...</source>
        <translation>Hilfe …</translation>
    </message>
    <message>
        <source>Send Feedback...</source>
        <translation>Rückmeldung senden …</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Allow Recording...</source>
        <translation>Aufzeichnen erlauben …</translation>
    </message>
</context>
<context>
    <name>SwopPicture</name>
    <message>
        <source>Monday</source>
        <translation>Montag</translation>
    </message>
    <message>
        <source>Thursday</source>
        <translation>Donnerstag</translation>
    </message>
    <message>
        <source>at half past two</source>
        <translation>um halb drei</translation>
    </message>
    <message>
        <source>Reed Lane 7</source>
        <translation>Schilfweg 7</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>Vorher</translation>
    </message>
    <message>
        <source>After</source>
        <translation>Nachher</translation>
    </message>
    <message>
        <source>See you on</source>
        <translation>Bis</translation>
    </message>
    <message>
        <source>by the old mill.</source>
        <translation>an der alten Mühle.</translation>
    </message>
</context>
<context>
    <name>TextBody</name>
    <message>
        <source>… the file goes on</source>
        <translation>… die Datei geht weiter</translation>
    </message>
    <message>
        <source>Beginning of the text</source>
        <translation>Anfang des Textes</translation>
    </message>
</context>
<context>
    <name>TourGuide</name>
    <message>
        <source>Find</source>
        <translation>Finden</translation>
    </message>
    <message>
        <source>Start typing as soon as the window opens. * stands for any text, ? for one character, and file: lists copied files.</source>
        <translation>Tippen Sie los, sobald das Fenster offen ist. * steht für beliebigen Text, ? für ein Zeichen, und file: zeigt kopierte Dateien.</translation>
    </message>
    <message>
        <source>Choose</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>Your copies, newest first. Move with the arrow keys, or press the open shortcut again to step down.</source>
        <translation>Ihre Kopien, die neueste zuerst. Bewegen Sie sich mit den Pfeiltasten, oder drücken Sie den Kurzbefehl erneut, um weiterzugehen.</translation>
    </message>
    <message>
        <source>Look</source>
        <translation>Ansehen</translation>
    </message>
    <message>
        <source>The whole clip, or the copied file itself, before you paste it.</source>
        <translation>Der ganze Clip oder die kopierte Datei selbst, bevor Sie einfügen.</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>paste</source>
        <translation>einfügen</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Umschalt</translation>
    </message>
    <message>
        <source>UPPER CASE</source>
        <translation>GROSSBUCHSTABEN</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>lower case</source>
        <translation>kleinbuchstaben</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Super</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Rücktaste</translation>
    </message>
    <message>
        <source>delete</source>
        <translation>löschen</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>close</source>
        <translation>schließen</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation>Strg</translation>
    </message>
    <message>
        <source>plain text</source>
        <translation>reiner Text</translation>
    </message>
    <message>
        <source>rows 1 to 10</source>
        <translation>Zeilen 1 bis 10</translation>
    </message>
</context>
<context>
    <name>TraylessHint</name>
    <message>
        <source>Quillmarsh is running</source>
        <translation>Quillmarsh läuft</translation>
    </message>
    <message>
        <source>Press %1 to open the history, or start Quillmarsh again.</source>
        <translation>Drücken Sie %1, um den Verlauf zu öffnen, oder starten Sie Quillmarsh erneut.</translation>
    </message>
    <message>
        <source>Start Quillmarsh again to open the history.</source>
        <translation>Starten Sie Quillmarsh erneut, um den Verlauf zu öffnen.</translation>
    </message>
</context>
<context>
    <name>UpdateDownload</name>
    <message>
        <source>There is no place to download to.</source>
        <translation>Es gibt keinen Ort zum Speichern der Datei.</translation>
    </message>
    <message>
        <source>The server has another file than before. Try again.</source>
        <translation>Der Server hat eine andere Datei als zuvor. Versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The server sends more than was announced.</source>
        <translation>Der Server sendet mehr als angekündigt.</translation>
    </message>
    <message>
        <source>The download could not be written: %1.</source>
        <translation>Die geladenen Daten konnten nicht geschrieben werden: %1.</translation>
    </message>
    <message>
        <source>The server sent less than was announced.</source>
        <translation>Der Server hat weniger gesendet als angekündigt.</translation>
    </message>
</context>
<context>
    <name>UpdateFeed</name>
    <message>
        <source>The list of updates cannot be used.</source>
        <translation>Die Liste der Aktualisierungen ist unbrauchbar.</translation>
    </message>
    <message>
        <source>It is not a list of updates.</source>
        <translation>Es ist keine Liste von Aktualisierungen.</translation>
    </message>
    <message>
        <source>Version %1 has no file.</source>
        <translation>Version %1 hat keine Datei.</translation>
    </message>
    <message>
        <source>It is too long.</source>
        <translation>Sie ist zu lang.</translation>
    </message>
    <message>
        <source>It is damaged in line %1.</source>
        <translation>Sie ist in Zeile %1 beschädigt.</translation>
    </message>
    <message>
        <source>It offers a version that is not a number: “%1”.</source>
        <translation>Sie bietet eine Version an, die keine Zahl ist: „%1“.</translation>
    </message>
    <message>
        <source>Version %1 has no known channel.</source>
        <translation>Version %1 hat keinen bekannten Kanal.</translation>
    </message>
    <message>
        <source>Version %1 asks for an unknown system.</source>
        <translation>Version %1 verlangt ein unbekanntes System.</translation>
    </message>
    <message>
        <source>Version %1 is not at a secure address (https).</source>
        <translation>Version %1 liegt nicht an einer sicheren Adresse (https).</translation>
    </message>
    <message>
        <source>Version %1 has no possible size.</source>
        <translation>Version %1 hat keine mögliche Größe.</translation>
    </message>
    <message>
        <source>Version %1 is not signed.</source>
        <translation>Version %1 ist nicht signiert.</translation>
    </message>
    <message>
        <source>Version %1 has an impossible name.</source>
        <translation>Version %1 hat einen unmöglichen Namen.</translation>
    </message>
</context>
<context>
    <name>UpdateInstaller</name>
    <message>
        <source>There is not enough room on the disk.</source>
        <translation>Auf dem Datenträger ist nicht genug Platz.</translation>
    </message>
    <message>
        <source>The update could not be put in its place: %1.</source>
        <translation>Die Aktualisierung konnte nicht an ihren Platz gebracht werden: %1.</translation>
    </message>
    <message>
        <source>The downloaded file is gone.</source>
        <translation>Die geladene Datei ist verschwunden.</translation>
    </message>
    <message>
        <source>The downloaded file has not the size that was announced.</source>
        <translation>Die geladene Datei hat nicht die angekündigte Größe.</translation>
    </message>
    <message>
        <source>The signature of the downloaded file is not the publisher&apos;s. It was not installed.</source>
        <translation>Die Signatur der geladenen Datei stammt nicht vom Herausgeber. Sie wurde nicht installiert.</translation>
    </message>
    <message>
        <source>The update was cancelled.</source>
        <translation>Die Aktualisierung wurde abgebrochen.</translation>
    </message>
    <message>
        <source>The update could not be written correctly.</source>
        <translation>Die Aktualisierung konnte nicht richtig geschrieben werden.</translation>
    </message>
    <message>
        <source>This version is installed already. It starts the next time.</source>
        <translation>Diese Version ist bereits installiert. Sie startet beim nächsten Mal.</translation>
    </message>
    <message>
        <source>The update holds no program.</source>
        <translation>Die Aktualisierung enthält kein Programm.</translation>
    </message>
    <message>
        <source>Version %1 is running. Quit it first.</source>
        <translation>Version %1 läuft gerade. Beenden Sie sie zuerst.</translation>
    </message>
</context>
<context>
    <name>UpdateRun</name>
    <message>
        <source>Another update of Quillmarsh is under way.</source>
        <translation>Eine andere Aktualisierung von Quillmarsh läuft gerade.</translation>
    </message>
    <message>
        <source>Signatures cannot be checked, so nothing is installed.</source>
        <translation>Signaturen können nicht geprüft werden, deshalb wird nichts installiert.</translation>
    </message>
</context>
<context>
    <name>UpdateWindow</name>
    <message>
        <source>Look for updates once a &amp;day</source>
        <translation>Einmal am &amp;Tag nach Aktualisierungen suchen</translation>
    </message>
    <message>
        <source>&amp;Skip This Version</source>
        <translation>Diese Version über&amp;springen</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>S&amp;päter</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>&amp;Install</source>
        <translation>&amp;Installieren</translation>
    </message>
    <message>
        <source>Software Update</source>
        <translation>Softwareaktualisierung</translation>
    </message>
    <message>
        <source>Release notes</source>
        <translation>Neuerungen</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Looking for updates…</source>
        <translation>Suche nach Aktualisierungen …</translation>
    </message>
    <message>
        <source>You have the newest version</source>
        <translation>Sie haben die neueste Version</translation>
    </message>
    <message>
        <source>%1 %2 is up to date.</source>
        <translation>%1 %2 ist auf dem neuesten Stand.</translation>
    </message>
    <message>
        <source>%1 %2 is available</source>
        <translation>%1 %2 ist verfügbar</translation>
    </message>
    <message>
        <source>You have version %1. %2 restarts when the update is installed; your history and your settings stay as they are.</source>
        <translation>Sie haben Version %1. %2 startet nach der Installation neu; Verlauf und Einstellungen bleiben, wie sie sind.</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>Downloading the update</source>
        <translation>Die Aktualisierung wird geladen</translation>
    </message>
    <message>
        <source>Installing the update</source>
        <translation>Die Aktualisierung wird installiert</translation>
    </message>
    <message>
        <source>Its signature is checked first.</source>
        <translation>Zuerst wird die Signatur geprüft.</translation>
    </message>
    <message>
        <source>The update is installed</source>
        <translation>Die Aktualisierung ist installiert</translation>
    </message>
    <message>
        <source>%1 uses it from its next start.</source>
        <translation>%1 verwendet sie ab dem nächsten Start.</translation>
    </message>
    <message>
        <source>%1 could not be updated</source>
        <translation>%1 konnte nicht aktualisiert werden</translation>
    </message>
    <message>
        <source>%1 does not update itself here</source>
        <translation>%1 aktualisiert sich hier nicht selbst</translation>
    </message>
    <message>
        <source>Version %1 needs a newer system</source>
        <translation>Version %1 braucht ein neueres System</translation>
    </message>
    <message>
        <source>%1 %2 is the newest version that this system can run.</source>
        <translation>%1 %2 ist die neueste Version, die auf diesem System läuft.</translation>
    </message>
</context>
<context>
    <name>ViewController</name>
    <message>
        <source>%1 of %2: %3</source>
        <translation>%1 von %2: %3</translation>
    </message>
    <message>
        <source>Swop: no selection is held, so the clip is only pasted</source>
        <translation>Tauschen: Keine Auswahl ist gemerkt, der Clip wird nur eingefügt</translation>
    </message>
    <message>
        <source>Swop: the selection of %1 is held</source>
        <translation>Tauschen: Die Auswahl aus %1 ist gemerkt</translation>
    </message>
    <message>
        <source>Swop: the selection is held</source>
        <translation>Tauschen: Die Auswahl ist gemerkt</translation>
    </message>
    <message>
        <source>Nothing is recorded: the history cannot be written</source>
        <translation>Es wird nichts aufgezeichnet: Der Verlauf lässt sich nicht schreiben</translation>
    </message>
    <message>
        <source>%1 of %2, pinned: %3</source>
        <translation>%1 von %2, angeheftet: %3</translation>
    </message>
</context>
<context>
    <name>WelcomePage1Controller</name>
    <message>
        <source>Everything you copy, at hand</source>
        <translation>Alles Kopierte zur Hand</translation>
    </message>
    <message>
        <source>Quillmarsh keeps each text and each file you copy, and pastes any of them again wherever you are typing.</source>
        <translation>Quillmarsh bewahrt jeden Text und jede Datei auf, die Sie kopieren, und fügt sie wieder ein, wo immer Sie schreiben.</translation>
    </message>
    <message>
        <source>Open Quillmarsh at &amp;login</source>
        <translation>Quillmarsh beim An&amp;melden öffnen</translation>
    </message>
    <message>
        <source>Check for &amp;updates</source>
        <translation>Nach &amp;Aktualisierungen suchen</translation>
    </message>
    <message>
        <source>Open at login</source>
        <translation>Beim Anmelden öffnen</translation>
    </message>
    <message>
        <source>Check for updates</source>
        <translation>Nach Aktualisierungen suchen</translation>
    </message>
    <message>
        <source>Have the &amp;desktop ask when I go on</source>
        <translation>Die Arbeitsumgebung &amp;danach fragen lassen</translation>
    </message>
</context>
<context>
    <name>WelcomePages</name>
    <message>
        <source>opens the history over any application</source>
        <translation>öffnet den Verlauf über jeder Anwendung</translation>
    </message>
    <message>
        <source>typing narrows it: part of a word is enough</source>
        <translation>Tippen grenzt ein: Ein Wortteil genügt</translation>
    </message>
    <message>
        <source>choose a clip</source>
        <translation>einen Clip auswählen</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>pastes it where you were typing</source>
        <translation>fügt ihn ein, wo Sie geschrieben haben</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Umschalt</translation>
    </message>
    <message>
        <source>pastes it IN UPPER CASE</source>
        <translation>fügt ihn IN GROSSBUCHSTABEN ein</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>pastes it in lower case</source>
        <translation>fügt ihn in kleinbuchstaben ein</translation>
    </message>
    <message>
        <source>Open, find, paste</source>
        <translation>Öffnen, finden, einfügen</translation>
    </message>
    <message>
        <source>Your hands stay on the keyboard, and the text goes into the window you came from.</source>
        <translation>Ihre Hände bleiben auf der Tastatur, und der Text landet in dem Fenster, aus dem Sie kamen.</translation>
    </message>
    <message>
        <source>Swop a selection for a clip</source>
        <translation>Auswahl gegen Clip tauschen</translation>
    </message>
    <message>
        <source>Select a text, press the keys, choose a clip. The clip takes the selection’s place, and the selection becomes your newest clip.</source>
        <translation>Wählen Sie einen Text aus, drücken Sie die Tasten, wählen Sie einen Clip. Der Clip tritt an die Stelle der Auswahl, und diese wird Ihr neuester Clip.</translation>
    </message>
    <message>
        <source>The history is one file that only you can read, in
%1.</source>
        <translation>Der Verlauf ist eine Datei, die nur Sie lesen können, in
%1.</translation>
    </message>
    <message>
        <source>Never recorded: what a password manager marks as secret, and copies from the applications that you list in Preferences.</source>
        <translation>Nie aufgezeichnet: was eine Passwortverwaltung als geheim kennzeichnet, und Kopien aus den Anwendungen, die Sie in den Einstellungen aufführen.</translation>
    </message>
    <message>
        <source>To delete a clip for good, press Super + Backspace in the history. To delete them all, choose “Clear All” in the menu.</source>
        <translation>Um einen Clip endgültig zu löschen, drücken Sie im Verlauf Super + Rücktaste. Um alle zu löschen, wählen Sie im Menü „Alles löschen“.</translation>
    </message>
    <message>
        <source>Yours alone</source>
        <translation>Nur für Sie</translation>
    </message>
    <message>
        <source>Your clips never leave this computer.</source>
        <translation>Ihre Clips verlassen diesen Computer nie.</translation>
    </message>
    <message>
        <source>(turned off)</source>
        <translation>(ausgeschaltet)</translation>
    </message>
</context>
<context>
    <name>WelcomeWindow</name>
    <message>
        <source>Welcome to Quillmarsh</source>
        <translation>Willkommen bei Quillmarsh</translation>
    </message>
</context>
<context>
    <name>WelcomeWindowController</name>
    <message>
        <source>Open your history at any time: %1</source>
        <translation>Öffnen Sie Ihren Verlauf jederzeit: %1</translation>
    </message>
    <message>
        <source>Open your history at any time: %1. The default is %2.</source>
        <translation>Öffnen Sie Ihren Verlauf jederzeit: %1. Voreingestellt ist %2.</translation>
    </message>
    <message>
        <source>The shortcut that opens the history, by default %1, is turned off.</source>
        <translation>Der Kurzbefehl, der den Verlauf öffnet (voreingestellt %1), ist ausgeschaltet.</translation>
    </message>
    <message>
        <source>This desktop lets no program set shortcuts. Preferences has the line that its configuration needs.</source>
        <translation>Dieser Desktop lässt kein Programm Kurzbefehle festlegen. Die Zeile für seine Konfiguration steht in den Einstellungen.</translation>
    </message>
</context>
<context>
    <name>WelcomeWindowView</name>
    <message>
        <source>Previous</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Take the tour</source>
        <translation>Rundgang beginnen</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Seite %1 von %2</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
</TS>
