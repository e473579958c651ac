#include "preferenceswindow/CCNPreferencesWindowController.h"

#include "platform/FrontApplication.h"
#include "platform/WindowSpace.h"
#include "preferenceswindow/CCNPreferencesWindow.h"
#include "preferenceswindow/CCNSegmentedControl.h"

#include <QAction>
#include <QActionGroup>
#include <QEasingCurve>
#include <QLayout>
#include <QToolBar>

#include <algorithm>

namespace {

constexpr int kSwitchMilliseconds = 250;

QString frameAutosaveName()
{
    return QStringLiteral("CCNPreferencesWindowFrameAutoSaveName");
}

QString flexibleSpace()
{
    return QStringLiteral("NSToolbarFlexibleSpaceItem");
}

QString segmentedControlItem()
{
    return QStringLiteral("CCNPreferencesToolbarSegmentedControl");
}

QEasingCurve easeInEaseOut()
{
    QEasingCurve curve(QEasingCurve::BezierSpline);
    curve.addCubicBezierSegment({0.42, 0}, {0.58, 1}, {1, 1});
    return curve;
}

/// Each edge is interpolated for itself, so that a window which stays centred does not sway.
QRect between(const QRect &from, const QRect &to, qreal progress)
{
    const auto edge = [progress](int a, int b) { return qRound(a + (b - a) * progress); };
    const QPoint topLeft(edge(from.x(), to.x()), edge(from.y(), to.y()));
    return {topLeft, QSize(edge(from.x() + from.width(), to.x() + to.width()) - topLeft.x(),
                           edge(from.y() + from.height(), to.y() + to.height()) - topLeft.y())};
}

/// Shows the window's own ground: the toolbar and the title bar are meant to be seen as one.
class UnifiedToolBar : public QToolBar
{
public:
    UnifiedToolBar() { setOwnMargins(); }

protected:
    void paintEvent(QPaintEvent *) override {}

    void changeEvent(QEvent *event) override
    {
        QToolBar::changeEvent(event);
        setOwnMargins();
    }

private:
    void setOwnMargins() { layout()->setContentsMargins(8, 8, 8, 8); }
};

} // namespace

CCNPreferencesWindowController::CCNPreferencesWindowController(SettingsStore &settings,
                                                               WindowSpace &windowSpace,
                                                               FrontApplication &frontApplication)
    : m_windowSpace(windowSpace), m_frontApplication(frontApplication),
      m_window(std::make_unique<CCNPreferencesWindow>(settings, windowSpace))
{
    m_animation.setDuration(kSwitchMilliseconds);
    m_animation.setEasingCurve(easeInEaseOut());
    m_animation.setStartValue(0.0);
    m_animation.setEndValue(1.0);
    connect(&m_animation, &QVariantAnimation::valueChanged, this, [this](const QVariant &value) {
        m_window->setContentOpacity(value.toReal());
        m_window->setFrame(between(m_oldFrame, m_newFrame, value.toReal()));
    });
    connect(&m_animation, &QVariantAnimation::finished, this,
            &CCNPreferencesWindowController::finishSwitch);
    // Nobody sees the rest of an animation once the window is gone.
    connect(m_window.get(), &CCNPreferencesWindow::hidden, this, [this] {
        if (m_nextViewController)
            finishSwitch();
    });

    m_window->center();
    m_window->setFrameAutosaveName(frameAutosaveName());
    // The name is no frame, so this changes nothing. Deliberate: it is how the window has always
    // been set up.
    m_window->setFrameFromString(frameAutosaveName());
}

CCNPreferencesWindowController::~CCNPreferencesWindowController()
{
    disconnect(m_window.get(), nullptr, this, nullptr);
}

void CCNPreferencesWindowController::setPreferencesViewControllers(const QList<Pane *> &panes)
{
    for (Pane *pane : panes)
        addPreferencesViewController(pane);
    rebuildToolbar();
}

