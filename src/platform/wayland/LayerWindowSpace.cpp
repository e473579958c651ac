#include "platform/wayland/LayerWindowSpace.h"

#include <LayerShellQt/Window>
#include <QEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QRasterWindow>
#include <QScreen>

#include <algorithm>
#include <utility>

using Layer = LayerShellQt::Window;

namespace {

/// Covers an output with nothing, and says when it is clicked.
class Catcher : public QRasterWindow
{
public:
    explicit Catcher(std::function<void()> clicked) : m_clicked(std::move(clicked))
    {
        QSurfaceFormat format = this->format();
        format.setAlphaBufferSize(8);
        setFormat(format);
        setFlags(Qt::FramelessWindowHint);
        Layer *layer = Layer::get(this);
        layer->setScope(QStringLiteral("quillmarsh-outside"));
        layer->setLayer(Layer::LayerTop);
        layer->setAnchors(Layer::Anchors(Layer::AnchorTop | Layer::AnchorBottom |
                                         Layer::AnchorLeft | Layer::AnchorRight));
        layer->setExclusiveZone(-1);
        layer->setKeyboardInteractivity(Layer::KeyboardInteractivityNone);
        layer->setScreenConfiguration(Layer::ScreenFromCompositor);
    }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QPainter painter(this);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(event->rect(), Qt::transparent);
    }

    void mousePressEvent(QMouseEvent *) override { m_clicked(); }
    void touchEvent(QTouchEvent *) override { m_clicked(); }

private:
    std::function<void()> m_clicked;
};

} // namespace

LayerWindowSpace::LayerWindowSpace(std::function<bool()> areAnimationsWanted, QObject *parent)
    : PlainWindowSpace(std::move(areAnimationsWanted), parent)
{
}

LayerWindowSpace::~LayerWindowSpace() = default;

void LayerWindowSpace::prepareUtilityWindow(QWindow *window)
{
    m_window = window;
    Layer *layer = Layer::get(window);
    layer->setScope(QStringLiteral("quillmarsh"));
    layer->setLayer(Layer::LayerOverlay);
    layer->setAnchors(Layer::AnchorTop);
    // Panels are not made way for: where they leave the window its place is not told.
    layer->setExclusiveZone(-1);
    layer->setKeyboardInteractivity(Layer::KeyboardInteractivityExclusive);
    layer->setScreenConfiguration(Layer::ScreenFromCompositor);
    window->installEventFilter(this);
    // On which output it stands is known once it is shown.
    connect(window, &QWindow::screenChanged, this, [this, window] { layOut(*window); });
}

QRect LayerWindowSpace::placeUtilityWindow(QWindow *window, const QSize &size,
                                           const QMargins &shadow)
{
    m_size = size;
    m_shadow = shadow;
    layOut(*window);
    return {QPoint(), size};
}

void LayerWindowSpace::setSharesKeyboard(QWindow *window, bool shares)
{
    Layer::get(window)->setKeyboardInteractivity(shares ? Layer::KeyboardInteractivityNone
                                                        : Layer::KeyboardInteractivityExclusive);
}

bool LayerWindowSpace::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_window) {
        if (event->type() == QEvent::Expose && m_window->isExposed())
            showCatcher();
        else if (event->type() == QEvent::Hide)
            m_catcher.reset();
    }
    return PlainWindowSpace::eventFilter(watched, event);
}

void LayerWindowSpace::layOut(QWindow &window) const
{
    const QScreen *screen = window.screen();
    const int height = screen ? screen->size().height() : m_size.height();
    const int above = qRound((height - m_size.height()) / 3.0);
    Layer::get(&window)->setMargins({0, above - m_shadow.top(), 0, 0});
}

/// Not before the window itself, which must not wait for it.
void LayerWindowSpace::showCatcher()
{
    if (!m_catcher)
        m_catcher = std::make_unique<Catcher>([this] { Q_EMIT outsideClicked(); });
    m_catcher->show();
}
