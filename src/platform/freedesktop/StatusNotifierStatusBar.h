#pragma once

#include "platform/StatusBar.h"
#include "platform/TrayArea.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QPointer>
#include <QSystemTrayIcon>

#include <memory>
#include <optional>

/// The item in a panel that speaks StatusNotifierItem, else in an XEMBED tray. Owned by Platform.
///
/// The rule that keeps it right: the tray icon object exists only while there is a place for it.
/// Qt looks for a StatusNotifier host once, when the first one is made, and remembers the answer
/// for the whole process; and it looks by waiting, so the host must have answered us before.
class StatusNotifierStatusBar : public StatusBar
{
    Q_OBJECT

public:
    /// `trayArea` is null where a display has no such trays, because windows have no places there.
    explicit StatusNotifierStatusBar(std::unique_ptr<TrayArea> trayArea,
                                     QDBusConnection bus = QDBusConnection::sessionBus());
    ~StatusNotifierStatusBar() override;

    // ^StatusBar
    void showItem(const QIcon &icon, const QString &toolTip, QMenu *menu) override;
    bool isItemVisible() const override { return m_item != nullptr; }

private Q_SLOTS:
    /// Asks the watcher whether it has a host; a slot because bus signals call it by name.
    void askForHost();

private:
    enum class Kind { Unsettled, Notifier, Embedded };

    void watchForHosts();
    void setHasHost(bool hasHost);
    void update();
    bool hasPlace() const;
    void makeItem();
    /// The item's menu at the pointer.
    void openMenu();
    QIcon itemIcon() const;

    std::unique_ptr<TrayArea> m_trayArea;
    QDBusConnection m_bus;
    QDBusServiceWatcher m_watcherWatcher;
    /// Absent until the watcher, or its absence, has answered for the first time.
    std::optional<bool> m_hasHost;
    /// Counts the questions, so that a late answer does not undo a later one.
    int m_lastQuestion = 0;
    Kind m_kind = Kind::Unsettled;
    QIcon m_icon;
    QString m_toolTip;
    QMenu *m_menu = nullptr;
    std::unique_ptr<QSystemTrayIcon> m_item;
};
