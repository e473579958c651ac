#include "platform/wayland/LayerWindowSpace.h"

#include <LayerShellQt/Window>
#include <QApplication>
#include <QEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QRasterWindow>
#include <QScreen>
#include <QWidget>

#include <algorithm>
#include <utility>

using Layer = LayerShellQt::Window;

namespace {

/// The window itself must not wait for the one that catches clicks, so this comes once the window
/// has the keyboard; after that time it comes anyway.
constexpr std::chrono::milliseconds kCatcherDelay{100};

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

/// What was changed of the layer comes into effect with the window's next picture.
void commit(const QWindow &window)
{
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget *widget : widgets) {
        if (widget->windowHandle() == &window && widget->isVisible())
            widget->update(0, 0, 1, 1);
    }
}

} // namespace

LayerWindowSpace::LayerWindowSpace(std::function<bool()> areAnimationsWanted, QObject *parent)
    : PlainWindowSpace(std::move(areAnimationsWanted), parent)
{
    m_catcherDelay.setSingleShot(true);
    m_catcherDelay.setInterval(kCatcherDelay);
    connect(&m_catcherDelay, &QTimer::timeout, this, &LayerWindowSpace::showCatcher);
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &LayerWindowSpace::forget);
}

LayerWindowSpace::~LayerWindowSpace() = default;

void LayerWindowSpace::prepareUtilityWindow(QWindow *window)
{
    m_window = window;
    putInLayer(*window);
    window->installEventFilter(this);
    // On which output it stands is known once it is shown.
    connect(window, &QWindow::screenChanged, this, [this, window] {
        layOut(*window);
        commit(*window);
    });
}

QRect LayerWindowSpace::placeUtilityWindow(QWindow *window, const QSize &size,
                                           const QMargins &shadow)
{
    m_size = size;
    m_shadow = shadow;
    // Closing has taken it out of its layer, for good.
    if (!window->handle())
        putInLayer(*window);
    layOut(*window);
    return {QPoint(), size};
}

void LayerWindowSpace::setSharesKeyboard(QWindow *window, bool shares)
{
    m_layer->setKeyboardInteractivity(shares ? Layer::KeyboardInteractivityNone
                                             : Layer::KeyboardInteractivityExclusive);
    commit(*window);
}

bool LayerWindowSpace::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_window) {
        if (event->type() == QEvent::Expose && m_window->isExposed() && !m_catcher)
            m_catcherDelay.start();
        else if (event->type() == QEvent::FocusIn)
            showCatcher();
        else if (event->type() == QEvent::Hide)
            removeCatcher();
    }
    return PlainWindowSpace::eventFilter(watched, event);
}

void LayerWindowSpace::putInLayer(QWindow &window)
{
    delete m_layer;
    window.create();
    m_layer = Layer::get(&window);
    m_layer->setScope(QStringLiteral("quillmarsh"));
    m_layer->setLayer(Layer::LayerOverlay);
    m_layer->setAnchors(Layer::AnchorTop);
    // Panels are not made way for: where they leave the window its place is not told.
    m_layer->setExclusiveZone(-1);
    m_layer->setKeyboardInteractivity(Layer::KeyboardInteractivityExclusive);
    m_layer->setScreenConfiguration(Layer::ScreenFromCompositor);
}

void LayerWindowSpace::layOut(const QWindow &window) const
{
    const QScreen *screen = window.screen();
    const int height = screen ? screen->size().height() : m_size.height();
    const int above = qRound((height - m_size.height()) / 3.0);
    m_layer->setMargins({0, above - m_shadow.top(), 0, 0});
}

void LayerWindowSpace::forget(const QScreen *gone)
{
    // What is in a layer goes with its output. It comes up elsewhere when it is called again.
    if (m_window && m_window->isVisible() && m_window->screen() == gone)
        m_window->close();
}

void LayerWindowSpace::showCatcher()
{
    m_catcherDelay.stop();
    if (!m_catcher)
        m_catcher = std::make_unique<Catcher>([this] { Q_EMIT outsideClicked(); });
    m_catcher->show();
}

void LayerWindowSpace::removeCatcher()
{
    m_catcherDelay.stop();
    if (!m_catcher)
        return;
    // Perhaps it is telling of a click just now.
    m_catcher->hide();
    m_catcher.release()->deleteLater();
}
