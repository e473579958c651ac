#include "Clipboard/preview/FilePreview.h"

#include "Clipboard/preview/FileCard.h"
#include "Clipboard/preview/PreviewBodies.h"
#include "Clipboard/preview/PreviewBody.h"
#include "Clipboard/preview/PreviewRegistry.h"
#include "preview/PreviewContent.h"

#include <QResizeEvent>
#include <QScrollBar>

namespace {

/// Long enough that a file that is read at once does not flash its card before.
constexpr int kPatienceMs = 400;
constexpr int kSettlingMs = 150;
/// Sizes are asked for in steps, so that a dragged divider does not read a picture anew each time.
constexpr int kPixelStep = 256;

} // namespace

FilePreview::FilePreview(PreviewRegistry &registry, QString path, QWidget *parent)
    : QWidget(parent), m_registry(registry), m_path(std::move(path)),
      m_card(new FileCard(m_path, this)), m_watch(m_path)
{
    m_card->hide();
    m_patience.setSingleShot(true);
    m_patience.setInterval(kPatienceMs);
    connect(&m_patience, &QTimer::timeout, this, &FilePreview::showCard);
    m_settling.setSingleShot(true);
    m_settling.setInterval(kSettlingMs);
    connect(&m_settling, &QTimer::timeout, this, &FilePreview::settle);
    connect(&m_watch, &FileWatch::changed, this, [this] {
        // A file that never rests is shown now and then.
        if (!m_settling.isActive())
            m_settling.start();
    });
}

FilePreview::~FilePreview() = default;

void FilePreview::refresh()
{
    if (m_path.isEmpty())
        return;
    if (!m_body && !m_card->isVisible())
        m_patience.start();
    m_askedPixels = wantedPixels();
    m_ticket = m_registry.ask(
        m_path, m_askedPixels, [this](const PreviewResult &result) { receive(result); },
        m_watch.descriptor());
}

void FilePreview::receive(const PreviewResult &result)
{
    m_patience.stop();
    m_card->setAttributes(result.attributes, result.trouble);
    if (!result.content) {
        showCard();
        return;
    }
    // The same content in the same widget keeps its place.
    if (m_body && result.content == m_content)
        return;
    const int place = m_body && m_body->scrollBar() ? m_body->scrollBar()->value() : 0;
    delete m_body;
    m_content = result.content;
    m_body = PreviewBodies::make(*m_content, m_path, m_registry, this);
    m_body->setGeometry(rect());
    m_body->setColors(m_colors);
    m_card->hide();
    m_body->show();
    // Whoever reads a file that grows reads on where they are.
    if (m_body->scrollBar())
        m_body->scrollBar()->setValue(place);
}

void FilePreview::showCard()
{
    delete m_body;
    m_body = nullptr;
    m_content.reset();
    m_card->show();
}

void FilePreview::settle()
{
    m_isStale = !isVisible();
    if (m_isStale)
        return;
    refresh();
    Q_EMIT fileChanged();
}

void FilePreview::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (m_isStale)
        settle();
}

void FilePreview::setColors(const ClipColors &colors)
{
    m_colors = colors;
    m_card->setColors(colors);
    if (m_body)
        m_body->setColors(colors);
}

QSize FilePreview::wantedPixels() const
{
    const QSize pixels = size() * devicePixelRatioF();
    const auto stepped = [](int extent) {
        return (qMax(extent, 1) + kPixelStep - 1) / kPixelStep * kPixelStep;
    };
    return {stepped(pixels.width()), stepped(pixels.height())};
}

void FilePreview::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    m_card->setGeometry(rect());
    if (m_body)
        m_body->setGeometry(rect());
    if (m_content && m_content->dependsOnSize() && wantedPixels() != m_askedPixels)
        m_settling.start();
}
