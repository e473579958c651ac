#pragma once

#include "platform/pasteboard/FetchedCopy.h"
#include "platform/x11/selection/SelectionOffer.h"

#include <QHash>
#include <QList>

#include <xcb/xcb.h>

/// What was read of a selection: a value, made by SelectionReader.
struct FetchedSelection : FetchedCopy
{
    /// How this server numbers the names.
    QHash<QString, xcb_atom_t> atoms;
    /// What else was read of it, as its owner gave it.
    QList<SelectionOffer::Format> rest;
};
