#include "Clipboard/InstanceActions.h"

#include "Clipboard/AppDelegate.h"
#include "history/ClipHistory.h"
#include "platform/FrontApplication.h"
#include "platform/KeySender.h"
#include "platform/SingleInstance.h"

#include <chrono>
#include <utility>

namespace {

constexpr std::chrono::milliseconds kHeldKeyInterval{10};
/// A key that is held for longer is stuck, or no shortcut's.
constexpr int kHeldKeyLooks = 200;

} // namespace

InstanceActions::InstanceActions(AppDelegate &appDelegate, SingleInstance &instance,
                                 FrontApplication &front, const KeySender &keySender)
    : m_appDelegate(appDelegate), m_keySender(keySender),
      m_clips(appDelegate.history(), application())
{
    front.endStartup(instance.activationToken());
    connect(&instance, &SingleInstance::activated, this, [this, &front](const QString &token) {
        front.endStartup(token);
        m_appDelegate.launch();
    });
    connect(&instance, &SingleInstance::actionRequested, this,
            [this, &front](const QString &action, const QString &token) {
                front.endStartup(token);
                perform(action);
            });
    instance.setActionCheck([this](const QString &action) {
        // Else whoever asked would take the clips for gone.
        return action != u"clear-all" || m_appDelegate.history().canChange();
    });
    m_heldKeyTimer.setInterval(kHeldKeyInterval);
    connect(&m_heldKeyTimer, &QTimer::timeout, this, &InstanceActions::lookForHeldKeys);
}

HistoryClips::Application InstanceActions::application()
{
    return {[this] { m_appDelegate.noticeCopies(); },
            [this](const QString &text) { return m_appDelegate.copyText(text); },
            [this](const std::shared_ptr<ClipItem> &item) {
                // Later, so that the caller has its answer, and its window has gone.
                whenKeysAreUp([this, item] { m_appDelegate.pasteItems({item}, std::nullopt); });
            }};
}

void InstanceActions::perform(const QString &action)
{
    if (action == u"launch")
        m_appDelegate.launch();
    else if (action == u"swop")
        // A window manager whose key called us has the keyboard until that key is let go, and would
        // get the keystroke that copies the selection.
        whenKeysAreUp([this] { m_appDelegate.swop(); });
    else if (action == u"preferences")
        m_appDelegate.openPreferences();
    else if (action == u"check-for-updates")
        m_appDelegate.checkForUpdates();
    else if (action == u"feedback")
        m_appDelegate.showFeedbackDialog();
    else if (action == u"help")
        m_appDelegate.help();
    else if (action == u"welcome")
        m_appDelegate.showWelcomeWindow(true);
    else if (action == u"clear-all")
        m_appDelegate.clearAll();
    else if (action == u"quit")
        m_appDelegate.quit();
}

void InstanceActions::whenKeysAreUp(const std::function<void()> &action)
{
    m_waiting.append(action);
    m_heldKeyLooks = 0;
    // Later, because an action takes its time.
    QMetaObject::invokeMethod(this, &InstanceActions::lookForHeldKeys, Qt::QueuedConnection);
}

void InstanceActions::lookForHeldKeys()
{
    if (m_heldKeyLooks++ < kHeldKeyLooks && m_keySender.isKeyHeld()) {
        m_heldKeyTimer.start();
        return;
    }
    m_heldKeyTimer.stop();
    m_heldKeyLooks = 0;
    for (const std::function<void()> &action : std::exchange(m_waiting, {}))
        action();
}
