<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>AppDelegate</name>
    <message>
        <source>Nothing is recorded</source>
        <translation>Rien n’est enregistré</translation>
    </message>
    <message>
        <source>The history in %1 cannot be written.</source>
        <translation>L’historique dans %1 n’est pas accessible en écriture.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln clips to be pasted</source>
        <translation>
            <numerusform>%Ln extrait à coller</numerusform>
            <numerusform>%Ln extraits à coller</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln clips are still to be pasted; Esc ends that</source>
        <translation>
            <numerusform>%Ln extrait reste à coller ; Échap y met fin</numerusform>
            <numerusform>%Ln extraits restent à coller ; Échap y met fin</numerusform>
        </translation>
    </message>
    <message>
        <source>Ask the Desktop...</source>
        <translation>Demander au bureau...</translation>
    </message>
</context>
<context>
    <name>ApplicationChooser</name>
    <message>
        <source>&amp;Other…</source>
        <translation>&amp;Autre…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>&amp;Choose</source>
        <translation>&amp;Choisir</translation>
    </message>
    <message>
        <source>Choose Application</source>
        <translation>Choisir une application</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtrer</translation>
    </message>
    <message>
        <source>Filter applications</source>
        <translation>Filtrer les applications</translation>
    </message>
    <message>
        <source>Applications</source>
        <translation>Applications</translation>
    </message>
    <message>
        <source>“%1” is not an application.</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas une application.</translation>
    </message>
</context>
<context>
    <name>ApplicationsPaneView</name>
    <message>
        <source>%1 and %2</source>
        <translation>%1 et %2</translation>
    </message>
    <message>
        <source>Ignored applications</source>
        <translation>Applications ignorées</translation>
    </message>
    <message>
        <source>Add application</source>
        <translation>Ajouter une application</translation>
    </message>
    <message>
        <source>Remove application</source>
        <translation>Retirer l’application</translation>
    </message>
    <message numerus="yes">
        <source>Ignore %Ln password managers</source>
        <translation>
            <numerusform>Ignorer %Ln gestionnaire de mots de passe</numerusform>
            <numerusform>Ignorer %Ln gestionnaires de mots de passe</numerusform>
        </translation>
    </message>
    <message>
        <source>Ignore %1</source>
        <translation>Ignorer %1</translation>
    </message>
    <message>
        <source>Add an application whose copies shall stay private.</source>
        <translation>Ajoutez une application dont les copies doivent rester privées.</translation>
    </message>
    <message>
        <source>What is copied from %1 is recorded like any other text. You may want to keep passwords out of the history.</source>
        <translation>Ce qui est copié depuis %1 est enregistré comme tout autre texte. Mieux vaut sans doute garder les mots de passe hors de l’historique.</translation>
    </message>
    <message>
        <source>No application is ignored</source>
        <translation>Aucune application n’est ignorée</translation>
    </message>
    <message>
        <source>What is copied while one of these applications is in front is never recorded.</source>
        <translation>Ce qui est copié pendant qu’une de ces applications est au premier plan n’est jamais enregistré.</translation>
    </message>
</context>
<context>
    <name>ArchiveExtraction</name>
    <message>
        <source>There is not enough room on the disk.</source>
        <translation>Il n’y a pas assez de place sur le disque.</translation>
    </message>
    <message>
        <source>A file could not be written: %1.</source>
        <translation>Un fichier n’a pas pu être écrit&#xa0;: %1.</translation>
    </message>
    <message>
        <source>The update is damaged.</source>
        <translation>La mise à jour est endommagée.</translation>
    </message>
    <message>
        <source>The update holds files that do not belong into it.</source>
        <translation>La mise à jour contient des fichiers qui n’y ont pas leur place.</translation>
    </message>
    <message>
        <source>The update was cancelled.</source>
        <translation>La mise à jour a été annulée.</translation>
    </message>
</context>
<context>
    <name>ByteCount</name>
    <message>
        <source>1 byte</source>
        <translation>1 octet</translation>
    </message>
    <message>
        <source>bytes</source>
        <translation>octets</translation>
    </message>
    <message>
        <source>KB</source>
        <translation>ko</translation>
    </message>
    <message>
        <source>MB</source>
        <translation>Mo</translation>
    </message>
    <message>
        <source>GB</source>
        <translation>Go</translation>
    </message>
    <message>
        <source>TB</source>
        <translation>To</translation>
    </message>
    <message>
        <source>PB</source>
        <translation>Po</translation>
    </message>
    <message>
        <source>EB</source>
        <translation>Eo</translation>
    </message>
</context>
<context>
    <name>CCNPreferencesWindowController</name>
    <message>
        <source>Preferences</source>
        <translation>Préférences</translation>
    </message>
</context>
<context>
    <name>Capabilities</name>
    <message>
        <source>This desktop lets no program type, so clips are put on the clipboard only.</source>
        <translation>Ce bureau ne laisse aucun programme saisir du texte : les extraits sont donc seulement placés dans le presse-papiers.</translation>
    </message>
    <message>
        <source>KDE has not allowed Quillmarsh to type, so clips are put on the clipboard only.</source>
        <translation>KDE n’a pas autorisé Quillmarsh à saisir du texte : les extraits sont donc seulement placés dans le presse-papiers.</translation>
    </message>
    <message>
        <source>This desktop lets no program set shortcuts.</source>
        <translation>Ce bureau ne laisse aucun programme définir des raccourcis.</translation>
    </message>
    <message>
        <source>Have its configuration start Quillmarsh for a key.</source>
        <translation>Faites démarrer Quillmarsh par une touche dans sa configuration.</translation>
    </message>
    <message>
        <source>Quillmarsh runs through Xwayland here and sees only what X11 applications copy.</source>
        <translation>Quillmarsh passe ici par Xwayland et ne voit que ce que copient les applications X11.</translation>
    </message>
    <message>
        <source>Install the package qt6-wayland, and start Quillmarsh again.</source>
        <translation>Installez le paquet qt6-wayland, puis relancez Quillmarsh.</translation>
    </message>
    <message>
        <source>They may do nothing while a native Wayland window is in front.</source>
        <translation>Ils peuvent rester sans effet quand une fenêtre Wayland native est au premier plan.</translation>
    </message>
    <message>
        <source>Have the desktop run “quillmarsh launch” for a key.</source>
        <translation>Faites exécuter «&#xa0;quillmarsh launch&#xa0;» par une touche du bureau.</translation>
    </message>
    <message>
        <source>Only X11 applications can be pasted into.</source>
        <translation>Le collage n’est possible que dans les applications X11.</translation>
    </message>
    <message>
        <source>Install the package, or save these lines as ~/.local/share/applications/quillmarsh-program.desktop. Then start Quillmarsh again.</source>
        <translation>Installez le paquet, ou enregistrez ces lignes dans ~/.local/share/applications/quillmarsh-program.desktop. Relancez ensuite Quillmarsh.</translation>
    </message>
    <message>
        <source>Have Quillmarsh ask for it, and tick every box of the desktop’s question.</source>
        <translation>Laissez Quillmarsh le demander, et cochez toutes les cases de la question du bureau.</translation>
    </message>
    <message>
        <source>This desktop lets a program see copies and paste only as remote control.</source>
        <translation>Ce bureau ne laisse un programme voir les copies et coller qu’en tant que contrôle à distance.</translation>
    </message>
    <message>
        <source>The desktop is asking whether Quillmarsh may.</source>
        <translation>Le bureau demande si Quillmarsh en a le droit.</translation>
    </message>
    <message>
        <source>The desktop’s question was answered with no.</source>
        <translation>La réponse à la question du bureau a été non.</translation>
    </message>
    <message>
        <source>The remote control by Quillmarsh has been ended.</source>
        <translation>Le contrôle à distance par Quillmarsh a été arrêté.</translation>
    </message>
    <message>
        <source>The desktop’s portals do not answer, or do not offer remote control.</source>
        <translation>Les portails du bureau ne répondent pas, ou n’offrent pas de contrôle à distance.</translation>
    </message>
    <message>
        <source>Remote interaction was not allowed, so clips are put on the clipboard only.</source>
        <translation>L’interaction à distance n’a pas été autorisée ; les clips ne vont donc que dans le presse-papiers.</translation>
    </message>
