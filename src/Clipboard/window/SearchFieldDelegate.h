#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

#include <optional>

class QKeyEvent;
class SearchField;
class ViewController;

/// Translates the search field's editing commands into operations of the view controller, so that
/// the clip list is worked from inside the field, and passes on what is typed. Owned by the view
/// controller; holds no state of the clips.
class SearchFieldDelegate : public QObject
{
    Q_OBJECT

public:
    explicit SearchFieldDelegate(ViewController *theViewController);

    /// Watches the keys and the text of `field`.
    void attach(SearchField *field);

    /// Performs the editing command `command` ("moveUp:" and its like). `modifierFlags` are those
    /// of the key that gave it (ModifierFlags.h). True when the command belongs to the list, even
    /// while there is no view controller; false leaves it to the field.
    bool control(const QString &command, quint64 modifierFlags);

    /// The text of the field has changed to `stringValue`.
    void controlTextDidChange(const QString &stringValue);

    /// The editing command that a key gives, none for a key that is plain editing.
    static std::optional<QString> commandForKey(const QKeyEvent &event);

    // ^QObject
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool actByKey(const QKeyEvent &event) const;

    QPointer<ViewController> m_viewController;
};
