<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>AppDelegate</name>
    <message>
        <source>Nothing is recorded</source>
        <translation>No se guarda nada</translation>
    </message>
    <message>
        <source>The history in %1 cannot be written.</source>
        <translation>No se puede escribir en el historial de %1.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln clips to be pasted</source>
        <translation>
            <numerusform>%Ln recorte por pegar</numerusform>
            <numerusform>%Ln recortes por pegar</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln clips are still to be pasted; Esc ends that</source>
        <translation>
            <numerusform>Queda %Ln recorte por pegar; Esc lo termina</numerusform>
            <numerusform>Quedan %Ln recortes por pegar; Esc lo termina</numerusform>
        </translation>
    </message>
    <message>
        <source>Ask the Desktop...</source>
        <translation>Preguntar al escritorio...</translation>
    </message>
</context>
<context>
    <name>ApplicationChooser</name>
    <message>
        <source>&amp;Other…</source>
        <translation>&amp;Otra…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>&amp;Choose</source>
        <translation>&amp;Elegir</translation>
    </message>
    <message>
        <source>Choose Application</source>
        <translation>Elegir una aplicación</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtrar</translation>
    </message>
    <message>
        <source>Filter applications</source>
        <translation>Filtrar las aplicaciones</translation>
    </message>
    <message>
        <source>Applications</source>
        <translation>Aplicaciones</translation>
    </message>
    <message>
        <source>“%1” is not an application.</source>
        <translation>«%1» no es una aplicación.</translation>
    </message>
</context>
<context>
    <name>ApplicationsPaneView</name>
    <message>
        <source>%1 and %2</source>
        <translation>%1 y %2</translation>
    </message>
    <message>
        <source>Ignored applications</source>
        <translation>Aplicaciones ignoradas</translation>
    </message>
    <message>
        <source>Add application</source>
        <translation>Añadir una aplicación</translation>
    </message>
    <message>
        <source>Remove application</source>
        <translation>Quitar la aplicación</translation>
    </message>
    <message numerus="yes">
        <source>Ignore %Ln password managers</source>
        <translation>
            <numerusform>Ignorar %Ln gestor de contraseñas</numerusform>
            <numerusform>Ignorar %Ln gestores de contraseñas</numerusform>
        </translation>
    </message>
    <message>
        <source>Ignore %1</source>
        <translation>Ignorar %1</translation>
    </message>
    <message>
        <source>Add an application whose copies shall stay private.</source>
        <translation>Añada una aplicación cuyas copias deban seguir siendo privadas.</translation>
    </message>
    <message>
        <source>What is copied from %1 is recorded like any other text. You may want to keep passwords out of the history.</source>
        <translation>Lo que se copia de %1 se guarda como cualquier otro texto. Quizá prefiera dejar las contraseñas fuera del historial.</translation>
    </message>
    <message>
        <source>No application is ignored</source>
        <translation>No se ignora ninguna aplicación</translation>
    </message>
    <message>
        <source>What is copied while one of these applications is in front is never recorded.</source>
        <translation>Lo que se copia mientras una de estas aplicaciones está en primer plano nunca se guarda.</translation>
    </message>
</context>
<context>
    <name>ArchiveExtraction</name>
    <message>
        <source>There is not enough room on the disk.</source>
        <translation>No hay suficiente espacio en el disco.</translation>
    </message>
    <message>
        <source>A file could not be written: %1.</source>
        <translation>No se ha podido escribir un archivo: %1.</translation>
    </message>
    <message>
        <source>The update is damaged.</source>
        <translation>La actualización está dañada.</translation>
    </message>
    <message>
        <source>The update holds files that do not belong into it.</source>
        <translation>La actualización contiene archivos que no le corresponden.</translation>
    </message>
    <message>
        <source>The update was cancelled.</source>
        <translation>La actualización se ha cancelado.</translation>
    </message>
</context>
<context>
    <name>ByteCount</name>
    <message>
        <source>1 byte</source>
        <translation>1 byte</translation>
    </message>
    <message>
        <source>bytes</source>
        <translation>bytes</translation>
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
        <translation>Preferencias</translation>
    </message>
</context>
<context>
    <name>Capabilities</name>
    <message>
        <source>This desktop lets no program type, so clips are put on the clipboard only.</source>
        <translation>Este escritorio no deja escribir a ningún programa, así que los recortes solo se ponen en el portapapeles.</translation>
    </message>
    <message>
        <source>KDE has not allowed Quillmarsh to type, so clips are put on the clipboard only.</source>
        <translation>KDE no ha permitido a Quillmarsh escribir, así que los recortes solo se ponen en el portapapeles.</translation>
    </message>
    <message>
        <source>This desktop lets no program set shortcuts.</source>
        <translation>Este escritorio no deja que ningún programa establezca atajos.</translation>
    </message>
    <message>
        <source>Have its configuration start Quillmarsh for a key.</source>
        <translation>Haga que su configuración inicie Quillmarsh con una tecla.</translation>
    </message>
    <message>
        <source>Quillmarsh runs through Xwayland here and sees only what X11 applications copy.</source>
        <translation>Quillmarsh funciona aquí a través de Xwayland y solo ve lo que copian las aplicaciones X11.</translation>
    </message>
    <message>
        <source>Install the package qt6-wayland, and start Quillmarsh again.</source>
        <translation>Instale el paquete qt6-wayland y vuelva a iniciar Quillmarsh.</translation>
    </message>
    <message>
        <source>They may do nothing while a native Wayland window is in front.</source>
        <translation>Puede que no hagan nada mientras haya delante una ventana nativa de Wayland.</translation>
    </message>
    <message>
        <source>Have the desktop run “quillmarsh launch” for a key.</source>
        <translation>Haga que el escritorio ejecute «quillmarsh launch» con una tecla.</translation>
    </message>
    <message>
        <source>Only X11 applications can be pasted into.</source>
        <translation>Solo se puede pegar en aplicaciones X11.</translation>
    </message>
    <message>
        <source>Install the package, or save these lines as ~/.local/share/applications/quillmarsh-program.desktop. Then start Quillmarsh again.</source>
        <translation>Instale el paquete o guarde estas líneas como ~/.local/share/applications/quillmarsh-program.desktop. Después vuelva a iniciar Quillmarsh.</translation>
    </message>
    <message>
        <source>Have Quillmarsh ask for it, and tick every box of the desktop’s question.</source>
        <translation>Haga que Quillmarsh lo pida y marque todas las casillas de la pregunta del escritorio.</translation>
    </message>
    <message>
        <source>This desktop lets a program see copies and paste only as remote control.</source>
        <translation>Este escritorio solo deja que un programa vea lo copiado y pegue como control remoto.</translation>
    </message>
    <message>
        <source>The desktop is asking whether Quillmarsh may.</source>
        <translation>El escritorio está preguntando si Quillmarsh puede hacerlo.</translation>
    </message>
    <message>
        <source>The desktop’s question was answered with no.</source>
        <translation>La pregunta del escritorio se respondió con un no.</translation>
    </message>
    <message>
        <source>The remote control by Quillmarsh has been ended.</source>
        <translation>El control remoto de Quillmarsh ha terminado.</translation>
    </message>
    <message>
        <source>The desktop’s portals do not answer, or do not offer remote control.</source>
        <translation>Los portales del escritorio no responden o no ofrecen control remoto.</translation>
    </message>
    <message>
        <source>Remote interaction was not allowed, so clips are put on the clipboard only.</source>
        <translation>No se permitió la interacción remota, así que los clips solo se ponen en el portapapeles.</translation>
    </message>
