#pragma once

#include <QHash>
#include <QString>

#include <xcb/xcb.h>

class X11Connection;

/// The names that selections are exchanged under, as this X server numbers them.
struct SelectionAtoms
{
    xcb_atom_t clipboard = XCB_ATOM_NONE;
    xcb_atom_t clipboardManager = XCB_ATOM_NONE;
    xcb_atom_t manager = XCB_ATOM_NONE;

    // Targets that carry no contents
    xcb_atom_t targets = XCB_ATOM_NONE;
    xcb_atom_t timestamp = XCB_ATOM_NONE;
    xcb_atom_t multiple = XCB_ATOM_NONE;
    xcb_atom_t saveTargets = XCB_ATOM_NONE;
    xcb_atom_t passwordHint = XCB_ATOM_NONE;

    // Types of answers
    xcb_atom_t atomPair = XCB_ATOM_NONE;
    xcb_atom_t incr = XCB_ATOM_NONE;
    xcb_atom_t null = XCB_ATOM_NONE;

    /// What we offer, by name.
    QHash<QString, xcb_atom_t> formats;

    SelectionAtoms() = default;
    explicit SelectionAtoms(const X11Connection &server);
};
