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

#include <algorithm>
#include <utility>

namespace {

QString formatted(const QString &text, const std::optional<QString> &format)
{
    if (format == QStringLiteral("upper"))
        return text.toUpper();
    if (format == QStringLiteral("lower"))
        return text.toLower();
    return text;
}

bool isPicture(const PasteboardContents &contents)
{
    return std::any_of(contents.types.begin(), contents.types.end(), [](const QString &type) {
        return type.startsWith(QStringLiteral("image/"));
    });
}

/// Whether the history could not record it, although it was free to.
bool isUnrecorded(const PasteboardContents &contents)
{
    if (contents.isOwnWrite || contents.isConcealed || (contents.text && !contents.text->isEmpty()))
        return false;
    // Owners of nothing have formats too, which tell about the copy.
    return contents.isTextTooLarge ||
           std::any_of(contents.types.begin(), contents.types.end(),
                       [](const QString &type) { return type.contains(u'/'); });
}

} // namespace

ClipPaster::ClipPaster(Platform &platform, CaptureSettings &settings, ClipHistory &history,
                       ClipboardCapture &capture, SwopState &swopState,
                       HotKeyManager &hotKeyManager, HistoryWindow &window, const Waits &waits)
    : m_platform(platform), m_settings(settings), m_history(history), m_capture(capture),
      m_swopState(swopState), m_hotKeyManager(hotKeyManager), m_window(window), m_waits(waits)
{
    m_putBackTimer.setSingleShot(true);
    connect(&m_putBackTimer, &QTimer::timeout, this, &ClipPaster::putBack);
    connect(m_platform.pasteboard.get(), &Pasteboard::pasteRead, this, [this] {
        if (m_putBack)
            m_putBackTimer.start(m_waits.reading);
    });
    connect(&m_swopState, &SwopState::changed, &m_capture,
            &ClipboardCapture::tellLargestUsefulText);
}

void ClipPaster::performPaste(int row, const std::optional<QString> &format)
{
    if (row < 0) {
        addReplacedSelections();
        m_swopState.clear();
        return;
    }
    const auto &clips = m_history.clipItemArr();
    if (static_cast<std::size_t>(row) >= clips.size() || m_capture.isPaused())
        return;
    // Held by itself: hiding the window resets the list.
    const std::shared_ptr<ClipItem> item = clips[static_cast<std::size_t>(row)];
    // What has just arrived is still the swop's.
    if (m_swopState.performSwop())
        m_capture.readFromPasteboard();
    m_capture.setPaused(true);
    const auto resume = qScopeGuard([this] { m_capture.setPaused(false); });

    const Outcome outcome = item->filepath() ? pasteFile(*item) : pasteString(*item, format);
    if (outcome == Outcome::NotWritten) {
        qCWarning(lcHistory, "The pasteboard could not be written; nothing is pasted");
        tell(tr("The clip was not pasted"), tr("The clipboard could not be written."));
        return;
    }
    // Not before the keystroke, which would wait for the disk.
    m_history.countPaste(item);
    m_putBack.reset();
    m_putBackTimer.stop();
    completeSwop(*item, outcome);
    m_swopState.clear();
}

ClipPaster::Outcome ClipPaster::pasteString(const ClipItem &item,
                                            const std::optional<QString> &format)
{
    const std::optional<QString> text = item.strValue();
    // The RTF keeps its stored case on purpose: an application that prefers rich text pastes the
    // clip as it was copied.
    if (text && !replaceBy({formatted(*text, format), item.rtfValue(), {}}))
        return Outcome::NotWritten;
    m_window.hideApp();
    return text ? typeIntoTarget() : Outcome::NothingToType;
}

ClipPaster::Outcome ClipPaster::pasteFile(const ClipItem &item)
{
    const QString filepath = *item.filepath();
    const bool exists = m_platform.workspace->fileExists(filepath);
    if (exists && !replaceBy({item.strValue(), std::nullopt, {filepath}}))
        return Outcome::NotWritten;
    m_window.hideApp();
    if (!exists && m_settings.isNotificationsEnabled())
        notifyFileNoLongerExists();
    m_window.cancelOperation();
    return exists ? typeIntoTarget() : Outcome::NothingToType;
}