</context>
<context>
    <name>CapabilityTable</name>
    <message>
        <source>Recording:</source>
        <translation>Registro:</translation>
    </message>
    <message>
        <source>Shortcuts:</source>
        <translation>Atajos:</translation>
    </message>
    <message>
        <source>Pasting:</source>
        <translation>Pegado:</translation>
    </message>
    <message>
        <source>Window’s place:</source>
        <translation>Lugar de la ventana:</translation>
    </message>
    <message>
        <source>works</source>
        <translation>funciona</translation>
    </message>
    <message>
        <source>needs a step of yours</source>
        <translation>requiere un paso suyo</translation>
    </message>
    <message>
        <source>withheld</source>
        <translation>no permitido</translation>
    </message>
    <message>
        <source>Copy all lines for the configuration</source>
        <translation>Copiar todas las líneas de configuración</translation>
    </message>
    <message>
        <source>Have the Desktop &amp;Ask…</source>
        <translation>Hacer que el escritorio &amp;pregunte…</translation>
    </message>
</context>
<context>
    <name>ClipHistory</name>
    <message>
        <source>Picture %1 × %2</source>
        <translation>Imagen %1 × %2</translation>
    </message>
</context>
<context>
    <name>ClipInfoLine</name>
    <message>
        <source>not pasted yet</source>
        <translation>aún no pegado</translation>
    </message>
    <message>
        <source>pasted once</source>
        <translation>pegado una vez</translation>
    </message>
    <message numerus="yes">
        <source>pasted %Ln times</source>
        <translation>
            <numerusform>pegado %Ln vez</numerusform>
            <numerusform>pegado %Ln veces</numerusform>
        </translation>
    </message>
    <message>
        <source>1 character</source>
        <translation>1 carácter</translation>
    </message>
    <message numerus="yes">
        <source>%Ln characters</source>
        <translation>
            <numerusform>%Ln carácter</numerusform>
            <numerusform>%Ln caracteres</numerusform>
        </translation>
    </message>
    <message>
        <source>Copied on %1</source>
        <translation>Copiado el %1</translation>
    </message>
    <message>
        <source>just now</source>
        <translation>ahora mismo</translation>
    </message>
    <message>
        <source>1 minute ago</source>
        <translation>hace 1 minuto</translation>
    </message>
    <message numerus="yes">
        <source>%Ln minutes ago</source>
        <translation>
            <numerusform>hace %Ln minuto</numerusform>
            <numerusform>hace %Ln minutos</numerusform>
        </translation>
    </message>
    <message>
        <source>1 hour ago</source>
        <translation>hace 1 hora</translation>
    </message>
    <message numerus="yes">
        <source>%Ln hours ago</source>
        <translation>
            <numerusform>hace %Ln hora</numerusform>
            <numerusform>hace %Ln horas</numerusform>
        </translation>
    </message>
    <message>
        <source>yesterday at %1</source>
        <translation>ayer a las %1</translation>
    </message>
    <message numerus="yes">
        <source>%Ln days ago</source>
        <translation>
            <numerusform>hace %Ln día</numerusform>
            <numerusform>hace %Ln días</numerusform>
        </translation>
    </message>
    <message>
        <source>d MMM yyyy</source>
        <translation>d MMM yyyy</translation>
    </message>
    <message numerus="yes">
        <source>%Ln marked</source>
        <translation>
            <numerusform>%Ln marcado</numerusform>
            <numerusform>%Ln marcados</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ClipMenu</name>
    <message>
        <source>Paste</source>
        <translation>Pegar</translation>
    </message>
    <message numerus="yes">
        <source>Paste all %Ln files</source>
        <translation>
            <numerusform>Pegar los %Ln archivos</numerusform>
            <numerusform>Pegar los %Ln archivos</numerusform>
        </translation>
    </message>
    <message>
        <source>Paste as Plain Text</source>
        <translation>Pegar como texto sin formato</translation>
    </message>
    <message>
        <source>Paste in Upper Case</source>
        <translation>Pegar en mayúsculas</translation>
    </message>
    <message>
        <source>Paste in Lower Case</source>
        <translation>Pegar en minúsculas</translation>
    </message>
    <message>
        <source>Copy Without Pasting</source>
        <translation>Copiar sin pegar</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>Reveal in File Manager</source>
        <translation>Mostrar en el gestor de archivos</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Eliminar</translation>
    </message>
    <message>
        <source>Actions for the clip</source>
        <translation>Acciones para el recorte</translation>
    </message>
    <message>
        <source>Unpin</source>
        <translation>Dejar de fijar</translation>
    </message>
    <message>
        <source>Pin</source>
        <translation>Fijar</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Intro</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Retroceso</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Súper</translation>
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
        <translation>Mayús</translation>
    </message>
</context>
<context>
    <name>ClipPaster</name>
    <message>
        <source>The clip is on the clipboard</source>
        <translation>El recorte está en el portapapeles</translation>
    </message>
    <message>
        <source>The previous window could not be activated.</source>
        <translation>No se pudo activar la ventana anterior.</translation>
    </message>
    <message>
        <source>File no longer exists</source>
        <translation>El archivo ya no existe</translation>
    </message>
    <message>
        <source>The file no longer exists at the copied location.</source>
        <translation>El archivo ya no existe en la ubicación copiada.</translation>
    </message>
    <message>
        <source>The clip was not pasted</source>
        <translation>El recorte no se ha pegado</translation>
    </message>
    <message>
        <source>The clipboard could not be written.</source>
        <translation>No se pudo escribir en el portapapeles.</translation>
    </message>
    <message>
        <source>The replaced text is not on the clipboard</source>
        <translation>El texto reemplazado no está en el portapapeles</translation>
    </message>
    <message>
        <source>What is selected in %1 cannot be copied safely. Paste the clip there yourself; the middle mouse button does it, too.</source>
        <translation>Lo que está seleccionado en %1 no se puede copiar sin riesgo. Pegue allí el recorte usted mismo; el botón central del ratón también lo hace.</translation>
    </message>
    <message>
        <source>No keys are known that paste into %1. Paste it there yourself; the middle mouse button does it, too.</source>
        <translation>No se conoce ninguna tecla que pegue en %1. Péguelo allí usted mismo; el botón central del ratón también lo hace.</translation>
    </message>
    <message>
        <source>this application</source>
        <translation>esta aplicación</translation>
    </message>
    <message>
        <source>%1 did not take the clip over to the computer that it shows, so nothing was pasted there. The middle mouse button pastes the clip, too.</source>
        <translation>%1 no pasó el recorte al equipo que muestra, así que allí no se pegó nada. El botón central del ratón también pega el recorte.</translation>
    </message>
    <message>
        <source>A key was held down, so nothing was typed into %1. Paste it there yourself; the middle mouse button does it, too.</source>
        <translation>Había una tecla pulsada, así que no se escribió nada en %1. Pegue allí el recorte usted mismo; el botón central del ratón también lo hace.</translation>
    </message>
    <message>
        <source>Quillmarsh is not able to type into %1. Paste it there yourself; the middle mouse button does it, too.</source>
        <translation>Quillmarsh no puede escribir en %1. Pegue allí el recorte usted mismo; el botón central del ratón también lo hace.</translation>
    </message>
    <message>
        <source>The clip was not copied</source>
        <translation>El recorte no se copió</translation>
    </message>
</context>
<context>
    <name>ClipRowDelegate</name>
    <message>
        <source>(blank)</source>
        <translation>(en blanco)</translation>
    </message>
</context>
<context>
    <name>ClipTableModel</name>
    <message>
        <source>%1 of %2</source>
        <translation>%1 de %2</translation>
    </message>
    <message>
        <source>%1 of %2, pinned</source>
        <translation>%1 de %2, fijado</translation>
    </message>
