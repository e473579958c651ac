// What the applications around a clipboard history see of it in a Wayland session: one client that
// copies, and a window that keys and pastes arrive in. The same commands run beside Quillmarsh and
// beside the bare reference, so their figures can be compared.
//
//   wayland_probe request-latency RUNS      milliseconds from taking the selection to the request
//   of
//                                           its text, as a line of JSON
//   wayland_probe burst COUNT INTERVAL_MS   that many different copies, then serves the last for 2
//   s wayland_probe copy-and-quit TEXT MS     owns the selection with TEXT for so long, then exits
//   wayland_probe target                    a window; says "enter", "leave" and "text" whenever it
//                                           gets or loses the keyboard or is pasted into by Ctrl+V,
//                                           each with the microseconds of the wall clock

#include "WaylandClient.h"

#include <linux/input-event-codes.h>
#include <poll.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <string>
#include <vector>

namespace {

using Time = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr uint32_t kControlMask = 4;

void tell(const char *what)
{
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    std::printf("%s %lld\n", what,
                static_cast<long long>(now.tv_sec) * 1000000 + now.tv_nsec / 1000);
    std::fflush(stdout);
}

class Probe
{
public:
    bool wasRequested() const { return m_wasRequested; }
    double requestMilliseconds() const
    {
        return std::chrono::duration<double, std::milli>(m_requestedAt - m_ownedAt).count();
    }

    void own(const std::string &text)
    {
        m_text = text;
        m_wasRequested = false;
        auto *source = zwlr_data_control_manager_v1_create_data_source(m_client.dataControl);
        zwlr_data_control_source_v1_add_listener(source, &kSource, this);
        zwlr_data_control_source_v1_offer(source, kPlainText);
        zwlr_data_control_device_v1_set_selection(m_client.device, source);
        m_ownedAt = Time::now();
        wl_display_flush(m_client.display);
    }

    /// Handles events until `isDone` or the limit; whether it was done.
    bool run(
        milliseconds limit, const std::function<bool()> &isDone = [] { return false; })
    {
        const auto end = Time::now() + limit;
        while (!isDone()) {
            wl_display_dispatch_pending(m_client.display);
            wl_display_flush(m_client.display);
            const auto left = std::chrono::duration_cast<milliseconds>(end - Time::now());
            if (isDone() || left.count() <= 0)
                break;
            pollfd ready{wl_display_get_fd(m_client.display), POLLIN, 0};
            if (poll(&ready, 1, static_cast<int>(left.count())) > 0 &&
                wl_display_dispatch(m_client.display) < 0)
                break;
        }
        return isDone();
    }

    void beTarget()
    {
        wl_keyboard_add_listener(m_client.keyboard, &kKeyboard, this);
        m_data = wl_data_device_manager_get_data_device(m_client.dataDevices, m_client.seat);
        wl_data_device_add_listener(m_data, &kData, this);
        m_window.show();
        while (wl_display_dispatch(m_client.display) >= 0) {
        }
    }

private:
    void key(uint32_t code, bool isPress)
    {
        if (code != KEY_V || !isPress || !(m_modifiers & kControlMask) || !m_offer)
            return;
        int ends[2];
        if (pipe(ends) != 0)
            return;
        wl_data_offer_receive(m_offer, kPlainText, ends[1]);
        wl_display_flush(m_client.display);
        close(ends[1]);
        char bytes[4096];
        size_t size = 0;
        for (ssize_t got = 0; (got = read(ends[0], bytes, sizeof bytes)) > 0;)
            size += static_cast<size_t>(got);
        close(ends[0]);
        if (size > 0)
            tell("text");
    }

    WaylandClient m_client;
    BareWindow m_window{m_client, "wayland_probe"};
    wl_data_device *m_data = nullptr;
    wl_data_offer *m_offer = nullptr;
    uint32_t m_modifiers = 0;
    std::string m_text;
    bool m_wasRequested = false;
    Time::time_point m_ownedAt;
    Time::time_point m_requestedAt;

