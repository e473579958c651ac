#pragma once

#include "platform/pasteboard/CopyBytes.h"
#include "platform/x11/selection/SelectionAtoms.h"

#include <QByteArray>
#include <QHash>
#include <QList>

#include <functional>
#include <memory>
#include <optional>

/// What we serve as a selection's owner, in every format it can be asked for. Immutable and held
/// by shared pointer: a transfer that runs when new contents are written keeps the bytes it needs,
/// and the bytes are never copied.
class SelectionOffer
{
public:
    struct Data
    {
        xcb_atom_t type = XCB_ATOM_NONE;
        QByteArray bytes;
        int format = 8; ///< Bits of an element.
    };

    struct Format
    {
        xcb_atom_t target = XCB_ATOM_NONE;
        Data data;
        /// Makes of the data what is asked for; null where it is that already.
        std::function<std::optional<QByteArray>(const QByteArray &bytes)> convert;
    };

    static std::shared_ptr<const SelectionOffer> of(const CopyBytes &copy,
                                                    const SelectionAtoms &atoms);

    /// The same text and nothing else; null when there is no text.
    std::shared_ptr<const SelectionOffer> textAlone(const SelectionAtoms &atoms) const;

    /// The same, and what was read besides. A picture among it is offered as PNG, too, and under
    /// those of the names in `atoms` that it can be written as.
    std::shared_ptr<const SelectionOffer>
    with(const QList<Format> &formats, QHash<QString, xcb_atom_t> atoms, xcb_atom_t imagePng) const;

    bool isEmpty() const { return m_formats.isEmpty(); }

    /// UTF-8; absent when there is none.
    const std::optional<QByteArray> &text() const { return m_text; }

    QList<xcb_atom_t> targets() const;

    /// Absent when the contents do not exist in this format.
    std::optional<Data> convert(xcb_atom_t target) const;

private:
    SelectionOffer() = default;

    QList<Format>::const_iterator find(xcb_atom_t target) const;

    std::optional<QByteArray> m_text;
    QList<Format> m_formats;
};