</context>
<context>
    <name>ClipTableView</name>
    <message>
        <source>Clips</source>
        <translation>Recortes</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files</source>
        <translation>
            <numerusform>%Ln archivo</numerusform>
            <numerusform>%Ln archivos</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ClipTextView</name>
    <message>
        <source>Clip text preview</source>
        <translation>Vista previa del texto</translation>
    </message>
    <message numerus="yes">
        <source>… and %Ln more characters, pasted in full</source>
        <translation>
            <numerusform>… y %Ln carácter más; se pega todo</numerusform>
            <numerusform>… y %Ln caracteres más; se pega todo</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ClipboardCapture</name>
    <message>
        <source>The copied text was not recorded</source>
        <translation>El texto copiado no se ha guardado</translation>
    </message>
    <message>
        <source>The text is too large.</source>
        <translation>El texto es demasiado largo.</translation>
    </message>
    <message>
        <source>The copied picture was not kept</source>
        <translation>La imagen copiada no se ha conservado</translation>
    </message>
    <message>
        <source>The picture is too large.</source>
        <translation>La imagen es demasiado grande.</translation>
    </message>
</context>
<context>
    <name>ConfigurationLine</name>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
</context>
<context>
    <name>ConsentNotice</name>
    <message>
        <source>Nothing is recorded. %1</source>
        <translation>No se registra nada. %1</translation>
    </message>
</context>
<context>
    <name>ConsentWords</name>
    <message>
        <source>This desktop shows copies to a program, and lets it paste, only as remote control. It asks you once: switch on “Allow Remote Interaction”, leave the other two on, and choose “Share”. A sharing sign then stays in the top bar; ending it there ends recording.</source>
        <translation>Este escritorio solo muestra las copias a un programa, y solo le deja pegar, como control remoto. Se lo preguntará una vez: active «Permitir la interacción remota», deje activados los otros dos y elija «Compartir». Después queda una señal de compartición en la barra superior; si se termina ahí, termina el registro.</translation>
    </message>
</context>
<context>
    <name>DMHelperAppDelegate</name>
    <message>
        <source>Update in background</source>
        <translation>Actualizar en segundo plano</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Salir</translation>
    </message>
    <message>
        <source>Updating process is in progress.</source>
        <translation>La actualización está en curso.</translation>
    </message>
    <message>
        <source>Main application bundle could not be located</source>
        <translation>No se ha encontrado la aplicación principal</translation>
    </message>
    <message>
        <source>Main application is running. It should update itself.</source>
        <translation>La aplicación principal está en marcha. Debería actualizarse sola.</translation>
    </message>
</context>
<context>
    <name>DM_SUUpdater</name>
    <message>
        <source>This Quillmarsh has no address to look for updates at. Updates come from where you got it.</source>
        <translation>Este Quillmarsh no tiene ninguna dirección donde buscar actualizaciones. Vienen de donde lo obtuvo.</translation>
    </message>
</context>
<context>
    <name>DamagedSettingsQuestion</name>
    <message>
        <source>Your settings could not be read</source>
        <translation>No se han podido leer sus ajustes</translation>
    </message>
    <message>
        <source>They were set aside beside %1. The list of ignored applications was among them, so nothing is recorded until you decide.</source>
        <translation>Se han apartado junto a %1. La lista de aplicaciones ignoradas estaba entre ellos, así que no se guarda nada hasta que usted decida.</translation>
    </message>
    <message>
        <source>Start with fresh settings</source>
        <translation>Empezar con ajustes nuevos</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Salir</translation>
    </message>
    <message>
        <source>Damaged Settings</source>
        <translation>Ajustes dañados</translation>
    </message>
    <message>
        <source>Nothing is recorded: your settings could not be read, and the list of ignored applications was among them. Answer the question about them first.</source>
        <translation>No se graba nada: no se han podido leer sus ajustes, y la lista de aplicaciones ignoradas estaba entre ellos. Responda primero a la pregunta sobre ellos.</translation>
    </message>
</context>
<context>
    <name>DesktopShortcut</name>
    <message>
        <source>Change in Settings…</source>
        <translation>Cambiar en Configuración…</translation>
    </message>
</context>
<context>
    <name>EmptyStateView</name>
    <message>
        <source>Nothing copied yet</source>
        <translation>Aún no se ha copiado nada</translation>
    </message>
    <message>
        <source>Whatever you copy appears here.</source>
        <translation>Todo lo que copie aparecerá aquí.</translation>
    </message>
    <message>
        <source>Whatever you copy appears here.
Press %1 to come back to it.</source>
        <translation>Todo lo que copie aparecerá aquí.
Pulse %1 para volver a ello.</translation>
    </message>
    <message>
        <source>Nothing matches “%1”</source>
        <translation>Nada coincide con «%1»</translation>
    </message>
    <message>
        <source>* stands for any text and ? for one character;
file: lists copied files.</source>
        <translation>* equivale a cualquier texto y ? a un carácter;
file: muestra los archivos copiados.</translation>
    </message>
    <message>
        <source>Nothing pinned yet</source>
        <translation>Aún no hay nada fijado</translation>
    </message>
    <message>
        <source>Ctrl+D pins the selected clip, so that it stays;
Ctrl+Shift+D lists all clips again.</source>
        <translation>Ctrl+D fija el recorte seleccionado para que se quede;
Ctrl+Mayús+D vuelve a mostrar todos los recortes.</translation>
    </message>
</context>
<context>
    <name>FeedbackDelivery</name>
    <message>
        <source>Sent. Thank you.</source>
        <translation>Enviado. Gracias.</translation>
    </message>
    <message>
        <source>No file could be written in %1.</source>
        <translation>No se ha podido escribir ningún archivo en %1.</translation>
    </message>
    <message>
        <source>&amp;Send</source>
        <translation>&amp;Enviar</translation>
    </message>
    <message>
        <source>&amp;Save and Mail…</source>
        <translation>&amp;Guardar y enviar por correo…</translation>
    </message>
    <message>
        <source>This build knows no address to send to: the text is saved in %1, and your mail program opens so that you can attach it.</source>
        <translation>Esta versión no conoce ninguna dirección de envío: el texto se guarda en %1 y se abre su programa de correo para que pueda adjuntarlo.</translation>
    </message>
    <message>
        <source>Saved as %1. Attach it to the mail that opens; if none does, send the file.</source>
        <translation>Guardado como %1. Adjúntelo al correo que se abre; si no se abre ninguno, envíe el archivo.</translation>
    </message>
</context>
<context>
    <name>FeedbackDialog</name>
    <message>
        <source>Send Feedback</source>
        <translation>Enviar comentarios</translation>
    </message>
    <message>
        <source>This has not been sent yet.</source>
        <translation>Esto aún no se ha enviado.</translation>
    </message>
    <message>
        <source>Kept from last time.</source>
        <translation>Conservado de la última vez.</translation>
    </message>
    <message>
        <source>The text cannot be kept for later. Copy it elsewhere; closing again discards it.</source>
        <translation>El texto no se puede conservar. Cópielo en otro lugar; si vuelve a cerrar, se descarta.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>This does not look like a mail address.</source>
        <translation>Esto no parece una dirección de correo.</translation>
    </message>
    <message>
        <source>Sending…</source>
        <translation>Enviando…</translation>
    </message>
    <message>
        <source>%1 Your text is kept.</source>
        <translation>%1 Su texto se conserva.</translation>
    </message>
    <message>
        <source>Too long: %1 of at most %2 characters.</source>
        <translation>Demasiado largo: %1 de %2 caracteres como máximo.</translation>
    </message>
