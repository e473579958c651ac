#pragma once

#include "platform/WindowSpace.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11EventNotifier.h"

/// Screens, panels and the compositor as the window manager's properties and the compositor's
/// selection tell them.
class X11WindowSpace : public WindowSpace
{
    Q_OBJECT

public:
    explicit X11WindowSpace(QObject *parent = nullptr);

    // ^WindowSpace
    std::optional<QPoint> pointerPosition() const override;
    QRect visibleFrame(const QScreen &screen) const override;
    bool isCompositing() const override { return m_isCompositing; }
    bool areAnimationsEnabled() const override;
    void prepareUtilityWindow(QWindow *window) override;
    QRect placeUtilityWindow(QWindow *window, const QSize &size, const QMargins &shadow) override;
    void setSharesKeyboard(QWindow *, bool) override {}
    bool canShowWithoutKeyboard() const override { return true; }
    bool prepareFixedWindow(QWindow *window) override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Atoms
    {
        xcb_atom_t compositor, clientList, strut, partialStrut, windowState, skipTaskbar, skipPager,
            skipSwitcher, motifHints, settingsOwner, settings;
    };

    static Atoms internAtoms(const X11Connection &connection);
    bool hasCompositor() const;
    void takeIn(const xcb_generic_event_t &event);
    QRect withoutPanels(const QRect &frame) const;
    void keepOutOfTaskbar(QWindow &window) const;

    X11Connection m_connection;
    const Atoms m_atoms;
    uint8_t m_selectionEvent = 0; ///< Of the fixes extension; 0 when the server lacks it.
    bool m_isCompositing = false;
    X11EventNotifier m_events;
};
