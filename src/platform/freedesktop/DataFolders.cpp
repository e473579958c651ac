#include "platform/freedesktop/DataFolders.h"

#include "platform/FileQuestions.h"

#include <QFile>
#include <QLoggingCategory>

#include <vector>

#include <dirent.h>
#include <sys/stat.h>

namespace {

Q_LOGGING_CATEGORY(lcDataFolders, "quillmarsh.platform.datafolders")

constexpr const char *kDataDirs = "XDG_DATA_DIRS";

/// Asks what the toolkit will ask; what the answer is does not matter.
void lookInto(const QString &path)
{
    const QByteArray folder = QFile::encodeName(path);
    // The kernel may remember that a folder exists; its first name it has to ask for.
    if (DIR *stream = ::opendir(folder.constData())) {
        static_cast<void>(::readdir(stream));
        ::closedir(stream);
    }
    struct stat ignored = {};
    for (const char *part : {"/icons", "/mime"})
        ::stat((folder + part).constData(), &ignored);
}

} // namespace

void DataFolders::leaveOutHung(FileQuestions &questions)
{
    QStringList folders = QFile::decodeName(qgetenv(kDataDirs)).split(u':', Qt::SkipEmptyParts);
    // All are asked before the first is waited for.
    std::vector<std::pair<QString, FileTicket>> asked;
    for (const QString &folder : folders)
        asked.emplace_back(folder, questions.ask(folder, FileQuestions::Kind::Look, kLimit,
                                                 [folder](const Patience &) {
                                                     lookInto(folder);
                                                     return FileQuestions::Delivery();
                                                 }));
    bool isAnyHung = false;
    for (const auto &[folder, ticket] : asked) {
        if (questions.await(ticket))
            continue;
        qCWarning(lcDataFolders, "%s does not answer: icons and kinds of files in it are left out",
                  qUtf8Printable(folder));
        isAnyHung = true;
        folders.removeAll(folder);
    }
    if (!isAnyHung)
        return;
    // An empty list would stand for the usual folders, which may be among those that hang.
    qputenv(kDataDirs,
            folders.isEmpty() ? QByteArray("/nonexistent") : QFile::encodeName(folders.join(u':')));
}
