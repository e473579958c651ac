#pragma once

#include "platform/Mutex.h"
#include "preview/PreviewMessages.h"
#include "preview/PreviewTrouble.h"

#include <QString>

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>

class Patience;

/// What came of an order. A value.
struct PreviewOutcome
{
    std::shared_ptr<const PreviewContent> content{}; ///< Null when there is nothing to be shown.
    PreviewTrouble trouble = PreviewTrouble::None;
};

/// Has files read for previews by a process of its own, which has nothing but the one file that it
/// is handed, so that a hostile one reaches no clip. Started when it is needed, one order at a
/// time, and ended by any failure, so that nothing of one file is seen by the next. Shared by
/// threads that may hang; its operations are for helper threads and wait.
class PreviewProcess
{
public:
    using Now = std::function<std::chrono::steady_clock::time_point()>;

    /// In a minute; more would only be more failures.
    static constexpr size_t kMaxStarts = 3;
    /// That an order may last beyond its time before the process is ended.
    static constexpr std::chrono::milliseconds kGrace{1000};

    /// `program` is what is started; by default the one that was installed with this program.
    explicit PreviewProcess(QString program = installedProgram(),
                            Now now = &std::chrono::steady_clock::now);
    PreviewProcess(const PreviewProcess &) = delete;
    PreviewProcess &operator=(const PreviewProcess &) = delete;
    ~PreviewProcess();

    static QString installedProgram();

    /// Does what is ordered with the open file, which stays the caller's. Waits for its turn and
    /// for the answer, while `patience` lasts; an order that is not wanted any more is given up by
    /// the process itself, if it can.
    PreviewOutcome ask(const PreviewOrder &order, int descriptor, const Patience &patience);

    /// Ends the process unless it is at work. The next order starts another.
    void rest();

private:
    class Child;
    class Turn;

    /// The running process, started if need be; null and why when there is none.
    Child *running(PreviewTrouble *trouble);
    bool mayStart();
    PreviewOutcome answerOf(Child &child, const PreviewOrder &order, const Patience &patience);
    /// Ends the process and tells why; `otherwise` when it would have gone on.
    PreviewTrouble end(PreviewTrouble otherwise);

    const QString m_program;
    const Now m_now;
    Mutex m_mutex;
    std::condition_variable_any m_free;
    bool m_isBusy QUILLMARSH_GUARDED_BY(m_mutex) = false;
    // Used by whoever has the turn.
    std::unique_ptr<Child> m_child;
    std::deque<std::chrono::steady_clock::time_point> m_starts; ///< Of the last minute.
    bool m_isImpossible = false; ///< This system cannot keep it apart.
    quint32 m_number = 0;        ///< Of the latest order.
};
