// Measures a clipboard history from outside, as the applications around it see it: one X client
// that copies, presses keys, watches the screen and receives pastes. The same commands run
// against Quillmarsh and against the two reference programs, so their figures can be compared.
//
//   probe request-latency RUNS      milliseconds from taking CLIPBOARD to the request of its text
//   probe burst COUNT INTERVAL_MS   that many different copies, then serves the last for 2 s
//   probe copy-large BYTES          owns CLIPBOARD with so long a text until it was read, then 2 s
//   probe copy-and-quit TEXT MS     owns CLIPBOARD with TEXT for so long, then exits
//   probe open RUNS                 hot key pressed -> the list is on the screen
//   probe type RUNS LETTER          letter pressed in the open history -> the list has settled
//   probe first-letter LETTER       the same at the first opening, of which nothing is known before
//   probe first-opening             hot key pressed -> the window has settled, the first time
//   probe paste RUNS                Return pressed -> the text is in the target's hand
//
// Each prints one JSON line: {"runs": n, "min": ms, "median": ms, "p99": ms, "max": ms}.

#include "XcbClient.h"

#include <xcb/xtest.h>

#include <poll.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using Time = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

class Probe
{
public:
    Probe()
    {
        m_connection = xcb_connect(nullptr, nullptr);
        if (xcb_connection_has_error(m_connection))
            throw std::runtime_error("no display");
        m_screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
        m_clipboard = atom(m_connection, "CLIPBOARD");
        m_utf8 = atom(m_connection, "UTF8_STRING");
        m_targets = atom(m_connection, "TARGETS");
        m_property = atom(m_connection, "QUILLMARSH_PROBE");
        m_window = xcb_generate_id(m_connection);
        const uint32_t values[] = {m_screen->white_pixel, XCB_EVENT_MASK_KEY_PRESS |
                                                              XCB_EVENT_MASK_FOCUS_CHANGE |
                                                              XCB_EVENT_MASK_STRUCTURE_NOTIFY |
                                                              XCB_EVENT_MASK_PROPERTY_CHANGE};
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_window, m_screen->root, 10, 10, 160,
                          90, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                          XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values);
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_window, XCB_ATOM_WM_NAME,
                            XCB_ATOM_STRING, 8, 12, "probe target");
        xcb_flush(m_connection);
    }
    ~Probe() { xcb_disconnect(m_connection); }

    void own(const std::string &text)
    {
        m_text = text;
        m_wasRequested = false;
        xcb_set_selection_owner(m_connection, m_window, m_clipboard, XCB_CURRENT_TIME);
        xcb_flush(m_connection);
        m_ownedAt = Time::now();
    }

    bool wasRequested() const { return m_wasRequested; }
    Milliseconds requestLatency() const { return m_requestedAt - m_ownedAt; }
    const std::string &pasted() const { return m_pasted; }
    void forgetPaste() { m_pasted.clear(); }
    bool hasFocus() const { return m_hasFocus; }

    /// Handles events until `isDone` or the limit; whether it was done.
    bool run(std::chrono::milliseconds limit, const std::function<bool()> &isDone)
    {
        const auto end = Time::now() + limit;
        while (!isDone()) {
            while (xcb_generic_event_t *event = xcb_poll_for_event(m_connection)) {
                handle(event);
                std::free(event);
            }
            if (isDone())
                return true;
            const auto left =
                std::chrono::duration_cast<std::chrono::milliseconds>(end - Time::now());
            if (left.count() <= 0)
                return false;
            pollfd fd{xcb_get_file_descriptor(m_connection), POLLIN, 0};
            poll(&fd, 1, static_cast<int>(std::min<long>(left.count(), 5)));
        }
        return true;
    }
    void serve(std::chrono::milliseconds duration)
    {
        run(duration, [] { return false; });
    }

    void key(xcb_keycode_t code, bool isPress)
    {
        const uint8_t type = isPress ? uint8_t{XCB_KEY_PRESS} : uint8_t{XCB_KEY_RELEASE};
        xcb_test_fake_input(m_connection, type, code, XCB_CURRENT_TIME, m_screen->root, 0, 0, 0);
        xcb_flush(m_connection);
    }
    void tap(xcb_keycode_t code)
    {
        key(code, true);
        key(code, false);
    }
    void pressHotKey()
    {
        key(kKeySuper, true);
        key(kKeyShift, true);
        roundTrip();
        m_pressedAt = Time::now();
        key(kKeyV, true);
    }
    void releaseHotKey()
    {
        key(kKeyV, false);
        key(kKeyShift, false);
        key(kKeySuper, false);
    }
    Time::time_point pressedAt() const { return m_pressedAt; }

    void showTarget()
    {
        xcb_map_window(m_connection, m_window);
        xcb_flush(m_connection);
        if (!run(std::chrono::seconds(5), [this] { return m_hasFocus; }))
            throw std::runtime_error("the target window did not get the keyboard");
    }

    struct Area
    {
        int16_t x = 0;
        int16_t y = 0;
        uint16_t width = 0;
        uint16_t height = 0;
    };
    using Pixels = std::vector<uint32_t>;

    Area whole() const { return {0, 0, m_screen->width_in_pixels, m_screen->height_in_pixels}; }

    Pixels look(const Area &area)
    {
        const Reply<xcb_get_image_reply_t> reply(xcb_get_image_reply(
            m_connection,
            xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, m_screen->root, area.x, area.y,
                          area.width, area.height, ~0U),
            nullptr));
        if (!reply)
            throw std::runtime_error("the screen cannot be read");
        Pixels pixels(static_cast<size_t>(area.width) * area.height);
        std::memcpy(pixels.data(), xcb_get_image_data(reply.get()),
                    std::min<size_t>(pixels.size() * 4,
                                     static_cast<size_t>(xcb_get_image_data_length(reply.get()))));
        return pixels;
    }

    /// Waits until `area` has not changed for a while and returns what stands there.
    Pixels settled(const Area &area)
    {
        Pixels last = look(area);
        for (auto since = Time::now(); Time::now() - since < std::chrono::milliseconds(300);) {
            serve(std::chrono::milliseconds(20));
            Pixels now = look(area);
            if (now != last) {
                last = std::move(now);
                since = Time::now();
            }
        }
        return last;
    }

    /// Milliseconds since `from` until `area` shows `wanted`; negative when it never does.
    double waitForPixels(const Area &area, const Pixels &wanted, Time::time_point from)
    {
        while (Time::now() - from < std::chrono::seconds(3)) {
            if (look(area) == wanted)
                return Milliseconds(Time::now() - from).count();
        }
        return -1;
    }

    /// Milliseconds since `from` until `area` changed last, before it stood still for a while;
    /// negative when it never changed.
    double waitForRest(const Area &area, const Pixels &before, Time::time_point from)
    {
        constexpr auto kRest = std::chrono::milliseconds(700);
        Pixels last = before;
        auto changed = from;
        while (Time::now() - changed < kRest) {
            Pixels now = look(area);
            if (now == last)
                continue;
            last = std::move(now);
            changed = Time::now();
        }
        return changed == from ? -1 : Milliseconds(changed - from).count();
    }

    void roundTrip()
    {
        const Reply<xcb_get_input_focus_reply_t> reply(
            xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    }

private:
    void handle(xcb_generic_event_t *event)
    {
        switch (event->response_type & 0x7F) {
        case XCB_SELECTION_REQUEST:
            answer(*reinterpret_cast<xcb_selection_request_event_t *>(event));
            break;
        case XCB_KEY_PRESS: {
            const auto &press = *reinterpret_cast<xcb_key_press_event_t *>(event);
            if (press.detail == kKeyV && (press.state & XCB_MOD_MASK_CONTROL)) {
                xcb_convert_selection(m_connection, m_window, m_clipboard, m_utf8, m_property,
                                      press.time);
                xcb_flush(m_connection);
            }
            break;
        }
        case XCB_SELECTION_NOTIFY:
            receive(*reinterpret_cast<xcb_selection_notify_event_t *>(event));
            break;
        case XCB_FOCUS_IN:
            m_hasFocus = true;
            break;
        case XCB_FOCUS_OUT:
            m_hasFocus = false;
            break;
        default:
            break;
        }
    }

    void answer(const xcb_selection_request_event_t &request)
    {
        if (request.target == m_targets) {
            const xcb_atom_t offered[] = {m_targets, m_utf8};
            xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, request.requestor,
                                request.property, XCB_ATOM_ATOM, 32, 2, offered);
        } else if (request.target == m_utf8) {
            if (!m_wasRequested)
                m_requestedAt = Time::now();
            m_wasRequested = true;
            putText(request);
        } else {
            return notify(m_connection, request, XCB_ATOM_NONE);
        }
        notify(m_connection, request, request.property);
    }

    /// In pieces, because a request to the server is shorter than the longest texts.
    void putText(const xcb_selection_request_event_t &request)
    {
        constexpr std::size_t kPiece = 1024 * 1024;
        std::size_t at = 0;
        do {
            const std::size_t size = std::min(kPiece, m_text.size() - at);
            xcb_change_property(m_connection,
                                uint8_t(at == 0 ? XCB_PROP_MODE_REPLACE : XCB_PROP_MODE_APPEND),
                                request.requestor, request.property, m_utf8, 8,
                                static_cast<uint32_t>(size), m_text.data() + at);
            at += size;
        } while (at < m_text.size());
    }

    void receive(const xcb_selection_notify_event_t &event)
    {
        if (event.property != XCB_ATOM_NONE)
            m_pasted = takeProperty(m_connection, m_window, m_property);
    }

    xcb_connection_t *m_connection = nullptr;
    xcb_screen_t *m_screen = nullptr;
    xcb_window_t m_window = 0;
    xcb_atom_t m_clipboard = 0;
    xcb_atom_t m_utf8 = 0;
    xcb_atom_t m_targets = 0;
    xcb_atom_t m_property = 0;
    std::string m_text;
    std::string m_pasted;
    bool m_wasRequested = false;
    bool m_hasFocus = false;
    Time::time_point m_ownedAt;
    Time::time_point m_requestedAt;
    Time::time_point m_pressedAt;
};

