#include "platform/pasteboard/FakeCompositor.h"

#include <ext-data-control-v1-server-protocol.h>

#include <wayland-server.h>

#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <future>
#include <memory>
#include <string>
#include <utility>

namespace {

/// A source's types, in the order of their coming.
using Names = std::vector<std::string>;

void destroy(wl_client *, wl_resource *resource)
{
    wl_resource_destroy(resource);
}

template <typename T>
T *dataOf(wl_resource *resource)
{
    return static_cast<T *>(wl_resource_get_user_data(resource));
}

/// The source that an offer stands for, until that has ended.
struct OfferedSource
{
    wl_resource *source;
    wl_listener ended;
};

} // namespace

/// What clients ask, by interface.
struct FakeCompositor::Requests
{
    static void receive(wl_client *, wl_resource *offer, const char *name, int32_t fd)
    {
        if (auto *offered = dataOf<OfferedSource>(offer); offered->source)
            ext_data_control_source_v1_send_send(offered->source, name, fd);
        close(fd);
    }

    static void addName(wl_client *, wl_resource *source, const char *name)
    {
        dataOf<Names>(source)->emplace_back(name);
    }

    static void createSource(wl_client *client, wl_resource *manager, uint32_t id)
    {
        static constexpr struct ext_data_control_source_v1_interface kSource
        {
            &addName, &destroy
        };
        wl_resource *source =
            wl_resource_create(client, &ext_data_control_source_v1_interface, 1, id);
        // Known by its compositor as long as it lives: the manager may end first.
        auto *compositor = dataOf<FakeCompositor>(manager);
        wl_resource_set_implementation(source, &kSource, new Names,
                                       [](wl_resource *ended) { delete dataOf<Names>(ended); });
        struct Watch
        {
            wl_listener ended;
            FakeCompositor *compositor;
        };
        auto *watch = new Watch{{}, compositor};
        watch->ended.notify = [](wl_listener *listener, void *ended) {
            const std::unique_ptr<Watch> self(reinterpret_cast<Watch *>(listener));
            for (const bool isPrimary : {false, true}) {
                Selection &selection =
                    isPrimary ? self->compositor->m_primary : self->compositor->m_clipboard;
                if (selection.source != ended)
                    continue;
                selection.source = nullptr;
                self->compositor->set(isPrimary, nullptr);
            }
        };
        wl_resource_add_destroy_listener(source, &watch->ended);
    }

    static void setClipboard(wl_client *, wl_resource *device, wl_resource *source)
    {
        if (auto *compositor = dataOf<FakeCompositor>(device))
            compositor->set(false, source);
    }

    static void setPrimary(wl_client *, wl_resource *device, wl_resource *source)
    {
        if (auto *compositor = dataOf<FakeCompositor>(device))
            compositor->set(true, source);
    }

    static void getDevice(wl_client *client, wl_resource *manager, uint32_t id, wl_resource *)
    {
        static constexpr struct ext_data_control_device_v1_interface kDevice
        {
            &setClipboard, &destroy, &setPrimary
        };
        wl_resource *device =
            wl_resource_create(client, &ext_data_control_device_v1_interface, 1, id);
        auto *compositor = dataOf<FakeCompositor>(manager);
        wl_resource_set_implementation(device, &kDevice, compositor, [](wl_resource *ended) {
            if (auto *owner = dataOf<FakeCompositor>(ended))
                std::erase(owner->m_devices, ended);
        });
        compositor->m_devices.push_back(device);
        compositor->tell(device, false);
        compositor->tell(device, true);
    }

    static void bindManager(wl_client *client, void *self, uint32_t version, uint32_t id)
    {
        static constexpr struct ext_data_control_manager_v1_interface kManager
        {
            &createSource, &getDevice, &destroy
        };
        wl_resource *manager =
            wl_resource_create(client, &ext_data_control_manager_v1_interface, int(version), id);
        wl_resource_set_implementation(manager, &kManager, self, nullptr);
    }

    static void bindSeat(wl_client *client, void *, uint32_t version, uint32_t id)
    {
        static constexpr struct wl_seat_interface kSeat
        {
            [](wl_client *, wl_resource *, uint32_t) {},
                [](wl_client *, wl_resource *, uint32_t) {},
                [](wl_client *, wl_resource *, uint32_t) {}, &destroy
        };
        wl_resource *seat = wl_resource_create(client, &wl_seat_interface, int(version), id);
        wl_resource_set_implementation(seat, &kSeat, nullptr, nullptr);
        wl_seat_send_capabilities(seat, 0);
    }
};

