#include "Clipboard/preview/TextBody.h"

#include "Clipboard/preview/MarkdownText.h"
#include "looks/ClipColors.h"
#include "looks/ScrollBars.h"
#include "preview/ClosedDocument.h"

#include <QFontDatabase>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <QTextTable>

namespace {

constexpr int kMargin = 14;
constexpr int kCellPadding = 4;

QAbstractScrollArea *makePlainView(const TextContent &content, QWidget *parent)
{
    auto *view = new QPlainTextEdit(parent);
    view->setReadOnly(true);
    view->setUndoRedoEnabled(false);
    view->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    view->document()->setDocumentMargin(kMargin);
    if (content.form() == TextContent::Form::Code)
        view->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    QTextOption option = view->document()->defaultTextOption();
    option.setTextDirection(Qt::LayoutDirectionAuto);
    view->document()->setDefaultTextOption(option);
    view->setPlainText(content.text());
    return view;
}

QAbstractScrollArea *makeMarkdownView(const TextContent &content, QWidget *parent)
{
    auto *view = new QTextEdit(parent);
    auto *document = new ClosedDocument(view);
    document->setUndoRedoEnabled(false);
    document->setDocumentMargin(kMargin);
    const QTextDocument::MarkdownFeatures features(QTextDocument::MarkdownDialectGitHub);
    document->setMarkdown(MarkdownText::withoutTags(content.text()),
                          features | QTextDocument::MarkdownNoHTML);
    view->setReadOnly(true);
    view->setDocument(document);
    return view;
}

/// The engine's own look of a table is that of the first web pages.
void drawTables(const QTextDocument &document, const ClipColors &colors)
{
    const QList<QTextFrame *> frames = document.rootFrame()->childFrames();
    for (QTextFrame *frame : frames) {
        auto *table = qobject_cast<QTextTable *>(frame);
        if (!table)
            continue;
        QTextTableFormat format = table->format();
        format.setBorder(1);
        format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        format.setBorderBrush(colors.separator);
        format.setBorderCollapse(true);
        format.setCellPadding(kCellPadding);
        format.setCellSpacing(0);
        table->setFormat(format);
    }
}

} // namespace

TextBody::TextBody(const TextContent &content, QWidget *parent)
    : PreviewBody(parent),
      m_view(content.form() == TextContent::Form::Markdown ? makeMarkdownView(content, this)
                                                           : makePlainView(content, this)),
      m_moreLabel(new QLabel(tr("… the file goes on"), this))
{
    m_view->setAccessibleName(tr("Beginning of the text"));
    m_view->setFrameShape(QFrame::NoFrame);
    m_view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_view->viewport()->setAutoFillBackground(false);
    // The keyboard stays with the search field and the list.
    m_view->setFocusPolicy(Qt::NoFocus);
    m_moreLabel->setContentsMargins(kMargin, 2, kMargin, 2);
    m_moreLabel->setVisible(content.isCut());
}

QScrollBar *TextBody::scrollBar() const
{
    return m_view->verticalScrollBar();
}

QString TextBody::plainText() const
{
    if (const auto *plain = qobject_cast<const QPlainTextEdit *>(m_view))
        return plain->toPlainText();
    return qobject_cast<const QTextEdit *>(m_view)->toPlainText();
}

void TextBody::setColors(const ClipColors &colors)
{
    m_view->setPalette(colors.textPalette());
    m_moreLabel->setPalette(ClipColors::inkPalette(colors.quietText));
    ScrollBars::makeSlim(*m_view, colors);
    if (const auto *rich = qobject_cast<const QTextEdit *>(m_view))
        drawTables(*rich->document(), colors);
}

void TextBody::resizeEvent(QResizeEvent *event)
{
    PreviewBody::resizeEvent(event);
    const int below = m_moreLabel->isHidden() ? 0 : m_moreLabel->sizeHint().height();
    m_view->setGeometry(0, 0, width(), height() - below);
    m_moreLabel->setGeometry(0, height() - below, width(), below);
}
