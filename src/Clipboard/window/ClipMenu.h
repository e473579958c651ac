#pragma once

#include <QMenu>

class QKeyEvent;
class ViewController;

/// What can be done with the selected clip, or with those that are marked: the row's context menu,
/// which tells the key of each. One table has all of it, and acts on those of the keys that have no
/// other meaning in the search field. Deleted when it is closed.
class ClipMenu : public QMenu
{
    Q_OBJECT

public:
    /// `controller` must outlive the menu.
    ClipMenu(ViewController &controller, QWidget *parent);

    /// Does what the key is for; false for a key that the table does not act on, or that has
    /// nothing to act on.
    static bool actByKey(ViewController &controller, const QKeyEvent &event);
};
