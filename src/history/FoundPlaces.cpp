#include "history/FoundPlaces.h"

#include "history/SearchTerm.h"

FoundPlaces::FoundPlaces(const QString &typed)
{
    for (QStringView part : SearchTerm::of(typed).term.split(u'*')) {
        // What stands for any character at an end is none that was sought.
        while (part.startsWith(u'?'))
            part = part.mid(1);
        while (part.endsWith(u'?'))
            part.chop(1);
        if (!part.isEmpty())
            m_parts.append(part.toString().split(u'?'));
    }
}

QList<FoundPlaces::Place> FoundPlaces::in(QStringView text, qsizetype most) const
{
    QList<Place> places;
    for (qsizetype at = 0; !m_parts.isEmpty() && places.size() < most;) {
        QList<Place> match;
        for (const Part &part : m_parts) {
            const Place place = find(text, at, part);
            if (place.start < 0)
                return places;
            match.append(place);
            at = place.start + place.length;
        }
        places += match;
    }
    return places;
}

FoundPlaces::Place FoundPlaces::find(QStringView text, qsizetype from, const Part &part)
{
    for (;;) {
        const qsizetype start = text.indexOf(part.first(), from, Qt::CaseInsensitive);
        if (start < 0)
            return {-1, 0};
        qsizetype end = start + part.first().size();
        bool isHere = true;
        for (qsizetype i = 1; isHere && i < part.size(); ++i) {
            isHere = end < text.size();
            end += isHere && text.at(end).isHighSurrogate() ? 2 : 1;
            isHere = isHere && text.mid(end).startsWith(part.at(i), Qt::CaseInsensitive);
            end += part.at(i).size();
        }
        if (isHere)
            return {start, end - start};
        from = start + 1;
    }
}