</context>
<context>
    <name>FeedbackForm</name>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Mensaje</translation>
    </message>
    <message>
        <source>Mail address</source>
        <translation>Dirección de correo</translation>
    </message>
    <message>
        <source>optional, for an answer</source>
        <translation>opcional, para responderle</translation>
    </message>
    <message>
        <source>Send version and desktop</source>
        <translation>Enviar la versión y el escritorio</translation>
    </message>
    <message>
        <source>Ctrl + Return</source>
        <translation>Ctrl + Intro</translation>
    </message>
    <message>
        <source>&amp;Message:</source>
        <translation>&amp;Mensaje:</translation>
    </message>
    <message>
        <source>Mail &amp;address:</source>
        <translation>&amp;Dirección de correo:</translation>
    </message>
    <message>
        <source>Only what you see here is sent, never a clip.</source>
        <translation>Solo se envía lo que ve aquí, nunca un recorte.</translation>
    </message>
    <message>
        <source>Add the &amp;line “%1”</source>
        <translation>Añadir la &amp;línea «%1»</translation>
    </message>
</context>
<context>
    <name>FieldMenu</name>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copiar</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>Seleccionar &amp;todo</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Deshacer</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Rehacer</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>Cor&amp;tar</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Pegar</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Eliminar</translation>
    </message>
</context>
<context>
    <name>FileCard</name>
    <message>
        <source>Changed %1</source>
        <translation>Modificado: %1</translation>
    </message>
    <message>
        <source>Links to %1</source>
        <translation>Enlace a %1</translation>
    </message>
    <message>
        <source>File of an unknown kind</source>
        <translation>Archivo de tipo desconocido</translation>
    </message>
    <message>
        <source>Created %1</source>
        <translation>Creado: %1</translation>
    </message>
    <message>
        <source>The preview failed unexpectedly</source>
        <translation>La vista previa falló inesperadamente</translation>
    </message>
    <message>
        <source>The preview took too long</source>
        <translation>La vista previa tardó demasiado</translation>
    </message>
    <message>
        <source>The preview needed too much memory</source>
        <translation>La vista previa necesitó demasiada memoria</translation>
    </message>
    <message>
        <source>No previews: they cannot be isolated here</source>
        <translation>Sin vistas previas: aquí no se pueden aislar</translation>
    </message>
    <message>
        <source>No previews: Quillmarsh is incomplete</source>
        <translation>Sin vistas previas: Quillmarsh está incompleto</translation>
    </message>
    <message>
        <source>Previews pause for a minute after failures</source>
        <translation>Las vistas previas descansan un minuto tras fallos</translation>
    </message>
</context>
<context>
    <name>FileViewController</name>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>Reveal in File Manager</source>
        <translation>Mostrar en el gestor de archivos</translation>
    </message>
    <message>
        <source>The file no longer exists.</source>
        <translation>El archivo ya no existe.</translation>
    </message>
    <message>
        <source>File preview</source>
        <translation>Vista previa del archivo</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files were copied; Return pastes the first</source>
        <translation>
            <numerusform>Se copió %Ln archivo; Intro pega el primero</numerusform>
            <numerusform>Se copiaron %Ln archivos; Intro pega el primero</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>FontBody</name>
    <message>
        <source>Specimen of the font %1</source>
        <translation>Muestra del tipo de letra %1</translation>
    </message>
</context>
<context>
    <name>FreedesktopNotifications</name>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
</context>
<context>
    <name>GeneralPaneView</name>
    <message>
        <source>Open Quillmarsh at &amp;login</source>
        <translation>Abrir Quillmarsh al &amp;iniciar sesión</translation>
    </message>
    <message>
        <source>Show &amp;notifications</source>
        <translation>Mostrar &amp;notificaciones</translation>
    </message>
    <message>
        <source>clips</source>
        <translation>recortes</translation>
    </message>
    <message>
        <source>Open at login</source>
        <translation>Abrir al iniciar sesión</translation>
    </message>
    <message>
        <source>Show notifications</source>
        <translation>Mostrar notificaciones</translation>
    </message>
    <message>
        <source>Maximum number of items</source>
        <translation>Número máximo de elementos</translation>
    </message>
    <message>
        <source>Maximum text size in bytes</source>
        <translation>Tamaño máximo del texto en bytes</translation>
    </message>
    <message>
        <source>Open history shortcut</source>
        <translation>Atajo para abrir el historial</translation>
    </message>
    <message>
        <source>Swop shortcut</source>
        <translation>Atajo de intercambio</translation>
    </message>
    <message>
        <source>The stored size cannot be used. No clip is removed until you choose one.</source>
        <translation>El tamaño guardado no es válido. No se elimina ningún recorte hasta que elija uno.</translation>
    </message>
    <message>
        <source>The stored size is larger than this slider reaches. It holds until you move the slider.</source>
        <translation>El tamaño guardado supera el alcance del control. Vale hasta que lo mueva.</translation>
    </message>
    <message>
        <source>The oldest clip will be removed when you leave this page.</source>
        <translation>Al salir de esta página se eliminará el recorte más antiguo.</translation>
    </message>
    <message numerus="yes">
        <source>The %Ln oldest clips will be removed when you leave this page.</source>
        <translation>
            <numerusform>Al salir de esta página se eliminará el recorte más antiguo (%Ln).</numerusform>
            <numerusform>Al salir de esta página se eliminarán los %Ln recortes más antiguos.</numerusform>
        </translation>
    </message>
    <message>
        <source>When the history is full, each new copy replaces the oldest clip.</source>
        <translation>Cuando el historial está lleno, cada copia sustituye al recorte más antiguo.</translation>
    </message>
    <message>
        <source>Nothing is recorded.</source>
        <translation>No se guarda nada.</translation>
    </message>
    <message>
        <source>Still waiting for a key. A combination that the desktop keeps for itself never gets here; choose another one.</source>
        <translation>Todavía falta una tecla. Una combinación que el escritorio se reserva nunca llega aquí; elija otra.</translation>
    </message>
    <message>
        <source>Swop pastes a clip over the selected text and keeps that text as the newest clip.</source>
        <translation>El intercambio pega un recorte sobre el texto seleccionado y conserva ese texto como recorte más reciente.</translation>
    </message>
    <message>
        <source>Start-up:</source>
        <translation>Inicio:</translation>
    </message>
    <message>
        <source>Messages:</source>
        <translation>Mensajes:</translation>
    </message>
    <message>
        <source>Tell you when a copy was too large to be recorded. Turned off, they stay off until Quillmarsh quits.</source>
        <translation>Avisan cuando una copia era demasiado grande para guardarla. Si las desactiva, siguen así hasta que Quillmarsh se cierre.</translation>
    </message>
    <message>
        <source>&amp;History size:</source>
        <translation>Tamaño del &amp;historial:</translation>
    </message>
    <message>
        <source>Largest &amp;text:</source>
        <translation>&amp;Texto más largo:</translation>
    </message>
    <message>
        <source>bytes</source>
        <translation>bytes</translation>
    </message>
    <message>
        <source>A longer copy is not recorded.</source>
        <translation>Una copia más larga no se guarda.</translation>
    </message>
    <message>
        <source>&amp;Open history:</source>
        <translation>&amp;Abrir el historial:</translation>
    </message>
    <message>
        <source>S&amp;wop:</source>
        <translation>Intercam&amp;bio:</translation>
    </message>
    <message>
        <source>The desktop’s list of start-up programs could not be written.</source>
        <translation>No se ha podido escribir la lista de inicio del escritorio.</translation>
    </message>
    <message>
        <source>Switched off in the desktop’s own list. Tick it anew to switch it on.</source>
        <translation>Desactivado en la lista del escritorio. Vuelva a marcarlo para activarlo.</translation>
    </message>
    <message>
        <source>Missing in the desktop’s own list. Tick it anew to put it there.</source>
        <translation>Falta en la lista del escritorio. Vuelva a marcarlo para añadirlo.</translation>
    </message>
    <message>
        <source>The desktop opens it all the same.</source>
        <translation>El escritorio lo abre de todos modos.</translation>
    </message>
    <message>
        <source>A shortcut needs Ctrl or Super with another key, or is a function key.</source>
        <translation>Un atajo necesita Ctrl o Súper con otra tecla, o es una tecla de función.</translation>
    </message>
    <message>
        <source>Have the desktop’s configuration run these commands for keys of your choice.</source>
        <translation>Haga que la configuración del escritorio ejecute estas órdenes con las teclas que prefiera.</translation>
    </message>
    <message>
        <source>Add these lines to the desktop’s configuration, with other keys if you like.</source>
        <translation>Añada estas líneas a la configuración del escritorio, con otras teclas si lo prefiere.</translation>
    </message>
    <message>
        <source>Pictures:</source>
        <translation>Imágenes:</translation>
    </message>
    <message>
        <source>MB at most</source>
        <translation>MB como máximo</translation>
    </message>
    <message>
        <source>Copies of nothing but a picture, as files in the data folder.</source>
        <translation>Copias que solo contienen una imagen, como archivos en la carpeta de datos.</translation>
    </message>
