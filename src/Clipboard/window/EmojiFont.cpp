#include "Clipboard/window/EmojiFont.h"

#include <QFontDatabase>
#include <QStringList>

namespace {

QString installedFamily()
{
    QString any;
    const QStringList families = QFontDatabase::families();
    for (const QString &family : families) {
        if (!family.contains(QStringLiteral("emoji"), Qt::CaseInsensitive))
            continue;
        if (family.contains(QStringLiteral("color"), Qt::CaseInsensitive))
            return family;
        any = family;
    }
    return any;
}

} // namespace

QTextCharFormat EmojiFont::format()
{
    // Fonts that are installed meanwhile count from the next start on, as all do.
    static const QString family = installedFamily();
    QTextCharFormat format;
    if (!family.isEmpty())
        format.setFontFamilies(QStringList{family});
    return format;
}
