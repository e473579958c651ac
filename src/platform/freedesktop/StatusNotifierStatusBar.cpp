#include "platform/freedesktop/StatusNotifierStatusBar.h"

#include <QCursor>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QLoggingCategory>
#include <QMenu>
#include <QPainter>

namespace {

Q_LOGGING_CATEGORY(lcStatusBar, "quillmarsh.platform.statusbar", QtInfoMsg)

const auto kWatcher = QStringLiteral("org.kde.StatusNotifierWatcher");
const auto kWatcherPath = QStringLiteral("/StatusNotifierWatcher");
/// A watcher that takes longer counts as none until it says otherwise.
constexpr int kAnswerLimitMs = 2000;
/// Pixels; trays scale items down, never up.
constexpr int kItemSizes[] = {16, 22, 24, 32, 48, 64};

/// The icon's shape in one colour.
QIcon inColor(const QIcon &icon, const QColor &color)
{
    QIcon colored;
    for (const int size : kItemSizes) {
        QPixmap pixmap = icon.pixmap(QSize(size, size), 1.0);
        QPainter painter(&pixmap);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(pixmap.rect(), color);
        painter.end();
        colored.addPixmap(pixmap);
    }
    return colored;
}

} // namespace

StatusNotifierStatusBar::StatusNotifierStatusBar(std::unique_ptr<TrayArea> trayArea,
                                                 QDBusConnection bus)
    : m_trayArea(std::move(trayArea)), m_bus(std::move(bus))
{
}

StatusNotifierStatusBar::~StatusNotifierStatusBar() = default;

void StatusNotifierStatusBar::showItem(const QIcon &icon, const QString &toolTip, QMenu *menu)
{
    const bool isFirst = m_menu == nullptr;
    m_icon = icon;
    m_toolTip = toolTip;
    m_menu = menu;
    if (m_item) {
        m_item->setIcon(itemIcon());
        m_item->setToolTip(toolTip);
        m_item->setContextMenu(menu);
    }
    if (isFirst)
        watchForHosts();
}

void StatusNotifierStatusBar::watchForHosts()
{
    if (m_trayArea) {
        connect(m_trayArea.get(), &TrayArea::isPresentChanged, this,
                &StatusNotifierStatusBar::update);
        connect(m_trayArea.get(), &TrayArea::foregroundChanged, this, [this] {
            if (m_item)
                m_item->setIcon(itemIcon());
        });
    }
    if (!m_bus.isConnected()) {
        setHasHost(false);
        return;
    }
    m_watcherWatcher.setConnection(m_bus);
    m_watcherWatcher.setWatchMode(QDBusServiceWatcher::WatchForOwnerChange);
    m_watcherWatcher.addWatchedService(kWatcher);
    connect(&m_watcherWatcher, &QDBusServiceWatcher::serviceOwnerChanged, this, [this] {
        // An item belongs to the watcher it was registered with.
        setHasHost(false);
        askForHost();
    });
    // Without a sender's name, because looking its owner up would wait; whoever sends them only
    // makes us ask.
    for (const char *signal : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"})
        m_bus.connect(QString(), kWatcherPath, kWatcher, QLatin1String(signal), this,
                      SLOT(askForHost()));
    askForHost();
}

void StatusNotifierStatusBar::askForHost()
{
    const int question = ++m_lastQuestion;
    auto call = QDBusMessage::createMethodCall(kWatcher, kWatcherPath,
                                               QStringLiteral("org.freedesktop.DBus.Properties"),
                                               QStringLiteral("Get"));
    // A watcher alone shows nothing: it only introduces items to hosts, and may run without one.
    call << kWatcher << QStringLiteral("IsStatusNotifierHostRegistered");
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call, kAnswerLimitMs), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, question] {
        watcher->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *watcher;
        if (question == m_lastQuestion)
            setHasHost(!reply.isError() && reply.value().variant().toBool());
    });
}

void StatusNotifierStatusBar::setHasHost(bool hasHost)
{
    m_hasHost = hasHost;
    update();
}

bool StatusNotifierStatusBar::hasPlace() const
{
    const bool hasTray = m_trayArea && m_trayArea->isPresent();
    switch (m_kind) {
    case Kind::Notifier:
        return m_hasHost.value_or(false);
    case Kind::Embedded:
        return hasTray;
    case Kind::Unsettled:
        // An XEMBED tray is taken only once it is known that nothing better is there.
        return m_hasHost && (*m_hasHost || hasTray);
    }
    return false;
}

void StatusNotifierStatusBar::update()
{
    const bool isWanted = hasPlace();
    if (isWanted == isItemVisible())
        return;
    if (isWanted)
        makeItem();
    else
        m_item.reset();
    qCInfo(lcStatusBar, isWanted ? "status item shown" : "status item waits for a status area");
    Q_EMIT isItemVisibleChanged(isWanted);
}

// A panel gives a symbolic icon its own colour. In a tray the item is a window of ours, and nobody
// but us can do so.
QIcon StatusNotifierStatusBar::itemIcon() const
{
    const std::optional<QColor> color =
        m_kind == Kind::Embedded && m_icon.isMask() ? m_trayArea->foreground() : std::nullopt;
    return color ? inColor(m_icon, *color) : m_icon;
}

void StatusNotifierStatusBar::makeItem()
{
    if (m_kind == Kind::Unsettled)
        m_kind = *m_hasHost ? Kind::Notifier : Kind::Embedded;
    // Not earlier: Qt looks for a place once, when the first item is made, and keeps to the kind
    // that it found (or to none) for the whole process.
    m_item = std::make_unique<QSystemTrayIcon>(m_icon);
    m_item->setToolTip(m_toolTip);
    m_item->setContextMenu(m_menu);
    connect(m_item.get(), &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                // The other button's menu is the panel's affair, or the tray icon's own.
                if (reason == QSystemTrayIcon::Trigger)
                    openMenu();
            });
    m_item->show();
    // Once the tray is known to Qt, which would stop us listening to its colours.
    if (m_kind == Kind::Embedded)
        m_item->setIcon(itemIcon());
}

void StatusNotifierStatusBar::openMenu()
{
    // A panel that sends every click here would otherwise open it twice.
    if (m_menu->isVisible())
        return;
    if (!m_trayArea) {
        // A menu of no window is a window for a compositor, and one that tiles leaves it its size
        // only if it can have no other.
        m_menu->ensurePolished();
        m_menu->setFixedSize(m_menu->sizeHint());
    }
    m_menu->popup(QCursor::pos());
}
