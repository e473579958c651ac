#pragma once

#include <QList>
#include <QString>
#include <QStringList>

/// Tells where in a text stands what a search has found, to be shown there. Whether a clip is
/// found is SearchPattern's to say: this one compares letter by letter, so a letter that only a
/// longer spelling equals is not marked. A value; empty for a search that is for no letters.
class FoundPlaces
{
public:
    struct Place
    {
        qsizetype start;
        qsizetype length;
        friend bool operator==(const Place &, const Place &) = default;
    };

    FoundPlaces() = default;
    /// As somebody types it in the search field.
    explicit FoundPlaces(const QString &typed);

    bool isEmpty() const { return m_parts.isEmpty(); }
    /// From the beginning on, at most about `most`; each of what stands between two "*".
    QList<Place> in(QStringView text, qsizetype most) const;

    friend bool operator==(const FoundPlaces &, const FoundPlaces &) = default;

private:
    /// Letters with any one character between each two.
    using Part = QStringList;

    static Place find(QStringView text, qsizetype from, const Part &part);

    QList<Part> m_parts;
};
