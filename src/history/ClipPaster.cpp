#include "history/ClipPaster.h"

#include "history/CaptureSettings.h"
#include "history/ClipHistory.h"
#include "history/ClipItem.h"
#include "history/ClipboardCapture.h"
#include "history/HistoryLog.h"
#include "history/HistoryWindow.h"
#include "history/HotKeyManager.h"
#include "history/SwopState.h"
#include "platform/Platform.h"

#include <QScopeGuard>

namespace {

/// Time for the front application to answer the copy keystroke of a swop.
constexpr std::chrono::milliseconds kCopyWait{100};
/// Time for the target to read the pasted clip before the pasteboard changes again.
constexpr std::chrono::milliseconds kExchangeWait{400};

QString formatted(const QString &text, const std::optional<QString> &format)
{
    if (format == QStringLiteral("upper"))
        return text.toUpper();
    if (format == QStringLiteral("lower"))
        return text.toLower();
    return text;
}

} // namespace

ClipPaster::ClipPaster(Platform &platform, CaptureSettings &settings, ClipHistory &history,
                       ClipboardCapture &capture, SwopState &swopState,
                       HotKeyManager &hotKeyManager, HistoryWindow &window)
    : m_platform(platform), m_settings(settings), m_history(history), m_capture(capture),
      m_swopState(swopState), m_hotKeyManager(hotKeyManager), m_window(window)
{
}

void ClipPaster::performPaste(int row, const std::optional<QString> &format)
{
    if (row < 0) {
        m_swopState.clear();
        return;
    }
    const auto &clips = m_history.clipItemArr();
    if (static_cast<std::size_t>(row) >= clips.size() || m_capture.isPaused())
        return;
    // Held by itself: hiding the window resets the list.
    const std::shared_ptr<ClipItem> item = clips[static_cast<std::size_t>(row)];
    m_capture.setPaused(true);
    const auto resume = qScopeGuard([this] { m_capture.setPaused(false); });

    m_history.countPaste(item);
    m_window.hideApp();
    const Outcome outcome = item->filepath() ? pasteFile(*item) : pasteString(*item, format);
    completeSwop(*item, outcome);
    m_swopState.clear();
}

ClipPaster::Outcome ClipPaster::pasteString(const ClipItem &item,
                                            const std::optional<QString> &format)
{
    const std::optional<QString> text = item.strValue();
    if (!text)
        return Outcome::Finished;
    // The RTF keeps its stored case on purpose: an application that prefers rich text pastes the
    // clip as it was copied.
    return typeIntoTarget(setPasteboardString(formatted(*text, format), item.rtfValue()));
}

ClipPaster::Outcome ClipPaster::pasteFile(const ClipItem &item)
{
    const QString filepath = *item.filepath();
    const bool exists = m_platform.workspace->fileExists(filepath);
    const bool isOnPasteboard = exists && setPasteboardFile(item.strValue(), filepath);
    if (!exists && m_settings.isNotificationsEnabled())
        notifyFileNoLongerExists();
    m_window.cancelOperation();
    return exists ? typeIntoTarget(isOnPasteboard) : Outcome::Finished;
}

ClipPaster::Outcome ClipPaster::typeIntoTarget(bool isOnPasteboard)
{
    if (!isOnPasteboard) {
        qCWarning(lcHistory, "The pasteboard could not be written; nothing is pasted");
        return Outcome::Stranded;
    }
    if (!m_platform.frontApplication->returnToTarget()) {
        if (m_settings.isNotificationsEnabled())
            m_platform.notifications->deliver(tr("The clip is on the clipboard"),
                                              tr("The previous window could not be activated."));
        return Outcome::Stranded;
    }
    m_hotKeyManager.paste();
    return Outcome::Finished;
}

void ClipPaster::completeSwop(const ClipItem &item, Outcome outcome)
{
    if (!m_swopState.performSwop || !m_swopState.swopClipItem)
        return;
    if (outcome == Outcome::Stranded) {
        addHeldSelection();
        return;
    }
    m_platform.clock->wait(kExchangeWait);
    m_history.addToClipList(item.strValue(), item.rtfValue(), item.applicationName(),
                            item.filepath());
    addHeldSelection();
    const SwopItem &held = *m_swopState.swopClipItem;
    if (!setPasteboardString(held.strValue.value_or(QString()), held.rtfValue))
        qCWarning(lcHistory, "The replaced selection could not be put on the pasteboard");
}

void ClipPaster::addHeldSelection()
{
    const SwopItem &held = *m_swopState.swopClipItem;
    m_history.addToClipList(held.strValue, held.rtfValue, held.applicationName, held.filepath);
}

void ClipPaster::swop()
{
    if (m_capture.isPaused())
        return;
    // What was copied before the swop is no part of it.
    m_capture.readFromPasteboard();
    m_swopState.performSwop = true;
    m_hotKeyManager.copy();
    m_platform.clock->wait(kCopyWait);
    m_capture.readFromPasteboard();
    m_window.showAtMouse();
}

void ClipPaster::cancelSwop()
{
    if (!m_swopState.performSwop || m_capture.isPaused())
        return;
    if (m_swopState.swopClipItem)
        addHeldSelection();
    performPaste(-1, std::nullopt);
}

bool ClipPaster::setPasteboardString(const QString &text, const std::optional<QString> &rtf)
{
    return m_platform.pasteboard->write({text, rtf, {}});
}

bool ClipPaster::setPasteboardFile(const std::optional<QString> &text, const QString &filepath)
{
    return m_platform.pasteboard->write({text, std::nullopt, {filepath}});
}

void ClipPaster::notifyFileNoLongerExists()
{
    m_platform.notifications->deliver(tr("File no longer exists"),
                                      tr("The file no longer exists at the copied location."));
}
