#pragma once

#include "platform/Info.h"
#include "updates/HttpsExchange.h"
#include "updates/updater/Installation.h"
#include "updates/updater/UpdateDownload.h"
#include "updates/updater/UpdateItem.h"
#include "updates/updater/UpdateLock.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QThread>

#include <atomic>
#include <memory>
#include <optional>
#include <variant>

class RunningApplications;

/// One run of an update, from the feed to the installation, without windows: each step is asked for
/// and answers with one signal. Owned by the updater, which has at most one; main thread.
/// Destroying it cancels what is under way, and waits for an installation.
class UpdateRun : public QObject
{
    Q_OBJECT

public:
    struct Setup
    {
        Info info; ///< Of the program that is installed; with a feed address and key.
        Installation installation;                    ///< One that can be replaced.
        const RunningApplications *running = nullptr; ///< Outlives the run.
        QString downloadFolder;
        bool withBeta = false;
        bool withTest = false;
    };

    explicit UpdateRun(Setup setup);
    ~UpdateRun() override;

    /// Ends the run, and deletes it once nothing of it is at work any more. It has one thing left
    /// to say: installed(), when it was too late to end it.
    void retire();

    /// Reads the feed; answers with found(), foundNothing(), foundForNewerSystem() or failed().
    void check();
    /// Fetches what was found; answers with downloaded() or failed().
    void download();
    /// Installs what was downloaded; answers with installed() or failed().
    void install();

    /// What was found.
    const UpdateItem &item() const { return m_item; }
    const Installation &installation() const { return m_setup.installation; }

Q_SIGNALS:
    void found();
    void foundNothing();
    /// All that is newer is for a newer system; the newest such is called `version`.
    void foundForNewerSystem(const QString &version);
    /// Of the download, in bytes.
    void progressed(qint64 done, qint64 size);
    void downloaded();
    void installed();
    /// `reason` is a sentence for the user.
    void failed(const QString &reason);

private:
    void readFeed(const QByteArray &xml);
    void choose(const QList<UpdateItem> &items);
    void installationEnded();

    const Setup m_setup;
    const QByteArray m_publicKey;
    HttpsExchange m_feed;
    QByteArray m_feedBytes;
    UpdateItem m_item;
    UpdateLock m_lock;
    std::unique_ptr<UpdateDownload> m_download;
    std::atomic<bool> m_isCancelled = false;
    bool m_isInstalling = false;
    /// Both written by the thread, read once it has ended.
    std::variant<QList<UpdateItem>, QString> m_offered;
    std::optional<QString> m_problem;
    std::unique_ptr<QThread> m_thread;
};
