#include "platform/freedesktop/DataFolders.h"

#include <QFile>
#include <QLoggingCategory>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

#include <dirent.h>
#include <sys/stat.h>

namespace {

Q_LOGGING_CATEGORY(lcDataFolders, "quillmarsh.platform.datafolders")

constexpr const char *kDataDirs = "XDG_DATA_DIRS";

struct Answers
{
    std::mutex mutex;
    std::condition_variable isAnswered;
    std::vector<bool> hasAnswered;
    size_t outstanding = 0;
};

/// Asks what the toolkit will ask; what the answer is does not matter.
void ask(const QByteArray &folder)
{
    // The kernel may remember that a folder exists; its first name it has to ask for.
    if (DIR *stream = ::opendir(folder.constData())) {
        ::readdir(stream);
        ::closedir(stream);
    }
    struct stat ignored = {};
    for (const char *part : {"/icons", "/mime"})
        ::stat((folder + part).constData(), &ignored);
}

} // namespace

QStringList DataFolders::hung(const QStringList &folders)
{
    const auto answers = std::make_shared<Answers>();
    answers->hasAnswered.resize(static_cast<size_t>(folders.size()));
    std::unique_lock lock(answers->mutex);
    for (qsizetype number = 0; number < folders.size(); ++number) {
        const auto place = static_cast<size_t>(number);
        const QByteArray folder = QFile::encodeName(folders[number]);
        try {
            std::thread([answers, place, folder] {
                ask(folder);
                const std::lock_guard guard(answers->mutex);
                answers->hasAnswered[place] = true;
                --answers->outstanding;
                answers->isAnswered.notify_all();
            }).detach();
            ++answers->outstanding;
        } catch (const std::system_error &) {
            answers->hasAnswered[place] = true; // Nobody could be sent to ask.
        }
    }
    answers->isAnswered.wait_for(lock, kLimit, [&] { return answers->outstanding == 0; });
    QStringList hung;
    for (qsizetype number = 0; number < folders.size(); ++number) {
        if (!answers->hasAnswered[static_cast<size_t>(number)])
            hung.append(folders[number]);
    }
    return hung;
}

void DataFolders::leaveOutHung()
{
    QStringList folders = QFile::decodeName(qgetenv(kDataDirs)).split(u':', Qt::SkipEmptyParts);
    const QStringList silent = hung(folders);
    if (silent.isEmpty())
        return;
    for (const QString &folder : silent) {
        qCWarning(lcDataFolders, "%s does not answer: icons and kinds of files in it are left out",
                  qUtf8Printable(folder));
        folders.removeAll(folder);
    }
    // An empty list would stand for the usual folders, which may be among those that hang.
    qputenv(kDataDirs,
            folders.isEmpty() ? QByteArray("/nonexistent") : QFile::encodeName(folders.join(u':')));
}
