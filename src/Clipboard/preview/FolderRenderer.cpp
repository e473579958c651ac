#include "Clipboard/preview/FolderRenderer.h"

#include "Clipboard/preview/ListContent.h"
#include "Clipboard/preview/PreviewFile.h"
#include "Clipboard/preview/PreviewThreads.h"

#include <QCollator>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QLocale>
#include <QMimeType>

#include <algorithm>

namespace {

constexpr qint64 kMostMilliseconds = 300;

ListCount counted(const QString &path, QStringList *names, const PreviewStop &stop)
{
    ListCount count;
    QElapsedTimer timer;
    timer.start();
    int looked = 0;
    const auto isEnough = [&] {
        count.isWhole = count.isWhole && ++looked <= FolderRenderer::kMostCounted &&
                        timer.elapsed() < kMostMilliseconds && !stop.isDue();
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
    entries.resize(qMin(entries.size(), ListContent::kMostEntries));
    return entries;
}

} // namespace

bool FolderRenderer::accepts(const QMimeType &type) const
{
    return type.inherits(QStringLiteral("inode/directory"));
}

std::shared_ptr<const PreviewContent> FolderRenderer::read(PreviewFile &file, const QMimeType &,
                                                           QSize, const PreviewStop &stop) const
{
    QStringList names;
    const ListCount count = counted(file.path(), &names, stop);
    return std::make_shared<ListContent>(count, firstSorted(std::move(names)));
}
