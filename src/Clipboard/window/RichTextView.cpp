#include "Clipboard/window/RichTextView.h"

#include "Clipboard/window/ClipTextView.h"
#include "Clipboard/window/FoundMarks.h"
#include "Clipboard/window/PacedLayout.h"
#include "Clipboard/window/RichTextLooks.h"
#include "looks/ScrollBars.h"
#include "looks/TextField.h"
#include "platform/richtext/RichText.h"
#include "platform/richtext/RichTextDocument.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QTextDocumentFragment>
#include <QTextTable>

namespace {

/// What is within the body: around it stands the font that the preview has.
QByteArray sourceOf(const QTextDocument &document)
{
    const QString page = document.toHtml();
    const qsizetype body = page.indexOf(QStringLiteral("<body"));
    const qsizetype begin = page.indexOf(u'>', body) + 1;
    const qsizetype end = page.lastIndexOf(QStringLiteral("</body>"));
    if (body < 0 || end < begin)
        return {};
    return QByteArrayLiteral("<meta charset=\"utf-8\">") +
           QStringView(page).sliced(begin, end - begin).toUtf8();
}

} // namespace

RichTextView::RichTextView(QWidget *parent) : QTextEdit(parent)
{
    setObjectName(QStringLiteral("richTextView"));
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setFrameShape(QFrame::NoFrame);
    setTabChangesFocus(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setAutoFillBackground(false);
}

RichTextView::~RichTextView()
{
    setDocument(nullptr);
}

void RichTextView::setRichText(std::unique_ptr<RichTextDocument> document)
{
    // Whatever changes once the document has its layout has it laid out again.
    if (isHidden()) {
        setDocument(&m_blank);
        m_layout = nullptr;
        m_document.reset();
        show();
    }
    setVerticalScrollBarPolicy(isSurelyHigher(*document) ? Qt::ScrollBarAlwaysOn
                                                         : Qt::ScrollBarAsNeeded);
    document->setPageSize(QSizeF(viewport()->width(), -1));
    m_layout = new PacedLayout(*document);
    setDocument(document.get());
    m_document = std::move(document);
}

void RichTextView::changeLooks(std::unique_ptr<RichTextDocument> document)
{
    const int place = verticalScrollBar()->value();
    const auto marked = TextField::of(this)->selection();
    setRichText(std::move(document));
    TextField::of(this)->select(marked);
    verticalScrollBar()->setValue(place);
}

void RichTextView::markFound(const FoundPlaces &found)
{
    setExtraSelections(FoundMarks::in(*document(), found, m_matchColor));
}

void RichTextView::showFound(const FoundPlaces &found)
{
    /// To tell where a place is, all before it is laid out at once.
    constexpr int kMostLaidOut = 10'000;
    markFound(found);
    QTextCursor first(document());
    const int start =
        extraSelections().isEmpty() ? 0 : extraSelections().first().cursor.selectionStart();
    if (start > kMostLaidOut)
        return;
    first.setPosition(start);
    const bool isSeen = viewport()->rect().contains(cursorRect(first));
    setTextCursor(first);
    if (!isSeen && start > 0)
        verticalScrollBar()->setValue(verticalScrollBar()->value() + viewport()->height() / 2);
}

/// Whether it takes a scroll bar, by its least number of lines.
bool RichTextView::isSurelyHigher(const QTextDocument &document) const
{
    int lines = height() / fontMetrics().lineSpacing();
    for (auto part = document.rootFrame()->begin(); !part.atEnd() && lines >= 0; ++part) {
        const auto *table = qobject_cast<const QTextTable *>(part.currentFrame());
        lines -= table ? table->rows() : 1;
    }
    return lines < 0;
}

void RichTextView::setColors(const ClipColors &colors)
{
    QPalette palette = colors.textPalette();
    // A rule between paragraphs is drawn in the one, by newer Qt in the other.
    palette.setColor(QPalette::Dark, colors.separator);
    palette.setColor(QPalette::Inactive, QPalette::WindowText, colors.separator);
    setPalette(palette);
    m_matchColor = colors.match;
    ScrollBars::makeSlim(*this, colors);
}

Copy RichTextView::selectedCopy() const
{
    /// Making RTF of more than this would take longer than a frame.
    constexpr qsizetype kMaxMadeRtf = qsizetype(64) << 10;
    Copy copy;
    copy.text = TextField::of(const_cast<RichTextView *>(this))->selectedText();
    QTextDocument marked;
    QTextCursor(&marked).insertFragment(textCursor().selection());
    RichTextLooks::unfit(marked);
    const QByteArray html = sourceOf(marked);
    if (html.isEmpty())
        return copy;
    copy.html = QString::fromLatin1(html);
    if (html.size() <= kMaxMadeRtf)
        if (const auto rtf = RichText::withHtml(html, std::nullopt))
            copy.rtf = QString::fromLatin1(*rtf);
    return copy;
}

QMimeData *RichTextView::createMimeDataFromSelection() const
{
    const Copy copy = selectedCopy();
    auto *selected = new QMimeData;
    selected->setText(copy.text.value_or(QString()));
    for (const CopyFormat &format : copyFormats())
        if (const std::optional<QString> &source = copy.*format.source)
            for (const QString &name : format.names)
                selected->setData(name, format.toBytes(*source));
    return selected;
}

void RichTextView::keyPressEvent(QKeyEvent *event)
{
    if (ClipTextView::isReadingKey(*event))
        QTextEdit::keyPressEvent(event);
    else
        Q_EMIT otherKeyPressed(*event);
}

void RichTextView::resizeEvent(QResizeEvent *event)
{
    if (m_layout)
        m_layout->restart();
    QTextEdit::resizeEvent(event);
}
