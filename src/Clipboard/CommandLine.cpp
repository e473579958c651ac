#include "Clipboard/CommandLine.h"

#include "Clipboard/ClipWords.h"

#include <algorithm>

namespace {

struct Word
{
    const char16_t *word;
    const char16_t *effect;
};

constexpr Word kActions[] = {
    {u"launch", u"open the history; the next clip when it is open"},
    {u"swop", u"exchange the selection with a clip"},
    {u"preferences", u"open the preferences"},
    {u"check-for-updates", u"look for a newer version"},
    {u"feedback", u"write to those who make it"},
    {u"help", u"open the help page"},
    {u"welcome", u"show the welcome again, which leads to the tour"},
    {u"clear-all", u"delete every clip, whether Quillmarsh runs or not"},
    {u"quit", u"end the running Quillmarsh, if there is one"},
};

QString help()
{
    QString text = QStringLiteral("usage: quillmarsh [COMMAND]\n\n"
                                  "Quillmarsh keeps every copy and pastes it again. There is one "
                                  "instance: a command\nreaches the one that runs, else starts "
                                  "it. Without a command the history of the\nrunning one opens, "
                                  "or one starts and waits for its shortcut.\n\n");
    for (const Word &action : kActions)
        text += QStringLiteral("  %1%2\n").arg(QStringView(action.word), -19).arg(action.effect);
    return text +
           QStringLiteral("  --help             show this\n"
                          "  --version          show the version\n") +
           ClipWords::help();
}

bool isAction(const QString &word)
{
    return std::any_of(std::begin(kActions), std::end(kActions),
                       [&word](const Word &action) { return word == action.word; });
}

/// A session that starts its programs again names them with an option of the display library's.
QStringList withoutSession(QStringList words)
{
    const qsizetype at = words.indexOf(QStringLiteral("-session"));
    if (at >= 0)
        words.remove(at, std::min<qsizetype>(2, words.size() - at));
    return words;
}

} // namespace

CommandLine CommandLine::parse(const QStringList &words, const QString &version)
{
    CommandLine line;
    const QStringList asked = withoutSession(words);
    const auto has = [&asked](const char16_t *one, const char16_t *other) {
        return asked.contains(QStringView(one)) || asked.contains(QStringView(other));
    };
    if (has(u"--help", u"-h"))
        line.answer = help();
    else if (has(u"--version", u"-V"))
        line.answer = QStringLiteral("Quillmarsh %1\n").arg(version);
    else if (!asked.isEmpty() && ClipWords::isWord(asked.first()))
        line.clipWords = asked;
    else if (asked.size() > 1)
        line.problem = QStringLiteral("one command at a time, not \"%1\"").arg(asked.join(u' '));
    else if (!asked.isEmpty() && !isAction(asked.first()))
        line.problem = QStringLiteral("there is no command \"%1\"").arg(asked.first());
    else
        line.action = asked.value(0);
    return line;
}
