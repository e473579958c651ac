#pragma once

#include "preferenceswindow/CCNPreferencesWindowControllerProtocol.h"

#include <QList>
#include <QObject>
#include <QRect>
#include <QStringList>
#include <QVariantAnimation>

#include <memory>

class CCNPreferencesWindow;
class CCNSegmentedControl;
class FrontApplication;
class QAction;
class QToolBar;
class QWidget;
class SettingsStore;
class WindowSpace;

/// Shows the preference panes in one window and switches between them with its toolbar: ordinary
/// items with icons, or one segmented control. Switching resizes the window to the new pane with a
/// short animation that keeps the top edge where it is. Owned by the application delegate, for as
/// long as the application runs; main thread only.
class CCNPreferencesWindowController : public QObject
{
    Q_OBJECT

public:
    using Pane = CCNPreferencesWindowControllerProtocol;

    /// The settings keep the window's frame. All must outlive this.
    CCNPreferencesWindowController(SettingsStore &settings, WindowSpace &windowSpace,
                                   FrontApplication &frontApplication);
    ~CCNPreferencesWindowController() override;

    /// Adds each pane in order, then builds the toolbar. Panes are not owned and must outlive
    /// this.
    void setPreferencesViewControllers(const QList<Pane *> &panes);
    void addPreferencesViewController(Pane *pane) { m_viewControllers.append(pane); }
    const QList<Pane *> &viewControllers() const { return m_viewControllers; }
    /// The first pane with that identifier; null when there is none.
    Pane *viewControllerWithIdentifier(const QString &identifier) const;
    /// The pane shown; while an animation runs still the one before; null until the first was
    /// shown.
    Pane *activeViewController() const { return m_activeViewController; }

    /// Brings the window to the front with the first pane.
    void showPreferencesWindow();
    void dismissPreferencesWindow();
    CCNPreferencesWindow *window() const { return m_window.get(); }

    bool titlebarAppearsTransparent() const;
    void setTitlebarAppearsTransparent(bool isTransparent);
    bool showToolbarSeparator() const { return m_showToolbarSeparator; }
    /// Takes effect when the toolbar is built the next time.
    void setShowToolbarSeparator(bool shows) { m_showToolbarSeparator = shows; }
    bool showToolbarWithSingleViewController() const
    {
        return m_showToolbarWithSingleViewController;
    }
    /// Takes effect when the toolbar is built the next time.
    void setShowToolbarWithSingleViewController(bool shows)
    {
        m_showToolbarWithSingleViewController = shows;
    }
    bool showToolbarItemsAsSegmentedControl() const { return m_showToolbarItemsAsSegmentedControl; }
    /// Also centres the items, whichever way it is switched.
    void setShowToolbarItemsAsSegmentedControl(bool shows);
    bool centerToolbarItems() const { return m_centerToolbarItems; }
    void setCenterToolbarItems(bool centers);
    bool allowsVibrancy() const { return m_allowsVibrancy; }
    /// Whether panes let what is behind the window shine through, where windows are composed.
    /// Must be set before the window is shown for the first time.
    void setAllowsVibrancy(bool allows) { m_allowsVibrancy = allows; }

    QToolBar *toolbar() const;
    CCNSegmentedControl *segmentedControl() const { return m_segmentedControl; }
    /// The toolbar's items in order: panes by their identifiers, flexible spaces and the segmented
    /// control. Computed once and kept until a flag changes it.
    QStringList toolbarDefaultItemIdentifiers();
    QStringList toolbarAllowedItemIdentifiers() { return toolbarDefaultItemIdentifiers(); }
    QStringList toolbarSelectableItemIdentifiers() { return toolbarDefaultItemIdentifiers(); }
    /// What the toolbar item of the pane with that identifier does.
    void toolbarItemAction(const QString &identifier);
    void segmentedControlAction(int segment);

private:
    void setupToolbar();
    void rebuildToolbar();
    void addToolbarItem(QToolBar &toolbar, const QString &identifier);
    void selectToolbarItem(const Pane &pane);
    void switchTo(Pane *pane);
    void activateViewController(Pane *pane, bool animate);
    QRect frameFor(const QSize &content) const;
    void finishSwitch();

    WindowSpace &m_windowSpace;
    FrontApplication &m_frontApplication;
    std::unique_ptr<CCNPreferencesWindow> m_window;
    QList<Pane *> m_viewControllers;
    Pane *m_activeViewController = nullptr;
    Pane *m_nextViewController = nullptr; ///< Being switched to.
    QRect m_oldFrame;
    QRect m_newFrame;
    QVariantAnimation m_animation;

    bool m_showToolbarSeparator = true;
    bool m_showToolbarWithSingleViewController = true;
    bool m_showToolbarItemsAsSegmentedControl = false;
    bool m_centerToolbarItems = true;
    bool m_allowsVibrancy = false;
    CCNSegmentedControl *m_segmentedControl = nullptr; ///< The toolbar's.
    QStringList m_toolbarDefaultItemIdentifiers;
};
