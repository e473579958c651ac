// The least a Wayland client can do and still be a clipboard history: it asks for every text that
// is copied, shows a window of rows, repaints it for each letter, and pastes with Return where the
// compositor has virtual keyboards. What it is measured to need nobody can beat.
//
// SIGUSR1 shows the window. Commands on standard input, an answer a line: "count", "last".

#include "../WaylandClient.h"

#include <linux/input-event-codes.h>
#include <poll.h>
#include <sys/signalfd.h>
#include <xkbcommon/xkbcommon.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <set>
#include <string>
#include <vector>

namespace {

class Floor
{
public:
    Floor()
    {
        zwlr_data_control_device_v1_add_listener(m_client.device, &kDevice, this);
        wl_keyboard_add_listener(m_client.keyboard, &kKeyboard, this);
        if (m_client.virtualKeyboards)
            makeKeyboard();
        wl_display_roundtrip(m_client.display);
    }

    int serve(int signals)
    {
        std::fputs("ready\n", stderr);
        pollfd ready[] = {{wl_display_get_fd(m_client.display), POLLIN, 0},
                          {signals, POLLIN, 0},
                          {STDIN_FILENO, POLLIN, 0}};
        while (true) {
            wl_display_dispatch_pending(m_client.display);
            wl_display_flush(m_client.display);
            poll(ready, 3, -1);
            if (ready[0].revents && wl_display_dispatch(m_client.display) < 0)
                return 1;
            signalfd_siginfo signal{};
            if (ready[1].revents && read(signals, &signal, sizeof signal) > 0 &&
                !m_window.isShown())
                m_window.show();
            if (ready[2].revents && !answer())
                return 0;
        }
    }

private:
    void makeKeyboard()
    {
        m_keyboard = zwp_virtual_keyboard_manager_v1_create_virtual_keyboard(
            m_client.virtualKeyboards, m_client.seat);
        xkb_context *context = xkb_context_new(XKB_CONTEXT_NO_FLAGS);
        const xkb_rule_names names{"evdev", "pc105", "us", "", ""};
        xkb_keymap *keymap =
            xkb_keymap_new_from_names(context, &names, XKB_KEYMAP_COMPILE_NO_FLAGS);
        char *text = xkb_keymap_get_as_string(keymap, XKB_KEYMAP_FORMAT_TEXT_V1);
        const size_t size = std::strlen(text) + 1;
        const int file = memfd_create("keymap", MFD_CLOEXEC);
        if (write(file, text, size) == static_cast<ssize_t>(size))
            zwp_virtual_keyboard_v1_keymap(m_keyboard, WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1, file,
                                           static_cast<uint32_t>(size));
        close(file);
        std::free(text);
        xkb_keymap_unref(keymap);
        xkb_context_unref(context);
    }

    bool answer()
    {
        char line[256];
        const ssize_t size = read(STDIN_FILENO, line, sizeof line);
        if (size <= 0)
            return false;
        if (line[0] == 'c')
            std::printf("%zu\n", m_texts.size());
        else
            std::printf("%s\n", m_texts.empty() ? "" : m_texts.back().c_str());
        std::fflush(stdout);
        return true;
    }

    void selectionChanged(zwlr_data_control_offer_v1 *offer)
    {
        if (offer && m_textOffers.count(offer) && !m_isOwner) {
            int ends[2];
            if (pipe(ends) == 0) {
                zwlr_data_control_offer_v1_receive(offer, kPlainText, ends[1]);
                wl_display_flush(m_client.display);
                close(ends[1]);
                record(ends[0]);
            }
        } else if (!offer && !m_isOwner && !m_texts.empty()) {
            own();
        }
        if (m_offer) {
            m_textOffers.erase(m_offer);
            zwlr_data_control_offer_v1_destroy(m_offer);
        }
        m_offer = offer;
    }
    void record(int file)
    {
        std::string text;
        char bytes[4096];
        for (ssize_t got = 0; (got = read(file, bytes, sizeof bytes)) > 0;)
            text.append(bytes, static_cast<size_t>(got));
        close(file);
        if (!text.empty() && (m_texts.empty() || m_texts.back() != text))
            m_texts.push_back(text);
    }
    void own()
    {
        auto *source = zwlr_data_control_manager_v1_create_data_source(m_client.dataControl);
        zwlr_data_control_source_v1_add_listener(source, &kSource, this);
        zwlr_data_control_source_v1_offer(source, kPlainText);
        m_isOwner = true;
        zwlr_data_control_device_v1_set_selection(m_client.device, source);
    }

