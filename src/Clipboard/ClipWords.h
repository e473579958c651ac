#pragma once

#include "platform/SharedClips.h"

#include <QByteArray>
#include <QStringList>

#include <cstdio>
#include <functional>
#include <memory>
#include <optional>

/// What the words of a command line that are about clips do: list, get, copy, paste,
/// delete, import, export. They
/// are for shells and launchers, so what they write is plain and the same in every language. Made
/// by main; lives as long as the command.
class ClipWords
{
public:
    /// The streams of the command; not owned.
    struct Streams
    {
        std::FILE *in;
        std::FILE *out;
        std::FILE *err;
    };
    using Source = std::function<std::unique_ptr<SharedClips>()>;

    /// Exit codes.
    static constexpr int kDone = 0;
    static constexpr int kFailed = 1;
    static constexpr int kNotUnderstood = 2;

    /// Whether there is such a word.
    static bool isWord(const QString &word);
    /// What --help tells of them.
    static QString help();

    /// `running` gives the clips of the instance that runs, and `stored` those on disk; null when
    /// there are none. Both are asked when they are needed.
    ClipWords(Source running, Source stored, const Streams &streams);

    /// Does what the words ask for and gives the exit code. The first is one of ours.
    int run(const QStringList &words);

private:
    enum class Form { Lines, Whole, Json };

    int list(const QStringList &arguments);
    int get(const QStringList &arguments);
    int copy(const QStringList &arguments);
    int paste(const QStringList &arguments);
    int remove(const QStringList &arguments);
    int importClips(const QStringList &arguments);
    int exportClips(const QStringList &arguments);

    std::optional<QList<SharedClip>> readForeign();
    std::optional<QList<SharedClip>> readFile(const QString &name);
    SharedClips::Added addAll(const QList<SharedClip> &clips, bool onlyCount);
    qint64 announce(const SharedClips::Added &would, const SharedClips::Room &room);
    bool agree();
    void say(const QString &line) const;

    int writeLines(const QList<qlonglong> &ids);
    int writeClips(const QList<qlonglong> &ids, Form form);
    /// The ids that the arguments, or a line on standard input, name; absent when one names none.
    std::optional<QList<qlonglong>> idsOf(const QStringList &arguments);
    std::optional<qint64> idOf(const QString &name);

    /// The answer to `question`, which is put to the store when the instance cannot tell.
    template <typename Ask>
    auto ask(Ask question)
    {
        using Answer = decltype(question(*m_clips));
        Answer answer = m_clips ? question(*m_clips) : Answer{{}, SharedClips::Fault::None};
        if (canStoreTell(answer.fault) && fallBack())
            answer = question(*m_clips);
        m_fault = answer.fault;
        return answer.value;
    }
    static bool canStoreTell(SharedClips::Fault fault);
    bool fallBack();
    int fail(SharedClips::Fault fault) const;
    int refuse(const QString &why) const;
    void write(const QByteArray &bytes) const;
    int finish() const;

    const Source m_running;
    const Source m_stored;
    const Streams m_streams;
    std::unique_ptr<SharedClips> m_clips;
    bool m_isStored = false;
    SharedClips::Fault m_fault = SharedClips::Fault::None; ///< Of the question asked last.
};