CCNPreferencesWindowController::Pane *
CCNPreferencesWindowController::viewControllerWithIdentifier(const QString &identifier) const
{
    const auto found =
        std::find_if(m_viewControllers.begin(), m_viewControllers.end(),
                     [&](const Pane *pane) { return pane->preferenceIdentifier() == identifier; });
    return found == m_viewControllers.end() ? nullptr : *found;
}

void CCNPreferencesWindowController::showPreferencesWindow()
{
    // Set up before it is mapped rather than shown invisibly first: without a compositor there
    // are no transparent windows.
    m_window->setVibrant(m_allowsVibrancy && m_windowSpace.isCompositing());
    if (!m_viewControllers.isEmpty())
        activateViewController(m_viewControllers.first(), false);
    m_window->keepOnScreen();
    m_window->setWindowState(m_window->windowState() & ~Qt::WindowMinimized);
    m_window->show();
    m_window->raise();
    m_frontApplication.activate(m_window->windowHandle());
}

void CCNPreferencesWindowController::dismissPreferencesWindow()
{
    m_window->close();
}

bool CCNPreferencesWindowController::titlebarAppearsTransparent() const
{
    return m_window->titlebarAppearsTransparent();
}

void CCNPreferencesWindowController::setTitlebarAppearsTransparent(bool isTransparent)
{
    m_window->setTitlebarAppearsTransparent(isTransparent);
}

void CCNPreferencesWindowController::setShowToolbarItemsAsSegmentedControl(bool shows)
{
    if (m_showToolbarItemsAsSegmentedControl == shows)
        return;
    m_showToolbarItemsAsSegmentedControl = shows;
    m_centerToolbarItems = true;
    rebuildToolbar();
}

void CCNPreferencesWindowController::setCenterToolbarItems(bool centers)
{
    if (m_centerToolbarItems == centers)
        return;
    m_centerToolbarItems = centers;
    rebuildToolbar();
}

QToolBar *CCNPreferencesWindowController::toolbar() const
{
    return m_window->toolbar();
}

QStringList CCNPreferencesWindowController::toolbarDefaultItemIdentifiers()
{
    if (!m_toolbarDefaultItemIdentifiers.isEmpty() || m_viewControllers.isEmpty())
        return m_toolbarDefaultItemIdentifiers;
    QStringList &items = m_toolbarDefaultItemIdentifiers;
    if (m_showToolbarItemsAsSegmentedControl) {
        items = {flexibleSpace(), segmentedControlItem(), flexibleSpace()};
        return items;
    }
    for (const Pane *pane : std::as_const(m_viewControllers))
        items.append(pane->preferenceIdentifier());
    if (m_centerToolbarItems) {
        items.prepend(flexibleSpace());
        items.append(flexibleSpace());
    }
    return items;
}

void CCNPreferencesWindowController::toolbarItemAction(const QString &identifier)
{
    if (Pane *pane = viewControllerWithIdentifier(identifier))
        switchTo(pane);
}

void CCNPreferencesWindowController::segmentedControlAction(int segment)
{
    const int index = m_segmentedControl ? m_segmentedControl->tag(segment) : segment;
    if (index >= 0 && index < m_viewControllers.size())
        switchTo(m_viewControllers[index]);
}

void CCNPreferencesWindowController::setupToolbar()
{
    m_window->setToolbar(nullptr);
    m_segmentedControl = nullptr;
    m_toolbarDefaultItemIdentifiers.clear();
    if (!m_showToolbarWithSingleViewController && !m_showToolbarItemsAsSegmentedControl &&
        m_viewControllers.size() < 2)
        return;

    auto toolbar = std::make_unique<UnifiedToolBar>();
    toolbar->setObjectName(QStringLiteral("CCNPreferencesMainToolbar"));
    toolbar->setMovable(false);
    toolbar->setContextMenuPolicy(Qt::PreventContextMenu);
    if (m_showToolbarItemsAsSegmentedControl) {
        QStringList titles;
        for (const Pane *pane : std::as_const(m_viewControllers))
            titles.append(pane->preferenceTitle());
        m_segmentedControl = new CCNSegmentedControl(titles, toolbar.get());
        connect(m_segmentedControl, &CCNSegmentedControl::segmentClicked, this,
                &CCNPreferencesWindowController::segmentedControlAction);
    } else {
        toolbar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
        toolbar->setIconSize({32, 32});
    }
    auto *exclusive = new QActionGroup(toolbar.get());
    exclusive->setObjectName(QStringLiteral("panes"));
    for (const QString &identifier : toolbarDefaultItemIdentifiers())
        addToolbarItem(*toolbar, identifier);
    m_window->setShowsToolbarSeparator(m_showToolbarSeparator);
    m_window->setToolbar(toolbar.release());
}

