#include "Clipboard/TraylessHint.h"

#include "Clipboard/settings/GlobalShortcuts.h"
#include "Clipboard/settings/SettingsKeys.h"
#include "platform/Platform.h"

#include <QCoreApplication>

#include <chrono>
#include <utility>

namespace {

/// A panel that starts together with us has its status area by then.
constexpr std::chrono::seconds kTimeForPanel{3};

} // namespace

TraylessHint::TraylessHint(Platform &platform, std::function<bool()> isAllowed)
    : m_platform(platform), m_isAllowed(std::move(isAllowed))
{
    if (m_platform.settings->boolForKey(SettingsKeys::kTraylessHintShown))
        return;
    m_timer.setSingleShot(true);
    m_timer.setInterval(kTimeForPanel);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { tell(); });
    m_timer.start();
}

void TraylessHint::tell()
{
    if (m_platform.statusBar->isItemVisible() || !m_isAllowed())
        return;
    const std::optional<QString> shortcut =
        GlobalShortcuts::workingSentenceName(*m_platform.settings, SettingsKeys::kOpenShortCut);
    m_platform.notifications->deliver(
        QCoreApplication::translate("TraylessHint", "Quillmarsh is running"),
        shortcut ? QCoreApplication::translate(
                       "TraylessHint", "Press %1 to open the history, or start Quillmarsh again.")
                       .arg(*shortcut)
                 : QCoreApplication::translate("TraylessHint",
                                               "Start Quillmarsh again to open the history."));
    m_platform.settings->setValue(SettingsKeys::kTraylessHintShown, true);
}