FakeCompositor::FakeCompositor()
    : m_displayBefore(qgetenv("WAYLAND_DISPLAY")), m_folderBefore(qgetenv("XDG_RUNTIME_DIR")),
      m_display(wl_display_create()), m_wakeUp(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    qputenv("XDG_RUNTIME_DIR", m_folder.path().toUtf8());
    qputenv("WAYLAND_DISPLAY", wl_display_add_socket_auto(m_display));
    wl_global_create(m_display, &ext_data_control_manager_v1_interface, 1, this,
                     &Requests::bindManager);
    const auto runTasks = [](int fd, uint32_t, void *self) {
        auto *compositor = static_cast<FakeCompositor *>(self);
        eventfd_t count = 0;
        eventfd_read(fd, &count);
        std::vector<std::function<void()>> tasks;
        {
            const MutexLock lock(compositor->m_mutex);
            tasks.swap(compositor->m_tasks);
        }
        for (const auto &task : tasks)
            task();
        return 0;
    };
    m_wakeUps = wl_event_loop_add_fd(wl_display_get_event_loop(m_display), m_wakeUp,
                                     WL_EVENT_READABLE, runTasks, this);
    m_thread = std::thread([this] {
        while (!m_isEnding) {
            wl_display_flush_clients(m_display);
            wl_event_loop_dispatch(wl_display_get_event_loop(m_display), -1);
        }
    });
}

FakeCompositor::~FakeCompositor()
{
    run([this] {
        m_isEnding = true;
        wl_display_destroy_clients(m_display);
    });
    m_thread.join();
    wl_event_source_remove(m_wakeUps);
    wl_display_destroy(m_display);
    close(m_wakeUp);
    qputenv("WAYLAND_DISPLAY", m_displayBefore);
    qputenv("XDG_RUNTIME_DIR", m_folderBefore);
}

void FakeCompositor::run(const std::function<void()> &task)
{
    std::promise<void> done;
    {
        const MutexLock lock(m_mutex);
        m_tasks.push_back([&] {
            task();
            done.set_value();
        });
    }
    eventfd_write(m_wakeUp, 1);
    done.get_future().wait();
}

void FakeCompositor::offerSeat()
{
    run([this] {
        m_seat = wl_global_create(m_display, &wl_seat_interface, 5, this, &Requests::bindSeat);
    });
}

void FakeCompositor::withdrawSeat()
{
    run([this] { wl_global_destroy(std::exchange(m_seat, nullptr)); });
}

void FakeCompositor::finishDevices()
{
    run([this] {
        for (wl_resource *device : std::exchange(m_devices, {})) {
            wl_resource_set_user_data(device, nullptr);
            ext_data_control_device_v1_send_finished(device);
        }
    });
}

void FakeCompositor::tell(wl_resource *device, bool isPrimary)
{
    static constexpr struct ext_data_control_offer_v1_interface kOffer
    {
        &Requests::receive, &destroy
    };
    wl_resource *source = (isPrimary ? m_primary : m_clipboard).source;
    wl_resource *offer = nullptr;
    if (source) {
        offer = wl_resource_create(wl_resource_get_client(device),
                                   &ext_data_control_offer_v1_interface, 1, 0);
        auto *offered = new OfferedSource{source, {}};
        offered->ended.notify = [](wl_listener *listener, void *) {
            OfferedSource *of = wl_container_of(listener, of, ended);
            of->source = nullptr;
            wl_list_remove(&listener->link);
            wl_list_init(&listener->link);
        };
        wl_resource_add_destroy_listener(source, &offered->ended);
        wl_resource_set_implementation(offer, &kOffer, offered, [](wl_resource *ended) {
            auto *of = dataOf<OfferedSource>(ended);
            wl_list_remove(&of->ended.link);
            delete of;
        });
        ext_data_control_device_v1_send_data_offer(device, offer);
        for (const std::string &name : *dataOf<Names>(source))
            ext_data_control_offer_v1_send_offer(offer, name.c_str());
    }
    if (isPrimary)
        ext_data_control_device_v1_send_primary_selection(device, offer);
    else
        ext_data_control_device_v1_send_selection(device, offer);
}

void FakeCompositor::set(bool isPrimary, wl_resource *source)
{
    Selection &selection = isPrimary ? m_primary : m_clipboard;
    wl_resource *former = std::exchange(selection.source, source);
    if (former && former != source)
        ext_data_control_source_v1_send_cancelled(former);
    for (wl_resource *device : m_devices)
        tell(device, isPrimary);
}
