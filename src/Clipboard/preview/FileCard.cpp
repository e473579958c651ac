#include "Clipboard/preview/FileCard.h"

#include "looks/Looks.h"
#include "looks/ReadingDirection.h"
#include "looks/WindowIcons.h"

#include <QFileInfo>
#include <QIcon>
#include <QLocale>
#include <QPainter>

namespace {

constexpr int kPictureExtent = 96;
constexpr int kMargin = 20;
constexpr int kGap = 14;

QString dated(const QDateTime &time)
{
    return QLocale().toString(time, QLocale::ShortFormat);
}

} // namespace

FileCard::FileCard(QString path, QWidget *parent) : QWidget(parent), m_path(std::move(path)) {}

void FileCard::setAttributes(const std::optional<FileAttributes> &attributes,
                             PreviewTrouble trouble)
{
    m_attributes = attributes.value_or(FileAttributes());
    m_lines.clear();
    if (attributes) {
        m_lines.append(m_attributes.kind.isEmpty() ? tr("File of an unknown kind")
                                                   : m_attributes.kind);
        if (m_attributes.size)
            m_lines.append(QLocale().formattedDataSize(*m_attributes.size));
        if (m_attributes.created.isValid())
            m_lines.append(tr("Created %1").arg(dated(m_attributes.created)));
        if (m_attributes.modified.isValid())
            m_lines.append(tr("Changed %1").arg(dated(m_attributes.modified)));
        if (!m_attributes.linkTarget.isEmpty())
            m_lines.append(
                tr("Links to %1").arg(ReadingDirection::leftToRight(m_attributes.linkTarget)));
    }
    if (const QString why = sentence(trouble); !why.isEmpty())
        m_lines.append(why);
    updatePicture();
    update();
}

QString FileCard::sentence(PreviewTrouble trouble)
{
    switch (trouble) {
    case PreviewTrouble::Crashed:
        return tr("The preview failed unexpectedly");
    case PreviewTrouble::TookLong:
    case PreviewTrouble::GivenUp:
        return tr("The preview took too long");
    case PreviewTrouble::TooLarge:
        return tr("The preview needed too much memory");
    case PreviewTrouble::NotApart:
        return tr("No previews: they cannot be isolated here");
    case PreviewTrouble::NotStarted:
        return tr("No previews: Quillmarsh is incomplete");
    case PreviewTrouble::Resting:
        return tr("Previews pause for a minute after failures");
    case PreviewTrouble::None:
        break;
    }
    return {};
}

void FileCard::setColors(const ClipColors &colors)
{
    m_colors = colors;
    updatePicture();
    update();
}

void FileCard::updatePicture()
{
    QIcon icon = QIcon::fromTheme(m_attributes.iconName);
    if (icon.isNull())
        icon = QIcon::fromTheme(m_attributes.genericIconName);
    if (icon.isNull())
        m_picture = WindowIcons::pixmap(m_attributes.isFolder ? QStringLiteral("folder")
                                                              : QStringLiteral("document"),
                                        kPictureExtent, m_colors.quietText, devicePixelRatioF());
    else
        m_picture = icon.pixmap(QSize(kPictureExtent, kPictureExtent), devicePixelRatioF());
}

void FileCard::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QFont nameFont = Looks::scaled(font(), 1.2, QFont::Bold);
    const QFontMetrics nameMetrics(nameFont);
    const QFontMetrics metrics(font());
    const auto lineCount = qMax<qsizetype>(3, m_lines.size());
    const int height = kPictureExtent + kGap + nameMetrics.height() + kGap / 2 +
                       static_cast<int>(lineCount) * metrics.lineSpacing();
    const int width = this->width() - 2 * kMargin;
    int y = qMax(kMargin, (this->height() - height) / 2);

    const QSizeF picture = m_picture.deviceIndependentSize();
    painter.drawPixmap(
        QPointF((this->width() - picture.width()) / 2, y + (kPictureExtent - picture.height()) / 2),
        m_picture);
    y += kPictureExtent + kGap;

    constexpr int kFlags = Qt::AlignHCenter | Qt::AlignTop | Qt::TextSingleLine;
    painter.setFont(nameFont);
    painter.setPen(m_colors.text);
    const QString name = ReadingDirection::leftToRight(QFileInfo(m_path).fileName());
    painter.drawText(QRect(kMargin, y, width, nameMetrics.height()), kFlags,
                     nameMetrics.elidedText(name, Qt::ElideMiddle, width));
    y += nameMetrics.height() + kGap / 2;

    painter.setFont(font());
    painter.setPen(m_colors.quietText);
    for (const QString &line : m_lines) {
        painter.drawText(QRect(kMargin, y, width, metrics.lineSpacing()), kFlags,
                         metrics.elidedText(line, Qt::ElideMiddle, width));
        y += metrics.lineSpacing();
    }
}
