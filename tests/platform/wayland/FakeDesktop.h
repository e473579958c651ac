#pragma once

#include "platform/pasteboard/FakeCompositor.h"

#include <QByteArray>
#include <QStringList>

#include <vector>

/// A compositor of a test's own that tells of windows and takes keys, by the protocols of wlroots'
/// or of Plasma's. Its windows are told apart by their application ids, which are their titles,
/// too.
class FakeDesktop : public FakeCompositor
{
public:
    enum class Kind { Wlroots, Plasma };

    explicit FakeDesktop(Kind kind);
    ~FakeDesktop();

    /// Tells of the application's window, which opens if need be.
    void show(const char *application, bool isActive, bool isMinimized = false);
    void close(const char *application);

    /// Everything but the seats; what programs have of it stays and does nothing.
    void offer();
    void withdraw();
    /// Says that no more will be told of windows (wlroots only).
    void finish();

    /// Whether a window that a program asks for comes to the front.
    void setObliging(bool isObliging);

    /// What has been asked since the last time: "+29" and "-29" for keys, "m4" for modifiers held,
    /// "activate org.example" for windows.
    QStringList takeRequests();

private:
    struct Requests;
    struct Window
    {
        QByteArray application;
        bool isActive = false;
        bool isMinimized = false;
    };
    /// One program's view of a window.
    struct View
    {
        wl_resource *resource;
        QByteArray application;
    };

    Window *find(const QByteArray &application);
    void tell(const Window &window);
    void describe(wl_resource *view, const Window &window) const;
    void addView(wl_resource *manager, const Window &window);
    void handleActivate(wl_resource *view);

    const Kind m_kind;
    std::vector<wl_global *> m_globals;
    std::vector<wl_resource *> m_managers;
    std::vector<Window> m_windows;
    std::vector<View> m_views;
    QStringList m_requests;
    bool m_isObliging = true;
};
