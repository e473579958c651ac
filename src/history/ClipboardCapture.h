#pragma once

#include <QObject>
#include <QString>

#include <optional>

class CaptureSettings;
class ClipHistory;
class FrontApplication;
class Notifications;
class Pasteboard;
class SwopState;
struct PasteboardContents;
struct PictureFile;

/// Turns pasteboard changes into clips. The application delegate owns it and calls timeout() once
/// a second; the pasteboard's own change signal runs the same step at once. Each change of another
/// client is examined exactly once and in order, whether it is recorded, ignored or refused; of
/// our own writes the latest. Every examined change is acknowledged or discarded, so that the
/// pasteboard forgets what was ignored.
class ClipboardCapture : public QObject
{
    Q_OBJECT

public:
    ClipboardCapture(Pasteboard &pasteboard, const FrontApplication &frontApplication,
                     ClipHistory &history, Notifications &notifications, CaptureSettings &settings,
                     SwopState &swopState);

    /// From now on changes are examined, what the pasteboard holds already first of all. Before,
    /// the limits may not be known.
    void begin();

    /// Both run the capture step; nothing happens before begin() and while paused.
    void timeout() { readFromPasteboard(); }
    void readFromPasteboard();

    /// The change count already handled; 0 at first, so that the first step examines what the
    /// pasteboard held before we started.
    qint64 previousChangeCount() const { return m_previousChangeCount; }

    /// Tells the pasteboard how large a text or picture is of use, so that it reads the next copy
    /// by it. To be called when a limit has changed or a swop has begun or ended; each step does it
    /// as well.
    void tellLargestUseful();

    /// What we have written until now is in the history already, or must not come into it.
    void passOverOwnWrites();

    /// Whether the picture is in the history, or soon will be.
    bool isPictureAdded(const PasteboardContents &contents) const;

    /// A paste is under way: changes wait, because it must not see its own writes halfway. What it
    /// wrote counts as copied in the application that is in front when the pause ends.
    void setPaused(bool isPaused);

Q_SIGNALS:
    /// A copy was not recorded because its text, or its picture, is larger than `limit` bytes;
    /// `bytes` is absent when it was not even read.
    void refused(std::optional<qint64> bytes, qint64 limit);
    /// The user wants to change the limit after a copy was refused.
    void limitAsked();
    /// The same of a picture's limit.
    void pictureLimitAsked();

private:
    void nameApplication(PasteboardContents &contents) const;
    void examine(const PasteboardContents &contents);
    bool isIgnored(const PasteboardContents &contents) const;
    void record(const PasteboardContents &contents);
    void recordPicture(const PasteboardContents &contents);
    void refusePicture(const PictureFile &file);
    void refuse(const PasteboardContents &contents);
    bool isTooLarge(const PasteboardContents &contents) const;

    Pasteboard &m_pasteboard;
    const FrontApplication &m_frontApplication;
    ClipHistory &m_history;
    Notifications &m_notifications;
    CaptureSettings &m_settings;
    SwopState &m_swopState;
    qint64 m_previousChangeCount = 0;
    qint64 m_maxTextSet = -1; ///< Bytes; -1 before the pasteboard was told any.
    qint64 m_maxPictureSet = 0;
    qint64 m_pictureAdded = -1; ///< Change count of the picture that was added last.
    bool m_hasBegun = false;
    bool m_isPaused = false;
    qint64 m_pauseBegan = 0; ///< Change count, as the two below.
    qint64 m_pauseEnded = 0;
    qint64 m_passedOver = 0;
    QString m_applicationAfterPause; ///< Empty before the first pause.
};
