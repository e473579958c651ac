#include "history/ClipboardCapture.h"

#include "history/CaptureSettings.h"
#include "history/ClipHistory.h"
#include "history/HistoryLog.h"
#include "history/SwopState.h"
#include "platform/FrontApplication.h"
#include "platform/Notifications.h"
#include "platform/Pasteboard.h"

#include <algorithm>

namespace {

const QString kPasswordManager = QStringLiteral("1Password");

} // namespace

ClipboardCapture::ClipboardCapture(Pasteboard &pasteboard, const FrontApplication &frontApplication,
                                   ClipHistory &history, Notifications &notifications,
                                   CaptureSettings &settings, SwopState &swopState)
    : m_pasteboard(pasteboard), m_frontApplication(frontApplication), m_history(history),
      m_notifications(notifications), m_settings(settings), m_swopState(swopState)
{
    connect(&m_pasteboard, &Pasteboard::changed, this, &ClipboardCapture::readFromPasteboard);
}

void ClipboardCapture::timeout()
{
    readFromPasteboard();
}

void ClipboardCapture::readFromPasteboard()
{
    if (m_isPaused)
        return;
    tellLargestUsefulText();
    // Read before the changes, so that one published in between is still due at the next step.
    const qint64 changeCount = m_pasteboard.changeCount();
    if (changeCount == m_previousChangeCount)
        return;
    const QList<PasteboardContents> changes = m_pasteboard.changesAfter(m_previousChangeCount);
    m_previousChangeCount = changeCount;
    for (PasteboardContents contents : changes) {
        // Written while our own window was still going away.
        if (contents.isOwnWrite)
            contents.applicationName = m_applicationAfterPause;
        m_previousChangeCount = std::max(m_previousChangeCount, contents.changeCount);
        examine(contents);
    }
}

void ClipboardCapture::setPaused(bool isPaused)
{
    // Not at the next step, because our own window may be in front again by then.
    if (m_isPaused && !isPaused)
        m_applicationAfterPause = m_frontApplication.applicationName();
    m_isPaused = isPaused;
}

void ClipboardCapture::tellLargestUsefulText()
{
    const qint64 bytes = std::max<qint64>(m_settings.getMaxStringSize(), 0);
    if (bytes == m_toldLargestText)
        return;
    m_toldLargestText = bytes;
    m_pasteboard.setLargestUsefulText(bytes);
}

void ClipboardCapture::examine(const PasteboardContents &contents)
{
    if (isIgnored(contents)) {
        qCInfo(lcHistory).noquote()
            << QStringLiteral("ignoring copy from %1").arg(contents.applicationName);
        // What a paste has just offered stays on offer: the application it is meant for may be
        // the ignored one.
        m_pasteboard.judge(contents.changeCount, contents.isOwnWrite
                                                     ? Pasteboard::Judgement::Keep
                                                     : Pasteboard::Judgement::Discard);
        return;
    }
    m_pasteboard.judge(contents.changeCount, Pasteboard::Judgement::Keep);
    record(contents);
}

bool ClipboardCapture::isIgnored(const PasteboardContents &contents) const
{
    if (contents.isConcealed || !m_settings.isRecordingAllowed())
        return true;
    const QString &appName = contents.applicationName;
    const QStringList names = m_settings.ignoredNames();
    return std::any_of(names.begin(), names.end(), [&](const QString &name) {
        // Any edition of that password manager stands for all of them.
        if (name.startsWith(kPasswordManager))
            return appName.startsWith(kPasswordManager);
        return appName == name;
    });
}

void ClipboardCapture::record(const PasteboardContents &contents)
{
    if (isTooLarge(contents)) {
        if (m_settings.isNotificationsEnabled())
            m_notifications.deliver(tr("The copied text was not recorded"),
                                    tr("The text is too large."));
        return;
    }
    if (!contents.text)
        return;
    const std::optional<QString> filepath =
        contents.fileNames.isEmpty() ? std::nullopt : std::optional(contents.fileNames.first());
    if (m_swopState.performSwop)
        m_swopState.swopClipItem =
            SwopItem{contents.text, contents.rtf, contents.applicationName, filepath};
    else
        m_history.addToClipList(contents.text, contents.rtf, contents.applicationName, filepath);
}

bool ClipboardCapture::isTooLarge(const PasteboardContents &contents) const
{
    if (contents.isTextTooLarge)
        return true;
    return contents.text && contents.text->toUtf8().size() > m_settings.getMaxStringSize();
}
