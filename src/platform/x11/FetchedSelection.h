#pragma once

#include "platform/Pasteboard.h"
#include "platform/pasteboard/FileUris.h"

#include <QByteArray>
#include <QList>
#include <QStringList>

#include <optional>

#include <xcb/xcb.h>

/// What was read of a selection: a value, made by SelectionReader. What did not arrive whole is
/// absent.
struct FetchedSelection
{
    /// Every format the owner offers, by its name.
    QStringList types;
    /// The same as this server numbers them.
    QList<xcb_atom_t> offered;
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
    /// Marked as a secret; nothing was asked for then.
    bool isConcealed = false;

    /// As the application sees it, without a text that is larger than of use to it. Its change
    /// count and application are left to who publishes it.
    PasteboardContents contents(qint64 largestUsefulText) const;
};
