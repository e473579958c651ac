#include "Clipboard/window/ClipInfoLine.h"

#include "Clipboard/window/VisibleCharacters.h"
#include "history/ClipItem.h"
#include "looks/Looks.h"
#include "platform/Clock.h"

#include <QEvent>
#include <QLocale>
#include <QPainter>
#include <QTimer>

namespace {

constexpr int kMargin = Looks::kTextMargin;
constexpr int kRefreshSeconds = 20;

QString timesPasted(const ClipItem &item)
{
    // The stored count of a clip pasted n times is n - 1.
    const qint64 times = item.pasteCount() ? qint64(*item.pasteCount()) + 1 : 0;
    if (times <= 0)
        return ClipInfoLine::tr("not pasted yet");
    if (times == 1)
        return ClipInfoLine::tr("pasted once");
    return ClipInfoLine::tr("pasted %Ln times", nullptr, int(times));
}

/// A file's own size is told by its preview.
bool hasCharacters(const ClipItem &item)
{
    return !item.filepath() && item.strValue();
}

QString exactTime(const ClipItem &item)
{
    if (!item.createDate())
        return {};
    return ClipInfoLine::tr("Copied on %1")
        .arg(QLocale().toString(item.createDate()->toLocalTime(), QLocale::LongFormat));
}

} // namespace

ClipInfoLine::ClipInfoLine(Clock &clock, QWidget *parent)
    : QWidget(parent), m_clock(clock), m_timer(new QTimer(this))
{
    setObjectName(QStringLiteral("clipInfoLine"));
    m_timer->setInterval(std::chrono::seconds(kRefreshSeconds));
    connect(m_timer, &QTimer::timeout, this, &ClipInfoLine::update);
    connect(&m_counter, &CharacterCounter::counted, this, &ClipInfoLine::update);
}

void ClipInfoLine::setClipItem(const std::shared_ptr<ClipItem> &item, int markCount)
{
    // A clip's text stays what it is.
    if (item != m_item)
        m_counter.count(item && hasCharacters(*item) ? *item->strValue() : QString());
    m_item = item;
    m_markCount = markCount;
    update();
}

void ClipInfoLine::update()
{
    QStringList parts;
    if (m_item) {
        if (m_markCount > 0)
            parts.append(markedText(m_markCount));
        if (m_item->applicationName() && !m_item->applicationName()->isEmpty())
            parts.append(m_item->applicationName()->simplified());
        if (m_item->createDate())
            parts.append(relativeTime(*m_item->createDate(), m_clock.now()));
        parts.append(size());
        parts.append(timesPasted(*m_item));
        parts.removeAll(QString());
    }
    m_text = parts.join(QStringLiteral("  ·  "));
    setToolTip(m_item ? exactTime(*m_item) : QString());
    setAccessibleName(m_text);
    QWidget::update();
}

QString ClipInfoLine::size() const
{
    const std::optional<qint64> count = m_counter.characters();
    if (!count || !hasCharacters(*m_item))
        return {};
    return *count == 1 ? tr("1 character") : tr("%Ln characters", nullptr, int(*count));
}

QString ClipInfoLine::relativeTime(const QDateTime &time, const QDateTime &now)
{
    const qint64 seconds = time.secsTo(now);
    if (seconds < 45)
        return tr("just now");
    const qint64 minutes = (seconds + 15) / 60;
    if (minutes < 60)
        return minutes == 1 ? tr("1 minute ago") : tr("%Ln minutes ago", nullptr, int(minutes));
    const QDateTime local = time.toLocalTime();
    const qint64 days = local.daysTo(now.toLocalTime());
    const QString clock = QLocale().toString(local.time(), QLocale::ShortFormat);
    if (days == 0) {
        const qint64 hours = minutes / 60;
        return hours == 1 ? tr("1 hour ago") : tr("%Ln hours ago", nullptr, int(hours));
    }
    if (days == 1)
        return tr("yesterday at %1").arg(clock);
    if (days < 7)
        return tr("%Ln days ago", nullptr, int(days));
    return QLocale().toString(local.date(), tr("d MMM yyyy"));
}

void ClipInfoLine::setColors(const ClipColors &colors)
{
    m_colors = colors;
    QWidget::update();
}

QFont ClipInfoLine::lineFont() const
{
    return Looks::scaled(font(), Looks::kSmallScale);
}

QSize ClipInfoLine::sizeHint() const
{
    return {0, QFontMetrics(lineFont()).height() + 16};
}

void ClipInfoLine::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(0, 0, width(), 1, m_colors.separator);
    painter.setFont(lineFont());
    painter.setPen(m_colors.quietText);
    const QRect line = rect().adjusted(kMargin, 1, -kMargin, 0);
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(m_text, Qt::ElideRight, line.width()));
}

void ClipInfoLine::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    update();
    m_timer->start();
}

void ClipInfoLine::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    m_timer->stop();
}
