#include "Clipboard/window/ListedFolders.h"

#include <QFileInfo>

namespace {

/// After which the file system counts as one that hangs.
constexpr std::chrono::milliseconds kLimit{2000};

} // namespace

ListedFolders::ListedFolders(FileQuestions &questions, std::function<void()> found)
    : m_questions(questions), m_found(std::move(found))
{
}

bool ListedFolders::contains(const QString &path)
{
    const auto [asked, isNew] = m_asked.try_emplace(path);
    if (isNew)
        asked->second.ticket = m_questions.ask(
            path, FileQuestions::Kind::Look, kLimit, [this, path](const Patience &) {
                return [this, path, isFolder = QFileInfo(path).isDir()] {
                    m_asked[path].isFolder = isFolder;
                    if (isFolder)
                        m_found();
                };
            });
    return asked->second.isFolder;
}