void report(std::vector<double> values)
{
    if (values.empty()) {
        std::puts("{\"runs\": 0}");
        return;
    }
    std::sort(values.begin(), values.end());
    std::printf("{\"runs\": %zu, \"min\": %.3f, \"median\": %.3f, \"p99\": %.3f, \"max\": %.3f}\n",
                values.size(), values.front(), values[values.size() / 2],
                values[(values.size() - 1) * 99 / 100], values.back());
}

void measureRequests(Probe &probe, int runs)
{
    std::vector<double> values;
    for (int i = 0; i < runs; ++i) {
        probe.own("request latency " + std::to_string(i));
        if (probe.run(std::chrono::seconds(1), [&] { return probe.wasRequested(); }))
            values.push_back(probe.requestLatency().count());
        probe.serve(std::chrono::milliseconds(30));
    }
    report(values);
}

void copyInABurst(Probe &probe, int count, int intervalMs)
{
    for (int i = 0; i < count; ++i) {
        probe.own("burst copy number " + std::to_string(i));
        probe.serve(std::chrono::milliseconds(intervalMs));
    }
    probe.serve(std::chrono::seconds(2));
}

/// The part of the screen where the history's list stands: away from the caret and the edges.
struct OpenWindow
{
    Probe::Area area;
    Probe::Pixels pixels;
};

