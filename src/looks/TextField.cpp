#include "looks/TextField.h"

#include "looks/FormattedText.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextEdit>
#include <QTextTable>

#include <algorithm>

namespace {

class LineField : public TextField
{
public:
    explicit LineField(QLineEdit &line) : m_line(line) {}

    // ^TextField
    QWidget &widget() const override { return m_line; }
    bool isEditable() const override { return !m_line.isReadOnly(); }
    bool isReadable() const override { return m_line.echoMode() == QLineEdit::Normal; }
    bool isOneLine() const override { return true; }
    QString text() const override { return m_line.text(); }
    Range selection() const override
    {
        const int caret = m_line.cursorPosition();
        if (!m_line.hasSelectedText())
            return {caret, caret};
        const bool isForward = caret == m_line.selectionEnd();
        return {isForward ? m_line.selectionStart() : m_line.selectionEnd(), caret};
    }
    void select(const Range &range) override
    {
        if (range.isEmpty()) {
            m_line.deselect();
            m_line.setCursorPosition(range.caret);
        } else {
            m_line.setSelection(range.anchor, range.caret - range.anchor);
        }
    }
    void selectAll() override { m_line.selectAll(); }
    QString selectedText() const override { return m_line.selectedText(); }
    bool mark(QTextCursor::MoveOperation motion) override
    {
        const bool isMirrored = m_line.text().isRightToLeft();
        switch (motion) {
        case QTextCursor::Left:
        case QTextCursor::Right:
            m_line.cursorForward(true, (motion == QTextCursor::Right) == isMirrored ? -1 : 1);
            return true;
        case QTextCursor::WordLeft:
        case QTextCursor::WordRight:
            if ((motion == QTextCursor::WordRight) == isMirrored)
                m_line.cursorWordBackward(true);
            else
                m_line.cursorWordForward(true);
            return true;
        case QTextCursor::StartOfLine:
        case QTextCursor::StartOfBlock:
        case QTextCursor::Start:
            m_line.home(true);
            return true;
        case QTextCursor::EndOfLine:
        case QTextCursor::EndOfBlock:
        case QTextCursor::End:
            m_line.end(true);
            return true;
        default:
            return false;
        }
    }
    bool markPage(QTextCursor::MoveOperation) override { return false; }
    bool selectWord(QPoint) override { return false; }
    bool selectParagraph(QPoint) override { return false; }
    void placeCaret(QPoint position) override
    {
        m_line.deselect();
        m_line.setCursorPosition(m_line.cursorPositionAt(position));
    }
    void insert(const QString &text) override
    {
        beginUndoStep();
        m_line.insert(text);
    }
    void removeSelection() override { m_line.del(); }
    void removeToEnd() override
    {
        m_line.deselect();
        m_line.end(true);
        if (m_line.hasSelectedText())
            m_line.del();
    }
    bool canUndo() const override { return m_line.isUndoAvailable(); }
    bool canRedo() const override { return m_line.isRedoAvailable(); }
    void undo() override { m_line.undo(); }
    void redo() override { m_line.redo(); }

private:
    /// What was typed before is a step of its own only once the caret has moved.
    void beginUndoStep()
    {
        if (m_line.hasSelectedText() || m_line.text().isEmpty())
            return;
        const QSignalBlocker quiet(m_line);
        const int caret = m_line.cursorPosition();
        m_line.setCursorPosition(caret > 0 ? caret - 1 : 1);
        m_line.setCursorPosition(caret);
    }

    QLineEdit &m_line;
};

/// What stands between a block and the one before it.
QString separatorBefore(const QTextBlock &block)
{
    if (block.blockFormat().hasProperty(TextField::kContinuesLine))
        return {};
    const QTextCursor cursor(block);
    const QTextTable *table = cursor.currentTable();
    if (table && table == QTextCursor(block.previous()).currentTable()) {
        const QTextTableCell cell = table->cellAt(cursor);
        const QTextTableCell before = table->cellAt(QTextCursor(block.previous()));
        if (cell != before && cell.row() == before.row())
            return QStringLiteral("\t");
    }
    return QStringLiteral("\n");
}

/// Block by block, because a block may go on with the line of the one before it.
QString textBetween(const QTextDocument &document, int start, int end)
{
    QString text;
    for (QTextBlock block = document.findBlock(start); block.isValid() && block.position() <= end;
         block = block.next()) {
        if (block.position() > start)
            text += separatorBefore(block);
        const int from = std::max(0, start - block.position());
        text += QStringView(block.text())
                    .mid(from, std::min(end - block.position(), block.length() - 1) - from);
    }
    return text.replace(QChar::LineSeparator, u'\n');
}

/// Opens the one door through which a text edit's subclasses bound what is pasted into them.
template <typename Edit>
struct Opened : Edit
{
    using Edit::insertFromMimeData;
};

/// QTextEdit and QPlainTextEdit, which agree in everything but their base class.
template <typename Edit>
class EditField : public TextField
{
public:
    explicit EditField(Edit &edit) : m_edit(edit) {}

