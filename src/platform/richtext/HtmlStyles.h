#pragma once

#include <QHash>
#include <QString>
#include <QStringView>

/// The formatting that CSS gives, of the few properties that are kept: weight, slant, lines, size,
/// fixed width, colours, raised and lowered text, alignment, white space, the kind of a list, and
/// whether there is anything to see. Colours and sizes in one form each, so that any reader
/// understands them. Nothing that refers to anything is in it.
class HtmlStyles
{
public:
    /// Declarations as they stand in an attribute; in what it gives, "display:none" is first.
    static QString safe(QStringView declarations);
    /// Empty for what is no colour, or none to be seen.
    static QString colour(QStringView value);

    /// Reads a sheet that is part of the HTML. Rules for elements and classes hold, one by one;
    /// all others, and what it imports, are left out.
    void read(QStringView sheet);

    /// What holds for an element by its name and its classes, least first.
    QString of(const QString &name, QStringView classes) const;

private:
    QHash<QString, QString> m_rules; ///< By "name", ".class" and "name.class".
    qsizetype m_read = 0;
};
