#include "Clipboard/preview/ListContent.h"

#include "Clipboard/preview/ListBody.h"

#include <QLocale>

namespace {

QString summed(const ListCount &count)
{
    const QString size = QLocale().formattedDataSize(count.bytes);
    const QString entries =
        count.entries == 1 ? ListBody::tr("1 entry")
                           : ListBody::tr("%Ln entries", nullptr, static_cast<int>(count.entries));
    return count.isWhole ? ListBody::tr("%1, %2").arg(entries, size)
                         : ListBody::tr("%1, %2 or more").arg(entries, size);
}

} // namespace

ListContent::ListContent(const ListCount &count, QStringList entries)
    : m_summary(summed(count)), m_entries(std::move(entries))
{
}

PreviewBody *ListContent::makeBody(FileQuestions &, QWidget *parent) const
{
    return new ListBody(*this, parent);
}
