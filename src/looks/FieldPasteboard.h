#pragma once

#include "looks/TextField.h"
#include "platform/Pasteboard.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>

class QContextMenuEvent;
class QKeyEvent;
class QMouseEvent;

/// Has every text field of the application, those of the toolkit's own dialogs too, copy to and
/// paste from our pasteboard. The toolkit's clipboard asks the owner and waits for it on the main
/// thread, 5 s for each of its questions; so no field ever gets an event that would make it do so.
/// Owned by main; it watches all events from its construction on.
class FieldPasteboard : public QObject
{
    Q_OBJECT

public:
    /// While this property of a field is true, Undo is left to whoever watches the field's keys.
    static constexpr char kOwnUndo[] = "ownUndo";

    /// `pasteboard` is not owned and must outlive this object.
    explicit FieldPasteboard(Pasteboard &pasteboard);

    // ^QObject
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// What a mouse button was pressed on, to tell a click into a selection from marking one.
    struct Press
    {
        QPointer<QWidget> widget;
        TextField::Range selection;
        QPointF position;
        QElapsedTimer sinceDoubleClick; ///< Invalid before the first one.
    };

    bool handleKey(QObject &watched, QKeyEvent &event);
    bool handleFieldKey(TextField &field, const QKeyEvent &event);
    bool markByKey(TextField &field, const QKeyEvent &event);
    bool copyFromOthers(QObject &watched);
    bool handleContextMenu(QObject &watched, QContextMenuEvent &event);
    bool handlePress(QObject &watched, const QMouseEvent &event);
    bool isThirdClick(const QMouseEvent &event) const;
    bool handleRelease(QObject &watched, QMouseEvent &event);
    bool isClickIntoSelection(const TextField &field, const QMouseEvent &event) const;
    void releaseUnseen(QObject &watched, QMouseEvent &event);
    void passOn(QObject &watched, QEvent &event);
    void passKeyOnUnseen(QObject &watched, TextField &field, QKeyEvent &event);

    void copy(const TextField &field);
    void cut(TextField &field);
    void paste(const TextField &field, Pasteboard::Selection selection);
    void offer(const TextField &field);
    void write(const Copy &copy);

    Pasteboard &m_pasteboard;
    Press m_press;
    const QEvent *m_passedOn = nullptr; ///< By ourselves; not to be held up again.
};
