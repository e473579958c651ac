#include "updates/feedback/SystemLine.h"

#include "platform/Info.h"

namespace {

constexpr qsizetype kMaxCharacters = 40;

/// The variable's value, as far as it fits one line.
QString fromEnvironment(const char *name)
{
    QString value = qEnvironmentVariable(name).left(kMaxCharacters).simplified();
    value.removeIf([](QChar character) { return !character.isPrint(); });
    return value;
}

} // namespace

QString systemLine(const Info &info)
{
    QString line =
        QStringLiteral("Quillmarsh ") + info.bundleShortVersionString.value_or(QString());
    if (const QString desktop = fromEnvironment("XDG_CURRENT_DESKTOP"); !desktop.isEmpty())
        line += QStringLiteral(" on ") + desktop;
    if (const QString session = fromEnvironment("XDG_SESSION_TYPE"); !session.isEmpty())
        line += QStringLiteral(" (%1)").arg(session);
    return line;
}
