#include "Clipboard/ClipWords.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTimeZone>

#include <algorithm>
#include <cmath>
#include <utility>

#include <unistd.h>

namespace {

using Fault = SharedClips::Fault;

struct Word
{
    const char16_t *word;
    const char16_t *usage;
    const char16_t *effect;
};

constexpr Word kWords[] = {
    {u"list", u"list [TERM]", u"write the clips, newest first: an id, a tab, the text"},
    {u"get", u"get [CLIP]", u"write the whole text of a clip"},
    {u"copy", u"copy", u"copy what comes on standard input"},
    {u"paste", u"paste [CLIP]", u"paste a clip where you are typing"},
    {u"delete", u"delete [CLIP]...", u"delete clips"},
    {u"import", u"import [FILE]", u"take the clips of other programs, or of a file"},
    {u"export", u"export FILE", u"write all clips to a file that import reads"},
};

/// How many clips are asked for at a time, so that the instance is never held up for long.
constexpr qsizetype kPage = 2500;
/// Larger copies than this are none, whatever the history would take.
constexpr size_t kMaxInput = 32 * 1024 * 1024;

QString nameOf(qint64 id)
{
    return QLatin1Char(SharedClips::kIdMark) + QString::number(id);
}

QJsonObject toJson(const SharedClip &clip)
{
    QJsonObject object{{QStringLiteral("id"), nameOf(clip.id)}};
    if (clip.text)
        object.insert(QStringLiteral("text"), *clip.text);
    if (!clip.fileNames.isEmpty())
        object.insert(QStringLiteral("file"), clip.fileNames.first());
    if (clip.applicationName)
        object.insert(QStringLiteral("application"), *clip.applicationName);
    if (clip.createSeconds)
        object.insert(QStringLiteral("copied"),
                      QDateTime::fromMSecsSinceEpoch(std::llround(*clip.createSeconds * 1000),
                                                     QTimeZone::utc())
                          .toString(Qt::ISODateWithMs));
    if (clip.pasteCount)
        object.insert(QStringLiteral("pastes"), qint64(*clip.pasteCount) + 1);
    return object;
}

/// At most `limit` bytes and one more.
QByteArray readAll(std::FILE *in, size_t limit)
{
    QByteArray bytes;
    char part[16 * 1024];
    for (size_t size = 1; size > 0 && static_cast<size_t>(bytes.size()) <= limit;) {
        size = std::fread(part, 1, sizeof part, in);
        bytes.append(part, static_cast<qsizetype>(size));
    }
    return bytes;
}

} // namespace

bool ClipWords::isWord(const QString &word)
{
    return std::any_of(std::begin(kWords), std::end(kWords),
                       [&word](const Word &known) { return word == known.word; });
}

QString ClipWords::help()
{
    QString text = QStringLiteral(
        "\nThe clips, for the shell and for launchers. CLIP is an id of the list, a row (1 is the\n"
        "newest), or a line of the list; without it such a line is read from standard input.\n\n");
    for (const Word &word : kWords)
        text += QStringLiteral("  %1%2\n").arg(QStringView(word.usage), -19).arg(word.effect);
    return text + QStringLiteral("    --json           the list as JSON, with the whole texts\n"
                                 "    -0, --null       whole texts, each ended by a NUL\n\n"
                                 "  quillmarsh list | rofi -dmenu -i | quillmarsh paste\n"
                                 "  quillmarsh list | dmenu -i -l 20 | quillmarsh paste\n"
                                 "  quillmarsh list -0 | fzf --read0 --print0 | quillmarsh get\n");
}

ClipWords::ClipWords(Source running, Source stored, const Streams &streams)
    : m_running(std::move(running)), m_stored(std::move(stored)), m_streams(streams)
{
}

int ClipWords::run(const QStringList &words)
{
    const QString word = words.first();
    const QStringList arguments = words.mid(1);
    m_clips = m_running();
    if (!m_clips)
        fallBack();
    if (word == u"list")
        return list(arguments);
    if (word == u"get")
        return get(arguments);
    if (word == u"copy")
        return copy(arguments);
    if (word == u"paste")
        return paste(arguments);
    if (word == u"import")
        return importClips(arguments);
    return word == u"export" ? exportClips(arguments) : remove(arguments);
}

