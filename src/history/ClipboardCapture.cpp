#include "history/ClipboardCapture.h"

#include "history/CaptureSettings.h"
#include "history/ClipHistory.h"
#include "history/HistoryLog.h"
#include "history/PictureFile.h"
#include "history/SwopState.h"
#include "platform/FrontApplication.h"
#include "platform/Notifications.h"
#include "platform/Pasteboard.h"

#include <QPointer>

#include <algorithm>
#include <limits>

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
    connect(&m_history, &ClipHistory::pictureRefused, this, &ClipboardCapture::refusePicture);
}

void ClipboardCapture::begin()
{
    m_hasBegun = true;
    readFromPasteboard();
}

void ClipboardCapture::readFromPasteboard()
{
    if (!m_hasBegun || m_isPaused)
        return;
    tellLargestUseful();
    // Read before the changes, so that one published in between is still due at the next step.
    const qint64 changeCount = m_pasteboard.changeCount();
    if (changeCount == m_previousChangeCount)
        return;
    const QList<PasteboardContents> changes = m_pasteboard.changesAfter(m_previousChangeCount);
    m_previousChangeCount = changeCount;
    for (PasteboardContents contents : changes) {
        nameApplication(contents);
        m_previousChangeCount = std::max(m_previousChangeCount, contents.changeCount);
        examine(contents);
    }
}

void ClipboardCapture::setPaused(bool isPaused)
{
    if (m_isPaused == isPaused)
        return;
    m_isPaused = isPaused;
    if (isPaused) {
        m_pauseBegan = m_pasteboard.changeCount();
        return;
    }
    m_pauseEnded = m_pasteboard.changeCount();
    // Not at the next step, because our own window may be in front again by then.
    m_applicationAfterPause = m_frontApplication.applicationName();
}

void ClipboardCapture::passOverOwnWrites()
{
    m_passedOver = m_pasteboard.changeCount();
}

void ClipboardCapture::tellLargestUseful()
{
    if (const qint64 picture = std::max<qint64>(m_settings.getMaxPictureSize(), 0);
        picture != m_maxPictureSet) {
        m_maxPictureSet = picture;
        m_pasteboard.setLargestUsefulPicture(picture);
    }
    // A swop holds its selection however large it is.
    const qint64 bytes = m_swopState.performSwop()
                             ? std::numeric_limits<qint64>::max()
                             : std::max<qint64>(m_settings.getMaxStringSize(), 0);
    if (bytes == m_maxTextSet)
        return;
    m_maxTextSet = bytes;
    m_pasteboard.setLargestUsefulText(bytes);
}

void ClipboardCapture::nameApplication(PasteboardContents &contents) const
{
    if (!contents.isOwnWrite) {
        // A slow application answers a swop once our own window is in front.
        if (contents.isOursInFront && m_swopState.performSwop() &&
            !m_swopState.targetName().isEmpty())
            contents.applicationName = m_swopState.targetName();
        return;
    }
    // Written while our own window was still going away.
    if (contents.changeCount > m_pauseBegan && contents.changeCount <= m_pauseEnded)
        contents.applicationName = m_applicationAfterPause;
}

void ClipboardCapture::examine(const PasteboardContents &contents)
{
    if (isIgnored(contents)) {
        qCInfo(lcHistory).noquote()
            << QStringLiteral("ignoring copy from %1").arg(contents.applicationName);
        // What a paste has just offered stays on offer: the application it is meant for may be
        // the ignored one.
        if (contents.isOwnWrite)
            m_pasteboard.acknowledge(contents.changeCount);
        else
            m_pasteboard.discard(contents.changeCount);
        return;
    }
    m_pasteboard.acknowledge(contents.changeCount);
    if (!contents.isOwnWrite || contents.changeCount > m_passedOver)
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
    const bool isRefused = isTooLarge(contents);
    if (isRefused)
        refuse(contents);
    if (ClipHistory::isNilOrEmpty(contents.text) && !contents.isOwnWrite)
        recordPicture(contents);
    if (!contents.text)
        return;
    const Clip clip(contents, contents.applicationName);
    if (m_swopState.performSwop() && !contents.isOwnWrite)
        m_swopState.hold({clip, isRefused});
    else if (!isRefused)
        m_history.addToClipList(clip);
}

/// A copy of nothing but a picture. During a swop, too: what a swop exchanges is text.
void ClipboardCapture::recordPicture(const PasteboardContents &contents)
{
    // Read when it was wanted, which may have ended since.
    if (m_settings.getMaxPictureSize() <= 0)
        return;
    if (contents.isPictureTooLarge)
        refusePicture({PictureFile::Fault::TooLarge});
    if (contents.picture.isEmpty())
        return;
    m_pictureAdded = contents.changeCount;
    m_history.addPicture(Clip(contents, contents.applicationName));
}

bool ClipboardCapture::isPictureAdded(const PasteboardContents &contents) const
{
    return contents.changeCount == m_pictureAdded;
}

void ClipboardCapture::refusePicture(const PictureFile &file)
{
    m_pictureAdded = -1;
    if (file.fault != PictureFile::Fault::TooLarge)
        return;
    if (m_settings.isNotificationsEnabled())
        m_notifications.deliver(tr("The copied picture was not kept"),
                                tr("The picture is too large."), [self = QPointer(this)] {
                                    if (self)
                                        Q_EMIT self->pictureLimitAsked();
                                });
    Q_EMIT refused(file.bytes, m_settings.getMaxPictureSize());
}

void ClipboardCapture::refuse(const PasteboardContents &contents)
{
    if (m_settings.isNotificationsEnabled())
        m_notifications.deliver(tr("The copied text was not recorded"),
                                tr("The text is too large."), [self = QPointer(this)] {
                                    if (self)
                                        Q_EMIT self->limitAsked();
                                });
    Q_EMIT refused(contents.text ? contents.text->toUtf8().size() : contents.tooLargeBytes,
                   m_settings.getMaxStringSize());
}

bool ClipboardCapture::isTooLarge(const PasteboardContents &contents) const
{
    // The limit is for what others copy: what we write comes from the history.
    if (contents.isOwnWrite)
        return false;
    if (contents.isTextTooLarge)
        return true;
    return contents.text && contents.text->toUtf8().size() > m_settings.getMaxStringSize();
}
