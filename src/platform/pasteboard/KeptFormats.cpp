#include "platform/pasteboard/KeptFormats.h"

#include "platform/Copy.h"
#include "platform/pasteboard/PictureFormats.h"
#include "platform/pasteboard/TextFormats.h"

#include <QSet>

#include <algorithm>

namespace {

bool isOfUse(const QString &name)
{
    // Not every target may be asked for: DELETE and the insertions change the owner's document
    // (ICCCM 2.6.3), and pixmaps and their like (ICCCM 2.7.3) end with the client that made them.
    static const QSet<QString> kNotContents{
        // questions about the selection
        QStringLiteral("TARGETS"),
        QStringLiteral("MULTIPLE"),
        QStringLiteral("TIMESTAMP"),
        QStringLiteral("SAVE_TARGETS"),
        QStringLiteral("LENGTH"),
        QStringLiteral("LIST_LENGTH"),
        QStringLiteral("CHARACTER_POSITION"),
        QStringLiteral("LINE_NUMBER"),
        QStringLiteral("COLUMN_NUMBER"),
        // orders to the owner
        QStringLiteral("DELETE"),
        QStringLiteral("INSERT_PROPERTY"),
        QStringLiteral("INSERT_SELECTION"),
        // what the owner is
        QStringLiteral("CLASS"),
        QStringLiteral("NAME"),
        QStringLiteral("CLIENT_WINDOW"),
        QStringLiteral("WINDOW"),
        QStringLiteral("HOST_NAME"),
        QStringLiteral("OWNER_OS"),
        QStringLiteral("PROCESS"),
        QStringLiteral("TASK"),
        QStringLiteral("USER"),
        // what ends with it
        QStringLiteral("PIXMAP"),
        QStringLiteral("BITMAP"),
        QStringLiteral("DRAWABLE"),
        QStringLiteral("COLORMAP"),
        QStringLiteral("FOREGROUND"),
        QStringLiteral("BACKGROUND"),
        QStringLiteral("GTK_TEXT_BUFFER_CONTENTS"),
    };
    return !kNotContents.contains(name);
}

} // namespace

QList<QStringList> KeptFormats::plan(const QStringList &offered, const QStringList &had)
{
    QStringList wanted;
    const QString noText =
        TextFormats::mayHoldNone(offered) ? TextFormats::inOrder(offered).first() : QString();
    for (const QString &name : offered) {
        if (isOfUse(name) && name != noText && !had.contains(name) && !wanted.contains(name))
            wanted.append(name);
    }
    // First what would be missed most: the owner may end any moment.
    QStringList first = TextFormats::inOrder(wanted).mid(0, 1);
    for (const CopyFormat &format : copyFormats())
        first += format.names;
    QList<QStringList> plan;
    for (const QString &name : first) {
        if (wanted.removeOne(name))
            plan.append({name});
    }
    // One picture is painted anew for each encoding, which takes its owner as long each time.
    const QStringList pictures = PictureFormats::inOrder(wanted);
    if (!pictures.isEmpty() && PictureFormats::inOrder(had).isEmpty())
        plan.append(pictures);
    for (const QString &name : wanted) {
        if (!pictures.contains(name))
            plan.append({name});
    }
    return plan;
}
