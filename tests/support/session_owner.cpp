// A clipboard owner in a Wayland session that behaves as told; owner.py is the same for X11. Says
// "owner" once the compositor knows that it owns the clipboard.
//
//   session_owner secret TEXT                 a password manager's copy
//   session_owner html HTML TEXT              a browser's copy
//   session_owner files [FORMAT FILE]... TEXT a text, and in other formats what is in the files
//   session_owner brief MILLISECONDS TEXT     copies and exits
//   session_owner burst COUNT INTERVAL_MS     COUNT different copies
//   session_owner hang                        never answers, marked text neither

#include <wayland-client.h>
#include <wlr-data-control-unstable-v1-client-protocol.h>

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;
using Formats = std::map<std::string, std::string>;

constexpr milliseconds kForever = std::chrono::hours(24);

class Owner
{
public:
    Owner()
    {
        m_display = wl_display_connect(nullptr);
        if (!m_display)
            return;
        wl_registry_add_listener(wl_display_get_registry(m_display), &kRegistry, this);
        wl_display_roundtrip(m_display);
        if (m_manager && m_seat)
            m_device = zwlr_data_control_manager_v1_get_data_device(m_manager, m_seat);
    }
    ~Owner() { wl_display_disconnect(m_display); }
    Owner(const Owner &) = delete;
    Owner &operator=(const Owner &) = delete;

    bool isAble() const { return m_device; }
    void setAnswers(bool answers) { m_answers = answers; }

    void own(const Formats &formats, bool isPrimary = false)
    {
        m_formats = formats;
        m_wasFetched = false;
        auto *source = zwlr_data_control_manager_v1_create_data_source(m_manager);
        zwlr_data_control_source_v1_add_listener(source, &kSource, this);
        for (const auto &[format, data] : formats)
            zwlr_data_control_source_v1_offer(source, format.c_str());
        if (isPrimary)
            zwlr_data_control_device_v1_set_primary_selection(m_device, source);
        else
            zwlr_data_control_device_v1_set_selection(m_device, source);
        wl_display_roundtrip(m_display);
    }

    void serve(
        milliseconds duration, const std::function<bool()> &isDone = [] { return false; })
    {
        const auto end = Clock::now() + duration;
        while (!isDone()) {
            wl_display_dispatch_pending(m_display);
            wl_display_flush(m_display);
            const auto left = std::chrono::duration_cast<milliseconds>(end - Clock::now());
            if (left.count() <= 0 || isDone())
                return;
            pollfd ready{wl_display_get_fd(m_display), POLLIN, 0};
            if (poll(&ready, 1, static_cast<int>(left.count())) > 0 &&
                wl_display_dispatch(m_display) < 0)
                return;
        }
    }
    /// A text that its owner replaces before answering for it was never to be had by anybody.
    void serveUntilFetched()
    {
        serve(milliseconds(1000), [this] { return m_wasFetched; });
    }

private:
    void send(const std::string &format, int file)
    {
        if (!m_answers)
            return; // The reader's end stays open and empty.
        const std::string &data = m_formats[format];
        for (size_t at = 0; at < data.size();) {
            const ssize_t size = write(file, data.data() + at, data.size() - at);
            if (size <= 0)
                break;
            at += static_cast<size_t>(size);
        }
        close(file);
        m_wasFetched = true;
    }

    static const wl_registry_listener kRegistry;
    static const zwlr_data_control_source_v1_listener kSource;

    wl_display *m_display = nullptr;
    wl_seat *m_seat = nullptr;
    zwlr_data_control_manager_v1 *m_manager = nullptr;
    zwlr_data_control_device_v1 *m_device = nullptr;
    Formats m_formats;
    bool m_answers = true;
    bool m_wasFetched = false;
};

const wl_registry_listener Owner::kRegistry = {
    [](void *data, wl_registry *registry, uint32_t name, const char *interface, uint32_t version) {
        auto *owner = static_cast<Owner *>(data);
        const auto bind = [&](const wl_interface &wanted, uint32_t newest) {
            return wl_registry_bind(registry, name, &wanted, std::min(version, newest));
        };
        if (std::strcmp(interface, wl_seat_interface.name) == 0)
            owner->m_seat = static_cast<wl_seat *>(bind(wl_seat_interface, 1));
        else if (std::strcmp(interface, zwlr_data_control_manager_v1_interface.name) == 0)
            owner->m_manager = static_cast<zwlr_data_control_manager_v1 *>(
                bind(zwlr_data_control_manager_v1_interface, 2));
    },
    [](void *, wl_registry *, uint32_t) {},
};

const zwlr_data_control_source_v1_listener Owner::kSource = {
    [](void *data, zwlr_data_control_source_v1 *, const char *format, int32_t file) {
        static_cast<Owner *>(data)->send(format, file);
    },
    [](void *, zwlr_data_control_source_v1 *source) {
        zwlr_data_control_source_v1_destroy(source);
    },
};

Formats plain(const std::string &text)
{
    return {{"text/plain;charset=utf-8", text}, {"UTF8_STRING", text}};
}

Formats with(Formats formats, const std::string &format, const std::string &data)
{
    formats[format] = data;
    return formats;
}

std::string contents(const std::string &path)
{
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

void burst(Owner &owner, int count, milliseconds interval)
{
    owner.own(plain("before the burst"));
    owner.serveUntilFetched();
    for (int i = 0; i < count; ++i) {
        const auto next = Clock::now() + interval;
        owner.own(plain("burst copy " + std::to_string(i)));
        owner.serveUntilFetched();
        owner.serve(std::chrono::duration_cast<milliseconds>(next - Clock::now()));
    }
}

} // namespace

int main(int argc, char **argv)
{
    const std::vector<std::string> words(argv + 1, argv + argc);
    const std::string mode = words.empty() ? std::string() : words[0];
    Owner owner;
    if (words.empty() || !owner.isAble()) {
        std::fputs("session_owner: no compositor with a clipboard for this\n", stderr);
        return 1;
    }
    std::signal(SIGPIPE, SIG_IGN);
    milliseconds rest = kForever;
    if (mode == "burst") {
        burst(owner, std::stoi(words.at(1)), milliseconds(std::stoi(words.at(2))));
        rest = std::chrono::seconds(2);
    } else if (mode == "html") {
        owner.own(with(plain(words.at(2)), "text/html", words.at(1)));
    } else if (mode == "secret") {
        owner.own(with(plain(words.at(1)), "x-kde-passwordManagerHint", "secret"));
    } else if (mode == "files") {
        Formats formats = plain(words.back());
        for (size_t at = 1; at + 2 < words.size(); at += 2)
            formats[words[at]] = contents(words[at + 1]);
        owner.own(formats);
    } else if (mode == "brief") {
        owner.own(plain(words.at(2)));
        rest = milliseconds(std::stoi(words.at(1)));
    } else {
        owner.setAnswers(false);
        owner.own(plain("never told"));
        owner.own(plain("never told"), true);
    }
    std::puts("owner");
    std::fflush(stdout);
    owner.serve(rest);
}
