#include "history/ClipPaster.h"

#include "history/CaptureSettings.h"
#include "history/ClipHistory.h"
#include "history/ClipItem.h"
#include "history/ClipboardCapture.h"
#include "history/CopiedFiles.h"
#include "history/HistoryLog.h"
#include "history/HistoryWindow.h"
#include "history/HotKeyManager.h"
#include "history/SwopState.h"
#include "platform/Clock.h"
#include "platform/FrontApplication.h"
#include "platform/Notifications.h"
#include "platform/Workspace.h"

#include <QScopeGuard>

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

const QString kPlainText = QStringLiteral("plain");
const QString kAllFiles = QStringLiteral("files");

QString formatted(const QString &text, const std::optional<QString> &format)
{
    if (format == QStringLiteral("upper"))
        return text.toUpper();
    if (format == QStringLiteral("lower"))
        return text.toLower();
    return text;
}

std::vector<Clip> clipsOf(const std::vector<std::shared_ptr<ClipItem>> &items)
{
    std::vector<Clip> clips;
    std::transform(items.begin(), items.end(), std::back_inserter(clips),
                   [](const auto &item) { return item->clip(); });
    return clips;
}

/// One clip as it is, several as one, which is files when all of them are.
Clip joined(const std::vector<Clip> &clips)
{
    if (clips.size() == 1)
        return clips.front();
    Clip whole;
    QStringList texts;
    bool areFiles = true;
    for (const Clip &clip : clips) {
        texts.append(clip.text.value_or(clip.filepath().value_or(QString())));
        areFiles = areFiles && clip.filepath();
        whole.fileNames += clip.fileNames;
    }
    if (!areFiles)
        whole.fileNames.clear();
    whole.text = texts.join(u'\n');
    return whole;
}

/// Whether the history could not record it, although it was free to.
bool isUnrecorded(const PasteboardContents &contents)
{
    if (contents.isOwnWrite || contents.isConcealed || (contents.text && !contents.text->isEmpty()))
        return false;
    return contents.isTextTooLarge || contents.media != PasteboardContents::Media::None;
}

} // namespace

ClipPaster::ClipPaster(const Ports &ports, CaptureSettings &settings, ClipHistory &history,
                       ClipboardCapture &capture, SwopState &swopState,
                       HotKeyManager &hotKeyManager, HistoryWindow &window, const Waits &waits)
    : m_ports(ports), m_settings(settings), m_history(history), m_capture(capture),
      m_swopState(swopState), m_hotKeyManager(hotKeyManager), m_window(window), m_waits(waits),
      m_putBack(ports.pasteboard, waits.patience, waits.reading)
{
    connect(&m_putBack, &PutBack::done, &m_capture, &ClipboardCapture::passOverOwnWrites);
    connect(&m_putBack, &PutBack::failed, this, [this] {
        qCWarning(lcHistory, "The replaced selection could not be put on the pasteboard");
        tell(tr("The replaced text is not on the clipboard"),
             tr("The clipboard could not be written."));
    });
    m_hotKeyManager.setGivenUp([this] {
        leaveToUser(
            tr("%1 did not take the clip over to the computer that it shows, so nothing was "
               "pasted there. The middle mouse button pastes the clip, too."));
    });
    connect(&m_swopState, &SwopState::changed, &m_capture, &ClipboardCapture::tellLargestUseful);
}

void ClipPaster::performPaste(int row, const std::optional<QString> &format)
{
    if (row < 0) {
        addReplacedSelections();
        m_swopState.clear();
        return;
    }
    const auto &items = m_history.clipItemArr();
    if (static_cast<std::size_t>(row) < items.size())
        pasteItems({items[static_cast<std::size_t>(row)]}, format);
}

void ClipPaster::pasteItems(std::vector<std::shared_ptr<ClipItem>> items,
                            const std::optional<QString> &format)
{
    std::erase_if(items, [](const auto &item) { return !item->isInHistory(); });
    if (items.empty() || m_isPasting)
        return;
    const std::vector<Clip> clips = clipsOf(items);
    Clip clip = joined(clips);
    if (const QStringList files = CopiedFiles::of(clip.text, clip.filepath());
        format == kAllFiles && clips.size() == 1 && !files.isEmpty())
        clip.fileNames = files;
    // What has just arrived is still the swop's.
    if (m_swopState.performSwop())
        m_capture.readFromPasteboard();
    m_isPasting = true;
    m_capture.setPaused(true);
    const auto resume = qScopeGuard([this] {
        m_capture.setPaused(false);
        m_isPasting = false;
    });

    const Outcome outcome = clip.filepath() ? pasteFile(clip) : pasteString(clip, format);
    if (outcome == Outcome::NotWritten) {
        qCWarning(lcHistory, "The pasteboard could not be written; nothing is pasted");
        tell(tr("The clip was not pasted"), tr("The clipboard could not be written."));
        return;
    }
    // Not before the keystroke, which would wait for the list, the preview and the disk.
    m_window.makeWhole();
    for (const std::shared_ptr<ClipItem> &item : items)
        m_history.countPaste(item);
    m_putBack.cancel();
    completeSwop(clips, outcome);
    m_swopState.clear();
}

