#include "Clipboard/preview/PreviewRegistry.h"

#include "Clipboard/preview/ArchiveReader.h"
#include "Clipboard/preview/FilePreview.h"
#include "Clipboard/preview/FolderReader.h"
#include "Clipboard/preview/FontReader.h"
#include "Clipboard/preview/ImageReader.h"
#include "Clipboard/preview/PdfReader.h"
#include "Clipboard/preview/PreviewFile.h"
#include "Clipboard/preview/PreviewReader.h"
#include "Clipboard/preview/SvgReader.h"
#include "Clipboard/preview/TextReader.h"
#include "Clipboard/preview/ThumbnailReader.h"

#include <QMimeDatabase>

#include <algorithm>

#include <malloc.h>

PreviewRegistry::PreviewRegistry(FileQuestions &questions) : m_questions(questions)
{
    // The first that accepts a type and can read the file shows it, so the special come before the
    // general: an SVG picture is a text as well, and so are some office documents.
    auto readers = std::make_shared<Readers>();
    readers->push_back(std::make_unique<SvgReader>());
    readers->push_back(std::make_unique<ImageReader>());
    readers->push_back(std::make_unique<PdfReader>());
    readers->push_back(std::make_unique<FolderReader>());
    readers->push_back(std::make_unique<ArchiveReader>());
    readers->push_back(std::make_unique<FontReader>());
    readers->push_back(std::make_unique<ThumbnailReader>());
    readers->push_back(std::make_unique<TextReader>());
    m_readers = std::move(readers);
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
    auto work = [this, readers = m_readers, path, pixels, known = kept(path),
                 receive = std::move(receive), watch = std::move(watch)](const Patience &patience) {
        if (watch)
            FileWatch::follow(*watch);
        PreviewResult result = read(*readers, path, pixels, known, patience);
        return [this, path, pixels, receive, result = std::move(result)] {
            if (result.content)
                keep({path, pixels, result});
            receive(result);
        };
    };
    return m_questions.ask(path, FileQuestions::Kind::Read, PreviewReader::kMaxTime,
                           std::move(work));
}

void PreviewRegistry::forget()
{
    m_kept.clear();
    // What the threads have freed would else stay with the process, ready for the next of them.
    m_trimming = m_questions.ask(QString(), FileQuestions::Kind::Read, PreviewReader::kMaxTime,
                                 [](const Patience &) {
                                     ::malloc_trim(0);
                                     return FileQuestions::Delivery();
                                 });
}

PreviewResult PreviewRegistry::read(const Readers &readers, const QString &path, QSize pixels,
                                    const std::optional<Kept> &kept, const Patience &patience)
{
    PreviewResult result;
    PreviewFile file(path, patience);
    QMimeType type;
    result.attributes = FileAttributes::read(file, &type);
    if (!result.attributes || (!result.attributes->isFolder && !file.isOpen()))
        return result;
    if (kept && kept->result.attributes == result.attributes &&
        (kept->pixels == pixels || !kept->result.content->dependsOnSize())) {
        result.content = kept->result.content;
        return result;
    }
    result.content = contentAs(type, readers, file, pixels, patience);
    if (!result.content && file.isOpen()) {
        // Many a picture is named as one of another kind.
        const QMimeType found = FileAttributes::typeByContent(file);
        if (found != type)
            result.content = contentAs(found, readers, file, pixels, patience);
    }
    return result;
}

std::shared_ptr<const PreviewContent> PreviewRegistry::contentAs(const QMimeType &type,
                                                                 const Readers &readers,
                                                                 PreviewFile &file, QSize pixels,
                                                                 const Patience &patience)
{
    for (const auto &reader : readers) {
        if (!reader->accepts(type) || patience.isOver())
            continue;
        if (file.isOpen())
            file.seek(0);
        if (auto content = reader->read(file, type, pixels, patience))
            return content;
    }
    return nullptr;
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
        bytes += one.result.content->byteCount();
        return ++count > kMaxKept || bytes > kMaxKeptBytes;
    });
    m_kept.erase(firstTooMany, m_kept.end());
}
