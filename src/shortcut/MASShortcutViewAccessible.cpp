#include "shortcut/MASShortcutViewAccessible.h"

#include "shortcut/MASShortcutView.h"

MASShortcutViewAccessible::MASShortcutViewAccessible(MASShortcutView &view)
    : QAccessibleWidget(&view, QAccessible::HotkeyField)
{
}

void MASShortcutViewAccessible::install()
{
    static const bool isInstalled = [] {
        QAccessible::installFactory([](const QString &, QObject *object) -> QAccessibleInterface * {
            auto *view = qobject_cast<MASShortcutView *>(object);
            return view ? new MASShortcutViewAccessible(*view) : nullptr;
        });
        return true;
    }();
    Q_UNUSED(isInstalled)
}

QString MASShortcutViewAccessible::text(QAccessible::Text kind) const
{
    // The description as well, because the bridge to assistive technology passes on the value of
    // numbers only.
    return kind == QAccessible::Value || kind == QAccessible::Description
               ? view().title()
               : QAccessibleWidget::text(kind);
}

QStringList MASShortcutViewAccessible::actionNames() const
{
    QStringList names = QAccessibleWidget::actionNames();
    if (view().isEnabled())
        names.prepend(pressAction());
    return names;
}

void MASShortcutViewAccessible::doAction(const QString &actionName)
{
    if (actionName == pressAction() && view().isEnabled())
        view().setRecording(true);
    else
        QAccessibleWidget::doAction(actionName);
}

MASShortcutView &MASShortcutViewAccessible::view() const
{
    return static_cast<MASShortcutView &>(*widget());
}
