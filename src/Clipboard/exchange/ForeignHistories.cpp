#include "Clipboard/exchange/ForeignHistories.h"

#include "Clipboard/exchange/ForeignFormats.h"
#include "Clipboard/exchange/KlipperStore.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QStandardPaths>

#include <algorithm>
#include <cmath>

namespace {

using ForeignFormats::Contents;

struct Program
{
    const char *name;
    QStandardPaths::StandardLocation place;
    const char *folder;
    const char *files; ///< A name, or a pattern of several.
    Contents (*read)(QIODevice &file);
    bool isReadInParts;                                   ///< However large it is.
    Contents (*readStore)(const QString &path) = nullptr; ///< In the place of `read`.
};

constexpr Program kPrograms[] = {
    {"CopyQ", QStandardPaths::GenericConfigLocation, "copyq", "copyq_tab_*.dat",
     &ForeignFormats::readCopyQ, true},
    {"Klipper", QStandardPaths::GenericDataLocation, "klipper", "history2.lst",
     &ForeignFormats::readKlipper, false},
    {"Klipper", QStandardPaths::GenericDataLocation, "klipper", "history3.sqlite", nullptr, true,
     &KlipperStore::read},
    {"GPaste", QStandardPaths::GenericDataLocation, "gpaste", "*.xml", &ForeignFormats::readGPaste,
     false},
    {"Clipman", QStandardPaths::GenericDataLocation, "", "clipman.json",
     &ForeignFormats::readClipman, false},
    {"Clipman", QStandardPaths::GenericCacheLocation, "xfce4/clipman", "textsrc",
     &ForeignFormats::readXfceClipman, false},
    {"cliphist", QStandardPaths::GenericCacheLocation, "cliphist", "db",
     &ForeignFormats::readCliphist, true},
};

QFileInfoList filesOf(const Program &program)
{
    const QDir folder(QStandardPaths::writableLocation(program.place) + u'/' +
                      QLatin1String(program.folder));
    return folder.entryInfoList({QLatin1String(program.files)}, QDir::Files | QDir::Readable,
                                QDir::Name);
}

Contents contentsOf(const Program &program, const QFileInfo &info)
{
    if (program.readStore)
        return program.readStore(info.filePath());
    QFile file(info.filePath());
    const bool isReadable = (program.isReadInParts || info.size() <= ForeignFormats::kMaxFile) &&
                            file.open(QIODevice::ReadOnly);
    return isReadable ? program.read(file) : Contents();
}

ForeignHistories::Found readFile(const Program &program, const QFileInfo &info)
{
    ForeignHistories::Found found;
    found.program = QLatin1String(program.name);
    found.path = info.filePath();
    const Contents contents = contentsOf(program, info);
    found.isWhole = contents.isUnderstood;
    double date = std::floor(static_cast<double>(info.lastModified().toMSecsSinceEpoch()) / 1000);
    for (const ForeignFormats::Clip &clip : contents.clips) {
        SharedClip shared;
        shared.text = clip.text;
        shared.fileNames = clip.fileNames;
        shared.createSeconds = clip.createSeconds ? *clip.createSeconds : date--;
        found.clips.append(shared);
    }
    return found;
}

} // namespace

QList<ForeignHistories::Found> ForeignHistories::read()
{
    QList<Found> histories;
    for (const Program &program : kPrograms) {
        for (const QFileInfo &info : filesOf(program)) {
            const Found found = readFile(program, info);
            if (!found.clips.isEmpty() || !found.isWhole)
                histories.append(found);
        }
    }
    return histories;
}

QList<SharedClip> ForeignHistories::merged(const QList<Found> &histories)
{
    QList<SharedClip> all;
    for (const Found &history : histories)
        all += history.clips;
    std::stable_sort(all.begin(), all.end(), [](const SharedClip &one, const SharedClip &other) {
        return *one.createSeconds > *other.createSeconds;
    });
    QSet<QString> texts;
    all.removeIf([&texts](const SharedClip &clip) {
        const bool isRepeat = texts.contains(*clip.text);
        texts.insert(*clip.text);
        return isRepeat;
    });
    return all;
}
