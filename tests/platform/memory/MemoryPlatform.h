#pragma once

#include "platform/Platform.h"
#include "platform/memory/MemoryDesktopLists.h"
#include "platform/memory/MemoryHotKeys.h"
#include "platform/memory/MemoryPasteboard.h"
#include "platform/memory/MemorySettingsStore.h"

#include <QMap>
#include <QPointer>
#include <QSet>
#include <QTimeZone>
#include <QWindow>

#include <algorithm>
#include <utility>

/// A clock that stands still until it is told to move, and counts its waits instead of waiting.
class MemoryClock : public Clock
{
public:
    /// Moves the present forward.
    void advance(std::chrono::milliseconds duration) { m_now = m_now.addMSecs(duration.count()); }
    /// Runs during each wait(), as the other programs do.
    void setDuringWait(std::function<void()> task) { m_duringWait = std::move(task); }
    const QList<std::chrono::milliseconds> &waits() const { return m_waits; }

    // ^Clock
    QDateTime now() const override { return m_now; }
    void wait(std::chrono::milliseconds duration) override;

private:
    QDateTime m_now = QDateTime(QDate(2026, 1, 2), QTime(3, 4, 5), QTimeZone::utc());
    QList<std::chrono::milliseconds> m_waits;
    std::function<void()> m_duringWait;
};

/// Keeps the virtual keys sent, and runs a reaction to each, as the application in front would.
class MemoryKeySender : public KeySender
{
public:
    void setAvailable(bool isAvailable) { m_isAvailable = isAvailable; }
    void setReaction(std::function<void(quint32)> reaction) { m_reaction = std::move(reaction); }
    /// What becomes of the command instead of being sent.
    void refuse(quint32 keyCode, Outcome outcome) { m_refused.insert(keyCode, outcome); }
    const QList<quint32> &sent() const { return m_sent; }
    /// The last paste was not taken over in time.
    void giveUp() const { m_givenUp(); }
    /// How many of those sent were to paste over what had been copied.
    int sentOverCopied() const { return m_sentOverCopied; }

    // ^KeySender
    bool isAvailable() const override { return m_isAvailable; }
    bool isKeyHeld() const override { return false; }
    Outcome sendCommand(quint32 keyCode) override;
    Outcome sendPasteOverCopied() override;
    void setGivenUp(std::function<void()> givenUp) override { m_givenUp = std::move(givenUp); }
    void keepTypedAhead(QWindow *) override {}

private:
    bool m_isAvailable = true;
    QMap<quint32, Outcome> m_refused;
    QList<quint32> m_sent;
    int m_sentOverCopied = 0;
    std::function<void(quint32)> m_reaction;
    std::function<void()> m_givenUp;
};

/// Asked for nothing unless it is told otherwise.
class MemoryConsent : public Consent
{
    Q_OBJECT

public:
    using Consent::Consent;

    void setState(State state);
    int timesAsked() const { return m_timesAsked; }

    // ^Consent
    State state() const override { return m_state; }
    void ask() override { ++m_timesAsked; }

private:
    State m_state = State::NotNeeded;
    int m_timesAsked = 0;
};

class MemoryFrontApplication : public FrontApplication
{
    Q_OBJECT

public:
    using FrontApplication::FrontApplication;

    void setApplicationName(const QString &name) { m_name = name; }
    /// Whether returnToTarget() will find its way back.
    void setReturns(bool returns) { m_returns = returns; }
    QWindow *ownTarget() const { return m_ownTarget; }
    QWindow *activatedWindow() const { return m_activated; }
    /// Whether our windows are in front, whatever the toolkit says.
    void setInFront(bool isInFront) { m_isInFront = isInFront; }

    // ^FrontApplication
    QString applicationName() const override { return m_name; }
    void setOwnTarget(QWindow *window) override { m_ownTarget = window; }
    bool returnToTarget(std::chrono::milliseconds) override { return m_returns; }
    void activate(QWindow *window) override;
    bool isInFront(const QWindow &window) const override
    {
        return m_isInFront.value_or(window.isActive());
    }
    void endStartup(const QString &) override {}

private:
    QString m_name;
    std::optional<bool> m_isInFront; ///< What Qt says, unless it was set.
    bool m_returns = true;
    QPointer<QWindow> m_ownTarget;
    QPointer<QWindow> m_activated;
};

class MemoryAppearance : public Appearance
{
    Q_OBJECT

public:
    using Appearance::Appearance;

    void setColorScheme(ColorScheme colorScheme);
    void setAccentColor(const std::optional<QColor> &color);

    // ^Appearance
    ColorScheme colorScheme() const override { return m_colorScheme; }
    std::optional<QColor> accentColor() const override { return m_accentColor; }

private:
    ColorScheme m_colorScheme = ColorScheme::Unspecified;
    std::optional<QColor> m_accentColor;
};

class MemoryNotifications : public Notifications
{
public:
    /// Title and subtitle of each, oldest first.
    const QList<std::pair<QString, QString>> &delivered() const { return m_delivered; }
    /// Clicks the latest one; nothing happens when it cannot be clicked.
    void click() const
    {
        if (m_activated)
            m_activated();
    }

    // ^Notifications
    using Notifications::deliver;
    void deliver(const QString &title, const QString &subtitle,
                 const std::function<void()> &activated) override
    {
        m_delivered.append({title, subtitle});
        m_activated = activated;
    }

private:
    QList<std::pair<QString, QString>> m_delivered;
    std::function<void()> m_activated;
};