</context>
<context>
    <name>GlobalShortcuts</name>
    <message>
        <source>Cut</source>
        <translation>Cortar</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Pegar</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Súper</translation>
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
        <translation>Mayús</translation>
    </message>
</context>
<context>
    <name>HistoryFooter</name>
    <message>
        <source>Deleted · Ctrl+Z brings it back</source>
        <translation>Eliminado · Ctrl+Z lo recupera</translation>
    </message>
    <message numerus="yes">
        <source>%Ln deleted clips did not fit: the history keeps %1 at most</source>
        <translation>
            <numerusform>%Ln recorte eliminado no cabía: el historial guarda %1 como máximo</numerusform>
            <numerusform>%Ln recortes eliminados no cabían: el historial guarda %1 como máximo</numerusform>
        </translation>
    </message>
    <message>
        <source>Deleted for good · too large for Ctrl+Z</source>
        <translation>Eliminado para siempre · demasiado grande para Ctrl+Z</translation>
    </message>
    <message>
        <source>Deleted · Ctrl+Z brings back all but the largest pictures</source>
        <translation>Eliminado · Ctrl+Z lo recupera todo salvo las imágenes más grandes</translation>
    </message>
</context>
<context>
    <name>HistoryNotices</name>
    <message numerus="yes">
        <source>A copy of %Ln bytes was not recorded; the limit is %1</source>
        <translation>
            <numerusform>No se ha guardado una copia de %Ln byte; el límite es %1</numerusform>
            <numerusform>No se ha guardado una copia de %Ln bytes; el límite es %1</numerusform>
        </translation>
    </message>
    <message>
        <source>A copy was not recorded; it is larger than the limit of %1 bytes</source>
        <translation>No se ha guardado una copia; supera el límite de %1 bytes</translation>
    </message>
    <message>
        <source>The copied picture is replaced</source>
        <translation>La imagen copiada se ha reemplazado</translation>
    </message>
    <message>
        <source>What was copied is replaced</source>
        <translation>Lo que se había copiado se ha reemplazado</translation>
    </message>
</context>
<context>
    <name>HttpsExchange</name>
    <message>
        <source>The server redirects to an address that is not secure.</source>
        <translation>El servidor redirige a una dirección no segura.</translation>
    </message>
    <message>
        <source>The server could not prove who it is, or the connection is not secure.</source>
        <translation>El servidor no ha podido demostrar su identidad o la conexión no es segura.</translation>
    </message>
    <message>
        <source>The server %1 was not found. Are you connected to the internet?</source>
        <translation>No se ha encontrado el servidor %1. ¿Está conectado a Internet?</translation>
    </message>
    <message>
        <source>The server %1 cannot be reached.</source>
        <translation>No se puede acceder al servidor %1.</translation>
    </message>
    <message>
        <source>The server ended the connection.</source>
        <translation>El servidor ha cerrado la conexión.</translation>
    </message>
    <message>
        <source>The server does not have the file.</source>
        <translation>El servidor no tiene el archivo.</translation>
    </message>
    <message>
        <source>The server answered with error %1.</source>
        <translation>El servidor ha respondido con el error %1.</translation>
    </message>
    <message>
        <source>The connection failed: %1.</source>
        <translation>La conexión ha fallado: %1.</translation>
    </message>
    <message>
        <source>The server took too long to answer.</source>
        <translation>El servidor ha tardado demasiado en responder.</translation>
    </message>
    <message>
        <source>The address is not a secure one (https).</source>
        <translation>La dirección no es segura (https).</translation>
    </message>
    <message>
        <source>The server sends more than was announced.</source>
        <translation>El servidor envía más de lo anunciado.</translation>
    </message>
    <message>
        <source>The server answered with status %1.</source>
        <translation>El servidor ha respondido con el estado %1.</translation>
    </message>
    <message>
        <source>The server stopped answering.</source>
        <translation>El servidor ha dejado de responder.</translation>
    </message>
</context>
<context>
    <name>IgnoredApplicationsModel</name>
    <message>
        <source>%1 (recognised by this name only)</source>
        <translation>%1 (reconocido solo por este nombre)</translation>
    </message>
</context>
<context>
    <name>ImageBody</name>
    <message>
        <source>Picture</source>
        <translation>Imagen</translation>
    </message>
</context>
<context>
    <name>Installation</name>
    <message>
        <source>Quillmarsh was installed by your system&apos;s package manager, which also updates it.</source>
        <translation>Quillmarsh lo instaló el gestor de paquetes del sistema, que también lo actualiza.</translation>
    </message>
    <message>
        <source>Quillmarsh was not installed in a way that it could update itself. Updates come from where you got it.</source>
        <translation>Quillmarsh no se instaló de forma que pueda actualizarse solo. Las actualizaciones vienen de donde lo obtuvo.</translation>
    </message>
    <message>
        <source>The folder %1 cannot be written to.</source>
        <translation>No se puede escribir en la carpeta %1.</translation>
    </message>
    <message>
        <source>%1 was replaced while Quillmarsh was running. Restart Quillmarsh to use what is there now.</source>
        <translation>%1 se reemplazó mientras Quillmarsh se estaba ejecutando. Reinicie Quillmarsh para usar lo que hay ahora.</translation>
    </message>
</context>
<context>
    <name>IssueReportDialog</name>
    <message>
        <source>Show &amp;Report</source>
        <translation>Mostrar &amp;informe</translation>
    </message>
    <message>
        <source>&amp;Do Not Send</source>
        <translation>&amp;No enviar</translation>
    </message>
    <message>
        <source>Problem Report</source>
        <translation>Informe de problema</translation>
    </message>
    <message>
        <source>Quillmarsh ended unexpectedly</source>
        <translation>Quillmarsh se ha cerrado inesperadamente</translation>
    </message>
    <message>
        <source>May the report be sent, so that the fault can be found? It says which version failed, how, and at which place in the program. It holds no clip and no other text of yours. If you do not send it, it is deleted.</source>
        <translation>¿Se puede enviar el informe para encontrar el fallo? Indica qué versión falló, cómo y en qué lugar del programa. No contiene ningún recorte ni otro texto suyo. Si no lo envía, se elimina.</translation>
    </message>
    <message>
        <source>Report</source>
        <translation>Informe</translation>
    </message>
    <message>
        <source>Hide &amp;Report</source>
        <translation>Ocultar &amp;informe</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Sending…</source>
        <translation>Enviando…</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>%1 The report is kept, and you will be asked at the next start.</source>
        <translation>%1 El informe se conserva y se le preguntará en el próximo inicio.</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>Reintentar</translation>
    </message>