    void key(uint32_t code)
    {
        if (!m_window.isShown())
            return;
        if (code == KEY_ESC || code == KEY_ENTER) {
            m_window.hide();
            if (code == KEY_ENTER && m_keyboard)
                paste();
        } else {
            m_window.paint(m_color ^= 0x404040U);
        }
    }
    void paste()
    {
        if (!m_isOwner)
            own();
        wl_display_roundtrip(m_client.display);
        const auto press = [this](uint32_t key, uint32_t state) {
            zwp_virtual_keyboard_v1_key(m_keyboard, 0, key, state);
        };
        press(KEY_LEFTCTRL, 1);
        zwp_virtual_keyboard_v1_modifiers(m_keyboard, 4, 0, 0, 0);
        press(KEY_V, 1);
        press(KEY_V, 0);
        press(KEY_LEFTCTRL, 0);
        zwp_virtual_keyboard_v1_modifiers(m_keyboard, 0, 0, 0, 0);
    }

    WaylandClient m_client;
    BareWindow m_window{m_client, "Quillmarsh"};
    zwp_virtual_keyboard_v1 *m_keyboard = nullptr;
    zwlr_data_control_offer_v1 *m_offer = nullptr;
    std::set<zwlr_data_control_offer_v1 *> m_textOffers;
    std::vector<std::string> m_texts;
    uint32_t m_color = 0xE0E0E0U;
    bool m_isOwner = false;

    static constexpr zwlr_data_control_offer_v1_listener kOffer = {
        [](void *data, zwlr_data_control_offer_v1 *offer, const char *format) {
            if (std::strcmp(format, kPlainText) == 0)
                static_cast<Floor *>(data)->m_textOffers.insert(offer);
        }};
    static constexpr zwlr_data_control_device_v1_listener kDevice = {
        [](void *data, zwlr_data_control_device_v1 *, zwlr_data_control_offer_v1 *offer) {
            zwlr_data_control_offer_v1_add_listener(offer, &kOffer, data);
        },
        [](void *data, zwlr_data_control_device_v1 *, zwlr_data_control_offer_v1 *offer) {
            static_cast<Floor *>(data)->selectionChanged(offer);
        },
        [](void *, zwlr_data_control_device_v1 *) {},
        [](void *, zwlr_data_control_device_v1 *, zwlr_data_control_offer_v1 *offer) {
            if (offer)
                zwlr_data_control_offer_v1_destroy(offer);
        }};
    static constexpr zwlr_data_control_source_v1_listener kSource = {
        [](void *data, zwlr_data_control_source_v1 *, const char *, int32_t file) {
            const std::vector<std::string> &texts = static_cast<Floor *>(data)->m_texts;
            if (!texts.empty() && write(file, texts.back().data(), texts.back().size()) < 0)
                std::perror("floor_wayland");
            close(file);
        },
        [](void *data, zwlr_data_control_source_v1 *source) {
            static_cast<Floor *>(data)->m_isOwner = false;
            zwlr_data_control_source_v1_destroy(source);
        }};
    static constexpr wl_keyboard_listener kKeyboard = {
        [](void *, wl_keyboard *, uint32_t, int32_t file, uint32_t) { close(file); },
        [](void *, wl_keyboard *, uint32_t, wl_surface *, wl_array *) {},
        [](void *, wl_keyboard *, uint32_t, wl_surface *) {},
        [](void *data, wl_keyboard *, uint32_t, uint32_t, uint32_t code, uint32_t state) {
            if (state == WL_KEYBOARD_KEY_STATE_PRESSED)
                static_cast<Floor *>(data)->key(code);
        },
        [](void *, wl_keyboard *, uint32_t, uint32_t, uint32_t, uint32_t, uint32_t) {},
        [](void *, wl_keyboard *, int32_t, int32_t) {}};
};

} // namespace

int main()
try {
    sigset_t show;
    sigemptyset(&show);
    sigaddset(&show, SIGUSR1);
    sigprocmask(SIG_BLOCK, &show, nullptr);
    std::signal(SIGPIPE, SIG_IGN);
    Floor floor;
    return floor.serve(signalfd(-1, &show, SFD_CLOEXEC));
} catch (const std::exception &problem) {
    std::fprintf(stderr, "floor_wayland: %s\n", problem.what());
    return 1;
}