/// An instance that begins, or has ended since, leaves the store to whoever reads it.
bool ClipWords::fallBack()
{
    if (std::exchange(m_isStored, true))
        return false;
    m_clips = m_stored();
    return m_clips != nullptr;
}

bool ClipWords::canStoreTell(Fault fault)
{
    return fault == Fault::Nobody || fault == Fault::Unable || fault == Fault::TooLarge;
}

int ClipWords::list(const QStringList &arguments)
{
    Form form = Form::Lines;
    QStringList terms;
    bool areOptions = true;
    for (const QString &argument : arguments) {
        if (areOptions && argument == u"--json")
            form = Form::Json;
        else if (areOptions && (argument == u"-0" || argument == u"--null"))
            form = Form::Whole;
        else if (areOptions && argument == u"--")
            areOptions = false;
        else if (areOptions && argument.startsWith(u'-') && argument.size() > 1)
            return refuse(QStringLiteral("list has no option \"%1\"").arg(argument));
        else
            terms.append(argument);
    }
    const QList<qlonglong> ids =
        ask([&](SharedClips &source) { return source.find(terms.join(u' ')); });
    if (m_fault != Fault::None)
        return fail(m_fault);
    return form == Form::Lines ? writeLines(ids) : writeClips(ids, form);
}

int ClipWords::writeLines(const QList<qlonglong> &ids)
{
    for (qsizetype at = 0; at < ids.size(); at += kPage) {
        const QList<SharedClips::Line> lines =
            ask([&](SharedClips &source) { return source.lines(ids.mid(at, kPage)); });
        if (m_fault != Fault::None)
            return fail(m_fault);
        QByteArray page;
        for (const SharedClips::Line &line : lines)
            line.appendTo(page);
        write(page);
    }
    return finish();
}

int ClipWords::writeClips(const QList<qlonglong> &ids, Form form)
{
    const char *before = form == Form::Json ? "[" : "";
    for (qsizetype at = 0; at < ids.size();) {
        const QList<SharedClip> clips =
            ask([&](SharedClips &source) { return source.clips(ids.mid(at, kPage)); });
        if (m_fault != Fault::None)
            return fail(m_fault);
        for (const SharedClip &clip : clips) {
            write(before);
            if (form == Form::Json)
                write(QJsonDocument(toJson(clip)).toJson(QJsonDocument::Compact));
            else
                write(nameOf(clip.id).toUtf8() + '\t' + clip.text.value_or(QString()).toUtf8() +
                      '\0');
            before = form == Form::Json ? ",\n" : "";
        }
        // Those in between are gone.
        at = clips.isEmpty() ? at + kPage : ids.indexOf(clips.last().id, at) + 1;
    }
    if (form == Form::Json)
        write(*before == '[' ? "[]\n" : "]\n");
    return finish();
}

int ClipWords::get(const QStringList &arguments)
{
    if (arguments.size() > 1)
        return refuse(QStringLiteral("get takes one clip"));
    const auto ids = idsOf(arguments);
    if (!ids || ids->isEmpty())
        return ids ? kFailed : kNotUnderstood;
    const QList<SharedClip> clips = ask([&](SharedClips &source) { return source.clips(*ids); });
    if (m_fault != Fault::None || clips.isEmpty())
        return fail(m_fault == Fault::None ? Fault::NoSuchClip : m_fault);
    write(clips.first().text.value_or(QString()).toUtf8());
    return finish();
}

int ClipWords::copy(const QStringList &arguments)
{
    if (!arguments.isEmpty())
        return refuse(QStringLiteral("copy reads standard input and takes no words"));
    const QByteArray text = readAll(m_streams.in, kMaxInput);
    if (static_cast<size_t>(text.size()) > kMaxInput)
        return fail(Fault::TooLarge);
    const Fault fault = m_clips ? m_clips->copy(text) : Fault::Nobody;
    return fault == Fault::None ? kDone : fail(fault);
}