</context>
<context>
    <name>CapabilityTable</name>
    <message>
        <source>Recording:</source>
        <translation>Enregistrement&#xa0;:</translation>
    </message>
    <message>
        <source>Shortcuts:</source>
        <translation>Raccourcis&#xa0;:</translation>
    </message>
    <message>
        <source>Pasting:</source>
        <translation>Collage&#xa0;:</translation>
    </message>
    <message>
        <source>Window’s place:</source>
        <translation>Place de la fenêtre&#xa0;:</translation>
    </message>
    <message>
        <source>works</source>
        <translation>fonctionne</translation>
    </message>
    <message>
        <source>needs a step of yours</source>
        <translation>demande une action</translation>
    </message>
    <message>
        <source>withheld</source>
        <translation>refusé</translation>
    </message>
    <message>
        <source>Copy all lines for the configuration</source>
        <translation>Copier toutes les lignes de configuration</translation>
    </message>
    <message>
        <source>Have the Desktop &amp;Ask…</source>
        <translation>Faire dem&amp;ander le bureau…</translation>
    </message>
</context>
<context>
    <name>ClipHistory</name>
    <message>
        <source>Picture %1 × %2</source>
        <translation>Image %1 × %2</translation>
    </message>
</context>
<context>
    <name>ClipInfoLine</name>
    <message>
        <source>not pasted yet</source>
        <translation>pas encore collé</translation>
    </message>
    <message>
        <source>pasted once</source>
        <translation>collé une fois</translation>
    </message>
    <message numerus="yes">
        <source>pasted %Ln times</source>
        <translation>
            <numerusform>collé %Ln fois</numerusform>
            <numerusform>collé %Ln fois</numerusform>
        </translation>
    </message>
    <message>
        <source>1 character</source>
        <translation>1 caractère</translation>
    </message>
    <message numerus="yes">
        <source>%Ln characters</source>
        <translation>
            <numerusform>%Ln caractère</numerusform>
            <numerusform>%Ln caractères</numerusform>
        </translation>
    </message>
    <message>
        <source>Copied on %1</source>
        <translation>Copié le %1</translation>
    </message>
    <message>
        <source>just now</source>
        <translation>à l’instant</translation>
    </message>
    <message>
        <source>1 minute ago</source>
        <translation>il y a 1 minute</translation>
    </message>
    <message numerus="yes">
        <source>%Ln minutes ago</source>
        <translation>
            <numerusform>il y a %Ln minute</numerusform>
            <numerusform>il y a %Ln minutes</numerusform>
        </translation>
    </message>
    <message>
        <source>1 hour ago</source>
        <translation>il y a 1 heure</translation>
    </message>
    <message numerus="yes">
        <source>%Ln hours ago</source>
        <translation>
            <numerusform>il y a %Ln heure</numerusform>
            <numerusform>il y a %Ln heures</numerusform>
        </translation>
    </message>
    <message>
        <source>yesterday at %1</source>
        <translation>hier à %1</translation>
    </message>
    <message numerus="yes">
        <source>%Ln days ago</source>
        <translation>
            <numerusform>il y a %Ln jour</numerusform>
            <numerusform>il y a %Ln jours</numerusform>
        </translation>
    </message>
    <message>
        <source>d MMM yyyy</source>
        <translation>d MMM yyyy</translation>
    </message>
    <message numerus="yes">
        <source>%Ln marked</source>
        <translation>
            <numerusform>%Ln marqué</numerusform>
            <numerusform>%Ln marqués</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ClipMenu</name>
    <message>
        <source>Paste</source>
        <translation>Coller</translation>
    </message>
    <message numerus="yes">
        <source>Paste all %Ln files</source>
        <translation>
            <numerusform>Coller les %Ln fichiers</numerusform>
            <numerusform>Coller les %Ln fichiers</numerusform>
        </translation>
    </message>
    <message>
        <source>Paste as Plain Text</source>
        <translation>Coller en texte brut</translation>
    </message>
    <message>
        <source>Paste in Upper Case</source>
        <translation>Coller en majuscules</translation>
    </message>
    <message>
        <source>Paste in Lower Case</source>
        <translation>Coller en minuscules</translation>
    </message>
    <message>
        <source>Copy Without Pasting</source>
        <translation>Copier sans coller</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>Reveal in File Manager</source>
        <translation>Montrer dans le gestionnaire de fichiers</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Actions for the clip</source>
        <translation>Actions pour l’extrait</translation>
    </message>
    <message>
        <source>Unpin</source>
        <translation>Désépingler</translation>
    </message>
    <message>
        <source>Pin</source>
        <translation>Épingler</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Entrée</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Retour arrière</translation>
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
        <translation>Maj</translation>
    </message>
</context>
<context>
    <name>ClipPaster</name>
    <message>
        <source>The clip is on the clipboard</source>
        <translation>L’extrait est dans le presse-papiers</translation>
    </message>
    <message>
        <source>The previous window could not be activated.</source>
        <translation>La fenêtre précédente n’a pas pu être activée.</translation>
    </message>
    <message>
        <source>File no longer exists</source>
        <translation>Le fichier n’existe plus</translation>
    </message>
    <message>
        <source>The file no longer exists at the copied location.</source>
        <translation>Le fichier n’existe plus à l’emplacement copié.</translation>
    </message>
    <message>
        <source>The clip was not pasted</source>
        <translation>L’extrait n’a pas été collé</translation>
    </message>
    <message>
        <source>The clipboard could not be written.</source>
        <translation>Impossible d’écrire dans le presse-papiers.</translation>
    </message>
    <message>
        <source>The replaced text is not on the clipboard</source>
        <translation>Le texte remplacé n’est pas dans le presse-papiers</translation>
    </message>
    <message>
        <source>What is selected in %1 cannot be copied safely. Paste the clip there yourself; the middle mouse button does it, too.</source>
        <translation>Ce qui est sélectionné dans %1 ne peut pas être copié sans risque. Collez-y l’extrait vous-même ; le bouton central de la souris le fait aussi.</translation>
    </message>
    <message>
        <source>No keys are known that paste into %1. Paste it there yourself; the middle mouse button does it, too.</source>
        <translation>Aucune touche connue ne colle dans %1. Collez-le vous-même ; le bouton central de la souris le fait aussi.</translation>
    </message>
    <message>
        <source>this application</source>
        <translation>cette application</translation>
    </message>
    <message>
        <source>%1 did not take the clip over to the computer that it shows, so nothing was pasted there. The middle mouse button pastes the clip, too.</source>
        <translation>%1 n’a pas transmis l’extrait à l’ordinateur qu’il affiche ; rien n’y a donc été collé. Le bouton central de la souris colle aussi l’extrait.</translation>
    </message>
    <message>
        <source>A key was held down, so nothing was typed into %1. Paste it there yourself; the middle mouse button does it, too.</source>
        <translation>Une touche était enfoncée : rien n’a donc été saisi dans %1. Collez-y l’extrait vous-même ; le bouton central de la souris le fait aussi.</translation>
    </message>
    <message>
        <source>Quillmarsh is not able to type into %1. Paste it there yourself; the middle mouse button does it, too.</source>
        <translation>Quillmarsh ne peut pas saisir dans %1. Collez-y l’extrait vous-même ; le bouton central de la souris le fait aussi.</translation>
    </message>
    <message>
        <source>The clip was not copied</source>
        <translation>L’extrait n’a pas été copié</translation>
    </message>
</context>
<context>
    <name>ClipRowDelegate</name>
    <message>
        <source>(blank)</source>
        <translation>(vide)</translation>
    </message>
