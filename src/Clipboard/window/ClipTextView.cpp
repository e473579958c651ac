#include "Clipboard/window/ClipTextView.h"

#include "Clipboard/window/EmojiFont.h"
#include "Clipboard/window/Looks.h"
#include "Clipboard/window/ScrollBars.h"
#include "Clipboard/window/VisibleCharacters.h"

#include <QKeyEvent>
#include <QLabel>
#include <QSyntaxHighlighter>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

namespace {

constexpr int kMargin = Looks::kTextMargin;

/// `length` or one less, so that no character is cut in half.
qsizetype wholeCharacters(QStringView text, qsizetype length)
{
    const bool splitsPair =
        length > 0 && length < text.size() && text.at(length - 1).isHighSurrogate();
    return splitsPair ? length - 1 : length;
}

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
    return wholeCharacters(text, end);
}

/// Whether a run of characters without a blank is too long to look for its end at each line: the
/// time to break such a run into lines grows with the square of its length.
bool hasLongWord(QStringView text)
{
    constexpr qsizetype kLongestWord = 4'000;
    qsizetype length = 0;
    return std::any_of(text.begin(), text.end(), [&](QChar character) {
        length = character.isSpace() ? 0 : length + 1;
        return length > kLongestWord;
    });
}

/// Keys with which a person reads and copies from the text preview; any other key is meant for the
/// list or the search field.
bool isReadingKey(const QKeyEvent &event)
{
    if (event.matches(QKeySequence::Copy) || event.matches(QKeySequence::SelectAll))
        return true;
    switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_Meta:
        return true;
    default:
        return false;
    }
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
}

void ClipTextView::setString(const QString &text)
{
    m_text = text.left(shownLength(text));
    // The text engine takes NUL for the end of what it draws.
    m_text.replace(QChar(u'\0'), QChar::ReplacementCharacter);
    // Each paragraph finds its own direction, but all share one side to start from.
    QTextOption option = document()->defaultTextOption();
    option.setAlignment(m_text.isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft);
    option.setWrapMode(hasLongWord(m_text) ? QTextOption::WrapAnywhere
                                           : QTextOption::WrapAtWordBoundaryOrAnywhere);
    document()->setDefaultTextOption(option);

    const qsizetype rest = text.size() - m_text.size();
    m_shown = wholeCharacters(m_text, qMin(m_text.size(), kShownAtOnce));
    setPlainText(m_text.left(m_shown));
    if (m_shown < m_text.size())
        m_idleTimer.start();
    else
        m_idleTimer.stop();

    m_moreLabel->setVisible(rest > 0);
    if (rest > 0)
        m_moreLabel->setText(
            tr("… and %Ln more characters, pasted in full", nullptr, static_cast<int>(rest)));
    placeMoreLabel();
}

void ClipTextView::showMore()
{
    // A line is laid out anew whenever something is put behind it, so it comes to its end at once.
    const qsizetype lineEnd =
        m_text.indexOf(u'\n', qMin(m_shown + kShownAtOnce, m_text.size()) - 1);
    const qsizetype end = lineEnd < 0 ? m_text.size() : lineEnd + 1;
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(m_text.mid(m_shown, end - m_shown));
    m_shown = end;
    if (m_shown < m_text.size())
        return;
    m_idleTimer.stop();
    m_text.clear();
}

void ClipTextView::setColors(const ClipColors &colors)
{
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::transparent);
    palette.setColor(QPalette::Text, colors.text);
    palette.setColor(QPalette::Highlight, colors.selected);
    palette.setColor(QPalette::HighlightedText, colors.selectedText);
    setPalette(palette);
    QPalette quiet;
    quiet.setColor(QPalette::WindowText, colors.quietText);
    m_moreLabel->setPalette(quiet);
    ScrollBars::makeSlim(*this, colors);
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