OpenWindow learn(Probe &probe)
{
    const Probe::Area whole = probe.whole();
    const Probe::Pixels closed = probe.settled(whole);
    probe.pressHotKey();
    probe.releaseHotKey();
    probe.serve(std::chrono::milliseconds(500));
    const Probe::Pixels open = probe.settled(whole);
    int left = whole.width, right = -1, top = whole.height, bottom = -1;
    for (int y = 0; y < whole.height; ++y) {
        for (int x = 0; x < whole.width; ++x) {
            const size_t i = static_cast<size_t>(y) * whole.width + static_cast<size_t>(x);
            // The target's own frame is redrawn when it loses the keyboard; it stands top left.
            if (open[i] == closed[i] || (x < 220 && y < 160))
                continue;
            left = std::min(left, x);
            right = std::max(right, x);
            top = std::min(top, y);
            bottom = std::max(bottom, y);
        }
    }
    if (right < 0)
        throw std::runtime_error("the hot key changed nothing on the screen");
    const int width = right - left;
    const int height = bottom - top;
    OpenWindow window;
    window.area = {static_cast<int16_t>(left + 20), static_cast<int16_t>(top + height * 30 / 100),
                   static_cast<uint16_t>(width * 35 / 100),
                   static_cast<uint16_t>(height * 50 / 100)};
    window.pixels = probe.settled(window.area);
    return window;
}

void close(Probe &probe)
{
    probe.tap(kKeyEscape);
    probe.run(std::chrono::seconds(2), [&] { return probe.hasFocus(); });
    probe.serve(std::chrono::milliseconds(60));
}

void measureOpening(Probe &probe, int runs)
{
    probe.showTarget();
    const OpenWindow window = learn(probe);
    close(probe);
    std::vector<double> values;
    for (int i = 0; i < runs; ++i) {
        probe.pressHotKey();
        const double ms = probe.waitForPixels(window.area, window.pixels, probe.pressedAt());
        probe.releaseHotKey();
        if (ms >= 0)
            values.push_back(ms);
        probe.serve(std::chrono::milliseconds(60));
        close(probe);
    }
    report(values);
}

