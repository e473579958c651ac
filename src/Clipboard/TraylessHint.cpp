#include "Clipboard/TraylessHint.h"

#include "Clipboard/settings/GlobalShortcuts.h"
#include "Clipboard/settings/SettingsKeys.h"
#include "platform/Notifications.h"
#include "platform/SettingsStore.h"
#include "platform/StatusBar.h"

#include <QCoreApplication>

#include <chrono>
#include <utility>

namespace {

/// A panel that starts together with us has its status area by then.
constexpr std::chrono::seconds kTimeForPanel{3};

} // namespace

TraylessHint::TraylessHint(SettingsStore &settings, const StatusBar &statusBar,
                           Notifications &notifications, std::function<bool()> isAllowed)
    : m_settings(settings), m_statusBar(statusBar), m_notifications(notifications),
      m_isAllowed(std::move(isAllowed))
{
    if (m_settings.boolForKey(SettingsKeys::kTraylessHintShown))
        return;
    m_timer.setSingleShot(true);
    m_timer.setInterval(kTimeForPanel);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { tell(); });
    m_timer.start();
}

void TraylessHint::tell()
{
    if (m_statusBar.isItemVisible() || !m_isAllowed())
        return;
    const std::optional<QString> shortcut =
        GlobalShortcuts::workingSentenceName(m_settings, SettingsKeys::kOpenShortCut);
    m_notifications.deliver(
        QCoreApplication::translate("TraylessHint", "Quillmarsh is running"),
        shortcut ? QCoreApplication::translate(
                       "TraylessHint", "Press %1 to open the history, or start Quillmarsh again.")
                       .arg(*shortcut)
                 : QCoreApplication::translate("TraylessHint",
                                               "Start Quillmarsh again to open the history."));
    m_settings.setValue(SettingsKeys::kTraylessHintShown, true);
}
