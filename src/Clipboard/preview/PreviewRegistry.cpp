#include "Clipboard/preview/PreviewRegistry.h"

#include "Clipboard/preview/FilePreview.h"
#include "Clipboard/preview/FolderListing.h"
#include "Clipboard/preview/Thumbnails.h"
#include "preview/ImageContent.h"
#include "preview/PreviewFile.h"
#include "preview/PreviewProcess.h"

#include <QMimeType>

#include <algorithm>

#include <malloc.h>

namespace {

/// Whether there is a reader for such files at all, so that it is worth a process.
bool mayBeRead(const PreviewType &type)
{
    if (type.inherits(QLatin1String("text/plain")))
        return true;
    for (const char *none : {"application/octet-stream", "inode/", "audio/", "video/"})
        if (type.name().startsWith(QLatin1String(none)))
            return false;
    return true;
}

PreviewOrder orderFor(PreviewOrder::Kind kind, const PreviewFile &file, QSize pixels)
{
    PreviewOrder order;
    order.kind = kind;
    order.pixels = pixels;
    order.size = file.size();
    order.time = PreviewRegistry::kMaxTime;
    return order;
}

void readThumbnail(PreviewProcess &process, const QString &path, QSize pixels,
                   const Patience &patience, PreviewResult *result)
{
    Thumbnails::find(path, patience, [&](PreviewFile &thumbnail, const QString &written) {
        PreviewOrder order = orderFor(PreviewOrder::Kind::Thumbnail, thumbnail, pixels);
        order.written = written;
        PreviewOutcome outcome = process.ask(order, thumbnail.descriptor(), patience);
        result->content = std::move(outcome.content);
        result->trouble = outcome.trouble;
        return result->content || result->trouble != PreviewTrouble::None;
    });
}

} // namespace

PreviewRegistry::PreviewRegistry(FileQuestions &questions)
    : PreviewRegistry(questions, std::make_shared<PreviewProcess>())
{
}

PreviewRegistry::PreviewRegistry(FileQuestions &questions, std::shared_ptr<PreviewProcess> process)
    : m_questions(questions), m_process(std::move(process))
{
    m_resting.setSingleShot(true);
    m_resting.setInterval(kRestAfter);
    QObject::connect(&m_resting, &QTimer::timeout, &m_resting, [this] {
        m_rest = m_questions.ask(QString(), FileQuestions::Kind::Read, kMaxWait,
                                 [process = m_process](const Patience &) {
                                     process->rest();
                                     return FileQuestions::Delivery();
                                 });
    });
}

PreviewRegistry::~PreviewRegistry() = default;

FilePreview *PreviewRegistry::makeView(const QString &path, QWidget *parent)
{
    return new FilePreview(*this, path, parent);
}

FileTicket PreviewRegistry::ask(const QString &path, QSize pixels,
                                std::function<void(const PreviewResult &)> receive,
                                std::shared_ptr<FileWatch::Descriptor> watch)
{
    m_resting.start();
    auto work = [this, process = m_process, path, pixels, known = kept(path),
                 receive = std::move(receive), watch = std::move(watch)](const Patience &patience) {
        if (watch)
            FileWatch::follow(*watch);
        PreviewResult result = read(*process, path, pixels, known, patience);
        return [this, path, pixels, receive, result = std::move(result)] {
            if (result.content || PreviewTroubles::isOfFile(result.trouble))
                keep({path, pixels, result});
            receive(result);
        };
    };
    return m_questions.ask(path, FileQuestions::Kind::Read, kMaxWait, std::move(work));
}

