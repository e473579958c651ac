#pragma once

#include <xcb/xcb.h>

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

    // Formats; STRING is one of X's predefined atoms
    xcb_atom_t utf8String = XCB_ATOM_NONE;
    xcb_atom_t textPlainUtf8 = XCB_ATOM_NONE;
    xcb_atom_t textPlain = XCB_ATOM_NONE;
    xcb_atom_t text = XCB_ATOM_NONE;
    xcb_atom_t textRtf = XCB_ATOM_NONE;
    xcb_atom_t applicationRtf = XCB_ATOM_NONE;
    xcb_atom_t uriList = XCB_ATOM_NONE;
    xcb_atom_t gnomeCopiedFiles = XCB_ATOM_NONE;
    xcb_atom_t kdeCutSelection = XCB_ATOM_NONE;
    xcb_atom_t imagePng = XCB_ATOM_NONE;

    static SelectionAtoms intern(xcb_connection_t *connection);
};
