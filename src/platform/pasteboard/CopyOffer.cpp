#include "platform/pasteboard/CopyOffer.h"

#include "platform/pasteboard/PictureFormats.h"

#include <algorithm>

std::shared_ptr<const CopyOffer> CopyOffer::of(const CopyBytes &copy)
{
    std::shared_ptr<CopyOffer> offer(new CopyOffer);
    offer->m_text = copy.text;
    // Converted when it is asked for: a copy is offered in many formats and pasted in one or none.
    for (const CopyBytes::Offer &format : copy.offers())
        offer->m_formats.append({format.name, format.bytes, format.convert});
    return offer;
}

std::shared_ptr<const CopyOffer> CopyOffer::textAlone() const
{
    if (!m_text)
        return nullptr;
    // A middle click pastes the marked text as well, wherever it falls: no more in it than a
    // terminal needs.
    CopyBytes copy;
    copy.text = m_text;
    return of(copy);
}

std::shared_ptr<const CopyOffer> CopyOffer::with(const QList<Format> &formats,
                                                 const QStringList &names) const
{
    std::shared_ptr<CopyOffer> offer(new CopyOffer(*this));
    offer->m_formats += formats;
    // Programs paste the first encoding of their own list that is offered. So those that the owner
    // made from its picture go on being offered, made from the one that was kept.
    for (const QString &name : PictureFormats::inOrder(names)) {
        const QList<Format> known = offer->m_formats;
        const auto kept = std::find_if(known.begin(), known.end(),
                                       [&](const Format &format) { return format.name == name; });
        if (kept == known.end())
            continue;
        QStringList wanted = names;
        if (!wanted.contains(PictureFormats::kPng))
            wanted.append(PictureFormats::kPng);
        for (const QString &other : PictureFormats::writable(kept->bytes, wanted)) {
            if (other != name)
                offer->m_formats.append({other, kept->bytes, [other](const auto &picture) {
                                             return PictureFormats::convert(picture, other);
                                         }});
        }
        break;
    }
    return offer;
}

QStringList CopyOffer::names() const
{
    QStringList names;
    for (const Format &format : m_formats)
        names.append(format.name);
    return names;
}

std::optional<QByteArray> CopyOffer::convert(const QString &name) const
{
    const auto format = std::find_if(m_formats.begin(), m_formats.end(),
                                     [&](const Format &offered) { return offered.name == name; });
    if (format == m_formats.end())
        return std::nullopt;
    return format->convert ? format->convert(format->bytes) : std::optional(format->bytes);
}
