#pragma once

#include "history/PutBack.h"
#include "history/SwopItem.h"
#include "platform/Pasteboard.h"

#include <QObject>
#include <QString>

#include <chrono>
#include <memory>
#include <optional>
#include <vector>

class CaptureSettings;
class ClipHistory;
class ClipItem;
class ClipboardCapture;
class HistoryWindow;
class HotKeyManager;
class Clock;
class FrontApplication;
class Notifications;
class SwopState;
class Workspace;

/// Puts clips back: on the pasteboard and, with a keystroke, into the application that was in
/// front; and exchanges that application's selection for a clip (swop). Owned by the application
/// delegate. While a paste is under way capture is paused, so that it is seen as a whole.
class ClipPaster : public QObject
{
    Q_OBJECT

public:
    /// How long other programs are given; tests shorten them.
    struct Waits
    {
        /// For the front application to answer the copy keystroke of a swop.
        std::chrono::milliseconds copy{100};
        /// For the target to read the pasted clip before the pasteboard changes again.
        std::chrono::milliseconds exchange{400};
        /// For a target that has not read it by then, counted from the end of the wait before.
        std::chrono::milliseconds patience{1600};
        /// From its first question on, because many ask for one format after the other.
        std::chrono::milliseconds reading{100};
    };

    /// What it wants of the desktop.
    struct Ports
    {
        Pasteboard &pasteboard;
        FrontApplication &frontApplication;
        Workspace &workspace;
        Notifications &notifications;
        Clock &clock;
    };

    /// Everything given must outlive the paster.
    ClipPaster(const Ports &ports, CaptureSettings &settings, ClipHistory &history,
               ClipboardCapture &capture, SwopState &swopState, HotKeyManager &hotKeyManager,
               HistoryWindow &window, const Waits &waits);

    /// Pastes the clip at `row` of the history's current list; a row beyond it is ignored.
    /// `format` is "upper", "lower", "plain" for the text without its formatting, or anything else
    /// for the clip as it is; files ignore it, but for "files", which means all that were copied
    /// with the first. When the target does not come back nothing is typed: the clip stays on the
    /// pasteboard and the user is told. So it is, as the primary selection too, where no keys are
    /// known to paste, or to copy what a swop is about. When the pasteboard cannot be written the
    /// user is told, and the window stays as it is, and so does a swop. A negative row ends a swop
    /// without a paste and forgets what it holds.
    ///
    /// The selection that a swop has replaced goes back on the pasteboard when the target has asked
    /// for the clip, at the latest a while later, and not at all if somebody copies meanwhile.
    void performPaste(int row, const std::optional<QString> &format);

    /// Pastes several clips as one, in their order: the files when all are copied files, else their
    /// texts, each a line of its own. Clips that were deleted meanwhile are ignored.
    void pasteItems(std::vector<std::shared_ptr<ClipItem>> items,
                    const std::optional<QString> &format);

    /// Puts the same on the pasteboard, and types nothing. False when it could not: its user knows.
    bool copyItems(std::vector<std::shared_ptr<ClipItem>> items);

    /// Puts the clip on the pasteboard for the user to paste it, which leaves its place in the
    /// history as it is. False when its file is gone or the pasteboard cannot be written.
    bool offer(const Clip &clip);

    /// Copies the front application's selection away and shows the history for the user's choice.
    /// A window of our own that is in front gives way to the target first.
    void swop();

    /// The history window was closed without a choice: what a swop holds is added to the history,
    /// and the swop ends. Nothing happens outside a swop, or during a paste.
    void cancelSwop();

    /// Ends what is still to come of a swop at once, because the application ends.
    void finish();

    /// Replaces the pasteboard's contents. False when the display did not confirm it.
    bool setPasteboardString(const QString &text, const std::optional<QString> &rtf);

    void notifyFileNoLongerExists();

Q_SIGNALS:
    /// A paste has taken the place of something that the history does not have, so that it stands
    /// nowhere now.
    void unrecordedReplaced(bool wasPicture);

private:
    enum class Outcome {
        Typed,
        NothingToType, ///< The clip's file is gone.
        NotWritten,    ///< The pasteboard has refused the clip, and the window is still there.
        Stranded       ///< The target did not get the clip, so there is nothing to exchange.
    };

    /// Writes the clip to be pasted.
    bool replaceBy(const Copy &copy);
    Copy copyOfFiles(const std::optional<QString> &text, const QStringList &files) const;
    Outcome pasteString(Copy copy, const std::optional<QString> &format);
    Outcome pasteFile(const Clip &clip);
    QStringList existing(const QStringList &fileNames);
    Outcome typeIntoTarget();
    /// Leaves the clip to the user, for whom nothing can be typed; `reason` names the target as %1.
    Outcome leaveToUser(const QString &reason);
    void completeSwop(const std::vector<Clip> &clips, Outcome outcome);
    void addHeld(const SwopItem &held);
    void addReplacedSelections();
    bool returnFromOwnWindow();
    void tell(const QString &title, const QString &subtitle);

    const Ports m_ports;
    CaptureSettings &m_settings;
    ClipHistory &m_history;
    ClipboardCapture &m_capture;
    SwopState &m_swopState;
    HotKeyManager &m_hotKeyManager;
    HistoryWindow &m_window;
    const Waits m_waits;
    bool m_isPasting = false;
    bool m_isCopyUnknown = false; ///< In the application whose selection the swop is about.
    PutBack m_putBack;
};