</context>
<context>
    <name>ListBody</name>
    <message>
        <source>1 entry</source>
        <translation>1 elemento</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>%1, %2 or more</source>
        <translation>%1, %2 o más</translation>
    </message>
    <message>
        <source>Entries</source>
        <translation>Elementos</translation>
    </message>
    <message numerus="yes">
        <source>%Ln entries</source>
        <translation>
            <numerusform>%Ln elemento</numerusform>
            <numerusform>%Ln elementos</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MASShortcut</name>
    <message>
        <source>Space</source>
        <translation>Espacio</translation>
    </message>
</context>
<context>
    <name>MASShortcutValidator</name>
    <message>
        <source>This combination cannot be used because it is already used by a system-wide keyboard shortcut.
If you really want to use this key combination, most shortcuts can be changed in the Keyboard &amp; Mouse panel in System Preferences.</source>
        <translation>Esta combinación no se puede usar porque ya es un atajo de teclado del sistema.
Si de verdad quiere usarla, la mayoría de los atajos se pueden cambiar en el apartado Teclado y ratón de las preferencias del sistema.</translation>
    </message>
    <message>
        <source>This shortcut cannot be used because it is already used by the menu item ‘%1’.</source>
        <translation>Este atajo no se puede usar porque ya lo usa el elemento de menú «%1».</translation>
    </message>
</context>
<context>
    <name>MASShortcutView</name>
    <message>
        <source>Shortcut</source>
        <translation>Atajo</translation>
    </message>
    <message>
        <source>The key combination %1 cannot be used</source>
        <translation>No se puede usar la combinación de teclas %1</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Record Shortcut</source>
        <translation>Grabar atajo</translation>
    </message>
    <message>
        <source>Use Old Shortcut</source>
        <translation>Usar el atajo anterior</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Type New Shortcut</source>
        <translation>Pulse el nuevo atajo</translation>
    </message>
    <message>
        <source>Type Shortcut</source>
        <translation>Pulse el atajo</translation>
    </message>
    <message>
        <source>Delete shortcut</source>
        <translation>Eliminar el atajo</translation>
    </message>
    <message>
        <source>Click to record new shortcut</source>
        <translation>Haga clic para grabar un atajo nuevo</translation>
    </message>
</context>
<context>
    <name>MailHandOver</name>
    <message>
        <source>(Please attach the file %1)</source>
        <translation>(Adjunte el archivo %1)</translation>
    </message>
</context>
<context>
    <name>MovingIn</name>
    <message numerus="yes">
        <source>&amp;Bring along the newest %Ln clips of %1</source>
        <translation>
            <numerusform>Traer el &amp;recorte más reciente (%Ln) de %1</numerusform>
            <numerusform>Traer los %Ln &amp;recortes más recientes de %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>&amp;Bring along %Ln clips of %1</source>
        <translation>
            <numerusform>Traer %Ln &amp;recorte de %1</numerusform>
            <numerusform>Traer %Ln &amp;recortes de %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PathLabel</name>
    <message>
        <source>Path of the file</source>
        <translation>Ruta del archivo</translation>
    </message>
</context>
<context>
    <name>PdfBody</name>
    <message numerus="yes">
        <source>Document of %n pages</source>
        <translation>
            <numerusform>Documento de %n página</numerusform>
            <numerusform>Documento de %n páginas</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PictureChoice</name>
    <message>
        <source>&amp;Keep copied pictures</source>
        <translation>&amp;Conservar las imágenes copiadas</translation>
    </message>
    <message>
        <source>Keep copied pictures</source>
        <translation>Conservar las imágenes copiadas</translation>
    </message>
    <message>
        <source>Maximum picture size in megabytes</source>
        <translation>Tamaño máximo de la imagen en megabytes</translation>
    </message>
</context>
<context>
    <name>PortalHotKeys</name>
    <message>
        <source>No keys</source>
        <translation>Ninguna tecla</translation>
    </message>
</context>
<context>
    <name>PreferencesApplicationViewController</name>
    <message>
        <source>Applications</source>
        <translation>Aplicaciones</translation>
    </message>
</context>
<context>
    <name>PreferencesGeneralViewController</name>
    <message>
        <source>General</source>
        <translation>General</translation>
    </message>
    <message>
        <source>No limit</source>
        <translation>Sin límite</translation>
    </message>
    <message>
        <source>Show clipboard history</source>
        <translation>Mostrar el historial del portapapeles</translation>
    </message>
    <message>
        <source>Swop selection with a clip</source>
        <translation>Intercambiar la selección por un recorte</translation>
    </message>
</context>
<context>
    <name>SearchField</name>
    <message>
        <source>Search clips</source>
        <translation>Buscar recortes</translation>
    </message>
    <message>
        <source>Clear search</source>
        <translation>Borrar la búsqueda</translation>
    </message>
    <message>
        <source>Pinned clips only</source>
        <translation>Solo recortes fijados</translation>
    </message>
    <message>
        <source>Pinned clips only (Ctrl+Shift+D)</source>
        <translation>Solo recortes fijados (Ctrl+Mayús+D)</translation>
    </message>
    <message>
        <source>Search pinned clips</source>
        <translation>Buscar en los recortes fijados</translation>
    </message>
</context>
<context>
    <name>ShortcutNote</name>
    <message>
        <source>Used by another program</source>
        <translation>Lo usa otro programa</translation>
    </message>
    <message>
        <source>Used by the other shortcut</source>
        <translation>Lo usa el otro atajo</translation>
    </message>
    <message>
        <source>Not possible as a shortcut</source>
        <translation>No puede ser un atajo</translation>
    </message>
    <message>
        <source>%1 in the desktop’s settings</source>
        <translation>%1 en los ajustes del escritorio</translation>
    </message>
</context>
<context>
    <name>StatusMenu</name>
    <message>
        <source>Check For Updates...</source>
        <translation>Buscar actualizaciones…</translation>
    </message>
    <message>
        <source>Preferences...</source>
        <translation>Preferencias…</translation>
    </message>
    <message>
        <source>Launch...</source>
        <translation>Abrir el historial…</translation>
    </message>
    <message>
        <source>Clear All</source>
        <translation>Borrar todo</translation>
    </message>
    <message>
        <source>Help...</source>
        <translation>Ayuda…</translation>
    </message>
    <message>
        <source>Send Feedback...</source>
        <translation>Enviar comentarios…</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Salir</translation>
    </message>
    <message>
        <source>Allow Recording...</source>
        <translation>Permitir el registro...</translation>
    </message>
</context>
<context>
    <name>SwopPicture</name>
    <message>
        <source>Monday</source>
        <translation>el lunes</translation>
    </message>
    <message>
        <source>Thursday</source>
        <translation>el jueves</translation>
    </message>
    <message>
        <source>at half past two</source>
        <translation>a las dos y media</translation>
    </message>
    <message>
        <source>Reed Lane 7</source>
        <translation>Calle Junco, 7</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>Antes</translation>
    </message>
    <message>
        <source>After</source>
        <translation>Después</translation>
    </message>
    <message>
        <source>See you on</source>
        <translation>Nos vemos</translation>
    </message>
    <message>
        <source>by the old mill.</source>
        <translation>en el viejo molino.</translation>
    </message>
