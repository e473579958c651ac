#include "looks/FieldPasteboard.h"

#include "looks/FieldMenu.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLoggingCategory>
#include <QMessageBox>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QStyleHints>

#include <algorithm>
#include <iterator>

namespace {

Q_LOGGING_CATEGORY(lcFields, "quillmarsh.looks", QtInfoMsg)

struct MarkingKey
{
    QKeySequence::StandardKey key;
    QTextCursor::MoveOperation motion;
};

constexpr MarkingKey kMarkingKeys[] = {
    {QKeySequence::SelectNextChar, QTextCursor::Right},
    {QKeySequence::SelectPreviousChar, QTextCursor::Left},
    {QKeySequence::SelectNextWord, QTextCursor::WordRight},
    {QKeySequence::SelectPreviousWord, QTextCursor::WordLeft},
    {QKeySequence::SelectNextLine, QTextCursor::Down},
    {QKeySequence::SelectPreviousLine, QTextCursor::Up},
    {QKeySequence::SelectStartOfLine, QTextCursor::StartOfLine},
    {QKeySequence::SelectEndOfLine, QTextCursor::EndOfLine},
    {QKeySequence::SelectStartOfBlock, QTextCursor::StartOfBlock},
    {QKeySequence::SelectEndOfBlock, QTextCursor::EndOfBlock},
    {QKeySequence::SelectStartOfDocument, QTextCursor::Start},
    {QKeySequence::SelectEndOfDocument, QTextCursor::End},
};

/// Whether a key may leave what is selected selected. A line edit, and a text that is only read,
/// then offers it anew through the toolkit's clipboard, whatever the key.
bool leavesSelection(const TextField &field, const QKeyEvent &event)
{
    if (field.selection().isEmpty())
        return false;
    if (!field.isOneLine())
        return !field.isEditable();
    switch (event.key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End:
        return false;
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
        return !field.isEditable();
    default:
        break;
    }
    const QString text = event.text();
    const bool isTyping = !text.isEmpty() && text.front().isPrint() &&
                          !(event.modifiers() & (Qt::ControlModifier | Qt::MetaModifier));
    return !isTyping || !field.isEditable();
}

bool isOfToolkit(const QObject &object)
{
    return object.metaObject()->className()[0] == 'Q';
}

} // namespace

FieldPasteboard::FieldPasteboard(Pasteboard &pasteboard) : m_pasteboard(pasteboard)
{
    qApp->installEventFilter(this);
}

bool FieldPasteboard::eventFilter(QObject *watched, QEvent *event)
{
    if (event == m_passedOn)
        return false;
    switch (event->type()) {
    case QEvent::KeyPress:
        return handleKey(*watched, static_cast<QKeyEvent &>(*event));
    case QEvent::ContextMenu:
        return handleContextMenu(*watched, static_cast<QContextMenuEvent &>(*event));
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return handlePress(*watched, static_cast<const QMouseEvent &>(*event));
    case QEvent::MouseButtonRelease:
        return handleRelease(*watched, static_cast<QMouseEvent &>(*event));
    default:
        return false;
    }
}

bool FieldPasteboard::handleKey(QObject &watched, QKeyEvent &event)
{
    if (!watched.isWidgetType())
        return false;
    if (const auto field = TextField::of(&watched)) {
        if (!field->widget().isEnabled() || handleFieldKey(*field, event))
            return field->widget().isEnabled();
        if (!leavesSelection(*field, event))
            return false;
        passKeyOnUnseen(watched, *field, event);
        return true;
    }
    return event.matches(QKeySequence::Copy) && copyFromOthers(watched);
}

