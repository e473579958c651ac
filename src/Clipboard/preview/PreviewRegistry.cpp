#include "Clipboard/preview/PreviewRegistry.h"

#include "Clipboard/preview/ArchiveRenderer.h"
#include "Clipboard/preview/FilePreview.h"
#include "Clipboard/preview/FolderRenderer.h"
#include "Clipboard/preview/FontRenderer.h"
#include "Clipboard/preview/ImageRenderer.h"
#include "Clipboard/preview/PdfRenderer.h"
#include "Clipboard/preview/PreviewFile.h"
#include "Clipboard/preview/PreviewRenderer.h"
#include "Clipboard/preview/SvgRenderer.h"
#include "Clipboard/preview/TextRenderer.h"
#include "Clipboard/preview/ThumbnailRenderer.h"

#include <QMimeDatabase>

#include <algorithm>

#include <malloc.h>

PreviewRegistry::PreviewRegistry(FileQuestions &questions) : m_questions(questions)
{
    // The first that accepts a type and can read the file shows it, so the special come before the
    // general: an SVG picture is a text as well, and so are some office documents.
    auto renderers = std::make_shared<Renderers>();
    renderers->push_back(std::make_unique<SvgRenderer>());
    renderers->push_back(std::make_unique<ImageRenderer>());
    renderers->push_back(std::make_unique<PdfRenderer>());
    renderers->push_back(std::make_unique<FolderRenderer>());
    renderers->push_back(std::make_unique<ArchiveRenderer>());
    renderers->push_back(std::make_unique<FontRenderer>());
    renderers->push_back(std::make_unique<ThumbnailRenderer>());
    renderers->push_back(std::make_unique<TextRenderer>());
    m_renderers = std::move(renderers);
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
    auto work = [this, renderers = m_renderers, path, pixels, known = kept(path),
                 receive = std::move(receive), watch = std::move(watch)](const Patience &patience) {
        if (watch)
            FileWatch::follow(*watch);
        PreviewResult result = read(*renderers, path, pixels, known, patience);
        return [this, path, pixels, receive, result = std::move(result)] {
            if (result.content)
                keep({path, pixels, result});
            receive(result);
        };
    };
    return m_questions.ask(path, FileQuestions::Kind::Read, PreviewRenderer::kMaxTime,
                           std::move(work));
}

void PreviewRegistry::forget()
{
    m_kept.clear();
    // What the threads have freed would else stay with the process, ready for the next of them.
    m_trimming = m_questions.ask(QString(), FileQuestions::Kind::Read, PreviewRenderer::kMaxTime,
                                 [](const Patience &) {
                                     ::malloc_trim(0);
                                     return FileQuestions::Delivery();
                                 });
}

PreviewResult PreviewRegistry::read(const Renderers &renderers, const QString &path, QSize pixels,
                                    const std::optional<Kept> &kept, const Patience &patience)
{
    PreviewResult result;
    PreviewFile file(path, patience);
    QMimeType type;
    result.facts = FileFacts::read(file, &type);
    if (!result.facts || (!result.facts->isFolder && !file.isOpen()))
        return result;
    if (kept && kept->result.facts == result.facts &&
        (kept->pixels == pixels || !kept->result.content->dependsOnSize())) {
        result.content = kept->result.content;
        return result;
    }
    result.content = contentAs(type, renderers, file, pixels, patience);
    if (!result.content && file.isOpen()) {
        // Many a picture is named as one of another kind.
        const QMimeType told = FileFacts::typeByContent(file);
        if (told != type)
            result.content = contentAs(told, renderers, file, pixels, patience);
    }
    return result;
}

std::shared_ptr<const PreviewContent> PreviewRegistry::contentAs(const QMimeType &type,
                                                                 const Renderers &renderers,
                                                                 PreviewFile &file, QSize pixels,
                                                                 const Patience &patience)
{
    for (const auto &renderer : renderers) {
        if (!renderer->accepts(type) || patience.isOver())
            continue;
        if (file.isOpen())
            file.seek(0);
        if (auto content = renderer->read(file, type, pixels, patience))
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
        return ++count > kMostKept || bytes > kMostKeptBytes;
    });
    m_kept.erase(firstTooMany, m_kept.end());
}
