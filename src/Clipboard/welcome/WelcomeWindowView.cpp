#include "Clipboard/welcome/WelcomeWindowView.h"

#include "Clipboard/welcome/PageIndicator.h"
#include "Clipboard/welcome/PageSlider.h"
#include "Clipboard/welcome/WelcomeWindow.h"
#include "looks/Looks.h"
#include "looks/PaneButton.h"
#include "looks/PaneParts.h"
#include "looks/WindowIcons.h"

#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWindow>

namespace {

constexpr int kMinWidth = 620;
constexpr int kCharactersAcross = 82;
constexpr int kMargin = Looks::kPageMargin;
constexpr int kCloseExtent = 18;

} // namespace

WelcomeWindowView::WelcomeWindowView(QWidget *parent)
    : QWidget(parent), mainContentView(new PageSlider(this)),
      previousButton(new PaneButton(tr("Previous"), this)),
      nextButton(new PaneButton(tr("Next"), this)),
      tourButton(new PaneButton(tr("Take the tour"), this)),
      doneButton(new PaneButton(tr("Done"), this)),
      closeButton(new QToolButton(this)), pageIndicators{},
      cmdShiftVLabel(makeWrappedLabel({}, this))
{
    for (int page = 0; page < kPages; ++page)
        pageIndicators.at(static_cast<size_t>(page)) =
            new PageIndicator(tr("Page %1 of %2").arg(page + 1).arg(kPages), this);
    nextButton->setEmphasised(true);
    doneButton->setEmphasised(true);
    cmdShiftVLabel->setObjectName(QStringLiteral("cmdShiftVLabel"));
    cmdShiftVLabel->setAlignment(Qt::AlignCenter);
    closeButton->setAccessibleName(tr("Close"));
    closeButton->setToolTip(tr("Close"));
    closeButton->setAutoRaise(true);
    closeButton->setFocusPolicy(Qt::NoFocus);
    closeButton->setStyleSheet(QStringLiteral("border: none; background: transparent;"));
    closeButton->setIconSize(QSize(kCloseExtent, kCloseExtent));
    layOut();
}

void WelcomeWindowView::layOut()
{
    auto *left = new QHBoxLayout;
    left->addWidget(previousButton);
    left->addStretch();
    auto *middle = new QHBoxLayout;
    middle->setSpacing(9);
    for (PageIndicator *indicator : pageIndicators)
        middle->addWidget(indicator);
    auto *right = new QHBoxLayout;
    right->addStretch();
    right->addWidget(tourButton);
    right->addWidget(nextButton);
    right->addWidget(doneButton);
    // Both sides equally wide, so that the dots stay in the middle whatever is shown.
    auto *bar = new QHBoxLayout;
    bar->setContentsMargins(kMargin, 8, kMargin, kMargin - 4);
    bar->addLayout(left, 1);
    bar->addLayout(middle);
    bar->addLayout(right, 1);

    auto *label = new QHBoxLayout;
    label->setContentsMargins(kMargin, 0, kMargin, 0);
    label->addWidget(cmdShiftVLabel);
    // What comes and goes keeps its room, so that nothing else moves.
    for (QWidget *widget :
         {static_cast<QWidget *>(cmdShiftVLabel), static_cast<QWidget *>(previousButton)}) {
        QSizePolicy kept = widget->sizePolicy();
        kept.setRetainSizeWhenHidden(true);
        widget->setSizePolicy(kept);
    }

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    column->addWidget(mainContentView, 1);
    column->addLayout(label);
    column->addLayout(bar);
}

void WelcomeWindowView::setColors(const ClipColors &colors)
{
    m_colors = colors;
    for (PaneButton *button : {previousButton, nextButton, tourButton, doneButton})
        button->setColors(colors);
    for (PageIndicator *indicator : pageIndicators)
        indicator->setColors(colors);
    cmdShiftVLabel->setPalette(ClipColors::inkPalette(colors.text));
    closeButton->setIcon(WindowIcons::pixmap(QStringLiteral("clear"), kCloseExtent,
                                             colors.quietText, devicePixelRatioF()));
    update();
}

QSize WelcomeWindowView::fittingSize() const
{
    const int width = qMax(kMinWidth, kCharactersAcross * fontMetrics().averageCharWidth());
    return {width, qMax(qRound(WelcomeWindow::windowHeight), layout()->totalHeightForWidth(width))};
}

void WelcomeWindowView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(m_colors.border, 1));
    painter.setBrush(m_colors.paper);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5),
                            FramelessWindow::kCornerRadius, FramelessWindow::kCornerRadius);
}

void WelcomeWindowView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    const int extent = kCloseExtent + 6;
    closeButton->setGeometry(
        QStyle::visualRect(layoutDirection(), rect(), QRect(width() - extent, 0, extent, extent)));
    closeButton->raise();
}

void WelcomeWindowView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        window()->windowHandle()->startSystemMove();
}
