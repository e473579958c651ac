#pragma once

#include "platform/FileQuestions.h"

#include <QString>

#include <functional>
#include <map>

/// Tells which of the files in the clip list are folders, whose names do not say so. The file
/// systems are asked off the main thread, and one that hangs just never answers. Owned by the
/// table.
class ListedFolders
{
public:
    /// `found` is called when a file of which contains() was asked has turned out to be a folder.
    /// `questions` must outlive the object.
    ListedFolders(FileQuestions &questions, std::function<void()> found);

    /// Whether the file at `path` is known to be a folder. The first time it is not: that asks.
    bool contains(const QString &path);

    /// Asks about each file anew: it may have been replaced, or its disk may have come.
    void forget() { m_asked.clear(); }

private:
    struct Asked
    {
        FileTicket ticket;
        bool isFolder = false;
    };

    FileQuestions &m_questions;
    const std::function<void()> m_found;
    std::map<QString, Asked> m_asked;
};
