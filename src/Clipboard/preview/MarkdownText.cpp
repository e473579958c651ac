#include "Clipboard/preview/MarkdownText.h"

#include <QRegularExpression>

namespace {

/// What stands for a tag, or for a comment when `name` is empty.
QString inPlaceOf(QStringView name, bool isClosing)
{
    if (name.compare(u"br", Qt::CaseInsensitive) == 0)
        return QStringLiteral("  \n");
    const bool isHeading = name.size() == 2 && name[0].toLower() == u'h' && name[1].isDigit();
    if (isHeading)
        return QStringLiteral("\n\n") +
               (isClosing ? QString() : QString(name[1].digitValue(), u'#') + u' ');
    if (name.compare(u"li", Qt::CaseInsensitive) == 0 && !isClosing)
        return QStringLiteral("\n- ");
    return {};
}

} // namespace

QString MarkdownText::withoutTags(const QString &text)
{
    static const QRegularExpression kCodeOrTag(
        QStringLiteral(
            "(?<code>^ {0,3}(```+|~~~+).*?(^ {0,3}\\g{2}|\\z)|`[^`\\n]+`)"
            "|<!--.*?(-->|\\z)"
            "|<(?<closing>/?)(?<name>a|b|blockquote|br|center|code|dd|del|details|div|dl|dt|em|"
            "font|h[1-6]|hr|i|img|ins|kbd|li|ol|p|picture|pre|s|samp|script|source|span|"
            "strong|style|sub|summary|sup|table|tbody|td|tfoot|th|thead|tr|tt|u|ul|var|"
            "video)(\\s[^<>]*)?/?>"),
        QRegularExpression::MultilineOption | QRegularExpression::DotMatchesEverythingOption |
            QRegularExpression::CaseInsensitiveOption);
    QString kept;
    qsizetype end = 0;
    QRegularExpressionMatchIterator matches = kCodeOrTag.globalMatch(text);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        if (match.capturedLength(u"code") > 0)
            continue;
        kept += QStringView(text).mid(end, match.capturedStart() - end);
        kept += inPlaceOf(match.capturedView(u"name"), match.capturedLength(u"closing") > 0);
        end = match.capturedEnd();
    }
    kept += QStringView(text).mid(end);
    return kept;
}
