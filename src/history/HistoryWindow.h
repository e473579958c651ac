#pragma once

/// What a paste wants of the window that shows the history. Implemented above this room; nothing
/// here blocks.
class HistoryWindow
{
public:
    HistoryWindow() = default;
    HistoryWindow(const HistoryWindow &) = delete;
    HistoryWindow &operator=(const HistoryWindow &) = delete;
    virtual ~HistoryWindow() = default;

    /// Whether a window of the application has the keyboard.
    virtual bool isOursInFront() const = 0;

    /// Hides every window of the application, so that the previous application comes back. Nobody
    /// has closed the history: what it lists and shows stays until makeWhole().
    virtual void hideApp() = 0;

    /// Ends the search and the selection of a history that hideApp() has hidden. By itself, because
    /// no keystroke is to wait for it.
    virtual void makeWhole() = 0;

    /// Shows the history window on the pointer's screen and activates it.
    virtual void showAtMouse() = 0;
};