void CCNPreferencesWindowController::rebuildToolbar()
{
    setupToolbar();
    Pane *shown = m_nextViewController ? m_nextViewController : m_activeViewController;
    if (!shown)
        return;
    // The toolbar's height and the title depend on the flags.
    activateViewController(shown, false);
}

void CCNPreferencesWindowController::addToolbarItem(QToolBar &toolbar, const QString &identifier)
{
    if (identifier == flexibleSpace()) {
        auto *space = new QWidget(&toolbar);
        space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
        toolbar.addWidget(space)->setObjectName(identifier);
        return;
    }
    if (identifier == segmentedControlItem()) {
        toolbar.addWidget(m_segmentedControl)->setObjectName(identifier);
        return;
    }
    const Pane &pane = *viewControllerWithIdentifier(identifier);
    QAction *item = toolbar.addAction(pane.preferenceIcon(), pane.preferenceTitle());
    item->setObjectName(identifier);
    item->setCheckable(true);
    if (const auto toolTip = pane.preferenceToolTip())
        item->setToolTip(*toolTip);
    toolbar.findChild<QActionGroup *>()->addAction(item);
    connect(item, &QAction::triggered, this, [this, identifier] { toolbarItemAction(identifier); });
}

void CCNPreferencesWindowController::selectToolbarItem(const Pane &pane)
{
    if (m_segmentedControl) {
        const auto found = std::find(m_viewControllers.begin(), m_viewControllers.end(), &pane);
        m_segmentedControl->setSelectedSegment(static_cast<int>(found - m_viewControllers.begin()));
        return;
    }
    if (!toolbar())
        return;
    for (QAction *item : toolbar()->actions())
        if (item->objectName() == pane.preferenceIdentifier())
            item->setChecked(true);
}

void CCNPreferencesWindowController::switchTo(Pane *pane)
{
    // During an animation the active pane is still the one that is leaving; choosing it then
    // means the way back.
    if (pane != m_activeViewController || m_nextViewController)
        activateViewController(pane, true);
}

void CCNPreferencesWindowController::activateViewController(Pane *pane, bool animate)
{
    m_animation.stop();
    m_nextViewController = pane;
    selectToolbarItem(*pane);
    QWidget *view = pane->view();
    m_oldFrame = m_window->geometry();
    m_newFrame = frameFor(view->size().expandedTo(view->minimumSizeHint()));
    view->resize(m_window->contentSizeOf(m_newFrame));
    m_window->setWindowTitle(m_showToolbarItemsAsSegmentedControl ? tr("Preferences")
                                                                  : pane->preferenceTitle());
    m_window->setContentOpacity(0);
    m_window->setContentView(view);
    if (animate && m_window->isVisible() && m_windowSpace.areAnimationsEnabled())
        m_animation.start();
    else
        finishSwitch();
}

/// The window around a content of that size: the top edge stays, and so does the middle while the
/// items are centred.
QRect CCNPreferencesWindowController::frameFor(const QSize &content) const
{
    QRect frame = m_window->frameForContentSize(content);
    if (m_centerToolbarItems)
        frame.translate((m_window->width() - frame.width()) / 2, 0);
    return frame;
}

void CCNPreferencesWindowController::finishSwitch()
{
    m_animation.stop();
    m_window->setFrame(m_newFrame);
    m_window->setContentOpacity(1);
    m_activeViewController = m_nextViewController;
    m_nextViewController = nullptr;
}