</context>
<context>
    <name>ClipTableModel</name>
    <message>
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
    <message>
        <source>%1 of %2, pinned</source>
        <translation>%1 sur %2, épinglé</translation>
    </message>
</context>
<context>
    <name>ClipTableView</name>
    <message>
        <source>Clips</source>
        <translation>Extraits</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files</source>
        <translation>
            <numerusform>%Ln fichier</numerusform>
            <numerusform>%Ln fichiers</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ClipTextView</name>
    <message>
        <source>Clip text preview</source>
        <translation>Aperçu du texte de l’extrait</translation>
    </message>
    <message numerus="yes">
        <source>… and %Ln more characters, pasted in full</source>
        <translation>
            <numerusform>… et encore %Ln caractère&#xa0;; tout sera collé</numerusform>
            <numerusform>… et encore %Ln caractères&#xa0;; tout sera collé</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ClipboardCapture</name>
    <message>
        <source>The copied text was not recorded</source>
        <translation>Le texte copié n’a pas été enregistré</translation>
    </message>
    <message>
        <source>The text is too large.</source>
        <translation>Le texte est trop long.</translation>
    </message>
    <message>
        <source>The copied picture was not kept</source>
        <translation>L’image copiée n’a pas été conservée</translation>
    </message>
    <message>
        <source>The picture is too large.</source>
        <translation>L’image est trop grande.</translation>
    </message>
</context>
<context>
    <name>ConfigurationLine</name>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
</context>
<context>
    <name>ConsentNotice</name>
    <message>
        <source>Nothing is recorded. %1</source>
        <translation>Rien n’est enregistré. %1</translation>
    </message>
</context>
<context>
    <name>ConsentWords</name>
    <message>
        <source>This desktop shows copies to a program, and lets it paste, only as remote control. It asks you once: switch on “Allow Remote Interaction”, leave the other two on, and choose “Share”. A sharing sign then stays in the top bar; ending it there ends recording.</source>
        <translation>Ce bureau ne montre les copies à un programme, et ne le laisse coller, qu’en tant que contrôle à distance. Il vous le demandera une fois : activez « Autoriser l’interaction à distance », laissez les deux autres activés et choisissez « Partager ». Un signe de partage reste ensuite dans la barre supérieure ; y mettre fin met fin à l’enregistrement.</translation>
    </message>
</context>
<context>
    <name>DMHelperAppDelegate</name>
    <message>
        <source>Update in background</source>
        <translation>Mise à jour en arrière-plan</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>Updating process is in progress.</source>
        <translation>La mise à jour est en cours.</translation>
    </message>
    <message>
        <source>Main application bundle could not be located</source>
        <translation>L’application principale est introuvable</translation>
    </message>
    <message>
        <source>Main application is running. It should update itself.</source>
        <translation>L’application principale est lancée. Elle devrait se mettre à jour elle-même.</translation>
    </message>
</context>
<context>
    <name>DM_SUUpdater</name>
    <message>
        <source>This Quillmarsh has no address to look for updates at. Updates come from where you got it.</source>
        <translation>Ce Quillmarsh ne connaît aucune adresse de mise à jour. Les mises à jour viennent de là où vous l’avez obtenu.</translation>
    </message>
</context>
<context>
    <name>DamagedSettingsQuestion</name>
    <message>
        <source>Your settings could not be read</source>
        <translation>Vos réglages n’ont pas pu être lus</translation>
    </message>
    <message>
        <source>They were set aside beside %1. The list of ignored applications was among them, so nothing is recorded until you decide.</source>
        <translation>Ils ont été mis de côté près de %1. La liste des applications ignorées en faisait partie&#xa0;: rien n’est donc enregistré avant votre décision.</translation>
    </message>
    <message>
        <source>Start with fresh settings</source>
        <translation>Repartir avec de nouveaux réglages</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>Damaged Settings</source>
        <translation>Réglages endommagés</translation>
    </message>
    <message>
        <source>Nothing is recorded: your settings could not be read, and the list of ignored applications was among them. Answer the question about them first.</source>
        <translation>Rien n’est enregistré&#xa0;: vos réglages n’ont pas pu être lus, et la liste des applications ignorées en faisait partie. Répondez d’abord à la question à leur sujet.</translation>
    </message>
</context>
<context>
    <name>DesktopShortcut</name>
    <message>
        <source>Change in Settings…</source>
        <translation>Modifier dans les paramètres…</translation>
    </message>
</context>
<context>
    <name>EmptyStateView</name>
    <message>
        <source>Nothing copied yet</source>
        <translation>Rien n’a encore été copié</translation>
    </message>
    <message>
        <source>Whatever you copy appears here.</source>
        <translation>Tout ce que vous copiez apparaît ici.</translation>
    </message>
    <message>
        <source>Whatever you copy appears here.
Press %1 to come back to it.</source>
        <translation>Tout ce que vous copiez apparaît ici.
Appuyez sur %1 pour y revenir.</translation>
    </message>
    <message>
        <source>Nothing matches “%1”</source>
        <translation>Rien ne correspond à «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>* stands for any text and ? for one character;
file: lists copied files.</source>
        <translation>* remplace n’importe quel texte et&#xa0;? un caractère&#xa0;;
file: montre les fichiers copiés.</translation>
    </message>
    <message>
        <source>Nothing pinned yet</source>
        <translation>Rien d’épinglé pour l’instant</translation>
    </message>
    <message>
        <source>Ctrl+D pins the selected clip, so that it stays;
Ctrl+Shift+D lists all clips again.</source>
        <translation>Ctrl+D épingle l’extrait sélectionné pour qu’il reste ;
Ctrl+Maj+D affiche de nouveau tous les extraits.</translation>
    </message>
</context>
<context>
    <name>FeedbackDelivery</name>
    <message>
        <source>Sent. Thank you.</source>
        <translation>Envoyé. Merci.</translation>
    </message>
    <message>
        <source>No file could be written in %1.</source>
        <translation>Aucun fichier n’a pu être écrit dans %1.</translation>
    </message>
    <message>
        <source>&amp;Send</source>
        <translation>&amp;Envoyer</translation>
    </message>
    <message>
        <source>&amp;Save and Mail…</source>
        <translation>&amp;Enregistrer et envoyer par courriel…</translation>
    </message>
    <message>
        <source>This build knows no address to send to: the text is saved in %1, and your mail program opens so that you can attach it.</source>
        <translation>Cette version ne connaît aucune adresse d’envoi&#xa0;: le texte est enregistré dans %1 et votre logiciel de messagerie s’ouvre pour que vous puissiez le joindre.</translation>
    </message>
    <message>
        <source>Saved as %1. Attach it to the mail that opens; if none does, send the file.</source>
        <translation>Enregistré sous %1. Joignez-le au message qui s’ouvre&#xa0;; si aucun ne s’ouvre, envoyez le fichier.</translation>
    </message>
</context>
<context>
    <name>FeedbackDialog</name>
    <message>
        <source>Send Feedback</source>
        <translation>Envoyer un commentaire</translation>
    </message>
    <message>
        <source>This has not been sent yet.</source>
        <translation>Ceci n’a pas encore été envoyé.</translation>
    </message>
    <message>
        <source>Kept from last time.</source>
        <translation>Conservé de la dernière fois.</translation>
    </message>
    <message>
        <source>The text cannot be kept for later. Copy it elsewhere; closing again discards it.</source>
        <translation>Le texte ne peut pas être conservé. Copiez-le ailleurs&#xa0;; fermer de nouveau l’efface.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>This does not look like a mail address.</source>
        <translation>Ceci ne ressemble pas à une adresse de courriel.</translation>
    </message>
    <message>
        <source>Sending…</source>
        <translation>Envoi…</translation>
    </message>
    <message>
        <source>%1 Your text is kept.</source>
        <translation>%1 Votre texte est conservé.</translation>
    </message>
    <message>
        <source>Too long: %1 of at most %2 characters.</source>
        <translation>Trop long&#xa0;: %1 caractères sur %2 au plus.</translation>
    </message>
