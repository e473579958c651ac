#include "history/RichTextMaker.h"

#include "platform/richtext/RichText.h"

#include <chrono>

using namespace std::chrono_literals;

RichTextMaker::RichTextMaker()
{
    m_thread.setMaxThreadCount(1);
    m_thread.setExpiryTimeout(static_cast<int>(std::chrono::milliseconds(30s).count()));
}

RichTextMaker::~RichTextMaker()
{
    m_thread.clear();
    m_thread.waitForDone();
}

void RichTextMaker::make(const QString &html, const std::optional<QString> &rtf,
                         std::function<void(const QString &)> receive)
{
    m_thread.start([this, html, rtf, receive = std::move(receive)] {
        const std::optional<QByteArray> made = RichText::withHtml(
            html.toLatin1(), rtf ? std::optional(rtf->toLatin1()) : std::nullopt);
        if (made)
            QMetaObject::invokeMethod(
                &m_receiver, [receive, source = QString::fromLatin1(*made)] { receive(source); },
                Qt::QueuedConnection);
    });
}
