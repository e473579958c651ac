#include "platform/typing/KnownKeys.h"

#include "platform/ApplicationNames.h"

#include <QFile>
#include <QLoggingCategory>

#include <utility>

namespace {

Q_LOGGING_CATEGORY(lcKeys, "quillmarsh.keys", QtInfoMsg)

} // namespace

// Outside of any namespace, as the macro wants it: a static library's resources are dropped unless
// somebody names them.
static KeyTable shippedTable()
{
    Q_INIT_RESOURCE(keys);
    QFile file(QStringLiteral(":/keys.json"));
    const bool isOpen = file.open(QIODevice::ReadOnly);
    const KeyTable::Reading reading = KeyTable::read(isOpen ? file.readAll() : QByteArray());
    if (!reading.problems.isEmpty())
        qFatal("The table of keys: %s", qUtf8Printable(reading.problems.first()));
    return reading.table;
}

KnownKeys::KnownKeys(UsersTable usersTable)
    : m_shipped(shippedTable()), m_usersTable(std::move(usersTable))
{
}

ApplicationKeys KnownKeys::keysOf(const WindowIdentity &window, bool isTerminal)
{
    follow();
    QStringList names{window.resourceClass, window.resourceName, window.gtkApplicationId};
    if (isTerminal)
        names.append(QStringLiteral("terminal"));
    for (const KeyTable *table : {&std::as_const(m_users), &m_shipped}) {
        for (const QString &name : std::as_const(names)) {
            if (const ApplicationKeys *keys = table->find(name))
                return *keys;
        }
    }
    static const KeySequence kPaste = *KeySequences::fromText(u"Ctrl+v");
    static const KeySequence kCopy = *KeySequences::fromText(u"Ctrl+c");
    return {kPaste, kCopy, kPaste};
}

void KnownKeys::follow()
{
    const QByteArray now = m_usersTable ? m_usersTable().value_or(QByteArray()) : QByteArray();
    if (now == m_read)
        return;
    m_read = now;
    const KeyTable::Reading reading = now.isEmpty() ? KeyTable::Reading() : KeyTable::read(now);
    m_users = reading.table;
    for (const QString &problem : reading.problems)
        qCWarning(lcKeys, "the user's table of keys: %s", qUtf8Printable(problem));
}
