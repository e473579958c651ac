#include "Clipboard/window/EmptyStateView.h"

#include "Clipboard/window/ClipboardWindow.h"
#include "looks/Looks.h"
#include "looks/PaneParts.h"
#include "looks/WindowIcons.h"

#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

namespace {

constexpr int kPictureExtent = 64;

} // namespace

EmptyStateView::EmptyStateView(QWidget *parent)
    : QWidget(parent), m_picture(new QLabel(this)), m_title(makeWrappedLabel({}, this)),
      m_hint(makeWrappedLabel({}, this))
{
    for (QLabel *label : {m_title, m_hint})
        label->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    setObjectName(QStringLiteral("emptyStateView"));
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(Looks::kPageMargin, 0, Looks::kPageMargin, 0);
    column->setSpacing(10);
    column->addStretch(2);
    column->addWidget(m_picture, 0, Qt::AlignHCenter);
    column->addSpacing(4);
    // Over the whole width, because a column asks for the height of its own width.
    column->addWidget(m_title);
    column->addWidget(m_hint);
    column->addStretch(3);
}

void EmptyStateView::showEmptyHistory(const QString &shortcut)
{
    showState(
        QStringLiteral("stack"), tr("Nothing copied yet"),
        shortcut.isEmpty()
            ? tr("Whatever you copy appears here.")
            : tr("Whatever you copy appears here.\nPress %1 to come back to it.").arg(shortcut));
}

void EmptyStateView::showNothingPinned()
{
    showState(QStringLiteral("pin"), tr("Nothing pinned yet"),
              tr("Ctrl+D pins the selected clip, so that it stays;\n"
                 "Ctrl+Shift+D lists all clips again."));
}

void EmptyStateView::showNothingMatches(const QString &searchText)
{
    constexpr qsizetype kQuoted = 40;
    const QString quoted =
        searchText.size() > kQuoted ? searchText.left(kQuoted) + QChar(0x2026) : searchText;
    showState(QStringLiteral("nothing"), tr("Nothing matches “%1”").arg(quoted),
              tr("* stands for any text and ? for one character;\nfile: lists copied files."));
}

void EmptyStateView::showState(const QString &icon, const QString &title, const QString &hint)
{
    m_icon = icon;
    m_title->setText(title);
    m_hint->setText(hint);
    updatePicture();
    show();
    raise();
}

void EmptyStateView::setColors(const ClipColors &colors)
{
    m_colors = colors;
    m_title->setFont(Looks::scaled(font(), Looks::kLargeScale));
    m_title->setPalette(ClipColors::inkPalette(colors.text));
    m_hint->setPalette(ClipColors::inkPalette(colors.quietText));
    updatePicture();
}

void EmptyStateView::updatePicture()
{
    if (!m_icon.isEmpty())
        m_picture->setPixmap(
            WindowIcons::pixmap(m_icon, kPictureExtent, m_colors.quietText, devicePixelRatioF()));
}

QString EmptyStateView::title() const
{
    return m_title->text();
}

QString EmptyStateView::hint() const
{
    return m_hint->text();
}

void EmptyStateView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_colors.panel);
    // Square at the top, where the search field is, and round like the window below.
    painter.setClipRect(rect());
    painter.drawRoundedRect(rect().adjusted(0, -ClipboardWindow::kCornerRadius, 0, 0),
                            ClipboardWindow::kCornerRadius, ClipboardWindow::kCornerRadius);
}
