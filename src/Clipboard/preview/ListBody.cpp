#include "Clipboard/preview/ListBody.h"

#include "looks/ClipColors.h"
#include "looks/ReadingDirection.h"
#include "looks/ScrollBars.h"

#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QStyle>

#include <algorithm>

namespace {

constexpr int kMargin = 14;
constexpr int kIconExtent = 16;

/// A name may hold line breaks and other characters that would distort its line.
QString inOneLine(QString name)
{
    const auto isControl = [](QChar character) {
        const QChar::Category category = character.category();
        return category == QChar::Other_Control || category == QChar::Separator_Line ||
               category == QChar::Separator_Paragraph;
    };
    std::replace_if(name.begin(), name.end(), isControl, QChar(QChar::ReplacementCharacter));
    return name;
}

} // namespace

ListBody::ListBody(const ListContent &content, QWidget *parent)
    : PreviewBody(parent), m_summary(new QLabel(summed(content.count()), this)),
      m_list(new QListWidget(this))
{
    m_summary->setTextFormat(Qt::PlainText);
    m_list->setAccessibleName(tr("Entries"));
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->setSelectionMode(QAbstractItemView::NoSelection);
    m_list->setFocusPolicy(Qt::NoFocus);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setTextElideMode(Qt::ElideMiddle);
    m_list->setUniformItemSizes(true);
    m_list->setIconSize(QSize(kIconExtent, kIconExtent));
    m_list->viewport()->setAutoFillBackground(false);
    for (const QString &entry : content.entries()) {
        const QString name = inOneLine(entry);
        // A folder's slash stays at its end in a window from right to left, too.
        auto *item = new QListWidgetItem(ReadingDirection::leftToRight(name), m_list);
        item->setData(Qt::UserRole, name);
        item->setData(Qt::AccessibleTextRole, name);
    }
}

QString ListBody::summed(const ListCount &count)
{
    const QString size = QLocale().formattedDataSize(count.bytes);
    const QString entries = count.entries == 1
                                ? tr("1 entry")
                                : tr("%Ln entries", nullptr, static_cast<int>(count.entries));
    return count.isWhole ? tr("%1, %2").arg(entries, size)
                         : tr("%1, %2 or more").arg(entries, size);
}

QScrollBar *ListBody::scrollBar() const
{
    return m_list->verticalScrollBar();
}

void ListBody::setColors(const ClipColors &colors)
{
    for (int row = 0; row < m_list->count(); ++row) {
        QListWidgetItem *item = m_list->item(row);
        const QString name = item->data(Qt::UserRole).toString();
        item->setIcon(m_icons.pixmap(name, name.endsWith(u'/'), kIconExtent, colors.quietText,
                                     devicePixelRatioF()));
    }
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::transparent);
    palette.setColor(QPalette::Text, colors.text);
    palette.setColor(QPalette::WindowText, colors.quietText);
    m_list->setPalette(palette);
    m_summary->setPalette(palette);
    ScrollBars::makeSlim(*m_list, colors);
}

void ListBody::resizeEvent(QResizeEvent *event)
{
    PreviewBody::resizeEvent(event);
    const int height = m_summary->sizeHint().height();
    m_summary->setGeometry(kMargin, kMargin, width() - 2 * kMargin, height);
    const int top = kMargin + height + kMargin / 2;
    const QRect list(kMargin - 4, top, width() - kMargin + 4, this->height() - top);
    m_list->setGeometry(QStyle::visualRect(layoutDirection(), rect(), list));
}
