#include "platform/freedesktop/shortcuts/PlasmaShortcuts.h"

#include "platform/Info.h"
#include "platform/freedesktop/shortcuts/ShortcutText.h"

#include <QStringList>

namespace {

/// Resolves the escapes of the file's format.
QString unescaped(const QString &value)
{
    QString text;
    for (qsizetype i = 0; i < value.size(); ++i) {
        if (value[i] != u'\\' || i + 1 == value.size()) {
            text += value[i];
            continue;
        }
        const QChar escaped = value[++i];
        if (escaped == u't')
            text += u'\t';
        else if (escaped == u's')
            text += u' ';
        else
            text += escaped;
    }
    return text;
}

/// The first part of a list value: up to a comma that is not itself escaped.
QString firstPart(const QString &list)
{
    QString part;
    for (qsizetype i = 0; i < list.size() && list[i] != u','; ++i) {
        if (list[i] == u'\\' && i + 1 < list.size())
            ++i;
        part += list[i];
    }
    return part;
}

} // namespace

QList<SymbolicHotKey> PlasmaShortcuts::parse(const QByteArray &file)
{
    QList<SymbolicHotKey> hotKeys;
    bool areOurs = false;
    for (const QByteArray &line : file.split('\n')) {
        const QString text = QString::fromUtf8(line).trimmed();
        if (text.startsWith(u'['))
            areOurs = text == QStringLiteral("[%1]").arg(Info::main().bundleIdentifier);
        // A recorder may record what we have ourselves.
        if (areOurs)
            continue;
        // Keys with _k_ are names to show. A value has three parts: the shortcuts in force, those
        // by default and the action's name.
        const qsizetype equals = text.indexOf(u'=');
        if (equals <= 0 || text.startsWith(u'[') || text.startsWith(u"_k_"))
            continue;
        // Escaped twice, as a value of the file and as part of a list.
        const QString inForce = firstPart(unescaped(text.sliced(equals + 1)));
        for (const QString &shortcut : inForce.split(u'\t', Qt::SkipEmptyParts)) {
            if (const auto hotKey = ShortcutText::fromQt(shortcut))
                hotKeys.append(*hotKey);
        }
    }
    return hotKeys;
}
