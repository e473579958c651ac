#include "preferenceswindow/CCNPreferencesWindow.h"

#include "platform/SettingsStore.h"
#include "platform/WindowSpace.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QToolBar>
#include <QWindow>

#include <algorithm>
#include <chrono>

using namespace std::chrono_literals;

/// Lies over the content and lets it through by degrees. Cheaper and steadier than an opacity
/// effect, which renders every control into a pixmap for each frame.
class FadeCover : public QWidget
{
public:
    explicit FadeCover(QWidget *parent) : QWidget(parent)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        hide();
    }

    void setContentOpacity(qreal opacity)
    {
        m_opacity = std::clamp(opacity, 0.0, 1.0);
        setVisible(m_opacity < 1);
        update();
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QColor ground = palette().color(QPalette::Window);
        ground.setAlphaF(static_cast<float>(1 - m_opacity));
        QPainter(this).fillRect(rect(), ground);
    }

private:
    qreal m_opacity = 1;
};

namespace {

constexpr QSize kInitialContentSize(420, 230);
/// A title bar needs this much room on the screen to be taken hold of.
constexpr int kReachable = 40;
constexpr float kVibrancy = 0.85F;

QRect movedOnto(const QRect &screen, QRect frame)
{
    frame.moveRight(std::min(frame.right(), screen.right()));
    frame.moveBottom(std::min(frame.bottom(), screen.bottom()));
    frame.moveLeft(std::max(frame.left(), screen.left()));
    frame.moveTop(std::max(frame.top(), screen.top()));
    return frame;
}

bool isReachable(const QRect &frame)
{
    const QRect top(frame.topLeft(), QSize(frame.width(), kReachable));
    const auto screens = QGuiApplication::screens();
    return std::any_of(screens.begin(), screens.end(), [&](const QScreen *screen) {
        const QRect shown = screen->availableGeometry() & top;
        return shown.width() >= kReachable && shown.height() >= kReachable;
    });
}

} // namespace

CCNPreferencesWindow::CCNPreferencesWindow(SettingsStore &settings, WindowSpace &windowSpace)
    : QWidget(nullptr, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                           Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                           Qt::WindowCloseButtonHint),
      m_settings(settings), m_windowSpace(windowSpace), m_holder(new QWidget(this)),
      m_cover(new FadeCover(m_holder))
{
    setAttribute(Qt::WA_QuitOnClose, false);
    setObjectName(QStringLiteral("CCNPreferencesWindow"));
    m_saveTimer.setSingleShot(true);
    m_saveTimer.setInterval(300ms);
    connect(&m_saveTimer, &QTimer::timeout, this, &CCNPreferencesWindow::saveFrame);
    m_limitTimer.setSingleShot(true);
    m_limitTimer.setInterval(200ms);
    connect(&m_limitTimer, &QTimer::timeout, this, &CCNPreferencesWindow::closeLimits);
    setFrame(QRect(QPoint(0, 0), kInitialContentSize));
}

CCNPreferencesWindow::~CCNPreferencesWindow()
{
    if (m_saveTimer.isActive())
        saveFrame();
    setContentView(nullptr);
}

void CCNPreferencesWindow::setToolbar(QToolBar *toolbar)
{
    delete m_toolbar;
    m_toolbar = toolbar;
    if (m_toolbar) {
        m_toolbar->setParent(this);
        m_toolbar->show();
    }
    layOut();
}

void CCNPreferencesWindow::setShowsToolbarSeparator(bool shows)
{
    m_showsToolbarSeparator = shows;
    update();
}

void CCNPreferencesWindow::setTitlebarAppearsTransparent(bool isTransparent)
{
    m_titlebarAppearsTransparent = isTransparent;
    update();
}

void CCNPreferencesWindow::setVibrant(bool isVibrant)
{
    if (isVibrant && !testAttribute(Qt::WA_WState_Created))
        setAttribute(Qt::WA_TranslucentBackground);
    m_isVibrant = isVibrant;
    update();
}

void CCNPreferencesWindow::setContentView(QWidget *view)
{
    if (m_contentView && m_contentView != view) {
        m_contentView->hide();
        m_contentView->setParent(nullptr);
    }
    m_contentView = view;
    if (!view)
        return;
    view->setParent(m_holder);
    view->move(0, 0);
    view->show();
    m_cover->raise();
}

void CCNPreferencesWindow::setContentOpacity(qreal opacity)
{
    m_cover->setContentOpacity(opacity);
}

QRect CCNPreferencesWindow::frameForContentSize(const QSize &content) const
{
    return {geometry().topLeft(), QSize(content.width(), content.height() + toolbarHeight())};
}

QSize CCNPreferencesWindow::contentSizeOf(const QRect &frame) const
{
    return {frame.width(), frame.height() - toolbarHeight()};
}