FileTicket PreviewRegistry::askPage(const QString &path, int page, int width,
                                    std::function<void(const QImage &)> receive)
{
    m_resting.start();
    auto work = [process = m_process, path, page, width,
                 receive = std::move(receive)](const Patience &patience) {
        PreviewOutcome outcome;
        PreviewFile file(path, patience);
        if (file.openRegular()) {
            PreviewOrder order = orderFor(PreviewOrder::Kind::Page, file, QSize(width, 1));
            order.page = page;
            outcome = process->ask(order, file.descriptor(), patience);
        }
        const auto drawn = std::dynamic_pointer_cast<const ImageContent>(outcome.content);
        return
            [receive, image = drawn ? drawn->frames().front().image : QImage()] { receive(image); };
    };
    return m_questions.ask(path, FileQuestions::Kind::Read, kMaxWait, std::move(work));
}

void PreviewRegistry::forget()
{
    m_kept.clear();
    // What the threads have freed would else stay with the process, ready for the next of them.
    m_trimming =
        m_questions.ask(QString(), FileQuestions::Kind::Read, kMaxWait, [](const Patience &) {
            ::malloc_trim(0);
            return FileQuestions::Delivery();
        });
}

PreviewResult PreviewRegistry::read(PreviewProcess &process, const QString &path, QSize pixels,
                                    const std::optional<Kept> &kept, const Patience &patience)
{
    PreviewResult result;
    PreviewFile file(path, patience);
    QMimeType type;
    result.attributes = FileAttributes::read(file, &type);
    if (!result.attributes || (!result.attributes->isFolder && !file.isOpen()))
        return result;
    const PreviewContent *known = kept ? kept->result.content.get() : nullptr;
    if (kept && kept->result.attributes == result.attributes &&
        (!known || kept->pixels == pixels || !known->dependsOnSize()))
        return kept->result;
    if (result.attributes->isFolder) {
        result.content = FolderListing::read(path, patience);
        return result;
    }
    readContent(process, file, type, pixels, patience, &result);
    if (!result.content && result.trouble == PreviewTrouble::None) {
        // Many a picture is named as one of another kind.
        const QMimeType found = FileAttributes::typeByContent(file);
        if (found != type)
            readContent(process, file, found, pixels, patience, &result);
    }
    return result;
}

void PreviewRegistry::readContent(PreviewProcess &process, PreviewFile &file, const QMimeType &type,
                                  QSize pixels, const Patience &patience, PreviewResult *result)
{
    const auto hasEnough = [&] {
        return result->content || result->trouble != PreviewTrouble::None || patience.isOver();
    };
    PreviewOrder order = orderFor(PreviewOrder::Kind::File, file, pixels);
    order.type = PreviewType(type);
    // Some documents are texts as well, to be read by programs; their picture tells more.
    const bool mayHaveThumbnail = Thumbnails::mayBeOf(order.type);
    const bool isPicture = order.type.name().startsWith(QLatin1String("image/"));
    if (mayHaveThumbnail && !isPicture)
        readThumbnail(process, file.path(), pixels, patience, result);
    if (!hasEnough() && mayBeRead(order.type)) {
        PreviewOutcome outcome = process.ask(order, file.descriptor(), patience);
        result->content = std::move(outcome.content);
        result->trouble = outcome.trouble;
    }
    if (!hasEnough() && mayHaveThumbnail && isPicture)
        readThumbnail(process, file.path(), pixels, patience, result);
}

std::optional<PreviewRegistry::Kept> PreviewRegistry::kept(const QString &path) const
{
    const auto found = std::find_if(m_kept.begin(), m_kept.end(),
                                    [&path](const Kept &one) { return one.path == path; });
    return found == m_kept.end() ? std::nullopt : std::optional<Kept>(*found);
}

void PreviewRegistry::keep(Kept fresh)
{
    m_kept.remove_if([&fresh](const Kept &one) { return one.path == fresh.path; });
    m_kept.push_front(std::move(fresh));
    qint64 bytes = 0;
    size_t count = 0;
    const auto firstTooMany = std::find_if(m_kept.begin(), m_kept.end(), [&](const Kept &one) {
        bytes += one.result.content ? one.result.content->byteCount() : 0;
        return ++count > kMaxKept || bytes > kMaxKeptBytes;
    });
    m_kept.erase(firstTooMany, m_kept.end());
}
