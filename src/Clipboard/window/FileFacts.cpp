#include "Clipboard/window/FileFacts.h"

#include <QFileInfo>
#include <QFutureWatcher>
#include <QMimeDatabase>
#include <QPromise>

#include <atomic>
#include <memory>
#include <system_error>
#include <thread>

namespace {

constexpr int kMostReaders = 8;

std::atomic<int> g_readers = 0;

} // namespace

std::optional<FileFacts> FileFacts::read(const QString &path)
{
    const QFileInfo file(path);
    if (!file.exists() && !file.isSymLink())
        return std::nullopt;
    const QMimeType type = QMimeDatabase().mimeTypeForFile(file);
    FileFacts facts;
    facts.kind = type.comment();
    facts.iconName = type.iconName();
    facts.genericIconName = type.genericIconName();
    facts.isFolder = file.isDir();
    if (file.isFile())
        facts.size = file.size();
    facts.modified = file.lastModified();
    facts.linkTarget = file.symLinkTarget();
    return facts;
}

void FileFacts::ask(const QString &path, QObject *context,
                    std::function<void(const std::optional<FileFacts> &)> receive)
{
    using Answer = std::optional<FileFacts>;
    if (g_readers >= kMostReaders)
        return;
    auto promise = std::make_shared<QPromise<Answer>>();
    promise->start();
    auto *watcher = new QFutureWatcher<Answer>(context);
    QObject::connect(watcher, &QFutureWatcherBase::finished, watcher,
                     [watcher, receive = std::move(receive)] {
                         watcher->deleteLater();
                         receive(watcher->result());
                     });
    watcher->setFuture(promise->future());
    ++g_readers;
    try {
        std::thread([promise, path] {
            promise->addResult(read(path));
            promise->finish();
            --g_readers;
        }).detach();
    } catch (const std::system_error &) {
        --g_readers;
        watcher->deleteLater();
    }
}
