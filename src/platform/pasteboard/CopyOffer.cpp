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
    const auto kept = [&](const QString &name) -> std::optional<QByteArray> {
        const auto format = offer->find(name);
        return format == offer->m_formats.end() ? std::nullopt : std::optional(format->bytes);
    };
    for (const PictureFormats::Encoding &other : PictureFormats::othersOf(names, kept))
        offer->m_formats.append({other.name, other.picture, other.convert});
    return offer;
}

QStringList CopyOffer::names() const
{
    QStringList names;
    for (const Format &format : m_formats)
        names.append(format.name);
    return names;
}

QList<CopyOffer::Format>::const_iterator CopyOffer::find(const QString &name) const
{
    return std::find_if(m_formats.begin(), m_formats.end(),
                        [&](const Format &offered) { return offered.name == name; });
}

std::optional<QByteArray> CopyOffer::convert(const QString &name) const
{
    const auto format = find(name);
    if (format == m_formats.end())
        return std::nullopt;
    return format->convert ? format->convert(format->bytes) : std::optional(format->bytes);
}
