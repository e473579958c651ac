#include "platform/x11/selection/SelectionAtoms.h"

#include "platform/pasteboard/CopyBytes.h"
#include "platform/pasteboard/PictureFormats.h"
#include "platform/x11/X11Connection.h"

SelectionAtoms::SelectionAtoms(const X11Connection &server)
    : formats(server.atoms(CopyBytes::names() + QStringList{PictureFormats::kPng}))
{
    // The password hint comes from one desktop's clipboard manager and has become the mark that
    // password managers set everywhere.
    const std::array named = server.atoms(
        {"CLIPBOARD", "CLIPBOARD_MANAGER", "MANAGER", "TARGETS", "TIMESTAMP", "MULTIPLE",
         "SAVE_TARGETS", "x-kde-passwordManagerHint", "ATOM_PAIR", "INCR", "NULL"});
    auto next = named.begin();
    for (xcb_atom_t *atom : {&clipboard, &clipboardManager, &manager, &targets, &timestamp,
                             &multiple, &saveTargets, &passwordHint, &atomPair, &incr, &null})
        *atom = *next++;
}
