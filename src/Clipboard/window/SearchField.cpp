#include "Clipboard/window/SearchField.h"

#include "Clipboard/window/EmojiFont.h"
#include "Clipboard/window/VisibleCharacters.h"
#include "looks/Looks.h"
#include "looks/WindowIcons.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QToolButton>

namespace {

constexpr int kHeight = 54;
constexpr int kIconExtent = 19;
constexpr int kSideMargin = 16;
constexpr int kTextGap = 11;
constexpr int kClearExtent = 18;
constexpr int kPinExtent = 18;
constexpr int kButtonPadding = 4; ///< Around the icon of a button.
constexpr int kButtonGap = 4;
constexpr int kCaretGap = 6; ///< From where a text begins, and the caret, to the placeholder.

} // namespace

SearchField::SearchField(QWidget *parent)
    : QLineEdit(parent), m_clearButton(new QToolButton(this)), m_pinnedSwitch(new QToolButton(this))
{
    setObjectName(QStringLiteral("searchTextField"));
    setAccessibleName(tr("Search clips"));
    setPlaceholderText(tr("Search clips"));
    setFrame(false);
    setFixedHeight(kHeight);
    placeText();

    updateFont();
    makeClearButton();
    makePinnedSwitch();
    connect(this, &QLineEdit::textChanged, this, &SearchField::drawEmojiInColor);
}

void SearchField::makeClearButton()
{
    m_clearButton->setAccessibleName(tr("Clear search"));
    m_clearButton->setToolTip(tr("Clear search"));
    m_clearButton->setAutoRaise(true);
    m_clearButton->setFocusPolicy(Qt::NoFocus);
    m_clearButton->setCursor(Qt::ArrowCursor);
    m_clearButton->setStyleSheet(QStringLiteral("border: none; background: transparent;"));
    m_clearButton->setIconSize(QSize(kClearExtent, kClearExtent));
    m_clearButton->hide();
    connect(m_clearButton, &QToolButton::clicked, this, [this] { replaceText(QString()); });
    connect(this, &QLineEdit::textChanged, m_clearButton,
            [this](const QString &text) { m_clearButton->setVisible(!text.isEmpty()); });
}

void SearchField::makePinnedSwitch()
{
    m_pinnedSwitch->setObjectName(QStringLiteral("pinnedSwitch"));
    m_pinnedSwitch->setAccessibleName(tr("Pinned clips only"));
    m_pinnedSwitch->setToolTip(tr("Pinned clips only (Ctrl+Shift+D)"));
    m_pinnedSwitch->setCheckable(true);
    m_pinnedSwitch->setAutoRaise(true);
    m_pinnedSwitch->setFocusPolicy(Qt::NoFocus);
    m_pinnedSwitch->setCursor(Qt::ArrowCursor);
    m_pinnedSwitch->setIconSize(QSize(kPinExtent, kPinExtent));
    connect(m_pinnedSwitch, &QToolButton::toggled, this, &SearchField::tellPinnedOnly);
}

bool SearchField::isPinnedOnly() const
{
    return m_pinnedSwitch->isChecked();
}

void SearchField::setPinnedOnly(bool isOn)
{
    m_pinnedSwitch->setChecked(isOn);
}

void SearchField::tellPinnedOnly(bool isOn)
{
    setPlaceholderText(isOn ? tr("Search pinned clips") : tr("Search clips"));
    updateIcons();
    Q_EMIT pinnedOnlyChanged(isOn);
}

/// Between the magnifier, where a line begins, and the buttons, where it ends.
void SearchField::placeText()
{
    const int begin = kSideMargin + kIconExtent + kTextGap;
    const int end =
        kSideMargin + kPinExtent + 2 * kButtonPadding + kButtonGap + kClearExtent + kTextGap;
    if (isRightToLeft())
        setTextMargins(end, 0, begin, 0);
    else
        setTextMargins(begin, 0, end, 0);
    // Else an empty field would show its caret where the keyboard's language begins, away from the
    // words that say what the field is for.
    setAlignment(isRightToLeft() ? Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter
                                 : Qt::AlignLeft | Qt::AlignVCenter);
}

void SearchField::updateFont()
{
    setFont(Looks::scaled(QApplication::font(), Looks::kLargeScale));
}

