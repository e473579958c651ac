#pragma once

#include "platform/FileQuestions.h"
#include "platform/freedesktop/entries/DesktopEntryIndex.h"

#include <chrono>
#include <functional>
#include <memory>

/// Keeps the index of the installed desktop entries up to date, off the threads that ask for it.
/// Shared by those that look applications up; safe to call from any thread. A folder that does not
/// answer (a mount whose server is gone) holds nobody up for longer than kLimit, and what is in it
/// is taken in when it comes.
class DesktopEntryCatalog
{
public:
    using Scan = std::function<DesktopEntryScan(const QString &folder)>;

    static constexpr std::chrono::milliseconds kLimit{300};

    /// The first scan begins at once. `scan` is called on several threads. `questions` must outlive
    /// the catalog.
    DesktopEntryCatalog(FileQuestions &questions, const QStringList &folders,
                        Scan scan = DesktopEntryScan::of);

    /// What is known now. Waits for the first scan only: a wrong name would let through what the
    /// user wants ignored. Looks for changes in the background, at most once a second.
    std::shared_ptr<const DesktopEntryIndex> index();

    /// What is installed at this moment, as far as the folders answer.
    std::shared_ptr<const DesktopEntryIndex> currentIndex();

private:
    struct State;
    enum class Await { Unknown, All };

    /// Waits for the folders that were never read, or for all that are being looked at; for none
    /// longer than kLimit after it was asked.
    void await(Await which);

    FileQuestions &m_questions;
    const std::shared_ptr<State> m_state; ///< The threads keep it too.
};