    static constexpr zwlr_data_control_source_v1_listener kSource = {
        [](void *data, zwlr_data_control_source_v1 *, const char *, int32_t file) {
            auto *self = static_cast<Probe *>(data);
            if (!self->m_wasRequested)
                self->m_requestedAt = Time::now();
            self->m_wasRequested = true;
            if (write(file, self->m_text.data(), self->m_text.size()) < 0)
                std::perror("wayland_probe");
            close(file);
        },
        [](void *, zwlr_data_control_source_v1 *source) {
            zwlr_data_control_source_v1_destroy(source);
        }};
    static constexpr wl_keyboard_listener kKeyboard = {
        [](void *, wl_keyboard *, uint32_t, int32_t file, uint32_t) { close(file); },
        [](void *, wl_keyboard *, uint32_t, wl_surface *, wl_array *) { tell("enter"); },
        [](void *, wl_keyboard *, uint32_t, wl_surface *) { tell("leave"); },
        [](void *data, wl_keyboard *, uint32_t, uint32_t, uint32_t code, uint32_t state) {
            static_cast<Probe *>(data)->key(code, state == WL_KEYBOARD_KEY_STATE_PRESSED);
        },
        [](void *data, wl_keyboard *, uint32_t, uint32_t depressed, uint32_t, uint32_t, uint32_t) {
            static_cast<Probe *>(data)->m_modifiers = depressed;
        },
        [](void *, wl_keyboard *, int32_t, int32_t) {}};
    static constexpr wl_data_offer_listener kOffer = {[](void *, wl_data_offer *, const char *) {},
                                                      [](void *, wl_data_offer *, uint32_t) {},
                                                      [](void *, wl_data_offer *, uint32_t) {}};
    static constexpr wl_data_device_listener kData = {
        [](void *, wl_data_device *, wl_data_offer *offer) {
            wl_data_offer_add_listener(offer, &kOffer, nullptr);
        },
        [](void *, wl_data_device *, uint32_t, wl_surface *, wl_fixed_t, wl_fixed_t,
           wl_data_offer *) {},
        [](void *, wl_data_device *) {},
        [](void *, wl_data_device *, uint32_t, wl_fixed_t, wl_fixed_t) {},
        [](void *, wl_data_device *) {},
        [](void *data, wl_data_device *, wl_data_offer *offer) {
            auto *self = static_cast<Probe *>(data);
            if (self->m_offer)
                wl_data_offer_destroy(self->m_offer);
            self->m_offer = offer;
        }};
};

void measureRequests(Probe &probe, int runs)
{
    std::vector<double> times;
    for (int i = 0; i < runs; ++i) {
        probe.own("request " + std::to_string(i));
        if (probe.run(std::chrono::seconds(1), [&] { return probe.wasRequested(); }))
            times.push_back(probe.requestMilliseconds());
        probe.run(milliseconds(30));
    }
    std::sort(times.begin(), times.end());
    const size_t count = times.size();
    std::printf("{\"runs\": %zu, \"median\": %.3f, \"max\": %.3f}\n", count,
                count ? times[count / 2] : -1, count ? times.back() : -1);
}

} // namespace

int main(int argc, char **argv)
try {
    const std::vector<std::string> words(argv + 1, argv + argc);
    std::signal(SIGPIPE, SIG_IGN);
    Probe probe;
    const std::string mode = words.empty() ? std::string() : words[0];
    if (mode == "request-latency") {
        measureRequests(probe, std::stoi(words.at(1)));
    } else if (mode == "burst") {
        auto next = Time::now();
        for (int i = 0; i < std::stoi(words.at(1)); ++i) {
            probe.own("burst copy " + std::to_string(i));
            next += milliseconds(std::stoi(words.at(2)));
            probe.run(std::chrono::ceil<milliseconds>(next - Time::now()));
        }
        probe.run(std::chrono::seconds(2));
    } else if (mode == "copy-and-quit") {
        probe.own(words.at(1));
        probe.run(milliseconds(std::stoi(words.at(2))));
    } else if (mode == "target") {
        probe.beTarget();
    } else {
        throw std::runtime_error("no such command");
    }
    return 0;
} catch (const std::exception &problem) {
    std::fprintf(stderr, "wayland_probe: %s\n", problem.what());
    return 1;
}