</context>
<context>
    <name>FeedbackForm</name>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Message</translation>
    </message>
    <message>
        <source>Mail address</source>
        <translation>Adresse de courriel</translation>
    </message>
    <message>
        <source>optional, for an answer</source>
        <translation>facultatif, pour une réponse</translation>
    </message>
    <message>
        <source>Send version and desktop</source>
        <translation>Envoyer la version et le bureau</translation>
    </message>
    <message>
        <source>Ctrl + Return</source>
        <translation>Ctrl + Entrée</translation>
    </message>
    <message>
        <source>&amp;Message:</source>
        <translation>&amp;Message&#xa0;:</translation>
    </message>
    <message>
        <source>Mail &amp;address:</source>
        <translation>&amp;Adresse de courriel&#xa0;:</translation>
    </message>
    <message>
        <source>Only what you see here is sent, never a clip.</source>
        <translation>Seul ce que vous voyez ici est envoyé, jamais un extrait.</translation>
    </message>
    <message>
        <source>Add the &amp;line “%1”</source>
        <translation>Ajouter la &amp;ligne «&#xa0;%1&#xa0;»</translation>
    </message>
</context>
<context>
    <name>FieldMenu</name>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copier</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>&amp;Tout sélectionner</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Rétablir</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>Co&amp;uper</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>C&amp;oller</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Supprimer</translation>
    </message>
</context>
<context>
    <name>FileCard</name>
    <message>
        <source>Changed %1</source>
        <translation>Modifié le %1</translation>
    </message>
    <message>
        <source>Links to %1</source>
        <translation>Lien vers %1</translation>
    </message>
    <message>
        <source>File of an unknown kind</source>
        <translation>Fichier de type inconnu</translation>
    </message>
    <message>
        <source>Created %1</source>
        <translation>Créé le %1</translation>
    </message>
    <message>
        <source>The preview failed unexpectedly</source>
        <translation>L’aperçu a échoué de façon inattendue</translation>
    </message>
    <message>
        <source>The preview took too long</source>
        <translation>L’aperçu a pris trop de temps</translation>
    </message>
    <message>
        <source>The preview needed too much memory</source>
        <translation>L’aperçu demandait trop de mémoire</translation>
    </message>
    <message>
        <source>No previews: they cannot be isolated here</source>
        <translation>Pas d’aperçus : impossible de les isoler ici</translation>
    </message>
    <message>
        <source>No previews: Quillmarsh is incomplete</source>
        <translation>Pas d’aperçus : Quillmarsh est incomplet</translation>
    </message>
    <message>
        <source>Previews pause for a minute after failures</source>
        <translation>Aperçus en pause une minute après des échecs</translation>
    </message>
</context>
<context>
    <name>FileViewController</name>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>Reveal in File Manager</source>
        <translation>Montrer dans le gestionnaire de fichiers</translation>
    </message>
    <message>
        <source>The file no longer exists.</source>
        <translation>Le fichier n’existe plus.</translation>
    </message>
    <message>
        <source>File preview</source>
        <translation>Aperçu du fichier</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files were copied; Return pastes the first</source>
        <translation>
            <numerusform>%Ln fichier a été copié ; Entrée colle le premier</numerusform>
            <numerusform>%Ln fichiers ont été copiés ; Entrée colle le premier</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>FontBody</name>
    <message>
        <source>Specimen of the font %1</source>
        <translation>Spécimen de la police %1</translation>
    </message>
</context>
<context>
    <name>FreedesktopNotifications</name>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
</context>
<context>
    <name>GeneralPaneView</name>
    <message>
        <source>Open Quillmarsh at &amp;login</source>
        <translation>Ouvrir Quillmarsh à l’ouverture de &amp;session</translation>
    </message>
    <message>
        <source>Show &amp;notifications</source>
        <translation>Afficher les &amp;notifications</translation>
    </message>
    <message>
        <source>clips</source>
        <translation>extraits</translation>
    </message>
    <message>
        <source>Open at login</source>
        <translation>Ouvrir à l’ouverture de session</translation>
    </message>
    <message>
        <source>Show notifications</source>
        <translation>Afficher les notifications</translation>
    </message>
    <message>
        <source>Maximum number of items</source>
        <translation>Nombre maximal d’éléments</translation>
    </message>
    <message>
        <source>Maximum text size in bytes</source>
        <translation>Taille maximale du texte en octets</translation>
    </message>
    <message>
        <source>Open history shortcut</source>
        <translation>Raccourci d’ouverture de l’historique</translation>
    </message>
    <message>
        <source>Swop shortcut</source>
        <translation>Raccourci d’échange</translation>
    </message>
    <message>
        <source>The stored size cannot be used. No clip is removed until you choose one.</source>
        <translation>La taille enregistrée est inutilisable. Aucun extrait n’est supprimé tant que vous n’en choisissez pas une.</translation>
    </message>
    <message>
        <source>The stored size is larger than this slider reaches. It holds until you move the slider.</source>
        <translation>La taille enregistrée dépasse ce curseur. Elle reste valable tant que vous ne le déplacez pas.</translation>
    </message>
    <message>
        <source>The oldest clip will be removed when you leave this page.</source>
        <translation>L’extrait le plus ancien sera supprimé quand vous quitterez cette page.</translation>
    </message>
    <message numerus="yes">
        <source>The %Ln oldest clips will be removed when you leave this page.</source>
        <translation>
            <numerusform>L’extrait le plus ancien (%Ln) sera supprimé quand vous quitterez cette page.</numerusform>
            <numerusform>Les %Ln extraits les plus anciens seront supprimés quand vous quitterez cette page.</numerusform>
        </translation>
    </message>
    <message>
        <source>When the history is full, each new copy replaces the oldest clip.</source>
        <translation>Quand l’historique est plein, chaque copie remplace l’extrait le plus ancien.</translation>
    </message>
    <message>
        <source>Nothing is recorded.</source>
        <translation>Rien n’est enregistré.</translation>
    </message>
    <message>
        <source>Still waiting for a key. A combination that the desktop keeps for itself never gets here; choose another one.</source>
        <translation>Une touche est encore attendue. Une combinaison que le bureau se réserve n’arrive jamais ici&#xa0;; choisissez-en une autre.</translation>
    </message>
    <message>
        <source>Swop pastes a clip over the selected text and keeps that text as the newest clip.</source>
        <translation>L’échange colle un extrait à la place du texte sélectionné et garde ce texte comme extrait le plus récent.</translation>
    </message>
    <message>
        <source>Start-up:</source>
        <translation>Démarrage&#xa0;:</translation>
    </message>
    <message>
        <source>Messages:</source>
        <translation>Messages&#xa0;:</translation>
    </message>
    <message>
        <source>Tell you when a copy was too large to be recorded. Turned off, they stay off until Quillmarsh quits.</source>
        <translation>Elles signalent une copie trop longue pour être enregistrée. Désactivées, elles le restent jusqu’à la fermeture de Quillmarsh.</translation>
    </message>
    <message>
        <source>&amp;History size:</source>
        <translation>Taille de l’&amp;historique&#xa0;:</translation>
    </message>
    <message>
        <source>Largest &amp;text:</source>
        <translation>&amp;Texte le plus long&#xa0;:</translation>
    </message>
    <message>
        <source>bytes</source>
        <translation>octets</translation>
    </message>
    <message>
        <source>A longer copy is not recorded.</source>
        <translation>Une copie plus longue n’est pas enregistrée.</translation>
    </message>
    <message>
        <source>&amp;Open history:</source>
        <translation>&amp;Ouvrir l’historique&#xa0;:</translation>
    </message>
    <message>
        <source>S&amp;wop:</source>
        <translation>É&amp;change&#xa0;:</translation>
    </message>
    <message>
        <source>The desktop’s list of start-up programs could not be written.</source>
        <translation>La liste de démarrage du bureau n’a pas pu être écrite.</translation>
    </message>
    <message>
        <source>Switched off in the desktop’s own list. Tick it anew to switch it on.</source>
        <translation>Désactivé dans la liste du bureau. Recochez pour l’activer.</translation>
    </message>
    <message>
        <source>Missing in the desktop’s own list. Tick it anew to put it there.</source>
        <translation>Absent de la liste du bureau. Recochez pour l’y inscrire.</translation>
    </message>
    <message>
        <source>The desktop opens it all the same.</source>
        <translation>Le bureau l’ouvre quand même.</translation>
    </message>
    <message>
        <source>A shortcut needs Ctrl or Super with another key, or is a function key.</source>
        <translation>Un raccourci demande Ctrl ou Super avec une autre touche, ou est une touche de fonction.</translation>
    </message>
    <message>
        <source>Have the desktop’s configuration run these commands for keys of your choice.</source>
        <translation>Faites exécuter ces commandes par des touches de votre choix dans la configuration du bureau.</translation>
    </message>
    <message>
        <source>Add these lines to the desktop’s configuration, with other keys if you like.</source>
        <translation>Ajoutez ces lignes à la configuration du bureau, avec d’autres touches si vous préférez.</translation>
    </message>
    <message>
        <source>Pictures:</source>
        <translation>Images :</translation>
    </message>
    <message>
        <source>MB at most</source>
        <translation>Mo au plus</translation>
    </message>
    <message>
        <source>Copies of nothing but a picture, as files in the data folder.</source>
        <translation>Les copies qui ne contiennent qu’une image, comme fichiers du dossier de données.</translation>
    </message>
