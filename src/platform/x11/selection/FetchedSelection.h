#pragma once

#include "platform/Pasteboard.h"
#include "platform/pasteboard/CopyBytes.h"
#include "platform/x11/selection/SelectionOffer.h"

#include <QHash>
#include <QList>
#include <QStringList>

#include <xcb/xcb.h>

/// What was read of a selection: a value, made by SelectionReader. What did not arrive whole is
/// absent.
struct FetchedSelection
{
    /// Every format the owner offers, by its name, in its order; none of a secret.
    QStringList names;
    /// How this server numbers them.
    QHash<QString, xcb_atom_t> atoms;
    CopyBytes copy;
    /// More text than was to be read; there is none then.
    bool isTextTooLarge = false;
    /// The owner was given up, so that it is no use to ask it for anything else.
    bool isGivenUp = false;
    /// Marked as a secret; nothing was asked for then.
    bool isConcealed = false;
    /// What else was read of it, as its owner gave it.
    QList<SelectionOffer::Format> rest;
    /// More of that was to be had than was to be read.
    bool isRestTooLarge = false;

    /// As the application sees it, without a text that is larger than of use to it. Its change
    /// count and application are left to who publishes it.
    PasteboardContents contents(qint64 maxUsefulText) const;
};
