#include "platform/x11/selection/SelectionOffer.h"

#include "platform/pasteboard/PictureFormats.h"

#include <algorithm>

std::shared_ptr<const SelectionOffer> SelectionOffer::of(const CopyBytes &copy,
                                                         const SelectionAtoms &atoms)
{
    std::shared_ptr<SelectionOffer> offer(new SelectionOffer);
    offer->m_text = copy.text;
    // Converted when it is asked for: a copy is offered in many formats and pasted in one or none.
    for (const CopyBytes::Offer &format : copy.offers())
        offer->m_formats.append({atoms.formats[format.name],
                                 {atoms.formats[format.type], format.bytes},
                                 format.convert});
    return offer;
}

std::shared_ptr<const SelectionOffer> SelectionOffer::textAlone(const SelectionAtoms &atoms) const
{
    if (!m_text)
        return nullptr;
    // A middle click pastes PRIMARY as well, wherever it falls: no more in it than a terminal
    // needs.
    CopyBytes copy;
    copy.text = m_text;
    return of(copy, atoms);
}

std::shared_ptr<const SelectionOffer> SelectionOffer::with(const QList<Format> &formats,
                                                           QHash<QString, xcb_atom_t> atoms,
                                                           xcb_atom_t imagePng) const
{
    std::shared_ptr<SelectionOffer> offer(new SelectionOffer(*this));
    offer->m_formats += formats;
    // Programs paste the first encoding of their own list that TARGETS names. So those that the
    // owner made from its picture go on being listed, made from the one that was kept.
    const QStringList pictures = PictureFormats::inOrder(atoms.keys());
    atoms[PictureFormats::kPng] = imagePng;
    for (const QString &name : pictures) {
        const QList<Format> known = offer->m_formats;
        const auto kept = std::find_if(known.begin(), known.end(), [&](const Format &format) {
            return format.target == atoms[name];
        });
        if (kept == known.end())
            continue;
        for (const QString &other : PictureFormats::writable(kept->data.bytes, atoms.keys())) {
            if (other != name)
                offer->m_formats.append(
                    {atoms[other], {atoms[other], kept->data.bytes}, [other](const auto &picture) {
                         return PictureFormats::convert(picture, other);
                     }});
        }
        break;
    }
    return offer;
}

QList<xcb_atom_t> SelectionOffer::targets() const
{
    QList<xcb_atom_t> targets;
    for (const Format &format : m_formats)
        targets.append(format.target);
    return targets;
}

std::optional<SelectionOffer::Data> SelectionOffer::convert(xcb_atom_t target) const
{
    const auto format =
        std::find_if(m_formats.begin(), m_formats.end(),
                     [&](const Format &candidate) { return candidate.target == target; });
    if (format == m_formats.end())
        return std::nullopt;
    if (!format->convert)
        return format->data;
    // One that fails becomes a refusal, which every requestor must expect (ICCCM 2.2).
    const std::optional<QByteArray> bytes = format->convert(format->data.bytes);
    return bytes ? std::optional(Data{format->data.type, *bytes}) : std::nullopt;
}