</context>
<context>
    <name>GlobalShortcuts</name>
    <message>
        <source>Cut</source>
        <translation>Couper</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Coller</translation>
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
        <translation>Maj</translation>
    </message>
</context>
<context>
    <name>HistoryFooter</name>
    <message>
        <source>Deleted · Ctrl+Z brings it back</source>
        <translation>Supprimé · Ctrl+Z le rétablit</translation>
    </message>
    <message numerus="yes">
        <source>%Ln deleted clips did not fit: the history keeps %1 at most</source>
        <translation>
            <numerusform>%Ln extrait supprimé n’avait plus de place : l’historique en garde %1 au plus</numerusform>
            <numerusform>%Ln extraits supprimés n’avaient plus de place : l’historique en garde %1 au plus</numerusform>
        </translation>
    </message>
    <message>
        <source>Deleted for good · too large for Ctrl+Z</source>
        <translation>Supprimé définitivement · trop volumineux pour Ctrl+Z</translation>
    </message>
    <message>
        <source>Deleted · Ctrl+Z brings back all but the largest pictures</source>
        <translation>Supprimé · Ctrl+Z rétablit tout sauf les plus grandes images</translation>
    </message>
</context>
<context>
    <name>HistoryNotices</name>
    <message numerus="yes">
        <source>A copy of %Ln bytes was not recorded; the limit is %1</source>
        <translation>
            <numerusform>Une copie de %Ln octet n’a pas été enregistrée&#xa0;; la limite est de %1</numerusform>
            <numerusform>Une copie de %Ln octets n’a pas été enregistrée&#xa0;; la limite est de %1</numerusform>
        </translation>
    </message>
    <message>
        <source>A copy was not recorded; it is larger than the limit of %1 bytes</source>
        <translation>Une copie n’a pas été enregistrée&#xa0;; elle dépasse la limite de %1 octets</translation>
    </message>
    <message>
        <source>The copied picture is replaced</source>
        <translation>L’image copiée est remplacée</translation>
    </message>
    <message>
        <source>What was copied is replaced</source>
        <translation>Ce qui était copié est remplacé</translation>
    </message>
</context>
<context>
    <name>HttpsExchange</name>
    <message>
        <source>The server redirects to an address that is not secure.</source>
        <translation>Le serveur redirige vers une adresse non sécurisée.</translation>
    </message>
    <message>
        <source>The server could not prove who it is, or the connection is not secure.</source>
        <translation>Le serveur n’a pas pu prouver son identité, ou la connexion n’est pas sécurisée.</translation>
    </message>
    <message>
        <source>The server %1 was not found. Are you connected to the internet?</source>
        <translation>Le serveur %1 est introuvable. Êtes-vous connecté à Internet&#xa0;?</translation>
    </message>
    <message>
        <source>The server %1 cannot be reached.</source>
        <translation>Le serveur %1 est injoignable.</translation>
    </message>
    <message>
        <source>The server ended the connection.</source>
        <translation>Le serveur a mis fin à la connexion.</translation>
    </message>
    <message>
        <source>The server does not have the file.</source>
        <translation>Le serveur n’a pas ce fichier.</translation>
    </message>
    <message>
        <source>The server answered with error %1.</source>
        <translation>Le serveur a répondu par l’erreur %1.</translation>
    </message>
    <message>
        <source>The connection failed: %1.</source>
        <translation>La connexion a échoué&#xa0;: %1.</translation>
    </message>
    <message>
        <source>The server took too long to answer.</source>
        <translation>Le serveur a mis trop de temps à répondre.</translation>
    </message>
    <message>
        <source>The address is not a secure one (https).</source>
        <translation>L’adresse n’est pas sécurisée (https).</translation>
    </message>
    <message>
        <source>The server sends more than was announced.</source>
        <translation>Le serveur envoie plus que ce qui était annoncé.</translation>
    </message>
    <message>
        <source>The server answered with status %1.</source>
        <translation>Le serveur a répondu par l’état %1.</translation>
    </message>
    <message>
        <source>The server stopped answering.</source>
        <translation>Le serveur ne répond plus.</translation>
    </message>
</context>
<context>
    <name>IgnoredApplicationsModel</name>
    <message>
        <source>%1 (recognised by this name only)</source>
        <translation>%1 (reconnu à ce seul nom)</translation>
    </message>
</context>
<context>
    <name>ImageBody</name>
    <message>
        <source>Picture</source>
        <translation>Image</translation>
    </message>
</context>
<context>
    <name>Installation</name>
    <message>
        <source>Quillmarsh was installed by your system&apos;s package manager, which also updates it.</source>
        <translation>Quillmarsh a été installé par le gestionnaire de paquets du système, qui le met aussi à jour.</translation>
    </message>
    <message>
        <source>Quillmarsh was not installed in a way that it could update itself. Updates come from where you got it.</source>
        <translation>Quillmarsh n’a pas été installé de façon à pouvoir se mettre à jour lui-même. Les mises à jour viennent de là où vous l’avez obtenu.</translation>
    </message>
    <message>
        <source>The folder %1 cannot be written to.</source>
        <translation>Le dossier %1 n’est pas accessible en écriture.</translation>
    </message>
    <message>
        <source>%1 was replaced while Quillmarsh was running. Restart Quillmarsh to use what is there now.</source>
        <translation>%1 a été remplacé pendant que Quillmarsh fonctionnait. Redémarrez Quillmarsh pour utiliser ce qui s’y trouve maintenant.</translation>
    </message>
</context>
<context>
    <name>IssueReportDialog</name>
    <message>
        <source>Show &amp;Report</source>
        <translation>&amp;Montrer le rapport</translation>
    </message>
    <message>
        <source>&amp;Do Not Send</source>
        <translation>&amp;Ne pas envoyer</translation>
    </message>
    <message>
        <source>Problem Report</source>
        <translation>Rapport d’incident</translation>
    </message>
    <message>
        <source>Quillmarsh ended unexpectedly</source>
        <translation>Quillmarsh s’est arrêté de façon inattendue</translation>
    </message>
    <message>
        <source>May the report be sent, so that the fault can be found? It says which version failed, how, and at which place in the program. It holds no clip and no other text of yours. If you do not send it, it is deleted.</source>
        <translation>Le rapport peut-il être envoyé, afin que le défaut soit trouvé&#xa0;? Il indique la version en cause, ce qui s’est passé et à quel endroit du programme. Il ne contient aucun extrait ni aucun autre texte de votre part. Si vous ne l’envoyez pas, il est supprimé.</translation>
    </message>
    <message>
        <source>Report</source>
        <translation>Rapport</translation>
    </message>
    <message>
        <source>Hide &amp;Report</source>
        <translation>&amp;Masquer le rapport</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Sending…</source>
        <translation>Envoi…</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>%1 The report is kept, and you will be asked at the next start.</source>
        <translation>%1 Le rapport est conservé&#xa0;; la question reviendra au prochain démarrage.</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>Réessayer</translation>
    </message>
