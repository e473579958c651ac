// What import and export do, of the words that are about clips.

#include "Clipboard/ClipWords.h"
#include "Clipboard/exchange/ClipFile.h"
#include "Clipboard/exchange/ForeignHistories.h"

#include <QFile>
#include <QSaveFile>

#include <algorithm>

#include <unistd.h>

namespace {

using Fault = SharedClips::Fault;

constexpr qsizetype kPage = 200;
constexpr qint64 kPageBytes = 4 * 1024 * 1024;

QString clipsCounted(qint64 count)
{
    return count == 1 ? QStringLiteral("1 clip") : QStringLiteral("%1 clips").arg(count);
}

/// The next of the clips that are handed over together.
QList<SharedClip> nextPage(const QList<SharedClip> &clips, qsizetype from)
{
    QList<SharedClip> page;
    qint64 bytes = 0;
    for (qsizetype i = from; i < clips.size() && page.size() < kPage; ++i) {
        bytes += clips.at(i).bytes();
        if (!page.isEmpty() && bytes > kPageBytes)
            break;
        page.append(clips.at(i));
    }
    return page;
}

} // namespace

int ClipWords::exportClips(const QStringList &arguments)
{
    if (arguments.size() != 1 || arguments.first().isEmpty())
        return refuse(QStringLiteral("export takes the name of a file"));
    const QList<qlonglong> ids = ask([](SharedClips &source) { return source.find(QString()); });
    if (m_fault != Fault::None)
        return fail(m_fault);
    QSaveFile file(arguments.first());
    if (!file.open(QIODevice::WriteOnly))
        return fail(Fault::Unwritable);
    // The clips are nobody else's.
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    ClipFile::Writer writer(file);
    qint64 written = 0;
    for (qsizetype at = 0; at < ids.size();) {
        const QList<SharedClip> clips =
            ask([&](SharedClips &source) { return source.clips(ids.mid(at, kPage)); });
        if (m_fault != Fault::None)
            return fail(m_fault);
        for (const SharedClip &clip : clips)
            writer.write(clip);
        written += clips.size();
        // Those in between are gone.
        at = clips.isEmpty() ? at + kPage : ids.indexOf(clips.last().id, at) + 1;
    }
    if (!writer.finish() || !file.commit())
        return fail(Fault::Unwritable);
    say(QStringLiteral("%1 written to %2").arg(clipsCounted(written), arguments.first()));
    return kDone;
}

int ClipWords::importClips(const QStringList &arguments)
{
    QStringList names = arguments;
    const bool isAgreed = names.removeAll(QStringLiteral("--yes")) > 0;
    if (names.size() > 1 || names.value(0).startsWith(u'-'))
        return refuse(QStringLiteral("import takes one file at most, and --yes"));
    const std::optional<QList<SharedClip>> clips =
        names.isEmpty() ? readForeign() : readFile(names.first());
    if (!clips)
        return kFailed;
    const SharedClips::Room room = ask([](SharedClips &source) { return source.room(); });
    if (!m_clips || m_fault != Fault::None)
        return fail(m_clips ? m_fault : Fault::Nobody);
    const SharedClips::Added would = addAll(*clips, true);
    if (m_fault != Fault::None)
        return fail(m_fault);
    const qint64 fitting = announce(would, room);
    if (fitting == 0)
        return kDone;
    if (!isAgreed && !agree())
        return kFailed;
    const SharedClips::Added added = addAll(*clips, false);
    say(QStringLiteral("%1 taken").arg(clipsCounted(added.added)));
    return m_fault == Fault::None ? kDone : fail(m_fault);
}

std::optional<QList<SharedClip>> ClipWords::readForeign()
{
    const QList<ForeignHistories::Found> histories = ForeignHistories::read();
    for (const ForeignHistories::Found &history : histories) {
        say(QStringLiteral("%1: %2 in %3")
                .arg(history.program, clipsCounted(history.clips.size()), history.path));
        if (!history.isWhole)
            say(history.clips.isEmpty() ? QStringLiteral("  nothing of it could be read")
                                        : QStringLiteral("  the rest of it could not be read"));
    }
    if (histories.isEmpty())
        say(QStringLiteral("No history of another program was found"));
    return histories.isEmpty() ? std::nullopt : std::optional(ForeignHistories::merged(histories));
}

std::optional<QList<SharedClip>> ClipWords::readFile(const QString &name)
{
    QFile file(name);
    std::optional<QList<SharedClip>> clips;
    if (file.open(QIODevice::ReadOnly))
        clips = ClipFile::read(file);
    if (clips)
        say(QStringLiteral("%1: %2").arg(name, clipsCounted(clips->size())));
    else
        std::fprintf(m_streams.err, "quillmarsh: %s is no file of clips\n", qUtf8Printable(name));
    return clips;
}

/// Adds them, or only counts what would come of it, a few at a time.
SharedClips::Added ClipWords::addAll(const QList<SharedClip> &clips, bool onlyCount)
{
    SharedClips::Added sum;
    m_fault = Fault::None;
    for (qsizetype at = 0; at < clips.size() && m_fault == Fault::None;) {
        QList<SharedClip> page = nextPage(clips, at);
        at += page.size();
        sum.tooLarge += page.removeIf(
            [](const SharedClip &clip) { return clip.bytes() > SharedClips::kMaxHandedOver; });
        const SharedClips::Answer<SharedClips::Added> answer = m_clips->add(page, onlyCount);
        m_fault = answer.fault;
        sum.added += answer.value.added;
        sum.known += answer.value.known;
        sum.tooLarge += answer.value.tooLarge;
        sum.noRoom += answer.value.noRoom;
    }
    return sum;
}

/// Says what is about to happen, and gives how many clips there is room for.
qint64 ClipWords::announce(const SharedClips::Added &would, const SharedClips::Room &room)
{
    const qint64 newOnes = would.added + would.noRoom;
    const qint64 fitting = std::min(newOnes, std::max<qint64>(0, room.limit - room.clips));
    if (would.known > 0)
        say(QStringLiteral("%1 known already").arg(clipsCounted(would.known)));
    if (would.tooLarge > 0)
        say(QStringLiteral("%1 larger than the largest text, %2 bytes: left out")
                .arg(clipsCounted(would.tooLarge))
                .arg(room.largestText));
    if (fitting < newOnes)
        say(QStringLiteral("The history has %1 and takes at most %2, so the oldest %3 will be "
                           "left out.\nA larger size in Preferences makes room for them.")
                .arg(clipsCounted(room.clips))
                .arg(room.limit)
                .arg(newOnes - fitting));
    say(fitting == 0
            ? QStringLiteral("There is nothing to take")
            : QStringLiteral("%1 to take; nothing is removed for them").arg(clipsCounted(fitting)));
    return fitting;
}

bool ClipWords::agree()
{
    if (::isatty(::fileno(m_streams.in)) == 0) {
        say(QStringLiteral("Nothing was taken: --yes takes them"));
        return false;
    }
    std::fputs("Take them? [y/N] ", m_streams.out);
    std::fflush(m_streams.out);
    const int answer = std::fgetc(m_streams.in);
    return answer == 'y' || answer == 'Y';
}

void ClipWords::say(const QString &line) const
{
    write(line.toUtf8() + '\n');
}
