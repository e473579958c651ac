#pragma once

#include "platform/Pasteboard.h"
#include "platform/pasteboard/CopyBytes.h"

#include <QStringList>

/// What was read of somebody's copy: a value, which a pasteboard's reader makes. What did not
/// arrive whole is absent.
struct FetchedCopy
{
    /// Every format the owner offers, by its name, in its order; none of a secret.
    QStringList names = {};
    CopyBytes copy = {};
    /// More text than was to be read; there is none then.
    bool isTextTooLarge = false;
    /// More of a picture than is of use; there is none then.
    bool isPictureTooLarge = false;
    /// The owner was given up, so that it is no use to ask it for anything else.
    bool isGivenUp = false;
    /// Marked as a secret; nothing was asked for then.
    bool isConcealed = false;
    /// More of what is kept besides was to be had than was to be read.
    bool isRestTooLarge = false;

    /// As the application sees it, without a text that is larger than of use to it. Its change
    /// count and application are left to who publishes it.
    PasteboardContents contents(qint64 maxUsefulText) const;
};