void SearchField::replaceText(const QString &text)
{
    selectAll();
    if (text.isEmpty())
        del();
    else
        insert(text);
}

void SearchField::setColors(const ClipColors &colors)
{
    m_colors = colors;
    updateFont();
    QPalette palette = colors.textPalette();
    // Drawn here, because the field would draw it with the caret on its first letter.
    palette.setColor(QPalette::PlaceholderText, Qt::transparent);
    setPalette(palette);
    m_pinnedSwitch->setStyleSheet(
        QStringLiteral("QToolButton { border: none; border-radius: 6px; background: transparent; }"
                       "QToolButton:checked { background: %1; }")
            .arg(colors.control.name()));
    updateIcons();
}

void SearchField::updateIcons()
{
    const qreal scale = devicePixelRatioF();
    m_magnifier =
        WindowIcons::pixmap(QStringLiteral("search"), kIconExtent, m_colors.quietText, scale);
    m_clearButton->setIcon(
        WindowIcons::pixmap(QStringLiteral("clear"), kClearExtent, m_colors.quietText, scale));
    m_pinnedSwitch->setIcon(
        isPinnedOnly()
            ? WindowIcons::pixmap(QStringLiteral("pinned"), kPinExtent, m_colors.accentText, scale)
            : WindowIcons::pixmap(QStringLiteral("pin"), kPinExtent, m_colors.quietText, scale));
}

QSize SearchField::sizeHint() const
{
    return {QLineEdit::sizeHint().width(), kHeight};
}

void SearchField::paintEvent(QPaintEvent *event)
{
    QLineEdit::paintEvent(event);
    if (!qFuzzyCompare(m_magnifier.devicePixelRatio(), devicePixelRatioF()))
        updateIcons();
    QPainter painter(this);
    if (text().isEmpty() && !m_isComposing)
        drawPlaceholder(painter);
    const QRect icon(kSideMargin, (height() - kIconExtent) / 2, kIconExtent, kIconExtent);
    painter.drawPixmap(QStyle::visualRect(layoutDirection(), rect(), icon).topLeft(), m_magnifier);
    painter.fillRect(0, height() - 1, width(), 1, m_colors.separator);
}

void SearchField::drawPlaceholder(QPainter &painter)
{
    QStyleOptionFrame option;
    initStyleOption(&option);
    const QRect line = style()
                           ->subElementRect(QStyle::SE_LineEditContents, &option, this)
                           .marginsRemoved(textMargins());
    const QRect place =
        isRightToLeft() ? line.adjusted(0, 0, -kCaretGap, 0) : line.adjusted(kCaretGap, 0, 0, 0);
    painter.setPen(m_colors.quietText);
    painter.drawText(
        place,
        (isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignAbsolute | Qt::AlignVCenter |
            Qt::TextSingleLine,
        painter.fontMetrics().elidedText(placeholderText(), Qt::ElideRight, place.width()));
}

/// A line edit takes the looks of its text only from an input method.
void SearchField::drawEmojiInColor()
{
    if (m_isComposing)
        return;
    QList<QInputMethodEvent::Attribute> attributes;
    for (const VisibleCharacters::Run &run : VisibleCharacters::emoji(text()))
        // They are counted from the cursor.
        attributes.append({QInputMethodEvent::TextFormat,
                           static_cast<int>(run.start) - cursorPosition(),
                           static_cast<int>(run.length), EmojiFont::format()});
    QInputMethodEvent looks(QString(), attributes);
    QLineEdit::inputMethodEvent(&looks);
}

void SearchField::inputMethodEvent(QInputMethodEvent *event)
{
    m_isComposing = !event->preeditString().isEmpty();
    QLineEdit::inputMethodEvent(event);
    drawEmojiInColor();
    update();
}

void SearchField::resizeEvent(QResizeEvent *event)
{
    QLineEdit::resizeEvent(event);
    int end = width() - kSideMargin + kButtonPadding;
    const auto place = [&](QToolButton *button, int iconExtent) {
        const int extent = iconExtent + 2 * kButtonPadding;
        end -= extent;
        const QRect square(end, (height() - extent) / 2, extent, extent);
        button->setGeometry(QStyle::visualRect(layoutDirection(), rect(), square));
        end -= kButtonGap;
    };
    place(m_pinnedSwitch, kPinExtent);
    place(m_clearButton, kClearExtent);
}
