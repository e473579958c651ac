#include "Clipboard/window/PreviewPane.h"

#include "Clipboard/window/ClipInfoLine.h"
#include "Clipboard/window/ClipTextView.h"
#include "Clipboard/window/ClipboardWindow.h"
#include "Clipboard/window/EmojiFont.h"
#include "Clipboard/window/RichTextLooks.h"
#include "Clipboard/window/RichTextView.h"
#include "platform/richtext/RichTextDocument.h"

#include <QFontInfo>
#include <QPainter>

#include <utility>

PreviewPane::PreviewPane(Clock &clock, QWidget *parent)
    : QWidget(parent), m_textView(new ClipTextView(this)), m_infoLine(new ClipInfoLine(clock, this))
{
    m_idleTimer.setSingleShot(true);
    m_idleTimer.setInterval(0);
    connect(&m_idleTimer, &QTimer::timeout, this, &PreviewPane::readFormatting);
    connect(m_textView, &ClipTextView::otherKeyPressed, this, &PreviewPane::otherKeyPressed);
}

PreviewPane::~PreviewPane() = default;

void PreviewPane::showText(const QString &text, RtfSource rtf)
{
    m_preparation.giveUp();
    m_rtfSource = std::move(rtf);
    m_rtf.clear();
    m_textView->setString(text);
    showPlain();
    lookForFormatting();
}

void PreviewPane::lookForFormatting()
{
    m_isDue = m_rtfSource != nullptr;
    update();
}

void PreviewPane::setFound(const FoundPlaces &found)
{
    if (m_found == found)
        return;
    m_found = found;
    m_textView->setFound(found);
    if (isFormatted())
        m_richTextView->showFound(found);
}

void PreviewPane::hideText()
{
    m_preparation.giveUp();
    m_rtfSource = {};
    m_isDue = false;
    m_textView->hide();
    if (m_richTextView)
        m_richTextView->hide();
}

void PreviewPane::readFormatting()
{
    if (!m_rtfSource)
        return;
    const QString rtf = m_rtfSource().value_or(QString());
    if (rtf == std::exchange(m_rtf, rtf))
        return;
    if (!rtf.isEmpty()) {
        prepareFormatting();
        return;
    }
    m_preparation.giveUp();
    showPlain();
}

void PreviewPane::prepareFormatting()
{
    QFont font = m_textView->font();
    font.setPointSizeF(QFontInfo(font).pointSizeF());
    m_preparation.prepare(
        m_rtf, {m_colors, font, EmojiFont::format()},
        [this](std::unique_ptr<RichTextDocument> document) { showFormatted(std::move(document)); });
}

void PreviewPane::showFormatted(std::unique_ptr<RichTextDocument> document)
{
    if (!document) {
        showPlain();
        return;
    }
    if (isFormatted()) {
        m_richTextView->changeLooks(std::move(document));
        m_richTextView->markFound(m_found);
        return;
    }
    if (m_textView->textCursor().hasSelection() || m_textView->isMoved())
        return;
    if (!m_richTextView)
        makeRichTextView();
    placeViews();
    m_richTextView->setRichText(std::move(document));
    m_richTextView->showFound(m_found);
    if (m_textView->hasFocus())
        m_richTextView->setFocus();
    m_textView->hide();
}

void PreviewPane::showPlain()
{
    m_textView->show();
    if (!isFormatted())
        return;
    if (m_richTextView->hasFocus())
        m_textView->setFocus();
    m_richTextView->hide();
}

bool PreviewPane::isFormatted() const
{
    return m_richTextView && !m_richTextView->isHidden();
}

void PreviewPane::makeRichTextView()
{
    m_richTextView = new RichTextView(this);
    m_richTextView->hide();
    m_richTextView->setAccessibleName(m_textView->accessibleName());
    m_richTextView->setColors(m_colors);
    setTabOrder(m_textView, m_richTextView);
    connect(m_richTextView, &RichTextView::otherKeyPressed, this, &PreviewPane::otherKeyPressed);
}

void PreviewPane::setColors(const ClipColors &colors)
{
    m_colors = colors;
    m_textView->setColors(colors);
    if (m_richTextView)
        m_richTextView->setColors(colors);
    m_infoLine->setColors(colors);
    update();
    if (!m_rtf.isEmpty())
        prepareFormatting();
}

void PreviewPane::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_colors.paper);
    // Of the window's round corners only the one below at the outer side lies here.
    constexpr int kRadius = ClipboardWindow::kCornerRadius;
    painter.setClipRect(rect());
    const int left = isRightToLeft() ? 0 : -kRadius;
    const int right = isRightToLeft() ? kRadius : 0;
    painter.drawRoundedRect(rect().adjusted(left, -kRadius, right, 0), kRadius, kRadius);
    if (std::exchange(m_isDue, false))
        m_idleTimer.start();
}

void PreviewPane::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    placeViews();
    Q_EMIT resized();
}

void PreviewPane::placeViews()
{
    const int lineHeight = m_infoLine->sizeHint().height();
    const QRect text(0, 0, width(), height() - lineHeight);
    m_textView->setGeometry(text);
    if (m_richTextView)
        m_richTextView->setGeometry(text);
    m_infoLine->setGeometry(0, height() - lineHeight, width(), lineHeight);
}
