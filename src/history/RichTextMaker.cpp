#include "history/RichTextMaker.h"

#include "platform/richtext/RichText.h"

#include <utility>

void RichTextMaker::make(const QString &html, const std::optional<QString> &rtf,
                         std::function<void(const QString &)> receive)
{
    m_thread.start([this, html, rtf, receive = std::move(receive)] {
        const std::optional<QByteArray> made = RichText::withHtml(
            html.toLatin1(), rtf ? std::optional(rtf->toLatin1()) : std::nullopt);
        if (made)
            m_thread.deliver([receive, source = QString::fromLatin1(*made)] { receive(source); });
    });
}
