#pragma once

#include <QPointer>
#include <QWidget>

class MASShortcutView;
class QLabel;

/// In the place of a recorder where the desktop's settings decide: the keys that the shortcut has,
/// and the way there. Owned by the pane.
class DesktopShortcut : public QWidget
{
    Q_OBJECT

public:
    /// `recorder`, whose place it takes, is not owned.
    explicit DesktopShortcut(const MASShortcutView &recorder);

    /// Shows what they are now.
    void refresh();

Q_SIGNALS:
    void changeWanted();

private:
    const QPointer<const MASShortcutView> m_recorder;
    QLabel *m_keys;
};
