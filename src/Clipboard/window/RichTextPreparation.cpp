#include "Clipboard/window/RichTextPreparation.h"

#include "Clipboard/window/ClipTextView.h"
#include "Clipboard/window/PacedLayout.h"
#include "Clipboard/window/RichTextLooks.h"
#include "platform/richtext/RichTextDocument.h"

#include <QThread>

#include <utility>

namespace {

std::unique_ptr<RichTextDocument> shown(const QByteArray &rtf, const RichTextLooks &looks)
{
    // Markup takes as much again.
    auto document = RichTextDocument::of(rtf, 2 * ClipTextView::kShownBytes);
    if (!document || document->isCut() || document->characterCount() > ClipTextView::kShownBytes ||
        !PacedLayout::suits(*document))
        return nullptr;
    looks.fit(*document);
    return document;
}

} // namespace

void RichTextPreparation::prepare(const QString &rtf, const RichTextLooks &looks, Receiver receive)
{
    giveUp();
    m_thread.start([this, rtf, looks, receive = std::move(receive), request = m_latest.load()] {
        if (m_latest != request)
            return;
        // A function can be copied, and so can what it hands over.
        auto document =
            std::make_shared<std::unique_ptr<RichTextDocument>>(shown(rtf.toLatin1(), looks));
        m_thread.deliver([this, document, receive, request] {
            if (m_latest != request)
                return;
            if (*document)
                (*document)->moveToThread(QThread::currentThread());
            receive(std::move(*document));
        });
    });
}

void RichTextPreparation::giveUp()
{
    ++m_latest;
    m_thread.giveUp();
}
