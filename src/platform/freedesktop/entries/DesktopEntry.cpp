#include "platform/freedesktop/entries/DesktopEntry.h"

#include "platform/freedesktop/RegularFile.h"

#include <algorithm>

namespace {

QString unescaped(const QByteArray &value)
{
    // The escapes that the desktop entry standard gives to values of all kinds.
    static constexpr QStringView kEscapes = u"sntr\\";
    static constexpr QStringView kMeanings = u" \n\t\r\\";
    const QString raw = QString::fromUtf8(value);
    QString text;
    text.reserve(raw.size());
    for (qsizetype i = 0; i < raw.size(); ++i) {
        const qsizetype escape =
            raw[i] == u'\\' && i + 1 < raw.size() ? kEscapes.indexOf(raw[i + 1]) : -1;
        // "\;" belongs to lists, any other to nobody: both stay as they are.
        text += escape < 0 ? raw[i] : kMeanings[escape];
        if (escape >= 0)
            ++i;
    }
    return text;
}

/// Splits Exec at its blanks outside quotes; absent when a quote does not close.
std::optional<QStringList> split(const QString &exec)
{
    QStringList words;
    QString word;
    bool isQuoted = false;
    bool isWord = false;
    for (qsizetype i = 0; i < exec.size(); ++i) {
        const QChar character = exec[i];
        if (character == u'"') {
            isQuoted = !isQuoted;
            isWord = true;
        } else if (character == u'\\' && i + 1 < exec.size()) {
            word += exec[++i];
            isWord = true;
        } else if (!isQuoted && character.isSpace()) {
            if (isWord)
                words.append(word);
            word.clear();
            isWord = false;
        } else {
            word += character;
            isWord = true;
        }
    }
    if (isWord)
        words.append(word);
    return isQuoted ? std::nullopt : std::optional(words);
}

QString quoted(const QString &argument)
{
    constexpr QStringView kReserved = u" \t\n\"'\\><~|&;$*?#()`";
    // The standard wants an argument with any of these in quotes.
    const bool needsQuotes =
        argument.isEmpty() || std::any_of(argument.begin(), argument.end(), [&](QChar character) {
            return kReserved.contains(character);
        });
    QString word;
    for (const QChar character : argument) {
        if (QStringView(u"\"`$\\").contains(character))
            word += u'\\';
        word += character;
        if (character == u'%')
            word += u'%';
    }
    return needsQuotes ? u'"' + word + u'"' : word;
}

} // namespace

std::optional<DesktopEntry> DesktopEntry::parse(const QByteArray &bytes)
{
    DesktopEntry entry;
    bool isInGroup = false;
    for (qsizetype begin = 0; begin < bytes.size();) {
        qsizetype end = bytes.indexOf('\n', begin);
        if (end < 0)
            end = bytes.size();
        const QByteArrayView line = QByteArrayView(bytes).sliced(begin, end - begin).trimmed();
        begin = end + 1;
        if (line.startsWith('[')) {
            // The main group is whole: the standard allows a group once, and behind it are actions
            // only.
            if (isInGroup)
                break;
            isInGroup = line == QByteArrayView("[Desktop Entry]");
            continue;
        }
        const qsizetype equals = line.indexOf('=');
        if (!isInGroup || equals <= 0 || line.startsWith('#'))
            continue;
        const QByteArrayView key = line.first(equals).trimmed();
        // Translations are by far the most lines and of no use here.
        if (key.endsWith(']'))
            continue;
        const QByteArray name = key.toByteArray();
        if (!entry.m_values.contains(name))
            entry.m_values.insert(name, line.sliced(equals + 1).trimmed().toByteArray());
    }
    return isInGroup ? std::optional(entry) : std::nullopt;
}

std::optional<DesktopEntry> DesktopEntry::read(const QString &path)
{
    const auto bytes = readRegularFile(path);
    return bytes ? parse(*bytes) : std::nullopt;
}

std::optional<QString> DesktopEntry::text(const char *key) const
{
    const auto found = m_values.constFind(key);
    return found == m_values.constEnd() ? std::nullopt : std::optional(unescaped(*found));
}

QStringList DesktopEntry::list(const char *key) const
{
    return QString::fromUtf8(m_values.value(key)).split(u';', Qt::SkipEmptyParts);
}

QStringList DesktopEntry::command() const
{
    QStringList words = split(text("Exec").value_or(QString())).value_or(QStringList());
    const auto isFieldCode = [](const QString &word) {
        return word.size() == 2 && word[0] == u'%' && word[1] != u'%';
    };
    // %f, %U and their like stand for files and icons that a launcher puts in.
    words.removeIf(isFieldCode);
    for (QString &word : words)
        word.replace(QStringLiteral("%%"), QStringLiteral("%"));
    return words;
}

QString DesktopEntry::execValue(const QStringList &command)
{
    QStringList words;
    for (const QString &argument : command)
        words.append(quoted(argument));
    // Escapes of values come on top of those of quoting, so a backslash ends up as four.
    QString value = words.join(u' ');
    value.replace(u'\\', QStringLiteral("\\\\"));
    value.replace(u'\n', QStringLiteral("\\n"));
    value.replace(u'\t', QStringLiteral("\\t"));
    value.replace(u'\r', QStringLiteral("\\r"));
    return value;
}