void CCNPreferencesWindow::setFrame(const QRect &frame)
{
    if (!m_opensLimits) {
        setSizeLimits(frame.size(), frame.size());
        setGeometry(frame);
        return;
    }
    // A window manager that learns of a new only size resizes the window by itself, before it moves
    // it to the new place: a jump to the side. So the limits are opened first and closed again once
    // the window has been at rest for a while.
    setSizeLimits({0, 0}, {QWIDGETSIZE_MAX, QWIDGETSIZE_MAX});
    setGeometry(frame);
    m_limitTimer.start();
}

void CCNPreferencesWindow::closeLimits()
{
    setSizeLimits(size(), size());
}

void CCNPreferencesWindow::center()
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    setFrame(QRect(QPoint(screen.x() + (screen.width() - width()) / 2,
                          screen.y() + (screen.height() - height()) / 3),
                   size()));
}

void CCNPreferencesWindow::keepOnScreen()
{
    const QScreen *screen = QGuiApplication::screenAt(geometry().center());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    const QRect frame = movedOnto(screen->availableGeometry(), geometry());
    if (frame != geometry())
        setFrame(frame);
}

void CCNPreferencesWindow::setFrameAutosaveName(const QString &name)
{
    m_frameKey = QStringLiteral("NSWindow Frame ") + name;
    setFrameFromString(m_settings.value(m_frameKey).toString());
}

bool CCNPreferencesWindow::setFrameFromString(const QString &text)
{
    const QStringList fields = text.split(u' ', Qt::SkipEmptyParts);
    if (fields.size() < 4)
        return false;
    int numbers[4] = {};
    for (int i = 0; i < 4; ++i) {
        bool isNumber = false;
        numbers[i] = fields[i].toInt(&isNumber);
        if (!isNumber || std::abs(numbers[i]) > QWIDGETSIZE_MAX)
            return false;
    }
    const QRect frame(numbers[0], numbers[1], numbers[2], numbers[3]);
    if (frame.isEmpty())
        return false;
    // The screen it stood on may be gone.
    setFrame(isReachable(frame)
                 ? frame
                 : movedOnto(QGuiApplication::primaryScreen()->availableGeometry(), frame));
    return true;
}

void CCNPreferencesWindow::setVisible(bool isVisible)
{
    if (isVisible) {
        create();
        m_opensLimits = m_windowSpace.prepareFixedWindow(windowHandle());
        setSizeLimits(size(), size());
    }
    QWidget::setVisible(isVisible);
}

void CCNPreferencesWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        hide();
    else
        QWidget::keyPressEvent(event);
}

void CCNPreferencesWindow::moveEvent(QMoveEvent *event)
{
    QWidget::moveEvent(event);
    if (isVisible())
        m_saveTimer.start();
}

void CCNPreferencesWindow::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    layOut();
    if (isVisible())
        m_saveTimer.start();
}

void CCNPreferencesWindow::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    if (event->spontaneous())
        return;
    m_saveTimer.stop();
    saveFrame();
    Q_EMIT hidden();
}

void CCNPreferencesWindow::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QColor ground = palette().color(QPalette::Window);
    painter.fillRect(0, 0, width(), toolbarHeight(), ground);
    if (m_isVibrant)
        ground.setAlphaF(kVibrancy);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(m_holder->geometry(), ground);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    if (!m_toolbar || m_titlebarAppearsTransparent || !m_showsToolbarSeparator)
        return;
    QColor line = palette().color(QPalette::WindowText);
    line.setAlphaF(0.2F);
    painter.fillRect(0, toolbarHeight() - 1, width(), 1, line);
}

/// Through the native window and not through the widget, which would resize itself in a step of
/// its own.
void CCNPreferencesWindow::setSizeLimits(const QSize &minimum, const QSize &maximum)
{
    if (QWindow *native = windowHandle()) {
        native->setMinimumSize(minimum);
        native->setMaximumSize(maximum);
    }
}

int CCNPreferencesWindow::toolbarHeight() const
{
    // One more point for the line below it.
    return m_toolbar ? m_toolbar->sizeHint().height() + 1 : 0;
}

void CCNPreferencesWindow::layOut()
{
    const int top = toolbarHeight();
    if (m_toolbar)
        m_toolbar->setGeometry(0, 0, width(), top - 1);
    m_holder->setGeometry(0, top, width(), std::max(0, height() - top));
    m_cover->setGeometry(m_holder->rect());
}

void CCNPreferencesWindow::saveFrame()
{
    if (m_frameKey.isEmpty())
        return;
    const QRect frame = geometry();
    const QRect screen = this->screen()->availableGeometry();
    QStringList fields;
    for (const int number : {frame.x(), frame.y(), frame.width(), frame.height(), screen.x(),
                             screen.y(), screen.width(), screen.height()})
        fields.append(QString::number(number));
    m_settings.setValue(m_frameKey, fields.join(u' '));
}
