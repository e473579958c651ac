#pragma once

#include <QAccessibleWidget>

class MASShortcutView;

/// What a screen reader hears of a recorder: a hot-key field whose value is the title and whose
/// press starts a recording. Owned by Qt's accessibility, which drops it with the recorder.
class MASShortcutViewAccessible : public QAccessibleWidget
{
public:
    explicit MASShortcutViewAccessible(MASShortcutView &view);

    /// Makes Qt use this class for every recorder; further calls change nothing.
    static void install();

    // ^QAccessibleInterface
    QString text(QAccessible::Text kind) const override;

    // ^QAccessibleActionInterface
    QStringList actionNames() const override;
    void doAction(const QString &actionName) override;

private:
    MASShortcutView &view() const;
};
