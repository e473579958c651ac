#pragma once

#include "platform/Pasteboard.h"
#include "platform/x11/FetchedSelection.h"
#include "platform/x11/SelectionAtoms.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QStringList>

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

    /// A format in its owner's own bytes.
    struct Kept
    {
        xcb_atom_t target = XCB_ATOM_NONE;
        Data data;
    };

    /// What the application writes. Files without a text offer their paths as text. Files
    /// that were cut and come from the history are copied.
    static std::shared_ptr<const SelectionOffer> of(const PasteboardItem &item);

    /// What another client had, to be served on in its own bytes.
    static std::shared_ptr<const SelectionOffer> of(const FetchedSelection &fetched);

    /// The same text and nothing else; null when there is no text.
    std::shared_ptr<const SelectionOffer> textAlone() const;

    /// The same, and what was read besides. A picture among it is offered as PNG, too, and under
    /// those of the names in `atoms` that it can be written as.
    std::shared_ptr<const SelectionOffer> with(const QList<Kept> &formats,
                                               const QHash<QString, xcb_atom_t> &atoms,
                                               xcb_atom_t imagePng) const;

    bool isEmpty() const { return !m_text && !m_rtf && m_uriList.isEmpty() && m_kept.isEmpty(); }

    qint64 byteCount() const;

    /// UTF-8; absent when there is none.
    const std::optional<QByteArray> &text() const { return m_text; }

    QList<xcb_atom_t> targets(const SelectionAtoms &atoms) const;

    /// Absent when the contents do not exist in this format.
    std::optional<Data> convert(xcb_atom_t target, const SelectionAtoms &atoms) const;

private:
    SelectionOffer() = default;

    std::optional<QByteArray> m_text; ///< UTF-8.
    bool m_isTextLatin1 = false;
    std::optional<QByteArray> m_rtf;
    QByteArray m_uriList;
    QStringList m_fileNames;
    FileUris::Action m_fileAction = FileUris::Action::Copy;
    QList<Kept> m_kept;
    QByteArray m_picture;                   ///< One of the kept.
    QHash<xcb_atom_t, QString> m_encodings; ///< What the picture can be written as.
};