</context>
<context>
    <name>TextBody</name>
    <message>
        <source>… the file goes on</source>
        <translation>… el archivo continúa</translation>
    </message>
    <message>
        <source>Beginning of the text</source>
        <translation>Principio del texto</translation>
    </message>
</context>
<context>
    <name>TourGuide</name>
    <message>
        <source>Find</source>
        <translation>Buscar</translation>
    </message>
    <message>
        <source>Start typing as soon as the window opens. * stands for any text, ? for one character, and file: lists copied files.</source>
        <translation>Escriba en cuanto se abra la ventana. * equivale a cualquier texto, ? a un carácter, y file: muestra los archivos copiados.</translation>
    </message>
    <message>
        <source>Choose</source>
        <translation>Elegir</translation>
    </message>
    <message>
        <source>Your copies, newest first. Move with the arrow keys, or press the open shortcut again to step down.</source>
        <translation>Sus copias, la más reciente primero. Muévase con las flechas o pulse otra vez el atajo para bajar.</translation>
    </message>
    <message>
        <source>Look</source>
        <translation>Mirar</translation>
    </message>
    <message>
        <source>The whole clip, or the copied file itself, before you paste it.</source>
        <translation>El recorte completo, o el propio archivo copiado, antes de pegarlo.</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Pegar</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Intro</translation>
    </message>
    <message>
        <source>paste</source>
        <translation>pegar</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Mayús</translation>
    </message>
    <message>
        <source>UPPER CASE</source>
        <translation>MAYÚSCULAS</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>lower case</source>
        <translation>minúsculas</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Súper</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Retroceso</translation>
    </message>
    <message>
        <source>delete</source>
        <translation>eliminar</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>close</source>
        <translation>cerrar</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 de %2</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Siguiente</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Listo</translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation>Ctrl</translation>
    </message>
    <message>
        <source>plain text</source>
        <translation>texto sin formato</translation>
    </message>
    <message>
        <source>rows 1 to 10</source>
        <translation>filas 1 a 10</translation>
    </message>
</context>
<context>
    <name>TraylessHint</name>
    <message>
        <source>Quillmarsh is running</source>
        <translation>Quillmarsh está en marcha</translation>
    </message>
    <message>
        <source>Press %1 to open the history, or start Quillmarsh again.</source>
        <translation>Pulse %1 para abrir el historial o vuelva a iniciar Quillmarsh.</translation>
    </message>
    <message>
        <source>Start Quillmarsh again to open the history.</source>
        <translation>Vuelva a iniciar Quillmarsh para abrir el historial.</translation>
    </message>
</context>
<context>
    <name>UpdateDownload</name>
    <message>
        <source>There is no place to download to.</source>
        <translation>No hay dónde guardar la descarga.</translation>
    </message>
    <message>
        <source>The server has another file than before. Try again.</source>
        <translation>El servidor tiene un archivo distinto al de antes. Inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>The server sends more than was announced.</source>
        <translation>El servidor envía más de lo anunciado.</translation>
    </message>
    <message>
        <source>The download could not be written: %1.</source>
        <translation>No se ha podido escribir la descarga: %1.</translation>
    </message>
    <message>
        <source>The server sent less than was announced.</source>
        <translation>El servidor ha enviado menos de lo anunciado.</translation>
    </message>
</context>
<context>
    <name>UpdateFeed</name>
    <message>
        <source>The list of updates cannot be used.</source>
        <translation>La lista de actualizaciones no se puede usar.</translation>
    </message>
    <message>
        <source>It is not a list of updates.</source>
        <translation>No es una lista de actualizaciones.</translation>
    </message>
    <message>
        <source>Version %1 has no file.</source>
        <translation>La versión %1 no tiene archivo.</translation>
    </message>
    <message>
        <source>It is too long.</source>
        <translation>Es demasiado larga.</translation>
    </message>
    <message>
        <source>It is damaged in line %1.</source>
        <translation>Está dañada en la línea %1.</translation>
    </message>
    <message>
        <source>It offers a version that is not a number: “%1”.</source>
        <translation>Ofrece una versión que no es un número: «%1».</translation>
    </message>
    <message>
        <source>Version %1 has no known channel.</source>
        <translation>La versión %1 no tiene un canal conocido.</translation>
    </message>
    <message>
        <source>Version %1 asks for an unknown system.</source>
        <translation>La versión %1 pide un sistema desconocido.</translation>
    </message>
    <message>
        <source>Version %1 is not at a secure address (https).</source>
        <translation>La versión %1 no está en una dirección segura (https).</translation>
    </message>
    <message>
        <source>Version %1 has no possible size.</source>
        <translation>La versión %1 no tiene un tamaño posible.</translation>
    </message>
    <message>
        <source>Version %1 is not signed.</source>
        <translation>La versión %1 no está firmada.</translation>
    </message>
    <message>
        <source>Version %1 has an impossible name.</source>
        <translation>La versión %1 tiene un nombre imposible.</translation>
    </message>
</context>
<context>
    <name>UpdateInstaller</name>
    <message>
        <source>There is not enough room on the disk.</source>
        <translation>No hay suficiente espacio en el disco.</translation>
    </message>
    <message>
        <source>The update could not be put in its place: %1.</source>
        <translation>No se ha podido poner la actualización en su sitio: %1.</translation>
    </message>
    <message>
        <source>The downloaded file is gone.</source>
        <translation>El archivo descargado ya no está.</translation>
    </message>
    <message>
        <source>The downloaded file has not the size that was announced.</source>
        <translation>El archivo descargado no tiene el tamaño anunciado.</translation>
    </message>
    <message>
        <source>The signature of the downloaded file is not the publisher&apos;s. It was not installed.</source>
        <translation>La firma del archivo descargado no es la del editor. No se ha instalado.</translation>
    </message>
    <message>
        <source>The update was cancelled.</source>
        <translation>La actualización se ha cancelado.</translation>
    </message>
    <message>
        <source>The update could not be written correctly.</source>
        <translation>La actualización no se ha podido escribir correctamente.</translation>
    </message>
    <message>
        <source>This version is installed already. It starts the next time.</source>
        <translation>Esta versión ya está instalada. Se iniciará la próxima vez.</translation>
    </message>
    <message>
        <source>The update holds no program.</source>
        <translation>La actualización no contiene ningún programa.</translation>
    </message>
    <message>
        <source>Version %1 is running. Quit it first.</source>
        <translation>La versión %1 se está ejecutando. Ciérrela primero.</translation>
    </message>
</context>
<context>
    <name>UpdateRun</name>
    <message>
        <source>Another update of Quillmarsh is under way.</source>
        <translation>Hay otra actualización de Quillmarsh en curso.</translation>
    </message>
    <message>
        <source>Signatures cannot be checked, so nothing is installed.</source>
        <translation>No se pueden comprobar las firmas, así que no se instala nada.</translation>
    </message>
