#pragma once

#include <QList>
#include <QSet>
#include <QString>
#include <QStringView>

/// A piece of HTML.
struct HtmlToken
{
    enum class Kind { Text, Open, Close, Comment };
    struct Attribute
    {
        QString name; ///< In lower case.
        QStringView value;
    };

    /// Empty where there is none of that name.
    QStringView attribute(QLatin1String attributeName) const;

    Kind kind = Kind::Text;
    QString name = {};     ///< Of the tag, in lower case.
    QStringView text = {}; ///< As it is in the source, between tags or in a comment.
    QList<Attribute> attributes = {};
    bool isClosed = false; ///< An opening tag that ends in "/>".
};

/// The pieces of HTML one after the other. Reads each character once, and anything at all; what
/// is open at the end is left out. The source has to outlive it and what it gives.
class HtmlTokens
{
public:
    explicit HtmlTokens(QStringView source) : m_source(source) {}

    /// False at the end.
    bool next(HtmlToken *token);

    /// What there is up to the end tag of an element, and goes past that.
    QStringView rawText(const QString &name);

    /// Whether the element of an opening tag ends anywhere.
    bool hasEnd(const HtmlToken &token);

private:
    void readMarkup(HtmlToken *token);
    void readTag(HtmlToken *token);
    bool readAttribute(HtmlToken *token);
    QStringView readUntil(QStringView end, qsizetype from);
    void skipSpaces();
    bool isAt(qsizetype place, char16_t character) const;

    QStringView m_source;
    qsizetype m_place = 0;
    QSet<QString> m_endless; ///< Elements whose end tag does not come any more.
};
