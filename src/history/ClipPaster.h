#pragma once

#include <QObject>
#include <QString>

#include <memory>
#include <optional>

class CaptureSettings;
class ClipHistory;
class ClipItem;
class ClipboardCapture;
class HistoryWindow;
class HotKeyManager;
struct Platform;
class SwopState;

/// Puts clips back: on the pasteboard and, with a keystroke, into the application that was in
/// front; and exchanges that application's selection for a clip (swop). Owned by the application
/// delegate. While a paste is under way capture is paused, so a swop's two writes are seen as one.
class ClipPaster : public QObject
{
    Q_OBJECT

public:
    /// Everything given must outlive the paster.
    ClipPaster(Platform &platform, CaptureSettings &settings, ClipHistory &history,
               ClipboardCapture &capture, SwopState &swopState, HotKeyManager &hotKeyManager,
               HistoryWindow &window);

    /// Pastes the clip at `row` of the history's current list; a row beyond it is ignored.
    /// `format` is "upper", "lower" or anything else for the text as it is; files ignore it. When
    /// the target does not come back nothing is typed: the clip stays on the pasteboard and the
    /// user is told. A negative row ends a swop without a paste and forgets what it holds.
    void performPaste(int row, const std::optional<QString> &format);

    /// Copies the front application's selection away and shows the history for the user's choice.
    void swop();

    /// The history window was closed without a choice: what a swop holds is added to the history,
    /// and the swop ends. Nothing happens outside a swop, or while a paste hides the window.
    void cancelSwop();

    /// Replaces the pasteboard's contents. False when the display did not confirm it.
    bool setPasteboardString(const QString &text, const std::optional<QString> &rtf);
    bool setPasteboardFile(const std::optional<QString> &text, const QString &filepath);

    void notifyFileNoLongerExists();

private:
    enum class Outcome {
        Finished, ///< Typed, or there was nothing to type.
        Stranded  ///< The target did not get the clip, so there is nothing to exchange.
    };

    Outcome pasteString(const ClipItem &item, const std::optional<QString> &format);
    Outcome pasteFile(const ClipItem &item);
    Outcome typeIntoTarget(bool isOnPasteboard);
    void completeSwop(const ClipItem &item, Outcome outcome);
    void addHeldSelection();

    Platform &m_platform;
    CaptureSettings &m_settings;
    ClipHistory &m_history;
    ClipboardCapture &m_capture;
    SwopState &m_swopState;
    HotKeyManager &m_hotKeyManager;
    HistoryWindow &m_window;
};