ClipPaster::Outcome ClipPaster::pasteString(Copy copy, const std::optional<QString> &format)
{
    if (format == kPlainText)
        copy.offer = Copy::Offer::PlainText;
    if (copy.text) {
        // RTF keeps its stored case on purpose: an application that prefers it pastes the clip as
        // it was copied. HTML would have every browser do so.
        const QString text = formatted(*copy.text, format);
        if (text != *copy.text)
            copy.offer = Copy::Offer::NoHtml;
        copy.text = text;
    }
    if (copy.text && !replaceBy(copy))
        return Outcome::NotWritten;
    m_window.hideApp();
    return copy.text ? typeIntoTarget() : Outcome::NothingToType;
}

ClipPaster::Outcome ClipPaster::pasteFile(const Clip &clip)
{
    const QStringList present = existing(clip.fileNames);
    const bool exists = !present.isEmpty();
    if (exists && !replaceBy(copyOfFiles(clip.text, present)))
        return Outcome::NotWritten;
    m_window.hideApp();
    if (present.size() < clip.fileNames.size() && m_settings.isNotificationsEnabled())
        notifyFileNoLongerExists();
    return exists ? typeIntoTarget() : Outcome::NothingToType;
}

QStringList ClipPaster::existing(const QStringList &fileNames)
{
    QStringList present = fileNames;
    present.removeIf([this](const QString &path) { return !m_ports.workspace.fileExists(path); });
    return present;
}

bool ClipPaster::copyItems(std::vector<std::shared_ptr<ClipItem>> items)
{
    std::erase_if(items, [](const auto &item) { return !item->isInHistory(); });
    if (items.empty() || m_isPasting)
        return false;
    Clip clip = joined(clipsOf(items));
    if (clip.filepath()) {
        const QStringList present = existing(clip.fileNames);
        if (present.isEmpty()) {
            if (m_settings.isNotificationsEnabled())
                notifyFileNoLongerExists();
            return false;
        }
        clip = Clip(copyOfFiles(clip.text, present), std::nullopt);
    }
    const bool isWritten = clip.text && replaceBy(clip);
    if (!isWritten) {
        qCWarning(lcHistory, "The pasteboard could not be written; nothing is copied");
        tell(tr("The clip was not copied"), tr("The clipboard could not be written."));
    }
    return isWritten;
}

bool ClipPaster::offer(const Clip &clip)
{
    // What was copied until now is the history's, and what is offered stands there already.
    m_capture.readFromPasteboard();
    const bool isFile = clip.filepath().has_value();
    if (isFile ? !m_ports.workspace.fileExists(*clip.filepath()) : !clip.text)
        return false;
    if (!replaceBy(isFile ? copyOfFiles(clip.text, clip.fileNames) : Copy(clip)))
        return false;
    m_capture.passOverOwnWrites();
    return true;
}

/// A picture of ours lands as one where it can, and as its file elsewhere.
Copy ClipPaster::copyOfFiles(const std::optional<QString> &text, const QStringList &files) const
{
    Copy copy{text, std::nullopt, files};
    if (files.size() == 1)
        copy.picture = m_history.pictures().read(files.first());
    if (!copy.picture.isEmpty())
        copy.offer = Copy::Offer::Picture;
    return copy;
}

bool ClipPaster::replaceBy(const Copy &copy)
{
    const std::optional<PasteboardContents> present = m_ports.pasteboard.contents();
    if (!m_ports.pasteboard.write(copy))
        return false;
    if (present && isUnrecorded(*present) && !m_capture.isPictureAdded(*present))
        Q_EMIT unrecordedReplaced(present->media == PasteboardContents::Media::Picture);
    return true;
}