</context>
<context>
    <name>UpdateWindow</name>
    <message>
        <source>Look for updates once a &amp;day</source>
        <translation>Buscar actualizaciones una vez al &amp;día</translation>
    </message>
    <message>
        <source>&amp;Skip This Version</source>
        <translation>&amp;Omitir esta versión</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>&amp;Más tarde</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>&amp;Install</source>
        <translation>&amp;Instalar</translation>
    </message>
    <message>
        <source>Software Update</source>
        <translation>Actualización de software</translation>
    </message>
    <message>
        <source>Release notes</source>
        <translation>Notas de la versión</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Comando</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progreso</translation>
    </message>
    <message>
        <source>Looking for updates…</source>
        <translation>Buscando actualizaciones…</translation>
    </message>
    <message>
        <source>You have the newest version</source>
        <translation>Tiene la versión más reciente</translation>
    </message>
    <message>
        <source>%1 %2 is up to date.</source>
        <translation>%1 %2 está al día.</translation>
    </message>
    <message>
        <source>%1 %2 is available</source>
        <translation>%1 %2 está disponible</translation>
    </message>
    <message>
        <source>You have version %1. %2 restarts when the update is installed; your history and your settings stay as they are.</source>
        <translation>Tiene la versión %1. %2 se reinicia al instalarse la actualización; el historial y los ajustes no cambian.</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 de %2</translation>
    </message>
    <message>
        <source>Downloading the update</source>
        <translation>Descargando la actualización</translation>
    </message>
    <message>
        <source>Installing the update</source>
        <translation>Instalando la actualización</translation>
    </message>
    <message>
        <source>Its signature is checked first.</source>
        <translation>Primero se comprueba su firma.</translation>
    </message>
    <message>
        <source>The update is installed</source>
        <translation>La actualización está instalada</translation>
    </message>
    <message>
        <source>%1 uses it from its next start.</source>
        <translation>%1 la usará a partir del próximo inicio.</translation>
    </message>
    <message>
        <source>%1 could not be updated</source>
        <translation>No se ha podido actualizar %1</translation>
    </message>
    <message>
        <source>%1 does not update itself here</source>
        <translation>%1 no se actualiza solo aquí</translation>
    </message>
    <message>
        <source>Version %1 needs a newer system</source>
        <translation>La versión %1 necesita un sistema más reciente</translation>
    </message>
    <message>
        <source>%1 %2 is the newest version that this system can run.</source>
        <translation>%1 %2 es la versión más reciente que puede ejecutar este sistema.</translation>
    </message>
</context>
<context>
    <name>ViewController</name>
    <message>
        <source>%1 of %2: %3</source>
        <translation>%1 de %2: %3</translation>
    </message>
    <message>
        <source>Swop: no selection is held, so the clip is only pasted</source>
        <translation>Intercambio: no se retiene ninguna selección; el recorte solo se pega</translation>
    </message>
    <message>
        <source>Swop: the selection of %1 is held</source>
        <translation>Intercambio: se retiene la selección de %1</translation>
    </message>
    <message>
        <source>Swop: the selection is held</source>
        <translation>Intercambio: se retiene la selección</translation>
    </message>
    <message>
        <source>Nothing is recorded: the history cannot be written</source>
        <translation>No se guarda nada: no se puede escribir en el historial</translation>
    </message>
    <message>
        <source>%1 of %2, pinned: %3</source>
        <translation>%1 de %2, fijado: %3</translation>
    </message>
</context>
<context>
    <name>WelcomePage1Controller</name>
    <message>
        <source>Everything you copy, at hand</source>
        <translation>Todo lo que copia, a mano</translation>
    </message>
    <message>
        <source>Quillmarsh keeps each text and each file you copy, and pastes any of them again wherever you are typing.</source>
        <translation>Quillmarsh conserva cada texto y cada archivo que copia, y vuelve a pegarlos donde esté escribiendo.</translation>
    </message>
    <message>
        <source>Open Quillmarsh at &amp;login</source>
        <translation>Abrir Quillmarsh al &amp;iniciar sesión</translation>
    </message>
    <message>
        <source>Check for &amp;updates</source>
        <translation>&amp;Buscar actualizaciones</translation>
    </message>
    <message>
        <source>Open at login</source>
        <translation>Abrir al iniciar sesión</translation>
    </message>
    <message>
        <source>Check for updates</source>
        <translation>Buscar actualizaciones</translation>
    </message>
    <message>
        <source>Have the &amp;desktop ask when I go on</source>
        <translation>Que el escritorio pregunte al &amp;continuar</translation>
    </message>
</context>
<context>
    <name>WelcomePages</name>
    <message>
        <source>opens the history over any application</source>
        <translation>abre el historial sobre cualquier aplicación</translation>
    </message>
    <message>
        <source>typing narrows it: part of a word is enough</source>
        <translation>escribir lo acota: basta parte de una palabra</translation>
    </message>
    <message>
        <source>choose a clip</source>
        <translation>elegir un recorte</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Intro</translation>
    </message>
    <message>
        <source>pastes it where you were typing</source>
        <translation>lo pega donde estaba escribiendo</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Mayús</translation>
    </message>
    <message>
        <source>pastes it IN UPPER CASE</source>
        <translation>lo pega EN MAYÚSCULAS</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>pastes it in lower case</source>
        <translation>lo pega en minúsculas</translation>
    </message>
    <message>
        <source>Open, find, paste</source>
        <translation>Abrir, buscar, pegar</translation>
    </message>
    <message>
        <source>Your hands stay on the keyboard, and the text goes into the window you came from.</source>
        <translation>Sus manos no dejan el teclado y el texto va a la ventana de la que venía.</translation>
    </message>
    <message>
        <source>Swop a selection for a clip</source>
        <translation>Intercambiar una selección por un recorte</translation>
    </message>
    <message>
        <source>Select a text, press the keys, choose a clip. The clip takes the selection’s place, and the selection becomes your newest clip.</source>
        <translation>Seleccione un texto, pulse las teclas, elija un recorte. El recorte ocupa el lugar de la selección, que pasa a ser su recorte más reciente.</translation>
    </message>
    <message>
        <source>The history is one file that only you can read, in
%1.</source>
        <translation>El historial es un único archivo que solo usted puede leer, en
%1.</translation>
    </message>
    <message>
        <source>Never recorded: what a password manager marks as secret, and copies from the applications that you list in Preferences.</source>
        <translation>Nunca se guarda: lo que un gestor de contraseñas marca como secreto ni las copias de las aplicaciones que indique en Preferencias.</translation>
    </message>
    <message>
        <source>To delete a clip for good, press Super + Backspace in the history. To delete them all, choose “Clear All” in the menu.</source>
        <translation>Para eliminar un recorte del todo, pulse Súper + Retroceso en el historial. Para eliminarlos todos, elija «Borrar todo» en el menú.</translation>
    </message>
    <message>
        <source>Yours alone</source>
        <translation>Solo suyo</translation>
    </message>
    <message>
        <source>Your clips never leave this computer.</source>
        <translation>Sus recortes nunca salen de este equipo.</translation>
    </message>
    <message>
        <source>(turned off)</source>
        <translation>(desactivado)</translation>
    </message>
</context>
<context>
    <name>WelcomeWindow</name>
    <message>
        <source>Welcome to Quillmarsh</source>
        <translation>Le damos la bienvenida a Quillmarsh</translation>
    </message>
</context>
<context>
    <name>WelcomeWindowController</name>
    <message>
        <source>Open your history at any time: %1</source>
        <translation>Abra su historial en cualquier momento: %1</translation>
    </message>
    <message>
        <source>Open your history at any time: %1. The default is %2.</source>
        <translation>Abra su historial en cualquier momento: %1. El predeterminado es %2.</translation>
    </message>
    <message>
        <source>The shortcut that opens the history, by default %1, is turned off.</source>
        <translation>El atajo que abre el historial, por defecto %1, está desactivado.</translation>
    </message>
    <message>
        <source>This desktop lets no program set shortcuts. Preferences has the line that its configuration needs.</source>
        <translation>Este escritorio no deja que ningún programa establezca atajos. En Preferencias está la línea que necesita su configuración.</translation>
    </message>
</context>
<context>
    <name>WelcomeWindowView</name>
    <message>
        <source>Previous</source>
        <translation>Anterior</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Siguiente</translation>
    </message>
    <message>
        <source>Take the tour</source>
        <translation>Hacer el recorrido</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Listo</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Página %1 de %2</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
</context>
</TS>
