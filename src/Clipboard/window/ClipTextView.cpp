#include "Clipboard/window/ClipTextView.h"

#include "Clipboard/window/EmojiFont.h"
#include "Clipboard/window/FoundMarks.h"
#include "Clipboard/window/VisibleCharacters.h"
#include "looks/Looks.h"
#include "looks/ScrollBars.h"
#include "looks/TextField.h"
#include "platform/ModifierFlags.h"

#include <QKeyEvent>
#include <QLabel>
#include <QMimeData>
#include <QScrollBar>
#include <QSyntaxHighlighter>
#include <QTextBlockFormat>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
#include <array>

namespace {

constexpr int kMargin = Looks::kTextMargin;

/// Length of the part of `text` that is shown.
qsizetype shownLength(QStringView text)
{
    // A character of UTF-16 is at most three bytes of UTF-8.
    if (text.size() <= ClipTextView::kShownBytes / 3)
        return text.size();
    qsizetype bytes = 0;
    qsizetype end = 0;
    for (; end < text.size(); ++end) {
        const char16_t unit = text.at(end).unicode();
        // Each half of a pair stands for two of its four bytes.
        bytes += unit < 0x80 ? 1 : unit < 0x800 || QChar::isSurrogate(unit) ? 2 : 3;
        if (bytes > ClipTextView::kShownBytes)
            break;
    }
    return VisibleCharacters::wholeCharacters(text, end);
}

bool endsLine(QChar character)
{
    // The last two are what the text engine has for the borders of a table.
    constexpr char16_t kEnds[] = {u'\n', u'\r', 0x2029, 0xFDD0, 0xFDD1};
    return std::find(std::begin(kEnds), std::end(kEnds), character.unicode()) != std::end(kEnds);
}

/// What is laid out as one: a line, or a part of a long one.
struct Piece
{
    qsizetype length;      ///< Without the line's end.
    qsizetype breakLength; ///< Of the line's end: 0 when the line goes on or the text ends.
};

Piece firstPiece(QStringView text)
{
    constexpr qsizetype kMax = ClipTextView::kShownAtOnce;
    const QStringView reach = text.left(kMax);
    const auto *end = std::find_if(reach.begin(), reach.end(), endsLine);
    if (end != reach.end()) {
        const qsizetype length = end - reach.begin();
        return {length, text.mid(length).startsWith(u"\r\n") ? 2 : 1};
    }
    if (text.size() <= kMax)
        return {text.size(), 0};
    // Rather between words, if one ends nearby.
    constexpr qsizetype kNearby = 200;
    const qsizetype blank = reach.lastIndexOf(u' ');
    return {blank >= kMax - kNearby ? blank + 1 : VisibleCharacters::wholeCharacters(text, kMax),
            0};
}

/// Of a block that goes on with the line of `before`.
QTextBlockFormat continuing(const QTextBlock &before)
{
    QTextBlockFormat format;
    format.setProperty(TextField::kContinuesLine, true);
    // The whole line reads the way it began.
    format.setLayoutDirection(before.textDirection());
    return format;
}

class EmojiHighlighter : public QSyntaxHighlighter
{
public:
    using QSyntaxHighlighter::QSyntaxHighlighter;

    // ^QSyntaxHighlighter
    void highlightBlock(const QString &text) override
    {
        for (const VisibleCharacters::Run &run : VisibleCharacters::emoji(text))
            setFormat(static_cast<int>(run.start), static_cast<int>(run.length),
                      EmojiFont::format());
    }
};

} // namespace

