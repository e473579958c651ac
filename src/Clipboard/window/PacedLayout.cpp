#include "Clipboard/window/PacedLayout.h"

#include "Clipboard/window/VisibleCharacters.h"

#include <QAbstractTextDocumentLayout>
#include <QEvent>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>

#include <algorithm>

namespace {

constexpr int kStep = 5'000; ///< Characters.
constexpr int kMaxOfParagraph = 10'000;
/// Of a table, each cell of which takes as long as some characters.
constexpr int kMaxOfTable = 12'000;
constexpr int kOfCell = 20;

/// A table is laid out several times by that around it.
int effort(const QTextTable &table)
{
    int effort =
        table.lastPosition() - table.firstPosition() + kOfCell * table.rows() * table.columns();
    for (const QTextFrame *frame : table.childFrames())
        if (const auto *inner = qobject_cast<const QTextTable *>(frame))
            effort += 2 * ::effort(*inner);
    return effort;
}

} // namespace

bool PacedLayout::suits(const QTextDocument &document)
{
    for (auto part = document.rootFrame()->begin(); !part.atEnd(); ++part) {
        const auto *table = qobject_cast<const QTextTable *>(part.currentFrame());
        if (table && effort(*table) > kMaxOfTable)
            return false;
        if (const QTextBlock block = part.currentBlock();
            block.isValid() &&
            (block.length() > kMaxOfParagraph || VisibleCharacters::hasLongWord(block.text())))
            return false;
    }
    return true;
}

PacedLayout::PacedLayout(QTextDocument &document) : QObject(&document), m_document(document)
{
    document.documentLayout()->installEventFilter(this);
}

bool PacedLayout::eventFilter(QObject *watched, QEvent *event)
{
    const int end = m_document.characterCount() - 1;
    if (event->type() != QEvent::Timer || m_position >= end)
        return QObject::eventFilter(watched, event);
    const QTextBlock block = m_document.findBlock(std::min(m_position + kStep, end));
    m_position = block.position() + block.length();
    // To tell where a block is, the engine lays out all that is before.
    m_document.documentLayout()->blockBoundingRect(block);
    return m_position < end;
}
