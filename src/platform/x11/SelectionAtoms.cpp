#include "platform/x11/SelectionAtoms.h"

#include "platform/x11/X11Connection.h"

#include <cstdint>
#include <cstring>

namespace {

struct Row
{
    xcb_atom_t SelectionAtoms::*atom;
    const char *name;
};

constexpr Row kRows[] = {
    {&SelectionAtoms::clipboard, "CLIPBOARD"},
    {&SelectionAtoms::clipboardManager, "CLIPBOARD_MANAGER"},
    {&SelectionAtoms::manager, "MANAGER"},
    {&SelectionAtoms::targets, "TARGETS"},
    {&SelectionAtoms::timestamp, "TIMESTAMP"},
    {&SelectionAtoms::multiple, "MULTIPLE"},
    {&SelectionAtoms::saveTargets, "SAVE_TARGETS"},
    {&SelectionAtoms::passwordHint, "x-kde-passwordManagerHint"},
    {&SelectionAtoms::atomPair, "ATOM_PAIR"},
    {&SelectionAtoms::incr, "INCR"},
    {&SelectionAtoms::null, "NULL"},
    {&SelectionAtoms::utf8String, "UTF8_STRING"},
    {&SelectionAtoms::textPlainUtf8, "text/plain;charset=utf-8"},
    {&SelectionAtoms::textPlain, "text/plain"},
    {&SelectionAtoms::text, "TEXT"},
    {&SelectionAtoms::textRtf, "text/rtf"},
    {&SelectionAtoms::applicationRtf, "application/rtf"},
    {&SelectionAtoms::uriList, "text/uri-list"},
    {&SelectionAtoms::gnomeCopiedFiles, "x-special/gnome-copied-files"},
    {&SelectionAtoms::kdeCutSelection, "application/x-kde-cutselection"},
    {&SelectionAtoms::imagePng, "image/png"},
};

} // namespace

SelectionAtoms SelectionAtoms::intern(xcb_connection_t *connection)
{
    xcb_intern_atom_cookie_t cookies[std::size(kRows)];
    for (std::size_t i = 0; i < std::size(kRows); ++i) {
        const auto length = static_cast<std::uint16_t>(std::strlen(kRows[i].name));
        cookies[i] = xcb_intern_atom(connection, 0, length, kRows[i].name);
    }
    SelectionAtoms atoms;
    for (std::size_t i = 0; i < std::size(kRows); ++i) {
        const XcbPointer<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(connection, cookies[i], nullptr));
        atoms.*kRows[i].atom = reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
    }
    return atoms;
}