ClipPaster::Outcome ClipPaster::typeIntoTarget()
{
    const auto unable = [this] {
        return leaveToUser(tr("Quillmarsh is not able to type into %1. Paste it there yourself; "
                              "the middle mouse button does it, too."));
    };
    if (!m_hotKeyManager.canType())
        return unable();
    if (!m_ports.frontApplication.returnToTarget()) {
        tell(tr("The clip is on the clipboard"), tr("The previous window could not be activated."));
        return Outcome::Stranded;
    }
    const bool isSwop = m_swopState.performSwop();
    if (isSwop && m_isCopyUnknown)
        return leaveToUser(
            tr("What is selected in %1 cannot be copied safely. Paste the clip there "
               "yourself; the middle mouse button does it, too."));
    const KeySender::Outcome sent = isSwop && m_swopState.swopClipItem()
                                        ? m_hotKeyManager.pasteOverCopied()
                                        : m_hotKeyManager.paste();
    switch (sent) {
    case KeySender::Outcome::Sent:
        break;
    case KeySender::Outcome::NoKnownKeys:
        return leaveToUser(tr("No keys are known that paste into %1. Paste it there yourself; the "
                              "middle mouse button does it, too."));
    case KeySender::Outcome::KeysHeld:
        return leaveToUser(tr("A key was held down, so nothing was typed into %1. Paste it there "
                              "yourself; the middle mouse button does it, too."));
    case KeySender::Outcome::Failed:
        return unable();
    }
    return Outcome::Typed;
}

ClipPaster::Outcome ClipPaster::leaveToUser(const QString &reason)
{
    const std::optional<PasteboardContents> contents = m_ports.pasteboard.contents();
    if (contents && contents->text) {
        // The text of a picture says nothing where it is pasted, but its file can be opened by it.
        const bool isPicture = contents->offer == Copy::Offer::Picture;
        m_ports.pasteboard.markText(isPicture ? contents->fileNames.join(u'\n') : *contents->text);
    }
    const QString target = m_ports.frontApplication.applicationName();
    tell(tr("The clip is on the clipboard"),
         reason.arg(target.isEmpty() ? tr("this application") : target));
    return Outcome::Stranded;
}

void ClipPaster::completeSwop(const std::vector<Clip> &clips, Outcome outcome)
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
    m_ports.clock.wait(m_waits.exchange);
    for (const Clip &clip : clips)
        m_history.addToClipList(clip);
    addHeld(held);
    m_capture.passOverOwnWrites();
    m_putBack.begin(held);
    if (outcome != Outcome::Typed)
        m_putBack.finish();
}

void ClipPaster::addHeld(const SwopItem &held)
{
    if (!held.isTooLarge)
        m_history.addToClipList(held);
}

void ClipPaster::addReplacedSelections()
{
    for (const SwopItem &replaced : m_swopState.takeReplaced())
        addHeld(replaced);
}

void ClipPaster::swop()
{
    if (m_isPasting)
        return;
    const bool isTargetInFront = returnFromOwnWindow();
    // What was copied before the swop is no part of it.
    m_capture.readFromPasteboard();
    if (isTargetInFront) {
        m_swopState.begin(m_ports.frontApplication.applicationName());
        m_isCopyUnknown = m_hotKeyManager.copy() != KeySender::Outcome::Sent;
        m_ports.clock.wait(m_waits.copy);
        m_capture.readFromPasteboard();
    } else {
        m_isCopyUnknown = false;
        m_swopState.begin(QString());
    }
    m_window.showAtMouse();
}

/// The keystroke that copies would go to our own window otherwise. A swop that is chosen from there
/// ends like one whose window was closed. False when the target does not come to the front instead.
bool ClipPaster::returnFromOwnWindow()
{
    if (!m_window.isOursInFront())
        return true;
    m_window.hideApp();
    m_window.makeWhole();
    cancelSwop();
    return m_ports.frontApplication.returnToTarget();
}

void ClipPaster::cancelSwop()
{
    if (!m_swopState.performSwop() || m_isPasting)
        return;
    addReplacedSelections();
    if (m_swopState.swopClipItem())
        addHeld(*m_swopState.swopClipItem());
    performPaste(-1, std::nullopt);
}

void ClipPaster::finish()
{
    cancelSwop();
    m_putBack.finish();
}

void ClipPaster::tell(const QString &title, const QString &subtitle)
{
    if (m_settings.isNotificationsEnabled())
        m_ports.notifications.deliver(title, subtitle);
}

bool ClipPaster::setPasteboardString(const QString &text, const std::optional<QString> &rtf)
{
    return m_ports.pasteboard.write({text, rtf});
}

void ClipPaster::notifyFileNoLongerExists()
{
    m_ports.notifications.deliver(tr("File no longer exists"),
                                  tr("The file no longer exists at the copied location."));
}
