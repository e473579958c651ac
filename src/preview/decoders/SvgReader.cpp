#include "preview/decoders/SvgReader.h"

#include "preview/ImageContent.h"
#include "preview/PreviewFile.h"

#include <QHash>
#include <QPainter>
#include <QSvgRenderer>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <vector>

namespace {

constexpr qint64 kMaxBytes = 8 << 20;
constexpr qint64 kMaxElements = 50'000; ///< Drawn, so one that is used twice counts twice.
constexpr size_t kMaxDepth = 200;

/// Counts what a drawing draws while it is read.
class ElementCount
{
public:
    void open(const QString &id) { m_open.push_back({id, 1}); }
    void use(const QString &id) { m_open.back().count += m_counts.value(id); }
    void close()
    {
        const Element element = m_open.back();
        m_open.pop_back();
        if (!element.id.isEmpty())
            m_counts.insert(element.id, element.count);
        (m_open.empty() ? m_total : m_open.back().count) += element.count;
    }

    bool knows(const QString &id) const { return m_counts.contains(id); }
    bool isTooMuch() const
    {
        return m_open.size() > kMaxDepth || m_total > kMaxElements ||
               (!m_open.empty() && m_open.back().count > kMaxElements);
    }

private:
    struct Element
    {
        QString id;
        qint64 count;
    };

    std::vector<Element> m_open;
    QHash<QString, qint64> m_counts; ///< Of closed elements, by name.
    qint64 m_total = 0;
};

QString reference(const QXmlStreamAttributes &attributes)
{
    for (const QXmlStreamAttribute &attribute : attributes)
        if (attribute.name() == QLatin1String("href"))
            return attribute.value().trimmed().toString();
    return {};
}

/// Whether the element may stay. One that uses a later one, or one that holds it, may not: how much
/// it draws is not known.
bool mayStay(const QXmlStreamReader &reader, ElementCount &count)
{
    const QString target = reference(reader.attributes());
    if (reader.name() == QLatin1String("use")) {
        if (!target.startsWith(u'#') || !count.knows(target.mid(1)))
            return false;
        count.use(target.mid(1));
        return true;
    }
    return reader.name() != QLatin1String("image") || target.startsWith(QLatin1String("data:"));
}

} // namespace

std::optional<QByteArray> SvgReader::harmless(const QByteArray &drawing)
{
    QXmlStreamReader reader(drawing);
    QByteArray kept;
    QXmlStreamWriter writer(&kept);
    ElementCount count;
    while (!reader.atEnd() && !count.isTooMuch()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            count.open(reader.attributes().value(QLatin1String("id")).toString());
            if (mayStay(reader, count)) {
                writer.writeCurrentToken(reader);
            } else {
                count.close();
                reader.skipCurrentElement();
            }
            break;
        case QXmlStreamReader::EndElement:
            count.close();
            writer.writeCurrentToken(reader);
            break;
        case QXmlStreamReader::DTD:
        case QXmlStreamReader::Invalid:
            break;
        default:
            writer.writeCurrentToken(reader);
        }
    }
    if (reader.hasError() || count.isTooMuch())
        return std::nullopt;
    return kept;
}

bool SvgReader::accepts(const PreviewType &type) const
{
    return type.inherits(QLatin1String("image/svg+xml"));
}

std::shared_ptr<const PreviewContent> SvgReader::read(PreviewFile &file, const PreviewType &,
                                                      QSize pixels, const Patience &) const
{
    if (file.size() > kMaxBytes)
        return nullptr;
    const std::optional<QByteArray> drawing = harmless(file.readAll());
    QSvgRenderer renderer;
    if (!drawing || !renderer.load(*drawing) || renderer.defaultSize().isEmpty())
        return nullptr;
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    QImage image(renderer.defaultSize().scaled(pixels, Qt::KeepAspectRatio).expandedTo({1, 1}),
                 QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return nullptr;
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    painter.end();
    return std::make_shared<ImageContent>(std::vector<ImageContent::Frame>{{image, 0}}, true);
}
