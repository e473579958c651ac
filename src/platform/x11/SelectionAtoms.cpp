#include "platform/x11/SelectionAtoms.h"

#include "platform/pasteboard/CopyBytes.h"
#include "platform/pasteboard/PictureFormats.h"
#include "platform/x11/X11Connection.h"

namespace {

struct Row
{
    xcb_atom_t SelectionAtoms::*atom;
    QString name;
};

const Row kRows[] = {
    {&SelectionAtoms::clipboard, QStringLiteral("CLIPBOARD")},
    {&SelectionAtoms::clipboardManager, QStringLiteral("CLIPBOARD_MANAGER")},
    {&SelectionAtoms::manager, QStringLiteral("MANAGER")},
    {&SelectionAtoms::targets, QStringLiteral("TARGETS")},
    {&SelectionAtoms::timestamp, QStringLiteral("TIMESTAMP")},
    {&SelectionAtoms::multiple, QStringLiteral("MULTIPLE")},
    {&SelectionAtoms::saveTargets, QStringLiteral("SAVE_TARGETS")},
    {&SelectionAtoms::passwordHint, QStringLiteral("x-kde-passwordManagerHint")},
    {&SelectionAtoms::atomPair, QStringLiteral("ATOM_PAIR")},
    {&SelectionAtoms::incr, QStringLiteral("INCR")},
    {&SelectionAtoms::null, QStringLiteral("NULL")},
};

} // namespace

SelectionAtoms SelectionAtoms::intern(const X11Connection &server)
{
    SelectionAtoms atoms;
    atoms.formats = server.atoms(CopyBytes::names() + QStringList{PictureFormats::kPng});
    QStringList names;
    for (const Row &row : kRows)
        names.append(row.name);
    const QHash<QString, xcb_atom_t> known = server.atoms(names);
    for (const Row &row : kRows)
        atoms.*row.atom = known[row.name];
    return atoms;
}
