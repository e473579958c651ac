#include "Clipboard/welcome/TourViewController.h"

#include "Clipboard/welcome/KeyCaps.h"
#include "looks/ClipColors.h"
#include "looks/Looks.h"
#include "looks/PaneButton.h"
#include "looks/PaneParts.h"

#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int kMinWidth = 262;
constexpr int kCharactersAcross = 37;
constexpr qreal kTitleScale = 1.2;

QColor translucent(const QColor &color, int alpha)
{
    return QColor(color.red(), color.green(), color.blue(), alpha);
}

} // namespace

TourViewController::TourViewController(const Content &content, QWidget *parent)
    : QWidget(parent), m_next(new PaneButton(content.next, this))
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(7);

    QLabel *title = makeWrappedLabel(content.title, this);
    title->setObjectName(QStringLiteral("tourTitle"));
    title->setFont(Looks::scaled(title->font(), kTitleScale, QFont::DemiBold));
    column->addWidget(title);
    if (!content.text.isEmpty())
        column->addWidget(makeWrappedLabel(content.text, this));
    addKeys(content.keys);

    auto *bar = new QHBoxLayout;
    bar->addWidget(makeWrappedLabel(content.progress, this), 1);
    bar->addWidget(m_next);
    column->addSpacing(3);
    column->addLayout(bar);
    // Some languages have long names for their keys.
    setFixedWidth(qMax(qMax(kMinWidth, kCharactersAcross * fontMetrics().averageCharWidth()),
                       layout()->minimumSize().width()));
    connect(m_next, &QPushButton::clicked, this, &TourViewController::nextClicked);
}

void TourViewController::addKeys(const QList<Keys> &keys)
{
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(5);
    grid->setColumnStretch(1, 1);
    for (const Keys &row : keys) {
        const int place = grid->rowCount();
        m_keyCaps.append(new KeyCaps(row.caps, this));
        grid->addWidget(m_keyCaps.last(), place, 0, Qt::AlignLeft | Qt::AlignVCenter);
        grid->addWidget(makeWrappedLabel(row.meaning, this), place, 1);
    }
    static_cast<QVBoxLayout *>(layout())->addLayout(grid);
}

QString TourViewController::title() const
{
    return findChild<QLabel *>(QStringLiteral("tourTitle"))->text();
}

void TourViewController::setColors(const ClipColors &colors)
{
    const QColor ink = colors.selectedText;
    QPalette palette = this->palette();
    palette.setColor(QPalette::WindowText, ink);
    setPalette(palette);

    // The popover's ground is the colour that selected rows have.
    ClipColors onGround = colors;
    onGround.text = ink;
    // Darker and not lighter, so that white stays readable on it.
    onGround.control = QColor(0, 0, 0, 40);
    onGround.controlHover = QColor(0, 0, 0, 70);
    onGround.separator = translucent(ink, 110);
    onGround.selected = ink;
    m_next->setColors(onGround);
    for (KeyCaps *caps : std::as_const(m_keyCaps))
        caps->setColors({translucent(ink, 240), QColor(0, 0, 0, 90), QColor(0x1d, 0x1d, 0x1f)});
}

void TourViewController::focusNext()
{
    m_next->setFocus();
}

void TourViewController::nextClicked()
{
    Q_EMIT nextRequested();
}
