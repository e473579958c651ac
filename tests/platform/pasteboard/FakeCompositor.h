#pragma once

#include "platform/Mutex.h"

#include <QByteArray>
#include <QTemporaryDir>

#include <functional>
#include <thread>
#include <vector>

struct wl_display;
struct wl_event_source;
struct wl_global;
struct wl_resource;

/// A compositor of a test's own, with nothing but seats and ext_data_control, as sound or as
/// capricious as the test wants it. Runs on a thread of its own; programs that connect while it
/// lives find it.
class FakeCompositor
{
public:
    FakeCompositor();
    ~FakeCompositor();
    FakeCompositor(const FakeCompositor &) = delete;
    FakeCompositor &operator=(const FakeCompositor &) = delete;

    void offerSeat();
    void withdrawSeat();
    /// Ends every view of the selections, as the protocol lets it.
    void finishDevices();

protected:
    /// Runs it on the compositor's thread, and returns then.
    void run(const std::function<void()> &task);
    wl_display *display() const { return m_display; }

private:
    struct Selection
    {
        wl_resource *source = nullptr;
    };
    struct Requests;

    void tell(wl_resource *device, bool isPrimary);
    void set(bool isPrimary, wl_resource *source);

    QTemporaryDir m_folder;
    QByteArray m_displayBefore;
    QByteArray m_folderBefore;
    wl_display *m_display;
    wl_global *m_seat = nullptr;
    std::vector<wl_resource *> m_devices;
    Selection m_clipboard;
    Selection m_primary;
    const int m_wakeUp; ///< An eventfd.
    wl_event_source *m_wakeUps = nullptr;
    Mutex m_mutex;
    std::vector<std::function<void()>> m_tasks QUILLMARSH_GUARDED_BY(m_mutex);
    bool m_isEnding = false; ///< On the thread.
    std::thread m_thread;
};
