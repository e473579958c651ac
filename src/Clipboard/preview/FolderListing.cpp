#include "Clipboard/preview/FolderListing.h"

#include "platform/FileQuestions.h"
#include "preview/ListContent.h"

#include <QCollator>
#include <QDirIterator>
#include <QLocale>

#include <algorithm>

namespace {

constexpr std::chrono::milliseconds kMaxTime{300};

ListCount counted(const QString &path, QStringList *names, const Patience &patience)
{
    ListCount count;
    int looked = 0;
    const auto isEnough = [&] {
        count.isWhole =
            count.isWhole && ++looked <= FolderListing::kMaxCounted && !patience.isOver();
        return !count.isWhole;
    };
    constexpr QDir::Filters kAll = QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot;
    QDirIterator entries(path, kAll);
    while (entries.hasNext() && !isEnough()) {
        const QFileInfo entry = entries.nextFileInfo();
        ++count.entries;
        names->append(entry.isDir() ? entry.fileName() + u'/' : entry.fileName());
    }
    QDirIterator files(path, kAll | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext() && !isEnough()) {
        const QFileInfo file = files.nextFileInfo();
        if (file.isFile() && !file.isSymLink())
            count.bytes += file.size();
    }
    return count;
}

QStringList firstSorted(QStringList entries)
{
    // Numbers have their order only in a language.
    QCollator collator(QLocale().language() == QLocale::C ? QLocale(QLocale::English) : QLocale());
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::sort(entries.begin(), entries.end(), [&collator](const QString &a, const QString &b) {
        const bool isFolder = a.endsWith(u'/');
        if (isFolder != b.endsWith(u'/'))
            return isFolder;
        return collator.compare(a, b) < 0;
    });
    entries.resize(qMin(entries.size(), ListContent::kMaxEntries));
    return entries;
}

} // namespace

std::shared_ptr<const PreviewContent> FolderListing::read(const QString &path,
                                                          const Patience &patience)
{
    QStringList names;
    const ListCount count = counted(path, &names, patience.atMost(kMaxTime));
    return std::make_shared<ListContent>(count, firstSorted(std::move(names)));
}
