#pragma once

#include "history/CaptureSettings.h"
#include "history/ClipHistory.h"
#include "history/ClipItem.h"
#include "history/ClipPaster.h"
#include "history/ClipboardCapture.h"
#include "history/HistoryWindow.h"
#include "history/HotKeyManager.h"
#include "history/SwopState.h"
#include "platform/memory/MemoryPlatform.h"

#include <QDir>
#include <QStringList>
#include <QTemporaryDir>

#include <SQLiteCpp/SQLiteCpp.h>

#include <ostream>

inline std::ostream &operator<<(std::ostream &out, const QStringList &list)
{
    return out << list.join(QStringLiteral(" | ")).toStdString();
}

/// Of one-word clips.
inline QStringList list(const char *words)
{
    return QString::fromUtf8(words).split(u' ', Qt::SkipEmptyParts);
}

class TestSettings : public CaptureSettings
{
public:
    qint64 maxItems = 1000;
    qint64 maxStringSize = 10000;
    qint64 maxPictureSize = 0;
    bool areNotificationsEnabled = true;
    QStringList ignored;
    bool mayRecord = true;

    // ^CaptureSettings
    qint64 getMaxItems() const override { return maxItems; }
    qint64 getMaxStringSize() const override { return maxStringSize; }
    qint64 getMaxPictureSize() const override { return maxPictureSize; }
    bool isNotificationsEnabled() const override { return areNotificationsEnabled; }
    QStringList ignoredNames() const override { return ignored; }
    bool isRecordingAllowed() const override { return mayRecord; }
};

/// A store folder that outlives the histories opened in it.
class StoreFolder
{
public:
    QString path() const { return m_directory.filePath(QStringLiteral("store")); }
    QString file(const char *suffix = "") const
    {
        return path() + QStringLiteral("/Quillmarsh.sqlite") + QLatin1String(suffix);
    }
    /// As another program opens it.
    SQLite::Database database() const
    {
        QDir().mkpath(path());
        return SQLite::Database(file().toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE,
                                1000);
    }

private:
    QTemporaryDir m_directory;
};

/// A history with the clock and the settings of a test.
class HistoryRig
{
public:
    explicit HistoryRig(const QString &folder) : history(folder, platform.clock, settings)
    {
        history.loadClipItems();
    }

    void add(const QString &text, const std::optional<QString> &filepath = {})
    {
        platform.clock.advance(std::chrono::seconds(1));
        history.addToClipList({text, std::nullopt, QStringLiteral("Editor"), filepath});
    }
    void fill(const char *texts)
    {
        for (const QString &text : list(texts))
            add(text);
    }
    QStringList texts() const { return textsOf(history.clipItemArr()); }
    std::shared_ptr<ClipItem> at(std::size_t row) const { return history.clipItemArr().at(row); }

    static QStringList textsOf(const ClipHistory::Items &items)
    {
        QStringList texts;
        for (const auto &item : items)
            texts.append(item->strValue().value_or(QStringLiteral("<none>")));
        return texts;
    }

    MemoryPlatform platform;
    TestSettings settings;
    ClipHistory history;
};

/// Remembers what was asked of the window.
class TestWindow : public HistoryWindow
{
public:
    std::function<void()> whenHidden = [] {};
    std::function<void()> whenMadeWhole = [] {};
    bool isShown = true;
    bool isInFront = false; ///< Until it is hidden.

    // ^HistoryWindow
    bool isOursInFront() const override { return isInFront; }
    void hideApp() override
    {
        isShown = false;
        isInFront = false;
        whenHidden();
    }
    void makeWhole() override { whenMadeWhole(); }
    void showAtMouse() override { isShown = true; }
};

/// A history with everything around it: what is copied outside ends up in it.
class PasteRig : public HistoryRig
{
public:
    explicit PasteRig(const QString &folder)
        : HistoryRig(folder), hotKeyManager(platform.keySender),
          capture(platform.pasteboard, platform.frontApplication, history, platform.notifications,
                  settings, swopState),
          paster({platform.pasteboard, platform.frontApplication, platform.workspace,
                  platform.notifications, platform.clock},
                 settings, history, capture, swopState, hotKeyManager, window, waits)
    {
        capture.begin();
    }

    void copy(const QString &text, const QString &applicationName = QStringLiteral("Editor"))
    {
        platform.clock.advance(std::chrono::seconds(1));
        platform.pasteboard.copyFromOutside({{text}, applicationName});
    }

    /// A target that has to be waited for is given up, or has read what it asked for, at once.
    ClipPaster::Waits waits{std::chrono::milliseconds(100), std::chrono::milliseconds(400),
                            std::chrono::milliseconds(1), std::chrono::milliseconds(1)};
    SwopState swopState;
    TestWindow window;
    HotKeyManager hotKeyManager;
    ClipboardCapture capture;
    ClipPaster paster;
};
