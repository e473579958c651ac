#include "platform/freedesktop/entries/DesktopEntryIcon.h"

#include <QFileInfo>

namespace {

constexpr qint64 kMaxIcon = qint64(4) * 1024 * 1024;

QIcon iconOfFile(const QString &path)
{
    // A pipe or a giant in an icon's place must not hold up the painting.
    const QFileInfo file(path);
    return file.isFile() && file.size() <= kMaxIcon ? QIcon(path) : QIcon();
}

QIcon iconOfTheme(QString name)
{
    // Many entries name a file where a theme knows it without its ending.
    for (const QStringView ending : {u".png", u".svg", u".xpm"}) {
        if (name.endsWith(ending))
            name.chop(ending.size());
    }
    return name.contains(u'/') ? QIcon() : QIcon::fromTheme(name);
}

} // namespace

QIcon desktopEntryIcon(const QString &icon)
{
    if (icon.contains(QChar::Null))
        return {};
    return icon.startsWith(u'/') ? iconOfFile(icon) : iconOfTheme(icon);
}
