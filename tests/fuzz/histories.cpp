/// The histories of other programs, and the file of `export`. The first byte chooses the program.
/// Kept inputs: tests/data/fuzz/histories.

#include "Clipboard/exchange/ClipFile.h"
#include "Clipboard/exchange/ForeignFormats.h"
#include "fuzz/Demand.h"

#include <QBuffer>

#include <algorithm>
#include <array>

namespace {

constexpr std::array kReaders{
    &ForeignFormats::readCopyQ,   &ForeignFormats::readKlipper,     &ForeignFormats::readGPaste,
    &ForeignFormats::readClipman, &ForeignFormats::readXfceClipman, &ForeignFormats::readCliphist,
};

void saySilently(QtMsgType, const QMessageLogContext &, const QString &) {}

bool isSame(const SharedClip &one, const SharedClip &other)
{
    const QList<CopyFormat> &formats = storedFormats();
    return one.text == other.text && one.fileNames == other.fileNames &&
           one.applicationName == other.applicationName &&
           one.createSeconds == other.createSeconds && one.pasteCount == other.pasteCount &&
           std::all_of(formats.begin(), formats.end(), [&](const CopyFormat &format) {
               return one.*format.source == other.*format.source;
           });
}

void checkForeign(const ForeignFormats::Contents &contents, qint64 size)
{
    qint64 characters = 0;
    for (const ForeignFormats::Clip &clip : contents.clips) {
        characters += clip.text.size();
        demand(std::all_of(clip.fileNames.begin(), clip.fileNames.end(),
                           [](const QString &name) { return name.startsWith(u'/'); }),
               "a file has an absolute path");
    }
    demand(contents.clips.size() <= ForeignFormats::kMaxClips, "no more clips than are bearable");
    // An entity of XML is the longest for what it stands for; a page of the store of one program
    // may be told to be in it many times.
    demand(characters <= ForeignFormats::kMaxCharacters + size, "nor more text");
}

void checkOwn(QBuffer &file)
{
    const auto clips = ClipFile::read(file);
    if (!clips)
        return;
    QBuffer written;
    written.open(QIODevice::ReadWrite);
    ClipFile::Writer writer(written);
    for (const SharedClip &clip : *clips)
        writer.write(clip);
    demand(writer.finish(), "a file in memory takes everything");
    written.seek(0);
    const auto again = ClipFile::read(written);
    demand(again && std::equal(clips->begin(), clips->end(), again->begin(), again->end(), isSame),
           "what was read is read again from what was written");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    qInstallMessageHandler(saySilently);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Input input(data, size);
    const std::size_t reader = input.byte() % (kReaders.size() + 1);
    QBuffer file;
    file.setData(input.rest());
    file.open(QIODevice::ReadOnly);
    if (reader == kReaders.size())
        checkOwn(file);
    else
        checkForeign(kReaders[reader](file), qint64(size));
    return 0;
}