bool FieldPasteboard::handleFieldKey(TextField &field, const QKeyEvent &event)
{
    if (event.matches(QKeySequence::Copy)) {
        copy(field);
        // Nothing to copy: the key may mean something else there.
        return !field.selection().isEmpty();
    }
    if (markByKey(field, event))
        return true;
    if (!field.isEditable())
        return false;
    if (event.matches(QKeySequence::Cut)) {
        cut(field);
    } else if (event.matches(QKeySequence::Paste)) {
        const bool isPrimary = event.key() == Qt::Key_Insert &&
                               event.modifiers() & Qt::ControlModifier &&
                               event.modifiers() & Qt::ShiftModifier;
        paste(field, isPrimary ? Pasteboard::Selection::Primary : Pasteboard::Selection::Clipboard);
    } else if (field.isOneLine() && event.matches(QKeySequence::DeleteEndOfLine)) {
        // The toolkit would copy what these two remove, over what the user is about to paste.
        field.removeToEnd();
    } else if (field.isOneLine() && event.matches(QKeySequence::DeleteCompleteLine)) {
        field.selectAll();
        field.removeSelection();
    } else if (field.isOneLine() && event.matches(QKeySequence::Undo)) {
        if (field.widget().property(kOwnUndo).toBool())
            return false;
        field.undo();
    } else if (field.isOneLine() && event.matches(QKeySequence::Redo)) {
        field.redo();
    } else {
        return false;
    }
    return true;
}

/// The toolkit offers what a key has marked through its clipboard, before anybody could prevent it.
bool FieldPasteboard::markByKey(TextField &field, const QKeyEvent &event)
{
    // Nothing to mark: the key may mean something else there.
    if (field.isEmpty())
        return false;
    bool isMarking = false;
    if (event.matches(QKeySequence::SelectAll)) {
        field.selectAll();
        isMarking = true;
    } else if (event.matches(QKeySequence::SelectNextPage)) {
        isMarking = field.markPage(QTextCursor::Down);
    } else if (event.matches(QKeySequence::SelectPreviousPage)) {
        isMarking = field.markPage(QTextCursor::Up);
    } else {
        const auto *key =
            std::find_if(std::begin(kMarkingKeys), std::end(kMarkingKeys),
                         [&](const MarkingKey &marking) { return event.matches(marking.key); });
        isMarking = key != std::end(kMarkingKeys) && field.mark(key->motion);
    }
    if (isMarking)
        offer(field);
    return isMarking;
}

/// What copies without being a text field.
bool FieldPasteboard::copyFromOthers(QObject &watched)
{
    if (const auto *box = qobject_cast<QMessageBox *>(&watched)) {
        const QString more = box->informativeText();
        write({more.isEmpty() ? box->text() : box->text() + QStringLiteral("\n\n") + more});
        return true;
    }
    // A view of our own says itself what a key copies.
    const auto *view = qobject_cast<QAbstractItemView *>(&watched);
    if (!view || !isOfToolkit(*view))
        return false;
    write({view->currentIndex().data().toString()});
    return true;
}

bool FieldPasteboard::handleContextMenu(QObject &watched, QContextMenuEvent &event)
{
    if (!watched.isWidgetType() ||
        static_cast<QWidget &>(watched).contextMenuPolicy() != Qt::DefaultContextMenu)
        return false;
    const auto field = TextField::of(&watched);
    if (!field || field->widget().contextMenuPolicy() == Qt::CustomContextMenu)
        return false;
    if (event.reason() == QContextMenuEvent::Keyboard &&
        watched.property(FieldMenu::kOwnKeyboardMenu).toBool())
        return false;
    QWidget *const widget = &field->widget();
    const auto with = [widget](auto operation) {
        return [widget, operation] {
            if (const auto marked = TextField::of(widget))
                operation(*marked);
        };
    };
    auto *menu = new FieldMenu(*field, {with([this](TextField &marked) { cut(marked); }),
                                        with([this](TextField &marked) { copy(marked); }),
                                        with([this](TextField &marked) {
                                            paste(marked, Pasteboard::Selection::Clipboard);
                                        })});
    menu->popup(event.globalPos());
    event.accept();
    return true;
}

bool FieldPasteboard::handlePress(QObject &watched, const QMouseEvent &event)
{
    const auto field = watched.isWidgetType() ? TextField::of(&watched) : nullptr;
    if (!field || event.button() != Qt::LeftButton || !field->widget().isEnabled())
        return false;
    const bool isDouble = event.type() == QEvent::MouseButtonDblClick;
    const bool isTriple = m_press.widget == &field->widget() && isThirdClick(event);
    if (isDouble)
        m_press.sinceDoubleClick.start();
    m_press.widget = &field->widget();
    m_press.selection = field->selection();
    m_press.position = event.globalPosition();
    // The toolkit would offer these at once, before the button is released.
    const QPoint position = event.position().toPoint();
    return (isDouble && field->selectWord(position)) ||
           (isTriple && field->selectParagraph(position));
}

