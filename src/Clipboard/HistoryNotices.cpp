#include "Clipboard/HistoryNotices.h"

#include "Clipboard/preferences/DamagedSettingsQuestion.h"
#include "history/ClipPaster.h"
#include "history/ClipboardCapture.h"
#include "platform/SettingsStore.h"

#include <QLocale>
#include <QStringList>

#include <utility>

HistoryNotices::HistoryNotices(const ClipboardCapture &capture, const ClipPaster &paster,
                               const SettingsStore &settings)
    : m_settings(settings)
{
    connect(&capture, &ClipboardCapture::refused, this, &HistoryNotices::copyRefused);
    connect(&paster, &ClipPaster::unrecordedReplaced, this, &HistoryNotices::unrecordedReplaced);
}

void HistoryNotices::historyOpens()
{
    QStringList lines{std::exchange(m_refusal, QString()), std::exchange(m_replacement, QString())};
    lines.removeAll(QString());
    m_text = lines.join(u'\n');
}

QString HistoryNotices::text() const
{
    QStringList lines{
        m_settings.areSettingsDamaged() ? DamagedSettingsQuestion::notice() : QString(), m_text};
    lines.removeAll(QString());
    return lines.join(u'\n');
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

void HistoryNotices::unrecordedReplaced(bool wasPicture)
{
    m_replacement =
        wasPicture ? tr("The copied picture is replaced") : tr("What was copied is replaced");
}
