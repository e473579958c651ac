#include "Clipboard/window/ClipTextView.h"

#include "Clipboard/window/Looks.h"
#include "Clipboard/window/ScrollBars.h"

#include <QKeyEvent>
#include <QLabel>
#include <QTextBlock>
#include <QTextDocument>

namespace {

constexpr int kMargin = Looks::kTextMargin;

/// Length of the part of `text` that is shown, never half a character.
qsizetype shownLength(const QString &text)
{
    const qsizetype most = qMin(text.size(), ClipTextView::kShownCharacters);
    qsizetype lines = 0;
    qsizetype lineStart = 0;
    qsizetype end = 0;
    for (; end < most && end - lineStart < ClipTextView::kShownOfLine; ++end) {
        if (text.at(end) != u'\n')
            continue;
        lineStart = end + 1;
        if (++lines == ClipTextView::kShownLines)
            return end;
    }
    const bool splitsPair = end > 0 && end < text.size() && text.at(end - 1).isHighSurrogate();
    return splitsPair ? end - 1 : end;
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
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setAutoFillBackground(false);
    document()->setDocumentMargin(kMargin);
    QTextOption option = document()->defaultTextOption();
    option.setTextDirection(Qt::LayoutDirectionAuto);
    document()->setDefaultTextOption(option);
    m_moreLabel->setContentsMargins(kMargin, 4, kMargin, 4);
    m_moreLabel->hide();
}

void ClipTextView::setString(const QString &text)
{
    const qsizetype shown = shownLength(text);
    QString part = text.left(shown);
    // The text engine takes NUL for the end of what it draws.
    part.replace(QChar(u'\0'), QChar::ReplacementCharacter);
    // Each paragraph finds its own direction, but all share one side to start from.
    QTextOption option = document()->defaultTextOption();
    option.setAlignment(part.isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft);
    document()->setDefaultTextOption(option);
    setPlainText(part);

    const qsizetype rest = text.size() - shown;
    m_moreLabel->setVisible(rest > 0);
    if (rest > 0)
        m_moreLabel->setText(
            tr("… and %Ln more characters, pasted in full", nullptr, static_cast<int>(rest)));
    placeMoreLabel();
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
