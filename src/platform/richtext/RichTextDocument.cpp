#include "platform/richtext/RichTextDocument.h"

#include "platform/richtext/HtmlText.h"
#include "platform/richtext/RichText.h"
#include "platform/richtext/RtfReader.h"
#include "platform/richtext/SafeHtml.h"

#include <QTextBlock>
#include <QTextCursor>

namespace {

/// Many times what is shown: markup that is left out comes before text that is not.
constexpr qsizetype kMaxRead = qsizetype(4) << 20;

/// HTML that is made of RTF is this many times what is kept of it, at most.
constexpr qsizetype kMaxMarkup = 4;

} // namespace

RichTextDocument::RichTextDocument()
{
    setUndoRedoEnabled(false);
}

QVariant RichTextDocument::loadResource(int, const QUrl &)
{
    return {};
}

std::unique_ptr<RichTextDocument> RichTextDocument::of(const QByteArray &rtf,
                                                       qsizetype maxCharacters)
{
    std::optional<QByteArray> html = RichText::carriedHtml(rtf);
    if (!html)
        html = RtfReader::htmlOf(rtf, maxCharacters * kMaxMarkup);
    return html ? ofHtml(*html, maxCharacters) : nullptr;
}

std::unique_ptr<RichTextDocument> RichTextDocument::ofHtml(const QByteArray &html,
                                                           qsizetype maxCharacters)
{
    const SafeHtml::Result safe = SafeHtml::of(htmlText(html.left(kMaxRead)), maxCharacters);
    if (!safe.hasText)
        return nullptr;
    std::unique_ptr<RichTextDocument> document(new RichTextDocument);
    document->setHtml(safe.html);
    document->m_isCut = safe.isCut || html.size() > kMaxRead;
    document->makeAnchors();
    document->moveToThread(nullptr);
    return document;
}

void RichTextDocument::makeAnchors()
{
    struct Link
    {
        int start;
        int end;
        QString address;
    };
    QList<Link> links;
    for (QTextBlock block = begin(); block.isValid(); block = block.next())
        for (auto piece = block.begin(); !piece.atEnd(); ++piece)
            if (const QTextFragment fragment = piece.fragment();
                !fragment.charFormat().toolTip().isEmpty())
                links.append({fragment.position(), fragment.position() + fragment.length(),
                              fragment.charFormat().toolTip()});
    QTextCursor cursor(this);
    for (const Link &link : links) {
        cursor.setPosition(link.start);
        cursor.setPosition(link.end, QTextCursor::KeepAnchor);
        QTextCharFormat format;
        format.setAnchor(true);
        format.setAnchorHref(link.address);
        cursor.mergeCharFormat(format);
    }
}