int ClipWords::paste(const QStringList &arguments)
{
    if (arguments.size() > 1)
        return refuse(QStringLiteral("paste takes one clip"));
    const auto ids = idsOf(arguments);
    if (!ids || ids->isEmpty())
        return ids ? kFailed : kNotUnderstood;
    const Fault fault = m_clips ? m_clips->paste(ids->first()) : Fault::Nobody;
    return fault == Fault::None ? kDone : fail(fault);
}

int ClipWords::remove(const QStringList &arguments)
{
    const auto ids = idsOf(arguments);
    if (!ids || ids->isEmpty())
        return ids ? kFailed : kNotUnderstood;
    const qint64 removed = ask([&](SharedClips &source) { return source.remove(*ids); });
    if (m_fault == Fault::None && removed < ids->size())
        m_fault = Fault::NoSuchClip;
    return m_fault == Fault::None ? kDone : fail(m_fault);
}

std::optional<QList<qlonglong>> ClipWords::idsOf(const QStringList &arguments)
{
    QStringList names = arguments;
    if (names.isEmpty()) {
        if (::isatty(::fileno(m_streams.in)) != 0) {
            refuse(QStringLiteral("which clip? Name an id or a row"));
            return std::nullopt;
        }
        constexpr size_t kMaxLine = 64 * 1024;
        QByteArray line = readAll(m_streams.in, kMaxLine);
        const qsizetype end = line.indexOf('\t');
        line.truncate(end < 0 ? line.size() : end);
        names = {QString::fromUtf8(line).trimmed()};
        // The launcher was left without a choice, which is one.
        if (names.first().isEmpty())
            return QList<qlonglong>();
    }
    QList<qlonglong> ids;
    for (const QString &name : std::as_const(names)) {
        const std::optional<qint64> id = idOf(name.section(u'\t', 0, 0).trimmed());
        if (!id) {
            refuse(QStringLiteral("\"%1\" is neither an id nor a row of the list").arg(name));
            return std::nullopt;
        }
        ids.append(*id);
    }
    return ids;
}

std::optional<qint64> ClipWords::idOf(const QString &name)
{
    bool isNumber = false;
    if (name.startsWith(QLatin1Char(SharedClips::kIdMark))) {
        const qint64 id = name.mid(1).toLongLong(&isNumber);
        return isNumber && id > 0 ? std::optional(id) : std::nullopt;
    }
    const qint64 row = name.toLongLong(&isNumber);
    if (!isNumber || row < 1)
        return std::nullopt;
    // 0 is no clip's.
    return ask([](SharedClips &source) { return source.find(QString()); }).value(row - 1, 0);
}

int ClipWords::fail(Fault fault) const
{
    const char *why = "";
    switch (fault) {
    case Fault::None:
        return kDone;
    case Fault::NoSuchClip:
        why = "there is no such clip";
        break;
    case Fault::NotText:
        why = "standard input is no text in UTF-8, or empty";
        break;
    case Fault::TooLarge:
        why = "the text is larger than the largest that is recorded; Preferences has that limit";
        break;
    case Fault::Unwritable:
        why = "this cannot be written";
        break;
    case Fault::Unable:
        why = "the one that is running cannot do it now";
        break;
    case Fault::Nobody:
        why = "it does not run, or no session bus leads to it";
        break;
    }
    std::fprintf(m_streams.err, "quillmarsh: %s\n", why);
    return kFailed;
}

int ClipWords::refuse(const QString &why) const
{
    std::fprintf(m_streams.err, "quillmarsh: %s; quillmarsh --help tells what there is\n",
                 qUtf8Printable(why));
    return kNotUnderstood;
}

void ClipWords::write(const QByteArray &bytes) const
{
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), m_streams.out);
}

int ClipWords::finish() const
{
    if (std::fflush(m_streams.out) == 0 && std::ferror(m_streams.out) == 0)
        return kDone;
    std::fputs("quillmarsh: the answer could not be written\n", m_streams.err);
    return kFailed;
}
