#include "preview/PreviewProcess.h"

#include "platform/FileQuestions.h"
#include "platform/OwnProgram.h"
#include "preview/PreviewChild.h"

#include <QLoggingCategory>

namespace {

Q_LOGGING_CATEGORY(lcProcess, "quillmarsh.preview.process")

/// Between two looks at whether an order is still wanted.
constexpr std::chrono::milliseconds kSlice{5};
constexpr std::chrono::minutes kStartsCountFor{1};

const char *nameOf(PreviewTrouble trouble)
{
    switch (trouble) {
    case PreviewTrouble::TookLong:
    case PreviewTrouble::GivenUp:
        return "took too long";
    case PreviewTrouble::TooLarge:
        return "needed too much memory";
    case PreviewTrouble::NotApart:
        return "cannot be kept apart on this system";
    case PreviewTrouble::NotStarted:
        return "cannot be started";
    case PreviewTrouble::Resting:
        return "rests after too many starts";
    case PreviewTrouble::None:
    case PreviewTrouble::Crashed:
        break;
    }
    return "crashed";
}

} // namespace

/// The right to use the process, for as long as it lives.
class PreviewProcess::Turn
{
public:
    /// Waits for it as long as `patience` lasts; without, not at all.
    Turn(PreviewProcess &process, const Patience *patience) : m_process(process)
    {
        const MutexLock lock(process.m_mutex);
        while (process.m_isBusy && patience && !patience->isOver())
            process.m_free.wait_for(process.m_mutex, kSlice);
        m_isMine = !process.m_isBusy && !(patience && patience->isOver());
        process.m_isBusy = process.m_isBusy || m_isMine;
    }
    Turn(const Turn &) = delete;
    Turn &operator=(const Turn &) = delete;
    ~Turn()
    {
        if (!m_isMine)
            return;
        const MutexLock lock(m_process.m_mutex);
        m_process.m_isBusy = false;
        m_process.m_free.notify_all();
    }

    bool isMine() const { return m_isMine; }

private:
    PreviewProcess &m_process;
    bool m_isMine = false;
};

PreviewProcess::PreviewProcess(QString program, Now now)
    : m_program(std::move(program)), m_now(std::move(now))
{
}

PreviewProcess::~PreviewProcess() = default;

QString PreviewProcess::installedProgram()
{
    return OwnProgram::prefix() + QStringLiteral("/libexec/quillmarsh/quillmarsh-preview");
}

bool PreviewProcess::mayStart()
{
    const auto now = m_now();
    while (!m_starts.empty() && now - m_starts.front() >= kStartsCountFor)
        m_starts.pop_front();
    if (m_starts.size() >= kMaxStarts)
        return false;
    m_starts.push_back(now);
    return true;
}

PreviewProcess::Child *PreviewProcess::running(PreviewTrouble *trouble)
{
    // It says nothing unasked, so what comes now is its end.
    if (m_child && m_child->channel().isTouched())
        m_child.reset();
    if (m_child)
        return m_child.get();
    if (m_isImpossible) {
        *trouble = PreviewTrouble::NotApart;
        return nullptr;
    }
    if (!mayStart()) {
        *trouble = PreviewTrouble::Resting;
        return nullptr;
    }
    m_child = Child::start(m_program);
    if (!m_child) {
        *trouble = PreviewTrouble::NotStarted;
        qCWarning(lcProcess, "what reads files for previews %s", nameOf(*trouble));
    }
    return m_child.get();
}

PreviewTrouble PreviewProcess::end(PreviewTrouble otherwise)
{
    const PreviewTrouble trouble = m_child->end(otherwise);
    m_child.reset();
    m_isImpossible = m_isImpossible || trouble == PreviewTrouble::NotApart;
    // Without the file's name, which is nobody's business who reads a log.
    qCWarning(lcProcess, "what reads files for previews %s", nameOf(trouble));
    return trouble;
}

PreviewOutcome PreviewProcess::answerOf(Child &child, const PreviewOrder &order,
                                        const Patience &patience)
{
    const auto last = m_now() + order.time + kGrace;
    bool isTold = false;
    while (child.channel().state() == PreviewChannel::State::Open) {
        if (m_now() >= last)
            return {nullptr, end(PreviewTrouble::TookLong)};
        const auto message =
            child.channel().receive(PreviewMessages::kMaxBytes, static_cast<int>(kSlice.count()),
                                    PreviewChannel::Descriptors::Refused);
        if (message) {
            const auto answer = PreviewMessages::decodedAnswer(message->bytes);
            if (!answer || message->number != m_number)
                break;
            if (answer->isLast)
                m_child.reset();
            return {answer->content,
                    answer->isTimeUp ? PreviewTrouble::GivenUp : PreviewTrouble::None};
        }
        if (!isTold && patience.isOver())
            isTold = child.channel().send(m_number, QByteArray());
    }
    // Broken, or no answer that a reader makes.
    return {nullptr, end(PreviewTrouble::Crashed)};
}

PreviewOutcome PreviewProcess::ask(const PreviewOrder &order, int descriptor,
                                   const Patience &patience)
{
    const Turn turn(*this, &patience);
    PreviewOutcome outcome;
    if (!turn.isMine()) {
        outcome.trouble = PreviewTrouble::GivenUp;
        return outcome;
    }
    Child *child = running(&outcome.trouble);
    if (!child)
        return outcome;
    if (!child->channel().send(++m_number, PreviewMessages::encoded(order), descriptor))
        return {nullptr, end(PreviewTrouble::Crashed)};
    return answerOf(*child, order, patience);
}

void PreviewProcess::rest()
{
    const Turn turn(*this, nullptr);
    if (turn.isMine())
        m_child.reset();
}
