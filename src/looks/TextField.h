#pragma once

#include "platform/Copy.h"

#include <QPoint>
#include <QString>
#include <QTextCursor>
#include <QTextFormat>

#include <memory>

class QObject;
class QWidget;

/// A widget in which text can be marked, whatever its class. Made for one event by of(); it refers
/// to the widget and must not outlive it.
class TextField
{
public:
    struct Range
    {
        int anchor = 0;
        int caret = 0;

        bool isEmpty() const { return anchor == caret; }
        bool operator==(const Range &) const = default;
    };

    /// A property of a text block's format: it goes on with the line of the block before it, so
    /// that the break between them is none of the text's.
    static constexpr int kContinuesLine = QTextFormat::UserProperty + 1;

    TextField() = default;
    TextField(const TextField &) = delete;
    TextField &operator=(const TextField &) = delete;
    virtual ~TextField() = default;

    /// Null for what is no such widget. A field is also known by its viewport, and by the spin box
    /// or combo box around it, which passes its keys on.
    static std::unique_ptr<TextField> of(QObject *object);

    virtual QWidget &widget() const = 0;
    virtual bool isEditable() const = 0;
    /// False where the text is hidden from view, as a password is.
    virtual bool isReadable() const { return true; }
    virtual bool isOneLine() const { return false; }
    virtual QString text() const = 0;
    virtual bool isEmpty() const { return text().isEmpty(); }

    virtual Range selection() const = 0;
    virtual void select(const Range &range) = 0;
    virtual void selectAll() = 0;
    virtual QString selectedText() const = 0;
    /// The same in every format that the widget has.
    virtual Copy selectedCopy() const { return {selectedText()}; }
    /// Moves the caret and marks what it passes, as a key does. False when no key does so here.
    virtual bool mark(QTextCursor::MoveOperation motion) = 0;
    /// The same for a page.
    virtual bool markPage(QTextCursor::MoveOperation upOrDown) = 0;
    /// What a double and a triple click do. False where the field may do it by itself.
    virtual bool selectWord(QPoint position) = 0;
    virtual bool selectParagraph(QPoint position) = 0;
    /// Puts the caret under a place of the widget and selects nothing.
    virtual void placeCaret(QPoint position) = 0;

    /// Replaces the selection as a paste does, within what the field accepts.
    virtual void insert(const QString &text) = 0;
    virtual void removeSelection() = 0;
    /// Removes what is right of the caret on its line.
    virtual void removeToEnd() = 0;

    virtual bool canUndo() const = 0;
    virtual bool canRedo() const = 0;
    virtual void undo() = 0;
    virtual void redo() = 0;
};