bool FieldPasteboard::isThirdClick(const QMouseEvent &event) const
{
    const int interval = QGuiApplication::styleHints()->mouseDoubleClickInterval();
    return m_press.sinceDoubleClick.isValid() && !m_press.sinceDoubleClick.hasExpired(interval) &&
           (event.globalPosition() - m_press.position).manhattanLength() <
               QApplication::startDragDistance();
}

bool FieldPasteboard::handleRelease(QObject &watched, QMouseEvent &event)
{
    const bool isLeft = event.button() == Qt::LeftButton;
    if ((!isLeft && event.button() != Qt::MiddleButton) || !watched.isWidgetType())
        return false;
    const auto field = TextField::of(&watched);
    if (!field || !field->widget().isEnabled())
        return false;
    if (isLeft) {
        releaseUnseen(watched, event);
        return true;
    }
    if (!field->isEditable())
        return false;
    field->placeCaret(event.position().toPoint());
    paste(*field, Pasteboard::Selection::Primary);
    return true;
}

bool FieldPasteboard::isClickIntoSelection(const TextField &field, const QMouseEvent &event) const
{
    return m_press.widget == &field.widget() && m_press.selection == field.selection() &&
           !(event.modifiers() & Qt::ShiftModifier) &&
           // The third click of a triple one marks a line, also one that is a single word.
           !isThirdClick(event) &&
           (event.globalPosition() - m_press.position).manhattanLength() <
               QApplication::startDragDistance();
}

/// Passes the release on while nothing is selected, because a field that has a selection then
/// offers it through the toolkit's clipboard.
void FieldPasteboard::releaseUnseen(QObject &watched, QMouseEvent &event)
{
    const auto field = TextField::of(&watched);
    const TextField::Range selection = field->selection();
    const bool isMarked = !selection.isEmpty() && !isClickIntoSelection(*field, event);
    if (!selection.isEmpty())
        field->select({selection.caret, selection.caret});
    const QPointer<QObject> alive(&watched);
    passOn(watched, event);
    if (!alive)
        return;
    if (isMarked)
        field->select(selection);
    // Some fields mark their whole text when they are clicked.
    offer(*field);
}

void FieldPasteboard::passKeyOnUnseen(QObject &watched, TextField &field, QKeyEvent &event)
{
    const QString text = field.text();
    const TextField::Range selection = field.selection();
    const QPointer<QObject> alive(&watched);
    field.select({selection.caret, selection.caret});
    passOn(watched, event);
    // It has gone on to whom it may concern, and must not do so again.
    event.accept();
    if (alive && field.text() == text &&
        field.selection() == TextField::Range{selection.caret, selection.caret})
        field.select(selection);
}

void FieldPasteboard::passOn(QObject &watched, QEvent &event)
{
    const QScopedValueRollback<const QEvent *> passingOn(m_passedOn, &event);
    QCoreApplication::sendEvent(&watched, &event);
}

void FieldPasteboard::offer(const TextField &field)
{
    if (const QString text = field.selectedText(); !text.isEmpty() && field.isReadable())
        m_pasteboard.markText(text);
}

void FieldPasteboard::copy(const TextField &field)
{
    if (field.isReadable())
        write(field.selectedCopy());
}

void FieldPasteboard::cut(TextField &field)
{
    if (field.selection().isEmpty() || !field.isReadable())
        return;
    copy(field);
    field.removeSelection();
}

void FieldPasteboard::paste(const TextField &field, Pasteboard::Selection selection)
{
    const QPointer<QWidget> widget = &field.widget();
    m_pasteboard.askText(selection, widget, [widget](const std::optional<QString> &text) {
        // It may come late, when the user has long since gone elsewhere.
        QWidget *asked = widget.data();
        const auto asking = asked && asked->isVisible() ? TextField::of(asked) : nullptr;
        if (text && !text->isEmpty() && asking && asking->isEditable())
            asking->insert(*text);
    });
}

void FieldPasteboard::write(const Copy &copy)
{
    if (!copy.text || copy.text->isEmpty())
        return;
    if (!m_pasteboard.write(copy))
        qCWarning(lcFields, "what was copied from a text field could not be put on the pasteboard");
}
