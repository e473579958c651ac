#include "Clipboard/window/ClipMenu.h"

#include "Clipboard/window/HistoryActions.h"
#include "Clipboard/window/ViewController.h"

#include <QAction>
#include <QKeyEvent>

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

using Controller = ViewController;

struct Entry
{
    const char *name;
    QString (*text)(const Controller &controller);
    QKeyCombination key;
    bool actsByKey; ///< Else the key is the search field's and the table's, and only told here.
    bool beginsGroup;
    bool (*isFor)(const Controller &controller);
    void (*act)(Controller &controller);
};

bool isForAny(const Controller &)
{
    return true;
}

bool isForText(const Controller &controller)
{
    return controller.markCount() > 0 || !controller.filepath(controller.selectedRow());
}

bool isForFile(const Controller &controller)
{
    return !isForText(controller);
}

bool isForFiles(const Controller &controller)
{
    return isForFile(controller) && controller.fileCount(controller.selectedRow()) > 1;
}

const Entry kEntries[] = {
    {"paste", [](const Controller &) { return ClipMenu::tr("Paste"); },
     QKeyCombination(Qt::Key_Return), false, true, isForAny,
     [](Controller &controller) { controller.paste(); }},
    {"pasteAllFiles",
     [](const Controller &controller) {
         return ClipMenu::tr("Paste all %Ln files", nullptr,
                             controller.fileCount(controller.selectedRow()));
     },
     Qt::CTRL | Qt::SHIFT | Qt::Key_F, true, false, isForFiles,
     [](Controller &controller) { controller.paste(QStringLiteral("files")); }},
    {"pastePlain", [](const Controller &) { return ClipMenu::tr("Paste as Plain Text"); },
     Qt::CTRL | Qt::SHIFT | Qt::Key_V, false, false, isForText,
     [](Controller &controller) { controller.paste(QStringLiteral("plain")); }},
    {"pasteUpper", [](const Controller &) { return ClipMenu::tr("Paste in Upper Case"); },
     Qt::SHIFT | Qt::Key_Return, false, false, isForText,
     [](Controller &controller) { controller.paste(QStringLiteral("upper")); }},
    {"pasteLower", [](const Controller &) { return ClipMenu::tr("Paste in Lower Case"); },
     Qt::ALT | Qt::Key_Return, false, false, isForText,
     [](Controller &controller) { controller.paste(QStringLiteral("lower")); }},
    {"copy", [](const Controller &) { return ClipMenu::tr("Copy Without Pasting"); },
     Qt::CTRL | Qt::Key_C, true, true, isForAny, [](Controller &controller) { controller.copy(); }},
    {"open", [](const Controller &) { return ClipMenu::tr("Open"); }, Qt::CTRL | Qt::Key_O, true,
     true, isForFile, [](Controller &controller) { controller.appDelegate().openFile(); }},
    {"reveal", [](const Controller &) { return ClipMenu::tr("Reveal in File Manager"); },
     Qt::CTRL | Qt::SHIFT | Qt::Key_O, true, false, isForFile,
     [](Controller &controller) { controller.appDelegate().revealInFinder(); }},
    {"pin",
     [](const Controller &controller) {
         return controller.arePinned() ? ClipMenu::tr("Unpin") : ClipMenu::tr("Pin");
     },
     Qt::CTRL | Qt::Key_D, false, true, isForAny,
     [](Controller &controller) { controller.togglePin(); }},
    {"delete", [](const Controller &) { return ClipMenu::tr("Delete"); },
     Qt::META | Qt::Key_Backspace, false, true, isForAny,
     [](Controller &controller) { controller.deleteItem(); }},
};

QString nameOf(Qt::Key key)
{
    if (key == Qt::Key_Return)
        return ClipMenu::tr("Return");
    if (key == Qt::Key_Backspace)
        return ClipMenu::tr("Backspace");
    return QKeySequence(key).toString();
}

/// As the tour and the footer call the keys; the toolkit's own names for them differ from those in
/// some languages.
QString keyText(QKeyCombination key)
{
    const Qt::KeyboardModifiers modifiers = key.keyboardModifiers();
    QStringList names;
    if (modifiers & Qt::MetaModifier)
        names.append(ClipMenu::tr("Super"));
    if (modifiers & Qt::ControlModifier)
        names.append(ClipMenu::tr("Ctrl"));
    if (modifiers & Qt::AltModifier)
        names.append(ClipMenu::tr("Alt"));
    if (modifiers & Qt::ShiftModifier)
        names.append(ClipMenu::tr("Shift"));
    names.append(nameOf(key.key()));
    return names.join(u'+');
}

} // namespace

ClipMenu::ClipMenu(ViewController &controller, QWidget *parent) : QMenu(parent)
{
    setObjectName(QStringLiteral("clipMenu"));
    setAccessibleName(tr("Actions for the clip"));
    setAttribute(Qt::WA_DeleteOnClose);
    bool beginsGroup = false;
    for (const Entry &entry : kEntries) {
        beginsGroup = beginsGroup || entry.beginsGroup;
        if (!entry.isFor(controller))
            continue;
        if (std::exchange(beginsGroup, false) && !isEmpty())
            addSeparator();
        QAction *action = addAction(entry.text(controller) + u'\t' + keyText(entry.key));
        action->setObjectName(QString::fromLatin1(entry.name));
        // Later, because a paste waits for the target, and the menu is to be gone by then.
        connect(
            action, &QAction::triggered, &controller,
            [&controller, act = entry.act] { act(controller); }, Qt::QueuedConnection);
        if (entry.isFor != isForFiles)
            continue;
        action->setEnabled(false);
        controller.askCopiedFilesExist(this, [action](bool exist) { action->setEnabled(exist); });
    }
}

bool ClipMenu::actByKey(ViewController &controller, const QKeyEvent &event)
{
    const QKeyCombination pressed(event.modifiers() & ~Qt::KeypadModifier, Qt::Key(event.key()));
    const auto *entry =
        std::find_if(std::begin(kEntries), std::end(kEntries),
                     [&](const auto &row) { return row.actsByKey && row.key == pressed; });
    if (entry == std::end(kEntries))
        return false;
    controller.finishSearch();
    if (controller.markedClips().empty() || !entry->isFor(controller))
        return false;
    entry->act(controller);
    return true;
}
