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
    const QStringList listed = atoms.keys();
    atoms[PictureFormats::kPng] = imagePng;
    const auto kept = [&](const QString &name) -> std::optional<QByteArray> {
        const auto format = offer->find(atoms[name]);
        return format == offer->m_formats.end() ? std::nullopt : std::optional(format->data.bytes);
    };
    for (const PictureFormats::Encoding &other : PictureFormats::othersOf(listed, kept))
        offer->m_formats.append(
            {atoms[other.name], {atoms[other.name], other.picture}, other.convert});
    return offer;
}

QList<xcb_atom_t> SelectionOffer::targets() const
{
    QList<xcb_atom_t> targets;
    for (const Format &format : m_formats)
        targets.append(format.target);
    return targets;
}

QList<SelectionOffer::Format>::const_iterator SelectionOffer::find(xcb_atom_t target) const
{
    return std::find_if(m_formats.begin(), m_formats.end(),
                        [&](const Format &format) { return format.target == target; });
}

std::optional<SelectionOffer::Data> SelectionOffer::convert(xcb_atom_t target) const
{
    const auto format = find(target);
    if (format == m_formats.end())
        return std::nullopt;
    if (!format->convert)
        return format->data;
    // One that fails becomes a refusal, which every requestor must expect (ICCCM 2.2).
    const std::optional<QByteArray> bytes = format->convert(format->data.bytes);
    return bytes ? std::optional(Data{format->data.type, *bytes}) : std::nullopt;
}