</context>
<context>
    <name>ListBody</name>
    <message>
        <source>1 entry</source>
        <translation>1 élément</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>%1, %2 or more</source>
        <translation>%1, %2 ou plus</translation>
    </message>
    <message>
        <source>Entries</source>
        <translation>Éléments</translation>
    </message>
    <message numerus="yes">
        <source>%Ln entries</source>
        <translation>
            <numerusform>%Ln élément</numerusform>
            <numerusform>%Ln éléments</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MASShortcut</name>
    <message>
        <source>Space</source>
        <translation>Espace</translation>
    </message>
</context>
<context>
    <name>MASShortcutValidator</name>
    <message>
        <source>This combination cannot be used because it is already used by a system-wide keyboard shortcut.
If you really want to use this key combination, most shortcuts can be changed in the Keyboard &amp; Mouse panel in System Preferences.</source>
        <translation>Cette combinaison ne peut pas être utilisée, car elle sert déjà de raccourci clavier du système.
Si vous tenez à cette combinaison, la plupart des raccourcis peuvent être modifiés dans la section Clavier et souris des préférences système.</translation>
    </message>
    <message>
        <source>This shortcut cannot be used because it is already used by the menu item ‘%1’.</source>
        <translation>Ce raccourci ne peut pas être utilisé, car il est déjà celui de l’élément de menu «&#xa0;%1&#xa0;».</translation>
    </message>
</context>
<context>
    <name>MASShortcutView</name>
    <message>
        <source>Shortcut</source>
        <translation>Raccourci</translation>
    </message>
    <message>
        <source>The key combination %1 cannot be used</source>
        <translation>La combinaison de touches %1 ne peut pas être utilisée</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Record Shortcut</source>
        <translation>Enregistrer un raccourci</translation>
    </message>
    <message>
        <source>Use Old Shortcut</source>
        <translation>Garder l’ancien raccourci</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Type New Shortcut</source>
        <translation>Taper le nouveau raccourci</translation>
    </message>
    <message>
        <source>Type Shortcut</source>
        <translation>Taper le raccourci</translation>
    </message>
    <message>
        <source>Delete shortcut</source>
        <translation>Supprimer le raccourci</translation>
    </message>
    <message>
        <source>Click to record new shortcut</source>
        <translation>Cliquer pour enregistrer un nouveau raccourci</translation>
    </message>
</context>
<context>
    <name>MailHandOver</name>
    <message>
        <source>(Please attach the file %1)</source>
        <translation>(Veuillez joindre le fichier %1)</translation>
    </message>
</context>
<context>
    <name>MovingIn</name>
    <message numerus="yes">
        <source>&amp;Bring along the newest %Ln clips of %1</source>
        <translation>
            <numerusform>&amp;Reprendre l’extrait le plus récent (%Ln) de %1</numerusform>
            <numerusform>&amp;Reprendre les %Ln extraits les plus récents de %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>&amp;Bring along %Ln clips of %1</source>
        <translation>
            <numerusform>&amp;Reprendre %Ln extrait de %1</numerusform>
            <numerusform>&amp;Reprendre %Ln extraits de %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PathLabel</name>
    <message>
        <source>Path of the file</source>
        <translation>Chemin du fichier</translation>
    </message>
</context>
<context>
    <name>PdfBody</name>
    <message numerus="yes">
        <source>Document of %n pages</source>
        <translation>
            <numerusform>Document de %n page</numerusform>
            <numerusform>Document de %n pages</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PictureChoice</name>
    <message>
        <source>&amp;Keep copied pictures</source>
        <translation>Conserver les images copi&amp;ées</translation>
    </message>
    <message>
        <source>Keep copied pictures</source>
        <translation>Conserver les images copiées</translation>
    </message>
    <message>
        <source>Maximum picture size in megabytes</source>
        <translation>Taille maximale d’une image en mégaoctets</translation>
    </message>
</context>
<context>
    <name>PortalHotKeys</name>
    <message>
        <source>No keys</source>
        <translation>Aucune touche</translation>
    </message>
</context>
<context>
    <name>PreferencesApplicationViewController</name>
    <message>
        <source>Applications</source>
        <translation>Applications</translation>
    </message>
</context>
<context>
    <name>PreferencesGeneralViewController</name>
    <message>
        <source>General</source>
        <translation>Général</translation>
    </message>
    <message>
        <source>No limit</source>
        <translation>Sans limite</translation>
    </message>
    <message>
        <source>Show clipboard history</source>
        <translation>Afficher l’historique du presse-papiers</translation>
    </message>
    <message>
        <source>Swop selection with a clip</source>
        <translation>Échanger la sélection contre un extrait</translation>
    </message>
</context>
<context>
    <name>SearchField</name>
    <message>
        <source>Search clips</source>
        <translation>Chercher dans les extraits</translation>
    </message>
    <message>
        <source>Clear search</source>
        <translation>Effacer la recherche</translation>
    </message>
    <message>
        <source>Pinned clips only</source>
        <translation>Extraits épinglés seulement</translation>
    </message>
    <message>
        <source>Pinned clips only (Ctrl+Shift+D)</source>
        <translation>Extraits épinglés seulement (Ctrl+Maj+D)</translation>
    </message>
    <message>
        <source>Search pinned clips</source>
        <translation>Chercher dans les extraits épinglés</translation>
    </message>
</context>
<context>
    <name>ShortcutNote</name>
    <message>
        <source>Used by another program</source>
        <translation>Utilisé par un autre programme</translation>
    </message>
    <message>
        <source>Used by the other shortcut</source>
        <translation>Utilisé par l’autre raccourci</translation>
    </message>
    <message>
        <source>Not possible as a shortcut</source>
        <translation>Impossible comme raccourci</translation>
    </message>
    <message>
        <source>%1 in the desktop’s settings</source>
        <translation>%1 dans les réglages du bureau</translation>
    </message>
</context>
<context>
    <name>StatusMenu</name>
    <message>
        <source>Check For Updates...</source>
        <translation>Rechercher des mises à jour…</translation>
    </message>
    <message>
        <source>Preferences...</source>
        <translation>Préférences…</translation>
    </message>
    <message>
        <source>Launch...</source>
        <translation>Ouvrir l’historique…</translation>
    </message>
    <message>
        <source>Clear All</source>
        <translation>Tout effacer</translation>
    </message>
    <message>
        <source>Help...</source>
        <translation>Aide…</translation>
    </message>
    <message>
        <source>Send Feedback...</source>
        <translation>Envoyer un commentaire…</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>Allow Recording...</source>
        <translation>Autoriser l’enregistrement...</translation>
    </message>
</context>
<context>
    <name>SwopPicture</name>
    <message>
        <source>Monday</source>
        <translation>lundi</translation>
    </message>
    <message>
        <source>Thursday</source>
        <translation>jeudi</translation>
    </message>
    <message>
        <source>at half past two</source>
        <translation>à 14&#xa0;h&#xa0;30</translation>
    </message>
    <message>
        <source>Reed Lane 7</source>
        <translation>7, rue des Roseaux</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>Avant</translation>
    </message>
    <message>
        <source>After</source>
        <translation>Après</translation>
    </message>
    <message>
        <source>See you on</source>
        <translation>À</translation>
    </message>
    <message>
        <source>by the old mill.</source>
        <translation>au vieux moulin.</translation>
    </message>
</context>
<context>
    <name>TextBody</name>
    <message>
        <source>… the file goes on</source>
        <translation>… le fichier continue</translation>
    </message>
    <message>
        <source>Beginning of the text</source>
        <translation>Début du texte</translation>
    </message>