ClipTextView::ClipTextView(QWidget *parent) : QPlainTextEdit(parent), m_moreLabel(new QLabel(this))
{
    setObjectName(QStringLiteral("textView"));
    setAccessibleName(tr("Clip text preview"));
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setFrameShape(QFrame::NoFrame);
    setTabChangesFocus(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setAutoFillBackground(false);
    document()->setDocumentMargin(kMargin);
    QTextOption option = document()->defaultTextOption();
    option.setTextDirection(Qt::LayoutDirectionAuto);
    document()->setDefaultTextOption(option);
    new EmojiHighlighter(document());
    m_moreLabel->setContentsMargins(kMargin, 4, kMargin, 4);
    m_moreLabel->hide();
    m_idleTimer.setInterval(0);
    connect(&m_idleTimer, &QTimer::timeout, this, &ClipTextView::showMore);
    connect(&m_rest, &CharacterCounter::counted, this, &ClipTextView::showRest);
}

void ClipTextView::setString(const QString &text)
{
    m_text = text.left(shownLength(text));
    // The text engine takes NUL for the end of what it draws.
    m_text.replace(QChar(u'\0'), QChar::ReplacementCharacter);
    // Each paragraph finds its own direction, but all share one side to start from.
    QTextOption option = document()->defaultTextOption();
    option.setAlignment(m_text.isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft);
    option.setWrapMode(VisibleCharacters::hasLongWord(m_text)
                           ? QTextOption::WrapAnywhere
                           : QTextOption::WrapAtWordBoundaryOrAnywhere);
    document()->setDefaultTextOption(option);

    const qsizetype shown = m_text.size();
    m_rest.count(text, shown);
    m_shown = 0;
    clear();
    showMore();
    // What was put behind the cursor took it along.
    moveCursor(QTextCursor::Start);
    m_place = 0;
    showFound();

    m_moreLabel->setVisible(text.size() > shown);
    showRest();
    placeMoreLabel();
}

void ClipTextView::showMore()
{
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    cursor.beginEditBlock();
    const qsizetype start = m_shown;
    while (m_shown < m_text.size()) {
        const Piece piece = firstPiece(QStringView(m_text).mid(m_shown));
        const qsizetype end = m_shown + piece.length + piece.breakLength;
        if (m_shown > start && end - start > kShownAtOnce)
            break;
        if (m_shown > 0 && !endsLine(m_text.at(m_shown - 1)))
            cursor.insertBlock(continuing(cursor.block()));
        cursor.insertText(m_text.mid(m_shown, piece.length));
        if (piece.breakLength > 0)
            cursor.insertBlock(QTextBlockFormat());
        m_shown = end;
    }
    cursor.endEditBlock();
    if (m_shown < m_text.size()) {
        m_idleTimer.start();
        return;
    }
    m_idleTimer.stop();
    m_text.clear();
    if (start > 0)
        showFound();
}

void ClipTextView::setFound(const FoundPlaces &found)
{
    m_found = found;
    showFound();
}

bool ClipTextView::isMoved() const
{
    return verticalScrollBar()->value() != m_place;
}

void ClipTextView::showFound()
{
    const bool isMoved = this->isMoved() || textCursor().hasSelection();
    const QList<QTextEdit::ExtraSelection> marked =
        FoundMarks::in(*document(), m_found, m_matchColor);
    setExtraSelections(marked);
    if (isMoved)
        return;
    QTextCursor first(document());
    if (!marked.isEmpty())
        first.setPosition(marked.first().cursor.selectionStart());
    const bool isSeen = viewport()->rect().contains(cursorRect(first));
    setTextCursor(first);
    if (!isSeen)
        centerCursor();
    m_place = verticalScrollBar()->value();
}

void ClipTextView::showRest()
{
    const std::optional<qint64> rest = m_rest.characters();
    m_moreLabel->setText(
        rest ? tr("… and %Ln more characters, pasted in full", nullptr, static_cast<int>(*rest))
             : QStringLiteral("…"));
}

void ClipTextView::setColors(const ClipColors &colors)
{
    setPalette(colors.textPalette());
    m_matchColor = colors.match;
    setExtraSelections(FoundMarks::in(*document(), m_found, m_matchColor));
    m_moreLabel->setPalette(ClipColors::inkPalette(colors.quietText));
    ScrollBars::makeSlim(*this, colors);
}

QMimeData *ClipTextView::createMimeDataFromSelection() const
{
    auto *selected = new QMimeData;
    selected->setText(TextField::of(const_cast<ClipTextView *>(this))->selectedText());
    return selected;
}

bool ClipTextView::isReadingKey(const QKeyEvent &event)
{
    constexpr std::array kKeys{Qt::Key_Up,     Qt::Key_Down,     Qt::Key_Left, Qt::Key_Right,
                               Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End,
                               Qt::Key_Tab,    Qt::Key_Backtab};
    return ModifierFlags::isModifierKey(event) || event.matches(QKeySequence::Copy) ||
           event.matches(QKeySequence::SelectAll) ||
           std::find(kKeys.begin(), kKeys.end(), event.key()) != kKeys.end();
}

void ClipTextView::keyPressEvent(QKeyEvent *event)
{
    if (isReadingKey(*event))
        QPlainTextEdit::keyPressEvent(event);
    else
        Q_EMIT otherKeyPressed(*event);
}

void ClipTextView::resizeEvent(QResizeEvent *event)
{
    QPlainTextEdit::resizeEvent(event);
    placeMoreLabel();
}

void ClipTextView::placeMoreLabel()
{
    const int height = m_moreLabel->isHidden() ? 0 : m_moreLabel->sizeHint().height();
    setViewportMargins(0, 0, 0, height);
    m_moreLabel->setGeometry(0, this->height() - height, width(), height);
}
