#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

class QTextBlock;
class QTextList;

/// The lists of a document being written as RTF, by the numbers that its paragraphs name them by.
/// Those with bullets share one; each that counts is one of its own, as it begins anew.
class RtfLists
{
public:
    /// The number of a list, from 1.
    int numberOf(const QTextList &list);

    /// 0 for a list that is in no other.
    static int levelOf(const QTextList &list);

    /// What stands before an item, for readers that do not count themselves.
    static QString marker(const QTextList &list, const QTextBlock &item);

    /// Both tables; empty without lists.
    QByteArray tables() const;

private:
    struct Kind
    {
        int format; ///< RTF's number for how it counts.
        int level;
    };

    QList<Kind> m_kinds;
    QHash<const QTextList *, int> m_numbers;
};
