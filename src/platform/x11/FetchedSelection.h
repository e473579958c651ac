#pragma once

#include "platform/Pasteboard.h"
#include "platform/pasteboard/FileUris.h"

#include <QByteArray>
#include <QHash>
#include <QStringList>

#include <optional>

#include <xcb/xcb.h>

/// What was read of a selection: a value, made by SelectionReader. What did not arrive whole is
/// absent.
struct FetchedSelection
{
    /// Every format the owner offers, by its name.
    QStringList types;
    /// How this server numbers them.
    QHash<QString, xcb_atom_t> atoms;
    /// UTF-8, byte for byte as the owner sent it unless it sent another encoding.
    std::optional<QByteArray> text;
    std::optional<QByteArray> rtf;
    /// As the owner sent it; empty when it sent none.
    QByteArray uriList;
    QStringList fileNames;
    FileUris::Action fileAction = FileUris::Action::Copy;
    /// More text than was to be read; there is none then.
    bool isTextTooLarge = false;
    /// False when something was offered that did not arrive.
    bool isComplete = true;
    /// The owner was given up, so that it is no use to ask it for anything else.
    bool isGivenUp = false;
    /// Marked as a secret; nothing was asked for then.
    bool isConcealed = false;

    /// As the application sees it, without a text that is larger than of use to it. Its change
    /// count and application are left to who publishes it.
    PasteboardContents contents(qint64 largestUsefulText) const;
};