class MemoryWorkspace : public Workspace
{
public:
    /// Only files added here exist.
    void addFile(const QString &path) { m_files.insert(path); }
    void removeFile(const QString &path) { m_files.remove(path); }
    const QStringList &opened() const { return m_opened; }
    const QList<std::pair<QString, QString>> &selected() const { return m_selected; }

    // ^Workspace
    bool fileExists(const QString &path) override { return m_files.contains(path); }
    void askFileExists(const QString &path, QObject *context,
                       std::function<void(bool)> answer) override;
    bool openFile(const QString &path) override;
    bool openUrl(const QUrl &url) override;
    void selectFile(const QString &path, const QString &folder) override
    {
        m_selected.append({path, folder});
    }
    QIcon iconForFile(const QString &) override { return {}; }

private:
    QSet<QString> m_files;
    QStringList m_opened;
    QList<std::pair<QString, QString>> m_selected;
};

class MemoryWindowSpace : public WindowSpace
{
    Q_OBJECT

public:
    using WindowSpace::WindowSpace;

    /// Overrides the visible frame of every screen.
    void setVisibleFrame(const QRect &frame) { m_visibleFrame = frame; }
    void setCompositing(bool isCompositing);
    void setAnimationsEnabled(bool areEnabled) { m_areAnimationsEnabled = areEnabled; }
    /// Every window that comes up takes the keyboard, or none of them.
    void setCanShowWithoutKeyboard(bool can) { m_canShowWithoutKeyboard = can; }
    bool sharesKeyboard() const { return m_sharesKeyboard; }

    // ^WindowSpace
    std::optional<QPoint> pointerPosition() const override { return QPoint(1, 1); }
    QRect visibleFrame(const QScreen &screen) const override;
    bool isCompositing() const override { return m_isCompositing; }
    bool areAnimationsEnabled() const override { return m_areAnimationsEnabled; }
    void prepareUtilityWindow(QWindow *) override {}
    QRect placeUtilityWindow(QWindow *window, const QSize &size, const QMargins &shadow) override;
    void setSharesKeyboard(QWindow *, bool shares) override { m_sharesKeyboard = shares; }
    bool canShowWithoutKeyboard() const override { return m_canShowWithoutKeyboard; }
    bool prepareFixedWindow(QWindow *) override { return true; }

private:
    std::optional<QRect> m_visibleFrame;
    bool m_isCompositing = true;
    bool m_areAnimationsEnabled = true;
    bool m_canShowWithoutKeyboard = true;
    bool m_sharesKeyboard = false;
};

/// A US keyboard unless names are set.
class MemoryKeyboardLayout : public KeyboardLayout
{
    Q_OBJECT

public:
    using KeyboardLayout::KeyboardLayout;

    /// What a key gives from now on, with and without modifiers; emits changed().
    void setName(quint32 keyCode, const QString &name);

    // ^KeyboardLayout
    QString asciiCapableName(quint32 keyCode) const override;
    QString characters(quint32 keyCode, quint32 carbonModifiers) const override;

private:
    QMap<quint32, QString> m_names;
};

class MemoryStatusBar : public StatusBar
{
    Q_OBJECT

public:
    using StatusBar::StatusBar;

    QMenu *menu() const { return m_menu; }
    QString toolTip() const { return m_toolTip; }

    // ^StatusBar
    void showItem(const QIcon &icon, const QString &toolTip, QMenu *menu) override;
    bool isItemVisible() const override { return m_menu != nullptr; }

private:
    QMenu *m_menu = nullptr;
    QString m_toolTip;
};

class MemoryApplicationNames : public ApplicationNames
{
public:
    // ^ApplicationNames
    ApplicationIdentity identify(const WindowIdentity &window) const override
    {
        return {window.resourceClass, false};
    }
};

class MemoryRunningApplications : public RunningApplications
{
public:
    void setBundlePaths(const QStringList &paths) { m_paths = paths; }

    // ^RunningApplications
    QStringList bundlePaths(const QString &) const override { return m_paths; }
    QStringList programsBelow(const QString &folder) const override
    {
        QStringList paths;
        for (const QString &path : m_paths) {
            if (path.startsWith(folder + u'/'))
                paths.append(path + QStringLiteral("/bin/quillmarsh"));
        }
        return paths;
    }

private:
    QStringList m_paths;
};

/// A whole platform of fakes. The references stay valid while `platform` lives.
struct MemoryPlatform
{
    MemoryPlatform();

    Platform platform;
    MemoryClock &clock;
    MemorySettingsStore &settings;
    MemoryConsent &consent;
    MemoryAppearance &appearance;
    MemoryInstalledApplications &installedApplications;
    MemoryLoginItems &loginItems;
    MemoryRunningApplications &runningApplications;
    MemoryNotifications &notifications;
    MemoryWorkspace &workspace;
    MemoryWindowSpace &windowSpace;
    MemoryKeyboardLayout &keyboardLayout;
    MemoryHotKeys &hotKeys;
    MemorySymbolicHotKeys &symbolicHotKeys;
    MemoryFrontApplication &frontApplication;
    MemoryPasteboard &pasteboard;
    MemoryKeySender &keySender;
    MemoryStatusBar &statusBar;
};