bool ClipPaster::replaceBy(const PasteboardItem &item)
{
    const std::optional<PasteboardContents> present = m_platform.pasteboard->contents();
    if (!m_platform.pasteboard->write(item))
        return false;
    if (present && isUnrecorded(*present))
        Q_EMIT unrecordedReplaced(isPicture(*present));
    return true;
}

ClipPaster::Outcome ClipPaster::typeIntoTarget()
{
    if (!m_platform.frontApplication->returnToTarget()) {
        tell(tr("The clip is on the clipboard"), tr("The previous window could not be activated."));
        return Outcome::Stranded;
    }
    m_hotKeyManager.paste();
    return Outcome::Typed;
}

void ClipPaster::completeSwop(const ClipItem &item, Outcome outcome)
{
    if (!m_swopState.performSwop())
        return;
    addReplacedSelections();
    if (!m_swopState.swopClipItem())
        return;
    const SwopItem held = *m_swopState.swopClipItem();
    if (outcome == Outcome::Stranded) {
        addHeld(held);
        return;
    }
    m_platform.clock->wait(m_waits.exchange);
    m_history.addToClipList(item.strValue(), item.rtfValue(), item.applicationName(),
                            item.filepath());
    addHeld(held);
    m_capture.passOverOwnWrites();
    putBackLater(held, outcome);
}

void ClipPaster::addHeld(const SwopItem &held)
{
    if (!held.isTooLarge)
        m_history.addToClipList(held.strValue, held.rtfValue, held.applicationName, held.filepath);
}

void ClipPaster::addReplacedSelections()
{
    for (const SwopItem &replaced : m_swopState.takeReplaced())
        addHeld(replaced);
}

void ClipPaster::putBackLater(const SwopItem &selection, Outcome outcome)
{
    m_putBack = PutBack{selection, m_platform.pasteboard->contents()};
    if (outcome != Outcome::Typed || m_platform.pasteboard->isPasteRead())
        putBack();
    else
        m_putBackTimer.start(m_waits.patience);
}

void ClipPaster::putBack()
{
    m_putBackTimer.stop();
    if (!m_putBack)
        return;
    const PutBack due = *std::exchange(m_putBack, std::nullopt);
    // By its text, because another clipboard manager may have taken the clip over.
    const std::optional<PasteboardContents> present = m_platform.pasteboard->contents();
    if (present.has_value() != due.pasted.has_value() ||
        (present &&
         (present->text != due.pasted->text || present->fileNames != due.pasted->fileNames)))
        return;
    if (!setPasteboardString(due.selection.strValue.value_or(QString()), due.selection.rtfValue)) {
        qCWarning(lcHistory, "The replaced selection could not be put on the pasteboard");
        tell(tr("The replaced text is not on the clipboard"),
             tr("The clipboard could not be written."));
        return;
    }
    m_capture.passOverOwnWrites();
}

void ClipPaster::swop()
{
    if (m_capture.isPaused())
        return;
    const bool isTargetInFront = returnFromOwnWindow();
    // What was copied before the swop is no part of it.
    m_capture.readFromPasteboard();
    if (isTargetInFront) {
        m_swopState.begin(m_platform.frontApplication->applicationName());
        m_hotKeyManager.copy();
        m_platform.clock->wait(m_waits.copy);
        m_capture.readFromPasteboard();
    } else {
        m_swopState.begin(QString());
    }
    m_window.showAtMouse();
}

/// The keystroke that copies would go to our own window otherwise. False when the target does not
/// come to the front instead.
bool ClipPaster::returnFromOwnWindow()
{
    if (!m_window.isOursInFront())
        return true;
    m_window.hideApp();
    return m_platform.frontApplication->returnToTarget();
}

void ClipPaster::cancelSwop()
{
    if (!m_swopState.performSwop() || m_capture.isPaused())
        return;
    addReplacedSelections();
    if (m_swopState.swopClipItem())
        addHeld(*m_swopState.swopClipItem());
    performPaste(-1, std::nullopt);
}

void ClipPaster::finish()
{
    cancelSwop();
    putBack();
}

void ClipPaster::tell(const QString &title, const QString &subtitle)
{
    if (m_settings.isNotificationsEnabled())
        m_platform.notifications->deliver(title, subtitle);
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