void measureTyping(Probe &probe, int runs, xcb_keycode_t letter)
{
    probe.showTarget();
    const OpenWindow window = learn(probe);
    probe.tap(letter);
    probe.serve(std::chrono::milliseconds(500));
    const Probe::Pixels filtered = probe.settled(window.area);
    if (filtered == window.pixels)
        throw std::runtime_error("the letter changed nothing in the list");
    std::vector<double> values;
    for (int i = 0; i < runs; ++i) {
        probe.tap(kKeyBackspace);
        probe.waitForPixels(window.area, window.pixels, Time::now());
        probe.serve(std::chrono::milliseconds(60));
        const auto from = Time::now();
        probe.key(letter, true);
        const double ms = probe.waitForPixels(window.area, filtered, from);
        probe.key(letter, false);
        if (ms >= 0)
            values.push_back(ms);
    }
    close(probe);
    report(values);
}

/// Where most of the window stands, on a screen on which it was not seen yet; the caret blinks
/// outside.
Probe::Area middleOf(const Probe &probe)
{
    const Probe::Area whole = probe.whole();
    return {static_cast<int16_t>(whole.width / 5), static_cast<int16_t>(whole.height * 9 / 20),
            static_cast<uint16_t>(whole.width * 3 / 10),
            static_cast<uint16_t>(whole.height * 3 / 10)};
}

/// Of the first opening, or with a letter of what is typed at once into it.
void measureFirst(Probe &probe, xcb_keycode_t letter)
{
    probe.showTarget();
    const Probe::Area area = middleOf(probe);
    Probe::Pixels before = probe.settled(area);
    probe.pressHotKey();
    const double opened = probe.waitForRest(area, before, probe.pressedAt());
    probe.releaseHotKey();
    double typed = -1;
    if (letter != 0) {
        before = probe.settled(area);
        const auto from = Time::now();
        probe.key(letter, true);
        typed = probe.waitForRest(area, before, from);
        probe.key(letter, false);
    }
    close(probe);
    const double value = letter != 0 ? typed : opened;
    report(value < 0 ? std::vector<double>() : std::vector{value});
}

void measurePasting(Probe &probe, int runs)
{
    probe.showTarget();
    const OpenWindow window = learn(probe);
    close(probe);
    std::vector<double> values;
    for (int i = 0; i < runs; ++i) {
        probe.forgetPaste();
        probe.pressHotKey();
        probe.waitForPixels(window.area, window.pixels, probe.pressedAt());
        probe.releaseHotKey();
        probe.run(std::chrono::seconds(1), [&] { return !probe.hasFocus(); });
        probe.serve(std::chrono::milliseconds(60));
        const auto from = Time::now();
        probe.key(kKeyReturn, true);
        if (probe.run(std::chrono::seconds(2), [&] { return !probe.pasted().empty(); }))
            values.push_back(Milliseconds(Time::now() - from).count());
        probe.key(kKeyReturn, false);
        probe.run(std::chrono::seconds(1), [&] { return probe.hasFocus(); });
        probe.serve(std::chrono::milliseconds(100));
    }
    report(values);
}

} // namespace

int main(int argc, char **argv)
{
    const std::string command = argc > 1 ? argv[1] : "";
    const auto number = [&](int i) { return argc > i ? std::atoi(argv[i]) : 0; };
    try {
        Probe probe;
        if (command == "request-latency") {
            measureRequests(probe, number(2));
        } else if (command == "burst") {
            copyInABurst(probe, number(2), number(3));
        } else if (command == "copy-and-quit" && argc > 3) {
            probe.own(argv[2]);
            probe.serve(std::chrono::milliseconds(number(3)));
        } else if (command == "copy-large") {
            probe.own(std::string(static_cast<std::size_t>(number(2)), 'x'));
            probe.serve(std::chrono::seconds(5));
        } else if (command == "open") {
            measureOpening(probe, number(2));
        } else if (command == "type") {
            measureTyping(probe, number(2), static_cast<xcb_keycode_t>(number(3)));
        } else if (command == "first-letter" || command == "first-opening") {
            measureFirst(probe, static_cast<xcb_keycode_t>(number(2)));
        } else if (command == "paste") {
            measurePasting(probe, number(2));
        } else {
            std::fputs("unknown command\n", stderr);
            return 2;
        }
    } catch (const std::exception &problem) {
        std::fprintf(stderr, "probe: %s\n", problem.what());
        return 1;
    }
    return 0;
}
