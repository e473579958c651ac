#include "preview/decoders/Decoders.h"

#include "platform/FileQuestions.h"
#include "preview/ImageContent.h"
#include "preview/PreviewFile.h"
#include "preview/decoders/ArchiveReader.h"
#include "preview/decoders/FontReader.h"
#include "preview/decoders/ImageReader.h"
#include "preview/decoders/PdfReader.h"
#include "preview/decoders/PreparedFonts.h"
#include "preview/decoders/SvgReader.h"
#include "preview/decoders/TextReader.h"

#include <QImageReader>

namespace {

using Content = std::shared_ptr<const PreviewContent>;
using Readers = std::vector<std::unique_ptr<const PreviewReader>>;

/// The special before the general: an SVG picture is a text as well.
Readers allReaders()
{
    Readers readers;
    readers.push_back(std::make_unique<SvgReader>());
    readers.push_back(std::make_unique<ImageReader>());
    readers.push_back(std::make_unique<PdfReader>());
    readers.push_back(std::make_unique<ArchiveReader>());
    readers.push_back(std::make_unique<FontReader>());
    readers.push_back(std::make_unique<TextReader>());
    return readers;
}

Content contentOf(const PreviewOrder &order, PreviewFile &file, const Patience &patience)
{
    static const Readers kReaders = allReaders();
    for (const auto &reader : kReaders) {
        if (!reader->accepts(order.type) || patience.isOver())
            continue;
        file.seek(0);
        if (Content content = reader->read(file, order.type, order.pixels, patience))
            return content;
    }
    return nullptr;
}

Content pageOf(const PreviewOrder &order, PreviewFile &file)
{
    const QImage page = PdfReader::page(file, order.page, order.pixels.width());
    if (page.isNull())
        return nullptr;
    return std::make_shared<ImageContent>(std::vector<ImageContent::Frame>{{page, 0}}, true);
}

} // namespace

void Decoders::prepare()
{
    QImageReader::supportedImageFormats();
    PreparedFonts::load();
}

PreviewAnswer Decoders::answer(const PreviewOrder &order, PreviewFile &file,
                               const Patience &patience)
{
    PreviewAnswer answer;
    switch (order.kind) {
    case PreviewOrder::Kind::File:
        answer.content = contentOf(order, file, patience);
        break;
    case PreviewOrder::Kind::Page:
        answer.content = pageOf(order, file);
        break;
    case PreviewOrder::Kind::Thumbnail:
        answer.content = ImageReader::thumbnail(file, order.written);
        break;
    }
    answer.isTimeUp = !answer.content && patience.isOver();
    return answer;
}
