#include "Clipboard/HistoryNotices.h"

#include "history/ClipboardCapture.h"

#include <QLocale>

#include <utility>

HistoryNotices::HistoryNotices(const ClipboardCapture &capture)
{
    connect(&capture, &ClipboardCapture::refused, this, &HistoryNotices::copyRefused);
}

void HistoryNotices::historyOpens()
{
    m_text = std::exchange(m_refusal, QString());
}

void HistoryNotices::copyRefused(std::optional<qint64> bytes, qint64 limit)
{
    const QString most = QLocale().toString(limit);
    m_refusal =
        bytes ? tr("A copy of %Ln bytes was not recorded; the limit is %1", nullptr,
                   static_cast<int>(*bytes))
                    .arg(most)
              : tr("A copy was not recorded; it is larger than the limit of %1 bytes").arg(most);
}