    // ^TextField
    QWidget &widget() const override { return m_edit; }
    bool isEditable() const override
    {
        return !m_edit.isReadOnly() && m_edit.textInteractionFlags() & Qt::TextEditable;
    }
    QString text() const override { return m_edit.toPlainText(); }
    bool isEmpty() const override { return m_edit.document()->isEmpty(); }
    Range selection() const override
    {
        const QTextCursor cursor = m_edit.textCursor();
        return {cursor.anchor(), cursor.position()};
    }
    void select(const Range &range) override
    {
        QTextCursor cursor = m_edit.textCursor();
        cursor.setPosition(range.anchor);
        cursor.setPosition(range.caret, QTextCursor::KeepAnchor);
        m_edit.setTextCursor(cursor);
    }
    void selectAll() override { m_edit.selectAll(); }
    QString selectedText() const override
    {
        const QTextCursor cursor = m_edit.textCursor();
        return textBetween(*m_edit.document(), cursor.selectionStart(), cursor.selectionEnd());
    }
    Copy selectedCopy() const override
    {
        const auto *formatted = dynamic_cast<const FormattedText *>(&m_edit);
        return formatted ? formatted->selectedCopy() : TextField::selectedCopy();
    }
    bool mark(QTextCursor::MoveOperation motion) override { return markBy(motion, 1); }
    bool markPage(QTextCursor::MoveOperation upOrDown) override
    {
        const int lines = m_edit.viewport()->height() / m_edit.fontMetrics().lineSpacing();
        return markBy(upOrDown, std::max(1, lines - 1));
    }
    bool selectWord(QPoint position) override
    {
        QTextCursor cursor = m_edit.cursorForPosition(position);
        cursor.select(QTextCursor::WordUnderCursor);
        m_edit.setTextCursor(cursor);
        return true;
    }
    bool selectParagraph(QPoint position) override
    {
        QTextCursor cursor = m_edit.cursorForPosition(position);
        cursor.movePosition(QTextCursor::StartOfBlock);
        cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        m_edit.setTextCursor(cursor);
        return true;
    }
    void placeCaret(QPoint position) override
    {
        m_edit.setTextCursor(m_edit.cursorForPosition(position));
    }
    void insert(const QString &text) override
    {
        QMimeData data;
        data.setText(text);
        (m_edit.*&Opened<Edit>::insertFromMimeData)(&data);
        m_edit.ensureCursorVisible();
    }
    void removeSelection() override { m_edit.textCursor().removeSelectedText(); }
    void removeToEnd() override
    {
        QTextCursor cursor = m_edit.textCursor();
        cursor.clearSelection();
        cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
    }
    bool canUndo() const override { return m_edit.document()->isUndoAvailable(); }
    bool canRedo() const override { return m_edit.document()->isRedoAvailable(); }
    void undo() override { m_edit.undo(); }
    void redo() override { m_edit.redo(); }

private:
    bool markBy(QTextCursor::MoveOperation motion, int steps)
    {
        if (!(m_edit.textInteractionFlags() & (Qt::TextSelectableByKeyboard | Qt::TextEditable)))
            return false;
        QTextCursor cursor = m_edit.textCursor();
        cursor.movePosition(motion, QTextCursor::KeepAnchor, steps);
        m_edit.setTextCursor(cursor);
        return true;
    }

    Edit &m_edit;
};

/// Text that is only shown, as in a message box.
class LabelField : public TextField
{
public:
    explicit LabelField(QLabel &label) : m_label(label) {}

    // ^TextField
    QWidget &widget() const override { return m_label; }
    bool isEditable() const override { return false; }
    QString text() const override { return m_label.text(); }
    Range selection() const override
    {
        const int start = m_label.selectionStart();
        return start < 0 ? Range() : Range{start, start + int(m_label.selectedText().size())};
    }
    void select(const Range &range) override
    {
        m_label.setSelection(range.anchor, range.caret - range.anchor);
    }
    void selectAll() override
    {
        // More than there is selects nothing, and how much there is behind markup nobody tells.
        int length = int(m_label.text().size());
        do
            m_label.setSelection(0, length);
        while (!m_label.hasSelectedText() && --length > 0);
    }
    QString selectedText() const override
    {
        QString text = m_label.selectedText();
        return text.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
    }
    // It has no caret that would show what a key does.
    bool mark(QTextCursor::MoveOperation) override { return true; }
    bool markPage(QTextCursor::MoveOperation) override { return true; }
    // Nor does it tell where its words lie.
    bool selectWord(QPoint) override
    {
        selectAll();
        return true;
    }
    bool selectParagraph(QPoint position) override { return selectWord(position); }
    void placeCaret(QPoint) override { m_label.setSelection(0, 0); }
    void insert(const QString &) override {}
    void removeSelection() override {}
    void removeToEnd() override {}
    bool canUndo() const override { return false; }
    bool canRedo() const override { return false; }
    void undo() override {}
    void redo() override {}

private:
    QLabel &m_label;
};

template <typename Edit>
Edit *editOf(QObject *object)
{
    if (auto *edit = qobject_cast<Edit *>(object))
        return edit;
    auto *edit = object ? qobject_cast<Edit *>(object->parent()) : nullptr;
    return edit && edit->viewport() == object ? edit : nullptr;
}

QLineEdit *lineOf(QObject *object)
{
    if (const auto *combo = qobject_cast<QComboBox *>(object))
        return combo->lineEdit();
    if (const auto *spin = qobject_cast<QAbstractSpinBox *>(object))
        return spin->findChild<QLineEdit *>(QString(), Qt::FindDirectChildrenOnly);
    return qobject_cast<QLineEdit *>(object);
}

} // namespace

std::unique_ptr<TextField> TextField::of(QObject *object)
{
    if (QLineEdit *line = lineOf(object))
        return std::make_unique<LineField>(*line);
    if (auto *edit = editOf<QPlainTextEdit>(object))
        return std::make_unique<EditField<QPlainTextEdit>>(*edit);
    if (auto *edit = editOf<QTextEdit>(object))
        return std::make_unique<EditField<QTextEdit>>(*edit);
    auto *label = qobject_cast<QLabel *>(object);
    if (label &&
        label->textInteractionFlags() & (Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard))
        return std::make_unique<LabelField>(*label);
    return nullptr;
}
