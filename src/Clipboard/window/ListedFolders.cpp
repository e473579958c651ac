#include "Clipboard/window/ListedFolders.h"

#include <QFileInfo>

ListedFolders::ListedFolders(std::function<void()> found) : m_found(std::move(found)) {}

bool ListedFolders::contains(const QString &path)
{
    const auto [asked, isNew] = m_asked.try_emplace(path);
    if (isNew)
        asked->second.ticket = m_threads.run([this, path](const PreviewStop &) {
            return [this, path, isFolder = QFileInfo(path).isDir()] {
                m_asked[path].isFolder = isFolder;
                if (isFolder)
                    m_found();
            };
        });
    return asked->second.isFolder;
}