</context>
<context>
    <name>TourGuide</name>
    <message>
        <source>Find</source>
        <translation>Chercher</translation>
    </message>
    <message>
        <source>Start typing as soon as the window opens. * stands for any text, ? for one character, and file: lists copied files.</source>
        <translation>Tapez dès que la fenêtre s’ouvre. * remplace n’importe quel texte,&#xa0;? un caractère, et file: montre les fichiers copiés.</translation>
    </message>
    <message>
        <source>Choose</source>
        <translation>Choisir</translation>
    </message>
    <message>
        <source>Your copies, newest first. Move with the arrow keys, or press the open shortcut again to step down.</source>
        <translation>Vos copies, la plus récente d’abord. Déplacez-vous avec les flèches, ou répétez le raccourci d’ouverture pour descendre.</translation>
    </message>
    <message>
        <source>Look</source>
        <translation>Regarder</translation>
    </message>
    <message>
        <source>The whole clip, or the copied file itself, before you paste it.</source>
        <translation>L’extrait entier, ou le fichier copié lui-même, avant de coller.</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Coller</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Entrée</translation>
    </message>
    <message>
        <source>paste</source>
        <translation>coller</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Maj</translation>
    </message>
    <message>
        <source>UPPER CASE</source>
        <translation>MAJUSCULES</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>lower case</source>
        <translation>minuscules</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Super</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Retour arrière</translation>
    </message>
    <message>
        <source>delete</source>
        <translation>supprimer</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Échap</translation>
    </message>
    <message>
        <source>close</source>
        <translation>fermer</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Suivant</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Terminé</translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation>Ctrl</translation>
    </message>
    <message>
        <source>plain text</source>
        <translation>texte brut</translation>
    </message>
    <message>
        <source>rows 1 to 10</source>
        <translation>lignes 1 à 10</translation>
    </message>
</context>
<context>
    <name>TraylessHint</name>
    <message>
        <source>Quillmarsh is running</source>
        <translation>Quillmarsh est lancé</translation>
    </message>
    <message>
        <source>Press %1 to open the history, or start Quillmarsh again.</source>
        <translation>Appuyez sur %1 pour ouvrir l’historique, ou lancez de nouveau Quillmarsh.</translation>
    </message>
    <message>
        <source>Start Quillmarsh again to open the history.</source>
        <translation>Lancez de nouveau Quillmarsh pour ouvrir l’historique.</translation>
    </message>
</context>
<context>
    <name>UpdateDownload</name>
    <message>
        <source>There is no place to download to.</source>
        <translation>Il n’y a aucun emplacement où télécharger.</translation>
    </message>
    <message>
        <source>The server has another file than before. Try again.</source>
        <translation>Le serveur a un autre fichier qu’auparavant. Réessayez.</translation>
    </message>
    <message>
        <source>The server sends more than was announced.</source>
        <translation>Le serveur envoie plus que ce qui était annoncé.</translation>
    </message>
    <message>
        <source>The download could not be written: %1.</source>
        <translation>Le téléchargement n’a pas pu être écrit&#xa0;: %1.</translation>
    </message>
    <message>
        <source>The server sent less than was announced.</source>
        <translation>Le serveur a envoyé moins que ce qui était annoncé.</translation>
    </message>
</context>
<context>
    <name>UpdateFeed</name>
    <message>
        <source>The list of updates cannot be used.</source>
        <translation>La liste des mises à jour est inutilisable.</translation>
    </message>
    <message>
        <source>It is not a list of updates.</source>
        <translation>Ce n’est pas une liste de mises à jour.</translation>
    </message>
    <message>
        <source>Version %1 has no file.</source>
        <translation>La version %1 n’a pas de fichier.</translation>
    </message>
    <message>
        <source>It is too long.</source>
        <translation>Elle est trop longue.</translation>
    </message>
    <message>
        <source>It is damaged in line %1.</source>
        <translation>Elle est endommagée à la ligne %1.</translation>
    </message>
    <message>
        <source>It offers a version that is not a number: “%1”.</source>
        <translation>Elle propose une version qui n’est pas un nombre&#xa0;: «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>Version %1 has no known channel.</source>
        <translation>La version %1 n’a pas de canal connu.</translation>
    </message>
    <message>
        <source>Version %1 asks for an unknown system.</source>
        <translation>La version %1 demande un système inconnu.</translation>
    </message>
    <message>
        <source>Version %1 is not at a secure address (https).</source>
        <translation>La version %1 n’est pas à une adresse sécurisée (https).</translation>
    </message>
    <message>
        <source>Version %1 has no possible size.</source>
        <translation>La version %1 n’a pas de taille possible.</translation>
    </message>
    <message>
        <source>Version %1 is not signed.</source>
        <translation>La version %1 n’est pas signée.</translation>
    </message>
    <message>
        <source>Version %1 has an impossible name.</source>
        <translation>La version %1 a un nom impossible.</translation>
    </message>
</context>
<context>
    <name>UpdateInstaller</name>
    <message>
        <source>There is not enough room on the disk.</source>
        <translation>Il n’y a pas assez de place sur le disque.</translation>
    </message>
    <message>
        <source>The update could not be put in its place: %1.</source>
        <translation>La mise à jour n’a pas pu être mise en place&#xa0;: %1.</translation>
    </message>
    <message>
        <source>The downloaded file is gone.</source>
        <translation>Le fichier téléchargé a disparu.</translation>
    </message>
    <message>
        <source>The downloaded file has not the size that was announced.</source>
        <translation>Le fichier téléchargé n’a pas la taille annoncée.</translation>
    </message>
    <message>
        <source>The signature of the downloaded file is not the publisher&apos;s. It was not installed.</source>
        <translation>La signature du fichier téléchargé n’est pas celle de l’éditeur. Il n’a pas été installé.</translation>
    </message>
    <message>
        <source>The update was cancelled.</source>
        <translation>La mise à jour a été annulée.</translation>
    </message>
    <message>
        <source>The update could not be written correctly.</source>
        <translation>La mise à jour n’a pas pu être écrite correctement.</translation>
    </message>
    <message>
        <source>This version is installed already. It starts the next time.</source>
        <translation>Cette version est déjà installée. Elle démarrera la prochaine fois.</translation>
    </message>
    <message>
        <source>The update holds no program.</source>
        <translation>La mise à jour ne contient aucun programme.</translation>
    </message>
    <message>
        <source>Version %1 is running. Quit it first.</source>
        <translation>La version %1 est en cours d’exécution. Quittez-la d’abord.</translation>
    </message>
</context>
<context>
    <name>UpdateRun</name>
    <message>
        <source>Another update of Quillmarsh is under way.</source>
        <translation>Une autre mise à jour de Quillmarsh est en cours.</translation>
    </message>
    <message>
        <source>Signatures cannot be checked, so nothing is installed.</source>
        <translation>Les signatures ne peuvent pas être vérifiées&#xa0;: rien n’est donc installé.</translation>
    </message>
