#include "platform/memory/MemoryPlatform.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/windows/X11WindowSpace.h"
#include "preferenceswindow/CCNPreferencesWindow.h"
#include "preferenceswindow/CCNPreferencesWindowController.h"
#include "preferenceswindow/FakePane.h"

#include <QTest>

#include <gtest/gtest.h>

#include <set>
#include <vector>

namespace {

/// Sees the frame that the window manager puts around a window as the X server moves it.
class FrameWatcher
{
public:
    explicit FrameWatcher(WId window) : m_frame(xcb_window_t(window))
    {
        for (;;) {
            const XcbPointer<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(
                m_server.get(), xcb_query_tree(m_server.get(), m_frame), nullptr));
            if (!tree || tree->parent == tree->root)
                break;
            m_frame = tree->parent;
        }
        const uint32_t mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        xcb_change_window_attributes(m_server.get(), m_frame, XCB_CW_EVENT_MASK, &mask);
    }

    QRect current() const
    {
        const XcbPointer<xcb_get_geometry_reply_t> told(xcb_get_geometry_reply(
            m_server.get(), xcb_get_geometry(m_server.get(), m_frame), nullptr));
        return told ? QRect(told->x, told->y, told->width, told->height) : QRect();
    }
    /// Every rectangle since the last call, oldest first.
    std::vector<QRect> steps() const
    {
        std::vector<QRect> seen;
        while (const XcbPointer<xcb_generic_event_t> event{xcb_poll_for_event(m_server.get())}) {
            if ((event->response_type & 0x7f) != XCB_CONFIGURE_NOTIFY)
                continue;
            const auto *told = reinterpret_cast<xcb_configure_notify_event_t *>(event.get());
            seen.emplace_back(told->x, told->y, told->width, told->height);
        }
        return seen;
    }

private:
    X11Connection m_server;
    xcb_window_t m_frame;
};

TEST(PreferencesAnimation, growsAndShrinksInManyStepsWithoutMovingTheTopOrTheMiddle)
{
    MemoryPlatform memory;
    X11WindowSpace windowSpace;
    FakePane tall(QStringLiteral("tall"), QStringLiteral("Tall"), QSize(600, 460));
    FakePane low(QStringLiteral("low"), QStringLiteral("Low"), QSize(400, 240));
    CCNPreferencesWindowController controller(memory.settings, windowSpace,
                                              memory.frontApplication);
    controller.setShowToolbarItemsAsSegmentedControl(true);
    controller.setPreferencesViewControllers({&tall, &low});
    controller.showPreferencesWindow();
    CCNPreferencesWindow &window = *controller.window();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));

    const FrameWatcher watcher(window.winId());
    // It is framed once the window manager has got to it.
    ASSERT_TRUE(QTest::qWaitFor([&] { return watcher.current().width() >= window.width(); }));
    const QRect first = watcher.current();
    watcher.steps();
    const QSize decoration = first.size() - window.size();
    for (FakePane *pane : {&low, &tall}) {
        controller.toolbarItemAction(pane->preferenceIdentifier());
        ASSERT_TRUE(QTest::qWaitFor([&] { return controller.activeViewController() == pane; }));
        ASSERT_TRUE(QTest::qWaitFor(
            [&] { return watcher.current().size() == window.size() + decoration; }));

        std::set<int> heights;
        for (const QRect &step : watcher.steps()) {
            EXPECT_EQ(step.top(), first.top());
            EXPECT_NEAR(step.left() + step.width() / 2, first.left() + first.width() / 2, 1);
            heights.insert(step.height());
        }
        RecordProperty("steps", static_cast<int>(heights.size()));
        // More than a jump from one size to the other; how many more is the machine's business
        // and is recorded above.
        EXPECT_GE(heights.size(), 4U);
    }
    // Two frames of the way there may look like its end.
    EXPECT_TRUE(QTest::qWaitFor([&] { return watcher.current() == first; }));
}

} // namespace