</context>
<context>
    <name>UpdateWindow</name>
    <message>
        <source>Look for updates once a &amp;day</source>
        <translation>Rechercher des mises à jour une fois par &amp;jour</translation>
    </message>
    <message>
        <source>&amp;Skip This Version</source>
        <translation>I&amp;gnorer cette version</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>&amp;Plus tard</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>&amp;Install</source>
        <translation>&amp;Installer</translation>
    </message>
    <message>
        <source>Software Update</source>
        <translation>Mise à jour logicielle</translation>
    </message>
    <message>
        <source>Release notes</source>
        <translation>Notes de version</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Commande</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progression</translation>
    </message>
    <message>
        <source>Looking for updates…</source>
        <translation>Recherche de mises à jour…</translation>
    </message>
    <message>
        <source>You have the newest version</source>
        <translation>Vous avez la dernière version</translation>
    </message>
    <message>
        <source>%1 %2 is up to date.</source>
        <translation>%1 %2 est à jour.</translation>
    </message>
    <message>
        <source>%1 %2 is available</source>
        <translation>%1 %2 est disponible</translation>
    </message>
    <message>
        <source>You have version %1. %2 restarts when the update is installed; your history and your settings stay as they are.</source>
        <translation>Vous avez la version %1. %2 redémarre une fois la mise à jour installée&#xa0;; l’historique et les réglages restent tels quels.</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
    <message>
        <source>Downloading the update</source>
        <translation>Téléchargement de la mise à jour</translation>
    </message>
    <message>
        <source>Installing the update</source>
        <translation>Installation de la mise à jour</translation>
    </message>
    <message>
        <source>Its signature is checked first.</source>
        <translation>Sa signature est d’abord vérifiée.</translation>
    </message>
    <message>
        <source>The update is installed</source>
        <translation>La mise à jour est installée</translation>
    </message>
    <message>
        <source>%1 uses it from its next start.</source>
        <translation>%1 l’utilisera dès son prochain démarrage.</translation>
    </message>
    <message>
        <source>%1 could not be updated</source>
        <translation>%1 n’a pas pu être mis à jour</translation>
    </message>
    <message>
        <source>%1 does not update itself here</source>
        <translation>%1 ne se met pas à jour lui-même ici</translation>
    </message>
    <message>
        <source>Version %1 needs a newer system</source>
        <translation>La version %1 nécessite un système plus récent</translation>
    </message>
    <message>
        <source>%1 %2 is the newest version that this system can run.</source>
        <translation>%1 %2 est la version la plus récente que ce système peut exécuter.</translation>
    </message>
</context>
<context>
    <name>ViewController</name>
    <message>
        <source>%1 of %2: %3</source>
        <translation>%1 sur %2&#xa0;: %3</translation>
    </message>
    <message>
        <source>Swop: no selection is held, so the clip is only pasted</source>
        <translation>Échange&#xa0;: aucune sélection n’est retenue, l’extrait est simplement collé</translation>
    </message>
    <message>
        <source>Swop: the selection of %1 is held</source>
        <translation>Échange&#xa0;: la sélection de %1 est retenue</translation>
    </message>
    <message>
        <source>Swop: the selection is held</source>
        <translation>Échange&#xa0;: la sélection est retenue</translation>
    </message>
    <message>
        <source>Nothing is recorded: the history cannot be written</source>
        <translation>Rien n’est enregistré&#xa0;: l’historique n’est pas accessible en écriture</translation>
    </message>
    <message>
        <source>%1 of %2, pinned: %3</source>
        <translation>%1 sur %2, épinglé : %3</translation>
    </message>
</context>
<context>
    <name>WelcomePage1Controller</name>
    <message>
        <source>Everything you copy, at hand</source>
        <translation>Tout ce que vous copiez, à portée de main</translation>
    </message>
    <message>
        <source>Quillmarsh keeps each text and each file you copy, and pastes any of them again wherever you are typing.</source>
        <translation>Quillmarsh garde chaque texte et chaque fichier que vous copiez, et les recolle là où vous écrivez.</translation>
    </message>
    <message>
        <source>Open Quillmarsh at &amp;login</source>
        <translation>Ouvrir Quillmarsh à l’ouverture de &amp;session</translation>
    </message>
    <message>
        <source>Check for &amp;updates</source>
        <translation>Rechercher des &amp;mises à jour</translation>
    </message>
    <message>
        <source>Open at login</source>
        <translation>Ouvrir à l’ouverture de session</translation>
    </message>
    <message>
        <source>Check for updates</source>
        <translation>Rechercher des mises à jour</translation>
    </message>
    <message>
        <source>Have the &amp;desktop ask when I go on</source>
        <translation>Faire &amp;demander le bureau ensuite</translation>
    </message>
</context>
<context>
    <name>WelcomePages</name>
    <message>
        <source>opens the history over any application</source>
        <translation>ouvre l’historique par-dessus toute application</translation>
    </message>
    <message>
        <source>typing narrows it: part of a word is enough</source>
        <translation>taper filtre&#xa0;: une partie d’un mot suffit</translation>
    </message>
    <message>
        <source>choose a clip</source>
        <translation>choisir un extrait</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Entrée</translation>
    </message>
    <message>
        <source>pastes it where you were typing</source>
        <translation>le colle là où vous écriviez</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Maj</translation>
    </message>
    <message>
        <source>pastes it IN UPPER CASE</source>
        <translation>le colle EN MAJUSCULES</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>pastes it in lower case</source>
        <translation>le colle en minuscules</translation>
    </message>
    <message>
        <source>Open, find, paste</source>
        <translation>Ouvrir, chercher, coller</translation>
    </message>
    <message>
        <source>Your hands stay on the keyboard, and the text goes into the window you came from.</source>
        <translation>Vos mains restent sur le clavier, et le texte va dans la fenêtre d’où vous veniez.</translation>
    </message>
    <message>
        <source>Swop a selection for a clip</source>
        <translation>Échanger une sélection contre un extrait</translation>
    </message>
    <message>
        <source>Select a text, press the keys, choose a clip. The clip takes the selection’s place, and the selection becomes your newest clip.</source>
        <translation>Sélectionnez un texte, appuyez sur les touches, choisissez un extrait. L’extrait prend la place de la sélection, qui devient votre extrait le plus récent.</translation>
    </message>
    <message>
        <source>The history is one file that only you can read, in
%1.</source>
        <translation>L’historique est un seul fichier que vous seul pouvez lire, dans
%1.</translation>
    </message>
    <message>
        <source>Never recorded: what a password manager marks as secret, and copies from the applications that you list in Preferences.</source>
        <translation>Jamais enregistré&#xa0;: ce qu’un gestionnaire de mots de passe marque comme secret, et les copies des applications listées dans les préférences.</translation>
    </message>
    <message>
        <source>To delete a clip for good, press Super + Backspace in the history. To delete them all, choose “Clear All” in the menu.</source>
        <translation>Pour supprimer définitivement un extrait, appuyez sur Super + Retour arrière dans l’historique. Pour tous les supprimer, choisissez «&#xa0;Tout effacer&#xa0;» dans le menu.</translation>
    </message>
    <message>
        <source>Yours alone</source>
        <translation>À vous seul</translation>
    </message>
    <message>
        <source>Your clips never leave this computer.</source>
        <translation>Vos extraits ne quittent jamais cet ordinateur.</translation>
    </message>
    <message>
        <source>(turned off)</source>
        <translation>(désactivé)</translation>
    </message>
</context>
<context>
    <name>WelcomeWindow</name>
    <message>
        <source>Welcome to Quillmarsh</source>
        <translation>Bienvenue dans Quillmarsh</translation>
    </message>
</context>
<context>
    <name>WelcomeWindowController</name>
    <message>
        <source>Open your history at any time: %1</source>
        <translation>Ouvrez votre historique à tout moment&#xa0;: %1</translation>
    </message>
    <message>
        <source>Open your history at any time: %1. The default is %2.</source>
        <translation>Ouvrez votre historique à tout moment&#xa0;: %1. Par défaut&#xa0;: %2.</translation>
    </message>
    <message>
        <source>The shortcut that opens the history, by default %1, is turned off.</source>
        <translation>Le raccourci qui ouvre l’historique, par défaut %1, est désactivé.</translation>
    </message>
    <message>
        <source>This desktop lets no program set shortcuts. Preferences has the line that its configuration needs.</source>
        <translation>Ce bureau ne laisse aucun programme définir des raccourcis. Les préférences donnent la ligne à mettre dans sa configuration.</translation>
    </message>
</context>
<context>
    <name>WelcomeWindowView</name>
    <message>
        <source>Previous</source>
        <translation>Précédent</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Suivant</translation>
    </message>
    <message>
        <source>Take the tour</source>
        <translation>Faire la visite</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Terminé</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Page %1 sur %2</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
</TS>
